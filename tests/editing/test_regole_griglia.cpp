// The grid's rules that need no window: what a committed text does to the records and to the
// tree, with the product's messages; how a cell shows its verdict; the pressure combos; the
// three ways of deleting sections.
#include <gtest/gtest.h>

#include <memory>

#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "calc/Calcolo.h"
#include "calc/Verifica.h"
#include "core/ServiziProva.h"
#include "documento/Progetto.h"
#include "editing/Cancellazione.h"
#include "editing/RegoleGriglia.h"
#include "sessione/Sessione.h"

namespace fornax {
namespace {

struct Banco {
    Archivi a;
    ImpostazioniInMemoria imp;
    Sessione s{a, imp};
    Documento& d = s.d;
    MessaggiRegistrati msg;

    explicit Banco(const std::string& cartella = FORNAX_BUILD_DATA_DIR) {
        AvanzamentoNullo av;
        CaricaArchivi(s, cartella, av, msg, false);
        msg.mostrati.clear();
    }

    // A chain 1 <- 2 <- 3 with a second branch 1 <- 4, and 5 under 3: flows on the ends.
    void Albero() {
        const auto materiali = a.NomiMateriali();
        NuovoTronco(d, 0, materiali, a.Default.DefaultMateriale, msg);  // 1
        NuovoTronco(d, 1, materiali, a.Default.DefaultMateriale, msg);  // 2
        NuovoTronco(d, 2, materiali, a.Default.DefaultMateriale, msg);  // 3
        NuovoTronco(d, 1, materiali, a.Default.DefaultMateriale, msg);  // 4
        NuovoTronco(d, 3, materiali, a.Default.DefaultMateriale, msg);  // 5
        d.T(4).ID_P_UTENZE = d.T(4).ID_P_TRONCO = 1.2f;
        d.T(5).ID_P_UTENZE = d.T(5).ID_P_TRONCO = 0.8f;
        for (int i = 1; i <= 5; ++i) d.T(i).ID_LEN = 3.0f;
        msg.mostrati.clear();
    }

