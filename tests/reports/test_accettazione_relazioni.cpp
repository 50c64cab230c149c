// The acceptance reports: three projects written by an independent implementation from the
// same program folder, date and firm, opened from /home/utente/Lavori/. Ours must be the same
// bytes, HTML and text.

#include <gtest/gtest.h>

#include "tests/reports/ProvaRelazione.h"

using namespace fornax;
using fornax::prova::CartellaProva;
using fornax::prova::PrimaDifferenza;
using fornax::prova::ProgettoAperto;

namespace {

const std::string kAccettazione = std::string(FORNAX_ACCETTAZIONE_DIR);

class Accettazione : public ::testing::TestWithParam<const char*> {};

TEST_P(Accettazione, HtmlETestoUgualiByteAByte) {
    const std::string nome = GetParam();
    for (const char* formato : {"html", "txt"}) {
        SCOPED_TRACE(nome + "." + formato);
        ProgettoAperto p;
        ASSERT_TRUE(p.Apri(kAccettazione + "/reports/program", kAccettazione + "/projects/" + nome + ".RTG",
                           "/home/utente/Lavori/" + nome + ".RTG"));
        const OpzioniStampa o = ProgettoAperto::Opzioni("AABAAAAA");
        const std::string scritto = std::string(formato) == "html" ? p.Html(o) : p.Txt(o);
        const std::string atteso = CartellaProva::LeggiFile(kAccettazione + "/reports/" + nome + "." + formato);
        ASSERT_FALSE(atteso.empty());
        EXPECT_TRUE(scritto == atteso) << PrimaDifferenza(atteso, scritto);
    }
}

INSTANTIATE_TEST_SUITE_P(Relazioni, Accettazione,
                         ::testing::Values("i03_chain4_2008", "i25_leaktest_meter_ok", "p03_contemp_junction"));

}  // namespace
