#pragma once
// Gas archive: GAS.CFG and PARFAMGAS.CFG.

#include <string>

#include "archives/Archivi.h"

namespace fornax {

class Messaggi;

// Derived fields (mass density, Wobbe indices, family); true when the gas can be used.
// Shows the family message when the Wobbe index fits no family.
bool CalcolaGas(GasRecord& g, Messaggi& msg);
bool GasValido(const GasRecord& g);
void CaricaGas(Archivi& a, Messaggi& msg);
bool SalvaGas(const Archivi& a, Messaggi& msg);
int NuovoGas(Archivi& a, const std::string& nome);
// 1-based index of the first gas whose upper-cased name matches `nome` upper-cased used as
// a pattern ('*', '?', '#', '[...]'), or 0 when none does.
int CercaGas(const Archivi& a, const std::string& nome);
// The pattern match of CercaGas.
bool Somiglia(const std::string& testo, const std::string& pattern);
void CaricaParFamGas(Archivi& a);
// Family names shown to the user: "1° Famiglia"... and their subtitles.
std::string NomeFamiglia(int famiglia);
std::string DescrizioneFamiglia(int famiglia);

}  // namespace fornax
