// Where the program finds its folder: beside the executable in a build, in the installed tree's
// share/fornax wherever the tree was moved, and, when that folder is read-only, in the user's own
// copy made on the first start and used from then on.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "core/Cartelle.h"
#include "tests/comune/CartellaProva.h"
#include "tests/core/Figlio.h"

using namespace fornax;
using namespace fornax::prova;
namespace fs = std::filesystem;

namespace {

// A program's folder: the column file, an archive, a sample project in a subfolder.
void Riempi(const CartellaProva& dir, const std::string& sotto) {
    fs::create_directories(dir.Percorso(sotto + "/esempi"));
    dir.ScriviByte(sotto + "/gridgas.cne", "colonne");
    dir.ScriviByte(sotto + "/GAS.CFG", "METANO\r\n");
    dir.ScriviByte(sotto + "/esempi/casa.RTG", "FX 5.1.0\r\n");
}

void SoloLettura(const std::string& cartella) {
    for (const auto& e : fs::recursive_directory_iterator(cartella))
        fs::permissions(e.path(), fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                        fs::perm_options::remove);
    fs::permissions(cartella, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
}

}  // namespace

TEST(CartellaProgramma, BuildInstallazioneSpostataEFornaxHome) {
    CartellaProva dir("programma");
    ::unsetenv("FORNAX_HOME");
    Riempi(dir, "build");
    Riempi(dir, "altrove/share/fornax");
    fs::create_directories(dir.Percorso("altrove/bin"));
    fs::create_directories(dir.Percorso("vuota/bin"));
    Riempi(dir, "dati-build");
    struct Caso {
        std::string eseguibile, atteso;
    };
    const Caso casi[] = {
        {dir.Percorso("build"), dir.Percorso("build")},                       // a build tree
        {dir.Percorso("altrove/bin"), dir.Percorso("altrove/share/fornax")},  // an installed tree, moved
        {dir.Percorso("vuota/bin"), dir.Percorso("dati-build")},              // neither: the build's data
    };
    for (const Caso& c : casi) EXPECT_EQ(SceltaCartellaProgramma(c.eseguibile, dir.Percorso("dati-build")), c.atteso);
    ::setenv("FORNAX_HOME", dir.Percorso("build").c_str(), 1);
    EXPECT_EQ(SceltaCartellaProgramma(dir.Percorso("altrove/bin"), ""), dir.Percorso("build"));
    ::unsetenv("FORNAX_HOME");
}

TEST(CartellaProgramma, InstallazioneDiSolaLetturaCopiataAlPrimoAvvio) {
    CartellaProva dir("copia-utente");
    Riempi(dir, "usr/share/fornax");
    fs::create_directories(dir.Percorso("usr/bin"));
    fs::create_directories(dir.Percorso("home"));
    const std::string installata = dir.Percorso("usr/share/fornax");
    SoloLettura(dir.Percorso("usr"));
    const uid_t utente = UtenteComune();
    if (utente != STESSO_UTENTE) {
        ASSERT_EQ(::chown(dir.Percorso("home").c_str(), utente, utente), 0);
    }
    const std::string copia = dir.Percorso("home/.local/share/Fornax");

    // The first start, as an ordinary user with HOME set and no XDG_DATA_HOME: the copy is made.
    const int primo = InFiglio(
        [&] {
            ::unsetenv("FORNAX_HOME");
            ::unsetenv("XDG_DATA_HOME");
            ::setenv("HOME", dir.Percorso("home").c_str(), 1);
            if (SceltaCartellaProgramma(dir.Percorso("usr/bin"), "/nessuna") != copia) return 1;
            // The user's copy is his: what he changes there is what the next start uses.
            if (std::system(("printf 'GPL\\r\\n' > '" + copia + "/GAS.CFG'").c_str()) != 0) return 2;
            return SceltaCartellaProgramma(dir.Percorso("usr/bin"), "/nessuna") == copia ? 0 : 3;
        },
        utente);
    ASSERT_EQ(primo, 0);
    EXPECT_EQ(dir.LeggiByte("home/.local/share/Fornax/gridgas.cne"), "colonne");
    EXPECT_EQ(dir.LeggiByte("home/.local/share/Fornax/esempi/casa.RTG"), "FX 5.1.0\r\n");
    EXPECT_EQ(dir.LeggiByte("home/.local/share/Fornax/GAS.CFG"), "GPL\r\n");
    EXPECT_EQ(dir.LeggiByte("usr/share/fornax/GAS.CFG"), "METANO\r\n");
    EXPECT_FALSE(fs::exists(dir.Percorso("home/.local/share/Fornax.fornax-tmp")));

    // A data folder that exists without the archives (another program's files) gets what is
    // missing, and the user's own files stay.
    const int secondo = InFiglio(
        [&] {
            const std::string altra = dir.Percorso("home/xdg");
            ::setenv("XDG_DATA_HOME", altra.c_str(), 1);
            fs::create_directories(altra + "/Fornax");
            if (std::system(("printf 'mio' > '" + altra + "/Fornax/note.txt'").c_str()) != 0) return 2;
            return SceltaCartellaProgramma(dir.Percorso("usr/bin"), "/nessuna") == altra + "/Fornax" ? 0 : 1;
        },
        utente);
    ASSERT_EQ(secondo, 0);
    EXPECT_EQ(dir.LeggiByte("home/xdg/Fornax/note.txt"), "mio");
    EXPECT_EQ(dir.LeggiByte("home/xdg/Fornax/gridgas.cne"), "colonne");
    fs::permissions(dir.Percorso("usr"), fs::perms::owner_all);
    for (const auto& e : fs::recursive_directory_iterator(dir.Percorso("usr")))
        fs::permissions(e.path(), fs::perms::owner_write, fs::perm_options::add);
}
