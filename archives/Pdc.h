#pragma once
// Pressure-drop limits of internal installations (PDCMAX_1992.CFG, PDCMAX_2008.CFG).

#include "archives/Archivi.h"

namespace fornax {

class Messaggi;

void CaricaPdc(Archivi& a, int32_t normativa, Messaggi& msg);
bool SalvaPdc(const Archivi& a, Messaggi& msg);
void VerificaDefaultPdc(Archivi& a);
float LimitePdc(const Archivi& a, const Documento& d);
bool LimitiRispettati(const Archivi& a, const Documento& d);

}  // namespace fornax
