// fornax-cli schema: the schema of a project laid out as the schema tab lays it out, without a
// window; with --json the walk's figures, every section placed and the free ends offered.
#include <charconv>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "calc/Calcolo.h"
#include "cli/Caricamento.h"
#include "core/ServiziProva.h"
#include "schema/Schema.h"
#include "schema/SchemaJson.h"
#include "schema/TargetRegistrato.h"
#ifdef FORNAX_PDF
#include "reports/ui/SchemaSuCarta.h"
#endif

namespace fornax::cli {

namespace {

constexpr const char* kUso =
    "schema PROGETTO.RTG [--json USCITA.json] [--png FILE.png] [--svg FILE.svg] [--area LxA] [--schermo LxA] "
    "[--zoom N]";

struct OpzioniSchema {
    std::string json;
    std::string png, svg;                      // the picture as the schema tab shows it, on white
    double larghezza = 19200, altezza = 9000;  // picDisplay, twips
    double schermoL = schema::LARGHEZZA_SCHERMO, schermoA = schema::ALTEZZA_SCHERMO;
    int zoom = 0;
};

std::optional<double> Numero(const std::string& t) {
    double v = 0;
    const auto r = std::from_chars(t.data(), t.data() + t.size(), v);
    if (r.ec != std::errc() || r.ptr != t.data() + t.size()) return std::nullopt;
    return v;
}

// "LxA": two positive sizes in twips.
bool Dimensioni(const std::string& t, double& l, double& a) {
    const size_t x = t.find_first_of("xX");
    if (x == std::string::npos) return false;
    const auto nl = Numero(t.substr(0, x)), na = Numero(t.substr(x + 1));
    if (!nl || !na || !(*nl > 0) || !(*na > 0) || *nl > 1e7 || *na > 1e7) return false;
    l = *nl;
    a = *na;
    return true;
}

bool LeggiOpzioni(const std::vector<std::string>& resto, OpzioniSchema& o) {
    for (size_t i = 0; i < resto.size(); ++i) {
        const std::string& x = resto[i];
        if (i + 1 >= resto.size()) {
            std::cerr << "fornax-cli schema: opzione '" << x << "' senza valore o sconosciuta\n";
            return false;
        }
        const std::string& v = resto[++i];
        if (x == "--json") {
            o.json = v;
        } else if (x == "--png" || x == "--svg") {
            const std::string est = v.size() >= 4 ? v.substr(v.size() - 4) : "";
            const bool png = x == "--png";
            if (est != (png ? ".png" : ".svg") && est != (png ? ".PNG" : ".SVG")) {
                std::cerr << "fornax-cli schema: " << x << " richiede un file con estensione "
                          << (png ? ".png" : ".svg") << "\n";
                return false;
            }
            (png ? o.png : o.svg) = v;
        } else if (x == "--area") {
            if (!Dimensioni(v, o.larghezza, o.altezza)) {
                std::cerr << "fornax-cli schema: --area richiede LARGHEZZAxALTEZZA in twip (es. 19200x9000)\n";
                return false;
            }
        } else if (x == "--schermo") {
            if (!Dimensioni(v, o.schermoL, o.schermoA)) {
                std::cerr << "fornax-cli schema: --schermo richiede LARGHEZZAxALTEZZA in twip (es. 12000x9000)\n";
                return false;
            }
        } else if (x == "--zoom") {
            const auto z = Numero(v);
            if (!z || *z != static_cast<int>(*z) || *z < schema::ZOOM_MIN || *z > schema::ZOOM_MAX) {
                std::cerr << "fornax-cli schema: --zoom richiede un intero da -12 a 5\n";
                return false;
            }
            o.zoom = static_cast<int>(*z);
        } else {
            std::cerr << "fornax-cli schema: opzione sconosciuta '" << x << "'\n";
            return false;
        }
    }
    return true;
}

int Schema(ContestoCli& ctx, const std::vector<std::string>& argomenti) {
    OpzioniSchema o;
    EsitoCaricamento e = CaricaPerCli(ctx, argomenti, false, [&](const std::vector<std::string>& resto) {
        if (LeggiOpzioni(resto, o)) return true;
        std::cerr << "fornax-cli schema: uso: " << kUso << "\n";
        return false;
    });
    if (!e.p) return e.esito;
#ifndef FORNAX_PDF
    if (!o.png.empty() || !o.svg.empty()) {
        std::cerr << "fornax-cli schema: le immagini PNG e SVG dello schema non sono disponibili in questa versione "
                     "del programma (costruita senza Qt)\n";
        return ESITO_USO;
    }
#endif
    ProgettoCli& p = *e.p;
    // The walk reads what the calculation marks as reached; the project as stored, calculated once.
    CalcolaRete(p.d, p.a, p.msg);

    MessaggiRegistrati messaggi;
    schema::StatoSchema stato(messaggi);
    stato.Zoom = static_cast<int16_t>(o.zoom);
    stato.LarghezzaSchermo = o.schermoL;
    stato.AltezzaSchermo = o.schermoA;
    schema::TargetRegistrato target(o.larghezza, o.altezza);
    schema::ChiamataSchema chiamata;  // picDisplay, "Arial" 7
    schema::DisegnaSchema(stato, p.d, p.a, target, chiamata);
    const std::vector<std::string> testi = messaggi.Testi();
    for (const std::string& t : testi) std::cerr << t << "\n";

    const schema::ParametriWalk& w = stato.Parametri;
    std::cout << "Fattore " << w.Fattore << ", passo " << w.SX << " x " << w.SY << ", origine (" << w.X0 << ", " << w.Y0
              << ")\n"
              << "Tronchi disegnati: " << stato.Sezioni.size() << "\n"
              << "Estremi liberi: " << stato.EstremiTronco.size() << " per un tronco, " << stato.EstremiUtenza.size()
              << " per un'utenza\n";
    if (!o.json.empty()) {
        std::ofstream f(o.json, std::ios::binary | std::ios::trunc);
        f << schema::SchemaJson(stato, testi);
        f.close();
        if (!f) {
            std::cerr << "fornax-cli schema: impossibile scrivere '" << o.json << "'\n";
            return ESITO_PROGETTO;
        }
    }
#ifdef FORNAX_PDF
    VistaSchemaFile vista;
    vista.larghezza = o.larghezza;
    vista.altezza = o.altezza;
    vista.schermoL = o.schermoL;
    vista.schermoA = o.schermoA;
    vista.zoom = o.zoom;
    for (const std::string* f : {&o.png, &o.svg}) {
        if (f->empty()) continue;
        if (!SalvaVistaSchema(p.d, p.a, p.msg, vista, *f)) {
            std::cerr << "fornax-cli schema: impossibile scrivere '" << *f << "'\n";
            return ESITO_PROGETTO;
        }
    }
#endif
    return ESITO_OK;
}

const bool registratoSchema = RegistraComando(
    {"schema", std::string(kUso) + " " + USO_SOSTITUISCI,
     "dispone lo schema della rete come la scheda Schema (area e schermo in twip, zoom da -12 a 5); "
     "con --json ne scrive i parametri, i tronchi disegnati e gli estremi liberi; con --png e --svg l'immagine "
     "come la mostra la scheda, su fondo bianco (solo nella versione con Qt)",
     Schema});

}  // namespace

}  // namespace fornax::cli
