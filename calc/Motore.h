#pragma once
// The working parts of a calculation run, shared by the driver and the two sizing schemes.
// Private to the calculation library.

#include <array>
#include <cstdint>

#include "calc/Calcolo.h"

namespace fornax {

// Marks the sections a tree walk has entered, so that a damaged file (a link back up the
// tree, two parents for one section) can neither loop for ever nor blow a walk up
// exponentially. On a sound tree every section is entered once anyway.
class Visite {
public:
    void Nuova() {
        if (++giro_ == 0) {
            segni_.fill(0);
            giro_ = 1;
        }
    }
    // True the first time the walk enters `i`.
    bool Entra(int i) {
        auto& s = segni_[static_cast<size_t>(i)];
        if (s == giro_) return false;
        s = giro_;
        return true;
    }

private:
    std::array<uint32_t, MAX_TRONCHI + 1> segni_{};
    uint32_t giro_ = 0;
};

// A link to a derivation or a parent as a usable index: 0 when it points nowhere or outside
// the table.
inline int Collegamento(int indice) { return indice >= 1 && indice <= MAX_TRONCHI ? indice : 0; }

class Motore {
public:
    Motore(Documento& d, const Archivi& a, StatoCalcolo& s, Messaggi& msg);

    void ReteInterna();
    void RetePressione();

    // Tree walks (from the root).
    float AggregaPortate(int i);
    void AccumulaLunghezze(int i, float progressivaPadre);
    void AccumulaPerdite(int i, float perditaPadre);
    // The same after a change of the drop of section i alone: only the part of the tree under i.
    void AccumulaPerditeSotto(int i);
    void PropagaErrori(int i);

    // Sizing of an internal installation.
    void ElencoTerminali();
    int ProssimoTerminale();
    void DimensionaRete();
    void DimensionaPercorso(int k, float lunghezza);
    void DimensionaTronco(int i, double perditaDisponibile, double lunghezzaResidua);
    void DimensionaRestanti();
    int RiduciDiametri(int i);

    // Sizing of a pressure network.
    void DimensionaRetePressione();
    void DimensionaPercorsoPressione(int k, float lunghezza);
    void DimensionaTroncoPressione(int i, double disponibile, double lunghezza);
    void DimensionaRestantiPressione();

private:
    Tronco& T(int i) { return d_.T(i); }
    RigaCalcolo& R(int i) { return s_.Tabella[static_cast<size_t>(i)]; }
    int N() const { return d_.NumTronchi(); }
    // The chain from k up to the topmost section not yet sized, k first; returns its length
    // and leaves in `padre` the parent of the topmost (0 at the root).
    int Catena(int k, std::array<int16_t, MAX_TRONCHI + 1>& catena, int& padre);
    void ImpostaRiga(int i, int riga);
    void AggiornaVelocita();
    float AggregaDa(int i);
    void LunghezzeDa(int i, float progressivaPadre);
    void PerditeDa(int i, float perditaPadre, int entrata);
    void PerditeSotto(int i, float perditaPadre);
    float PerditaTronco(int i, float perditaPadre);
    void ErroriDa(int i);
    int RiduciDa(int i);

    Documento& d_;
    const Archivi& a_;
    StatoCalcolo& s_;
    Messaggi& msg_;
    Visite aggrega_, lunghezze_, perdite_, sotto_, errori_, riduci_, catena_;
    // The section from which the last walk of the drops from the root entered each section
    // (0 for the root itself, -1 where it didn't arrive).
    std::array<int16_t, MAX_TRONCHI + 1> entrataPerdite_{};
    std::array<bool, MAX_TRONCHI + 1> offerto_{};
};

}  // namespace fornax
