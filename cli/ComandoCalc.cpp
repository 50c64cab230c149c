// fornax-cli calc: a project calculated as the desktop's recalculation does, its results as a
// table with the grid's marks, and as JSON for scripts.
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "calc/Calcolo.h"
#include "calc/Computo.h"
#include "calc/RisultatiJson.h"
#include "calc/Verifica.h"
#include "cli/Caricamento.h"
#include "cli/Tabella.h"
#include "core/Numeri.h"

namespace fornax::cli {

namespace {

// A result with its mark: "***" where it couldn't be computed, a trailing "!" where the grid
// shows it in red.
std::string Valore(float v, const char* pattern, bool fallito, bool fuoriLimite) {
    if (fallito) return "***";
    return FormattaNumero(v, pattern) + (fuoriLimite ? "!" : "");
}

void StampaRisultati(std::ostream& out, const Documento& d, const Archivi& a) {
    const bool pressione = d.ReteInPressione != 0;
    const char* unita = pressione ? "kPa" : "Pa";
    std::vector<Tabella::Colonna> colonne = {{"N.", 4},        {"Padre", 5},       {"Portata", 9},
                                             {"L.eq.", 8},     {"L.perc.", 8},     {"DN", -10},
                                             {"Velocita'", 9}, {"Pdc tronco", 10}, {"Pdc percorso", 12}};
    std::vector<std::string> titoli, unitaColonne = {"", "", "Nmc/h", "m", "m", "", "m/s", unita, unita};
    if (pressione) {
        colonne.push_back({"P.testa", 8});
        colonne.push_back({"P.finale", 9});
        colonne.push_back({"Contemp.", 8});
        unitaColonne.insert(unitaColonne.end(), {"kPa", "kPa", ""});
    }
    size_t larghezza = 0;
    for (const auto& c : colonne) {
        titoli.push_back(c.titolo);
        larghezza += static_cast<size_t>(c.larghezza < 0 ? -c.larghezza : c.larghezza) + 1;
    }
    const Tabella t(colonne);
    out << "\n" << t.Riga(titoli) << t.Riga(unitaColonne) << std::string(larghezza - 1, '-') << "\n";
    for (int i = 1; i <= d.NumTronchi(); ++i) {
        const Tronco& x = d.T(i);
        if (x.Visitato == FALSO) continue;  // cut off the tree: the views show what the run reached
        const Verdetti v = VerificaTronco(a, d, i);
        std::string dn = x.ID_DIAMETRO.empty() ? "-" : x.ID_DIAMETRO;
        if (x.ID_DIAMCUSTOM != 0) dn += "*";
        if (v.diametroInsufficiente) dn += "?";
        std::vector<std::string> c = {
            std::to_string(i),
            std::to_string(x.ID_PREV),
            FormattaNumero(x.ID_P_TRONCO, "##0.00") + (v.contemporaneita ? "!" : ""),
            FormattaNumero(x.ID_EQ_LEN, "##0.00"),
            FormattaNumero(x.LenPercorso, "##0.00"),
            dn,
            Valore(x.ID_VELOCITA, "##0.00", false, v.velocitaOltre),
            Valore(x.ID_PDC_TRONCO, "##0.000", v.perditaFallita, false),
            Valore(x.ID_PDC_PERCORSO, "##0.000", false, v.percorsoOltre),
        };
        if (pressione) {
            c.push_back(FormattaNumero(x.PressioneTesta, "##0.00"));
            c.push_back(Valore(x.ID_PFINALE, "##0.00", v.pressioneFallita, v.pressioneBassa));
            c.push_back(x.IsUtenza() ? "" : std::to_string(x.ID_CONTEMP) + "%");
        }
        out << t.Riga(c);
    }
    out << "(* diametro bloccato dall'utente; ? diametro insufficiente; ! fuori limite; "
           "*** non calcolabile)\n\n";

    if (pressione) {
        out << "Pressione iniziale:  " << FormattaNumero(d.PressioneIniziale, "##0.0#") << " kPa\n"
            << "Pressione finale:    " << FormattaNumero(d.PressioneFinale, "##0.0#") << " kPa\n"
            << "Velocita' massima:   " << FormattaNumero(d.VelocitaMassima, "##0.0#") << " m/s\n";
    } else {
        out << "Perdita massima:     " << FormattaNumero(LimitePdc(d), "##0.0#") << " Pa"
            << (d.DpMax > 0 ? "" : " (automatica)") << "\n";
    }
    const std::vector<int16_t> percorso = PercorsoSfavorito(d);
    out << "Percorso piu' sfavorito: ";
    if (percorso.empty()) {
        out << "nessuno\n";
    } else {
        for (size_t k = 0; k < percorso.size(); ++k) out << (k > 0 ? " - " : "") << percorso[k];
        out << "\nTOTALE PERDITA DI PRESSIONE: " << FormattaNumero(d.T(percorso.front()).ID_PDC_PERCORSO, "##0.000")
            << " " << unita << "\n";
    }
}

void StampaComputo(std::ostream& out, const Archivi& a, const Documento& d) {
    const ComputoTubi computo = CalcolaComputo(d, a);
    out << "\nComputo delle tubazioni\n";
    Tabella t({{"Materiale", -12}, {"DN", -10}, {"Lunghezza", 10}, {"Peso", 10}});
    out << t.Intestazione();
    for (int m = 1; m <= a.NumMateriali(); ++m) {
        const MaterialeTubo& mat = a.Materiali[static_cast<size_t>(m)];
        const ComputoTubi::Materiale& tot = computo.Materiali[static_cast<size_t>(m)];
        if (tot.Totalizzato == 0) continue;
        for (int r = 1; r <= mat.NumRighe(); ++r) {
            const float lunghezza = tot.LunghezzaTotale[static_cast<size_t>(r)];
            if (lunghezza == 0) continue;
            out << t.Riga(
                {mat.Nome, mat.Righe[static_cast<size_t>(r)].DN, FormattaNumero(lunghezza, "##0.00") + " m", ""});
        }
        out << t.Riga({mat.Nome, "totale", "", FormattaNumero(tot.PesoTotale, "##0.00") + " kg"});
    }
    out << "Peso totale acciaio: " << FormattaNumero(computo.PesoTotaleAcciaio, "##0.00") << " kg\n"
        << "Capacita' delle tubazioni: " << FormattaNumero(VolumeTubazioni(d, a) / 1000.0, "##0.0") << " litri\n";
}

int Calc(ContestoCli& ctx, const std::vector<std::string>& argomenti) {
    EsitoCaricamento e = CaricaPerCli(ctx, argomenti, false, [](const std::vector<std::string>& resto) {
        if (resto.empty() || (resto.size() == 2 && resto[0] == "--json")) return true;
        std::cerr << "fornax-cli calc: uso: calc PROGETTO.RTG [--json USCITA.json]\n";
        return false;
    });
    if (!e.p) return e.esito;
    ProgettoCli& p = *e.p;
    // The project as stored, speed and pressures included, calculated once.
    Ricalcola(p.s, p.msg);
    StampaRisultati(std::cout, p.d, p.a);
    StampaComputo(std::cout, p.a, p.d);
    if (e.argomenti.size() == 2) {
        const std::string& uscita = e.argomenti[1];
        std::ofstream f(uscita, std::ios::binary | std::ios::trunc);
        f << RisultatiJson(p.d, p.a);
        f.close();
        if (!f) {
            std::cerr << "fornax-cli calc: impossibile scrivere '" << uscita << "'\n";
            return ESITO_PROGETTO;
        }
    }
    return ESITO_OK;
}

const bool registratoCalc =
    RegistraComando({"calc", std::string("calc PROGETTO.RTG [--json USCITA.json] ") + USO_SOSTITUISCI,
                     "calcola la rete come il ricalcolo del programma e ne stampa i risultati, il percorso piu' "
                     "sfavorito e il computo; con --json li scrive in JSON",
                     Calc});

}  // namespace

}  // namespace fornax::cli
