#pragma once
// Pressure-drop limits of internal installations (PDCMAX_1992.CFG, PDCMAX_2008.CFG).

#include <cstdint>
#include <string>

#include "core/Documento.h"

namespace fornax {

class Messaggi;

// The limits file of the norm edition `normativa`, from the program's folder `cartella`.
void CaricaPdc(TabellaPdc& t, const std::string& cartella, int32_t normativa, Messaggi& msg);
bool SalvaPdc(const TabellaPdc& t, const std::string& cartella, Messaggi& msg);
void VerificaDefaultPdc(TabellaPdc& t);
// The limit in force for the document, from its own table.
float LimitePdc(const Documento& d);
bool LimitiRispettati(const Documento& d);

}  // namespace fornax
