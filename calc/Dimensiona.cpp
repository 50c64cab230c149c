// Diameter sizing of an internal installation: the longest path first, each section of a path
// getting a share of the admissible drop proportional to its length, then the other paths with
// what is left, the consumers' own sections last; a final sweep narrows pipes while the limit
// still holds. Greedy, not a global optimisation, as the designer knows it.

#include "archives/Pdc.h"
#include "calc/Formule.h"
#include "calc/Motore.h"

namespace fornax {

// ---- The paths ----

void Motore::ElencoTerminali() {
    // A terminal junction is a section that isn't a consumer and all of whose derivations
    // are consumers. Its weight is the length from the source to its farthest consumer.
    s_.Lista.Clear();
    for (int i = 1; i <= N(); ++i) {
        R(i).Dimensionato = FALSO;
        R(i).Lunghezza = T(i).ID_EQ_LEN;
        const Tronco& t = T(i);
        if (t.IsUtenza()) continue;
        const int sinistra = Collegamento(t.ID_LEFT);
        const int destra = Collegamento(t.ID_RIGHT);
        int derivazioni = 0;
        if (sinistra > 0 && !T(sinistra).IsUtenza()) ++derivazioni;
        if (destra > 0 && !T(destra).IsUtenza()) ++derivazioni;
        if (derivazioni > 0) continue;
        // An absent derivation reads the blank record 0.
        const float lSx = T(sinistra).LenPercorso;
        const float lDx = T(destra).LenPercorso;
        const float peso = lSx > lDx ? lSx : lDx;
        s_.Lista.Add(i, peso);
        R(i).Lunghezza = peso;
    }
    offerto_.fill(false);
}

int Motore::ProssimoTerminale() {
    // A terminal junction that sizing left unsized (its remaining length was exactly 0, as for
    // a junction cut off the tree) is offered once only; the leftover pass sizes it.
    for (int pos = 2; pos <= s_.Lista.Count(); ++pos) {
        const int k = s_.Lista.Item(pos);
        if (R(k).Dimensionato == FALSO && !offerto_[static_cast<size_t>(k)]) {
            offerto_[static_cast<size_t>(k)] = true;
            return k;
        }
    }
    return 0;
}

int Motore::Catena(int k, std::array<int16_t, MAX_TRONCHI + 1>& catena, int& padre) {
    catena_.Nuova();
    catena_.Entra(k);
    int n = 0;
    catena[static_cast<size_t>(n++)] = static_cast<int16_t>(k);
    padre = Collegamento(T(k).ID_PREV);
    // Up through the parents, until the root or a section already sized. A parent met twice
    // (links that loop in a damaged file) ends the chain as well.
    while (padre != 0 && R(padre).Dimensionato == FALSO && catena_.Entra(padre)) {
        catena[static_cast<size_t>(n++)] = static_cast<int16_t>(padre);
        padre = Collegamento(T(padre).ID_PREV);
    }
    return n;
}

void Motore::DimensionaRete() {
    ElencoTerminali();
    if (s_.Lista.Count() > 0) DimensionaPercorso(s_.Lista.Item(1), s_.Lista.Key(1));
    for (int k = ProssimoTerminale(); k > 0; k = ProssimoTerminale()) DimensionaPercorso(k, R(k).Lunghezza);
    DimensionaRestanti();
}

void Motore::DimensionaPercorso(int k, float lunghezza) {
    std::array<int16_t, MAX_TRONCHI + 1> catena;
    int padre = 0;
    const int n = Catena(k, catena, padre);

    double perditaDisponibile = LimitePdc(d_);
    double perditaAccumulata = 0.0;
    double residua = lunghezza;
    if (padre != 0) {
        // Only the parent's own length comes off the remaining length, not the whole length
        // from the source to it: a branch that starts far from the source gets a slightly
        // larger denominator than it strictly could.
        residua -= R(padre).Lunghezza;
        perditaDisponibile -= R(padre).PerditaCumulata;
        perditaAccumulata = R(padre).PerditaCumulata;
    }
    for (int pos = n - 1; pos >= 0; --pos) {
        const int s = catena[static_cast<size_t>(pos)];
        DimensionaTronco(s, perditaDisponibile, residua);
        perditaDisponibile -= T(s).ID_PDC_TRONCO;
        perditaAccumulata += T(s).ID_PDC_TRONCO;
        R(s).PerditaCumulata = static_cast<float>(perditaAccumulata);
        residua -= T(s).ID_EQ_LEN;
    }
}

// ---- One section ----

void Motore::DimensionaTronco(int i, double perditaDisponibile, double lunghezzaResidua) {
    // Nothing left to share out: the section keeps what it had and stays unsized.
    if (lunghezzaResidua == 0) return;
    const float g = static_cast<float>(perditaDisponibile / lunghezzaResidua);
    Tronco& t = T(i);
    if (t.ID_DIAMCUSTOM == FALSO) {
        t.ID_DIAMETRO.clear();
        if (t.ID_P_TRONCO > 0 && a_.HaMateriale(t.IndiceMateriale)) {
            // The smallest diameter whose drop per metre fits the gradient; the largest when
            // none does. Speed is no criterion here: it is only shown.
            const MaterialeTubo& m = a_.Materiali[static_cast<size_t>(t.IndiceMateriale)];
            int scelta = 0;
            for (int r = 1; r <= m.NumRighe(); ++r) {
                const float dmm = m.Righe[static_cast<size_t>(r)].DiamInterno;
                if (dmm <= 0) continue;  // a row without a bore can't carry the flow
                if (PerditaSpecifica(d_, dmm / 1000.0f, t.ID_P_TRONCO) <= g) {
                    scelta = r;
                    break;
                }
            }
            if (scelta == 0) scelta = m.NumRighe();
            if (scelta > 0) t.ID_DIAMETRO = m.Righe[static_cast<size_t>(scelta)].DN;
        }
    }
    const float dmm = DiametroTronco(a_, t);
    CalcolaLunghezzaEquivalente(d_, a_, 1, i);
    if (t.ID_P_TRONCO > 0 && dmm <= 0) {
        // A flow without a pipe to carry it (a material missing or without rows, a locked size
        // the material lacks): the section can't be computed.
        t.ID_PDC_TRONCO = -1.0f;
    } else {
        t.ID_PDC_TRONCO = static_cast<float>(static_cast<double>(PerditaSpecifica(d_, dmm / 1000.0f, t.ID_P_TRONCO)) *
                                             static_cast<double>(t.ID_EQ_LEN));
    }
    R(i).Perdita = t.ID_PDC_TRONCO;
    R(i).Dimensionato = VERO;
}

void Motore::DimensionaRestanti() {
    // The consumers' own sections, each with the whole rest of the admissible drop for its own
    // length.
    for (int i = 1; i <= N(); ++i) {
        if (R(i).Dimensionato != FALSO) continue;
        const int padre = Collegamento(T(i).ID_PREV);
        const double disponibile = static_cast<double>(LimitePdc(d_)) - static_cast<double>(R(padre).PerditaCumulata);
        DimensionaTronco(i, disponibile, T(i).ID_EQ_LEN);
    }
}

// ---- Narrowing ----

void Motore::ImpostaRiga(int i, int riga) {
    Tronco& t = T(i);
    const RigaDiametro& r = a_.Materiali[static_cast<size_t>(t.IndiceMateriale)].Righe[static_cast<size_t>(riga)];
    t.ID_DIAMETRO = r.DN;
    CalcolaLunghezzaEquivalente(d_, a_, 1, i);
    t.ID_PDC_TRONCO =
        static_cast<float>(static_cast<double>(PerditaSpecifica(d_, r.DiamInterno / 1000.0f, t.ID_P_TRONCO)) *
                           static_cast<double>(t.ID_EQ_LEN));
    AccumulaPerditeSotto(i);
}

int Motore::RiduciDiametri(int i) {
    riduci_.Nuova();
    return RiduciDa(i);
}

int Motore::RiduciDa(int i) {
    if (Collegamento(i) == 0 || !riduci_.Entra(i)) return 0;
    int cambiati = 0;
    const int sinistra = Collegamento(T(i).ID_LEFT);
    const int destra = Collegamento(T(i).ID_RIGHT);
    if (T(i).ID_DIAMCUSTOM == FALSO) {
        // A pipe is narrowed only while it stays strictly wider than what hangs below it.
        const float dmm = DiametroTronco(a_, T(i));
        const int riga = RigaTronco(a_, T(i));
        const float dSx = sinistra > 0 ? DiametroTronco(a_, T(sinistra)) : 0.0f;
        const float dDx = destra > 0 ? DiametroTronco(a_, T(destra)) : 0.0f;
        if (dmm > dSx && dmm > dDx && riga > 1) {
            cambiati = 1;
            ++s_.Riduzione.prove;
            ImpostaRiga(i, riga - 1);
            if (!LimitiRispettati(d_)) {
                cambiati = 0;
                ImpostaRiga(i, riga);
            } else {
                ++s_.Riduzione.riduzioni;
            }
        }
    }
    if (sinistra != 0) cambiati += RiduciDa(sinistra);
    if (destra != 0) cambiati += RiduciDa(destra);
    return cambiati;
}

}  // namespace fornax
