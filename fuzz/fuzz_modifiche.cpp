// Random sequences of the user's edits on a loaded project (cell commits, parents typed in a
// row, deletes of the three kinds, new sections, materials, renumbering), each followed by the
// recalculation the grid runs: never a crash, a hang, or a tree whose links disagree.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "calc/Calcolo.h"
#include "core/Documento.h"
#include "core/Numeri.h"
#include "core/ServiziProva.h"
#include "documento/Progetto.h"
#include "editing/Cancellazione.h"
#include "editing/RegoleGriglia.h"
#include "fuzz/Ambiente.h"
#include "sessione/Sessione.h"

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

// Every linked section of the table and its parent name each other. (A parent typed in a row may
// be one of the section's own descendants: the grid's rules allow that ring, and the calculation
// must get through it; a hang is caught by the fuzzer's timeout.) Records beyond the count are
// left overs, blanked when the table grows to them.
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
            if (d.T(c).ID_PREV != i) {
                std::fprintf(stderr, "section %d of %d derives %d, which names %d\n", i, n, c, d.T(c).ID_PREV);
                fuzz::Guasto("a derivation does not name its parent back");
            }
        }
        if (t.ID_LEFT > 0 && t.ID_LEFT == t.ID_RIGHT) fuzz::Guasto("both derivations are the same section");
        const int16_t p = t.ID_PREV;
        if (p < 0 || p > n) fuzz::Guasto("a parent outside the table");
        if (p > 0 && d.T(p).ID_LEFT != i && d.T(p).ID_RIGHT != i) {
            std::fprintf(stderr, "section %d of %d names %d, which derives %d and %d\n", i, n, p, d.T(p).ID_LEFT,
                         d.T(p).ID_RIGHT);
            fuzz::Guasto("a section names a parent that does not derive it");
        }
    }
}

// The links of every record of the table, one line: "i:prev/left/right" (a cut record starred).
void StampaAlbero(const Documento& d) {
    for (int i = 1; i <= d.NumTronchi(); ++i) {
        const Tronco& t = d.T(i);
        std::fprintf(stderr, " %d%s:%d/%d/%d", i, t.ID_SCOLLEGATO != FALSO ? "*" : "", t.ID_PREV, t.ID_LEFT,
                     t.ID_RIGHT);
    }
    std::fprintf(stderr, "\n");
}

// A cell's text: numbers about the table's count (a parent may be typed beyond it, up to the
// largest table and past it), other numbers, the texts a user types, or any bytes.
std::string Testo(FuzzedDataProvider& in, int n) {
    switch (in.ConsumeIntegralInRange(0, 4)) {
        case 0:
            return std::to_string(in.ConsumeIntegralInRange(-2, n + 3));
        case 1:
            return std::to_string(in.ConsumeIntegralInRange(-2, MAX_TRONCHI + 1));
        case 2:
            return std::to_string(in.ConsumeFloatingPointInRange(-1e3, 1e4));
        case 3:
            return in.PickValueInArray({"", "?", "Auto", "1/2\"", "3/4\"", "DN 25", "abc", "1e40", "-0", ","});
        default:
            return in.ConsumeRandomLengthString(12);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    static Ambiente amb;
    FuzzedDataProvider in(dati, n);
    // One document kept for the whole run, set from the chosen project by assignment: allocating
    // a few hundred kilobytes for each input would cost more than most edits.
    static const auto d = std::make_unique<Documento>();
    *d = *amb.progetti[in.ConsumeIntegralInRange<size_t>(0, amb.progetti.size() - 1)];
    Archivi& a = amb.a;
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
    // FORNAX_FUZZ_TRACCIA=1 prints the steps of an input (to read a fault found).
    static const bool traccia = std::getenv("FORNAX_FUZZ_TRACCIA") != nullptr;
    for (int passo = 0; passo < 32 && in.remaining_bytes() > 0; ++passo) {
        const int num = d->NumTronchi();
        const int da = in.ConsumeIntegralInRange(0, std::min(num + 2, MAX_TRONCHI));
        const int fino = in.ConsumeIntegralInRange(da, std::min(num + 3, MAX_TRONCHI));
        const int op = in.ConsumeIntegralInRange(0, 5);
        if (traccia) std::fprintf(stderr, "step %d: op %d rows %d..%d of %d\n", passo, op, da, fino, num);
        switch (op) {
            case 0: {
                const int id = in.PickValueInArray({Id::ID_P_UTENZE, Id::ID_LEN, Id::ID_EQ_LEN, Id::ID_RIF,
                                                    Id::ID_DIAMETRO, Id::ID_PREV, Id::ID_PREV, Id::ID_NAME});
                const std::string testo = Testo(in, num);
                if (traccia) std::fprintf(stderr, "  commit id %d text [%s]\n", id, testo.c_str());
                ConfermaCelle(*d, a, std::max(da, 1), std::max(fino, 1), id, testo, msg, scegli);
                break;
            }
            case 1:
                if (da >= 1 && da <= num) CancellaSezione(*d, da, in.ConsumeIntegralInRange(1, 3), msg, r);
                break;
            case 2:
                CancellaRighe(*d, da, fino, in.ConsumeIntegralInRange(1, 3), r);
                break;
            case 3: {
                // A drop on the schema: on a drawn section (one linked in the table), or on the
                // source of an empty network.
                const int padre = std::min(da, num);
                if ((padre == 0 && num == 0) || (padre >= 1 && d->T(padre).ID_SCOLLEGATO == FALSO))
                    NuovoTronco(*d, static_cast<int16_t>(padre), a.NomiMateriali(), a.Default.DefaultMateriale, msg);
                break;
            }
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
        if (traccia) StampaAlbero(*d);
        ControllaAlbero(*d);
    }
    return 0;
}
