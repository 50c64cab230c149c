#pragma once
// The three ways of taking sections out of the tree, in the order the document window runs
// the tree primitives and its own refreshes.
//
//   "Scollega tronchi"             cuts a section and its branch off the tree, keeping the data;
//   "Cancella tronchi"             deletes the section and its branch, leaving gaps for reuse;
//   "Elimina e compatta  tronchi"  deletes them and renumbers the records above each gap.

#include <functional>

#include "core/Documento.h"

namespace fornax {

class Messaggi;

namespace TipoCancellazione {
constexpr int SCOLLEGA = 1;
constexpr int ELIMINA_E_COMPATTA = 2;
constexpr int CANCELLA = 3;
}  // namespace TipoCancellazione

// What the window does between the steps: `elabora` recalculates and repaints; `rigenera`
// clears the grid and then recalculates and repaints it.
struct Rinfresco {
    std::function<void()> elabora;
    std::function<void()> rigenera;
};

// One section (the schema's Delete key, or the grid's with a single column selected), after
// the user chose `tipo` in the dialog. False when nothing was done: the first section can't be
// unlinked ("Non è possibile scollegare il primo tronco.").
bool CancellaSezione(Documento& d, int tronco, int tipo, Messaggi& msg, const Rinfresco& r);

// The rows marked through the row headers, from `da` to `a` in ascending order. Here the
// first section is not guarded: unlinking it empties the table.
void CancellaRighe(Documento& d, int da, int a, int tipo, const Rinfresco& r);

}  // namespace fornax
