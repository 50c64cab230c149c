// Any bytes given to the project reader: never a crash, a hang or a wrong memory access,
// and whatever is loaded can be written again.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "core/FileTesto.h"
#include "core/ServiziProva.h"
#include "documento/Progetto.h"
#include "sessione/Sessione.h"

using namespace fornax;

namespace {

struct Ambiente {
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    Ambiente() {
        auto d = std::make_unique<Documento>();
        MessaggiRegistrati msg;
        AvanzamentoNullo av;
        CaricaArchivi(*a, *d, FORNAX_SOURCE_DIR "/data", av, msg, false);
        a->Cartella = "/nonexistent-fornax-fuzz";  // saving the firm's defaults must fail quietly
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    static Ambiente amb;
    auto d = std::make_unique<Documento>();
    MessaggiRegistrati msg;
    msg.scelte = {1, 1, 1, 1};
    AvanzamentoNullo av;
    FileTesto f;
    f.ApriDaTesto(std::string_view(reinterpret_cast<const char*>(dati), n));
    Archivi a = *amb.a;
    if (LeggiProgettoDa(f, *d, a, "fuzz.RTG", msg, av)) ScriviProgetto(*d, a, "/nonexistent-fornax-fuzz/x.RTG", msg);
    return 0;
}
