// The delivered program folder: the archives load without a message, each gas falls in its
// family, the pipe tables are usable by the sizing, and the sample projects open without a
// message and save back to the same bytes, as the desktop saves them.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "core/Servizi.h"
#include "core/ServiziProva.h"
#include "documento/Progetto.h"
#include "leaktest/AperturaTenuta.h"
#include "sessione/Sessione.h"

namespace fornax {
namespace {

namespace fs = std::filesystem;

std::string LeggiTutto(const fs::path& percorso) {
    std::ifstream in(percorso, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// A copy of the built program folder: saving a project rewrites the firm's leak-test defaults
// in the program's folder, and the build's own folder must stay as delivered.
class CartellaConsegnata : public ::testing::Test {
protected:
    void SetUp() override {
        std::string nome = ::testing::UnitTest::GetInstance()->current_test_info()->name();
        for (char& c : nome) c = c == '/' ? '-' : c;  // parameterised tests are named "Prova/0"
        cartella_ = fs::temp_directory_path() / ("fornax-dati-" + nome);
        fs::remove_all(cartella_);
        fs::copy(FORNAX_BUILD_DATA_DIR, cartella_, fs::copy_options::recursive);
        ASSERT_TRUE(CaricaArchivi(s_, cartella_.string(), av_, msg_));
    }
    void TearDown() override { fs::remove_all(cartella_); }

    fs::path cartella_;
    Archivi a_;
    ImpostazioniInMemoria imp_;
    Sessione s_{a_, imp_};
    Documento& d_ = s_.d;
    MessaggiRegistrati msg_;
    AvanzamentoNullo av_;
};

TEST_F(CartellaConsegnata, GliArchiviSiCaricanoSenzaMessaggiEOgniGasStaNellaSuaFamiglia) {
    EXPECT_TRUE(msg_.Testi().empty()) << msg_.Testi().front();
    const std::map<std::string, int> famiglie = {{"METANO", 2},
                                                 {"GAS NATURALE RETE", 2},
                                                 {"BUTANO", 3},
                                                 {"GPL BUTANO-PROPANO 70-30", 3},
                                                 {"GPL BUTANO-PROPANO 30-70", 3},
                                                 {"GAS MANIFATTURATO", 1},
                                                 {"ARIA", 0},
                                                 {"AZOTO", 0}};
    ASSERT_EQ(a_.Gas.size(), famiglie.size() + 1);
    for (size_t i = 1; i < a_.Gas.size(); ++i) {
        const GasRecord& g = a_.Gas[i];
        ASSERT_EQ(famiglie.count(g.Nome), 1u) << g.Nome;
        EXPECT_EQ(g.FamigliaErrata, 0) << g.Nome;
        if (famiglie.at(g.Nome) == 0) {
            EXPECT_NE(g.NonCombustibile, 0) << g.Nome;
        } else {
            EXPECT_EQ(g.Famiglia, famiglie.at(g.Nome)) << g.Nome;
        }
    }
    // The first gas is the program's fall-back; the default texts name archive entries.
    EXPECT_EQ(a_.Gas[1].Nome, "METANO");
    EXPECT_EQ(a_.Default.DefaultGas, "METANO");
    EXPECT_EQ(a_.Default.DefaultMateriale, "ACCIAIOM");
    // Leak-test references: families 1 and 2 set, the third left to the norm.
    EXPECT_GT(a_.ParFam[1].PressioneRiferimento, 0);
    EXPECT_GT(a_.ParFam[2].PressioneRiferimento, 0);
    EXPECT_EQ(a_.ParFam[3].PressioneRiferimento, 0);
}

TEST_F(CartellaConsegnata, OgniTabellaDiTubiSaleConIlDiametroInterno) {
    // Sizing walks a material's rows in order and takes the first that holds: the rows must
    // rise with the inner diameter, and each must have a wall.
    ASSERT_EQ(a_.Materiali.size(), 6u);
    const char* nomi[] = {"ACCIAIOL", "ACCIAIOM", "ACCIAIOP", "PE4437", "RAME-B"};
    for (size_t m = 1; m < a_.Materiali.size(); ++m) {
        const MaterialeTubo& mat = a_.Materiali[m];
        EXPECT_EQ(mat.Nome, nomi[m - 1]);
        EXPECT_GE(mat.NumRighe(), 9) << mat.Nome;
        for (int r = 1; r <= mat.NumRighe(); ++r) {
            const RigaDiametro& riga = mat.Righe[static_cast<size_t>(r)];
            EXPECT_GT(riga.Spessore, 0) << mat.Nome << " " << riga.DN;
            if (r > 1) {
                EXPECT_GT(riga.DiamInterno, mat.Righe[static_cast<size_t>(r - 1)].DiamInterno) << riga.DN;
            }
        }
    }
}

class EsempiConsegnati : public CartellaConsegnata, public ::testing::WithParamInterface<const char*> {};

TEST_P(EsempiConsegnati, SiApronoSenzaMessaggiESiRisalvanoUguali) {
    const fs::path esempio = fs::path(FORNAX_SOURCE_DIR) / "data" / "esempi" / GetParam();
    ASSERT_TRUE(ApriProgetto(s_, esempio.string(), msg_, av_));
    EXPECT_TRUE(msg_.Testi().empty()) << msg_.Testi().front();
    EXPECT_GT(d_.NumTronchi(), 2);
    // Saved as every front end saves it, the leak-test page brought up to date.
    const fs::path copia = cartella_ / "copia.RTG";
    ASSERT_TRUE(SalvaProgetto(s_, copia.string(), msg_));
    EXPECT_TRUE(msg_.Testi().empty()) << msg_.Testi().front();
    EXPECT_EQ(LeggiTutto(copia), LeggiTutto(esempio));
}

INSTANTIATE_TEST_SUITE_P(Progetti, EsempiConsegnati,
                         ::testing::Values("appartamento.RTG", "bifamiliare-gpl.RTG", "rete-media-pressione.RTG"));

TEST_F(CartellaConsegnata, GliEsempiSonoUnAppartamentoUnaBifamiliareGplEUnaReteInPressione) {
    const fs::path esempi = fs::path(FORNAX_SOURCE_DIR) / "data" / "esempi";
    ASSERT_TRUE(ApriProgetto(s_, (esempi / "appartamento.RTG").string(), msg_, av_));
    EXPECT_EQ(d_.ReteInPressione, 0);
    EXPECT_EQ(d_.GasCorrente.Famiglia, 2);

    ASSERT_TRUE(ApriProgetto(s_, (esempi / "bifamiliare-gpl.RTG").string(), msg_, av_));
    EXPECT_EQ(d_.ReteInPressione, 0);
    EXPECT_EQ(d_.Normativa, 2);
    EXPECT_EQ(d_.GasCorrente.Famiglia, 3);

    ASSERT_TRUE(ApriProgetto(s_, (esempi / "rete-media-pressione.RTG").string(), msg_, av_));
    EXPECT_NE(d_.ReteInPressione, 0);
    EXPECT_TRUE(msg_.Testi().empty());
}

}  // namespace
}  // namespace fornax
