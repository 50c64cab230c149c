// Random sequences of the user's edits on a loaded project (cell commits, parents typed in a
// row, deletes of the three kinds, new sections, materials, renumbering), each followed by the
// recalculation the grid runs: never a crash, a hang, or a tree whose links disagree.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "calc/Calcolo.h"
#include "core/Documento.h"
#include "core/ServiziProva.h"
#include "documento/Progetto.h"
#include "documento/Sessione.h"
#include "editing/Cancellazione.h"
#include "editing/RegoleGriglia.h"
#include "fuzz/Ambiente.h"

using namespace fornax;

namespace {

struct Ambiente {
    std::string cartella = fuzz::CartellaLavoro("modifiche");
    Archivi a;
    Archivi base;
    std::vector<std::unique_ptr<Documento>> progetti;
    Ambiente() {
        fuzz::CopiaArchivi(cartella);
        Documento d;
        MessaggiRegistrati msg;
        AvanzamentoNullo av;
        CaricaArchivi(a, d, cartella, av, msg, false);
        for (const char* nome : {"appartamento.RTG", "bifamiliare-gpl.RTG", "rete-media-pressione.RTG"}) {
            auto p = std::make_unique<Documento>();
            *p = d;
            if (!LeggiProgetto(*p, a, std::string(FORNAX_SOURCE_DIR "/data/esempi/") + nome, msg, av))
                fuzz::Guasto("a sample project did not load");
            progetti.push_back(std::move(p));
        }
        base = a;
    }
};

// Every linked section and its parent name each other, and the parents lead back to the source.
void ControllaAlbero(const Documento& d) {
    const int n = d.NumTronchi();
    if (n < 0 || n > MAX_TRONCHI) fuzz::Guasto("section count out of range");
    for (int i = 1; i <= n; ++i) {
        const Tronco& t = d.T(i);
        if (t.ID_SCOLLEGATO != FALSO) continue;
        for (int16_t c : {t.ID_LEFT, t.ID_RIGHT}) {
            if (c < 0 || c > n) fuzz::Guasto("a derivation points outside the table");
            if (c == 0) continue;
            if (c == i) fuzz::Guasto("a section derives from itself");
            if (d.T(c).ID_PREV != i) fuzz::Guasto("a derivation does not name its parent back");
        }
        if (t.ID_LEFT > 0 && t.ID_LEFT == t.ID_RIGHT) fuzz::Guasto("both derivations are the same section");
        const int16_t p = t.ID_PREV;
        if (p < 0 || p > n) fuzz::Guasto("a parent outside the table");
        if (p > 0 && d.T(p).ID_LEFT != i && d.T(p).ID_RIGHT != i)
            fuzz::Guasto("a section names a parent that does not derive it");
        int passi = 0;
        for (int16_t q = p; q > 0 && q <= n; q = d.T(q).ID_PREV)
            if (++passi > n) fuzz::Guasto("the parents of a section go round in a ring");
    }
}

std::string Testo(FuzzedDataProvider& in, int n) {
    switch (in.ConsumeIntegralInRange(0, 3)) {
        case 0:
            return std::to_string(in.ConsumeIntegralInRange(-2, n + 3));
        case 1:
            return std::to_string(in.ConsumeFloatingPointInRange(-1e3, 1e4));
        case 2:
            return in.PickValueInArray({"", "?", "Auto", "1/2\"", "3/4\"", "DN 25", "abc", "1e40", "-0", ","});
        default:
            return in.ConsumeRandomLengthString(12);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    static Ambiente amb;
    FuzzedDataProvider in(dati, n);
    auto d = std::make_unique<Documento>(*amb.progetti[in.ConsumeIntegralInRange<size_t>(0, amb.progetti.size() - 1)]);
    Archivi& a = amb.a;
    a.Equiv = amb.base.Equiv;
    MessaggiRegistrati msg;
    const auto ricalcola = [&] {
        MessaggiRegistrati m;
        CalcolaRete(*d, a, m);
    };
    const Rinfresco r{ricalcola, ricalcola};
    const ScegliDiametro scegli = [&](int materiale) {
        const auto elenco = ElencoDiametri(a, materiale);
        return elenco.empty() ? std::string() : elenco[in.ConsumeIntegralInRange<size_t>(0, elenco.size() - 1)];
    };
    for (int passo = 0; passo < 32 && in.remaining_bytes() > 0; ++passo) {
        const int num = d->NumTronchi();
        const int da = in.ConsumeIntegralInRange(0, num + 2);
        const int fino = in.ConsumeIntegralInRange(da, std::min(num + 3, MAX_TRONCHI));
        switch (in.ConsumeIntegralInRange(0, 5)) {
            case 0: {
                const int id = in.PickValueInArray({Id::ID_P_UTENZE, Id::ID_LEN, Id::ID_EQ_LEN, Id::ID_RIF,
                                                    Id::ID_DIAMETRO, Id::ID_PREV, Id::ID_PREV, Id::ID_NAME});
                ConfermaCelle(*d, a, std::max(da, 1), std::max(fino, 1), id, Testo(in, num), msg, scegli);
                break;
            }
            case 1:
                if (da >= 1 && da <= num) CancellaSezione(*d, da, in.ConsumeIntegralInRange(1, 3), msg, r);
                break;
            case 2:
                CancellaRighe(*d, da, fino, in.ConsumeIntegralInRange(1, 3), r);
                break;
            case 3:
                NuovoTronco(*d, static_cast<int16_t>(std::min(da, num)), a.NomiMateriali(), a.Default.DefaultMateriale,
                            msg);
                break;
            case 4:
                if (a.NumMateriali() > 0)
                    ConfermaMateriale(*d, a, std::max(da, 1), std::max(fino, 1),
                                      in.ConsumeIntegralInRange(1, static_cast<int>(a.NumMateriali())));
                break;
            default:
                TagliaCoda(*d);
                CompattaRete(*d);
                break;
        }
        ricalcola();
        ControllaAlbero(*d);
    }
    return 0;
}
