// fornax-cli calc run as a script runs it: the acceptance projects through the command line,
// their JSON compared with the expected results, the table and the usage errors.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/calc/ConfrontoJson.h"
#include "tests/comune/EseguiComando.h"

using fornax::prova::EseguiComando;
using fornax::prova::Esito;

namespace {

const std::string kAccettazione = std::string(FORNAX_ACCETTAZIONE_DIR);

// Runs fornax-cli on the acceptance archives; standard error goes to `errori`.
Esito Esegui(const std::string& argomenti, const std::string& errori) {
    return EseguiComando(std::string("'") + FORNAX_CLI + "' --data '" + kAccettazione + "/archives' " + argomenti,
                         errori);
}

struct CliCalc : ::testing::Test {
    std::filesystem::path dir;
    void SetUp() override {
        dir = std::filesystem::temp_directory_path() /
              ("fornax-cli-calc-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::remove_all(dir);
        std::filesystem::create_directories(dir);
    }
    void TearDown() override { std::filesystem::remove_all(dir); }
    std::string P(const std::string& nome) const { return (dir / nome).string(); }
};

}  // namespace

TEST_F(CliCalc, IlJsonDeiProgettiDiAccettazione) {
    for (const char* nome : {"i03_chain4_2008", "i05_balanced_d3_2008", "i11_custom_locked_2008", "i14_dpmax_low_2008",
                             "p02_chain5", "p03_contemp_junction", "p04_budget_fails_halfway", "p09_roughness_mix"}) {
        SCOPED_TRACE(nome);
        const std::string json = P(std::string(nome) + ".json");
        const Esito e =
            Esegui("calc '" + kAccettazione + "/projects/" + nome + ".RTG' --json '" + json + "'", P("errori.txt"));
        ASSERT_EQ(e.stato, 0) << fornax::prova::LeggiTesto(P("errori.txt"));
        const auto atteso =
            fornax::prova::LeggiJson(fornax::prova::LeggiTesto(kAccettazione + "/expected/" + nome + ".json"));
        const auto nostro = fornax::prova::LeggiJson(fornax::prova::LeggiTesto(json));
        const auto differenze = fornax::prova::Differenze(nome, atteso, nostro);
        EXPECT_TRUE(differenze.empty()) << fornax::prova::Elenco(differenze);
        // The keys of our own beyond the expected ones.
        EXPECT_NE(nostro.Cerca("MaxPdcPercorso"), nullptr);
        EXPECT_NE(nostro["sections"].elenco.at(0).Cerca("ID_DIAMCUSTOM"), nullptr);
    }
}

TEST_F(CliCalc, LaTabellaSegnaICalcoliFalliti) {
    const Esito e = Esegui("calc '" + kAccettazione + "/projects/p04_budget_fails_halfway.RTG'", P("errori.txt"));
    ASSERT_EQ(e.stato, 0);
    // Section 4: no budget left, its drop can't be computed and nor can its final pressure.
    EXPECT_NE(e.uscita.find("   4     3   9000.00   300.00  1200.00 -               0.00        ***       -1.000    "
                            "97.44       ***     100%"),
              std::string::npos)
        << e.uscita;
    EXPECT_NE(e.uscita.find("Percorso piu' sfavorito: 3 - 2 - 1\nTOTALE PERDITA DI PRESSIONE: 52.564 kPa"),
              std::string::npos);
    EXPECT_NE(e.uscita.find("PE100        PE 250      1200.00 m"), std::string::npos);
}

TEST_F(CliCalc, ErroriDUso) {
    const std::string progetto = "'" + kAccettazione + "/projects/i03_chain4_2008.RTG'";
    EXPECT_EQ(Esegui("calc " + progetto + " --json", P("e1.txt")).stato, 2);
    EXPECT_NE(fornax::prova::LeggiTesto(P("e1.txt")).find("uso: calc PROGETTO.RTG"), std::string::npos);
    EXPECT_EQ(Esegui("calc " + progetto + " --xml a.xml", P("e2.txt")).stato, 2);
    EXPECT_EQ(Esegui("calc", P("e3.txt")).stato, 2);
    EXPECT_EQ(Esegui("calc '" + P("manca.RTG") + "'", P("e4.txt")).stato, 1);
    // A JSON file that can't be written.
    EXPECT_EQ(Esegui("calc " + progetto + " --json '" + P("nessuna/cartella/x.json") + "'", P("e5.txt")).stato, 1);
    EXPECT_NE(fornax::prova::LeggiTesto(P("e5.txt")).find("impossibile scrivere"), std::string::npos);
}
