// fornax-cli copia-archivi and copia-progetti run as an administrator runs them on a new machine.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/comune/EseguiComando.h"

using fornax::prova::CartellaProva;
using fornax::prova::EseguiComando;
using fornax::prova::Esito;

namespace {

struct CliCopia : ::testing::Test {
    CartellaProva vecchia{"cli-vecchia"};
    CartellaProva nuova{"cli-nuova"};
    CartellaProva casa{"cli-casa"};  // the program's folder and the user's settings

    void SetUp() override {
        vecchia.CopiaDa(FORNAX_BUILD_DATA_DIR);
        std::filesystem::create_directories(casa.Percorso("config/Fornax"));
    }
    // fornax-cli with its program's folder and settings in `casa`.
    Esito Esegui(const std::string& argomenti) const {
        return EseguiComando("XDG_CONFIG_HOME='" + casa.Percorso("config") + "' '" + FORNAX_CLI + "' --data '" +
                                 casa.Percorso() + "' " + argomenti,
                             casa.Percorso("stderr.txt"));
    }
};

}  // namespace

TEST_F(CliCopia, ArchiviInUnaCartellaVuotaPoiConflittiSecondoLOpzione) {
    const std::string cartelle = "'" + vecchia.Percorso() + "' '" + nuova.Percorso() + "'";
    Esito e = Esegui("copia-archivi " + cartelle);
    EXPECT_EQ(e.stato, 0) << e.errori;
    // The delivered folder has the limits of the two editions, not "PDCMAX.CFG".
    EXPECT_EQ(e.errori,
              "Il file PDCMAX.CFG non verrà copiato \npoichè non è presente nella cartella di provenienza.\n");
    EXPECT_NE(e.uscita.find("copiato\tGAS.CFG\n"), std::string::npos) << e.uscita;
    EXPECT_NE(e.uscita.find("mancante\tPDCMAX.CFG\n"), std::string::npos);
    EXPECT_EQ(nuova.LeggiByte("ACCIAIOM.MAT"), vecchia.LeggiByte("ACCIAIOM.MAT"));
    EXPECT_EQ(nuova.LeggiByte("GAS.CFG"), vecchia.LeggiByte("GAS.CFG"));

    // A conflict with neither option: the question is printed, nothing changes, exit status 1.
    nuova.Scrivi("ACCIAIOL.MAT", "modificato\n");
    e = Esegui("copia-archivi " + cartelle);
    EXPECT_EQ(e.stato, 1);
    EXPECT_NE(e.errori.find("La cartella di destinazione contiene già un file di nome ACCIAIOL.MAT.\n"
                            "Sovrascrivere il file esistente?"),
              std::string::npos)
        << e.errori;
    EXPECT_EQ(nuova.LeggiByte("ACCIAIOL.MAT"), "modificato\r\n");

    // --no-tutti leaves every file that is there.
    e = Esegui("copia-archivi " + cartelle + " --no-tutti");
    EXPECT_EQ(e.stato, 0) << e.errori;
    EXPECT_NE(e.uscita.find("lasciato\tACCIAIOL.MAT\n"), std::string::npos) << e.uscita;
    EXPECT_EQ(nuova.LeggiByte("ACCIAIOL.MAT"), "modificato\r\n");

    // --si-tutti replaces them and merges the gases: each gas of the destination gets "$$".
    const std::string gasPrima = nuova.LeggiByte("GAS.CFG");
    e = Esegui("copia-archivi " + cartelle + " --si-tutti");
    EXPECT_EQ(e.stato, 0) << e.errori;
    EXPECT_NE(e.uscita.find("unito\tGAS.CFG\n"), std::string::npos) << e.uscita;
    EXPECT_EQ(nuova.LeggiByte("ACCIAIOL.MAT"), vecchia.LeggiByte("ACCIAIOL.MAT"));
    const std::string gas = nuova.LeggiByte("GAS.CFG");
    EXPECT_NE(gas.find("\r\n$$METANO\t"), std::string::npos);
    EXPECT_NE(gas.find("\r\n$$AZOTO\t"), std::string::npos);
    // The eight gases marked, the comments kept, then the source appended whole.
    EXPECT_EQ(gas.size(), 2 * gasPrima.size() + 2 * 8);
    EXPECT_EQ(gas.substr(gasPrima.size() + 2 * 8), gasPrima);
}

TEST_F(CliCopia, UsoErrato) {
    EXPECT_EQ(Esegui("copia-archivi '" + vecchia.Percorso() + "'").stato, 2);
    EXPECT_EQ(Esegui("copia-archivi a b --si-tutti --no-tutti").stato, 2);
    EXPECT_EQ(Esegui("copia-progetti a --tutti").stato, 2);
    const Esito e = Esegui("copia-archivi '" + vecchia.Percorso("manca") + "' '" + nuova.Percorso() + "'");
    EXPECT_EQ(e.stato, 1);
    EXPECT_EQ(e.errori, "La cartella di provenienza non esiste.\n");
    const Esito f = Esegui("copia-archivi '" + vecchia.Percorso() + "' '" + vecchia.Percorso() + "/'");
    EXPECT_EQ(f.stato, 1);
    EXPECT_EQ(f.errori, "La cartella di provenienza e quella di destinazione coincidono.\n");
}

TEST_F(CliCopia, ProgettiNellArchivioLavoriDellaCartellaDiLavoro) {
    const std::string esempi = std::string(FORNAX_SOURCE_DIR) + "/data/esempi";
    Esito e = Esegui("copia-progetti '" + esempi + "'");
    EXPECT_EQ(e.stato, 0) << e.errori;
    // No work directory set: the program's folder's "Archivio Lavori".
    const std::string dest = casa.Percorso() + "/Archivio Lavori";
    EXPECT_NE(e.uscita.find("destinazione\t" + dest + "\n"), std::string::npos) << e.uscita;
    int progetti = 0;
    for (const auto& f : std::filesystem::directory_iterator(esempi)) {
        const std::string nome = f.path().filename().string();
        if (f.path().extension() != ".RTG") continue;
        ++progetti;
        EXPECT_EQ(CartellaProva::LeggiFile(dest + "/" + nome), CartellaProva::LeggiFile(f.path().string())) << nome;
    }
    EXPECT_GT(progetti, 0);
    e = Esegui("copia-progetti '" + esempi + "'");
    EXPECT_EQ(e.stato, 1);
    EXPECT_NE(e.errori.find("Sovrascrivere il file esistente?"), std::string::npos);
    EXPECT_EQ(Esegui("copia-progetti '" + esempi + "' --si-tutti").stato, 0);

    // With a work directory set, its own "Archivio Lavori".
    casa.Scrivi("config/Fornax/Fornax.ini", "[Recent]\nLastWorkDirectory=" + nuova.Percorso() + "\n");
    e = Esegui("copia-progetti '" + esempi + "'");
    EXPECT_EQ(e.stato, 0) << e.errori;
    EXPECT_TRUE(std::filesystem::is_directory(nuova.Percorso() + "/Archivio Lavori"));
}
