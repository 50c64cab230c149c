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

struct Documento {
    // Two slots are kept so that field access keeps its slot selector; everything works on slot 1.
    std::array<Rete, 2> Reti{};
    int16_t SlotCorrente = 0;

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

    Rete& rete() { return Reti[1]; }
    const Rete& rete() const { return Reti[1]; }
    Tronco& T(int i) { return Reti[1].Tronchi[static_cast<size_t>(i)]; }
    const Tronco& T(int i) const { return Reti[1].Tronchi[static_cast<size_t>(i)]; }
    int16_t NumTronchi() const { return Reti[1].NumTronchi; }
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
