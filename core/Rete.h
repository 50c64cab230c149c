#pragma once
// The in-memory network: a fixed table of pipe sections linked by index.
//
// Section 1 is the root and leaves from the gas source. Each section has a parent (ID_PREV)
// and at most two derivations (ID_LEFT, ID_RIGHT); a section with neither is a consumer.
// Indices are 1-based, 0 means "none". Booleans are 16-bit: -1 true, 0 false, as in the files.

#include <array>
#include <cstdint>
#include <string>

namespace fornax {

constexpr int MAX_TRONCHI = 400;
constexpr int16_t VERO = -1;
constexpr int16_t FALSO = 0;

// Column ids of the field access by column. The numbers are part of the project file format.
namespace Id {
constexpr int16_t ID_NAME = 1;
constexpr int16_t ID_NUM = 2;
constexpr int16_t ID_P_UTENZE = 3;
constexpr int16_t ID_P_TRONCO = 4;
constexpr int16_t ID_LEN = 5;
constexpr int16_t ID_NCURVE = 6;
constexpr int16_t ID_NGOMITI = 7;
constexpr int16_t ID_RACCORDO = 8;
constexpr int16_t ID_PDC_NOTA = 9;
constexpr int16_t ID_DIAMETRO = 10;
constexpr int16_t ID_DIAMCUSTOM = 11;
constexpr int16_t ID_VELOCITA = 12;
constexpr int16_t ID_PDC_TRONCO = 13;
constexpr int16_t ID_PDC_PERCORSO = 14;
constexpr int16_t ID_PESO = 15;
constexpr int16_t ID_PREV = 16;
constexpr int16_t ID_LEFT = 17;
constexpr int16_t ID_RIGHT = 18;
constexpr int16_t ID_MATERIALE = 19;
constexpr int16_t ID_RIF = 20;
constexpr int16_t ID_POTENZA = 21;
constexpr int16_t ID_NRACCORDI = 22;
constexpr int16_t ID_NRUBINETTI = 23;
constexpr int16_t ID_EQLENNOTA = 24;
constexpr int16_t ID_TIPORACCORDO = 25;
constexpr int16_t ID_RACCORDO_BIS = 26;  // same storage as 8
constexpr int16_t ID_NAME_BIS = 27;      // same storage as 1
constexpr int16_t ID_EQ_LEN = 28;
constexpr int16_t ID_TIPOUTENZA = 29;
constexpr int16_t ID_NOMEUTENZA = 30;
constexpr int16_t ID_P_KW = 31;
constexpr int16_t ID_P_KCAL = 32;
constexpr int16_t ID_NOMETIPOUTENZA = 33;
constexpr int16_t ID_SCHEMA_SVOLTA = 34;
constexpr int16_t ID_DIAMETRO_INTERNO = 35;
constexpr int16_t ID_CONTEMP = 36;
constexpr int16_t ID_SPC5 = 37;
constexpr int16_t ID_SPC6 = 38;
constexpr int16_t ID_SPC7 = 39;
constexpr int16_t ID_SPC8 = 40;
constexpr int16_t ID_SPC9 = 41;
constexpr int16_t ID_SPC10 = 42;
constexpr int16_t ID_PFINALE = 43;
constexpr int16_t ID_EQLENLOC = 44;
constexpr int16_t ID_SCHEMA_X = 45;
constexpr int16_t ID_SCHEMA_Y = 46;
constexpr int16_t ID_SCHEMA_LEN = 47;
constexpr int16_t ID_SCOLLEGATO = 48;
constexpr int16_t ID_CANCELLATO = 49;
}  // namespace Id

// Consumer kinds in ID_TIPOUTENZA.
namespace TipoUtenza {
constexpr int16_t FORNELLO = 1;
constexpr int16_t CALDAIA = 2;
constexpr int16_t BRUCIATORE = 3;
constexpr int16_t CONVETTORE = 4;
}  // namespace TipoUtenza

struct Tronco {
    std::string ID_NAME;
    int16_t ID_NUM = 0;
    int16_t ID_PREV = 0;
    int16_t ID_LEFT = 0;
    int16_t ID_RIGHT = 0;
    int16_t Visitato = 0;
    int16_t IndiceMateriale = 0;
    std::string ID_MATERIALE;
    float ID_P_UTENZE = 0;      // Nm3/h drawn by the consumer at the far end
    float ID_P_TRONCO = 0;      // Nm3/h in the section
    float ID_LEN = 0;           // m
    float ID_EQ_LEN = 0;        // m, computed
    int16_t ID_NCURVE = 0;      // fitting kind 1
    int16_t ID_NGOMITI = 0;     // fitting kind 3
    int16_t ID_NRACCORDI = 0;   // fitting kind 2
    int16_t ID_NRUBINETTI = 0;  // fitting kind 4
    int16_t ID_SPC5 = 0, ID_SPC6 = 0, ID_SPC7 = 0, ID_SPC8 = 0, ID_SPC9 = 0, ID_SPC10 = 0;
    float ID_RACCORDO = 0;
    int16_t ID_TIPORACCORDO = 0;
    int16_t ID_TIPOUTENZA = 0;
    std::string ID_NOMEUTENZA;
    float ID_PDC_NOTA = 0;
    float ID_EQLENNOTA = 0;  // m
    std::string ID_DIAMETRO;
    int16_t ID_DIAMCUSTOM = 0;
    float ID_VELOCITA = 0;      // m/s, computed
    float ID_PDC_TRONCO = 0;    // computed; negative = could not be computed
    float ID_PDC_PERCORSO = 0;  // computed; -1 when invalid
    float LenPercorso = 0;      // m, computed
    float ID_PESO = 0;          // kg
    std::string ID_RIF;
    float ID_POTENZA = 0;
    int16_t ID_SCHEMA_SVOLTA = 0;
    int16_t SchemaDirezione = 0;
    int16_t SchemaDisegnato = 0;
    int32_t ID_SCHEMA_X = 0;
    int32_t ID_SCHEMA_Y = 0;
    int32_t ID_SCHEMA_LEN = 0;
    float PressioneTesta = 0;  // kPa, computed (pressure networks)
    float ID_PFINALE = 0;      // computed
    int16_t ID_CONTEMP = 100;  // percent
    int16_t ID_SCOLLEGATO = 0;
    int16_t ID_CANCELLATO = 0;

    // Count of fitting kind 1..10 (1 bends, 2 T fittings, 3 elbows, 4 taps, 5..10 user kinds).
    int16_t Conteggio(int tipo) const;
    bool IsUtenza() const { return ID_LEFT <= 0 && ID_RIGHT <= 0; }
};

struct Rete {
    int16_t NumTronchi = 0;
    int16_t MaterialeCorrente = 0;
    std::array<Tronco, MAX_TRONCHI + 1> Tronchi{};

    static bool IndiceValido(int i) { return i >= 0 && i <= MAX_TRONCHI; }
};

}  // namespace fornax
