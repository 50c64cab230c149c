#pragma once
// The eight directions of the schema and the turns between them.
//
// Codes: 1 "U", 2 "L", 3 "D", 4 "R", 5 "UL", 6 "DL", 7 "DR", 8 "UR". They form the ring
// 1, 5, 2, 6, 3, 7, 4, 8, counter-clockwise on the screen (Y grows downward). A turn code tells
// a section's direction relative to its parent's.

#include <cstdint>
#include <string>

namespace fornax::schema {

namespace Direzione {
constexpr int16_t U = 1;
constexpr int16_t L = 2;
constexpr int16_t D = 3;
constexpr int16_t R = 4;
constexpr int16_t UL = 5;
constexpr int16_t DL = 6;
constexpr int16_t DR = 7;
constexpr int16_t UR = 8;
}  // namespace Direzione

// Turn codes of ID_SCHEMA_SVOLTA; below 1 (and, for a damaged file, above 8) the automatic rule.
namespace Svolta {
constexpr int16_t DRITTO = 1;
constexpr int16_t SINISTRA_90 = 2;
constexpr int16_t DESTRA_90 = 3;
constexpr int16_t SINISTRA_45 = 4;
constexpr int16_t SINISTRA_135 = 5;
constexpr int16_t INVERSIONE = 6;
constexpr int16_t DESTRA_45 = 7;
constexpr int16_t DESTRA_135 = 8;
}  // namespace Svolta

// The next code of the ring (45 degrees to the left); 0 for a code outside 1..8.
int16_t SvoltaSinistra(int16_t d);
// The previous code of the ring (45 degrees to the right); 0 outside 1..8.
int16_t SvoltaDestra(int16_t d);
// 1<->3, 2<->4, 5<->7, 6<->8; 0 outside 1..8.
int16_t DirezioneOpposta(int16_t d);
// `d` turned by a turn code; 0 when either is outside 1..8.
int16_t RuotaDirezione(int16_t d, int16_t codice);
// The turn code that takes `base` to `target`: 1 when equal, else the first of 8, 3, 7, 6, 5,
// 2, 4 that does; 0 when none does (a code outside 1..8).
int16_t CodiceSvolta(int16_t target, int16_t base);
// True for the four diagonals.
inline bool Diagonale(int16_t d) { return d >= 5 && d <= 8; }
inline bool DirezioneValida(int16_t d) { return d >= 1 && d <= 8; }
// "U", "L", "D", "R", "UL", "DL", "DR", "UR"; empty outside 1..8.
std::string NomeDirezione(int16_t d);
// The code of a name; 0 for any other text.
int16_t DirezioneDaNome(const std::string& nome);
// The step of one unit of length along `d`: -1, 0 or 1 on each axis (Y downward).
int PassoX(int16_t d);
int PassoY(int16_t d);

}  // namespace fornax::schema
