// The acceptance projects: each is loaded on the acceptance archives as the program's folder,
// calculated once, written out as the command line's JSON, read back and compared field by
// field with the results of an independent implementation, exactly at the field's width.

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

#include "archives/Archivi.h"
#include "calc/Calcolo.h"
#include "calc/RisultatiJson.h"
#include "core/ServiziProva.h"
#include "core/documento/Progetto.h"
#include "core/documento/Sessione.h"
#include "tests/calc/JsonMinimo.h"

using namespace fornax;
using fornax::prova::Json;

namespace {

const std::string kAccettazione = std::string(FORNAX_SHARED_DIR) + "/acceptance";

std::string LeggiFile(const std::string& percorso) {
    std::ifstream in(percorso, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

// The fields kept in double; every other number is a float.
bool Doppio(const std::string& chiave) { return chiave == "VolumeTubazioni"; }

std::string Bits(float v) {
    uint32_t b;
    std::memcpy(&b, &v, sizeof b);
    std::ostringstream s;
    s << std::hex << b;
    return s.str();
}

// Compares every key the expected value holds with ours; collects the differences as text.
void Confronta(const std::string& dove, const Json& atteso, const Json& nostro, const std::string& chiave,
               std::vector<std::string>& differenze) {
    if (atteso.tipo != nostro.tipo) {
        differenze.push_back(dove + ": tipo diverso");
        return;
    }
    switch (atteso.tipo) {
        case Json::Tipo::Oggetto:
            for (const auto& [k, v] : atteso.oggetto) {
                const Json* n = nostro.Cerca(k);
                if (n == nullptr) {
                    differenze.push_back(dove + "." + k + ": assente");
                    continue;
                }
                Confronta(dove + "." + k, v, *n, k, differenze);
            }
            break;
        case Json::Tipo::Elenco:
            if (atteso.elenco.size() != nostro.elenco.size()) {
                differenze.push_back(dove + ": " + std::to_string(atteso.elenco.size()) + " elementi attesi, " +
                                     std::to_string(nostro.elenco.size()) + " calcolati");
                return;
            }
            for (size_t i = 0; i < atteso.elenco.size(); ++i) {
                Confronta(dove + "[" + std::to_string(i) + "]", atteso.elenco[i], nostro.elenco[i], chiave, differenze);
            }
            break;
        case Json::Tipo::Numero:
            if (Doppio(chiave)) {
                if (atteso.Doppio() != nostro.Doppio())
                    differenze.push_back(dove + ": atteso " + atteso.testo + ", calcolato " + nostro.testo);
            } else if (atteso.Singolo() != nostro.Singolo()) {
                differenze.push_back(dove + ": atteso " + atteso.testo + " (" + Bits(atteso.Singolo()) + "), calcolato " +
                                     nostro.testo + " (" + Bits(nostro.Singolo()) + ")");
            }
            break;
        case Json::Tipo::Testo:
            if (atteso.testo != nostro.testo)
                differenze.push_back(dove + ": atteso \"" + atteso.testo + "\", calcolato \"" + nostro.testo + "\"");
            break;
        case Json::Tipo::Booleano:
            if (atteso.booleano != nostro.booleano) differenze.push_back(dove + ": booleano diverso");
            break;
        case Json::Tipo::Nullo: break;
    }
}

class Accettazione : public ::testing::TestWithParam<std::string> {};

}  // namespace

TEST_P(Accettazione, IRisultatiCoincidonoBitPerBit) {
    const std::string nome = GetParam();
    auto a = std::make_unique<Archivi>();
    auto d = std::make_unique<Documento>();
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    // The acceptance folder holds no column file: a calculation doesn't need one.
    CaricaArchivi(*a, *d, kAccettazione + "/archives", av, msg);
    ASSERT_GT(a->NumGas(), 0);
    ASSERT_GT(a->NumMateriali(), 0);
    ASSERT_TRUE(LeggiProgetto(*d, *a, kAccettazione + "/projects/" + nome + ".RTG", msg, av));
    const size_t messaggiCaricamento = msg.mostrati.size();

    CalcolaRete(*d, *a, msg);
    EXPECT_EQ(msg.mostrati.size(), messaggiCaricamento) << "un calcolo corretto non mostra messaggi";

    const Json nostro = prova::LeggiJson(RisultatiJson(*d, *a));
    const Json atteso = prova::LeggiJson(LeggiFile(kAccettazione + "/expected/" + nome + ".json"));
    std::vector<std::string> differenze;
    Confronta(nome, atteso, nostro, "", differenze);
    std::string elenco;
    for (const auto& s : differenze) elenco += "  " + s + "\n";
    EXPECT_TRUE(differenze.empty()) << differenze.size() << " differenze:\n" << elenco;
}

INSTANTIATE_TEST_SUITE_P(Progetti, Accettazione,
                         ::testing::Values("i03_chain4_2008", "i05_balanced_d3_2008", "i11_custom_locked_2008",
                                           "i14_dpmax_low_2008", "p02_chain5", "p03_contemp_junction",
                                           "p04_budget_fails_halfway", "p09_roughness_mix"),
                         [](const testing::TestParamInfo<std::string>& info) { return info.param; });
