// A whole calculation run of a 400-section network: internal installations shaped so that the
// narrowing sweep works hard, and a pressure network. The desktop recalculates after every
// edit, so a run has to stay well below what a user would notice.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "calc/Calcolo.h"
#include "core/ServiziProva.h"
#include "sessione/Sessione.h"

using namespace fornax;

namespace {

const std::string kArchivi = std::string(FORNAX_ACCETTAZIONE_DIR) + "/archives";

struct Rete400 {
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    std::unique_ptr<Documento> d = std::make_unique<Documento>();
    MessaggiRegistrati msg;
    int acciaio = 0;

    explicit Rete400(bool pressione) {
        AvanzamentoNullo av;
        CaricaArchivi(*a, *d, kArchivi, av, msg);
        for (int m = 1; m <= a->NumMateriali(); ++m)
            if (a->Materiali[static_cast<size_t>(m)].Nome == "ACCIAIOM") acciaio = m;
        d->ReteInPressione = pressione ? VERO : FALSO;
        d->Normativa = 2;
    }
    int Sezione(int padre, float utenze, float lunghezza) {
        Rete& r = d->rete();
        const int i = ++r.NumTronchi;
        Tronco& t = d->T(i);
        t.ID_PREV = static_cast<int16_t>(padre);
        t.ID_P_UTENZE = utenze;
        t.ID_LEN = lunghezza;
        t.IndiceMateriale = static_cast<int16_t>(acciaio);
        t.ID_MATERIALE = "ACCIAIOM";
        t.ID_NCURVE = 2;
        t.ID_NRUBINETTI = i % 3 == 0 ? 1 : 0;
        if (padre > 0)
            (d->T(padre).ID_LEFT == 0 ? d->T(padre).ID_LEFT : d->T(padre).ID_RIGHT) = static_cast<int16_t>(i);
        return i;
    }
};

// A building's riser: a main line of 200 sections, an appliance on every floor, flows falling
// along the line, so that each section of the line is wider than what it feeds and a trial
// candidate of every sweep, while the limit set by the user leaves room to narrow one step at
// a time.
std::unique_ptr<Rete400> Colonna() {
    auto r = std::make_unique<Rete400>(false);
    r->d->DpMax = 400.0;
    int linea = r->Sezione(0, 0.0f, 2.0f);
    for (int k = 0; r->d->NumTronchi() < MAX_TRONCHI - 1; ++k) {
        r->Sezione(linea, 0.3f + 0.05f * static_cast<float>(k % 7), 1.5f);
        linea = r->Sezione(linea, 0.0f, 0.8f);
    }
    r->Sezione(linea, 0.6f, 1.5f);
    return r;
}

// A balanced tree: junctions in eight levels, consumers of different flows on the leaves. With
// a low limit set by the user most junctions stay wider than what they feed, so that every
// sweep tries to narrow them and most trials are undone: the hardest case found for the sweep.
void Ramo(Rete400& r, int padre, int livello) {
    if (r.d->NumTronchi() >= MAX_TRONCHI) return;
    const bool foglia = livello == 0 || r.d->NumTronchi() >= MAX_TRONCHI - 1;
    const float q = 0.3f + 0.45f * static_cast<float>(r.d->NumTronchi() % 7);
    const int i = r.Sezione(padre, foglia ? q : 0.0f, 2.0f + static_cast<float>(livello));
    if (foglia) return;
    Ramo(r, i, livello - 1);
    Ramo(r, i, livello - 1);
}

std::unique_ptr<Rete400> Albero(bool pressione) {
    auto r = std::make_unique<Rete400>(pressione);
    if (pressione) {
        r->d->PressioneIniziale = 400.0;
        r->d->PressioneFinale = 150.0;
        r->d->VelocitaMassima = 20.0f;
    } else {
        r->d->DpMax = 80.0;
    }
    Ramo(*r, 0, 8);
    // Lengths of a pressure network: tens of metres.
    if (pressione)
        for (int i = 1; i <= r->d->NumTronchi(); ++i) r->d->T(i).ID_LEN *= 15.0f;
    return r;
}

void Esegui(benchmark::State& s, Rete400& r) {
    StatoCalcolo stato;
    for (auto _ : s) {
        CalcolaRete(*r.d, *r.a, stato, r.msg);
        benchmark::DoNotOptimize(r.d->T(1).ID_PDC_PERCORSO);
    }
    int falliti = 0;
    for (int i = 1; i <= r.d->NumTronchi(); ++i) falliti += r.d->T(i).ID_PDC_TRONCO < 0 ? 1 : 0;
    s.counters["tronchi"] = r.d->NumTronchi();
    s.counters["falliti"] = falliti;
    s.counters["passate"] = stato.Riduzione.passate;
    s.counters["prove"] = stato.Riduzione.prove;
    s.counters["riduzioni"] = stato.Riduzione.riduzioni;
}

void BM_CalcolaRete_ImpiantoInterno_Colonna400(benchmark::State& s) {
    auto r = Colonna();
    Esegui(s, *r);
}

void BM_CalcolaRete_ImpiantoInterno_Albero400(benchmark::State& s) {
    auto r = Albero(false);
    Esegui(s, *r);
}

void BM_CalcolaRete_RetePressione_Albero400(benchmark::State& s) {
    auto r = Albero(true);
    Esegui(s, *r);
}

}  // namespace

BENCHMARK(BM_CalcolaRete_ImpiantoInterno_Colonna400)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CalcolaRete_ImpiantoInterno_Albero400)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CalcolaRete_RetePressione_Albero400)->Unit(benchmark::kMillisecond);
