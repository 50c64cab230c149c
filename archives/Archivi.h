#pragma once
// The technical archives, loaded at start-up from the program's folder and alive until exit.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/Colonne.h"
#include "core/Documento.h"
#include "core/Gas.h"

namespace fornax {

// ---- Gases (GAS.CFG, PARFAMGAS.CFG) ----
struct ParFamGas {
    float PressioneRiferimento = 0;
    float DispersioneRiferimento = 0;
};

// ---- Pipe materials (*.mat) ----
struct RigaDiametro {
    std::string DN;
    float Spessore = 0;     // mm
    float DiamInterno = 0;  // mm
    float VelocitaLimite = 0;
    float PortataLimite = 0;
    float DiamEsterno = 0;      // mm, derived
    float PesoMetro = 0;        // kg/m, derived
    float Sezione = 0;          // derived
    float LunghezzaTotale = 0;  // m, bill of pipes
};

constexpr int MAX_MATERIALI = 50;
constexpr int MAX_RIGHE = 50;

struct MaterialeTubo {
    std::string Nome;
    int16_t TipoFormula = 0;  // 1 Acciaio, 2 Rame, 3 Plastica
    float PesoSpecifico = 0;  // kg/m3
    std::string Descrizione;
    float Totalizzato = 0;
    float PesoTotale = 0;                                            // kg, bill of pipes
    std::vector<RigaDiametro> Righe = std::vector<RigaDiametro>(1);  // 1-based; [0] unused

    int16_t NumRighe() const { return static_cast<int16_t>(Righe.size() - 1); }
};

// ---- Fittings ----
struct TipoSpeciale {
    std::string Nome;
    float Lunghezza[4][5] = {};  // [family 0..3][class 1..4]; family 0 and class 0 stay 0
};

// ---- Pressure-drop limits (PDCMAX_*.CFG) ----
struct TabellaPdc {
    std::string NomeFilePdc;
    float SogliaPotenza = 0;  // kW
    float PdcMax[3][4] = {};  // [band 1..2][family 1..3], Pa
};

// ---- Substitutions of unknown names, kept for the session (kind 1 materials, 2 gases) ----
struct Sostituzioni {
    struct Coppia {
        std::string nome;
        int indice;
    };
    std::array<std::vector<Coppia>, 3> liste;
};

struct Archivi {
    std::string Cartella;                                                  // the program's folder
    std::vector<GasRecord> Gas = std::vector<GasRecord>(1);                // 1-based; [0] stays empty
    std::array<ParFamGas, 4> ParFam{};                                     // [family 1..3]
    std::vector<MaterialeTubo> Materiali = std::vector<MaterialeTubo>(1);  // 1-based
    float PesoTotaleAcciaio = 0;                                           // kg of steel pipes in the bill
    std::array<TipoSpeciale, 11> Speciali{};                               // [kind 1..10]
    TabellaPdc Pdc;
    TestiDefault Default;
    TabellaColonne Colonne;
    Sostituzioni Equiv;

    int16_t NumGas() const { return static_cast<int16_t>(Gas.size() - 1); }
    int16_t NumMateriali() const { return static_cast<int16_t>(Materiali.size() - 1); }
    // True when `m` is the 1-based index of a material of the archive.
    bool HaMateriale(int m) const { return m >= 1 && m <= NumMateriali(); }
    std::vector<std::string> NomiMateriali() const;
    std::vector<std::string> NomiGas() const;
};

}  // namespace fornax
