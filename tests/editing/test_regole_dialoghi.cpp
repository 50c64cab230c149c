// The rules of the section panel and of the consumer dialogs without a window: the fitting
// lines of each kind of network, the spins, what OK writes for one section and for a multiple
// selection, the three linked values of a consumer, the composition of the cooking appliances.
#include <gtest/gtest.h>

#include <memory>

#include "archives/Speciali.h"
#include "core/Numeri.h"
#include "core/ServiziProva.h"
#include "core/Testo.h"
#include "editing/Modifiche.h"
#include "editing/ParametriTronco.h"
#include "editing/Portata.h"
#include "sessione/Sessione.h"

namespace fornax {
namespace {

struct Banco {
    Archivi a;
    Documento d;
    MessaggiRegistrati msg;

    explicit Banco(bool pressione = false) {
        AvanzamentoNullo av;
        CaricaArchivi(a, d, FORNAX_BUILD_DATA_DIR, av, msg, false);
        if (pressione) {
            d.ReteInPressione = VERO;
            EXPECT_TRUE(CaricaSpecialiPressione(d.Speciali, a.Cartella, msg));
        }
        // Sections 1 <- 2 <- 3 and 1 <- 4.
        const auto materiali = a.NomiMateriali();
        NuovoTronco(d, 0, materiali, a.Default.DefaultMateriale, msg);
        NuovoTronco(d, 1, materiali, a.Default.DefaultMateriale, msg);
        NuovoTronco(d, 2, materiali, a.Default.DefaultMateriale, msg);
        NuovoTronco(d, 1, materiali, a.Default.DefaultMateriale, msg);
        d.ReteModificata = FALSO;
        msg.mostrati.clear();
    }
    // The nominal diameter of row r of material m.
    std::string Dn(int m, int r) const { return a.Materiali[static_cast<size_t>(m)].Righe[static_cast<size_t>(r)].DN; }
};

TEST(PannelloTronco, LeRigheDegliSpecialiSeguonoLaTabellaDellaRete) {
    Banco interno;
    const auto ri = RigheSpeciali(interno.d);
    ASSERT_EQ(ri.size(), 4u);
    const std::vector<std::pair<int, std::string>> attese = {
        {1, "Curve 90°:"}, {3, "Gomiti :"}, {2, "Raccordi a T :"}, {4, "Rubinetti :"}};
    for (size_t i = 0; i < attese.size(); ++i) {
        EXPECT_EQ(ri[i].tipo, attese[i].first);
        EXPECT_EQ(ri[i].etichetta, attese[i].second);
    }

    // A pressure network lists every named kind of EQLEN.CFG, the longest table: ten lines.
    Banco pressione(true);
    auto rp = RigheSpeciali(pressione.d);
    ASSERT_EQ(rp.size(), 10u);
    EXPECT_EQ(rp[4].tipo, 5);
    EXPECT_EQ(rp[4].etichetta, Trim(pressione.d.Speciali[5].Nome) + " :");
    // A kind without a name ("-" as the file keeps it) has no line.
    pressione.d.Speciali[2].Nome = "-";
    pressione.d.Speciali[7].Nome = "";
    rp = RigheSpeciali(pressione.d);
    ASSERT_EQ(rp.size(), 8u);
    for (const RigaSpeciale& r : rp) EXPECT_TRUE(r.tipo != 2 && r.tipo != 7) << r.tipo;
}

TEST(PannelloTronco, SpinELimiti) {
    // Simultaneity: 95 -> 100 in one step, and there it stays; down stops at 5.
    EXPECT_EQ(ContempSu(90), 95);
    EXPECT_EQ(ContempSu(95), 100);
    EXPECT_EQ(ContempSu(97), 100);
    EXPECT_EQ(ContempSu(100), 100);
    EXPECT_EQ(ContempGiu(100), 95);
    EXPECT_EQ(ContempGiu(10), 5);
    EXPECT_EQ(ContempGiu(5), 5);
    EXPECT_EQ(ContempAllUscita(150), 100);
    EXPECT_EQ(ContempAllUscita(5), 10);
    EXPECT_EQ(ContempAllUscita(55), 55);
    // The section spin stays within 1..NumTronchi.
    EXPECT_EQ(PassoSezione(4, +1, 4), 4);
    EXPECT_EQ(PassoSezione(1, -1, 4), 1);
    EXPECT_EQ(PassoSezione(2, +1, 4), 3);
    EXPECT_EQ(PassoConteggio(0, -1), 0);
    EXPECT_EQ(ConteggioDaTesto("12345"), 9999);
    EXPECT_EQ(ConteggioDaTesto("7"), 7);
    EXPECT_EQ(ConteggioDaTesto(""), 0);
}

TEST(PannelloTronco, CaricaMostraAutoPerUnDiametroCalcolato) {
    Banco b;
    b.d.T(2).ID_DIAMETRO = b.Dn(b.d.T(2).IndiceMateriale, 2);
    b.d.T(2).ID_CONTEMP = 0;
    b.d.T(2).ID_LEN = 12.5f;
    b.d.T(2).ID_NGOMITI = 3;
    ValoriPannello v = CaricaPannello(b.d, 2);
    EXPECT_EQ(v.diametro, "Auto");
    EXPECT_FALSE(v.bloccato);
    EXPECT_EQ(v.contemp, "100");
    EXPECT_EQ(v.lunghezza, "12.5");
    EXPECT_EQ(v.conteggi[3], "3");
    b.d.T(2).ID_DIAMCUSTOM = VERO;
    v = CaricaPannello(b.d, 2);
    EXPECT_EQ(v.diametro, b.d.T(2).ID_DIAMETRO);
    EXPECT_TRUE(v.bloccato);
}

TEST(PannelloTronco, OkScriveIlTronco) {
    Banco b;
    const int m = b.d.T(2).IndiceMateriale;
    ASSERT_TRUE(b.a.HaMateriale(m));
    ASSERT_GE(b.a.NumMateriali(), 2);
    const int altro = m == 1 ? 2 : 1;
    ValoriPannello v = CaricaPannello(b.d, 2);
    v.lunghezza = "7,25";
    v.eqLenNota = "1,5";
    v.conteggi[1] = "2";
    v.conteggi[3] = "12345";
    v.conteggi[5] = "4";  // no line in an internal installation: not written
    v.materiale = altro;
    // A size of the material typed with the toggle off still fixes the diameter.
    v.diametro = b.Dn(altro, 2);
    v.bloccato = false;
    ASSERT_TRUE(modifica::ApplicaParametriTronco(b.d, b.a, {2}, v));
    const Tronco& t = b.d.T(2);
    EXPECT_EQ(t.ID_LEN, 7.25f);
    EXPECT_EQ(t.ID_EQLENNOTA, 1.5f);
    EXPECT_EQ(t.ID_NCURVE, 2);
    EXPECT_EQ(t.ID_NGOMITI, 9999);
    EXPECT_EQ(t.ID_SPC5, 0);
    EXPECT_EQ(t.IndiceMateriale, altro);
    EXPECT_EQ(t.ID_MATERIALE, b.a.Materiali[static_cast<size_t>(altro)].Nome);
    EXPECT_EQ(t.ID_DIAMETRO, b.Dn(altro, 2));
    EXPECT_EQ(t.ID_DIAMCUSTOM, VERO);
    EXPECT_EQ(b.d.ReteModificata, VERO);

    // "Auto" with the toggle off frees it; a text that is no size of the material only follows
    // the toggle and leaves the stored size alone; "Auto" with the toggle on fixes the size in force.
    v.diametro = "Auto";
    modifica::ApplicaParametriTronco(b.d, b.a, {2}, v);
    EXPECT_EQ(b.d.T(2).ID_DIAMCUSTOM, FALSO);
    v.diametro = "XYZ";
    modifica::ApplicaParametriTronco(b.d, b.a, {2}, v);
    EXPECT_EQ(b.d.T(2).ID_DIAMCUSTOM, FALSO);
    EXPECT_EQ(b.d.T(2).ID_DIAMETRO, b.Dn(altro, 2));
    v.diametro = "Auto";
    v.bloccato = true;
    modifica::ApplicaParametriTronco(b.d, b.a, {2}, v);
    EXPECT_EQ(b.d.T(2).ID_DIAMCUSTOM, VERO);
    EXPECT_EQ(b.d.T(2).ID_DIAMETRO, b.Dn(altro, 2));

    // A section outside the table is passed over, and nothing is marked.
    b.d.ReteModificata = FALSO;
    EXPECT_FALSE(modifica::ApplicaParametriTronco(b.d, b.a, {9}, v));
    EXPECT_EQ(b.d.ReteModificata, FALSO);
}

TEST(PannelloTronco, LaSceltaMultiplaScriveSoloICampiSpuntati) {
    Banco b(true);
    for (int i = 1; i <= 4; ++i) {
        b.d.T(i).ID_LEN = static_cast<float>(i);
        b.d.T(i).ID_EQLENNOTA = 0.5f;
        b.d.T(i).ID_NCURVE = 1;
        b.d.T(i).ID_NGOMITI = 1;
        b.d.T(i).ID_SPC6 = 1;
        b.d.T(i).ID_CONTEMP = 80;
    }
    const Documento prima = b.d;
    ValoriPannello v = CaricaPannello(b.d, 2);
    v.lunghezza = "99";
    v.eqLenNota = "9";
    v.contemp = "50";
    v.conteggi[1] = "5";
    v.conteggi[3] = "6";
    v.conteggi[6] = "7";
    v.diametro = b.Dn(v.materiale, 3);
    SelezioneCopia campi;
    campi.lunghezza = true;
    campi.localizzate[Localizzata::CURVE] = true;
    campi.localizzate[Localizzata::NUMERO_VALVOLE] = true;
    ASSERT_TRUE(modifica::ApplicaParametriTronco(b.d, b.a, {2, 3, 4}, v, &campi));
    for (int i = 2; i <= 4; ++i) {
        const Tronco& t = b.d.T(i);
        EXPECT_EQ(t.ID_LEN, 99.0f) << i;
        EXPECT_EQ(t.ID_NCURVE, 5) << i;
        EXPECT_EQ(t.ID_SPC6, 7) << i;
        // Not ticked: as they were.
        EXPECT_EQ(t.ID_NGOMITI, 1) << i;
        EXPECT_EQ(t.ID_EQLENNOTA, 0.5f) << i;
        EXPECT_EQ(t.ID_CONTEMP, 80) << i;
        EXPECT_EQ(t.ID_DIAMETRO, prima.T(i).ID_DIAMETRO) << i;
        EXPECT_EQ(t.ID_DIAMCUSTOM, prima.T(i).ID_DIAMCUSTOM) << i;
    }
    // Section 1 was not selected.
    EXPECT_EQ(b.d.T(1).ID_LEN, 1.0f);
    EXPECT_EQ(b.d.T(1).ID_NCURVE, 1);
}

TEST(PannelloTronco, VociAbilitatePerTipoDiRete) {
    Banco interno;
    SelezioneCopia s = VociAbilitate(interno.d);
    EXPECT_TRUE(s.diametro && s.eqLenAggiuntiva && s.lunghezza);
    EXPECT_FALSE(s.contemporaneita);
    EXPECT_TRUE(s.localizzate[Localizzata::CURVE] && s.localizzate[Localizzata::GOMITI] &&
                s.localizzate[Localizzata::SARACINESCHE] && s.localizzate[Localizzata::RACCORDI_T]);
    EXPECT_FALSE(s.localizzate[Localizzata::NUMERO_VALVOLE]);
    for (int k : {Localizzata::KV_VALVOLE, Localizzata::PDC_NOTA, Localizzata::VALVOLE_GLOBO})
        EXPECT_FALSE(s.localizzate[static_cast<size_t>(k)]);
    Banco pressione(true);
    s = VociAbilitate(pressione.d);
    EXPECT_TRUE(s.contemporaneita);
    EXPECT_TRUE(s.localizzate[Localizzata::NUMERO_VALVOLE]);
    for (int k : {Localizzata::KV_VALVOLE, Localizzata::PDC_NOTA, Localizzata::VALVOLE_GLOBO})
        EXPECT_FALSE(s.localizzate[static_cast<size_t>(k)]);
}

TEST(Utenza, ComposizioneDegliApparecchiDiCottura) {
    Composizione c{};
    EXPECT_EQ(CodificaComposizione(c), "000000");
    c.fill(true);
    EXPECT_EQ(WattDi(c), 21000);
    EXPECT_EQ(CodificaComposizione(c), "111111");
    // A short text leaves the boxes alone; any other character than "1" unticks.
    EXPECT_FALSE(DecodificaComposizione("10", c));
    EXPECT_EQ(CodificaComposizione(c), "111111");
    EXPECT_TRUE(DecodificaComposizione("1x1001 resto", c));
    EXPECT_EQ(CodificaComposizione(c), "101001");
    EXPECT_EQ(WattDi(c), 1000 + 3000 + 7000);
}

TEST(Utenza, TreValoriLegatiSulPotereCalorificoDelTipo) {
    GasRecord g;
    g.Pci = 34.02f;
    g.Pcs = 37.78f;
    EXPECT_EQ(PotereCalorifico(g, 1), static_cast<double>(g.Pcs));
    EXPECT_EQ(PotereCalorifico(g, 2), static_cast<double>(g.Pci));
    EXPECT_EQ(PotereCalorifico(g, 0), static_cast<double>(g.Pci));
    // The same power gives a smaller flow to a cooker, rated on the superior value.
    const ValoriPortata cucina = Ricalcola(Fonte::WATT, 10000, PotereCalorifico(g, 1));
    const ValoriPortata caldaia = Ricalcola(Fonte::WATT, 10000, PotereCalorifico(g, 2));
    EXPECT_EQ(cucina.portata, static_cast<float>(10000.0 / 1000 * 3.6 / static_cast<double>(g.Pcs)));
    EXPECT_EQ(caldaia.portata, static_cast<float>(10000.0 / 1000 * 3.6 / static_cast<double>(g.Pci)));
    EXPECT_LT(cucina.portata, caldaia.portata);
    EXPECT_DOUBLE_EQ(cucina.kcal, 8600.0);
    const ValoriPortata kcal = Ricalcola(Fonte::KCAL, 8600, g.Pci);
    EXPECT_DOUBLE_EQ(kcal.watt, 8600 / 0.86);
    const ValoriPortata flusso = Ricalcola(Fonte::PORTATA, 1.5, g.Pci);
    EXPECT_EQ(flusso.portata, 1.5f);
    EXPECT_DOUBLE_EQ(flusso.watt, 1.5 * static_cast<double>(g.Pci) * 1000 / 3.6);
    // A gas without calorific value gives no flow rather than an infinite one.
    EXPECT_EQ(Ricalcola(Fonte::WATT, 1000, 0).portata, 0.0f);
}

TEST(Utenza, TestiDelleCaselle) {
    const std::vector<std::pair<double, std::string>> potenze = {
        {21000, "21.000"}, {18060, "18.060"},          {860.86, "860,86"},    {999, "999"},
        {0, "0"},          {1234567.5, "1.234.567,5"}, {1000000, "1.000.000"}};
    for (const auto& [v, t] : potenze) EXPECT_EQ(InsertTousendSeparator(v), t) << v;
    EXPECT_EQ(TestoPortata(1.5), "1,50");
    EXPECT_EQ(TestoPortata(0), "0,00");
    EXPECT_EQ(LeggiPotenza("21.000"), 21000.0);
    EXPECT_EQ(LeggiPotenza("860,86"), 860.86);
    EXPECT_EQ(LeggiPortata("10000,00"), 10000.0);
}

TEST(Utenza, ApplicaUtenzaScriveFlussoTipoComposizione) {
    Banco b;
    b.d.DpMax = 120;
    modifica::EsitoUtenza e;
    e.portata = 2.25f;
    e.tipologia = 1;
    e.composizione = "111111";
    e.riferimento = "CUCINA";
    modifica::ApplicaUtenza(b.d, 3, e);
    EXPECT_EQ(b.d.T(3).ID_P_UTENZE, 2.25f);
    EXPECT_EQ(b.d.T(3).ID_P_TRONCO, 2.25f);
    EXPECT_EQ(b.d.T(3).ID_TIPOUTENZA, 1);
    EXPECT_EQ(b.d.T(3).ID_NOMEUTENZA, "111111");
    EXPECT_EQ(b.d.T(3).ID_RIF, "CUCINA");
    EXPECT_EQ(b.d.DpMax, 0.0);
    EXPECT_EQ(b.d.ReteModificata, VERO);

    // A pressure network keeps its imposed drop; "Portata utenza" leaves the composition.
    Banco p(true);
    p.d.DpMax = 120;
    p.d.T(3).ID_NOMEUTENZA = "100000";
    e.composizione.reset();
    modifica::ApplicaUtenza(p.d, 3, e);
    EXPECT_EQ(p.d.DpMax, 120.0);
    EXPECT_EQ(p.d.T(3).ID_NOMEUTENZA, "100000");
}

}  // namespace
}  // namespace fornax
