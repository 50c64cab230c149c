#pragma once
// Loading a project for a command: the archives of the program's folder in the start-up order,
// then the project opened by the session as the desktop opens it (the leak-test page filled),
// with the desktop's messages written to standard error.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "archives/Archivi.h"
#include "cli/Comandi.h"
#include "core/Documento.h"
#include "core/ImpostazioniFile.h"
#include "core/Servizi.h"
#include "sessione/Sessione.h"

namespace fornax::cli {

// Messages go to standard error; a question the desktop would ask about an unknown name is
// answered from the --sostituisci options, or else stops the command.
class MessaggiCli final : public Messaggi {
public:
    std::map<std::string, std::string> risposte;  // NOME (upper case) -> position or name
    bool domandaSenzaRisposta = false;

    int Mostra(const std::string& testo, int flags = Box::OK, const std::string& titolo = "") override;
    int ScegliSostituto(const std::string& nome, int tipo, const std::vector<std::string>& elenco) override;
};

// A command works on one session, as the desktop does: opened, saved, calculated and printed
// through the same operations.
struct ProgettoCli {
    Archivi a;
    ImpostazioniFile imp;
    Sessione s{a, imp};
    Documento& d = s.d;
    MessaggiCli msg;
};

struct EsitoCaricamento {
    std::unique_ptr<ProgettoCli> p;      // null when the project can't be used
    int esito = ESITO_OK;                // exit status when p is null
    std::vector<std::string> argomenti;  // what is left for the command
};

// `argomenti` holds the project's path first, then any option; --sostituisci NOME=N is taken
// here (N a 1-based position in the archive's list, or a name of it), the rest is left.
// `controlla`, when given, judges the arguments left for the command before anything is
// loaded; false means wrong usage (it has said why on standard error).
using ControlloArgomenti = std::function<bool(const std::vector<std::string>&)>;
EsitoCaricamento CaricaPerCli(const ContestoCli& ctx, const std::vector<std::string>& argomenti,
                              bool colonneObbligatorie = false, const ControlloArgomenti& controlla = nullptr);

// Help lines of the options taken by CaricaPerCli.
constexpr const char* USO_SOSTITUISCI = "[--sostituisci NOME=N]...";

}  // namespace fornax::cli
