// The acceptance projects: each is loaded on the acceptance archives as the program's folder,
// calculated once, written out as the command line's JSON, read back and compared field by
// field with the results of an independent implementation, exactly at the field's width.

#include <gtest/gtest.h>

#include <memory>

#include "archives/Archivi.h"
#include "calc/Calcolo.h"
#include "calc/RisultatiJson.h"
#include "core/ServiziProva.h"
#include "sessione/Sessione.h"
#include "tests/calc/ConfrontoJson.h"

using namespace fornax;
using fornax::prova::Json;

namespace {

const std::string kAccettazione = std::string(FORNAX_ACCETTAZIONE_DIR);

class Accettazione : public ::testing::TestWithParam<std::string> {};

}  // namespace

TEST_P(Accettazione, IRisultatiCoincidonoBitPerBit) {
    const std::string nome = GetParam();
    auto a = std::make_unique<Archivi>();
    ImpostazioniInMemoria imp;
    auto s = std::make_unique<Sessione>(*a, imp);
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    // The acceptance folder holds no column file: a calculation doesn't need one.
    CaricaArchivi(*s, kAccettazione + "/archives", av, msg);
    ASSERT_GT(a->NumGas(), 0);
    ASSERT_GT(a->NumMateriali(), 0);
    ASSERT_TRUE(ApriProgetto(*s, kAccettazione + "/projects/" + nome + ".RTG", msg, av));
    const size_t messaggiCaricamento = msg.mostrati.size();

    // The command line's calculation: once, on the project as opened, with a fresh work table.
    Ricalcola(*s, msg);
    EXPECT_EQ(msg.mostrati.size(), messaggiCaricamento) << "un calcolo corretto non mostra messaggi";

    const Json nostro = prova::LeggiJson(RisultatiJson(s->d, *a));
    const Json atteso = prova::LeggiJson(prova::LeggiTesto(kAccettazione + "/expected/" + nome + ".json"));
    const auto differenze = prova::Differenze(nome, atteso, nostro);
    EXPECT_TRUE(differenze.empty()) << differenze.size() << " differenze:\n" << prova::Elenco(differenze);
}

INSTANTIATE_TEST_SUITE_P(Progetti, Accettazione,
                         ::testing::Values("i03_chain4_2008", "i05_balanced_d3_2008", "i11_custom_locked_2008",
                                           "i14_dpmax_low_2008", "p02_chain5", "p03_contemp_junction",
                                           "p04_budget_fails_halfway", "p09_roughness_mix"),
                         [](const testing::TestParamInfo<std::string>& info) { return info.param; });
