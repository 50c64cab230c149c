#pragma once
// Reading and writing numbers the way the product's files and grids hold them.

#include <cstdint>
#include <string>
#include <string_view>

namespace fornax {

// Longest numeric prefix after leading blanks; ',' is accepted as the decimal point,
// an exponent is accepted; 0 when the text holds no number ("12.7abc" -> 12.7, "" -> 0).
double LeggiNumero(std::string_view testo);

// Float -> integer, half to even (2.5 -> 2, 3.5 -> 4), saturated to the target's range.
int16_t ArrotondaI16(double v);
int32_t ArrotondaI32(double v);

// Shortest decimal text that reads back to the same value ("15", "0.5", "1.42e-05").
// The value as a file can hold it: an infinity (a number beyond the single-precision range read
// from a file) becomes the largest finite value of its sign, which reads back to itself; a value
// that is not a number (a calculation that failed) becomes 0.
float Finito(float v);
double Finito(double v);
// A number read into a single-precision field: beyond the single range it takes the largest
// finite value of its sign, as Finito writes it (the bare conversion would be undefined).
float Singolo(double v);
std::string TestoBreve(float v);
std::string TestoBreve(double v);

// A number as a text box shows it: at most `cifre` significant digits, trailing zeros
// dropped, '.' as the decimal point (15 for a double, 7 for a single).
std::string TestoGenerale(double v, int cifre);

// A number as the print statement writes it into a file: a blank in place of a plus sign,
// the shortest text of its own width, one trailing blank: " 15 ", "-0.5 ".
std::string NumeroFile(float v);
std::string NumeroFile(double v);
std::string NumeroFile(int32_t v);

// A number laid out by a display pattern such as "##0.00" or " ##0.0  Nmc/h":
// '#' and '0' are digit placeholders, the first '.' is the decimal point, every other
// character is literal. The exact binary value is rounded to the pattern's decimals,
// ties half to even. '0' always prints a digit, '#' only a significant one; integer digits
// beyond the placeholders all print; the minus sign goes just before the first digit;
// a value that rounds to zero has no sign; a pattern of '#' only prints nothing for 0.
std::string FormattaNumero(double v, std::string_view pattern);

}  // namespace fornax
