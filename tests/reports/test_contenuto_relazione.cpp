// The rules of the report's content on small networks made by hand: widths and budgets,
// dashes, the contemporaneity bracket, final pressures, the worst path and its total, the
// consumers, the cover's values, the leak-test record; then what a run does with the schema,
// the logo, a failure and the user's messages.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "core/Numeri.h"
#include "reports/Relazione.h"
#include "reports/Stampa.h"
#include "tests/reports/ProvaRelazione.h"

using namespace fornax;
using fornax::prova::CartellaProva;
using fornax::prova::ProgettoAperto;

namespace {

// Every display pattern the report writes with: those of the cover and the bill, and those
// the two column files give to their columns.
TEST(FormatiRelazione, OgniFormatoUsato) {
    struct Caso {
        double v;
        const char* formato;
        const char* atteso;
    };
    const Caso casi[] = {
        {0.555f, "##0.###", "0.555"},
        {1.0f, "##0.###", "1."},  // the point stays with no digit after it
        {0.68f, " ##0.###", " 0.68"},
        {static_cast<double>(1.574e-05f) * 1000000.0, " ##0.##", " 15.74"},
        {34.01f, " ##0.## MJ/mc", " 34.01 MJ/mc"},
        {100.0f, " ##0  Pa", " 100  Pa"},
        {100.0f / 100.0, "##0.00 mbar", "1.00 mbar"},
        {3.398026f, " ##0.0  Nmc/h", " 3.4  Nmc/h"},
        {200.0, " ##0.00  kPa", " 200.00  kPa"},
        {150.0 / 100.0, "##0.000 bar", "1.500 bar"},
        {15.0f, " ##0.0  m/s", " 15.0  m/s"},
        {13.534f, " ##0.00  m/s", " 13.53  m/s"},
        {39.4f, "#######0", "39"},
        {0.4f, "#######0", "0"},
        {15.5f, "###0.0", "15.5"},
        {1.25f, "###0.0", "1.2"},  // an exact tie goes to the even digit
        {1.35f, "###0.0", "1.4"},  // 1.35f lies above the tie
        {4.0, "##0", "4"},
        {3.1f, "##0.000", "3.100"},
        {0.0, "##0.000", "0.000"},
        {6.0f, "#0.00", "6.00"},
        {123.456f, "#0.00", "123.46"},  // integer digits beyond the placeholders all print
        {83.12f, "##0.00", "83.12"},
        {-1.0f, "##0.00", "-1.00"},
        {-0.004f, "##0.00", "0.00"},  // a rounded zero has no sign
        {27.3f, "##0.0", "27.3"},
        {29286.2, "######0", "29286"},
        {181.194f, "##0.00", "181.19"},
        {18.0723f, "##0.000", "18.072"},
    };
    for (const Caso& c : casi) EXPECT_EQ(FormattaNumero(c.v, c.formato), c.atteso) << c.formato << " " << c.v;
}

TEST(SelezioneRelazione, LettereNellOrdineDelleCaselle) {
    const ReportSelection s = ReportSelection::DaLettere("AABAAAAA");
    EXPECT_TRUE(s.Copertina && s.Tronchi && s.PDCLocalizzate && s.Verifica && s.Utenze && s.Computo &&
                s.TenutaImpianto);
    EXPECT_FALSE(s.DiagrammaRete);
    EXPECT_EQ(s.Lettere(), "AABAAAAA");
    EXPECT_EQ(ReportSelection::DaLettere("").Lettere(), "BBBBBBBB");     // blank: nothing ticked
    EXPECT_EQ(ReportSelection::DaLettere("BBA").Lettere(), "BBABBBBB");  // missing letters are clear
    EXPECT_FALSE(ReportSelection::DaLettere("BBABBBBB").AltreDalloSchema());
    EXPECT_TRUE(ReportSelection::DaLettere("BBABBBBB").Qualcuna());
    EXPECT_FALSE(ReportSelection::DaLettere("BBBBBBBB").Qualcuna());
    EXPECT_EQ(TestoFase(Fase::TENUTA), "Errore nella stampa della \"Verifica tenuta impianto\".");
}

// A document on the delivered archives whose column tables and sections the test writes.
struct ReteAMano : ::testing::Test {
    ProgettoAperto p;
    void SetUp() override {
        p.programma.CopiaDa(FORNAX_BUILD_DATA_DIR);
        ASSERT_TRUE(CaricaArchivi(p.s, p.programma.Percorso(), p.av, p.msg, true));
    }
    // Table `t` of the column file replaced by columns of the given keys, weights and patterns.
    void Colonne(int t, std::vector<std::tuple<int16_t, int16_t, std::string, std::string, std::string>> def) {
        auto& tab = p.a.Colonne.Tabelle[static_cast<size_t>(t)];
        for (size_t c = 0; c < def.size(); ++c) {
            auto& [id, peso, formato, t1, t2] = def[c];
            tab[c] = ColonnaTabella{};
            tab[c].Id = id;
            tab[c].Larghezza = peso;
            tab[c].Formato = formato;
            tab[c].Titolo1 = t1;
            tab[c].Titolo2 = t2;
        }
        p.a.Colonne.NumColonne[static_cast<size_t>(t)] = static_cast<int16_t>(def.size() - 1);
    }
    Tronco& T(int i) { return p.d.T(i); }
    void Sezioni(int n) { p.d.rete().NumTronchi = static_cast<int16_t>(n); }
};

TEST_F(ReteAMano, LarghezzeEBudgetDaiPesi) {
    using namespace Id;
    // 57 of weight: 170 / 57 = 2.98, a unit of 3 mm.
    Colonne(1, {{ID_NUM, 3, "##0", "N.", "."},
                {ID_MATERIALE, 7, "@", "Materiale", "."},
                {ID_P_TRONCO, 47, "##0.000", "Q tronco", "Nmc/h"}});
    std::vector<ColonnaRelazione> c = ColonneRelazione(p.a, 1);
    ASSERT_EQ(c.size(), 3u);
    EXPECT_EQ(c[0].larghezza, 9);
    EXPECT_EQ(c[0].budget, 3);  // Int(9 / 2) - 1
    EXPECT_EQ(c[0].titolo1, "N.");
    EXPECT_EQ(c[0].titolo2, "");  // "." is an empty title
    EXPECT_EQ(c[1].larghezza, 21);
    EXPECT_EQ(c[1].budget, 9);
    EXPECT_EQ(c[2].larghezza, 141);

    // 68 of weight: 170 / 68 = 2.5 exactly, rounded to the even 2.
    Colonne(1, {{ID_NUM, 34, "##0", "Numero del tronco", "."}, {ID_LEN, 34, "#0.00", "Lunghezza", "m"}});
    c = ColonneRelazione(p.a, 1);
    EXPECT_EQ(c[0].larghezza, 68);
    EXPECT_EQ(c[0].budget, 33);
    // 20 of weight: 8.5, rounded to 8; a width of 8 leaves 3 characters.
    Colonne(1, {{ID_NUM, 1, "##0", "Numero", "."}, {ID_LEN, 19, "#0.00", "Lunghezza", "m"}});
    c = ColonneRelazione(p.a, 1);
    EXPECT_EQ(c[0].larghezza, 8);
    EXPECT_EQ(c[0].budget, 3);
    EXPECT_EQ(c[0].peso, 1);
    EXPECT_EQ(c[0].titolo1, "Numero");  // whole: each back end cuts to its own budget
    EXPECT_EQ(Sinistra(c[0].titolo1, c[0].budget), "Num");
    EXPECT_EQ(Sinistra("Velocità", 7), "Velocit");  // characters, not bytes
    EXPECT_EQ(Sinistra("Città", 4), "Citt");
    EXPECT_EQ(Destra("/home/utente/Più/lavori/casa.RTG", 19), "Più/lavori/casa.RTG");

    // A table without weight fails the run; a column too narrow for any character fails it
    // when its text is cut.
    Colonne(1, {{ID_NUM, 0, "##0", "N.", "."}});
    try {
        ColonneRelazione(p.a, 1);
        ADD_FAILURE() << "una tabella senza pesi non ha larghezze";
    } catch (const ErroreEsecuzione& e) {
        EXPECT_EQ(e.Codice(), 11);
        EXPECT_STREQ(e.what(), "Divisione per zero");
    }
    Colonne(1, {{ID_NUM, 0, "##0", "N.", "."}, {ID_LEN, 10, "#0.00", "L", "m"}});
    c = ColonneRelazione(p.a, 1);
    EXPECT_EQ(c[0].budget, -1);
    try {
        Sinistra(c[0].titolo1, c[0].budget);
        ADD_FAILURE() << "una colonna larga 0 mm non ha budget";
    } catch (const ErroreEsecuzione& e) {
        EXPECT_EQ(e.Codice(), 5);
    }
}

TEST_F(ReteAMano, TronchiImpiantoInternoTrattiniEPercorso) {
    using namespace Id;
    Colonne(1, {{ID_NUM, 4, "##0", "N.", "."},
                {ID_MATERIALE, 8, "@", "Materiale", "."},
                {ID_P_UTENZE, 8, "##0.000", "Q ut.", "Nmc/h"},
                {ID_LEN, 6, "#0.00", "Lungh.", "m"},
                {ID_PDC_TRONCO, 8, "##0.00", "PdC tr.", "Pa"},
                {ID_PDC_PERCORSO, 8, "##0.00", "PdC per.", "Pa"},
                {ID_RIF, 8, "@", "Rif.", "."}});
    Sezioni(3);
    T(1) = Tronco{};
    T(1).Visitato = VERO;
    T(1).ID_MATERIALE = "ACCIAIOMEDIO";
    T(1).ID_LEN = 6;
    T(1).ID_PDC_TRONCO = 9.114f;
    T(1).ID_PDC_PERCORSO = 9.114f;  // a junction: no path drop shown
    T(1).ID_LEFT = 2;
    T(1).ID_RIF = "  CONTATORE  ";
    T(2) = Tronco{};
    T(2).Visitato = VERO;
    T(2).ID_PREV = 1;
    T(2).ID_MATERIALE = "RAME";
    T(2).ID_P_UTENZE = 3.1f;
    T(2).ID_LEN = 0;  // a dash
    T(2).ID_PDC_TRONCO = 0;
    T(2).ID_PDC_PERCORSO = 0;  // 0 is a dash even on a consumer
    T(3) = Tronco{};
    T(3).Visitato = FALSO;  // cut off the tree: not in the report
    T(3).ID_P_UTENZE = 1;

    const TabellaRelazione t = TabellaTronchi(p.d, p.a);
    EXPECT_EQ(t.titolo, "Tabella dati tronchi");
    ASSERT_EQ(t.righe.size(), 2u);
    EXPECT_EQ(t.righe[0].valori,
              (std::vector<std::string>{"1", "ACCIAIOMEDIO", "-", "6.00", "9.11", "-", "CONTATORE"}));
    // 50 of weight, a unit of 3 mm: 8 * 3 = 24 mm hold 11 characters in the file reports.
    EXPECT_EQ(t.colonne[1].budget, 11);
    EXPECT_FALSE(t.righe[0].ultima);
    EXPECT_EQ(t.righe[1].valori, (std::vector<std::string>{"2", "RAME", "3.100", "-", "-", "-", ""}));
    EXPECT_FALSE(t.righe[1].ultima);  // section 3 is the last of the network

    T(2).ID_PDC_PERCORSO = 12.5f;
    EXPECT_EQ(TabellaTronchi(p.d, p.a).righe[1].valori[5], "12.50");
    T(3).Visitato = VERO;
    EXPECT_TRUE(TabellaTronchi(p.d, p.a).righe[2].ultima);
}

TEST_F(ReteAMano, TronchiRetePressioneContemporaneitaEPressioneFinale) {
    using namespace Id;
    p.d.ReteInPressione = VERO;
    Colonne(6, {{ID_NUM, 3, "##0", "N.", "."},
                {ID_P_UTENZE, 5, "##0.000", "Q utenza", "Nmc/h"},
                {ID_P_TRONCO, 9, "##0.000", "Q tronco", "Nmc/h"},
                {ID_PFINALE, 5, "##0.00", "P fin.", "kPa"}});
    Sezioni(4);
    for (int i = 1; i <= 4; ++i) {
        T(i) = Tronco{};
        T(i).Visitato = VERO;
    }
    T(1).ID_LEFT = 2;
    T(1).ID_RIGHT = 3;
    T(1).ID_P_TRONCO = 30;
    T(1).ID_CONTEMP = 50;
    T(1).ID_PFINALE = 190.5f;
    T(2).ID_PREV = 1;
    T(2).ID_LEFT = 4;
    T(2).ID_P_TRONCO = 0;
    T(2).ID_CONTEMP = 100;
    T(3).ID_PREV = 1;
    T(3).ID_P_UTENZE = 0;
    T(3).ID_P_TRONCO = 20;
    T(3).ID_CONTEMP = 0;  // only values strictly between 0 and 100 show the bracket
    T(3).ID_PFINALE = 181.194f;
    T(4).ID_PREV = 2;
    T(4).ID_P_TRONCO = 0;
    T(4).ID_CONTEMP = 99;
    T(4).ID_PFINALE = -1;

    const TabellaRelazione t = TabellaTronchi(p.d, p.a);
    ASSERT_EQ(t.righe.size(), 4u);
    EXPECT_EQ(t.righe[0].valori, (std::vector<std::string>{"1", "0.000", "30.000[50%] ", "-"}));
    EXPECT_EQ(t.righe[1].valori, (std::vector<std::string>{"2", "0.000", "-", "-"}));
    EXPECT_EQ(t.righe[2].valori, (std::vector<std::string>{"3", "0.000", "20.000", "181.19"}));
    EXPECT_EQ(t.righe[3].valori, (std::vector<std::string>{"4", "0.000", "0.000[99%] ", "-1.00"}));
}

TEST_F(ReteAMano, PercorsoSfavoritoDallaRadiceConIlTotaleA32Bit) {
    using namespace Id;
    Colonne(3, {{ID_NUM, 3, "##0", "N.", "."},
                {ID_MATERIALE, 7, "@", "Materiale", "."},
                {ID_DIAMETRO, 5, "@", "Diametro", "."},
                {ID_P_TRONCO, 5, "##0.000", "Q tronco", "Nmc/h"},
                {ID_LEN, 4, "#0.00", "Lungh.", "m"},
                {ID_EQ_LEN, 4, "#0.00", "L. eq.", "m"},
                {ID_VELOCITA, 4, "#0.00", "Vel.", "m/s"},
                {ID_PDC_TRONCO, 5, "##0.00", "PdC tronco", "Pa"},
                {ID_PDC_PERCORSO, 5, "##0.00", "PdC percorso", "Pa"}});
    Sezioni(4);
    for (int i = 1; i <= 4; ++i) {
        T(i) = Tronco{};
        T(i).Visitato = VERO;
    }
    // 1 -> 2 -> {3, 4}; the worst end is 4.
    T(2).ID_PREV = 1;
    T(3).ID_PREV = 2;
    T(4).ID_PREV = 2;
    T(1).ID_PDC_TRONCO = 0.1f;
    T(2).ID_PDC_TRONCO = 0.2f;
    T(4).ID_PDC_TRONCO = 0.7f;
    T(1).ID_PDC_PERCORSO = 0.1f;
    T(2).ID_PDC_PERCORSO = 0.3f;
    T(3).ID_PDC_PERCORSO = -1;  // failed: never the worst
    T(4).ID_PDC_PERCORSO = 1.0f;
    const TabellaRelazione t = TabellaPercorso(p.d, p.a);
    ASSERT_EQ(t.righe.size(), 3u);
    EXPECT_EQ(t.righe[0].sezione, 1);
    EXPECT_EQ(t.righe[1].sezione, 2);
    EXPECT_EQ(t.righe[2].sezione, 4);
    EXPECT_TRUE(t.righe[2].ultima);
    ASSERT_TRUE(t.totale);
    EXPECT_EQ(t.totale->etichetta, "TOTALE PERDITA DI PRESSIONE:");
    EXPECT_EQ(t.totale->colonna, 7u);
    // The sum of the path's drops in 32 bits, laid out by column 7.
    const float somma = 0.1f + 0.2f + 0.7f;
    EXPECT_EQ(t.totale->valore, FormattaNumero(somma, "##0.00"));
    EXPECT_EQ(t.totale->valore, "1.00");

    // No drop above 0 anywhere: no path, and a total of 0.
    for (int i = 1; i <= 4; ++i) T(i).ID_PDC_PERCORSO = 0;
    const TabellaRelazione vuota = TabellaPercorso(p.d, p.a);
    EXPECT_TRUE(vuota.righe.empty());
    EXPECT_EQ(vuota.totale->valore, "0.00");

    // The total needs a column 7.
    Colonne(3, {{ID_NUM, 3, "##0", "N.", "."}, {ID_PDC_TRONCO, 5, "##0.00", "PdC", "Pa"}});
    EXPECT_THROW(TabellaPercorso(p.d, p.a), ErroreEsecuzione);
}

TEST_F(ReteAMano, UtenzeConPortataETotale) {
    using namespace Id;
    Colonne(4, {{ID_NUM, 3, "##0", "N.", "."},
                {ID_NOMETIPOUTENZA, 5, "@", "Tipo utenza", "."},
                {ID_P_KW, 4, "######0", "Potenza", "W"},
                {ID_P_KCAL, 4, "######0", "Potenza", "kcal/h"},
                {ID_P_UTENZE, 4, "##0.000", "Portata", "Nmc/h"}});
    Sezioni(3);
    for (int i = 1; i <= 3; ++i) {
        T(i) = Tronco{};
        T(i).Visitato = VERO;
    }
    T(1).ID_LEFT = 2;
    T(1).ID_RIGHT = 3;
    T(2).ID_PREV = 1;
    T(2).ID_P_UTENZE = T(2).ID_P_TRONCO = 0.9f;
    T(2).ID_TIPOUTENZA = TipoUtenza::FORNELLO;
    T(3).ID_PREV = 1;
    T(3).ID_P_UTENZE = T(3).ID_P_TRONCO = 2.7f;
    T(3).ID_TIPOUTENZA = TipoUtenza::CALDAIA;
    const TabellaRelazione t = TabellaUtenze(p.d, p.a);
    ASSERT_EQ(t.righe.size(), 2u);
    EXPECT_EQ(t.righe[0].valori[1], "Cottura");
    EXPECT_EQ(t.righe[1].valori[1], "Riscaldamento");
    EXPECT_EQ(t.righe[1].valori[4], "2.700");
    // The cooker is rated on the superior calorific value.
    EXPECT_EQ(t.righe[0].valori[2],
              FormattaNumero(static_cast<double>(p.d.GasCorrente.Pcs) * 0.9f * 1000 / 3.6, "######0"));
    EXPECT_EQ(t.totale->etichetta, "TOTALE PORTATA GAS:");
    EXPECT_EQ(t.totale->valore, "3.600");

    T(3).Visitato = FALSO;
    EXPECT_EQ(TabellaUtenze(p.d, p.a).totale->valore, "0.900");
}

TEST_F(ReteAMano, CopertinaReteInPressione) {
    p.d.ReteInPressione = VERO;
    p.d.Riferimento = std::string(75, 'R');
    p.d.PressioneIniziale = 300;
    p.d.PressioneFinale = 200;
    p.d.VelocitaMassima = 20;
    Sezioni(2);
    T(1) = Tronco{};
    T(1).ID_P_TRONCO = 100;
    T(1).ID_CONTEMP = 80;
    T(1).ID_VELOCITA = 12.5f;
    T(2) = Tronco{};
    T(2).ID_VELOCITA = 19.333f;  // reached or not, every record counts
    CopertinaRelazione c = Copertina(p.d);
    EXPECT_EQ(c.titolo, "Rete gas in pressione");
    EXPECT_EQ(c.riferimento, std::string(70, 'R'));
    EXPECT_EQ(c.pressioneIniziale, " 300.00  kPa");
    EXPECT_EQ(c.pressioneInizialeBar, "3.000 bar");
    EXPECT_EQ(c.velocitaImpostata, " 20.0  m/s");
    EXPECT_EQ(c.velocitaCalcolata, " 19.33  m/s");
    EXPECT_EQ(c.portataNominale, " 125.0  Nmc/h");  // 100 undone of its 80 %
    EXPECT_EQ(c.portataContemporanea, " 100.0  Nmc/h");

    T(1).ID_CONTEMP = 0;
    try {
        Copertina(p.d);
        ADD_FAILURE();
    } catch (const ErroreEsecuzione& e) {
        EXPECT_EQ(e.Codice(), 11);
    }
    T(1).ID_P_TRONCO = 0;
    try {
        Copertina(p.d);
        ADD_FAILURE();
    } catch (const ErroreEsecuzione& e) {
        EXPECT_EQ(e.Codice(), 6);
    }
}

TEST(TenutaRelazione, VociDelVerbale) {
    VerificaTenuta r;
    r.CauseIntervento = "1;;3;;;;7";
    r.CausaAltro = "perdita al contatore";
    r.Via = "Via Po";
    r.Numero = "3";
    r.Scala = "C";
    r.MetodoProva = 2;
    r.EsitoProva = 2;
    r.FamigliaGas = 0;
    r.AppAltroNum = 0;
    r.AppAltroDesc = "non stampata";
    const std::vector<VoceTenuta> v = TenutaRelazione(r, "METANO");
    auto trova = [&](const std::string& s) {
        return std::find_if(v.begin(), v.end(), [&](const VoceTenuta& x) { return x.testo == s; }) != v.end();
    };
    EXPECT_TRUE(trova("Via Po n° 3 scala C"));
    EXPECT_TRUE(trova("PROVA PRELIMINARE MEDIANTE RILEVAZIONE C.D.P."));
    EXPECT_FALSE(trova("PROVA PRELIMINARE CON CONTATORE"));
    EXPECT_TRUE(trova("Tenuta idonea al funzionamento temporaneo (*)"));
    EXPECT_FALSE(trova("Tenuta non idonea al funzionamento (**)"));
    EXPECT_FALSE(trova("Giulia"));
    const auto cause =
        std::find_if(v.begin(), v.end(), [](const VoceTenuta& x) { return x.tipo == VoceTenuta::Tipo::Elenco; });
    ASSERT_NE(cause, v.end());
    EXPECT_EQ(cause->elementi, (std::vector<std::string>{"- Sostituzione apparecchio", "- Riattivazione impianto",
                                                         "- Altro: perdita al contatore"}));
    const auto app =
        std::find_if(v.begin(), v.end(), [](const VoceTenuta& x) { return x.tipo == VoceTenuta::Tipo::Apparecchi; });
    ASSERT_NE(app, v.end());
    EXPECT_EQ(app->coppie.back().second, " di altro tipo");  // no count, no description
    // A family outside 1..3 prints an empty line before the gas name.
    const auto gas = std::find_if(v.begin(), v.end(), [](const VoceTenuta& x) { return x.testo == "METANO"; });
    ASSERT_NE(gas, v.begin());
    EXPECT_EQ((gas - 1)->testo, "");

    // A cause string of other than seven fields prints no cause at all; the owner's lines
    // stand only with the owner's name.
    r.CauseIntervento = "1;2;3";
    r.ProprietarioNome2 = "Giulia";
    r.Via2 = "Via Roma";
    r.NumCiv = "1";
    r.ComuneResidenza = "Lodi";
    const std::vector<VoceTenuta> w = TenutaRelazione(r, "METANO");
    const auto cause2 =
        std::find_if(w.begin(), w.end(), [](const VoceTenuta& x) { return x.tipo == VoceTenuta::Tipo::Elenco; });
    EXPECT_TRUE(cause2->elementi.empty());
    const auto nome = std::find_if(w.begin(), w.end(), [](const VoceTenuta& x) { return x.testo == "Giulia"; });
    ASSERT_NE(nome, w.end());
    EXPECT_EQ((nome + 1)->testo, "Via Roma n° 1");
    EXPECT_EQ((nome + 2)->testo, " - Lodi");
}

// ---- Runs ----

struct Corsa : ::testing::Test {
    ProgettoAperto p;
    void SetUp() override {
        ASSERT_TRUE(p.Apri(FORNAX_BUILD_DATA_DIR, std::string(FORNAX_SOURCE_DIR) + "/data/esempi/appartamento.RTG",
                           "/home/utente/Lavori/appartamento.RTG"));
    }
};

size_t Conta(const std::string& testo, const std::string& cosa) {
    size_t n = 0;
    for (size_t i = testo.find(cosa); i != std::string::npos; i = testo.find(cosa, i + 1)) ++n;
    return n;
}

TEST_F(Corsa, SoloLoSchemaHaLaSuaPaginaNumerata1) {
    std::vector<std::string> salvati;
    const SalvaSchema schema = [&](const std::string& f) {
        salvati.push_back(f);
        std::ofstream(f, std::ios::binary) << "BM";
    };
    p.d.Riferimento = "Via A.Volta 3/b";
    const OpzioniStampa o = ProgettoAperto::Opzioni("BBABBBBB");
    ASSERT_TRUE(PrintHTMLFile(p.d, p.a, o, p.uscita.Percorso("schema.html"), p.av, p.msg, schema).riuscita);
    const std::string html = p.uscita.LeggiByte("schema.html");
    ASSERT_EQ(salvati.size(), 1u);
    EXPECT_EQ(salvati[0], p.uscita.Percorso("Via A_Volta 3_b.bmp"));
    EXPECT_EQ(Conta(html, "class='headerpage'"), 1u);  // the schema page's only
    EXPECT_NE(html.find("<BODY>\r\n<DIV class='headerpage' style='top:1mm'>\r\n"), std::string::npos);
    EXPECT_NE(html.find("<DIV class='bodypage' style='top:17mm; width:170mm'>\r\n"
                        "<IMG src='Via A_Volta 3_b.bmp' align='middle' style='width:200mm'></IMG><BR>\r\n"),
              std::string::npos);
    EXPECT_NE(html.find("<TD style='text-align:left'>/home/utente/Lavori/appartamento.RTG - Riferimento: "
                        "Via A.Volta 3/b</TD>\r\n</TR>\r\n</TABLE>\r\n</DIV>\r\n"
                        "<DIV class='footerpage' style='top:265mm'>"),
              std::string::npos);
    EXPECT_NE(html.find("Pagina: 1</TD>"), std::string::npos);
    EXPECT_EQ(Conta(html, "Pagina: "), 1u);

    // The text has nothing of the schema: the file exists and is empty; the picture's name
    // keeps its points and slashes.
    salvati.clear();
    p.d.Riferimento = "Casa";
    ASSERT_TRUE(PrintTXTFile(p.d, p.a, o, p.uscita.Percorso("schema.txt"), p.av, p.msg, schema).riuscita);
    EXPECT_TRUE(std::filesystem::exists(p.uscita.Percorso("schema.txt")));
    EXPECT_EQ(p.uscita.LeggiByte("schema.txt"), "");
    EXPECT_EQ(salvati, std::vector<std::string>{p.uscita.Percorso("Casa.bmp")});
}

TEST_F(Corsa, LoSchemaDopoLeAltreSezioniSegueLUltimaPagina) {
    const SalvaSchema schema = [](const std::string& f) { std::ofstream(f, std::ios::binary) << "BM"; };
    const OpzioniStampa o = ProgettoAperto::Opzioni("AAABBBBB");  // cover, sections, schema
    ASSERT_TRUE(PrintHTMLFile(p.d, p.a, o, p.uscita.Percorso("r.html"), p.av, p.msg, schema).riuscita);
    const std::string html = p.uscita.LeggiByte("r.html");
    // Cover on page 1, sections on page 2, the schema on page 3.
    EXPECT_NE(html.find("Pagina: 2</TD>\r\n</TR>\r\n</TABLE>\r\n</DIV>\r\n<DIV class='headerpage' style='top:578mm'>"),
              std::string::npos);
    EXPECT_NE(html.find("<DIV class='bodypage' style='top:595mm; width:170mm'>"), std::string::npos);
    EXPECT_NE(html.find("<DIV class='footerpage' style='top:843mm'>"), std::string::npos);
    EXPECT_NE(html.find("Pagina: 3</TD>"), std::string::npos);
    EXPECT_TRUE(html.size() > 9 && html.compare(html.size() - 9, 9, "</HTML>\r\n") == 0);
}

// A bitmap header of the given size in pixels.
std::string Bmp(int32_t w, int32_t h) {
    std::string b(54, '\0');
    b[0] = 'B';
    b[1] = 'M';
    auto le = [&](size_t o, int32_t v) {
        for (int k = 0; k < 4; ++k)
            b[o + static_cast<size_t>(k)] = static_cast<char>((static_cast<uint32_t>(v) >> (8 * k)) & 0xFF);
    };
    le(14, 40);
    le(18, w);
    le(22, h);
    return b;
}

TEST_F(Corsa, LogoNellIntestazioneECopiatoAccantoAllaRelazione) {
    MessaggiRegistrati msg;
    EXPECT_FALSE(ControllaLogo(p.programma.Percorso(), msg));  // no logo: no message
    EXPECT_TRUE(msg.mostrati.empty());
    p.programma.ScriviByte("logo.bmp", Bmp(153, 20));  // 2295 x 300 twips: the largest that fits
    EXPECT_TRUE(ControllaLogo(p.programma.Percorso(), msg));
    p.programma.ScriviByte("logo.bmp", Bmp(154, 20));
    EXPECT_FALSE(ControllaLogo(p.programma.Percorso(), msg));
    p.programma.ScriviByte("logo.bmp", Bmp(153, -21));  // a top-down bitmap, too tall
    EXPECT_FALSE(ControllaLogo(p.programma.Percorso(), msg));
    ASSERT_EQ(msg.mostrati.size(), 2u);
    EXPECT_EQ(msg.mostrati[0].testo,
              "Le dimensioni massime consentite sono 184 X 41 pixel.\nIl logo non verrà stampato.");

    p.programma.ScriviByte("logo.bmp", Bmp(100, 20));
    OpzioniStampa o = ProgettoAperto::Opzioni("ABBBBBBB");
    o.logo = ControllaLogo(p.programma.Percorso(), msg);
    ASSERT_TRUE(o.logo);
    const std::string html = p.Html(o);
    EXPECT_EQ(Conta(html, "<TD ALIGN='Left'>\r\n<IMG src='logo.bmp' width='80' height='40' >\r\n</TD>"), 2u);
    EXPECT_EQ(p.uscita.LeggiByte("logo.bmp"), Bmp(100, 20));
    p.Txt(o, "r.txt");
    EXPECT_EQ(p.uscita.LeggiByte("logo.bmp"), Bmp(100, 20));
}

TEST_F(Corsa, UnErroreFermaLaCorsaELasciaIlFileComEra) {
    // A folder that doesn't exist: the opening fails.
    const OpzioniStampa o = ProgettoAperto::Opzioni("AABAAAAA");
    const EsitoStampa e = PrintHTMLFile(p.d, p.a, o, p.uscita.Percorso("manca/r.html"), p.av, p.msg);
    EXPECT_FALSE(e.riuscita);
    EXPECT_EQ(e.fase, Fase::APERTURA);
    EXPECT_EQ(e.codice, 76);
    EXPECT_EQ(TestoErroreStampa("Stampa su file HTML.", e),
              "Stampa su file HTML.\nErrore nell'apertura del file.\nCodice d'errore: 76\n"
              "Descrizione errore: Impossibile trovare il percorso");

    // A column without width in the table of sections: the cover is written, the table fails
    // and the file stays as far as it was written.
    p.a.Colonne.Tabelle[1][0].Larghezza = 0;
    MessaggiRegistrati msg;
    EXPECT_FALSE(StampaTXT(p.d, p.a, o, p.uscita.Percorso("r.txt"), p.av, msg));
    ASSERT_EQ(msg.mostrati.size(), 1u);
    EXPECT_EQ(msg.mostrati[0].titolo, "Errore");
    EXPECT_EQ(msg.mostrati[0].flags, Box::EXCLAMATION);
    EXPECT_EQ(msg.mostrati[0].testo,
              "Stampa su file TXT.\nErrore nella stampa della tabella dei tronchi.\nCodice d'errore: 5\n"
              "Descrizione errore: Chiamata di routine o argomento non validi");
    const std::string scritto = p.uscita.LeggiByte("r.txt");
    EXPECT_EQ(scritto.rfind("Schema di impianto interno gas\r\n", 0), 0u);
    // The title went out; the run stopped at the column titles, which the column can't hold.
    const std::string fine = "\r\nTabella dati tronchi\r\n\r\n";
    ASSERT_GT(scritto.size(), fine.size());
    EXPECT_EQ(scritto.substr(scritto.size() - fine.size()), fine);

    msg.mostrati.clear();
    EXPECT_FALSE(StampaHTML(p.d, p.a, o, p.uscita.Percorso("r.html"), p.av, msg));
    EXPECT_EQ(msg.mostrati.at(0).testo.substr(0, 68),
              "Stampa su file HTML.\nErrore nella stampa della tabella dei tronchi.\n");

    p.a.Colonne.Tabelle[1][0].Larghezza = 3;
    msg.mostrati.clear();
    EXPECT_TRUE(StampaHTML(p.d, p.a, o, p.uscita.Percorso("r.html"), p.av, msg));
    ASSERT_EQ(msg.mostrati.size(), 1u);
    EXPECT_EQ(msg.mostrati[0].testo, "Stampa su file HTML conclusa con successo.");
    EXPECT_EQ(msg.mostrati[0].titolo, "Conclusione");
    EXPECT_EQ(msg.mostrati[0].flags, Box::INFORMATION);
}

TEST_F(Corsa, UnFileEsistenteSiSostituisceSoloConSi) {
    MessaggiRegistrati msg;
    EXPECT_TRUE(UscitaConfermata(p.uscita.Percorso("nuovo.html"), msg));
    EXPECT_TRUE(msg.mostrati.empty());
    EXPECT_FALSE(UscitaConfermata("", msg));  // no name: the run ends silently
    p.uscita.ScriviByte("c'era.html", "x");
    msg.risposte = {Risposta::NO, Risposta::YES};
    EXPECT_FALSE(UscitaConfermata(p.uscita.Percorso("c'era.html"), msg));
    EXPECT_TRUE(UscitaConfermata(p.uscita.Percorso("c'era.html"), msg));
    ASSERT_EQ(msg.mostrati.size(), 2u);
    EXPECT_EQ(msg.mostrati[0].testo,
              "Un file con lo stesso nome è gia presente nella cartella selezionata.\nSi desidera sovrascriverlo?");
    EXPECT_EQ(msg.mostrati[0].titolo, "Sovrascrivere");
    EXPECT_EQ(msg.mostrati[0].flags, Box::YESNO | Box::QUESTION);
}

TEST_F(Corsa, LaCorsaRicalcolaPrimaDiStampare) {
    // Results left stale in the document never reach the report.
    for (int i = 1; i <= p.d.NumTronchi(); ++i) {
        p.d.T(i).ID_PDC_TRONCO = 999;
        p.d.T(i).Visitato = FALSO;
    }
    const std::string txt = p.Txt(ProgettoAperto::Opzioni("BABBBBBB"));
    EXPECT_EQ(txt.find("999"), std::string::npos);
    EXPECT_NE(txt.find("\r\n3\t1\tRAME-B\t"), std::string::npos);
}

}  // namespace
