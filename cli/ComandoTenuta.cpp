// fornax-cli tenuta: the leak-test record as the page holds it once the project is open (the
// firm's defaults into an empty firm, the test judged by the rules), so that a script can check
// a record; with --json the same in JSON.
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "cli/Caricamento.h"
#include "cli/Comandi.h"
#include "leaktest/CampiTenuta.h"
#include "leaktest/TenutaJson.h"

namespace fornax::cli {

namespace {

constexpr const char* kUso = "tenuta PROGETTO.RTG [--json USCITA.json]";

const char* TestoEsito(int esito) {
    switch (esito) {
        case 1:
            return "Tenuta idonea al funzionamento";
        case 2:
            return "Tenuta idonea al funzionamento temporaneo";
        case 3:
            return "Tenuta non idonea al funzionamento";
        default:
            return "non indicato";
    }
}

void StampaTenuta(std::ostream& out, const VerificaTenuta& r, const StatoPaginaTenuta& stato) {
    out << stato.descrizione << "\n"
        << "Pagina abilitata: " << (stato.abilitata ? "si" : "no") << "\n"
        << "Metodo C.D.P. disponibile: " << (stato.metodoCdpDisponibile ? "si" : "no") << "\n";
    for (const std::string* e : {&stato.erroreContatore, &stato.erroreCdp})
        if (!e->empty()) out << "Errore: " << *e << "\n";
    for (int c = 1; c <= NUM_CAMPI_TENUTA; ++c) {
        out << (c < 10 ? " " : "") << c << " " << NomeCampoTenuta(c) << ": " << TestoCampoTenuta(r, c) << "\n";
    }
    out << "Esito: " << r.EsitoProva << " " << TestoEsito(r.EsitoProva) << "\n";
}

int Tenuta(ContestoCli& ctx, const std::vector<std::string>& argomenti) {
    EsitoCaricamento e = CaricaPerCli(ctx, argomenti, false, [](const std::vector<std::string>& resto) {
        if (resto.empty() || (resto.size() == 2 && resto[0] == "--json")) return true;
        std::cerr << "fornax-cli tenuta: uso: " << kUso << "\n";
        return false;
    });
    if (!e.p) return e.esito;
    ProgettoCli& p = *e.p;
    StampaTenuta(std::cout, p.d.Tenuta, p.s.PaginaTenuta);
    if (e.argomenti.size() == 2) {
        const std::string& uscita = e.argomenti[1];
        std::ofstream f(uscita, std::ios::binary | std::ios::trunc);
        f << TenutaJson(p.d.Tenuta, p.s.PaginaTenuta);
        f.close();
        if (!f) {
            std::cerr << "fornax-cli tenuta: impossibile scrivere '" << uscita << "'\n";
            return ESITO_PROGETTO;
        }
    }
    return ESITO_OK;
}

const bool registrato = RegistraComando(
    {"tenuta", std::string(kUso) + " " + USO_SOSTITUISCI,
     "mostra la verifica di tenuta (UNI 11137-1) come la pagina la presenta all'apertura del progetto: i 52 "
     "campi, l'esito e i messaggi; con --json la scrive in JSON",
     Tenuta});

}  // namespace

}  // namespace fornax::cli
