// Any bytes as the user's settings file (Fornax.ini, shared with the desktop's QSettings): read
// as far as it makes sense, never fatal; and once a value is stored, the file the command writes
// reads back to the same settings (stored again, it gives the same file).
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
    const std::string valore = "C:\\Lavori\\\"casa\"; prova=1 \xC3\xA0";
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
