#pragma once
// The program's folder and file names found without regard to case
// (users' archives come from Windows, where GAS.CFG and gas.cfg are the same file).

#include <string>
#include <vector>

namespace fornax {

// Path of `nome` inside `cartella`: the existing entry whose name matches without regard to
// case, or cartella/nome when none exists.
std::string TrovaFile(const std::string& cartella, const std::string& nome);

// Entries of `cartella` whose name ends with `estensione` (".mat"), without regard to case,
// ordered by name without regard to case.
std::vector<std::string> ElencaFile(const std::string& cartella, const std::string& estensione);

bool EsisteFile(const std::string& percorso);

// A path's folder ("" when it has none) and its name without the folder. Both "/" and "\\"
// separate folders: projects and logos named on Windows machines travel with their paths.
std::string CartellaDi(const std::string& percorso);
std::string NomeDi(const std::string& percorso);

// The program's folder: FORNAX_HOME when set; else the folder of the executable when it holds
// gridgas.cne; else the installed tree's share/fornax beside the executable's folder
// (<exe>/../share/fornax) when it holds gridgas.cne; else `installata`. When the chosen folder
// is not writable, a per-user copy is made on first start (under $XDG_DATA_HOME/Fornax, by
// default ~/.local/share/Fornax) and used from then on.
std::string CartellaProgramma(const std::string& eseguibile, const std::string& installata);
// The same choice from the executable's folder, already resolved.
std::string SceltaCartellaProgramma(const std::string& cartellaEseguibile, const std::string& installata);

}  // namespace fornax
