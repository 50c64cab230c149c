// Opening and saving a project of 400 sections through the session, as the desktop and
// fornax-cli do: the open reads into a fresh document and fills the leak-test page, the save
// refreshes that page on a copy and writes through a temporary file.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

#include "core/ServiziProva.h"
#include "sessione/Sessione.h"

using namespace fornax;

namespace {

struct Ambiente {
    std::string cartella =
        (std::filesystem::temp_directory_path() / ("fornax-bench-" + std::to_string(::getpid()))).string();
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    ImpostazioniInMemoria imp;
    std::string progetto;

    Ambiente() {
        std::filesystem::create_directories(cartella);
        for (const auto& e : std::filesystem::directory_iterator(FORNAX_BUILD_DATA_DIR))
            if (e.is_regular_file())
                std::filesystem::copy_file(e.path(), cartella + "/" + e.path().filename().string(),
                                           std::filesystem::copy_options::overwrite_existing);
        auto s = std::make_unique<Sessione>(*a, imp);
        Documento* d = &s->d;
        MessaggiRegistrati msg;
        AvanzamentoNullo av;
        CaricaArchivi(*s, cartella, av, msg);
        // A tree of 400 sections: a main line with a consumer hanging from every section.
        const auto nomi = a->NomiMateriali();
        int16_t linea = NuovoTronco(*d, 0, nomi, a->Default.DefaultMateriale, msg);
        while (d->NumTronchi() < MAX_TRONCHI - 1) {
            const int16_t u = NuovoTronco(*d, linea, nomi, a->Default.DefaultMateriale, msg);
            d->T(u).ID_P_UTENZE = 1.5f;
            d->T(u).ID_NCURVE = 2;
            linea = NuovoTronco(*d, linea, nomi, a->Default.DefaultMateriale, msg);
            d->T(linea).ID_LEN = 3.25f;
        }
        progetto = cartella + "/grande.RTG";
        SalvaProgetto(*s, progetto, msg);
    }
    ~Ambiente() {
        std::error_code ec;
        std::filesystem::remove_all(cartella, ec);
    }
};

Ambiente& Amb() {
    static Ambiente amb;
    return amb;
}

void BM_ApriProgetto400(benchmark::State& st) {
    Ambiente& amb = Amb();
    auto s = std::make_unique<Sessione>(*amb.a, amb.imp);
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    for (auto _ : st) benchmark::DoNotOptimize(ApriProgetto(*s, amb.progetto, msg, av));
    st.counters["tronchi"] = s->d.NumTronchi();
}
BENCHMARK(BM_ApriProgetto400)->Unit(benchmark::kMillisecond);

void BM_SalvaProgetto400(benchmark::State& st) {
    Ambiente& amb = Amb();
    auto s = std::make_unique<Sessione>(*amb.a, amb.imp);
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    ApriProgetto(*s, amb.progetto, msg, av);
    const std::string uscita = amb.cartella + "/copia.RTG";
    for (auto _ : st) benchmark::DoNotOptimize(SalvaProgetto(*s, uscita, msg));
}
BENCHMARK(BM_SalvaProgetto400)->Unit(benchmark::kMillisecond);

}  // namespace
