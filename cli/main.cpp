// fornax-cli: the headless command of Fornax.
#include <iostream>
#include <string>
#include <vector>

#include "cli/Comandi.h"
#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/Versione.h"

namespace fornax::cli {

static std::vector<Comando>& Registro() {
    static std::vector<Comando> comandi;
    return comandi;
}

bool RegistraComando(const Comando& c) {
    Registro().push_back(c);
    return true;
}

const std::vector<Comando>& ElencoComandi() { return Registro(); }

static void Aiuto(std::ostream& out) {
    out << "Uso: fornax-cli [--data CARTELLA] COMANDO [ARGOMENTI]\n\n"
           "Calcolo e verifica di impianti interni gas (UNI 7129) e reti gas in pressione.\n\n"
           "Opzioni generali:\n"
           "  --data CARTELLA   cartella degli archivi (GAS.CFG, *.mat, gridgas.cne...);\n"
           "                    senza, la cartella del programma\n"
           "  --help            questo aiuto\n"
           "  --version         versione del programma\n\n"
           "Comandi:\n";
    for (const auto& c : ElencoComandi()) {
        out << "  " << c.uso << "\n      " << c.descrizione << "\n";
    }
    out << "\nOpzione dei comandi che aprono un progetto:\n"
           "  --sostituisci NOME=N   un gas o una tubazione del progetto che manca in archivio\n"
           "                         viene sostituito dall'N-esimo dell'elenco proposto (o dal\n"
           "                         nome indicato); senza, il comando si ferma con la domanda\n";
    out << "\nEsito: 0 riuscito, 1 progetto o archivio non utilizzabile, 2 uso errato.\n";
}

}  // namespace fornax::cli

int main(int argc, char** argv) {
    fornax::IgnoraLimiteDimensione();
    using namespace fornax::cli;
    ContestoCli ctx;
    ctx.eseguibile = argc > 0 ? argv[0] : "fornax-cli";
    std::vector<std::string> args(argv + 1, argv + argc);

    size_t i = 0;
    for (; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "--help" || a == "-h") {
            Aiuto(std::cout);
            return ESITO_OK;
        }
        if (a == "--version") {
            std::cout << "Fornax " << fornax::VERSIONE << "\n";
            return ESITO_OK;
        }
        if (a == "--data") {
            if (i + 1 >= args.size()) {
                std::cerr << "fornax-cli: --data richiede una cartella\n";
                return ESITO_USO;
            }
            ctx.cartellaDati = args[++i];
            continue;
        }
        break;
    }
    if (i >= args.size()) {
        Aiuto(std::cerr);
        return ESITO_USO;
    }
    const std::string nome = args[i];
    std::vector<std::string> resto(args.begin() + static_cast<long>(i) + 1, args.end());
    if (ctx.cartellaDati.empty()) {
        ctx.cartellaDati = fornax::CartellaProgramma(ctx.eseguibile, FORNAX_DATA_DIR);
    }
    for (const auto& c : ElencoComandi()) {
        if (c.nome == nome) {
            try {
                return c.esegui(ctx, resto);
            } catch (const std::exception& e) {
                std::cerr << "Errore interno: " << e.what() << "\n";
                return ESITO_PROGETTO;
            }
        }
    }
    std::cerr << "fornax-cli: comando sconosciuto '" << nome << "' (vedere --help)\n";
    return ESITO_USO;
}
