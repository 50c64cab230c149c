// fornax-cli report: the calculation report of a project as an HTML or a text file, written
// exactly as the desktop's print dialog writes it to a file.
#include <ctime>
#include <iostream>
#include <string>
#include <vector>

#include "cli/Caricamento.h"
#include "core/Cartelle.h"
#include "core/ImpostazioniFile.h"
#include "core/Servizi.h"
#include "reports/Stampa.h"

namespace fornax::cli {

namespace {

struct OpzioniReport {
    std::string formato;
    std::string uscita;
    std::string sezioni = "AABAAAAA";  // all but the schema
    std::string data;
    bool sovrascrivi = false;
    std::vector<std::string> resto;  // the project and the loading options
};

bool Errore(const std::string& testo) {
    std::cerr << "fornax-cli report: " << testo << "\n";
    return false;
}

bool DataValida(const std::string& s) {
    if (s.size() != 10 || s[2] != '/' || s[5] != '/') return false;
    for (size_t i : {0u, 1u, 3u, 4u, 6u, 7u, 8u, 9u})
        if (s[i] < '0' || s[i] > '9') return false;
    const int giorno = std::stoi(s.substr(0, 2));
    const int mese = std::stoi(s.substr(3, 2));
    return giorno >= 1 && giorno <= 31 && mese >= 1 && mese <= 12;
}

std::string Oggi() {
    const std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    char buf[16];
    std::strftime(buf, sizeof buf, "%d/%m/%Y", &tm);
    return buf;
}

bool Leggi(const std::vector<std::string>& argomenti, OpzioniReport& o) {
    for (size_t i = 0; i < argomenti.size(); ++i) {
        const std::string& x = argomenti[i];
        auto valore = [&](std::string& dove) {
            if (i + 1 >= argomenti.size()) return Errore(x + " richiede un valore");
            dove = argomenti[++i];
            return true;
        };
        if (x == "--format") {
            if (!valore(o.formato)) return false;
        } else if (x == "--out") {
            if (!valore(o.uscita)) return false;
        } else if (x == "--sezioni") {
            if (!valore(o.sezioni)) return false;
        } else if (x == "--data-stampa") {
            if (!valore(o.data)) return false;
        } else if (x == "--sovrascrivi") {
            o.sovrascrivi = true;
        } else if (x == "--sostituisci") {
            o.resto.push_back(x);
            if (i + 1 < argomenti.size()) o.resto.push_back(argomenti[++i]);
        } else if (!x.empty() && x[0] == '-') {
            return Errore("opzione sconosciuta " + x);
        } else {
            o.resto.push_back(x);
        }
    }
    if (o.formato != "html" && o.formato != "txt") return Errore("--format richiede html o txt");
    if (o.uscita.empty()) return Errore("indicare il file da scrivere con --out FILE");
    if (o.sezioni.size() != 8 || o.sezioni.find_first_not_of("AB") != std::string::npos)
        return Errore("--sezioni richiede otto lettere A (sezione stampata) o B (non stampata), ad esempio AABAAAAA");
    if (!o.data.empty() && !DataValida(o.data)) return Errore("--data-stampa richiede una data gg/mm/aaaa");
    const ReportSelection s = ReportSelection::DaLettere(o.sezioni);
    if (s.DiagrammaRete)
        return Errore(
            "lo schema grafico della rete (terza lettera di --sezioni) non e' ancora disponibile nelle relazioni "
            "su file: usare B in terza posizione");
    if (!s.Qualcuna()) {
        std::cerr << "Nessuna opzione selezionata.Selezionarne almeno una.\n";
        return false;
    }
    return true;
}

int Report(ContestoCli& ctx, const std::vector<std::string>& argomenti) {
    OpzioniReport r;
    if (!Leggi(argomenti, r)) return ESITO_USO;
    // The desktop asks before it replaces a file; a script says so with --sovrascrivi.
    if (EsisteFile(r.uscita) && !r.sovrascrivi) {
        std::cerr << DOMANDA_SOVRASCRIVI << "\n(usare --sovrascrivi per sostituirlo)\n";
        return ESITO_PROGETTO;
    }
    OpzioniStampa o;
    o.selezione = ReportSelection::DaLettere(r.sezioni);
    const bool tabelle =
        o.selezione.Tronchi || o.selezione.PDCLocalizzate || o.selezione.Verifica || o.selezione.Utenze;
    EsitoCaricamento e = CaricaPerCli(ctx, r.resto, tabelle);
    if (!e.p) return e.esito;
    if (!e.argomenti.empty()) {
        Errore("argomento in piu': " + e.argomenti.front());
        return ESITO_USO;
    }
    ProgettoCli& p = *e.p;
    // The leak-test page has been filled when the project was opened, as on the desktop.
    o.DittaRiga1 = p.imp.Leggi("Ditta", "Riga1");
    o.DittaRiga2 = p.imp.Leggi("Ditta", "Riga2");
    o.DataStampa = r.data.empty() ? Oggi() : r.data;
    o.logo = ControllaLogo(p.a.Cartella, p.msg);

    AvanzamentoNullo av;
    const bool html = r.formato == "html";
    const EsitoStampa esito = RelazioneSuFile(p.s, html, o, r.uscita, av, p.msg);
    if (!esito.riuscita) {
        std::cerr << TestoErroreStampa(html ? "Stampa su file HTML." : "Stampa su file TXT.", esito) << "\n";
        return ESITO_PROGETTO;
    }
    std::cout << (html ? "Stampa su file HTML conclusa con successo." : "Stampa su file TXT conclusa con successo.")
              << "\n";
    return ESITO_OK;
}

const bool registrato = RegistraComando(
    {"report",
     std::string("report PROGETTO.RTG --format html|txt --out FILE [--sezioni LETTERE] [--data-stampa gg/mm/aaaa] "
                 "[--sovrascrivi] ") +
         USO_SOSTITUISCI,
     "scrive la relazione di calcolo (dopo aver ricalcolato la rete). LETTERE: otto lettere A/B per copertina, "
     "tronchi, schema, perdite localizzate, percorso sfavorito, utenze, computo, tenuta; predefinito AABAAAAA. "
     "Lo schema grafico non e' ancora disponibile (A in terza posizione: esito 2). Un file esistente si "
     "sostituisce solo con --sovrascrivi. La data predefinita e' oggi; la ditta si imposta con il comando ditta",
     Report});

}  // namespace

}  // namespace fornax::cli
