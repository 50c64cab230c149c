#pragma once
// The named edits of the leak-test page: what the user types or ticks on the record of the
// test. The verdict, the referred values and the capacities are the rules' (leaktest/), never
// an edit. Each edit that changes the record marks the project modified, so that a test typed
// in is never closed without the offer to save it; one that changes nothing returns false.

#include <cstdint>
#include <string>

#include "core/Documento.h"

namespace fornax::modifica {

// A text typed into a field of the page (1..52 in the order of the project file's block),
// taken as the block would read it: a count of appliances by the number it begins with. Only
// the fields the user types are taken (see CampoTenutaDigitato); false for the others.
bool ScriviCampoTenuta(Documento& d, int campo, const std::string& testo);

// One of the seven boxes of the causes of the intervention (1..7) ticked or cleared. The other
// boxes stay as the page shows them (a damaged cause text shows none ticked).
bool SegnaCausaIntervento(Documento& d, int causa, bool segnata);

// A click on a method of the test: 1 the meter, 2 the pressure drop.
bool ScegliMetodoProva(Documento& d, int metodo);

// A click on the shut-off device's options: 1 tight, 2 not tight.
bool ScegliDispositivoIntercettazione(Documento& d, int dispositivo);

}  // namespace fornax::modifica
