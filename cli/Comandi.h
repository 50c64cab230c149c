#pragma once
// The commands of fornax-cli. Each command lives in its own file and registers itself with
//     static const bool registrato = RegistraComando({...});

#include <string>
#include <vector>

namespace fornax::cli {

// Exit statuses.
constexpr int ESITO_OK = 0;
constexpr int ESITO_PROGETTO = 1;  // the project (or an archive) can't be used
constexpr int ESITO_USO = 2;       // wrong usage

struct ContestoCli {
    std::string cartellaDati;  // --data DIR, else the program's folder
    std::string eseguibile;    // argv[0]
};

struct Comando {
    std::string nome;         // "info"
    std::string uso;          // "info PROGETTO.RTG [--sostituisci NOME=N]..."
    std::string descrizione;  // one line of help
    int (*esegui)(ContestoCli& ctx, const std::vector<std::string>& argomenti);
};

bool RegistraComando(const Comando& c);
const std::vector<Comando>& ElencoComandi();

}  // namespace fornax::cli
