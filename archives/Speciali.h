#pragma once
// Fittings and their equivalent lengths: built in for internal installations,
// EQLEN.CFG for pressure networks.

#include "archives/Archivi.h"

namespace fornax {

class Messaggi;

void CaricaSpecialiInterni(Archivi& a);
// False when EQLEN.CFG is missing (after the product's message): the caller can't go on
// with a pressure network.
bool CaricaSpecialiPressione(Archivi& a, Messaggi& msg);
bool SalvaSpeciali(Archivi& a, Messaggi& msg);
float LunghezzaInterna(const Archivi& a, int tipo, float diametro, int famiglia);
float LunghezzaPressione(const Archivi& a, int tipo, float diametro);

}  // namespace fornax
