// Any bytes as the user's settings file (Fornax.ini, shared by the desktop and the command line):
// read as far as it makes sense, never fatal; a value stored (the input's first bytes, control
// characters and all) reads back as it was; and the file written reads back to the same
// settings (stored again, it gives the same file).
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/ImpostazioniFile.h"
#include "fuzz/Ambiente.h"

using namespace fornax;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    static const std::string file = fuzz::CartellaLavoro("impostazioni") + "/Fornax.ini";
    fuzz::ScriviFile(file, std::string_view(reinterpret_cast<const char*>(dati), n));
    const std::string valore = "C:\\Lavori\\\"casa\"; prova=1 \xC3\xA0" +
                               std::string(reinterpret_cast<const char*>(dati), std::min<size_t>(n, 24));
    {
        ImpostazioniFile imp(file);
        for (const char* chiave : {"Item1", "Item2", "Item3", "Item4"}) (void)imp.Leggi("MRUFileList", chiave);
        (void)imp.Leggi("Recent", "LastWorkDirectory", "x");
        imp.Scrivi("Recent", "LastWorkDirectory", valore);
        if (!imp.UltimaScritturaRiuscita()) fuzz::Guasto("the settings could not be written");
    }
    const std::string prima = fuzz::LeggiFile(file);
    ImpostazioniFile letto(file);
    if (letto.Leggi("Recent", "LastWorkDirectory") != valore) fuzz::Guasto("a stored value reads back changed");
    letto.Scrivi("Recent", "LastWorkDirectory", valore);
    if (const std::string dopo = fuzz::LeggiFile(file); dopo != prima)
        fuzz::GuastoRiletto("the settings read again are not the ones written", prima, dopo);
    return 0;
}
