// fornax-cli report: the calculation report of a project as an HTML or a text file, written
// exactly as the desktop's print dialog writes it to a file, or the printer's report as a PDF
// file (where the desktop is built: the PDF needs Qt's printer).
#include <ctime>
#include <iostream>
#include <string>
#include <vector>

#include "cli/Caricamento.h"
#include "core/Cartelle.h"
#include "core/ImpostazioniFile.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "reports/Stampa.h"
#include "reports/Stampante.h"
#ifdef FORNAX_PDF
#include "reports/ui/RelazionePdf.h"
#include "reports/ui/SchemaSuCarta.h"
#endif

namespace fornax::cli {

namespace {

struct OpzioniReport {
    std::string formato;
    std::string uscita;
    std::string sezioni = "AABAAAAA";  // all but the schema
    std::string data;
    std::string percentoX, percentoY;  // the printable area of the PDF
    bool sovrascrivi = false;
    bool adattaSchema = false;       // "Adatta lo schema alla pagina"
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
        } else if (x == "--percento-x") {
            if (!valore(o.percentoX)) return false;
        } else if (x == "--percento-y") {
            if (!valore(o.percentoY)) return false;
        } else if (x == "--sovrascrivi") {
            o.sovrascrivi = true;
        } else if (x == "--adatta-schema") {
            o.adattaSchema = true;
        } else if (x == "--sostituisci") {
            o.resto.push_back(x);
            if (i + 1 < argomenti.size()) o.resto.push_back(argomenti[++i]);
        } else if (!x.empty() && x[0] == '-') {
            return Errore("opzione sconosciuta " + x);
        } else {
            o.resto.push_back(x);
        }
    }
    if (o.formato != "html" && o.formato != "txt" && o.formato != "pdf")
        return Errore("--format richiede html, txt o pdf");
    for (const std::string* p : {&o.percentoX, &o.percentoY}) {
        if (p->empty()) continue;
        if (o.formato != "pdf") return Errore("--percento-x e --percento-y valgono solo con --format pdf");
        if (p->find_first_not_of("0123456789") != std::string::npos || p->size() > 3 || std::stoi(*p) < 80 ||
            std::stoi(*p) > 120)
            return Errore("--percento-x e --percento-y richiedono un numero intero da 80 a 120");
    }
    if (o.uscita.empty()) return Errore("indicare il file da scrivere con --out FILE");
    if (o.sezioni.size() != 8 || o.sezioni.find_first_not_of("AB") != std::string::npos)
        return Errore("--sezioni richiede otto lettere A (sezione stampata) o B (non stampata), ad esempio AABAAAAA");
    if (!o.data.empty() && !DataValida(o.data)) return Errore("--data-stampa richiede una data gg/mm/aaaa");
    const ReportSelection s = ReportSelection::DaLettere(o.sezioni);
    if (o.adattaSchema && (o.formato != "pdf" || !s.DiagrammaRete))
        return Errore("--adatta-schema vale solo con --format pdf e lo schema tra le sezioni (A in terza posizione)");
    if (!s.Qualcuna()) {
        std::cerr << "Nessuna opzione selezionata.Selezionarne almeno una.\n";
        return false;
    }
    return true;
}

#ifdef FORNAX_PDF
// The printable area: the user's settings, unless the command line says otherwise.
int Percento(const ImpostazioniFile& imp, const char* chiave, const std::string& opzione) {
    const int v = static_cast<int>(LeggiNumero(opzione.empty() ? imp.Leggi("Stampa", chiave) : opzione));
    return v > 0 ? v : 100;
}

#endif

int ReportPdf(ProgettoCli& p, const OpzioniStampa& o, const OpzioniReport& r, const ImpostazioniFile& imp,
              AvanzamentoNullo& av) {
#ifdef FORNAX_PDF
    OpzioniStampante os;
    os.stampa = o;
    os.proporzioni.PercentoX = Percento(imp, "X-percent", r.percentoX);
    os.proporzioni.PercentoY = Percento(imp, "Y-percent", r.percentoY);
    os.adattaSchema = r.adattaSchema;
    os.schema = PaginaSchema(p.d, p.a, p.msg);
    if (o.logo) os.fileLogo = TrovaFile(p.a.Cartella, "logo.bmp");
    const EsitoStampante esito = StampaPdf(p.d, p.a, os, r.uscita, av, p.msg);
    if (!esito.riuscita) return ESITO_PROGETTO;  // the message has been shown
    std::cout << "Stampa completata (" << esito.pagine << (esito.pagine == 1 ? " pagina" : " pagine") << ")\n";
    return ESITO_OK;
#else
    (void)p, (void)o, (void)r, (void)imp, (void)av;
    return ESITO_USO;
#endif
}

int Report(ContestoCli& ctx, const std::vector<std::string>& argomenti) {
    OpzioniReport r;
    if (!Leggi(argomenti, r)) return ESITO_USO;
#ifndef FORNAX_PDF
    if (r.formato == "pdf") {
        std::cerr << "fornax-cli report: la stampa in PDF non e' disponibile in questa versione del programma "
                     "(costruita senza Qt)\n";
        return ESITO_USO;
    }
    // The schema's picture is drawn by Qt.
    if (ReportSelection::DaLettere(r.sezioni).DiagrammaRete) {
        std::cerr << "fornax-cli report: lo schema grafico della rete non e' disponibile in questa versione del "
                     "programma (costruita senza Qt): usare B in terza posizione di --sezioni\n";
        return ESITO_USO;
    }
#endif
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
    if (r.formato == "pdf") return ReportPdf(p, o, r, p.imp, av);
    const bool html = r.formato == "html";
    SalvaSchema schema;
#ifdef FORNAX_PDF
    // The picture beside the report, named after the reference.
    if (o.selezione.DiagrammaRete) schema = SalvaSchemaBmp(p.d, p.a, p.msg);
#endif
    const EsitoStampa esito = RelazioneSuFile(p.s, html, o, r.uscita, av, p.msg, schema);
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
     std::string("report PROGETTO.RTG --format html|txt|pdf --out FILE [--sezioni LETTERE] [--data-stampa gg/mm/aaaa] "
                 "[--percento-x N] [--percento-y N] [--adatta-schema] [--sovrascrivi] ") +
         USO_SOSTITUISCI,
     "scrive la relazione di calcolo (dopo aver ricalcolato la rete). LETTERE: otto lettere A/B per copertina, "
     "tronchi, schema, perdite localizzate, percorso sfavorito, utenze, computo, tenuta; predefinito AABAAAAA. "
     "Il PDF e' la relazione della stampante, su A4 verticale; --percento-x e --percento-y (80-120) ne "
     "riducono o allargano l'area stampabile (predefinite: le impostazioni della finestra Pagina). "
     "Lo schema grafico (A in terza posizione) e' un'immagine .bmp accanto alla relazione HTML o TXT, che "
     "prende il nome dal riferimento, e una pagina orizzontale in fondo al PDF; --adatta-schema lo adatta alla "
     "pagina del PDF. Senza Qt lo schema non e' disponibile (esito 2). Un file esistente si "
     "sostituisce solo con --sovrascrivi. La data predefinita e' oggi; la ditta si imposta con il comando ditta",
     Report});

}  // namespace

}  // namespace fornax::cli
