#pragma once
// The rules of the consumer dialogs ("Calcolo portata", "Portata utenza") free of any window:
// the typical cooking appliances and the composition string that records which are ticked,
// the three linked values (W, kcal/h, Nm3/h) on the calorific value of the consumer's kind,
// the limits of the boxes and the way powers are written in them.

#include <array>
#include <cstdint>
#include <string>

#include "core/Gas.h"

namespace fornax {

// The six typical cooking appliances, in the order of the composition string: auxiliary,
// semi-rapid, first rapid, second rapid, ultra-rapid burners, gas oven.
constexpr int NUM_APPARECCHI = 6;
constexpr std::array<int32_t, NUM_APPARECCHI> WATT_APPARECCHI = {1000, 2000, 3000, 3000, 5000, 7000};
using Composizione = std::array<bool, NUM_APPARECCHI>;

// Six characters "0" or "1", one for each appliance.
std::string CodificaComposizione(const Composizione& c);
// A text of at least six characters ticks each appliance whose character is "1" and unticks
// the others; a shorter text leaves `c` alone and returns false.
bool DecodificaComposizione(const std::string& testo, Composizione& c);
// The power of the ticked appliances, W.
int32_t WattDi(const Composizione& c);

// The calorific value that turns power into flow, MJ/Nm3: the superior one for cooking
// (kind 1), the inferior one for every other kind.
double PotereCalorifico(const GasRecord& gas, int tipologia);

// Where the values start from.
namespace Fonte {
constexpr int APPARECCHI = 1;  // the sum of the ticked appliances, W
constexpr int WATT = 2;
constexpr int KCAL = 3;
constexpr int PORTATA = 4;  // Nm3/h
}  // namespace Fonte

struct ValoriPortata {
    double watt = 0;
    double kcal = 0;
    float portata = 0;  // Nm3/h, as the record stores it
};

// The three values from one of them (Ricalcola): kcal/h = W x 0.86, flow = W / 1000 x 3.6 / PC,
// W = flow x PC x 1000 / 3.6. A gas without calorific value gives no flow.
ValoriPortata Ricalcola(int fonte, double valore, double pc);

// The boxes' limits: a typed kcal/h above 850000000, or a flow above 10000, leaves the limit's
// text in the box.
constexpr double MAX_KCAL = 850000000.0;
constexpr double MAX_PORTATA = 10000.0;
inline constexpr const char* TESTO_MAX_KCAL = "850000000";
inline constexpr const char* TESTO_MAX_PORTATA = "10000,00";

// A power as its box shows it: thousands grouped by "." and at most two decimals after ","
// (21000 -> "21.000", 860.86 -> "860,86").
std::string InsertTousendSeparator(double v);
// A flow as its box shows it: "##0.00" with the decimal comma.
std::string TestoPortata(double v);
// The number in a power box: "." groups thousands, "," is the decimal point.
double LeggiPotenza(const std::string& testo);
// The number in a flow box: "," or "." is the decimal point.
double LeggiPortata(const std::string& testo);

}  // namespace fornax
