// The schema of a 400-section network: one walk with its full paint on the recording surface,
// as the schema tab repaints after every edit, and the walk alone on a surface that records
// nothing. A balanced tree with a consumer on every leaf: both derivation rules, every kind of
// region, and a region table that runs out (its message counted, not shown).
#include <benchmark/benchmark.h>

#include <memory>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "core/Servizi.h"
#include "schema/Schema.h"
#include "schema/TargetRegistrato.h"

using namespace fornax;

namespace {

class MessaggiContati final : public Messaggi {
public:
    int conteggio = 0;
    int Mostra(const std::string&, int = Box::OK, const std::string& = "") override {
        ++conteggio;
        return Risposta::OK;
    }
    int ScegliSostituto(const std::string&, int, const std::vector<std::string>&) override { return 0; }
};

// A surface that draws nothing: the walk's own cost.
class TargetMuto final : public schema::SchemaTarget {
public:
    double Larghezza() const override { return 19200; }
    double Altezza() const override { return 9000; }
    void ImpostaPenna(double x, double y) override {
        x_ = x;
        y_ = y;
    }
    double PennaX() const override { return x_; }
    double PennaY() const override { return y_; }
    void ImpostaFont(const std::string&, double) override {}
    double LarghezzaTesto(const std::string& t) const override { return 77.0 * static_cast<double>(t.size()); }
    double AltezzaTesto(const std::string&) const override { return 168; }
    void Testo(const std::string&, int32_t) override {}
    void Linea(double, double, double, double, int32_t) override {}
    void Rettangolo(double, double, double, double, int32_t) override {}
    void Cerchio(double, double, double, int32_t, bool) override {}
    void Immagine(const std::string&, double, double, double, double) override {}
    void Pulisci() override {}

private:
    double x_ = 0, y_ = 0;
};

struct Rete400 {
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    std::unique_ptr<Documento> d = std::make_unique<Documento>();

    Rete400() {
        d->GasCorrente.Famiglia = 2;
        Ramo(0, 8);
    }
    void Ramo(int padre, int livello) {
        if (d->NumTronchi() >= MAX_TRONCHI) return;
        const int i = ++d->rete().NumTronchi;
        Tronco& t = d->T(i);
        t.ID_PREV = static_cast<int16_t>(padre);
        t.ID_LEN = 2.0f + static_cast<float>(livello);
        t.ID_EQ_LEN = t.ID_LEN * 1.2f;
        t.ID_DIAMETRO = "1\"";
        t.Visitato = VERO;
        t.ID_SCHEMA_SVOLTA = static_cast<int16_t>(i % 5 == 0 ? 2 : 0);
        if (padre > 0)
            (d->T(padre).ID_LEFT == 0 ? d->T(padre).ID_LEFT : d->T(padre).ID_RIGHT) = static_cast<int16_t>(i);
        if (livello == 0 || d->NumTronchi() >= MAX_TRONCHI - 1) {
            t.ID_P_TRONCO = t.ID_P_UTENZE = 1.5f;
            t.ID_TIPOUTENZA = static_cast<int16_t>(1 + i % 4);
            t.ID_RIF = "utenza " + std::to_string(i);
            return;
        }
        Ramo(i, livello - 1);
        Ramo(i, livello - 1);
    }
};

void BM_DisegnaSchema_Registrato400(benchmark::State& s) {
    Rete400 r;
    MessaggiContati msg;
    schema::StatoSchema stato(msg);
    schema::TargetRegistrato t(19200, 9000);
    for (auto _ : s) {
        t.Svuota();
        schema::DisegnaSchema(stato, *r.d, *r.a, t, {});
        benchmark::DoNotOptimize(stato.EstremiTronco.data());
    }
    s.counters["tronchi"] = r.d->NumTronchi();
    s.counters["disegnati"] = static_cast<double>(stato.Sezioni.size());
    s.counters["tratti"] = static_cast<double>(t.Tratti().size());
    s.counters["estremi"] = static_cast<double>(stato.EstremiTronco.size());
}

void BM_DisegnaSchema_SoloVisita400(benchmark::State& s) {
    Rete400 r;
    MessaggiContati msg;
    schema::StatoSchema stato(msg);
    TargetMuto t;
    for (auto _ : s) {
        schema::DisegnaSchema(stato, *r.d, *r.a, t, {});
        benchmark::DoNotOptimize(stato.EstremiTronco.data());
    }
    s.counters["tronchi"] = r.d->NumTronchi();
}

}  // namespace

BENCHMARK(BM_DisegnaSchema_Registrato400)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DisegnaSchema_SoloVisita400)->Unit(benchmark::kMillisecond);
