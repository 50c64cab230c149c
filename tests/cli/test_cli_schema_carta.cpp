// The schema on paper and in files, written by fornax-cli as a user runs it: the picture
// beside the HTML and text reports (a BMP named after the reference), the HTML page that shows
// it, the landscape page at the end of the PDF, and the PNG and SVG of the schema tab.

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <regex>
#include <string>

#include "tests/comune/BancoCli.h"

using fornax::prova::CartellaProva;
using fornax::prova::EseguiComando;
using EsitoComando = fornax::prova::Esito;

namespace {

struct SchemaCarta : fornax::prova::BancoCli {
    SchemaCarta() : BancoCli("schema-carta") {}
};

uint32_t Le32(const std::string& s, size_t at) {
    uint32_t v = 0;
    for (size_t i = 0; i < 4; ++i) v |= static_cast<uint32_t>(static_cast<unsigned char>(s[at + i])) << (8 * i);
    return v;
}
uint32_t Be32(const std::string& s, size_t at) {
    uint32_t v = 0;
    for (size_t i = 0; i < 4; ++i) v = (v << 8) | static_cast<unsigned char>(s[at + i]);
    return v;
}

// The dark pixels of a 24- or 32-bit BMP: a schema drawn black on white has some, a blank page none.
int PixelScuri(const std::string& bmp) {
    const uint32_t inizio = Le32(bmp, 10), l = Le32(bmp, 18), a = Le32(bmp, 22);
    const uint32_t bit = static_cast<unsigned char>(bmp[28]) | (static_cast<unsigned char>(bmp[29]) << 8);
    const uint32_t passo = ((l * bit / 8) + 3) / 4 * 4;
    int scuri = 0;
    for (uint32_t y = 0; y < a; ++y)
        for (uint32_t x = 0; x < l; ++x) {
            const size_t k = inizio + y * passo + x * bit / 8;
            if (k + 2 >= bmp.size()) return scuri;
            const int somma = static_cast<unsigned char>(bmp[k]) + static_cast<unsigned char>(bmp[k + 1]) +
                              static_cast<unsigned char>(bmp[k + 2]);
            if (somma < 200) ++scuri;
        }
    return scuri;
}

TEST_F(SchemaCarta, RelazioniHtmlETestoConLImmagineDelloSchema) {
    EsitoComando e = Esegui("report " + Esempio("appartamento.RTG") + " --format html --sezioni AAAAAAAA --out '" +
                            dir.Percorso("r.html") + "' --data-stampa 03/04/2026");
    ASSERT_EQ(e.stato, 0) << e.errori;
    // The reference, with "." made "_", beside the report.
    const std::string nome = "Appartamento Rossi - Via Garibaldi 14 int_ 5 - Monza.bmp";
    const std::string bmp = CartellaProva::LeggiFile(dir.Percorso(nome));
    ASSERT_GT(bmp.size(), 54u) << nome;
    EXPECT_EQ(bmp.substr(0, 2), "BM");
    EXPECT_EQ(Le32(bmp, 18), 1123u);  // a landscape A4 at 96 dots to the inch
    EXPECT_EQ(Le32(bmp, 22), 794u);
    EXPECT_EQ(Le32(bmp, 2), bmp.size());
    EXPECT_GT(PixelScuri(bmp), 2000);
    const std::string html = CartellaProva::LeggiFile(dir.Percorso("r.html"));
    EXPECT_NE(html.find("<IMG src='" + nome + "' align='middle' style='width:200mm'></IMG><BR>"), std::string::npos);
    EXPECT_NE(html.find(" - Riferimento: Appartamento Rossi"), std::string::npos);

    // The text report: the picture under the reference as it stands; nothing in the text.
    e = Esegui("report " + Esempio("appartamento.RTG") + " --format txt --sezioni BBABBBBB --out '" +
               dir.Percorso("r.txt") + "'");
    ASSERT_EQ(e.stato, 0) << e.errori;
    EXPECT_EQ(CartellaProva::LeggiFile(dir.Percorso("r.txt")), "");
    const std::string testo =
        CartellaProva::LeggiFile(dir.Percorso("Appartamento Rossi - Via Garibaldi 14 int. 5 - Monza.bmp"));
    EXPECT_EQ(testo.substr(0, 2), "BM");
    EXPECT_EQ(Le32(testo, 18), 1123u);
}

// The PDF ends with the schema's landscape page, fitted or not; alone, it is the whole file.
TEST_F(SchemaCarta, PdfConLaPaginaDelloSchema) {
    for (const char* adatta : {"", " --adatta-schema"}) {
        SCOPED_TRACE(adatta);
        const std::string pdf = dir.Percorso(std::string("s") + (adatta[0] ? "a" : "") + ".pdf");
        EsitoComando e = Esegui("report " + Esempio("bifamiliare-gpl.RTG") +
                                " --format pdf --sezioni AAAAAAAA --out '" + pdf + "'" + adatta);
        ASSERT_EQ(e.stato, 0) << e.errori;
        e = Shell("pdfinfo -l 99 '" + pdf + "'");
        ASSERT_EQ(e.stato, 0) << e.errori;
        const size_t pagine = e.uscita.find("Pages:");
        ASSERT_NE(pagine, std::string::npos);
        const int n = std::stoi(e.uscita.substr(pagine + 6));
        EXPECT_GE(n, 3);
        // Portrait pages first, the last one landscape.
        EXPECT_TRUE(std::regex_search(e.uscita, std::regex("Page +1 size: +595 x 842"))) << e.uscita;
        EXPECT_TRUE(std::regex_search(e.uscita, std::regex("Page +" + std::to_string(n) + " size: +842 x 595")))
            << e.uscita;
        e = Shell("pdftotext -f " + std::to_string(n) + " -l " + std::to_string(n) + " '" + pdf + "' -");
        EXPECT_NE(e.uscita.find("Rete: bifamiliare-gpl.RTG"), std::string::npos) << e.uscita;
        EXPECT_EQ(e.uscita.find("Pagina:"), std::string::npos);
    }
    const std::string solo = dir.Percorso("solo.pdf");
    ASSERT_EQ(
        Esegui("report " + Esempio("appartamento.RTG") + " --format pdf --sezioni BBABBBBB --out '" + solo + "'").stato,
        0);
    const EsitoComando e = Shell("pdfinfo '" + solo + "'");
    EXPECT_TRUE(std::regex_search(e.uscita, std::regex("Pages: +1\\n"))) << e.uscita;
    EXPECT_TRUE(std::regex_search(e.uscita, std::regex("Page size: +842 x 595"))) << e.uscita;
}

TEST_F(SchemaCarta, SchemaInPngESvg) {
    const std::string png = dir.Percorso("s.png"), svg = dir.Percorso("s.svg");
    EsitoComando e = Esegui("schema " + Esempio("rete-media-pressione.RTG") + " --png '" + png + "' --svg '" + svg +
                            "' --area 19200x9000");
    ASSERT_EQ(e.stato, 0) << e.errori;
    const std::string p = CartellaProva::LeggiFile(png);
    ASSERT_GT(p.size(), 24u);
    EXPECT_EQ(p.substr(1, 3), "PNG");
    EXPECT_EQ(Be32(p, 16), 1280u);  // 19200 x 9000 twips at 96 dots to the inch
    EXPECT_EQ(Be32(p, 20), 600u);
    const std::string s = CartellaProva::LeggiFile(svg);
    EXPECT_NE(s.find("<svg"), std::string::npos);
    EXPECT_NE(s.find("</svg>"), std::string::npos);
    EXPECT_NE(s.find("<text"), std::string::npos);
    // A wrong extension or an unwritable file: usage, then the project's status.
    e = Esegui("schema " + Esempio("appartamento.RTG") + " --png '" + dir.Percorso("s.jpg") + "'");
    EXPECT_EQ(e.stato, 2);
    EXPECT_NE(e.errori.find("--png richiede un file con estensione .png"), std::string::npos) << e.errori;
    e = Esegui("schema " + Esempio("appartamento.RTG") + " --svg '" + dir.Percorso("manca/s.svg") + "'");
    EXPECT_EQ(e.stato, 1);
    EXPECT_NE(e.errori.find("impossibile scrivere"), std::string::npos) << e.errori;
}

}  // namespace
