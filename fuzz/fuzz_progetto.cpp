// Any bytes given to the project reader: never a crash, a hang or a wrong memory access; and
// whatever is loaded survives a round trip: written, read again and written again, it gives the
// same file, so the document read back is the document that was saved.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "core/FileTesto.h"
#include "core/ServiziProva.h"
#include "documento/Progetto.h"
#include "fuzz/Ambiente.h"
#include "sessione/Sessione.h"

using namespace fornax;

namespace {

// The archives are loaded once and only read from then on: what a project swaps in (the
// fittings of its kind of network, the limits of its norm edition, the substitutions of unknown
// names) belongs to its document, which is blanked before each input, so that every input meets
// the same archives and a fault reproduces.
struct Ambiente {
    std::string cartella = fuzz::CartellaLavoro("progetto");
    Archivi a;
    Ambiente() {
        fuzz::CopiaArchivi(cartella);
        Documento d;
        MessaggiRegistrati msg;
        AvanzamentoNullo av;
        CaricaArchivi(a, d, cartella, av, msg, false);
    }
};

bool Carica(Ambiente& amb, Documento& d, std::string_view byte) {
    MessaggiRegistrati msg;
    msg.scelte.assign(1000, 1);  // every unknown gas or material takes the first of the archive
    AvanzamentoNullo av;
    FileTesto f;
    f.ApriDaTesto(byte);
    return LeggiProgettoDa(f, d, amb.a, "fuzz.RTG", msg, av);
}

// The bytes a save would write: the project's lines in the file's encoding, composed as the
// save composes them (the safe writer itself is tested on real files elsewhere).
std::string Salvato(Ambiente& amb, Documento& d) {
    ScrittoreTesto w;
    ComponiProgetto(d, amb.a, w);
    return w.Byte();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    static Ambiente amb;
    // Two documents kept for the whole run and blanked by assignment: a document is a few hundred
    // kilobytes, and allocating it for each input would cost more than reading the input.
    static const auto vuoto = std::make_unique<const Documento>();
    static const auto d = std::make_unique<Documento>();
    static const auto d2 = std::make_unique<Documento>();
    *d = *vuoto;
    if (!Carica(amb, *d, std::string_view(reinterpret_cast<const char*>(dati), n))) return 0;
    const std::string prima = Salvato(amb, *d);

    *d2 = *vuoto;
    if (!Carica(amb, *d2, prima)) fuzz::Guasto("a saved project could not be read again");
    if (const std::string dopo = Salvato(amb, *d2); dopo != prima)
        fuzz::GuastoRiletto("the project read again is not the one saved", prima, dopo);
    return 0;
}
