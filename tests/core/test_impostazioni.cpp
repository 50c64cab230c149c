#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/ImpostazioniFile.h"

using namespace fornax;
namespace fs = std::filesystem;

TEST(ImpostazioniFile, ScriveRileggeESopportaUnFileRovinato) {
    const fs::path dir = fs::temp_directory_path() / ("fornax-imp-" + std::to_string(::getpid()));
    fs::remove_all(dir);
    const std::string p = (dir / "Fornax" / "Fornax.ini").string();
    {
        ImpostazioniFile imp(p);
        EXPECT_EQ(imp.Leggi("Ditta", "Riga1", "nessuna"), "nessuna");
        imp.Scrivi("Ditta", "Riga1", "Studio Rossi, termotecnica");
        imp.Scrivi("Ditta", "Riga2", " Via Roma 1 ");
        imp.Scrivi("MRUFileList", "Item1", "C:\\Lavori\\casa.RTG");
        EXPECT_TRUE(imp.UltimaScritturaRiuscita());
    }
    ImpostazioniFile riletto(p);
    EXPECT_EQ(riletto.Leggi("Ditta", "Riga1"), "Studio Rossi, termotecnica");
    EXPECT_EQ(riletto.Leggi("Ditta", "Riga2"), " Via Roma 1 ");
    EXPECT_EQ(riletto.Leggi("MRUFileList", "Item1"), "C:\\Lavori\\casa.RTG");

    // Any value reads back as written: line breaks, NULs and other control characters (one
    // followed by a hex digit too), quotes and backslashes.
    const char grezzo[] =
        "a\nb\rc\0"
        "1\x1f"
        "F\t\"q\"\\ #;,=\x7f";
    const std::string ostile(grezzo, sizeof grezzo - 1);
    {
        ImpostazioniFile imp(p);
        imp.Scrivi("Recent", "LastWorkDirectory", ostile);
        imp.Scrivi("Recent", "Vuoto", "");
    }
    ImpostazioniFile ostileRiletto(p);
    EXPECT_EQ(ostileRiletto.Leggi("Recent", "LastWorkDirectory"), ostile);
    EXPECT_EQ(ostileRiletto.Leggi("Recent", "Vuoto", "x"), "");
    EXPECT_EQ(ostileRiletto.Leggi("Ditta", "Riga1"), "Studio Rossi, termotecnica");

    // Escapes as QSettings writes them, quoted or not.
    std::ofstream(p, std::ios::app) << "[QSettings]\nA=C:\\\\Lavori\\tx\nB=\"\\x41\\101\\a\"\n";
    ImpostazioniFile qt(p);
    EXPECT_EQ(qt.Leggi("QSettings", "A"), "C:\\Lavori\tx");
    EXPECT_EQ(qt.Leggi("QSettings", "B"), "AA\a");

    std::ofstream(p, std::ios::app) << "\x01\x02 garbage without equals\n[broken\n=\n";
    ImpostazioniFile rovinato(p);
    EXPECT_EQ(rovinato.Leggi("Ditta", "Riga1"), "Studio Rossi, termotecnica");
    fs::remove_all(dir);
}
