// The history of the edits on a network of 400 sections: what a step costs (the comparison
// with the history's copy, the recalculation's results of the step before joining it), and an
// undo with the recalculation that follows it. The repaint is timed by bench/ui/bench_griglia.
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

#include "core/ServiziProva.h"
#include "editing/Modifiche.h"
#include "sessione/Recupero.h"
#include "sessione/Sessione.h"

using namespace fornax;

namespace {

struct Ambiente {
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    ImpostazioniInMemoria imp;
    std::unique_ptr<Sessione> s = std::make_unique<Sessione>(*a, imp);
    MessaggiRegistrati msg;

    Ambiente() {
        AvanzamentoNullo av;
        CaricaArchivi(*s, FORNAX_BUILD_DATA_DIR, av, msg, false);
        NuovoProgetto(*s, false, msg);
        Documento& d = s->d;
        // A main line with a consumer hanging from every section.
        const auto nomi = a->NomiMateriali();
        int16_t linea = NuovoTronco(d, 0, nomi, a->Default.DefaultMateriale, msg);
        while (d.NumTronchi() < MAX_TRONCHI - 1) {
            const int16_t u = NuovoTronco(d, linea, nomi, a->Default.DefaultMateriale, msg);
            d.T(u).ID_P_UTENZE = 0.5f;
            d.T(u).ID_NCURVE = 2;
            linea = NuovoTronco(d, linea, nomi, a->Default.DefaultMateriale, msg);
            d.T(linea).ID_LEN = 3.25f;
        }
        Ricalcola(*s, msg);
        s->Storia.Svuota(d);
    }

    void Cella(int riga, int valore) {
        PassoModifica passo(s->Storia, s->d, "cella");
        modifica::ConfermaCella(s->d, *a, riga, riga, Id::ID_LEN, std::to_string(valore), msg,
                                [](int) { return std::string(); });
    }
};

// One step of a cell's commit, after the recalculation of the step before (which the new step
// folds into the old one): the cost the user pays on each edit, beside the calculation.
void BM_PassoCella400(benchmark::State& st) {
    Ambiente amb;
    int k = 0;
    for (auto _ : st) {
        st.PauseTiming();
        Ricalcola(*amb.s, amb.msg);
        st.ResumeTiming();
        amb.Cella(3 + 2 * (k % 150), 4 + (k % 9));
        ++k;
    }
    st.counters["passi"] = static_cast<double>(amb.s->Storia.NumeroPassi());
    st.counters["KB_per_passo"] =
        static_cast<double>(amb.s->Storia.Memoria()) / 1024.0 / static_cast<double>(amb.s->Storia.NumeroPassi());
}
BENCHMARK(BM_PassoCella400)->Unit(benchmark::kMicrosecond);

// An undo (or a redo) followed by the recalculation, as the menu command does before the repaint.
void BM_AnnullaERicalcola400(benchmark::State& st) {
    Ambiente amb;
    for (int k = 0; k < 20; ++k) {
        amb.Cella(3 + 2 * k, 5 + k % 3);
        Ricalcola(*amb.s, amb.msg);
    }
    bool indietro = true;
    for (auto _ : st) {
        if (indietro ? !Annulla(*amb.s) : !Ripristina(*amb.s)) {
            indietro = !indietro;
            continue;
        }
        Ricalcola(*amb.s, amb.msg);
    }
}
BENCHMARK(BM_AnnullaERicalcola400)->Unit(benchmark::kMicrosecond);

// The recalculation alone, for comparison.
void BM_Ricalcola400(benchmark::State& st) {
    Ambiente amb;
    for (auto _ : st) Ricalcola(*amb.s, amb.msg);
}
BENCHMARK(BM_Ricalcola400)->Unit(benchmark::kMicrosecond);

// The recovery copy of 400 sections, written on the desktop's thread at most every 30 s.
void BM_CopiaDiRecupero400(benchmark::State& st) {
    Ambiente amb;
    amb.s->d.ReteModificata = VERO;
    const std::string cartella = "/tmp/fornax-bench-recupero-" + std::to_string(::getpid());
    Recupero r(cartella);
    for (auto _ : st) r.Scrivi(*amb.s);
    r.Rimuovi();
    std::filesystem::remove_all(cartella);
}
BENCHMARK(BM_CopiaDiRecupero400)->Unit(benchmark::kMicrosecond);

}  // namespace
