#include "calc/Formule.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "archives/Materiali.h"
#include "archives/Speciali.h"

namespace fornax {

namespace {

constexpr double kAtmosfera = 101325.0;  // Pa
constexpr int kGiriMassimi = 50;         // rounds of the outlet-pressure iteration

// The friction factor has always carried its constants in single precision.
constexpr double kNik1 = static_cast<double>(0.221f);
constexpr double kNik2 = static_cast<double>(0.0032f);
constexpr double kNikEsp = static_cast<double>(-0.237f);
constexpr double kPrandtl = static_cast<double>(2.51f);
constexpr double kCorrezione = static_cast<double>(0.17f);
constexpr double kColebrook = static_cast<double>(3.71f);
constexpr double kTransizione = static_cast<double>(8.0f);

double Quadrato(double x) { return x * x; }

// Compression factor at the project's mean pressure: the ratio of the atmosphere to the mean
// absolute pressure between the source and the minimum at the ends.
double FattoreCompressione(const Documento& d) {
    return 202650.0 / (d.PressioneFinale * 1000.0 + d.PressioneIniziale * 1000.0 + 202650.0);
}

// First estimate of P1a^2 - p2^2 without the kinetic term, Pa^2 (810000 = 3600^2 / 16).
double DifferenzaQuadrati(const Documento& d, float D, float Q, float L, float lambda) {
    const double q = Q;
    const double dd = D;
    return q * q * kAtmosfera * static_cast<double>(d.GasCorrente.MassaVolumica) * static_cast<double>(L) *
           static_cast<double>(lambda) / (Quadrato(3.141592) * 810000.0 * std::pow(dd, 5.0));
}

}  // namespace

float ReynoldsDaTesto(double re) {
    char testo[40];
    std::snprintf(testo, sizeof testo, "%.15g", re);
    return std::strtof(testo, nullptr);
}

double Rugosita(int tipoFormula) { return tipoFormula == 1 ? 0.00015 : 0.00002; }

float PerditaSpecifica(const Documento& d, float D, float Q) {
    const double nu = d.GasCorrente.Viscosita;
    const double rho = d.GasCorrente.MassaVolumica;
    if (D <= 0 || Q <= 0 || nu <= 0) return 0.0f;
    const double q = Q;
    const double dd = D;
    if (d.Normativa == 1) {
        const double re = q / (dd * 0.785398163398 * 3600.0 * nu);
        const double f = 0.612 / std::pow(re, 0.35) + 0.0072 + 2.9e-5 * std::pow(re, 0.109) / dd;
        // 1620000 = 3600^2 / 8: the flow is in m3/h; pi is 3.1415 here.
        return static_cast<float>(q * q * rho / (Quadrato(3.1415) * 1620000.0 * std::pow(dd, 5.0)) * f);
    }
    // The monomial gives mbar per metre; x100 turns it into Pa.
    return static_cast<float>(1e4 * 2.28 * rho * std::pow(q, 1.8) * 100.0 / std::pow(dd * 1000.0, 4.8));
}

float CoefficienteAttrito(float D, float Re, double eps) {
    const double re = Re;
    const double dd = D;
    const double lambda0 = kNik1 * std::pow(re, kNikEsp) + kNik2;
    const double lambda1 = 1.0 / Quadrato(-2.0 * std::log10(kPrandtl / (re * std::sqrt(lambda0))));
    double lambda2 = lambda1 + kCorrezione * re * Quadrato(lambda1) * eps / dd;
    if (re * eps * std::sqrt(lambda2) / dd > 25.0) {
        lambda2 = (1.0 + kTransizione * dd / (re * eps)) / Quadrato(2.0 * std::log10(kColebrook * dd / eps));
        if (re * eps * std::sqrt(lambda2) / dd > 200.0) {
            lambda2 = 1.0 / Quadrato(2.0 * std::log10(kColebrook * dd / eps));
        }
    }
    const double lambda =
        1.0 / Quadrato(-2.0 * std::log10(eps / (kColebrook * dd) + kPrandtl / (re * std::sqrt(lambda2))));
    return static_cast<float>(lambda);
}

double PressioneValleIterata(const Documento& d, float P1, float Q, float D, float L, double p2Iniziale,
                             int tipoFormula) {
    const double nu = d.GasCorrente.Viscosita;
    const double rho = d.GasCorrente.MassaVolumica;
    const double eps = Rugosita(tipoFormula);
    const double p1 = P1;
    const double q = Q;
    const double dd = D;
    const double p1a = p1 * 1000.0 + kAtmosfera;
    const double p1a2 = p1a * p1a;

    double erroreMigliore = 99999.0;
    double migliore = 0.0;
    double p2 = p2Iniziale;
    double p2Nuovo = 0.0;
    double precedente = 0.0;  // p2Nuovo of the round before
    for (int n = 0;;) {
        const double c = 202650.0 / (p1 * 1000.0 + kAtmosfera + p2);
        const double nuMedia = nu * c;
        const double re = q / (dd * 2827.433388 * nuMedia) * c;
        const double lambda = CoefficienteAttrito(D, static_cast<float>(re), eps);
        // The first round guesses a 1% lower outlet pressure; later rounds extrapolate a little
        // from the last two estimates, which damps the oscillation of the iteration.
        const double argomento = n == 0 ? p1a / (0.99 * p2) : p1a / (p2 * std::pow(p2 / p2Nuovo, 0.1));
        // 0.01267452955 = 16 * 101325 / (pi^2 * 3600^2)
        const double delta = (q * q * 0.01267452955 * rho / std::pow(dd, 4.0)) *
                             (static_cast<double>(L) * lambda / dd + 2.0 * std::log(argomento));
        if (delta > p1a2) return -1.0;
        p2Nuovo = std::sqrt(p1a2 - delta);
        if (n >= 1) {
            const double e = std::fabs(p2Nuovo / p2 - 1.0);
            if (e < erroreMigliore) {
                erroreMigliore = e;
                migliore = p2Nuovo;
            }
            p2 = precedente;
        }
        precedente = p2Nuovo;
        ++n;
        const double errore = std::fabs(p2Nuovo / p2 - 1.0);
        if (errore <= 0.0001) return n < kGiriMassimi ? p2Nuovo : migliore;
        if (n >= kGiriMassimi) return migliore;
    }
}

float PerditaSezione(const Documento& d, float P1, float D, float Q, float L, int tipoFormula) {
    const double nu = d.GasCorrente.Viscosita;
    if (D <= 0 || Q <= 0 || nu <= 0) return 0.0f;
    const double c = FattoreCompressione(d);
    const double nuMedia = nu * c;
    // 2827.4328 = 3600 * pi / 4 as these two functions store it.
    const double re = static_cast<double>(Q) / (static_cast<double>(D) * 2827.4328 * nuMedia) * c;
    const float lambda = CoefficienteAttrito(D, static_cast<float>(re), Rugosita(tipoFormula));
    const double delta0 = DifferenzaQuadrati(d, D, Q, L, lambda);
    const double p1a = static_cast<double>(P1) * 1000.0 + kAtmosfera;
    if (p1a * p1a < delta0) return -1.0f;
    const float p2Stima = static_cast<float>(std::sqrt(p1a * p1a - delta0));
    const double p2 = PressioneValleIterata(d, P1, Q, D, L, p2Stima, tipoFormula);
    if (p2 < 0) return -1.0f;
    return static_cast<float>((p1a - p2) / 1000.0);
}

float PerditaUnitariaPressione(const Documento& d, float D, float Q, float P1, int tipoFormula) {
    const double nu = d.GasCorrente.Viscosita;
    if (D <= 0 || Q <= 0 || nu <= 0) return 0.0f;
    const double c = FattoreCompressione(d);
    const double nuMedia = nu * c;
    const double re = static_cast<double>(Q) / (static_cast<double>(D) * 2827.4328 * nuMedia) * c;
    const float lambda = CoefficienteAttrito(D, ReynoldsDaTesto(re), Rugosita(tipoFormula));
    const double delta0 = DifferenzaQuadrati(d, D, Q, 1.0f, lambda);
    const double p1a = static_cast<double>(P1) * 1000.0 + kAtmosfera;
    if (p1a * p1a - delta0 < 0) return -1.0f;
    float p2 = static_cast<float>(std::sqrt(p1a * p1a - delta0));
    p2 = static_cast<float>(PressioneValleIterata(d, P1, Q, D, 1.0f, p2, tipoFormula));
    if (p2 < 0) return -1.0f;
    return static_cast<float>((p1a - static_cast<double>(p2)) / 1000.0);
}

double VelocitaNormale(float Q, float Dmm) {
    if (Dmm <= 0) return 0.0;
    const double dmm = Dmm;
    return static_cast<double>(Q) * 1000.0 * 0.3537 / (dmm * dmm);
}

double VelocitaMedia(float Q, float Dmm, double pTesta, double pFine) {
    if (Dmm <= 0) return 0.0;
    return 2.0 * VelocitaNormale(Q, Dmm) * 101.325 / (pTesta + pFine + 202.65);
}

int RigaTronco(const Archivi& a, const Tronco& t) {
    if (!a.HaMateriale(t.IndiceMateriale)) return 0;
    return IndiceRiga(a, t.IndiceMateriale, t.ID_DIAMETRO);
}

float DiametroTronco(const Archivi& a, const Tronco& t) {
    if (!a.HaMateriale(t.IndiceMateriale)) return 0.0f;
    return DiametroInterno(a, t.IndiceMateriale, t.ID_DIAMETRO);
}

int TipoFormulaTronco(const Archivi& a, const Tronco& t) {
    if (!a.HaMateriale(t.IndiceMateriale)) return 0;
    return a.Materiali[static_cast<size_t>(t.IndiceMateriale)].TipoFormula;
}

void CalcolaLunghezzaEquivalente(Documento& d, const Archivi& a, int modo, int sezione) {
    Tronco& t = d.T(sezione);
    const float diametro = modo == 1 ? DiametroTronco(a, t) : 100.0f;
    const int famiglia = d.GasCorrente.Famiglia;
    // Bends are kind 1, elbows kind 3, T fittings kind 2, taps kind 4.
    const double somma = static_cast<double>(t.ID_LEN) +
                         t.ID_NCURVE * static_cast<double>(LunghezzaInterna(d.Speciali, 1, diametro, famiglia)) +
                         t.ID_NGOMITI * static_cast<double>(LunghezzaInterna(d.Speciali, 3, diametro, famiglia)) +
                         t.ID_NRACCORDI * static_cast<double>(LunghezzaInterna(d.Speciali, 2, diametro, famiglia)) +
                         t.ID_NRUBINETTI * static_cast<double>(LunghezzaInterna(d.Speciali, 4, diametro, famiglia)) +
                         static_cast<double>(t.ID_EQLENNOTA);
    t.ID_EQ_LEN = static_cast<float>(somma);
}

void CalcolaLunghezzeEquivalenti(Documento& d, const Archivi& a, int modo) {
    for (int i = 1; i <= d.NumTronchi(); ++i) CalcolaLunghezzaEquivalente(d, a, modo, i);
}

void CalcolaLunghezzaEquivalentePressione(Documento& d, const Archivi& a, int modo, int sezione) {
    Tronco& t = d.T(sezione);
    const float diametro = modo == 1 ? DiametroTronco(a, t) : 200.0f;
    // Each partial sum is kept in the single-precision field.
    auto aggiungi = [&](int conteggio, int tipo) {
        t.ID_EQ_LEN =
            static_cast<float>(static_cast<double>(t.ID_EQ_LEN) +
                               conteggio * static_cast<double>(LunghezzaPressione(d.Speciali, tipo, diametro)));
    };
    t.ID_EQ_LEN = t.ID_LEN;
    aggiungi(t.ID_NCURVE, 1);
    aggiungi(t.ID_NGOMITI, 3);
    aggiungi(t.ID_NRACCORDI, 2);
    aggiungi(t.ID_NRUBINETTI, 4);
    aggiungi(t.ID_SPC5, 5);
    aggiungi(t.ID_SPC6, 6);
    aggiungi(t.ID_SPC7, 7);
    aggiungi(t.ID_SPC8, 8);
    aggiungi(t.ID_SPC9, 9);
    aggiungi(t.ID_SPC10, 10);
    t.ID_EQ_LEN = static_cast<float>(static_cast<double>(t.ID_EQ_LEN) + static_cast<double>(t.ID_EQLENNOTA));
}

void CalcolaLunghezzeEquivalentiPressione(Documento& d, const Archivi& a, int modo) {
    for (int i = 1; i <= d.NumTronchi(); ++i) CalcolaLunghezzaEquivalentePressione(d, a, modo, i);
}

}  // namespace fornax
