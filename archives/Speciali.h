#pragma once
// Fittings and their equivalent lengths: built in for internal installations,
// EQLEN.CFG for pressure networks.

#include <string>

#include "core/Documento.h"

namespace fornax {

class Messaggi;

void CaricaSpecialiInterni(TabellaSpeciali& t);
// EQLEN.CFG of the program's folder `cartella`. False when it is missing (after the product's
// message): the caller can't go on with a pressure network.
bool CaricaSpecialiPressione(TabellaSpeciali& t, const std::string& cartella, Messaggi& msg);
bool SalvaSpeciali(TabellaSpeciali& t, const std::string& cartella, Messaggi& msg);
float LunghezzaInterna(const TabellaSpeciali& t, int tipo, float diametro, int famiglia);
float LunghezzaPressione(const TabellaSpeciali& t, int tipo, float diametro);

}  // namespace fornax