    EsitoConferma Conferma(int da, int a_, int id, const std::string& testo, const ScegliDiametro& scegli = {}) {
        return ConfermaCelle(d, a, da, a_, id, testo, msg, scegli);
    }
};

std::unique_ptr<Banco> NuovoBanco() { return std::make_unique<Banco>(); }

TEST(FiltroCella, TieneSoloCiòCheUnNumeroOUnNomePossonoContenere) {
    EXPECT_EQ(FiltraTestoCella(" 12,5 ", true), "12,5");
    EXPECT_EQ(FiltraTestoCella("***", true), "");
    EXPECT_EQ(FiltraTestoCella("-1.5e-3", true), "-1.5e-3");
    EXPECT_EQ(FiltraTestoCella("3/4\"", false), "3/4\"");
    EXPECT_EQ(FiltraTestoCella("***", false), "");
    EXPECT_EQ(FiltraTestoCella("Cucina\t", false), "Cucina");
    EXPECT_EQ(NormalizzaTesto("2,75"), "2.75");
}

TEST(ConfermaProvenienza, MessaggiEValoriRifiutati) {
    auto b = NuovoBanco();
    b->Albero();
    const Tronco prima = b->d.T(3);

    // From itself: the message, and nothing changes (not even the modified mark).
    b->d.ReteModificata = FALSO;
    auto e = b->Conferma(3, 3, Id::ID_PREV, "3");
    EXPECT_TRUE(e.interrotto);
    EXPECT_EQ(b->msg.Testi(), std::vector<std::string>{"Il tronco non puo' provenire da se stesso!"});
    EXPECT_EQ(b->d.T(3).ID_PREV, prima.ID_PREV);
    EXPECT_EQ(b->d.T(2).ID_LEFT, 3);
    EXPECT_EQ(b->d.ReteModificata, FALSO);

    // Above the table: message, the cell is emptied.
    b->msg.mostrati.clear();
    e = b->Conferma(3, 3, Id::ID_PREV, "401");
    ASSERT_EQ(e.righe.size(), 1u);
    EXPECT_EQ(e.righe[0].testo, "");
    EXPECT_EQ(b->msg.Testi(), std::vector<std::string>{"Valore di provenienza troppo alto"});
    EXPECT_EQ(b->d.T(3).ID_PREV, 2);

    // Negative: the message with its two blanks.
    b->msg.mostrati.clear();
    e = b->Conferma(3, 3, Id::ID_PREV, "-2");
    EXPECT_EQ(b->msg.Testi(), std::vector<std::string>{"Valori  negativi non validi"});
    EXPECT_EQ(e.righe[0].testo, "");
    EXPECT_EQ(b->d.T(2).ID_LEFT, 3);

    // 400 passes the range test: the record 400 takes the section as its first derivation.
    b->msg.mostrati.clear();
    e = b->Conferma(3, 3, Id::ID_PREV, "400");
    EXPECT_FALSE(e.interrotto);
    EXPECT_TRUE(b->msg.mostrati.empty());
    EXPECT_EQ(b->d.T(3).ID_PREV, 400);
    EXPECT_EQ(b->d.T(400).ID_LEFT, 3);
    EXPECT_EQ(b->d.T(2).ID_LEFT, 0);
    // The parent joins the table, so that deletes and renumbering keep its links.
    EXPECT_EQ(b->d.NumTronchi(), 400);
    EXPECT_EQ(b->d.T(400).ID_PREV, 0);
    EXPECT_EQ(b->d.T(399).ID_LEFT, 0);
}

// A parent that was freed by "Cancella tronchi" is taken back as a section without a parent:
// "Elimina e compatta" later keeps it, and the links that name it agree after the renumbering.
TEST(ConfermaProvenienza, PadreLiberatoTornaNellaTabella) {
    auto b = NuovoBanco();
    b->Albero();
    const Rinfresco nulla{};
    ASSERT_TRUE(CancellaSezione(b->d, 4, TipoCancellazione::CANCELLA, b->msg, nulla));
    ASSERT_TRUE(CancellaSezione(b->d, 2, TipoCancellazione::CANCELLA, b->msg, nulla));  // 2, 3 and 5
    b->Conferma(7, 7, Id::ID_PREV, "3");
    EXPECT_EQ(b->d.T(3).ID_SCOLLEGATO, FALSO);
    EXPECT_EQ(b->d.T(3).ID_CANCELLATO, FALSO);
    EXPECT_EQ(b->d.T(3).ID_LEFT, 7);
    // A new section takes the first freed record (2), not the parent taken back.
    EXPECT_EQ(NuovoTronco(b->d, 1, b->a.NomiMateriali(), b->a.Default.DefaultMateriale, b->msg), 2);

    CancellaRighe(b->d, 4, 4, TipoCancellazione::ELIMINA_E_COMPATTA, nulla);
    // The freed 4 and 5 go; the blank row 6 (the table grew over it) becomes 4, and 7 becomes 5.
    EXPECT_EQ(b->d.NumTronchi(), 5);
    EXPECT_EQ(b->d.T(3).ID_LEFT, 5);
    EXPECT_EQ(b->d.T(5).ID_PREV, 3);
    EXPECT_EQ(b->d.T(4).ID_PREV, 0);
    EXPECT_EQ(b->d.T(1).ID_LEFT, 2);
}

TEST(ConfermaProvenienza, SpostaIlTroncoNellAlbero) {
    auto b = NuovoBanco();
    b->Albero();
    // Section 5 moves from 3 to 4; 4 is a consumer with a flow: the question, answered Yes.
    b->msg.risposte.push_back(Risposta::YES);
    auto e = b->Conferma(5, 5, Id::ID_PREV, "4");
    ASSERT_EQ(b->msg.mostrati.size(), 1u);
    EXPECT_EQ(b->msg.mostrati[0].testo, "Il tronco di provenienza e' una utenza!\r\n Azzero la portata?");
    EXPECT_EQ(b->msg.mostrati[0].flags, 36);
    EXPECT_EQ(b->d.T(5).ID_PREV, 4);
    EXPECT_EQ(b->d.T(4).ID_LEFT, 5);
    EXPECT_EQ(b->d.T(3).ID_LEFT, 0);
    // The question speaks of the flow, which stays: it stops mattering now that 4 has a child.
    EXPECT_FLOAT_EQ(b->d.T(4).ID_P_UTENZE, 1.2f);
    EXPECT_EQ(b->d.ReteModificata, VERO);

    // The first section always leaves from the source.
    e = b->Conferma(1, 1, Id::ID_PREV, "3");
    EXPECT_EQ(e.righe[0].testo, "0");
    EXPECT_EQ(b->d.T(1).ID_PREV, 0);
    EXPECT_EQ(b->d.T(3).ID_LEFT, 0);
}

TEST(ConfermaProvenienza, RispostaNoEPadreConDueDerivazioni) {
    auto b = NuovoBanco();
    b->Albero();
    // No: the section is cut from its old parent, yet keeps the number in ID_PREV.
    b->msg.risposte.push_back(Risposta::NO);
    b->Conferma(5, 5, Id::ID_PREV, "4");
    EXPECT_EQ(b->d.T(5).ID_PREV, 3);
    EXPECT_EQ(b->d.T(3).ID_LEFT, 0);
    EXPECT_EQ(b->d.T(4).ID_LEFT, 0);

    // A parent with two derivations: the message, and the section ends out of the tree.
    auto c = NuovoBanco();
    c->Albero();
    c->Conferma(5, 5, Id::ID_PREV, "1");
    EXPECT_EQ(c->msg.Testi(), std::vector<std::string>{"Errore! Il tronco 1 ha gia' due derivazioni"});
    EXPECT_EQ(c->d.T(5).ID_PREV, 0);
    EXPECT_EQ(c->d.T(3).ID_LEFT, 0);
    EXPECT_EQ(c->d.T(1).ID_LEFT, 2);
    EXPECT_EQ(c->d.T(1).ID_RIGHT, 4);
}

TEST(ConfermaCampi, PortataLunghezzaRiferimento) {
    auto b = NuovoBanco();
    b->Albero();
    b->Conferma(4, 4, Id::ID_P_UTENZE, "2,5");
    EXPECT_FLOAT_EQ(b->d.T(4).ID_P_UTENZE, 2.5f);
    EXPECT_FLOAT_EQ(b->d.T(4).ID_P_TRONCO, 2.5f);
    // Typing 0 clears both flows, even when the section's flow was something else.
    b->d.T(4).ID_P_TRONCO = 7.0f;
    b->Conferma(4, 4, Id::ID_P_UTENZE, "0");
    EXPECT_EQ(b->d.T(4).ID_P_UTENZE, 0.0f);
    EXPECT_EQ(b->d.T(4).ID_P_TRONCO, 0.0f);

    b->Conferma(2, 2, Id::ID_LEN, "12.7abc");
    EXPECT_FLOAT_EQ(b->d.T(2).ID_LEN, 12.7f);
    const auto e = b->Conferma(2, 2, Id::ID_RIF, "  cucina e bagno ");
    EXPECT_EQ(e.righe[0].testo, "CUCINA E BAGNO");
    EXPECT_EQ(b->d.T(2).ID_RIF, "CUCINA E BAGNO");

    // Writing in a cut row brings it back.
    b->d.T(5).ID_SCOLLEGATO = VERO;
    b->Conferma(5, 5, Id::ID_LEN, "4");
    EXPECT_EQ(b->d.T(5).ID_SCOLLEGATO, FALSO);
}

TEST(ConfermaCampi, DiametroFissoAutomaticoElenco) {
    auto b = NuovoBanco();
    b->Albero();
    Tronco& t = b->d.T(2);
    ASSERT_GE(t.IndiceMateriale, 1);
    const std::string primo = b->a.Materiali[static_cast<size_t>(t.IndiceMateriale)].Righe[1].DN;
    auto e = b->Conferma(2, 2, Id::ID_DIAMETRO, primo);
    EXPECT_EQ(e.righe[0].diametro, 1);
    EXPECT_EQ(t.ID_DIAMETRO, primo);
    EXPECT_EQ(t.ID_DIAMCUSTOM, VERO);

    // "Auto" gives the choice back to the calculation; the text stays until it runs.
    e = b->Conferma(2, 2, Id::ID_DIAMETRO, "Auto");
    EXPECT_EQ(e.righe[0].diametro, -1);
    EXPECT_EQ(t.ID_DIAMCUSTOM, FALSO);
    EXPECT_EQ(t.ID_DIAMETRO, primo);

    // The same text as the record, not fixed: nothing changes.
    e = b->Conferma(2, 2, Id::ID_DIAMETRO, primo);
    EXPECT_EQ(e.righe[0].diametro, 0);
    EXPECT_EQ(t.ID_DIAMCUSTOM, FALSO);

    // A size the material hasn't is not fixed.
    e = b->Conferma(2, 2, Id::ID_DIAMETRO, "99 pollici");
    EXPECT_EQ(t.ID_DIAMCUSTOM, FALSO);

    // "?" asks the list of the row's material; the choice is committed.
    int chiesto = 0;
    const std::string secondo = b->a.Materiali[static_cast<size_t>(t.IndiceMateriale)].Righe[2].DN;
    e = b->Conferma(2, 2, Id::ID_DIAMETRO, "?", [&](int m) {
        chiesto = m;
        return secondo;
    });
    EXPECT_EQ(chiesto, t.IndiceMateriale);
    EXPECT_EQ(e.righe[0].testo, secondo);
    EXPECT_EQ(t.ID_DIAMETRO, secondo);
    EXPECT_EQ(t.ID_DIAMCUSTOM, VERO);

    const auto elenco = ElencoDiametri(b->a, t.IndiceMateriale);
    ASSERT_GE(elenco.size(), 3u);
    EXPECT_EQ(elenco[0], "Auto");
    EXPECT_EQ(elenco[1], primo);
    EXPECT_TRUE(ElencoDiametri(b->a, 0).empty());
}

TEST(ConfermaCampi, PiuRigheEUnaRigaNuova) {
    auto b = NuovoBanco();
    b->Albero();
    b->d.ReteModificata = FALSO;
    b->Conferma(2, 4, Id::ID_LEN, "7,5");
    for (int r = 2; r <= 4; ++r) EXPECT_FLOAT_EQ(b->d.T(r).ID_LEN, 7.5f) << r;
    EXPECT_FLOAT_EQ(b->d.T(5).ID_LEN, 3.0f);
    EXPECT_EQ(b->d.ReteModificata, VERO);

    // A row past the table joins it, blank whatever an earlier document left, and takes the
    // material of the row above.
    b->d.T(6).ID_NCURVE = 9;
    b->d.T(5).IndiceMateriale = 5;
    b->d.T(5).ID_MATERIALE = b->a.Materiali[5].Nome;
    b->Conferma(6, 6, Id::ID_PREV, "5");
    EXPECT_EQ(b->d.NumTronchi(), 6);
    EXPECT_EQ(b->d.T(6).ID_NCURVE, 0);
    EXPECT_EQ(b->d.T(6).IndiceMateriale, 5);
    EXPECT_EQ(b->d.T(6).ID_MATERIALE, b->a.Materiali[5].Nome);
    EXPECT_EQ(b->d.T(5).ID_LEFT, 6);

    // A commit stopped by a rule leaves the table as it was.
    b->Conferma(9, 9, Id::ID_PREV, "9");
    EXPECT_EQ(b->d.NumTronchi(), 6);

    ConfermaMateriale(b->d, b->a, 1, 3, 4);
    for (int r = 1; r <= 3; ++r) EXPECT_EQ(b->d.T(r).ID_MATERIALE, b->a.Materiali[4].Nome);
}

TEST(AspettoCelle, ColoriDeiVerdetti) {
    auto b = NuovoBanco();
    b->Albero();
    ColonnaTabella c;
    c.Formato = "##0.0";
    Verdetti v;

    c.Id = Id::ID_PDC_TRONCO;
    b->d.T(2).ID_PDC_TRONCO = 12.34f;
    auto s = AspettoDi(b->d, b->a, 2, c, v);
    EXPECT_EQ(s.testo, "12.3");
    EXPECT_EQ(s.inchiostro, Inchiostro::Blu);
    v.perditaFallita = true;
    s = AspettoDi(b->d, b->a, 2, c, v);
    EXPECT_EQ(s.testo, "***");
    EXPECT_EQ(s.inchiostro, Inchiostro::Rosso);

    c.Id = Id::ID_PDC_PERCORSO;
    v = Verdetti{};
    b->d.T(2).ID_PDC_PERCORSO = 55.0f;
    EXPECT_EQ(AspettoDi(b->d, b->a, 2, c, v).inchiostro, Inchiostro::Nero);
    v.percorsoOltre = true;
    EXPECT_EQ(AspettoDi(b->d, b->a, 2, c, v).inchiostro, Inchiostro::Rosso);
    b->d.T(2).ID_PDC_PERCORSO = -1.0f;
    EXPECT_EQ(AspettoDi(b->d, b->a, 2, c, v).testo, "***");

    c.Id = Id::ID_VELOCITA;
    v = Verdetti{};
    EXPECT_EQ(AspettoDi(b->d, b->a, 2, c, v).inchiostro, Inchiostro::Blu);
    v.velocitaOltre = true;
    EXPECT_EQ(AspettoDi(b->d, b->a, 2, c, v).inchiostro, Inchiostro::Rosso);

    c.Id = Id::ID_DIAMETRO;
    c.Formato = "@";
    v = Verdetti{};
    b->d.T(2).ID_DIAMETRO = "1\"";
    s = AspettoDi(b->d, b->a, 2, c, v);
    EXPECT_EQ(s.testo, "1\"");
    EXPECT_EQ(s.fondo, Fondo::Bianco);
    EXPECT_EQ(s.inchiostro, Inchiostro::Nero);
    v.diametroInsufficiente = true;
    b->d.T(2).ID_DIAMCUSTOM = VERO;
    s = AspettoDi(b->d, b->a, 2, c, v);
    EXPECT_EQ(s.fondo, Fondo::GialloPallido);
    EXPECT_EQ(s.inchiostro, Inchiostro::RossoScuro);

    // A junction that reduces its flows shows its flow in red.
    c.Id = Id::ID_P_TRONCO;
    c.Formato = "##0.00";
    v = Verdetti{};
    v.contemporaneita = true;
    EXPECT_EQ(AspettoDi(b->d, b->a, 1, c, v).inchiostro, Inchiostro::Rosso);

    // The final pressure counts only in a pressure network.
    c.Id = Id::ID_PFINALE;
    v = Verdetti{};
    v.pressioneFallita = true;
    EXPECT_NE(AspettoDi(b->d, b->a, 2, c, v).testo, "***");
    b->d.ReteInPressione = VERO;
    EXPECT_EQ(AspettoDi(b->d, b->a, 2, c, v).testo, "***");
}

TEST(AspettoCelle, ReteCalcolataConPercorsiOltreIlLimite) {
    const std::string accettazione = std::string(FORNAX_ACCETTAZIONE_DIR);
    auto b = std::make_unique<Banco>(accettazione + "/archives");
    AvanzamentoNullo av;
    ASSERT_TRUE(ApriProgetto(b->s, accettazione + "/projects/i14_dpmax_low_2008.RTG", b->msg, av));
    Ricalcola(b->s, b->msg);
    // A tighter limit than the one the network was sized for: the paths beyond it show red.
    b->d.DpMax = 10;
    ColonnaTabella c;
    c.Id = Id::ID_PDC_PERCORSO;
    c.Formato = "##0.0";
    int rossi = 0;
    for (int i = 1; i <= b->d.NumTronchi(); ++i) {
        const Verdetti v = VerificaTronco(b->a, b->d, i);
        const auto s = AspettoDi(b->d, b->a, i, c, v);
        const bool oltre = b->d.T(i).ID_PDC_PERCORSO > LimiteIntero(b->d);
        EXPECT_EQ(s.inchiostro == Inchiostro::Rosso, oltre || b->d.T(i).ID_PDC_PERCORSO < 0) << i;
        rossi += s.inchiostro == Inchiostro::Rosso;
    }
    EXPECT_EQ(rossi, 3);
    EXPECT_TRUE(b->msg.sostituzioniChieste.empty());
}

TEST(AspettoCelle, FondoDiUnDiametroChiusoDallUtente) {
    auto b = NuovoBanco();
    MaterialeTubo m;
    m.Nome = "PROVA";
    m.TipoFormula = 3;
    for (const char* dn : {"20", "25", "32"}) {
        RigaDiametro r;
        r.DN = dn;
        r.DiamInterno = 15;
        m.Righe.push_back(r);
    }
    b->a.Materiali.push_back(m);
    const int16_t indice = b->a.NumMateriali();
    b->Albero();
    Tronco& t = b->d.T(2);
    t.IndiceMateriale = indice;
    b->d.DpMax = 50;
    t.ID_PDC_PERCORSO = 80;
    // The largest size, still over the limit: no larger pipe can cure it.
    EXPECT_EQ(FondoDiametroModificato(b->d, b->a, 2, "32"), Fondo::RossoCupo);
    EXPECT_EQ(FondoDiametroModificato(b->d, b->a, 2, "40"), Fondo::RossoCupo);
    EXPECT_EQ(FondoDiametroModificato(b->d, b->a, 2, "25"), Fondo::GialloPallido);
    EXPECT_EQ(FondoDiametroModificato(b->d, b->a, 2, "Auto"), Fondo::GialloPallido);
    t.ID_PDC_PERCORSO = 20;
    EXPECT_EQ(FondoDiametroModificato(b->d, b->a, 2, "32"), Fondo::GialloPallido);
}

TEST(CombiPressione, AutoDefaultEColori) {
    const auto voci = VociComboPressione();
    ASSERT_EQ(voci.size(), 51u);
    EXPECT_EQ(voci.front(), "Auto");
    EXPECT_EQ(voci[1], "10");
    EXPECT_EQ(voci.back(), "500");

    EXPECT_EQ(ValoreComboPressione("Auto", "200"), 200.0);
    EXPECT_EQ(ValoreComboPressione("0", "150"), 150.0);
    EXPECT_EQ(ValoreComboPressione("-180", "200"), 180.0);
    EXPECT_EQ(ValoreComboPressione("1,5", "200"), 1.5);
    EXPECT_FALSE(PressioneDiversaDaDefault(200, "200"));
    EXPECT_TRUE(PressioneDiversaDaDefault(210, "200"));

    EXPECT_EQ(ValoreComboDpMax("auto"), 0.0);
    EXPECT_EQ(ValoreComboDpMax("80"), 80.0);

    auto b = NuovoBanco();
    b->Albero();
    EXPECT_EQ(TestoDpMax(b->d), "Auto");
    EXPECT_FALSE(DpMaxDiversoDaTabella(b->d));
    b->d.DpMax = 80;
    EXPECT_EQ(TestoDpMax(b->d), "80");
    EXPECT_TRUE(DpMaxDiversoDaTabella(b->d));
    // The table's own value typed in shows black.
    b->d.DpMax = 0;
    b->d.DpMax = LimitePdc(b->d);
    EXPECT_FALSE(DpMaxDiversoDaTabella(b->d));
}

struct Conta {
    int elabora = 0;
    int rigenera = 0;
    Rinfresco r() {
        return Rinfresco{[this] { ++elabora; }, [this] { ++rigenera; }};
    }
};

TEST(Cancellazione, PrimoTroncoNonSiScollegaDaSolo) {
    auto b = NuovoBanco();
    b->Albero();
    Conta n;
    EXPECT_FALSE(CancellaSezione(b->d, 1, TipoCancellazione::SCOLLEGA, b->msg, n.r()));
    ASSERT_EQ(b->msg.mostrati.size(), 1u);
    EXPECT_EQ(b->msg.mostrati[0].testo, "Non è possibile scollegare il primo tronco.");
    EXPECT_EQ(b->msg.mostrati[0].titolo, "Attenzione");
    EXPECT_EQ(b->msg.mostrati[0].flags, 64);
    EXPECT_EQ(b->d.NumTronchi(), 5);
    EXPECT_EQ(n.elabora + n.rigenera, 0);

    // From the rows it is carried out: the table empties.
    CancellaRighe(b->d, 1, 1, TipoCancellazione::SCOLLEGA, n.r());
    EXPECT_EQ(b->d.NumTronchi(), 0);
    EXPECT_EQ(n.elabora, 1);
}

TEST(Cancellazione, ScollegaTieneIlRamoSottoIlTroncoTagliato) {
    auto b = NuovoBanco();
    b->Albero();
    Conta n;
    ASSERT_TRUE(CancellaSezione(b->d, 3, TipoCancellazione::SCOLLEGA, b->msg, n.r()));
    EXPECT_EQ(b->d.T(3).ID_PREV, 0);
    EXPECT_EQ(b->d.T(3).ID_SCOLLEGATO, FALSO);
    EXPECT_EQ(b->d.T(3).ID_LEFT, 5);
    EXPECT_EQ(b->d.T(2).ID_LEFT, 0);
    EXPECT_EQ(b->d.NumTronchi(), 5);
    EXPECT_EQ(n.elabora, 1);
    // Re-attached by typing a parent in its row.
    ConfermaCelle(b->d, b->a, 3, 3, Id::ID_PREV, "2", b->msg, {});
    EXPECT_EQ(b->d.T(2).ID_LEFT, 3);
}

TEST(Cancellazione, CancellaLasciaBuchiEliminaRinumera) {
    auto b = NuovoBanco();
    b->Albero();
    Conta n;
    ASSERT_TRUE(CancellaSezione(b->d, 4, TipoCancellazione::CANCELLA, b->msg, n.r()));
    EXPECT_EQ(b->d.NumTronchi(), 5);
    EXPECT_EQ(b->d.T(4).ID_CANCELLATO, VERO);
    EXPECT_EQ(b->d.T(1).ID_RIGHT, 0);
    EXPECT_EQ(n.rigenera, 1);

    // Section 3 of 5 with "Elimina e compatta": its branch (3 and 5) goes, and section 4 becomes
    // 3 with its links redirected.
    auto c = NuovoBanco();
    c->Albero();
    Conta m;
    ASSERT_TRUE(CancellaSezione(c->d, 3, TipoCancellazione::ELIMINA_E_COMPATTA, c->msg, m.r()));
    EXPECT_EQ(c->d.NumTronchi(), 3);
    EXPECT_EQ(c->d.T(3).ID_PREV, 1);
    EXPECT_EQ(c->d.T(1).ID_LEFT, 2);
    EXPECT_EQ(c->d.T(1).ID_RIGHT, 3);
    EXPECT_EQ(c->d.T(2).ID_LEFT, 0);
    EXPECT_FLOAT_EQ(c->d.T(3).ID_P_UTENZE, 1.2f);
    EXPECT_EQ(m.rigenera, 2);
}

TEST(Cancellazione, PiuRigheConRigheGiaLiberate) {
    auto b = NuovoBanco();
    b->Albero();
    Conta n;
    // Rows 3..5: deleting 3 frees 5 as well; row 5 is then found empty.
    CancellaRighe(b->d, 5, 3, TipoCancellazione::ELIMINA_E_COMPATTA, n.r());
    EXPECT_EQ(n.elabora, 3);
    EXPECT_EQ(b->d.NumTronchi(), 2);
    EXPECT_EQ(b->d.T(1).ID_LEFT, 2);
    EXPECT_EQ(b->d.T(1).ID_RIGHT, 0);
    EXPECT_EQ(b->d.T(2).ID_PREV, 1);
    EXPECT_EQ(b->d.ReteModificata, VERO);

    // Rows beyond the table are not sections: a record left there that still names a parent of
    // the table takes nothing from it.
    auto c = NuovoBanco();
    c->Albero();
    c->d.T(7).ID_PREV = 1;
    CancellaRighe(c->d, 6, 9, TipoCancellazione::CANCELLA, n.r());
    EXPECT_FALSE(CancellaSezione(c->d, 7, TipoCancellazione::CANCELLA, c->msg, n.r()));
    EXPECT_EQ(c->d.T(1).ID_LEFT, 2);
    EXPECT_EQ(c->d.T(1).ID_RIGHT, 4);
}

}  // namespace
}  // namespace fornax
