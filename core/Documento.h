#pragma once
// The one open document: the network, the project parameters and the leak-test record,
// plus the tree primitives that every editor goes through.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/Gas.h"
#include "core/Rete.h"
#include "core/VerificaTenuta.h"

namespace fornax {

class Messaggi;

// The user's default texts (defaultValue.ini). Values stay text.
struct TestiDefault {
    std::string DefaultGas;
    std::string DefaultMateriale;
    std::string DefaultVelocita = "15";
    std::string DefaultPressioneIniziale = "200";
    std::string DefaultPressioneFinale = "150";
    std::string DefaultDpMax = "0";
};

// ---- The tables each project swaps in ----
// They are read from the archives' files of the program's folder when a project is opened or
// made, and follow the project: the fittings table of its kind of network, the pressure-drop
// limits of its norm edition, and the substitutions chosen for names the archives lack. They
// live in the document so that the archives stay read-only, a refused file (read into a fresh
// document) leaves them as the open project had them, and two documents can coexist.

// One fitting kind and its equivalent lengths, m of pipe.
struct TipoSpeciale {
    std::string Nome;
    float Lunghezza[4][5] = {};  // [family 0..3][class 1..4]; family 0 and class 0 stay 0
};
using TabellaSpeciali = std::array<TipoSpeciale, 11>;  // [kind 1..10]

// Pressure-drop limits of internal installations (PDCMAX_*.CFG).
struct TabellaPdc {
    std::string NomeFilePdc;
    float SogliaPotenza = 0;  // kW
    float PdcMax[3][4] = {};  // [band 1..2][family 1..3], Pa
};

// Substitutions of unknown names (kind 1 materials, 2 gases): each name is asked about once,
// until the project is closed.
struct Sostituzioni {
    struct Coppia {
        std::string nome;
        int indice;
    };
    std::array<std::vector<Coppia>, 3> liste;
};

struct Documento {
    // The network of the project (the product's slot 1: the one network a document holds).
    Rete Principale{};

    std::string Riferimento;
    std::string DescrizioneLavoro;
    std::string NomeFileProgetto;
    std::string ArchivioDocumenti;
    int32_t Normativa = 0;  // 1 = UNI 7129 (1992), any other value = UNI 7129 (2008)
    int16_t ReteInPressione = FALSO;
    float VelocitaMassima = 15.0f;     // m/s
    double PressioneIniziale = 200.0;  // kPa relative
    double PressioneFinale = 150.0;    // kPa relative
    double DpMax = 0.0;                // Pa; not above 0 = automatic limit
    int16_t OrientamentoSorgente = 0;
    GasRecord GasCorrente;
    int16_t ReteModificata = FALSO;
    float MaxPdcPercorso = 0;  // running maxima of the last calculations
    float MaxLenPercorso = 0;
    int16_t CaricamentoProgetto = FALSO;

    VerificaTenuta Tenuta;

    TabellaSpeciali Speciali{};  // the fittings of the project's kind of network
    TabellaPdc Pdc;              // the limits of the project's norm edition
    Sostituzioni Equiv;          // names replaced while the project was read or edited

    Rete& rete() { return Principale; }
    const Rete& rete() const { return Principale; }
    Tronco& T(int i) { return Principale.Tronchi[static_cast<size_t>(i)]; }
    const Tronco& T(int i) const { return Principale.Tronchi[static_cast<size_t>(i)]; }
    int16_t NumTronchi() const { return Principale.NumTronchi; }
};

// New section under `parent` (0 = none). Returns its index, or 0 when the parent already has
// two derivations (with the product's message). `nomiMateriali` are the material names in
// table order, `materialeDefault` the default material text.
int16_t NuovoTronco(Documento& d, int16_t parent, const std::vector<std::string>& nomiMateriali,
                    const std::string& materialeDefault, Messaggi& msg);
void ScollegaTronco(Documento& d, int16_t sezione);
void CancellaRamo(Documento& d, int16_t sezione);
void TagliaCoda(Documento& d);
void CompattaRete(Documento& d);
void RinumeraRiferimenti(Documento& d, int16_t nuovo, int16_t vecchio);
void AzzeraTronco(Tronco& t);
void AzzeraRete(Documento& d, const TestiDefault& def);

}  // namespace fornax
