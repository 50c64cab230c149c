// The report of a 400-section project written to a file, as the print dialog writes it: a
// block of a hundred floors, each with a feed, a boiler and a cooker. The run calculates the
// network first and writes every section but the schema.
#include <benchmark/benchmark.h>

#include <unistd.h>
#include <cstdio>
#include <memory>
#include <string>

#include "archives/Materiali.h"
#include "core/ServiziProva.h"
#include "leaktest/AperturaTenuta.h"
#include "reports/Stampa.h"
#include "sessione/Sessione.h"

using namespace fornax;

namespace {

struct Condominio {
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    ImpostazioniInMemoria imp;
    std::unique_ptr<Sessione> s = std::make_unique<Sessione>(*a, imp);
    Documento* d = &s->d;
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    OpzioniStampa o;
    std::string uscita = "/tmp/fornax-bench-relazione-" + std::to_string(::getpid());
    bool pronto = false;  // the program folder of the build, column file included

    Condominio() {
        pronto = CaricaArchivi(*s, FORNAX_BUILD_DATA_DIR, av, msg);
        d->Riferimento = "Condominio di cento piani";
        int montante = 0;
        for (int piano = 1; d->NumTronchi() + 4 <= MAX_TRONCHI; ++piano) {
            montante = Sezione(montante, "ACCIAIOM", 0.0f, 3.0f, 0);
            const int app = Sezione(montante, "RAME-B", 0.0f, 2.5f, 0);
            Sezione(app, "RAME-B", 2.54f, 4.0f, TipoUtenza::CALDAIA);
            Sezione(app, "RAME-B", 0.86f, 3.0f, TipoUtenza::FORNELLO);
        }
        // The leak-test page as opening a project fills it.
        ApriPaginaTenuta(*d, *a, s->PaginaTenuta, msg);
        o.selezione = ReportSelection::DaLettere("AABAAAAA");
        o.DataStampa = "01/02/2026";
        o.DittaRiga1 = "Studio Termotecnico Rossi";
        o.DittaRiga2 = "Via Roma 1, Milano";
    }
    ~Condominio() {
        std::remove((uscita + ".html").c_str());
        std::remove((uscita + ".txt").c_str());
    }
    int Sezione(int padre, const char* materiale, float utenza, float lunghezza, int16_t tipo) {
        const int i = ++d->rete().NumTronchi;
        Tronco& t = d->T(i);
        t.ID_PREV = static_cast<int16_t>(padre);
        t.ID_MATERIALE = materiale;
        t.IndiceMateriale = static_cast<int16_t>(IndiceMateriale(*a, materiale));
        t.ID_P_UTENZE = utenza;
        t.ID_LEN = lunghezza;
        t.ID_TIPOUTENZA = tipo;
        t.ID_NCURVE = 2;
        if (padre > 0)
            (d->T(padre).ID_LEFT == 0 ? d->T(padre).ID_LEFT : d->T(padre).ID_RIGHT) = static_cast<int16_t>(i);
        return i;
    }
};

void BM_RelazioneHtml400(benchmark::State& s) {
    Condominio c;
    if (!c.pronto) s.SkipWithError("cartella del programma senza gridgas.cne: costruire prima fornax_data");
    for (auto _ : s) {
        const EsitoStampa e = RelazioneSuFile(*c.s, true, c.o, c.uscita + ".html", c.av, c.msg);
        if (!e.riuscita) s.SkipWithError(e.descrizione.c_str());
    }
    s.counters["tronchi"] = c.d->NumTronchi();
}
BENCHMARK(BM_RelazioneHtml400)->Unit(benchmark::kMillisecond);

void BM_RelazioneTesto400(benchmark::State& s) {
    Condominio c;
    if (!c.pronto) s.SkipWithError("cartella del programma senza gridgas.cne: costruire prima fornax_data");
    for (auto _ : s) {
        const EsitoStampa e = RelazioneSuFile(*c.s, false, c.o, c.uscita + ".txt", c.av, c.msg);
        if (!e.riuscita) s.SkipWithError(e.descrizione.c_str());
    }
}
BENCHMARK(BM_RelazioneTesto400)->Unit(benchmark::kMillisecond);

}  // namespace
