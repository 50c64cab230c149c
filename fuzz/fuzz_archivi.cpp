// Any bytes as one of the archive files of the program's folder: the first byte picks the
// file, the rest is its content. Loading never crashes, hangs or reads outside memory.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "archives/Speciali.h"
#include "core/ServiziProva.h"
#include "sessione/Sessione.h"

using namespace fornax;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    static const char* const NOMI[] = {"GAS.CFG",          "PROVA.mat",   "EQLEN.CFG",    "PDCMAX_2008.CFG",
                                       "defaultValue.ini", "gridgas.cne", "PARFAMGAS.CFG"};
    static const std::string cartella = [] {
        const auto p = std::filesystem::temp_directory_path() / ("fornax-fuzz-" + std::to_string(::getpid()));
        std::filesystem::create_directories(p);
        return p.string();
    }();
    if (n == 0) return 0;
    for (const char* nome : NOMI) std::filesystem::remove(cartella + "/" + nome);
    {
        std::ofstream out(cartella + "/" + NOMI[dati[0] % 7], std::ios::binary);
        out.write(reinterpret_cast<const char*>(dati + 1), static_cast<std::streamsize>(n - 1));
    }
    auto a = std::make_unique<Archivi>();
    auto d = std::make_unique<Documento>();
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    CaricaArchivi(*a, *d, cartella, av, msg, false);
    CaricaSpecialiPressione(d->Speciali, cartella, msg);
    return 0;
}
