// Tips at start and the publisher block: the reading of HINTS.CFG and SWCOMPANY.CFG, the
// next-tip rule across runs, the two settings, the delivered files.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/Rete.h"
#include "core/ServiziProva.h"
#include "housekeeping/Suggerimenti.h"
#include "tests/comune/CartellaProva.h"

using namespace fornax;
using fornax::prova::CartellaProva;

namespace {

// The texts shown by `n` calls of the next-tip rule ("-" for none).
std::vector<std::string> Mostrati(Suggerimenti& s, const BloccoEditore& e, int n) {
    std::vector<std::string> out;
    for (int i = 0; i < n; ++i) {
        const TipRecord* t = ProssimoSuggerimento(s, e);
        out.push_back(t ? t->Testo : "-");
    }
    return out;
}

BloccoEditore Distributore() {
    BloccoEditore b;
    b.Personalizzato = VERO;
    return b;
}

}  // namespace

TEST(LeggiHints, CommentiRigheVuoteACapoEMarche) {
    const auto t = LeggiHintsDaTesto(
        "# commento\r\n"
        "\r\n"
        "   \r\n"
        "Primo<br>a capo<BR>ancora\r\n"
        "Solo per l'editore <SWCOMPANY=1>\r\n"
        "Per<SWCOMPANY=0>tutti, virgole comprese\r\n"
        "<SWCOMPANY=1>\r\n"
        "Ultimo senza fine riga");
    // One record per tip, and the empty slot behind the last one.
    ASSERT_EQ(t.size(), 5u);
    EXPECT_EQ(t[0].Testo, "Primo\r\na capo\r\nancora");
    EXPECT_EQ(t[0].SoloEditore, 0);
    EXPECT_EQ(t[1].Testo, "Solo per l'editore ");
    EXPECT_EQ(t[1].SoloEditore, 1);
    // A tag in the middle of a line leaves the two halves joined.
    EXPECT_EQ(t[2].Testo, "Pertutti, virgole comprese");
    EXPECT_EQ(t[2].SoloEditore, 0);
    EXPECT_EQ(t[3].Testo, "Ultimo senza fine riga");
    EXPECT_EQ(t[4].Testo, "");
    EXPECT_EQ(t[4].SoloEditore, 0);
}

TEST(LeggiHints, FileMancanteNessunSuggerimentoNessunMessaggio) {
    CartellaProva dir{"hints"};
    const auto t = LeggiHints(dir.Percorso());
    ASSERT_EQ(t.size(), 1u);
    Suggerimenti s;
    s.ElencoTips = t;
    EXPECT_EQ(ProssimoSuggerimento(s, BloccoEditore{}), nullptr);
    dir.Scrivi("hints.cfg", "Unico\n");  // found without regard to case
    EXPECT_EQ(LeggiHints(dir.Percorso()).size(), 2u);
}

TEST(ProssimoSuggerimento, UnoDopoLAltroECominciaDaCapo) {
    Suggerimenti s;
    s.ElencoTips = LeggiHintsDaTesto("A\nB\nC\n");
    EXPECT_EQ(Mostrati(s, BloccoEditore{}, 4), (std::vector<std::string>{"A", "B", "C", "A"}));
    EXPECT_EQ(s.UltimoSuggerimento, 1);
}

TEST(ProssimoSuggerimento, CasiLimite) {
    struct Caso {
        const char* nome;
        const char* file;
        int16_t ultimo;
        bool distributore;
        std::vector<std::string> attesi;
        int16_t ultimoDopo;
    };
    const std::vector<Caso> casi = {
        // One tip: U is 1, and that tip every time.
        {"un solo suggerimento", "Unico\n", 0, false, {"Unico", "Unico", "Unico"}, 1},
        // HintLast beyond the end is brought back by the modulus.
        {"HintLast oltre la fine", "A\nB\nC\n", 7, false, {"B", "C"}, 3},
        {"HintLast negativo", "A\nB\nC\n", -1, false, {"C", "A"}, 1},
        // A distributor's copy skips the publisher's tips...
        {"distributore", "A<SWCOMPANY=1>\nB\nC<SWCOMPANY=1>\n", 0, true, {"B", "B"}, 2},
        // ...which the publisher's own copy shows.
        {"editore", "A<SWCOMPANY=1>\nB\nC<SWCOMPANY=1>\n", 0, false, {"A", "B", "C"}, 3},
        // Only publisher's tips on a distributor's copy: one pass, then no tip, no endless loop.
        {"solo tip dell'editore", "A<SWCOMPANY=1>\nB<SWCOMPANY=1>\n", 1, true, {"-", "-"}, 1},
    };
    for (const auto& c : casi) {
        Suggerimenti s;
        s.ElencoTips = LeggiHintsDaTesto(c.file);
        s.UltimoSuggerimento = c.ultimo;
        BloccoEditore e = c.distributore ? Distributore() : BloccoEditore{};
        EXPECT_EQ(Mostrati(s, e, static_cast<int>(c.attesi.size())), c.attesi) << c.nome;
        EXPECT_EQ(s.UltimoSuggerimento, c.ultimoDopo) << c.nome;
    }
}

