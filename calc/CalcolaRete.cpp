// The run's driver for both kinds of network, and the tree walks every stage relies on:
// flows from the consumers up to the root, cumulated lengths and drops from the root down.

#include <memory>
#include <string>

#include "calc/Calcolo.h"
#include "calc/Formule.h"
#include "calc/Motore.h"
#include "core/Servizi.h"

namespace fornax {

Motore::Motore(Documento& d, const Archivi& a, StatoCalcolo& s, Messaggi& msg) : d_(d), a_(a), s_(s), msg_(msg) {
    entrataPerdite_.fill(-1);
}

void Motore::ReteInterna() {
    for (int i = 1; i <= N(); ++i) {
        T(i).Visitato = FALSO;
        // The contemporaneity of an internal installation is always 100, whatever the file held.
        T(i).ID_CONTEMP = 100;
    }
    AggregaPortate(1);
    CalcolaLunghezzeEquivalenti(d_, a_, 2);
    AccumulaLunghezze(1, 0.0f);
    DimensionaRete();
    // Again with the fittings of the diameters just found.
    CalcolaLunghezzeEquivalenti(d_, a_, 1);
    AccumulaLunghezze(1, 0.0f);
    DimensionaRete();
    AccumulaPerdite(1, 0.0f);
    s_.Riduzione = {};
    do {
        ++s_.Riduzione.passate;
    } while (RiduciDiametri(1) > 0);
    AccumulaPerdite(1, 0.0f);
    AggiornaVelocita();
}

void Motore::RetePressione() {
    for (int i = 1; i <= N(); ++i) {
        T(i).Visitato = FALSO;
        // A junction keeps the contemporaneity typed for it.
        if (T(i).IsUtenza()) T(i).ID_CONTEMP = 100;
    }
    AggregaPortate(1);
    CalcolaLunghezzeEquivalentiPressione(d_, a_, 2);
    AccumulaLunghezze(1, 0.0f);
    // A pressure network is sized once, with the fittings of its first pass: no control of the
    // product asks for a second sizing or a narrowing sweep here.
    DimensionaRetePressione();
    AccumulaPerdite(1, 0.0f);
    AggiornaVelocita();
    PropagaErrori(1);
}

void Motore::AggiornaVelocita() {
    const bool pressione = d_.ReteInPressione != 0;
    for (int i = 1; i <= N(); ++i) {
        Tronco& t = T(i);
        const float dmm = DiametroTronco(a_, t);
        const double v = pressione ? VelocitaMedia(t.ID_P_TRONCO, dmm, t.PressioneTesta, t.ID_PFINALE)
                                   : VelocitaNormale(t.ID_P_TRONCO, dmm);
        t.ID_VELOCITA = static_cast<float>(v);
    }
}

// ---- Flows ----

float Motore::AggregaPortate(int i) {
    aggrega_.Nuova();
    return AggregaDa(i);
}

float Motore::AggregaDa(int i) {
    if (Collegamento(i) == 0 || !aggrega_.Entra(i)) return 0.0f;
    Tronco& t = T(i);
    // A derivation beyond the table in use is a stale link: it is dropped in silence.
    auto ramo = [&](int16_t& link) -> double {
        if (link <= 0) return 0.0;
        if (link <= N() + 1 && link <= MAX_TRONCHI) return AggregaDa(link);
        link = 0;
        return 0.0;
    };
    const double sinistra = ramo(t.ID_LEFT);
    const double destra = ramo(t.ID_RIGHT);
    if (t.ID_P_UTENZE > 0 && !t.IsUtenza()) {
        // A junction may not draw a consumer's flow.
        t.ID_P_UTENZE = 0;
        t.ID_CONTEMP = 100;
        msg_.Mostra("Portata nel tronco " + std::to_string(i) + " non compatibile", Box::OK);
    }
    if (t.ID_CONTEMP == 0) t.ID_CONTEMP = 100;
    const double somma = sinistra + static_cast<double>(t.ID_P_UTENZE) + destra;
    // The contemporaneity of a junction of a pressure network reduces its own flow only:
    // the raw sum goes up the tree.
    if (d_.ReteInPressione != 0 && !t.IsUtenza()) {
        t.ID_P_TRONCO = static_cast<float>(somma * t.ID_CONTEMP / 100.0);
    } else {
        t.ID_P_TRONCO = static_cast<float>(somma);
    }
    t.Visitato = VERO;
    return static_cast<float>(somma);
}

// ---- Cumulated lengths and drops ----

void Motore::AccumulaLunghezze(int i, float progressivaPadre) {
    lunghezze_.Nuova();
    LunghezzeDa(i, progressivaPadre);
}

void Motore::LunghezzeDa(int i, float progressivaPadre) {
    if (Collegamento(i) == 0 || !lunghezze_.Entra(i)) return;
    Tronco& t = T(i);
    t.LenPercorso = static_cast<float>(static_cast<double>(t.ID_EQ_LEN) + progressivaPadre);
    if (t.LenPercorso > d_.MaxLenPercorso) d_.MaxLenPercorso = t.LenPercorso;
    LunghezzeDa(t.ID_LEFT, t.LenPercorso);
    LunghezzeDa(t.ID_RIGHT, t.LenPercorso);
}

void Motore::AccumulaPerdite(int i, float perditaPadre) {
    perdite_.Nuova();
    entrataPerdite_.fill(-1);
    PerditeDa(i, perditaPadre, 0);
}

void Motore::PerditeDa(int i, float perditaPadre, int entrata) {
    if (Collegamento(i) == 0 || !perdite_.Entra(i)) return;
    entrataPerdite_[static_cast<size_t>(i)] = static_cast<int16_t>(entrata);
    const float percorso = PerditaTronco(i, perditaPadre);
    PerditeDa(T(i).ID_LEFT, percorso, i);
    PerditeDa(T(i).ID_RIGHT, percorso, i);
}

float Motore::PerditaTronco(int i, float perditaPadre) {
    Tronco& t = T(i);
    // One section without a valid drop invalidates everything below it.
    if (t.ID_PDC_TRONCO >= 0 && perditaPadre >= 0) {
        t.ID_PDC_PERCORSO = static_cast<float>(static_cast<double>(t.ID_PDC_TRONCO) + perditaPadre);
    } else {
        t.ID_PDC_PERCORSO = -1.0f;
    }
    t.ID_PFINALE = static_cast<float>(d_.PressioneIniziale - static_cast<double>(t.ID_PDC_PERCORSO));
    if (t.ID_PDC_PERCORSO > d_.MaxPdcPercorso) d_.MaxPdcPercorso = t.ID_PDC_PERCORSO;
    return t.ID_PDC_PERCORSO;
}

void Motore::AccumulaPerditeSotto(int i) {
    // After a change of the drop of i alone, a walk from the root would find everything outside
    // the part of the tree under i as it stands, and the running maximum has already seen those
    // values: walking that part alone, along the links the last walk from the root took, leaves
    // every field as the whole walk would.
    const int entrata = entrataPerdite_[static_cast<size_t>(i)];
    if (entrata < 0) {
        AccumulaPerdite(1, 0.0f);
        return;
    }
    sotto_.Nuova();
    PerditeSotto(i, entrata == 0 ? 0.0f : T(entrata).ID_PDC_PERCORSO);
}

void Motore::PerditeSotto(int i, float perditaPadre) {
    if (!sotto_.Entra(i)) return;
    const float percorso = PerditaTronco(i, perditaPadre);
    for (const int figlio : {Collegamento(T(i).ID_LEFT), Collegamento(T(i).ID_RIGHT)}) {
        if (figlio > 0 && entrataPerdite_[static_cast<size_t>(figlio)] == i) PerditeSotto(figlio, percorso);
    }
}

// ---- Failures of a pressure network ----

void Motore::PropagaErrori(int i) {
    errori_.Nuova();
    ErroriDa(i);
}

void Motore::ErroriDa(int i) {
    if (Collegamento(i) == 0 || !errori_.Entra(i)) return;
    Tronco& t = T(i);
    const int sinistra = Collegamento(t.ID_LEFT);
    const int destra = Collegamento(t.ID_RIGHT);
    // What can't be fed condemns what hangs below it.
    if (t.ID_PDC_TRONCO < 0) {
        t.ID_PFINALE = -1.0f;
        if (sinistra > 0) T(sinistra).ID_PDC_TRONCO = -1.0f;
        if (destra > 0) T(destra).ID_PDC_TRONCO = -1.0f;
    }
    ErroriDa(sinistra);
    ErroriDa(destra);
}

// ---- Entry points ----

void CalcolaRete(Documento& d, const Archivi& a, StatoCalcolo& stato, Messaggi& msg) {
    stato.Lista.ImpostaMessaggi(&msg);
    Motore m(d, a, stato, msg);
    if (d.ReteInPressione != 0) {
        m.RetePressione();
    } else {
        m.ReteInterna();
    }
    stato.Lista.ImpostaMessaggi(nullptr);
}

void CalcolaRete(Documento& d, const Archivi& a, Messaggi& msg) {
    auto stato = std::make_unique<StatoCalcolo>();
    CalcolaRete(d, a, *stato, msg);
}

}  // namespace fornax
