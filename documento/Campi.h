#pragma once
// Field access by column id, and the reading of the column definition file gridgas.cne.

#include <cstdint>
#include <string>
#include <variant>

#include "archives/Archivi.h"

namespace fornax {

class Messaggi;
class Avanzamento;

// A field as read by column: empty, text, integer, long, single or double.
using Valore = std::variant<std::monostate, std::string, int16_t, int32_t, float, double>;

// The text of a value as get-field gives it: numbers as their shortest text, "" when empty.
std::string TestoValore(const Valore& v);

// Id of a column key ("ID_LEN" -> 5); 0 after the message "<key>Non trovato:".
int16_t IdDaChiave(const std::string& chiave, Messaggi& msg);

// Field `id` (1..49) of section `sezione` of the current network; empty outside 1..49.
Valore LeggiCampo(const Documento& d, const Archivi& a, int sezione, int id);

// Stores a value by column; ids outside 1..49 and the read-only ids do nothing. Setting
// ID_MATERIALE looks the name up and, for a name the archive lacks, runs the substitution list.
void ScriviCampo(Documento& d, const Archivi& a, int sezione, int id, const Valore& v, Messaggi& msg);

// Reads gridgas.cne of the program's folder into a.Colonne. False when the file is missing.
bool LeggiColonne(Archivi& a, Messaggi& msg, Avanzamento& av);
// Unscrambles one line of gridgas.cne.
std::string DecodificaRiga(const std::string& riga);
// Scrambles one line (the inverse; used by the tool that builds the delivered file).
std::string CodificaRiga(const std::string& riga);

}  // namespace fornax
