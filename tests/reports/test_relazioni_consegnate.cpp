// Golden files of our own: the delivered program folder (its column file built from
// data/gridgas-sorgente.txt), the sample projects and a few projects made for the report
// (a block of flats whose tables cross pages, a project without sections, a leak test by
// pressure drop). The golden files in tests/data/relazioni were read line by line before
// they were accepted; a difference leaves the file written beside the test for review.

#include <gtest/gtest.h>

#include <fstream>

#include "tests/reports/ProvaRelazione.h"

using namespace fornax;
using fornax::prova::CartellaProva;
using fornax::prova::PrimaDifferenza;
using fornax::prova::ProgettoAperto;

namespace {

const std::string kEsempi = std::string(FORNAX_SOURCE_DIR) + "/data/esempi/";
const std::string kDati = std::string(FORNAX_SOURCE_DIR) + "/tests/data/relazioni/";

struct Caso {
    const char* nome;      // golden files <nome>.html and <nome>.txt
    std::string progetto;  // the project file
    const char* lettere;   // sections
};

void PrintTo(const Caso& c, std::ostream* os) { *os << c.nome; }

class Consegnate : public ::testing::TestWithParam<Caso> {};

TEST_P(Consegnate, UgualiAiFileDiRiferimento) {
    const Caso& c = GetParam();
    for (const char* formato : {"html", "txt"}) {
        SCOPED_TRACE(std::string(c.nome) + "." + formato);
        ProgettoAperto p;
        const std::string nomeFile = c.progetto.substr(c.progetto.find_last_of('/') + 1);
        ASSERT_TRUE(p.Apri(FORNAX_BUILD_DATA_DIR, c.progetto, "/home/utente/Lavori/" + nomeFile));
        const OpzioniStampa o = ProgettoAperto::Opzioni(c.lettere);
        const std::string scritto = std::string(formato) == "html" ? p.Html(o) : p.Txt(o);
        const std::string file = std::string(c.nome) + "." + formato;
        const std::string atteso = CartellaProva::LeggiFile(kDati + file);
        if (scritto != atteso) {
            std::ofstream(file + ".scritto", std::ios::binary) << scritto;
            ADD_FAILURE() << PrimaDifferenza(atteso, scritto) << "\n(scritto in " << file << ".scritto)";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Relazioni, Consegnate,
    ::testing::Values(Caso{"appartamento", kEsempi + "appartamento.RTG", "AABAAAAA"},
                      Caso{"appartamento-senza-copertina", kEsempi + "appartamento.RTG", "BABAAAAA"},
                      Caso{"appartamento-solo-copertina", kEsempi + "appartamento.RTG", "ABBBBBBB"},
                      Caso{"bifamiliare-gpl", kEsempi + "bifamiliare-gpl.RTG", "AABAAAAA"},
                      Caso{"rete-media-pressione", kEsempi + "rete-media-pressione.RTG", "AABAAAAA"},
                      Caso{"condominio", kDati + "condominio.RTG", "AABAAAAA"},
                      Caso{"vuoto", kDati + "vuoto.RTG", "AABAAAAA"},
                      Caso{"tenuta-cdp", kDati + "tenuta-cdp.RTG", "BBBBBBBA"}),
    [](const ::testing::TestParamInfo<Caso>& i) {
        std::string n = i.param.nome;
        for (char& ch : n)
            if (ch == '-') ch = '_';
        return n;
    });

}  // namespace
