#pragma once
// The leak-test record in the project file, and the firm's defaults (TENIMPTECDEF.CFG).

#include <string>

#include "core/FileTesto.h"
#include "core/VerificaTenuta.h"

namespace fornax {

class Messaggi;

constexpr const char* MARCA_TENUTA = "!VERIFICATENUTA1137-1";

// Writes the block: the mark and the 52 fields, one a line.
void SalvaTenuta(ScrittoreTesto& w, const VerificaTenuta& r);
// Scans for the block's mark; without it (older projects) the record and the reading position
// stay as they were.
void CaricaTenuta(FileTesto& f, VerificaTenuta& r);

// The firm's defaults of the program's folder; a missing file is created empty first.
DefaultTenuta LeggiDefaultTenuta(const std::string& cartella, Messaggi& msg);
// Written at each saving of a project from fields 1..4 of its record, so that the last project
// saved gives the defaults of the next new one.
bool SalvaDefaultTenuta(const std::string& cartella, const VerificaTenuta& r, Messaggi& msg);

}  // namespace fornax
