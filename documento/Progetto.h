#pragma once
// The project file (.RTG).

#include <string>

#include "archives/Archivi.h"
#include "core/FileTesto.h"
#include "core/Versione.h"

namespace fornax {

class Messaggi;
class Avanzamento;

constexpr int VERSIONE_MAGGIORE = 5;

// The project file's lines, as ScriviProgetto writes them (dangling derivations are repaired
// in the document on the way).
void ComponiProgetto(Documento& d, const Archivi& a, ScrittoreTesto& w);

// Writes the project from the document (temporary file and rename), then the firm's defaults
// of the leak test. False on failure, with the previous file left untouched.
bool ScriviProgetto(Documento& d, const Archivi& a, const std::string& percorso, Messaggi& msg);

// Reads a project into the document. False when the file is refused or can't be used
// (the product's message has been shown); d.CaricamentoProgetto tells the caller as well.
bool LeggiProgetto(Documento& d, const Archivi& a, const std::string& percorso, Messaggi& msg, Avanzamento& av);
// The same reading from a file already in memory (`percorso` becomes the project's name).
bool LeggiProgettoDa(FileTesto& f, Documento& d, const Archivi& a, const std::string& percorso, Messaggi& msg,
                     Avanzamento& av);

}  // namespace fornax
