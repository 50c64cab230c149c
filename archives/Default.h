#pragma once
// The user's default texts (defaultValue.ini).

#include "archives/Archivi.h"

namespace fornax {

class Messaggi;

// Reads defaultValue.ini into a.Default; without the file sets the defaults (first gas,
// first material, 15, 200, 150).
void LeggiDefault(Archivi& a, Messaggi& msg);
bool putDefaultValueInFile(const Archivi& a, Messaggi& msg);

}  // namespace fornax
