#pragma once
// The technical archives, loaded at start-up from the program's folder and alive until exit.
// Read-only after loading, except through the archive editors' own operations: what each
// project swaps in (its fittings table, its limits, the substitutions of unknown names) belongs
// to the document, and the bill of pipes is a value the calculation returns.

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
    float DiamEsterno = 0;  // mm, derived
    float PesoMetro = 0;    // kg/m, derived
    float Sezione = 0;      // derived
};

constexpr int MAX_MATERIALI = 50;
constexpr int MAX_RIGHE = 50;

struct MaterialeTubo {
    std::string Nome;
    int16_t TipoFormula = 0;  // 1 Acciaio, 2 Rame, 3 Plastica
    float PesoSpecifico = 0;  // kg/m3
    std::string Descrizione;
    std::vector<RigaDiametro> Righe = std::vector<RigaDiametro>(1);  // 1-based; [0] unused

    int16_t NumRighe() const { return static_cast<int16_t>(Righe.size() - 1); }
};

struct Archivi {
    std::string Cartella;                                                  // the program's folder
    std::vector<GasRecord> Gas = std::vector<GasRecord>(1);                // 1-based; [0] stays empty
    std::array<ParFamGas, 4> ParFam{};                                     // [family 1..3]
    std::vector<MaterialeTubo> Materiali = std::vector<MaterialeTubo>(1);  // 1-based
    TestiDefault Default;
    TabellaColonne Colonne;

    int16_t NumGas() const { return static_cast<int16_t>(Gas.size() - 1); }
    int16_t NumMateriali() const { return static_cast<int16_t>(Materiali.size() - 1); }
    // True when `m` is the 1-based index of a material of the archive.
    bool HaMateriale(int m) const { return m >= 1 && m <= NumMateriali(); }
    std::vector<std::string> NomiMateriali() const;
    std::vector<std::string> NomiGas() const;
};

}  // namespace fornax
