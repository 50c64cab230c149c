// The schema's landscape page of the printer report, on the recording device: the page, the
// drawing black on white, the fit to the page and the caption, the schema tab's layout left as
// it was.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "core/Cartelle.h"
#include "reports/DispositivoRegistrato.h"
#include "reports/Relazione.h"
#include "reports/Stampante.h"
#include "schema/Carta.h"
#include "tests/reports/ProvaRelazione.h"

using namespace fornax;
using fornax::prova::ProgettoAperto;
using Op = DispositivoRegistrato::Operazione;

namespace {

const std::string kEsempi = std::string(FORNAX_SOURCE_DIR) + "/data/esempi/";
const char* const kProgetti[] = {"appartamento.RTG", "bifamiliare-gpl.RTG", "rete-media-pressione.RTG"};

struct PaginaSchemaProva : ::testing::Test {
    ProgettoAperto p;
    OpzioniStampante o;

    void Apri(const std::string& file, const std::string& lettere) {
        ASSERT_TRUE(p.Apri(FORNAX_BUILD_DATA_DIR, kEsempi + file, "/home/utente/Lavori/" + file));
        o.stampa = ProgettoAperto::Opzioni(lettere);
        o.schema = PaginaSchema(p.d, p.a, p.msg);
    }
    EsitoStampante Stampa(DispositivoRegistrato& dev) {
        p.msg.mostrati.clear();
        return Print(p.d, p.a, o, dev, p.av, p.msg);
    }
};

TEST_F(PaginaSchemaProva, SoloLoSchemaUnaPaginaOrizzontaleNeraSuBianco) {
    for (const char* file : kProgetti) {
        SCOPED_TRACE(file);
        Apri(file, "BBABBBBB");
        DispositivoRegistrato dev;
        const EsitoStampante e = Stampa(dev);
        ASSERT_TRUE(e.riuscita);
        EXPECT_TRUE(p.msg.mostrati.empty());
        // No portrait document: one document, one page, the schema's surface first.
        EXPECT_EQ(e.documenti, 1);
        EXPECT_EQ(e.pagine, 1);
        ASSERT_FALSE(dev.operazioni.empty());
        EXPECT_EQ(dev.operazioni.front().tipo, Op::Tipo::Schema);
        EXPECT_EQ(dev.operazioni.front().x2, 16838);  // the landscape paper
        EXPECT_EQ(dev.operazioni.front().y2, 11906);
        EXPECT_EQ(dev.Trova("Pagina: 1"), nullptr);
        EXPECT_EQ(dev.orientamento, 1);  // back to portrait
        ASSERT_EQ(dev.schemi.size(), 1u);
        const schema::TargetRegistrato& t = *dev.schemi[0];
        EXPECT_EQ(t.Larghezza(), 16838);
        EXPECT_EQ(t.Altezza(), 11906);
        // Every section is numbered; nothing is drawn in the screen's white.
        const std::vector<std::string> testi = t.Testi();
        for (int i = 1; i <= p.d.NumTronchi(); ++i)
            EXPECT_NE(std::find(testi.begin(), testi.end(), std::to_string(i)), testi.end()) << i;
        int sorgenti = 0;
        for (const schema::Tratto& x : t.Visibili()) {
            EXPECT_NE(x.colore, schema::Colore::BIANCO);
            if (x.tipo == schema::Tratto::Tipo::Immagine && x.testo.rfind("picSource", 0) == 0) ++sorgenti;
        }
        EXPECT_EQ(sorgenti, 1);
        // The caption at the top left, Arial 11.
        const Op* didascalia = dev.Trova(DidascaliaSchema(p.d));
        ASSERT_NE(didascalia, nullptr);
        EXPECT_EQ(didascalia->x1, 100);
        EXPECT_EQ(didascalia->y1, 100);
        EXPECT_EQ(didascalia->font.dimensione, 11);
        EXPECT_NE(didascalia->testo.find(" - Rete: " + std::string(file)), std::string::npos);
        // At its own size the drawing is moved, not scaled, above the paper's lower margin.
        const schema::Riquadro r = schema::Ingombro(t);
        EXPECT_GE(r.xMin, 500);
        if (r.Altezza() <= 11906 - 1000)
            EXPECT_LE(r.yMax, 11906 - 500);
        else
            EXPECT_NEAR(r.yMin, 500, 1e-6);  // too tall: it begins at the top margin
    }
}

// Fitted to the page, everything drawn stays inside the margins and above the caption, which
// stands at the foot, right-aligned; without the fit the drawing keeps its own size.
TEST_F(PaginaSchemaProva, AdattaAllaPagina) {
    for (const char* file : kProgetti) {
        SCOPED_TRACE(file);
        Apri(file, "BBABBBBB");
        o.adattaSchema = true;
        DispositivoRegistrato dev;
        ASSERT_TRUE(Stampa(dev).riuscita);
        ASSERT_EQ(dev.schemi.size(), 1u);
        const schema::Riquadro r = schema::Ingombro(*dev.schemi[0]);
        ASSERT_FALSE(r.vuoto);
        EXPECT_GE(r.xMin, 500);
        EXPECT_GE(r.yMin, 500);
        EXPECT_LE(r.xMax, 16838 - 500);
        EXPECT_LE(r.yMax, 11906 - 1600);
        const GeometriaPagina g = ImpostaPagina(16838, 11906, {});
        const Op* didascalia = dev.Trova(DidascaliaSchema(p.d));
        ASSERT_NE(didascalia, nullptr);
        EXPECT_EQ(didascalia->y1, g.AltezzaStampa - 1500);
        const double larghezza = NumeroCaratteri(didascalia->testo) * 11 * 20 * 0.55;  // Arial 11 on this device
        EXPECT_NEAR(didascalia->x1 + larghezza, g.LarghezzaStampa - 1700, 1e-6);

        // The same drawing alone: to scale, at a factor of tenths; without the fit at 1.
        MessaggiRegistrati m;
        schema::StatoSchema s(m);
        schema::TargetRegistrato pagina(16838, 11906);
        schema::OpzioniCarta oc;
        oc.adatta = true;
        const schema::EsitoCarta adattato = schema::DisegnaSuCarta(s, p.d, p.a, pagina, oc);
        EXPECT_TRUE(adattato.inScala);
        EXPECT_GT(adattato.fattore, 0.0f);
        EXPECT_FLOAT_EQ(adattato.fattore * 10.0f, std::nearbyint(adattato.fattore * 10.0f));
        oc.adatta = false;
        const schema::EsitoCarta libero = schema::DisegnaSuCarta(s, p.d, p.a, pagina, oc);
        EXPECT_FALSE(libero.inScala);
        EXPECT_FLOAT_EQ(libero.fattore, 1.0f);
        EXPECT_TRUE(m.mostrati.empty());
    }
}

// After the text sections the schema's page is a document of its own; the fit applies to the
// run asked for, and the schema tab's placing of the sections is left as it was.
TEST_F(PaginaSchemaProva, DopoLeSezioniELaDisposizioneDellaScheda) {
    Apri("bifamiliare-gpl.RTG", "AAAAAAAA");
    std::vector<std::array<int32_t, 3>> prima;
    for (int i = 0; i <= p.d.NumTronchi(); ++i)
        prima.push_back({p.d.T(i).SchemaDirezione, p.d.T(i).ID_SCHEMA_X, p.d.T(i).ID_SCHEMA_Y});
    DispositivoRegistrato dev;
    const EsitoStampante e = Stampa(dev);
    ASSERT_TRUE(e.riuscita);
    EXPECT_EQ(e.documenti, 2);
    ASSERT_EQ(dev.schemi.size(), 1u);
    const Op* schema = nullptr;
    for (const Op& op : dev.operazioni)
        if (op.tipo == Op::Tipo::Schema) schema = &op;
    ASSERT_NE(schema, nullptr);
    EXPECT_EQ(schema->documento, 2);
    EXPECT_EQ(schema->pagina, 1);
    EXPECT_EQ(schema->x2, 16838);
    for (int i = 0; i <= p.d.NumTronchi(); ++i) {
        EXPECT_EQ(p.d.T(i).SchemaDirezione, prima[static_cast<size_t>(i)][0]) << i;
        EXPECT_EQ(p.d.T(i).ID_SCHEMA_X, prima[static_cast<size_t>(i)][1]) << i;
        EXPECT_EQ(p.d.T(i).ID_SCHEMA_Y, prima[static_cast<size_t>(i)][2]) << i;
    }
}

TEST(ScalaPagina, RapportoDellaPaginaAlDisegno) {
    struct Caso {
        double largh, alt, atteso;
    } casi[] = {
        {7919, 0, (16838.0 - 1000) / 7919},  // a row of sections: the width decides
        {0, 5453, (11906.0 - 1000) / 5453},  // a column: the height decides
        {15838, 21812, 0.5},                 // the smaller ratio
        {0, 0, 1000000000.0},                // nothing drawn
    };
    for (const Caso& c : casi) EXPECT_DOUBLE_EQ(schema::ScalaPagina(c.largh, c.alt, 16838, 11906), c.atteso);
}

}  // namespace
