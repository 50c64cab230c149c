#pragma once
// The 52 fields of the leak-test record by their number in the project file's block, with the
// control of the page that shows each one. The page, the named edits and fornax-cli reach a
// field through this table, each field as the text the block holds: strings as they stand,
// integers as plain text.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/VerificaTenuta.h"

namespace fornax {

constexpr int NUM_CAMPI_TENUTA = 52;

// Numbers of the fields the rules read or write.
namespace CampoTenuta {
constexpr int FAMIGLIA_GAS = 18;
constexpr int CAPACITA_IMPIANTO = 19;
constexpr int CAPACITA_CONTATORE = 20;
constexpr int CAPACITA_TOTALE = 21;
constexpr int DATA = 22;
constexpr int ORA = 23;
constexpr int CAUSE = 24;
constexpr int APP_COMPLESSIVO = 26;
constexpr int APP_ALTRO_NUM = 31;
constexpr int METODO = 33;
constexpr int CONT_QN = 38;
constexpr int CONT_PPROVA = 39;
constexpr int CONT_DISP_RIL = 40;
constexpr int CONT_PRIF = 41;
constexpr int CONT_DISP_RIF = 42;
constexpr int CDP_PPROVA = 46;
constexpr int CDP_CDP = 47;
constexpr int CDP_PRIFER = 48;
constexpr int CDP_CDPMAX = 49;
constexpr int DISPOSITIVO = 50;
constexpr int ESITO = 51;
constexpr int NOTE = 52;
}  // namespace CampoTenuta

// The name of the control (or of the record's field, for the codes the options show) of field
// 1..52; "" outside.
std::string_view NomeCampoTenuta(int campo);
// True for the fields held as integers (family, appliance counts, the three option codes).
bool CampoTenutaIntero(int campo);
// What the user types on the page, as opposed to what the rules work out (capacity of the
// pipes, total, referred values) and the codes of the options.
bool CampoTenutaDigitato(int campo);
// The fields whose text is a number the rules read: digits and the decimal comma only, and
// Enter judges the test again.
bool CampoTenutaNumerico(int campo);

// Field 1..52 as the block holds it ("" outside).
std::string TestoCampoTenuta(const VerificaTenuta& r, int campo);
// Field 1..52 from the text of the block: integers through the number it begins with (0 for
// none), strings as they stand. Nothing outside 1..52.
void ImpostaCampoTenuta(VerificaTenuta& r, int campo, const std::string& testo);

// ---- The causes of the intervention (field 24) ----

constexpr int NUM_CAUSE = 7;
// The seven boxes of a cause text: the field i (0-based) is ticked when it isn't empty. A text
// that doesn't split at ";" into exactly seven fields ticks nothing.
std::array<bool, NUM_CAUSE> CauseSegnate(const std::string& testo);
// The text of seven boxes: a ticked box puts its digit (1..7) in its field, an unticked one
// leaves it empty ("1;;3;;;;").
std::string TestoCause(const std::array<bool, NUM_CAUSE>& cause);

// ---- The numeric fields ----

// Enter in a numeric field checks what it holds: the meter's capacity is held to 3.0 litres
// (the largest meter the meter method admits); any other text stays as typed.
std::string ControllaCampoNumerico(int campo, const std::string& testo);

}  // namespace fornax
