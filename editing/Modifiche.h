#pragma once
// The one writer of the document. Every change a user makes to the project, from the grid,
// the main frame or a dialog, is one function here, named for what the user does; windows
// call these and never assign a field of a section or a project parameter themselves.
//
// Each function takes what it changes by reference (the `Documento`, and the `Archivi` where
// an archive's text or table in force follows the edit) and keeps no state of its own, so that
// a history of edits can wrap any of them: take what the document was, call the function,
// keep what it became. Each marks the project modified where the product does; the
// recalculation and the repaint that follow belong to the window.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "editing/Cancellazione.h"
#include "editing/Cronologia.h"
#include "editing/ModificheTenuta.h"
#include "editing/ParametriTronco.h"
#include "editing/RegoleGriglia.h"
#include "schema/Modifica.h"

namespace fornax {

class Messaggi;

namespace modifica {

// ---- Cells of the grid ----

// The text of a cell committed into the field `id` of rows da..a_ (ConfermaCelle's rules):
// flows, lengths, references, diameters fixed or freed, a parent that moves the section in the
// tree. Marks the project modified unless a rule stopped the commit.
EsitoConferma ConfermaCella(Documento& d, Archivi& a, int da, int a_, int id, const std::string& testo, Messaggi& msg,
                            const ScegliDiametro& scegli);

// The material chosen in the grid's list (1-based archive index) for rows da..a_; marks the
// project modified.
void ScegliMateriale(Documento& d, const Archivi& a, int da, int a_, int materiale);

// Enter past the last column when the grid has no row for the next section: the table takes
// one more section, with no derivations. Returns its index, 0 when the table is full.
int AggiungiRiga(Documento& d);

// Enter past the last column of a row beyond the last section: the table reaches that row.
void AccogliRiga(Documento& d, int riga);

// ---- The section panel ("Parametri Tronco") ----

// OK of the panel: the values of its boxes into `tronchi`, in order. With `campi` null (one
// section) every field is written; with a selection of "Selezione copia multipla" only the
// fields it ticks. Lengths read with the decimal comma accepted; fitting counts whole, up to
// 9999, only for the lines the network's table offers; the material by its index; the diameter
// fixed by the toggle, or by a typed size of the material whatever the toggle says. Sections
// outside the table are passed over. Marks the project modified; false when nothing was written.
bool ApplicaParametriTronco(Documento& d, const Archivi& a, const std::vector<int>& tronchi, const ValoriPannello& v,
                            const SelezioneCopia* campi = nullptr);

// ---- Consumers ("Calcolo portata", "Portata utenza") ----

// What a consumer dialog hands back on OK.
struct EsitoUtenza {
    float portata = 0;                        // Nm3/h, for the consumer and its section
    int16_t tipologia = 0;                    // ID_TIPOUTENZA
    std::optional<std::string> composizione;  // the cooking appliances ("Calcolo portata" only)
    std::string riferimento;                  // the reference typed in the dialog
};

// The consumer at the far end of `tronco` confirmed: reference, flow of the consumer and of the
// section, kind and, when given, the composition. In an internal installation the imposed drop
// goes back to automatic, the limit following the new powers. Marks the project modified.
void ApplicaUtenza(Documento& d, int tronco, const EsitoUtenza& e);

// ---- Deleting ("Tipo cancellazione") ----

// One section, after the user chose `tipo` (TipoCancellazione); see Cancellazione.h. The tree
// primitives mark the project modified.
bool CancellaSezione(Documento& d, int tronco, int tipo, Messaggi& msg, const Rinfresco& r);
// The rows da..a_ marked through the row headers.
void CancellaRighe(Documento& d, int da, int a_, int tipo, const Rinfresco& r);

// ---- The schema ----

// A palette element dropped on a free end that CercaDrop found (schema/Modifica.h). A section
// comes under the entry's section with its turn code, its material the default one; the index
// is returned, 0 when the parent already has two derivations (the product's message shown).
// A consumer sets the kind of the free section before its dialog opens; the kind stays when
// the dialog is cancelled. Either marks the project modified when it changed something.
int16_t AggiungiTroncoDaSchema(Documento& d, const Archivi& a, const schema::AzioneDrop& drop, Messaggi& msg);
void ImpostaUtenzaDaSchema(Documento& d, const schema::AzioneDrop& drop);
// The consumer dialog confirmed after a drop, or after a double click on a consumer (there
// without a composition from frmPortata, and the imposed drop back to automatic in an internal
// installation). Marks the project modified.
void ConfermaUtenzaDrop(Documento& d, int16_t tronco, float portata, int16_t tipologia,
                        const std::string& composizione);
void ConfermaUtenzaSchema(Documento& d, int16_t tronco, float portata, int16_t tipologia,
                          const std::optional<std::string>& composizione);
// A section stretched by its handle, released at (x, y) of the last walk: its drawn length.
// False, and nothing changed, when the position doesn't lengthen it the way the handle runs.
bool AllungaTronco(Documento& d, const schema::StatoSchema& s, int16_t tronco, double x, double y,
                   const std::string& tag);
// A double click on the source: a quarter turn. Marks the project modified.
void RuotaSorgente(Documento& d);
// The Delete key on the schema: the selected section, the way the user chose in frmDelete
// (the grid's rules, CancellaSezione).
bool CancellaTroncoSchema(Documento& d, int tronco, int tipo, Messaggi& msg, const Rinfresco& r);

// ---- Diameters ----

// "Blocca tutti i diametri": fixes the diameter of every section that has one (a section with
// no size yet has nothing to keep), or frees every section; marks the project modified.
void BloccaDiametri(Documento& d, bool bloccati);
// True when every section that has a diameter has it fixed by the user, and there is one.
bool DiametriBloccati(const Documento& d);

// ---- The pressure combos of the document window ----

// ComboInitPres, ComboFinalPres on Enter or on leaving: "0" or "Auto" take the default text's
// value, any other text the absolute value of its number. A number equal to the present value
// changes nothing and returns false; "Auto" is always applied. Marks the project modified.
bool ScegliPressioneIniziale(Documento& d, const Archivi& a, const std::string& testo);
bool ScegliPressioneFinale(Documento& d, const Archivi& a, const std::string& testo);
// ComboDpMax: "0" or "Auto" make the limit automatic, any other text imposes its number. A
// value equal to the present one changes nothing and returns false.
bool ScegliDpMax(Documento& d, const std::string& testo);

// ---- The project ----

// What "Parametri di progetto" holds when the user presses OK.
struct ValoriParametri {
    std::string riferimento;
    std::string descrizioneLavoro;
    std::string archivioDocumenti;
    bool edizione1992 = false;    // "UNI 7129 - 1972/1992" chosen, else "UNI 7129 - 2008"
    std::string velocitaMassima;  // the box's text, m/s; used for a pressure network only
    int indiceGas = 0;            // archive index of the gas shown, 0 when none
};

// OK of "Parametri di progetto". An internal installation refuses a gas that doesn't burn: the
// product's message, nothing changes, false (the dialog stays open). Otherwise the texts, the
// edition (1 for 1992, 2 for 2008) and, for a pressure network, the speed go in; the limits of
// the edition are loaded and the materials' derived columns computed; the gas shown (the first
// of the archive when none) becomes the current gas; the project is marked modified.
bool ImpostaParametri(Documento& d, const Archivi& a, const ValoriParametri& v, Messaggi& msg);

// The gas chosen on the main frame's tool bar (1-based archive index). An internal installation
// refuses a gas that doesn't burn, with the product's message, and false. Marks the project
// modified.
bool ScegliGas(Documento& d, const Archivi& a, int gas, Messaggi& msg);

// A project opened from the command line starts its speed and pressures from the default
// texts (15, 200 and 150 where a text is empty).
void DefaultAllApertura(Documento& d, const Archivi& a);

// The fittings table saved by its editor. It comes into force only while a pressure network is
// open (an internal installation keeps the built-in one); true when it did.
bool AdottaSpeciali(Documento& d, const std::array<TipoSpeciale, 11>& tabella);
// The pressure-drop limits saved by their editor come into force in the open project.
void AdottaPdc(Documento& d, const TabellaPdc& tabella);

// ---- Names of the steps of the history (menu "Modifica": "Annulla: <name>") ----

// "modifica della cella Lunghezza del tronco 4", "modifica della colonna Lunghezza dei tronchi
// 3-7": the first line of the column's heading (the second holds the unit) for the rows
// committed.
std::string NomeCella(const ColonnaTabella& colonna, int da, int a_);
// "nuovo tronco 5"
std::string NomeNuovoTronco(int tronco);
// "scollegamento del tronco 4", "eliminazione del tronco 4", "cancellazione dei tronchi 3-7"...
std::string NomeCancellazione(int tipo, int da, int a_);

}  // namespace modifica
}  // namespace fornax
