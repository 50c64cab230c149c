#pragma once
// The rules of the grid of sections that need no window: the filter of a cell's text, what a
// committed text does to a record (and to the tree, for the parent column), the list of
// diameters of a material, and how a cell shows its value and its verdict.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "archives/Archivi.h"
#include "calc/Verifica.h"
#include "core/Documento.h"

namespace fornax {

class Messaggi;

// The text an editor starts from: for a numeric column only what a number may hold (digits,
// sign, decimal point or comma, exponent); for a text column the text without the "***" of a
// failed value and without control characters. Blanks at the ends are dropped.
std::string FiltraTestoCella(std::string_view testo, bool numerica);

// A committed text with the decimal comma accepted: every ',' becomes '.' (the files do the
// same when they are read back, so nothing is lost that a save would keep).
std::string NormalizzaTesto(std::string_view testo);

// "Auto" followed by the nominal diameter of each row of the material (empty list for a
// material that isn't in the archive).
std::vector<std::string> ElencoDiametri(const Archivi& a, int materiale);

// Offers the list of diameters of a material and returns the one chosen, "" for none.
using ScegliDiametro = std::function<std::string(int materiale)>;

// What one row's commit leaves behind.
struct EsitoCella {
    int riga = 0;
    std::string testo;        // what the cell shows after the step
    bool interrompi = false;  // the whole commit stops here: nothing else is changed or recalculated
    int diametro = 0;         // +1 the user fixed the diameter, -1 back to automatic, 0 unchanged
};

struct EsitoConferma {
    std::vector<EsitoCella> righe;
    bool interrotto = false;  // a rule stopped the commit: no modified mark, no recalculation
};

// Commits `testo` into the field `id` of section `riga` (the column's field decides what it
// means). A parent typed in a row moves the section in the tree, with the product's messages.
EsitoCella ConfermaCampo(Documento& d, Archivi& a, int riga, int id, const std::string& testo, Messaggi& msg,
                         const ScegliDiametro& scegli);

// The same text into rows da..a (in ascending order), then the modified mark. A row written
// in is part of the document: the table grows to it, and a new row without a material takes
// the material of the row above (or the default material).
EsitoConferma ConfermaCelle(Documento& d, Archivi& a, int da, int a_, int id, const std::string& testo, Messaggi& msg,
                            const ScegliDiametro& scegli);

// The material list's choice (1-based archive index) into rows da..a: index and name in each,
// then the modified mark. Rows beyond the table join it as ConfermaCelle's do.
void ConfermaMateriale(Documento& d, const Archivi& a, int da, int a_, int materiale);

// A new row of the grid takes a material: the one of the row above, else the default text, else
// the first of the archive. Returns the 1-based index given (0 when the archive has none).
int MaterialeNuovaRiga(Documento& d, const Archivi& a, int riga);

// ---- How a cell shows its value ----

enum class Inchiostro { Nero, Blu, Rosso, RossoScuro };
enum class Fondo { Bianco, GialloPallido, RossoCupo };

struct AspettoCella {
    std::string testo;
    Inchiostro inchiostro = Inchiostro::Nero;
    Fondo fondo = Fondo::Bianco;
};

// The text of field `c.Id` of a section through the column's display pattern ("@" or an empty
// pattern: as it stands).
std::string TestoCampo(const Documento& d, const Archivi& a, int sezione, const ColonnaTabella& c);

// Text and colours of a cell of a calculated section: results in blue, failures in red or as
// "***", a drop along the path above the limit in red, a diameter that no larger pipe can cure
// on pale yellow, a diameter fixed by the user in dark red, the flow of a junction that reduces
// its flows in red.
AspettoCella AspettoDi(const Documento& d, const Archivi& a, int sezione, const ColonnaTabella& c, const Verdetti& v);

// Background of a diameter cell when its editor closes: dark red when the text names the
// material's largest size (or no size of it) and the section is still over its limit, so that
// the user sees that no larger pipe can cure it; pale yellow otherwise.
Fondo FondoDiametroModificato(const Documento& d, const Archivi& a, int sezione, const std::string& testo);

// ---- The pressure combos of the document window ----

// "Auto" and 10, 20, ... 500.
std::vector<std::string> VociComboPressione();

// ComboInitPres, ComboFinalPres: "0" or "Auto" give the default text's value; any other text
// the absolute value of its number (comma or point).
double ValoreComboPressione(const std::string& testo, const std::string& predefinito);
// ComboDpMax: "0" or "Auto" give 0 (automatic limit); any other text its number.
double ValoreComboDpMax(const std::string& testo);
// The initial or final pressure shows red when it differs from its default.
bool PressioneDiversaDaDefault(double valore, const std::string& predefinito);
// The text ComboDpMax shows for the document: "Auto" for an automatic limit, else the number.
std::string TestoDpMax(const Documento& d);
// ComboDpMax shows red when its value differs from the table's limit for the current network.
bool DpMaxDiversoDaTabella(const Documento& d);

}  // namespace fornax
