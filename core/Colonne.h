#pragma once
// The table of columns read from gridgas.cne: every grid and report table of sections.

#include <array>
#include <cstdint>
#include <string>

namespace fornax {

constexpr int NUM_TABELLE = 11;
constexpr int MAX_COLONNE = 50;

struct ColonnaTabella {
    int16_t Id = 0;            // column id, 0 for a key beginning IDR
    int16_t Larghezza = 0;     // width in characters
    std::string Titolo1;       // first header line
    int16_t Bloccata = 0;      // non-zero: the cell can't be edited
    std::string Titolo2;       // second header line
    std::string Suggerimento;  // help text
    std::string Formato;       // display pattern of the cells
    std::string Chiave;        // key as written in the file (ID_LEN, IDR...)
};

// Table roles: 0 grid (internal), 1..4 internal report tables, 5 grid (pressure),
// 6..10 pressure report tables.
struct TabellaColonne {
    std::array<std::array<ColonnaTabella, MAX_COLONNE>, NUM_TABELLE> Tabelle{};
    std::array<int16_t, NUM_TABELLE> NumColonne{};  // highest column number of each table, -1 empty

    TabellaColonne() { NumColonne.fill(-1); }
};

}  // namespace fornax
