// The printer's report on a recording device: the page guard, the page geometry, where
// sections and tables break, the footers and their numbers, the failures; and the HTML
// report's escaping of the user's text.

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>
#include <vector>

#include "core/Cartelle.h"
#include "reports/DispositivoRegistrato.h"
#include "reports/RelazioneStampante.h"
#include "tests/reports/ProvaRelazione.h"

using namespace fornax;
using fornax::prova::ProgettoAperto;
using Op = DispositivoRegistrato::Operazione;

namespace {

const std::string kEsempi = std::string(FORNAX_SOURCE_DIR) + "/data/esempi/";
const std::string kDati = std::string(FORNAX_SOURCE_DIR) + "/tests/data/relazioni/";

struct Stampante : ::testing::Test {
    ProgettoAperto p;
    OpzioniStampante o;

    void Apri(const std::string& file, const std::string& lettere = "AABAAAAA") {
        ASSERT_TRUE(p.Apri(FORNAX_BUILD_DATA_DIR, file, "/home/utente/Lavori/" + NomeDi(file)));
        o.stampa = ProgettoAperto::Opzioni(lettere);
    }
    EsitoStampante Stampa(DispositivoRegistrato& dev) {
        p.msg.mostrati.clear();
        return Print(p.d, p.a, o, dev, p.av, p.msg);
    }
};

int Pagine(const DispositivoRegistrato& dev) {
    int n = 0;
    for (const Op& op : dev.operazioni) n = std::max(n, op.pagina);
    return n;
}

TEST_F(Stampante, PaginaFinoA32000SiStampaOltreSiRifiuta) {
    Apri(kEsempi + "appartamento.RTG");
    struct Caso {
        int larghezza, altezza;
        bool stampa;
    } casi[] = {{11906, 32000, true}, {11906, 32001, false}, {32000, 16838, true}, {32001, 16838, false}};
    for (const Caso& c : casi) {
        DispositivoRegistrato dev(c.larghezza, c.altezza);
        const EsitoStampante e = Stampa(dev);
        EXPECT_EQ(e.riuscita, c.stampa) << c.larghezza << " x " << c.altezza;
        if (c.stampa) {
            EXPECT_GT(e.pagine, 0);
            EXPECT_TRUE(p.msg.mostrati.empty());
        } else {
            EXPECT_TRUE(dev.operazioni.empty());
            ASSERT_EQ(p.msg.mostrati.size(), 1u);
            EXPECT_EQ(p.msg.mostrati[0].testo, PAGINA_TROPPO_GRANDE);
        }
    }
}

TEST_F(Stampante, GeometriaDellaPaginaEPercentuali) {
    const GeometriaPagina g = ImpostaPagina(11906, 16838, {});
    EXPECT_EQ(g.LarghezzaStampa, 9906);
    EXPECT_EQ(g.AltezzaStampa, 16738);
    EXPECT_EQ(g.FondoPagina, 14738);
    EXPECT_EQ(g.SogliaSezione, 12628);  // 12628.5, half to even
    EXPECT_DOUBLE_EQ(g.ScaleLeft, -1000);
    const GeometriaPagina g90 = ImpostaPagina(11906, 16838, {90, 80});
    EXPECT_EQ(g90.LarghezzaStampa, 8915);  // 8915.4
    EXPECT_EQ(g90.AltezzaStampa, 13390);
    EXPECT_DOUBLE_EQ(g90.ScaleLeft, -1495.5);
    // 0 is 100.
    EXPECT_EQ(ImpostaPagina(11906, 16838, {0, 0}).LarghezzaStampa, 9906);
}

// 90 % of the width: every rule across the page is narrower and stands in the middle of
// the paper, as the scale's left edge moves by half of what was taken away.
TEST_F(Stampante, PercentoX90RestringeERicentra) {
    Apri(kEsempi + "appartamento.RTG");
    for (int percento : {100, 90}) {
        o.proporzioni.PercentoX = percento;
        DispositivoRegistrato dev;
        ASSERT_TRUE(Stampa(dev).riuscita);
        const double larghezza = (11906 - 2000) * percento / 100.0;
        int regole = 0;
        double destraMassima = 0;
        for (const Op& op : dev.operazioni) {
            if (op.tipo != Op::Tipo::Linea) continue;
            destraMassima = std::max(destraMassima, std::max(op.x1, op.x2));
            // The rules of the header and the footer.
            const bool regola = op.y1 == op.y2 && (op.y1 == 800 - 200 + 600 || op.y1 == 16738 - 2000 + 100 + 600);
            if (!regola) continue;
            ++regole;
            EXPECT_NEAR(op.x2 - op.x1, larghezza, 1);
            EXPECT_NEAR(op.x1 + op.x2, 11906, 1) << "non centrata";
        }
        EXPECT_GE(regole, 2 * Pagine(dev));
        // Tables share the width out by whole units: they may pass it by less than a column unit.
        EXPECT_LE(destraMassima, (11906 + larghezza) / 2 + 200);
        // The page name stands at the right of the printable width.
        const Op* nome = dev.Trova("appartamento");
        ASSERT_NE(nome, nullptr);
        EXPECT_NEAR(nome->x1 + dev.LarghezzaTesto("appartamento"), (11906 + larghezza) / 2 - 10, 15);
    }
}

// Every page has one footer, and its number is the page's own; the date and the version
// stand on every page.
TEST_F(Stampante, OgniPaginaHaIlSuoPieDiPagina) {
    for (const char* file : {"appartamento.RTG", "rete-media-pressione.RTG"}) {
        Apri(kEsempi + file, "AABAAAAA");
        DispositivoRegistrato dev;
        const EsitoStampante e = Stampa(dev);
        ASSERT_TRUE(e.riuscita);
        EXPECT_EQ(e.documenti, 1);
        EXPECT_EQ(e.pagine, Pagine(dev));
        EXPECT_GE(e.pagine, 3) << file;
        for (int pagina = 1; pagina <= e.pagine; ++pagina) {
            int piedi = 0, date = 0, versioni = 0;
            for (const Op& t : dev.TestiPagina(pagina)) {
                if (t.testo.rfind("Pagina: ", 0) == 0) {
                    ++piedi;
                    EXPECT_EQ(t.testo, "Pagina: " + std::to_string(pagina));
                }
                date += t.testo == "01/02/2026";
                versioni += t.testo == VERSIONE_PROGRAMMA;
            }
            EXPECT_EQ(piedi, 1) << file << " pagina " << pagina;
            EXPECT_EQ(date, 1);
            EXPECT_EQ(versioni, 1);
        }
        // The cover has a page of its own: the sections table heads page 2.
        const Op* tronchi = dev.Trova("Tabella dati tronchi ");
        ASSERT_NE(tronchi, nullptr);
        EXPECT_EQ(tronchi->pagina, 2);
        // The leak test starts a page of its own.
        const Op* tenuta = dev.Trova(TITOLO_TENUTA);
        ASSERT_NE(tenuta, nullptr);
        EXPECT_EQ(tenuta->pagina, e.pagine);
        for (const Op& t : dev.TestiPagina(tenuta->pagina))
            if (t.y1 < tenuta->y1 && t.testo.find("Pagina") == std::string::npos) {
                EXPECT_LT(t.y1, 800 + 600) << "prima della tenuta, sulla sua pagina: " << t.testo;
            }
    }
}

// A table of many rows runs over pages: the column titles stand only on the first page, the
// continuation opens with a rule at the top of the body, and no row crosses the footer's
// limit.
TEST_F(Stampante, TabellaContinuataSenzaTitoli) {
    Apri(kDati + "condominio.RTG", "BABBBBBB");
    DispositivoRegistrato dev;
    const EsitoStampante e = Stampa(dev);
    ASSERT_TRUE(e.riuscita);
    ASSERT_GE(e.pagine, 2);
    const GeometriaPagina g = ImpostaPagina(11906, 16838, {});
    const std::vector<ColonnaRelazione> colonne = ColonneRelazione(p.a, 1);
    ASSERT_FALSE(colonne.empty());
    const std::string titolo = colonne[1].titolo1.empty() ? colonne[1].titolo2 : colonne[1].titolo1;
    for (int pagina = 1; pagina <= e.pagine; ++pagina) {
        int titoli = 0;
        // Nothing of the body between the page check's limit and the footer's rule.
        const double limite = g.FondoPagina - 400 - g.ScaleTop, piede = g.FondoPagina + 100 - g.ScaleTop;
        for (const Op& t : dev.TestiPagina(pagina)) {
            titoli += t.testo == titolo && t.font.grassetto;
            EXPECT_FALSE(t.y1 >= limite && t.y1 < piede) << t.testo << " a " << t.y1;
        }
        EXPECT_EQ(titoli, pagina == 1 ? 1 : 0) << "pagina " << pagina;
        if (pagina == 1) continue;
        // The first rule below the header is the frame taken up at the top of the body.
        const double cima = g.CimaPagina - g.ScaleTop;
        bool ripresa = false;
        for (const Op& l : dev.LineePagina(pagina))
            if (l.y1 == l.y2 && std::abs(l.y1 - cima) < 1 && l.x2 > l.x1) ripresa = true;
        EXPECT_TRUE(ripresa) << "pagina " << pagina;
    }
}

// Sections driven from a chosen position. The table of sections, started low on a page but
// above the footer's limit, keeps its title and column titles there and breaks at its first
// row; any other section that would begin past 75 % of the page starts on a new page.
TEST_F(Stampante, SezioneOltreIl75PercentoESogliaDelleRighe) {
    Apri(kEsempi + "appartamento.RTG");
    TabellaRelazione t;
    t.titolo = "Prova";
    for (const char* titolo : {"N.", "Lungh."}) {
        ColonnaRelazione c;
        c.peso = 5;
        c.titolo1 = titolo;
        c.titolo2 = "m";
        t.colonne.push_back(c);
    }
    for (int16_t i = 1; i <= 3; ++i) t.righe.push_back({i, false, {std::to_string(i), std::to_string(i * 10)}});

    struct Caso {
        int fase;
        double inizio;  // CurrentY, as a share of the way from the threshold to the limit
        int paginaTitolo, paginaPrimaRiga;
    } casi[] = {
        {Fase::TRONCHI, 0.7, 1, 2},   // past 75 %, title block fits, the first row breaks
        {Fase::PERDITE, 0.0, 2, 2},   // at the threshold: a new page
        {Fase::PERDITE, -0.9, 1, 1},  // just above it: the section stays
    };
    for (const Caso& c : casi) {
        DispositivoRegistrato dev;
        ImpaginatoreStampante w(dev, p.d, o, p.av, p.msg);
        const GeometriaPagina& g = w.Geometria();
        w.Inizio();
        const double th = dev.AltezzaTesto("X");
        const double limite = g.FondoPagina - 400;
        // The title block of the sections needs 3 blank lines, title, blank, 2.3 lines.
        const double spazio = (3 + 1 + 1 + 2.3) * th;
        w.CurrentY = c.inizio >= 0 ? g.SogliaSezione + c.inizio * (limite - spazio - g.SogliaSezione)
                                   : g.SogliaSezione + c.inizio * 1000;
        if (c.fase == Fase::TRONCHI) {
            ASSERT_GT(w.CurrentY, g.SogliaSezione);
        }
        w.Tabelle(c.fase, {t}, true);
        const Op* titolo = dev.Trova("Prova ");
        const Op* colonna = dev.Trova("Lungh.");
        const Op* riga = dev.Trova("10");
        ASSERT_TRUE(titolo && colonna && riga);
        EXPECT_EQ(titolo->pagina, c.paginaTitolo) << c.fase << " " << c.inizio;
        EXPECT_EQ(colonna->pagina, c.paginaTitolo);
        EXPECT_EQ(riga->pagina, c.paginaPrimaRiga);
        // A page that was left has its footer.
        if (c.paginaPrimaRiga == 2) {
            EXPECT_NE(dev.Trova("Pagina: 1"), nullptr);
        }
    }
}

// Values right-aligned two "X" from the column's line; the worst path's total below the table.
TEST_F(Stampante, ValoriAllineatiADestraETotale) {
    Apri(kEsempi + "appartamento.RTG", "BBBBABBB");
    DispositivoRegistrato dev;
    ASSERT_TRUE(Stampa(dev).riuscita);
    const Op* totale = dev.Trova("TOTALE PERDITA DI PRESSIONE:");
    ASSERT_NE(totale, nullptr);
    const TabellaRelazione t = TabellaPercorso(p.d, p.a);
    ASSERT_TRUE(t.totale);
    const Op* valore = nullptr;
    for (const Op& op : dev.operazioni)
        if (op.tipo == Op::Tipo::Testo && op.testo == t.totale->valore && op.y1 == totale->y1) valore = &op;
    ASSERT_NE(valore, nullptr) << t.totale->valore;
    // Its right edge stands two "X" short of a column line of the table.
    // The text and "XX" at the size it was printed in (the table's 8), by the device's rule.
    EXPECT_EQ(valore->font.dimensione, 8);
    const double destra = valore->x1 + (NumeroCaratteri(valore->testo) + 2) * 8 * 20 * 0.55;
    bool suUnaLinea = false;
    for (const Op& l : dev.operazioni)
        if (l.tipo == Op::Tipo::Linea && l.x1 == l.x2 && std::abs(l.x1 - destra) < 1) suUnaLinea = true;
    EXPECT_TRUE(suUnaLinea) << valore->testo << " ends at " << destra;
}

// Only the schema chosen: no portrait document, no header, no footer. The schema's page is the
// schema's own drawing, on a landscape page; the printer goes back to portrait.
TEST_F(Stampante, SoloLoSchema) {
    Apri(kEsempi + "appartamento.RTG", "BBABBBBB");
    {
        DispositivoRegistrato dev;
        const EsitoStampante e = Stampa(dev);
        EXPECT_TRUE(e.riuscita);
        EXPECT_TRUE(dev.operazioni.empty());
        EXPECT_EQ(dev.documenti, 0);
    }
    int chiamate = 0;
    o.schema = [&](const PaginaSchemaStampa& s) {
        ++chiamate;
        EXPECT_EQ(s.dispositivo.Larghezza(), 16838);  // landscape
        EXPECT_EQ(s.geometria.LarghezzaStampa, 16838 - 2000);
        EXPECT_TRUE(s.adatta);
        s.dispositivo.Linea(0, 0, 100, 100);
    };
    o.adattaSchema = true;
    DispositivoRegistrato dev;
    const EsitoStampante e = Stampa(dev);
    EXPECT_EQ(chiamate, 1);
    EXPECT_EQ(e.documenti, 1);
    EXPECT_EQ(dev.orientamento, 1);
    EXPECT_EQ(dev.operazioni.size(), 1u);
    EXPECT_EQ(dev.Trova("Pagina: 1"), nullptr);

    // After the text sections: their document ends first, the schema's page is a second one.
    o.stampa.selezione = ReportSelection::Completa();
    DispositivoRegistrato tutto;
    const EsitoStampante completo = Stampa(tutto);
    EXPECT_EQ(chiamate, 2);
    EXPECT_EQ(completo.documenti, 2);
    ASSERT_FALSE(tutto.operazioni.empty());
    const Op& ultima = tutto.operazioni.back();
    EXPECT_EQ(ultima.documento, 2);
    EXPECT_EQ(ultima.pagina, 1);
    EXPECT_EQ(completo.pagine, tutto.pagine);
    EXPECT_EQ(tutto.orientamento, 1);

    // A printer that refuses landscape: the message, and the run goes on.
    o.schema = [](const PaginaSchemaStampa& s) { EXPECT_EQ(s.dispositivo.Larghezza(), 11906); };
    DispositivoRegistrato verticale;
    verticale.landscapePossibile = false;
    EXPECT_TRUE(Stampa(verticale).riuscita);
    ASSERT_EQ(p.msg.mostrati.size(), 1u);
    EXPECT_EQ(p.msg.mostrati[0].testo, LANDSCAPE_IMPOSSIBILE);
}

TEST_F(Stampante, GuastoEFontMancante) {
    Apri(kEsempi + "appartamento.RTG", "AABAAAAA");
    // A device failure in the middle: the product's message, the run ends.
    DispositivoRegistrato guasto;
    guasto.guastoDopo = 40;
    EXPECT_FALSE(Stampa(guasto).riuscita);
    ASSERT_EQ(p.msg.mostrati.size(), 1u);
    EXPECT_EQ(p.msg.mostrati[0].testo, ERRORE_DI_STAMPA);
    EXPECT_EQ(guasto.operazioni.size(), 40u);

    // A printer without Arial: said once, and the report is printed with the printer's font.
    DispositivoRegistrato senzaArial;
    senzaArial.fontDisponibili = {"Courier"};
    const EsitoStampante e = Stampa(senzaArial);
    EXPECT_TRUE(e.riuscita);
    ASSERT_EQ(p.msg.mostrati.size(), 1u);
    EXPECT_EQ(p.msg.mostrati[0].testo, "Il font 'Arial' non e' disponibile per la stampante corrente");
    EXPECT_GE(e.pagine, 3);
}

TEST(ACapo, ParoleEParoleTroppoLunghe) {
    EXPECT_EQ(ACapo("uno due tre quattro", 8), (std::vector<std::string>{"uno due", "tre", "quattro"}));
    EXPECT_EQ(ACapo("abcdefghij", 4), (std::vector<std::string>{"abcd", "efgh", "ij"}));
    EXPECT_EQ(ACapo("", 5), (std::vector<std::string>{""}));
    EXPECT_EQ(ACapo("città è", 7), (std::vector<std::string>{"città è"}));
}

// Text of the project goes into the HTML page as text, never as markup.
TEST(RelazioneHtml, TestoDellUtenteTraEntita) {
    ProgettoAperto p;
    ASSERT_TRUE(p.Apri(FORNAX_BUILD_DATA_DIR, kEsempi + "appartamento.RTG", "/home/utente/Lavori/a&b.RTG"));
    p.d.Riferimento = "Rossi & Figli <scala B>";
    p.d.DescrizioneLavoro = "<script>alert(1)</script>";
    OpzioniStampa o = ProgettoAperto::Opzioni("AABAAAAA");
    o.DittaRiga1 = "Bianchi & C. <s.n.c.>";
    const std::string html = p.Html(o);
    EXPECT_NE(html.find("Rossi &amp; Figli &lt;scala B&gt;"), std::string::npos);
    EXPECT_EQ(html.find("Rossi & Figli"), std::string::npos);
    EXPECT_EQ(html.find("<script>"), std::string::npos);
    EXPECT_NE(html.find("&lt;script&gt;alert(1)&lt;/script&gt;"), std::string::npos);
    EXPECT_NE(html.find("Bianchi &amp; C. &lt;s.n.c.&gt;"), std::string::npos);
    EXPECT_NE(html.find("File printed: /home/utente/Lavori/a&amp;b.RTG"), std::string::npos);
    // The page's own markup stays markup.
    EXPECT_NE(html.find("<DIV class='lineverticalspacing'>&nbsp;</DIV>"), std::string::npos);
}

}  // namespace
