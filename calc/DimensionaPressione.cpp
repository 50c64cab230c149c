// Diameter sizing of a pressure network: the same path scheme as an internal installation,
// against a pressure budget instead of a drop limit. The gas enters at PressioneIniziale and
// must reach every consumer at PressioneFinale or more, without exceeding VelocitaMassima.

#include "calc/Formule.h"
#include "calc/Motore.h"

namespace fornax {

void Motore::DimensionaRetePressione() {
    const float iniziale = static_cast<float>(d_.PressioneIniziale);
    R(0).PressioneValle = iniziale;
    T(0).ID_PFINALE = iniziale;
    T(1).PressioneTesta = iniziale;
    ElencoTerminali();
    if (s_.Lista.Count() > 0) DimensionaPercorsoPressione(s_.Lista.Item(1), s_.Lista.Key(1));
    for (int k = ProssimoTerminale(); k > 0; k = ProssimoTerminale()) DimensionaPercorsoPressione(k, R(k).Lunghezza);
    DimensionaRestantiPressione();
}

void Motore::DimensionaPercorsoPressione(int k, float lunghezza) {
    std::array<int16_t, MAX_TRONCHI + 1> catena;
    int padre = 0;
    const int n = Catena(k, catena, padre);

    double disponibile = d_.PressioneIniziale - d_.PressioneFinale;
    double pressione = d_.PressioneIniziale;
    double residua = lunghezza;
    if (padre != 0) {
        residua -= R(padre).Lunghezza;
        pressione = R(padre).PressioneValle;
        disponibile -= d_.PressioneIniziale - pressione;
    }
    for (int pos = n - 1; pos >= 0; --pos) {
        const int s = catena[static_cast<size_t>(pos)];
        Tronco& t = T(s);
        t.PressioneTesta = static_cast<float>(pressione);
        if (disponibile < 0) {
            t.ID_PDC_TRONCO = -1.0f;
            R(s).Dimensionato = VERO;
        } else {
            DimensionaTroncoPressione(s, disponibile, residua);
        }
        disponibile -= t.ID_PDC_TRONCO;
        if (t.ID_PDC_TRONCO >= 0) {
            t.ID_PFINALE = static_cast<float>(static_cast<double>(t.PressioneTesta) - t.ID_PDC_TRONCO);
        } else {
            // The budget is spent: the rest of the chain is condemned.
            disponibile = -1.0;
        }
        pressione -= t.ID_PDC_TRONCO;
        R(s).PressioneValle = static_cast<float>(pressione);
        residua -= t.ID_EQ_LEN;
    }
}

void Motore::DimensionaTroncoPressione(int i, double disponibile, double lunghezza) {
    if (lunghezza == 0) return;
    Tronco& t = T(i);
    if (t.PressioneTesta < 0) {
        t.ID_PDC_TRONCO = -1.0f;
        return;
    }
    const double g = disponibile / lunghezza;  // kPa/m
    const bool bloccato = t.ID_DIAMCUSTOM != FALSO;
    if (!bloccato) {
        t.ID_PDC_TRONCO = 0.0f;
        t.ID_DIAMETRO.clear();
    }
    const int tipo = TipoFormulaTronco(a_, t);
    if (!bloccato && t.ID_P_TRONCO > 0 && t.ID_EQ_LEN > 0) {
        if (!a_.HaMateriale(t.IndiceMateriale) || a_.Materiali[static_cast<size_t>(t.IndiceMateriale)].NumRighe() < 1) {
            // No pipe to carry the flow: the section can't be fed.
            t.ID_PDC_TRONCO = -1.0f;
            R(i).Perdita = t.ID_PDC_TRONCO;
            R(i).Dimensionato = VERO;
            return;
        }
        const MaterialeTubo& m = a_.Materiali[static_cast<size_t>(t.IndiceMateriale)];
        // The smallest diameter that meets the gradient and the speed.
        for (int r = 1; r <= m.NumRighe() && t.ID_DIAMETRO.empty(); ++r) {
            const RigaDiametro& riga = m.Righe[static_cast<size_t>(r)];
            if (riga.DiamInterno <= 0) continue;  // a row without a bore can't carry the flow
            const float D = riga.DiamInterno / 1000.0f;
            const float u = PerditaUnitariaPressione(d_, D, t.ID_P_TRONCO, t.PressioneTesta, tipo);
            if (u < 0 || u > g) continue;
            t.ID_DIAMETRO = riga.DN;
            CalcolaLunghezzaEquivalentePressione(d_, a_, 1, i);
            t.ID_PDC_TRONCO = PerditaSezione(d_, t.PressioneTesta, D, t.ID_P_TRONCO, t.ID_EQ_LEN, tipo);
            t.ID_PFINALE = static_cast<float>(static_cast<double>(t.PressioneTesta) - t.ID_PDC_TRONCO);
            const double v = VelocitaMedia(t.ID_P_TRONCO, riga.DiamInterno, t.PressioneTesta, t.ID_PFINALE);
            const bool regge = t.ID_PDC_TRONCO >= 0 && v <= static_cast<double>(d_.VelocitaMassima) &&
                               static_cast<double>(t.ID_PDC_TRONCO) / static_cast<double>(t.ID_EQ_LEN) <= g;
            if (!regge) t.ID_DIAMETRO.clear();
        }
        if (t.ID_DIAMETRO.empty()) {
            // No row passes: the largest is taken without a test, with the equivalent length
            // as it stands; the section still shows its drop.
            const RigaDiametro& ultima = m.Righe[static_cast<size_t>(m.NumRighe())];
            t.ID_DIAMETRO = ultima.DN;
            const float D = ultima.DiamInterno / 1000.0f;
            t.ID_PDC_TRONCO = D > 0 ? PerditaSezione(d_, t.PressioneTesta, D, t.ID_P_TRONCO, t.ID_EQ_LEN, tipo) : -1.0f;
            R(i).Dimensionato = VERO;
            return;
        }
    }
    // The section has its diameter, chosen or locked (or none, without flow).
    CalcolaLunghezzaEquivalentePressione(d_, a_, 1, i);
    const float dmm = DiametroTronco(a_, t);
    if (bloccato && t.ID_P_TRONCO > 0 && dmm <= 0) {
        // A locked size the material lacks can't carry the flow.
        t.ID_PDC_TRONCO = -1.0f;
    } else {
        t.ID_PDC_TRONCO = PerditaSezione(d_, t.PressioneTesta, dmm / 1000.0f, t.ID_P_TRONCO, t.ID_EQ_LEN, tipo);
    }
    t.ID_PFINALE = static_cast<float>(static_cast<double>(t.PressioneTesta) - t.ID_PDC_TRONCO);
    R(i).Perdita = t.ID_PDC_TRONCO;
    R(i).Dimensionato = VERO;
}

void Motore::DimensionaRestantiPressione() {
    for (int i = 1; i <= N(); ++i) {
        if (R(i).Dimensionato != FALSO || T(i).Visitato == FALSO) continue;
        const int padre = Collegamento(T(i).ID_PREV);
        const double disponibile = static_cast<double>(R(padre).PressioneValle) - d_.PressioneFinale;
        T(i).PressioneTesta = T(padre).ID_PFINALE;
        DimensionaTroncoPressione(i, disponibile, T(i).ID_EQ_LEN);
        if (T(i).ID_PDC_TRONCO < 0 || (padre != 0 && T(padre).ID_PDC_TRONCO < 0)) T(i).ID_PDC_TRONCO = -1.0f;
    }
}

}  // namespace fornax
