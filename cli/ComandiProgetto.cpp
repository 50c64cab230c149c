// fornax-cli info and save: what a project holds, and a project written as the desktop saves it.
#include <iostream>
#include <string>
#include <vector>

#include "archives/Gas.h"
#include "archives/Pdc.h"
#include "cli/Caricamento.h"
#include "cli/Tabella.h"
#include "core/Numeri.h"

namespace fornax::cli {

namespace {

std::string Normativa(int32_t n) { return n == 1 ? "UNI 7129 (1992)" : "UNI 7129 (2008)"; }

void StampaParametri(std::ostream& out, const ProgettoCli& p) {
    const Documento& d = p.d;
    const GasRecord& g = d.GasCorrente;
    const bool pressione = d.ReteInPressione != 0;
    out << "Progetto:            " << d.NomeFileProgetto << "\n"
        << "Riferimento:         " << d.Riferimento << "\n"
        << "Descrizione lavoro:  " << d.DescrizioneLavoro << "\n"
        << "Archivio documenti:  " << d.ArchivioDocumenti << "\n"
        << "Tipo di rete:        " << (pressione ? "Rete gas in pressione" : "Impianto interno gas") << "\n";
    if (!pressione) out << "Normativa:           " << Normativa(d.Normativa) << "\n";
    out << "Gas:                 " << g.Nome << " (densita' relativa " << FormattaNumero(g.Densita, "0.0###")
        << ", P.C.I. " << FormattaNumero(g.Pci, "0.00") << " MJ/mc, Wobbe inf. " << FormattaNumero(g.WobbeInf, "0.00")
        << " MJ/mc, "
        << (g.NonCombustibile != 0 ? "non combustibile"
                                   : NomeFamiglia(g.Famiglia) + " " + DescrizioneFamiglia(g.Famiglia))
        << ")\n";
    if (pressione) {
        out << "Velocita' massima:   " << FormattaNumero(d.VelocitaMassima, "##0.0#") << " m/s\n"
            << "Pressione iniziale:  " << FormattaNumero(d.PressioneIniziale, "##0.0#") << " kPa\n"
            << "Pressione finale:    " << FormattaNumero(d.PressioneFinale, "##0.0#") << " kPa\n";
    } else {
        out << "Perdita massima:     " << FormattaNumero(LimitePdc(d), "##0.0#") << " Pa"
            << (d.DpMax > 0 ? "" : " (automatica)") << "\n";
    }
    out << "Tronchi:             " << d.NumTronchi() << "\n";
}

void StampaTronchi(std::ostream& out, const ProgettoCli& p) {
    const Documento& d = p.d;
    const bool pressione = d.ReteInPressione != 0;
    Tabella t({{"N.", 4},
               {"Padre", 5},
               {"Sx", 4},
               {"Dx", 4},
               {"Utenza", 8},
               {"Portata", 8},
               {"Lungh.", 8},
               {"Materiale", -12},
               {"DN", -8},
               {"Curve", 5},
               {"T", 3},
               {"Gomiti", 6},
               {"Rubin.", 6}});
    if (pressione) t.AggiungiColonna({"Altri", 5});
    out << "\n" << t.Intestazione("Nmc/h", "Nmc/h", "m");
    for (int i = 1; i <= d.NumTronchi(); ++i) {
        const Tronco& x = d.T(i);
        std::vector<std::string> c = {
            std::to_string(i),
            std::to_string(x.ID_PREV),
            x.ID_LEFT > 0 ? std::to_string(x.ID_LEFT) : "-",
            x.ID_RIGHT > 0 ? std::to_string(x.ID_RIGHT) : "-",
            x.IsUtenza() ? FormattaNumero(x.ID_P_UTENZE, "##0.00") : "",
            FormattaNumero(x.ID_P_TRONCO, "##0.00"),
            FormattaNumero(x.ID_LEN, "##0.00"),
            x.ID_MATERIALE,
            (x.ID_DIAMETRO.empty() ? std::string("Auto") : x.ID_DIAMETRO) + (x.ID_DIAMCUSTOM != 0 ? "*" : ""),
            std::to_string(x.Conteggio(1)),
            std::to_string(x.Conteggio(2)),
            std::to_string(x.Conteggio(3)),
            std::to_string(x.Conteggio(4)),
        };
        if (pressione) {
            int altri = 0;
            for (int k = 5; k <= 10; ++k) altri += x.Conteggio(k);
            c.push_back(std::to_string(altri));
        }
        out << t.Riga(c);
    }
    out << "(* diametro bloccato dall'utente)\n";
}

int Info(ContestoCli& ctx, const std::vector<std::string>& argomenti) {
    EsitoCaricamento e = CaricaPerCli(ctx, argomenti, false, [](const std::vector<std::string>& resto) {
        if (resto.empty()) return true;
        std::cerr << "fornax-cli info: argomento non previsto '" << resto.front() << "'\n";
        return false;
    });
    if (!e.p) return e.esito;
    StampaParametri(std::cout, *e.p);
    StampaTronchi(std::cout, *e.p);
    return ESITO_OK;
}

int Save(ContestoCli& ctx, const std::vector<std::string>& argomenti) {
    EsitoCaricamento e = CaricaPerCli(ctx, argomenti, false, [](const std::vector<std::string>& resto) {
        if (resto.size() == 1) return true;
        std::cerr << "fornax-cli save: indicare il file da scrivere (save PROGETTO.RTG USCITA.RTG)\n";
        return false;
    });
    if (!e.p) return e.esito;
    ProgettoCli& p = *e.p;
    // The desktop shows an opened project calculated (its document window runs the calculation
    // once as it fills the grid), and saves it so: the command saves what the desktop would.
    Ricalcola(p.s, p.msg);
    return SalvaProgetto(p.s, e.argomenti.front(), p.msg) ? ESITO_OK : ESITO_PROGETTO;
}

const bool registratoInfo =
    RegistraComando({"info", std::string("info PROGETTO.RTG ") + USO_SOSTITUISCI,
                     "carica archivi e progetto e ne stampa parametri, gas, normativa, tipo di rete e tronchi", Info});
const bool registratoSave = RegistraComando({"save", std::string("save PROGETTO.RTG USCITA.RTG ") + USO_SOSTITUISCI,
                                             "carica il progetto e lo riscrive come lo salva il programma", Save});

}  // namespace

}  // namespace fornax::cli
