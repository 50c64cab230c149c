// The named edits the windows call: what each one writes, what it refuses with the product's
// message, and when it marks the project modified.
#include <gtest/gtest.h>

#include <memory>

#include "archives/Gas.h"
#include "archives/Pdc.h"
#include "core/Numeri.h"
#include "core/ServiziProva.h"
#include "editing/Modifiche.h"
#include "sessione/Sessione.h"

namespace fornax {
namespace {

const std::string GAS_NON_COMBUSTIBILE =
    "Nel calcolo dell'impianto interno gas non può essere utilizzato un gas non combustibile";

struct Banco {
    Archivi a;
    Documento d;
    MessaggiRegistrati msg;

    Banco() {
        AvanzamentoNullo av;
        CaricaArchivi(a, d, FORNAX_BUILD_DATA_DIR, av, msg, false);
        msg.mostrati.clear();
    }

    int Gas(const std::string& nome) const { return CercaGas(a, nome); }

    // Sections 1 <- 2 <- 3 and 1 <- 4; 2 and 4 have a size, 1 and 3 none yet.
    void Albero() {
        const auto materiali = a.NomiMateriali();
        NuovoTronco(d, 0, materiali, a.Default.DefaultMateriale, msg);
        NuovoTronco(d, 1, materiali, a.Default.DefaultMateriale, msg);
        NuovoTronco(d, 2, materiali, a.Default.DefaultMateriale, msg);
        NuovoTronco(d, 1, materiali, a.Default.DefaultMateriale, msg);
        d.T(2).ID_DIAMETRO = "20";
        d.T(4).ID_DIAMETRO = "25";
        d.ReteModificata = FALSO;
        msg.mostrati.clear();
    }
};

TEST(ModificaParametri, UnImpiantoInternoRifiutaUnGasCheNonBrucia) {
    auto b = std::make_unique<Banco>();
    b->d.ReteInPressione = FALSO;
    b->d.Riferimento = "prima";
    const std::string gasPrima = b->d.GasCorrente.Nome;

    modifica::ValoriParametri v;
    v.riferimento = "dopo";
    v.indiceGas = b->Gas("ARIA");
    ASSERT_GE(v.indiceGas, 1);
    EXPECT_FALSE(modifica::ImpostaParametri(b->d, b->a, v, b->msg));
    EXPECT_EQ(b->msg.Testi(), std::vector<std::string>{GAS_NON_COMBUSTIBILE});
    // Nothing at all goes in: the dialog stays open on what the user typed.
    EXPECT_EQ(b->d.Riferimento, "prima");
    EXPECT_EQ(b->d.GasCorrente.Nome, gasPrima);
    EXPECT_EQ(b->d.ReteModificata, FALSO);

    // A pressure network takes it.
    b->msg.mostrati.clear();
    b->d.ReteInPressione = VERO;
    EXPECT_TRUE(modifica::ImpostaParametri(b->d, b->a, v, b->msg));
    EXPECT_TRUE(b->msg.mostrati.empty());
    EXPECT_EQ(b->d.GasCorrente.Nome, "ARIA");
    EXPECT_EQ(b->d.Riferimento, "dopo");
    EXPECT_EQ(b->d.ReteModificata, VERO);
}

TEST(ModificaParametri, TestiEdizioneVelocitaEGas) {
    auto b = std::make_unique<Banco>();
    struct Caso {
        bool pressione;
        bool edizione1992;
        std::string velocita;
        int gas;  // 0: none shown
        int32_t normativa;
        const char* filePdc;
        float velocitaAttesa;
        std::string gasAtteso;
    };
    const int butano = b->Gas("BUTANO");
    const std::string primo = b->a.Gas[1].Nome;
    const std::vector<Caso> casi{
        // The speed box is read for a pressure network only, with the decimal comma.
        {true, false, "12,5", butano, 2, "PDCMAX_2008.CFG", 12.5f, "BUTANO"},
        {false, true, "99", butano, 1, "PDCMAX_1992.CFG", 7.0f, "BUTANO"},
        // No gas shown: the first of the archive.
        {false, false, "", 0, 2, "PDCMAX_2008.CFG", 7.0f, primo},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.velocita + " " + std::to_string(c.gas));
        b->d.ReteInPressione = c.pressione ? VERO : FALSO;
        b->d.VelocitaMassima = 7.0f;
        b->d.ReteModificata = FALSO;
        b->d.Pdc.NomeFilePdc.clear();
        modifica::ValoriParametri v{"Rif. 12", "Villetta", "/lavori/12", c.edizione1992, c.velocita, c.gas};
        ASSERT_TRUE(modifica::ImpostaParametri(b->d, b->a, v, b->msg));
        EXPECT_EQ(b->d.Riferimento, "Rif. 12");
        EXPECT_EQ(b->d.DescrizioneLavoro, "Villetta");
        EXPECT_EQ(b->d.ArchivioDocumenti, "/lavori/12");
        EXPECT_EQ(b->d.Normativa, c.normativa);
        // The limits of the edition chosen are loaded at once.
        EXPECT_EQ(b->d.Pdc.NomeFilePdc, c.filePdc);
        EXPECT_EQ(b->d.VelocitaMassima, c.velocitaAttesa);
        EXPECT_EQ(b->d.GasCorrente.Nome, c.gasAtteso);
        EXPECT_EQ(b->d.ReteModificata, VERO);
    }
    EXPECT_TRUE(b->msg.mostrati.empty());
}

TEST(ModificaGas, SceltaDallaBarraDegliStrumenti) {
    auto b = std::make_unique<Banco>();
    b->d.ReteInPressione = FALSO;
    b->d.ReteModificata = FALSO;
    const int aria = b->Gas("ARIA");
    const int butano = b->Gas("BUTANO");
    const std::string prima = b->d.GasCorrente.Nome;

    EXPECT_FALSE(modifica::ScegliGas(b->d, b->a, aria, b->msg));
    EXPECT_EQ(b->msg.Testi(), std::vector<std::string>{GAS_NON_COMBUSTIBILE});
    EXPECT_EQ(b->d.GasCorrente.Nome, prima);
    EXPECT_EQ(b->d.ReteModificata, FALSO);

    // An index outside the archive changes nothing and says nothing.
    b->msg.mostrati.clear();
    EXPECT_FALSE(modifica::ScegliGas(b->d, b->a, b->a.NumGas() + 1, b->msg));
    EXPECT_FALSE(modifica::ScegliGas(b->d, b->a, 0, b->msg));
    EXPECT_TRUE(b->msg.mostrati.empty());

    EXPECT_TRUE(modifica::ScegliGas(b->d, b->a, butano, b->msg));
    EXPECT_EQ(b->d.GasCorrente.Nome, "BUTANO");
    EXPECT_EQ(b->d.GasCorrente.Pci, b->a.Gas[static_cast<size_t>(butano)].Pci);
    EXPECT_EQ(b->d.ReteModificata, VERO);

    b->d.ReteInPressione = VERO;
    EXPECT_TRUE(modifica::ScegliGas(b->d, b->a, aria, b->msg));
    EXPECT_EQ(b->d.GasCorrente.Nome, "ARIA");
    EXPECT_TRUE(b->msg.mostrati.empty());
}

TEST(ModificaCombiPressione, AutoRiprendeIlDefaultUgualeNonCambiaNulla) {
    auto b = std::make_unique<Banco>();
    b->a.Default.DefaultPressioneIniziale = "200";
    b->a.Default.DefaultPressioneFinale = "150";
    struct Caso {
        double prima;
        std::string testo;
        bool applicato;
        double dopo;
    };
    // Initial pressure: the same number changes nothing; "Auto" is always applied, even when
    // the value stays; a negative number counts by its size.
    const std::vector<Caso> iniziale{
        {200, "200", false, 200}, {200, "Auto", true, 200}, {180, "0", true, 200},
        {200, "-250", true, 250}, {200, "1,5", true, 1.5},
    };
    for (const Caso& c : iniziale) {
        SCOPED_TRACE("iniziale " + c.testo);
        b->d.PressioneIniziale = c.prima;
        b->d.ReteModificata = FALSO;
        EXPECT_EQ(modifica::ScegliPressioneIniziale(b->d, b->a, c.testo), c.applicato);
        EXPECT_EQ(b->d.PressioneIniziale, c.dopo);
        EXPECT_EQ(b->d.ReteModificata, c.applicato ? VERO : FALSO);
    }
    const std::vector<Caso> finale{{150, "150", false, 150}, {120, "auto", true, 150}, {150, "90", true, 90}};
    for (const Caso& c : finale) {
        SCOPED_TRACE("finale " + c.testo);
        b->d.PressioneFinale = c.prima;
        b->d.ReteModificata = FALSO;
        EXPECT_EQ(modifica::ScegliPressioneFinale(b->d, b->a, c.testo), c.applicato);
        EXPECT_EQ(b->d.PressioneFinale, c.dopo);
        EXPECT_EQ(b->d.ReteModificata, c.applicato ? VERO : FALSO);
    }
    // The imposed drop: "Auto" back to the automatic limit; an equal value changes nothing.
    const std::vector<Caso> dpMax{
        {0, "Auto", false, 0}, {0, "80", true, 80}, {80, "80", false, 80}, {80, "0", true, 0}, {80, "auto", true, 0}};
    for (const Caso& c : dpMax) {
        SCOPED_TRACE("dpmax " + c.testo);
        b->d.DpMax = c.prima;
        b->d.ReteModificata = FALSO;
        EXPECT_EQ(modifica::ScegliDpMax(b->d, c.testo), c.applicato);
        EXPECT_EQ(b->d.DpMax, c.dopo);
        EXPECT_EQ(b->d.ReteModificata, c.applicato ? VERO : FALSO);
    }
}

TEST(ModificaDiametri, BloccaSoloChiHaUnDiametroLiberaTutti) {
    auto b = std::make_unique<Banco>();
    b->Albero();
    EXPECT_FALSE(modifica::DiametriBloccati(b->d));

    modifica::BloccaDiametri(b->d, true);
    EXPECT_EQ(b->d.ReteModificata, VERO);
    EXPECT_EQ(b->d.T(2).ID_DIAMCUSTOM, VERO);
    EXPECT_EQ(b->d.T(4).ID_DIAMCUSTOM, VERO);
    // A section with no size yet has nothing to keep: the calculation still chooses it.
    EXPECT_EQ(b->d.T(1).ID_DIAMCUSTOM, FALSO);
    EXPECT_EQ(b->d.T(3).ID_DIAMCUSTOM, FALSO);
    EXPECT_TRUE(modifica::DiametriBloccati(b->d));

    b->d.T(3).ID_DIAMCUSTOM = VERO;
    b->d.ReteModificata = FALSO;
    modifica::BloccaDiametri(b->d, false);
    EXPECT_EQ(b->d.ReteModificata, VERO);
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(b->d.T(i).ID_DIAMCUSTOM, FALSO) << i;
    EXPECT_FALSE(modifica::DiametriBloccati(b->d));

    // One free size among fixed ones: not all fixed.
    modifica::BloccaDiametri(b->d, true);
    b->d.T(4).ID_DIAMCUSTOM = FALSO;
    EXPECT_FALSE(modifica::DiametriBloccati(b->d));
}

TEST(ModificaRighe, UnaRigaNuovaEUnaRigaAccolta) {
    auto b = std::make_unique<Banco>();
    b->Albero();
    b->d.T(5).ID_LEFT = 7;  // left over by an earlier document
    EXPECT_EQ(modifica::AggiungiRiga(b->d), 5);
    EXPECT_EQ(b->d.NumTronchi(), 5);
    EXPECT_EQ(b->d.T(5).ID_LEFT, 0);

    // Enter on a row past the table brings the table to it; a row within it changes nothing.
    modifica::AccogliRiga(b->d, 9);
    EXPECT_EQ(b->d.NumTronchi(), 9);
    modifica::AccogliRiga(b->d, 3);
    EXPECT_EQ(b->d.NumTronchi(), 9);
    modifica::AccogliRiga(b->d, MAX_TRONCHI + 1);
    EXPECT_EQ(b->d.NumTronchi(), 9);

    b->d.rete().NumTronchi = MAX_TRONCHI;
    EXPECT_EQ(modifica::AggiungiRiga(b->d), 0);
    EXPECT_EQ(b->d.NumTronchi(), MAX_TRONCHI);
}

TEST(ModificaProgetto, DefaultDiUnProgettoApertoDallaRigaDiComando) {
    auto b = std::make_unique<Banco>();
    struct Caso {
        std::string velocita, iniziale, finale;
        float v;
        double pi, pf;
    };
    const std::vector<Caso> casi{
        {"18", "300", "120", 18.0f, 300.0, 120.0},
        {" ", "", "", 15.0f, 200.0, 150.0},
        {"12,5", "2,5e2", "140", 12.5f, 250.0, 140.0},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.velocita);
        b->a.Default.DefaultVelocita = c.velocita;
        b->a.Default.DefaultPressioneIniziale = c.iniziale;
        b->a.Default.DefaultPressioneFinale = c.finale;
        b->d.ReteModificata = FALSO;
        modifica::DefaultAllApertura(b->d, b->a);
        EXPECT_EQ(b->d.VelocitaMassima, c.v);
        EXPECT_EQ(b->d.PressioneIniziale, c.pi);
        EXPECT_EQ(b->d.PressioneFinale, c.pf);
        EXPECT_EQ(b->d.ReteModificata, FALSO);
    }
}

TEST(ModificaProgetto, LaTabellaDeiRaccordiSalvataValeSoloPerUnaReteInPressione) {
    auto b = std::make_unique<Banco>();
    auto tabella = b->d.Speciali;
    tabella[1].Nome = "CURVA STRETTA";
    b->d.ReteInPressione = FALSO;
    EXPECT_FALSE(modifica::AdottaSpeciali(b->d, tabella));
    EXPECT_NE(b->d.Speciali[1].Nome, "CURVA STRETTA");
    b->d.ReteInPressione = VERO;
    EXPECT_TRUE(modifica::AdottaSpeciali(b->d, tabella));
    EXPECT_EQ(b->d.Speciali[1].Nome, "CURVA STRETTA");
}

}  // namespace
}  // namespace fornax
