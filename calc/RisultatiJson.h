#pragma once
// The results of a calculation as JSON, for scripts that check what the desktop computes
// (fornax-cli calc --json). Every number is the shortest decimal text that reads back to the
// same float (or double, for the fields held in double).

#include <string>

#include "archives/Archivi.h"
#include "core/Documento.h"

namespace fornax {

// Clears the bill of pipes and works it out again (AzzeraComputo, CalcolaComputo), then writes
// the project's kind, the limit, the running maxima, one entry for every record
// 1..NumTronchi, the least favourable path, the bill (the materials and rows with a length)
// and the capacity of the pipes.
std::string RisultatiJson(const Documento& d, const Archivi& a);

}  // namespace fornax
