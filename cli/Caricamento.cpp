#include "cli/Caricamento.h"

#include <iostream>

#include "core/Numeri.h"
#include "core/Testo.h"

namespace fornax::cli {

int MessaggiCli::Mostra(const std::string& testo, int flags, const std::string& titolo) {
    std::cerr << (titolo.empty() ? "" : titolo + ": ") << testo << "\n";
    // The desktop asks only about saving and replacing here; a script says yes.
    if ((flags & 7) == Box::YESNO || (flags & 7) == Box::YESNOCANCEL) return Risposta::YES;
    return Risposta::OK;
}

int MessaggiCli::ScegliSostituto(const std::string& nome, int tipo, const std::vector<std::string>& elenco) {
    const auto it = risposte.find(Maiuscolo(Trim(nome)));
    if (it != risposte.end()) {
        const std::string& r = it->second;
        for (size_t i = 0; i < elenco.size(); ++i)
            if (UgualiSenzaMaiuscole(Trim(elenco[i]), Trim(r))) return static_cast<int>(i + 1);
        const double n = LeggiNumero(r);
        if (n >= 1 && n <= static_cast<double>(elenco.size()) && n == static_cast<int>(n)) return static_cast<int>(n);
        std::cerr << "Sostituzione non valida per " << nome << ": '" << r << "'\n";
    }
    std::cerr << "La seguente tabella non esiste in archivio: " << nome << "\n"
              << "sostituire  con :\n";
    for (size_t i = 0; i < elenco.size(); ++i) std::cerr << "  " << (i + 1) << ". " << elenco[i] << "\n";
    std::cerr << "(indicare la sostituzione con --sostituisci \"" << nome << "=N\"; "
              << (tipo == 1 ? "tubazione" : "gas") << ")\n";
    domandaSenzaRisposta = true;
    return 0;
}

EsitoCaricamento CaricaPerCli(const ContestoCli& ctx, const std::vector<std::string>& argomenti,
                              bool colonneObbligatorie, const ControlloArgomenti& controlla) {
    EsitoCaricamento e;
    auto p = std::make_unique<ProgettoCli>();
    std::string progetto;
    for (size_t i = 0; i < argomenti.size(); ++i) {
        const std::string& x = argomenti[i];
        if (x == "--sostituisci") {
            const std::string coppia = i + 1 < argomenti.size() ? argomenti[++i] : std::string();
            const size_t uguale = coppia.rfind('=');
            if (uguale == std::string::npos || uguale == 0) {
                std::cerr << "fornax-cli: --sostituisci richiede NOME=N\n";
                e.esito = ESITO_USO;
                return e;
            }
            p->msg.risposte[Maiuscolo(Trim(coppia.substr(0, uguale)))] = coppia.substr(uguale + 1);
        } else if (progetto.empty() && (x.empty() || x[0] != '-')) {
            progetto = x;
        } else {
            e.argomenti.push_back(x);
        }
    }
    if (progetto.empty()) {
        std::cerr << "fornax-cli: manca il file del progetto\n";
        e.esito = ESITO_USO;
        return e;
    }
    if (controlla && !controlla(e.argomenti)) {
        e.esito = ESITO_USO;
        return e;
    }
    AvanzamentoNullo av;
    if (!CaricaArchivi(p->s, ctx.cartellaDati, av, p->msg, colonneObbligatorie)) {
        e.esito = ESITO_PROGETTO;
        return e;
    }
    if (!ApriProgetto(p->s, progetto, p->msg, av) || p->msg.domandaSenzaRisposta) {
        e.esito = ESITO_PROGETTO;
        return e;
    }
    e.p = std::move(p);
    return e;
}

}  // namespace fornax::cli