TEST(ImpostazioniHints, PredefinitiLetturaEScrittura) {
    ImpostazioniInMemoria imp;
    Suggerimenti s;
    s.MostraSuggerimenti = FALSO;
    s.UltimoSuggerimento = 9;
    LeggiImpostazioniHints(s, imp);
    EXPECT_EQ(s.MostraSuggerimenti, VERO);
    EXPECT_EQ(s.UltimoSuggerimento, 0);

    s.MostraSuggerimenti = FALSO;
    s.UltimoSuggerimento = 4;
    SalvaImpostazioniHints(s, imp);
    EXPECT_EQ(imp.Leggi("Settings", "HintsShow"), "false");
    EXPECT_EQ(imp.Leggi("Settings", "HintLast"), "4");
    Suggerimenti r;
    LeggiImpostazioniHints(r, imp);
    EXPECT_EQ(r.MostraSuggerimenti, FALSO);
    EXPECT_EQ(r.UltimoSuggerimento, 4);

    // A damaged setting never stops the tips for good nor sends the index astray.
    imp.Scrivi("Settings", "HintsShow", "forse");
    imp.Scrivi("Settings", "HintLast", "x");
    LeggiImpostazioniHints(r, imp);
    EXPECT_EQ(r.MostraSuggerimenti, VERO);
    EXPECT_EQ(r.UltimoSuggerimento, 0);
}

TEST(BloccoEditore, FileDelDistributoreOppureIlBloccoIncorporato) {
    CartellaProva dir{"swcompany"};
    const BloccoEditore mancante = LeggiBloccoEditore(dir.Percorso());
    EXPECT_EQ(mancante.Personalizzato, FALSO);
    EXPECT_FALSE(mancante.Riga1.empty());
    EXPECT_FALSE(mancante.Riga4.empty());

    // The delivered model, comments only, leaves the built-in block.
    dir.Scrivi("SWCOMPANY.CFG", "# Nome\n# Indirizzo\n\n");
    EXPECT_EQ(LeggiBloccoEditore(dir.Percorso()).Personalizzato, FALSO);

    dir.Scrivi("SWCOMPANY.CFG",
               "# distributore\nTermoGas S.r.l.\n\nVia Po 3, Torino\n# telefono\nTel. 011 000000\n"
               "www.termogas.example\nriga in più\n");
    const BloccoEditore b = LeggiBloccoEditore(dir.Percorso());
    EXPECT_EQ(b.Personalizzato, VERO);
    EXPECT_EQ(b.Riga1, "TermoGas S.r.l.");
    EXPECT_EQ(b.Riga2, "Via Po 3, Torino");
    EXPECT_EQ(b.Riga3, "Tel. 011 000000");
    EXPECT_EQ(b.Riga4, "www.termogas.example");

    // Fewer lines than four: the rest stay empty.
    dir.Scrivi("SWCOMPANY.CFG", "Solo il nome\n");
    const BloccoEditore c = LeggiBloccoEditore(dir.Percorso());
    EXPECT_EQ(c.Personalizzato, VERO);
    EXPECT_EQ(c.Riga1, "Solo il nome");
    EXPECT_EQ(c.Riga4, "");
}

TEST(DatiConsegnati, SuggerimentiEModelloDelDistributore) {
    const auto t = LeggiHints(FORNAX_SOURCE_DIR "/data");
    ASSERT_GE(t.size(), 16u);
    ASSERT_LE(t.size(), 26u);
    int perTutti = 0;
    for (size_t i = 0; i + 1 < t.size(); ++i) {
        EXPECT_FALSE(t[i].Testo.empty());
        EXPECT_EQ(t[i].Testo.find('<'), std::string::npos) << t[i].Testo;  // every tag understood
        if (t[i].SoloEditore == 0) ++perTutti;
    }
    // A distributor's copy still has tips to show.
    EXPECT_GE(perTutti, 15);
    // Accented letters come through the Windows code page.
    bool accenti = false;
    for (const auto& r : t) accenti = accenti || r.Testo.find("può") != std::string::npos;
    EXPECT_TRUE(accenti);
    EXPECT_EQ(LeggiBloccoEditore(FORNAX_SOURCE_DIR "/data").Personalizzato, FALSO);
}
