#pragma once
// The entry points of the section panel and of the consumer dialogs, for every caller: the
// grid (F11, double clicks), the main frame ("Parametri Tronco Selezionato") and the schema
// (double click on a section or a consumer, a consumer dropped on a free end). Each returns
// whether the document changed; the caller then recalculates (Elaborazione) and repaints.

#include <optional>
#include <vector>

#include "editing/Modifiche.h"
#include "sessione/Sessione.h"

class QWidget;

namespace fornax {
class Messaggi;
}

namespace fornax::ui {

// "Parametri Tronco" on tronchi.front(). With more than one section, "Selezione copia multipla"
// comes first (Annulla there ends everything) and OK gives the ticked fields to all of them.
bool ApriPTronchi(QWidget* padre, Sessione& s, Messaggi& msg, const std::vector<int>& tronchi);

// The consumer dialog of `tronco` with its present flow and kind, without storing anything:
// "Calcolo portata" in an internal installation or when `cucina` (a cooker always gets it),
// else "Portata utenza". Nothing when the user cancels or the section is not in the table.
std::optional<modifica::EsitoUtenza> ChiediUtenza(QWidget* padre, const Sessione& s, int tronco, bool cucina = false);

// A double click on a consumer (its flow in the grid, its symbol on the schema): the dialog of
// the network's kind, and on OK flow, kind, composition and reference stored through
// modifica::ApplicaUtenza (an internal installation's imposed drop back to automatic).
bool ApriDialogoUtenza(QWidget* padre, Sessione& s, Messaggi& msg, int tronco);

}  // namespace fornax::ui
