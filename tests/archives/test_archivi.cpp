#include <gtest/gtest.h>

#include <memory>

#include "archives/Archivi.h"
#include "archives/Default.h"
#include "archives/Gas.h"
#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "archives/Speciali.h"
#include "core/ServiziProva.h"
#include "tests/comune/CartellaProva.h"

using namespace fornax;
using fornax::prova::CartellaProva;

namespace {

struct ArchiviProva : ::testing::Test {
    CartellaProva dir{"archivi"};
    std::unique_ptr<Archivi> a = std::make_unique<Archivi>();
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    void SetUp() override { a->Cartella = dir.Percorso(); }
};

}  // namespace

TEST_F(ArchiviProva, GasLettiConCommentiVirgoleETabulazioniDoppie) {
    // Written on Windows: decimal commas, a run of tabs, comments and blank lines, no line end
    // after the last gas, and the file name in lower case.
    dir.Scrivi("gas.cfg",
               "# archivio gas\n"
               "METANO\t0.5547\t0.00001574\t34.01\t37.78\t0\n"
               "\n"
               "   \n"
               "GAS,NATURALE\t\t0,5911\t1,484E-05\t34,71\t38,5\t0\n"
               "ARIA\t1\t0.00001461\t0\t0\t1");
    CaricaGas(*a, msg);
    ASSERT_EQ(a->NumGas(), 3);
    const GasRecord& m = a->Gas[1];
    EXPECT_EQ(m.Nome, "METANO");
    EXPECT_EQ(m.Densita, 0.5547f);
    EXPECT_EQ(m.MassaVolumica, 0.6798736453056335f);
    EXPECT_EQ(m.WobbeInf, 45.66437530517578f);
    EXPECT_EQ(m.WobbeSup, 50.726261138916016f);
    EXPECT_EQ(m.Famiglia, 2);
    EXPECT_EQ(a->Gas[2].Nome, "GAS.NATURALE");  // a comma in a name comes back as a point
    EXPECT_EQ(a->Gas[2].Viscosita, 1.484e-05f);
    EXPECT_EQ(a->Gas[2].Pcs, 38.5f);
    EXPECT_NE(a->Gas[3].NonCombustibile, 0);
    EXPECT_TRUE(msg.mostrati.empty());
    EXPECT_EQ(a->NomiGas(), (std::vector<std::string>{"METANO", "GAS.NATURALE", "ARIA"}));

    // Written back without comments, numbers as the print statement writes them.
    ASSERT_TRUE(SalvaGas(*a, msg));
    EXPECT_EQ(dir.LeggiByte("gas.cfg"),
              "METANO\t 0.5547 \t 1.574e-05 \t 34.01 \t 37.78 \t 0 \r\n"
              "GAS.NATURALE\t 0.5911 \t 1.484e-05 \t 34.71 \t 38.5 \t 0 \r\n"
              "ARIA\t 1 \t 1.461e-05 \t 0 \t 0 \t 1 \r\n");
    auto b = std::make_unique<Archivi>();
    b->Cartella = dir.Percorso();
    CaricaGas(*b, msg);
    ASSERT_EQ(b->NumGas(), 3);
    EXPECT_EQ(b->Gas[2].Pci, a->Gas[2].Pci);
}

TEST_F(ArchiviProva, FamigliaDaIndiceDiWobbeAiBordiDegliIntervalli) {
    GasRecord g;
    g.Nome = "AL BORDO";
    g.Densita = 1;
    g.Pci = 26.8f;  // W = 26.8 exactly: the ranges are open, so no family fits
    g.Pcs = 30;
    EXPECT_FALSE(CalcolaGas(g, msg));
    EXPECT_EQ(g.Famiglia, 1);
    EXPECT_NE(g.FamigliaErrata, 0);
    ASSERT_EQ(msg.Testi().size(), 1u);
    EXPECT_EQ(msg.Testi()[0],
              "Errore di Attribuzione famiglia del gas: indice Wobbe-Inf = 26.80 non associabile a nessuna famiglia");

    g.Pci = 26.7f;
    g.FamigliaErrata = FALSO;
    EXPECT_TRUE(CalcolaGas(g, msg));
    EXPECT_EQ(g.Famiglia, 1);
    g.Pci = 72.01f;
    EXPECT_TRUE(CalcolaGas(g, msg));
    EXPECT_EQ(g.Famiglia, 3);

    // A gas that doesn't burn keeps whatever family it had, without a message.
    GasRecord aria;
    aria.Densita = 1;
    aria.NonCombustibile = VERO;
    aria.Pci = 60;  // impossible Wobbe index, never looked at
    EXPECT_TRUE(CalcolaGas(aria, msg));
    EXPECT_EQ(aria.Famiglia, 0);
    EXPECT_EQ(aria.MassaVolumica, 1.22566f);
    EXPECT_TRUE(GasValido(aria));

    // No density: derived values cleared, no message, not usable.
    GasRecord vuoto;
    vuoto.Nome = "X";
    vuoto.WobbeInf = 5;
    EXPECT_FALSE(CalcolaGas(vuoto, msg));
    EXPECT_EQ(vuoto.WobbeInf, 0);
    EXPECT_FALSE(GasValido(vuoto));
    EXPECT_EQ(msg.Testi().size(), 1u);
}

TEST_F(ArchiviProva, CercaGasConfrontaComeUnModello) {
    for (const char* n : {"METANO", "GPL 70-30", "GAS CITTA", "AZOTO 2"}) NuovoGas(*a, n);
    EXPECT_EQ(CercaGas(*a, "metano"), 1);
    EXPECT_EQ(CercaGas(*a, "MET*"), 1);
    EXPECT_EQ(CercaGas(*a, "GPL ##-30"), 2);
    EXPECT_EQ(CercaGas(*a, "GAS C?TTA"), 3);
    EXPECT_EQ(CercaGas(*a, "[!GM]*"), 4);
    EXPECT_EQ(CercaGas(*a, "AZOTO [0-9]"), 4);
    EXPECT_EQ(CercaGas(*a, "*"), 1);
    EXPECT_EQ(CercaGas(*a, "PROPANO"), 0);
    EXPECT_EQ(CercaGas(*a, "METAN"), 0);
    EXPECT_EQ(CercaGas(*a, "GAS [CITTA"), 0);  // an unclosed class is a plain character
}

TEST_F(ArchiviProva, ParametriDiFamigliaUnaRigaPerFamiglia) {
    dir.Scrivi("PARFAMGAS.CFG", "2200\t0,8\n# la seconda famiglia resta a zero\n5000\t3\n");
    CaricaParFamGas(*a);
    EXPECT_EQ(a->ParFam[1].PressioneRiferimento, 2200.0f);
    EXPECT_EQ(a->ParFam[1].DispersioneRiferimento, 0.8f);
    EXPECT_EQ(a->ParFam[2].PressioneRiferimento, 0.0f);
    EXPECT_EQ(a->ParFam[3].PressioneRiferimento, 5000.0f);
    EXPECT_EQ(a->ParFam[3].DispersioneRiferimento, 3.0f);
}

TEST_F(ArchiviProva, MaterialiLettiInOrdineDiNomeConRigheScartate) {
    dir.Scrivi("rame.MAT", "# rame\n 2\n 8900\n\n.\n#  DN\n10x1\t1\t8\n12x1\t1\t10\t\n");
    // The material is named up to the first point: "A.B.mat" is material A, read from A.mat.
    dir.Scrivi("A.B.mat", "1\n7850\nnon letto\n");
    dir.Scrivi("A.mat",
               "1\n7850\nTubi in acciaio, serie leggera\n"
               "3/4\"\t2,9\t21,6\t\n"
               "   \t2\t20\n"   // no DN: dropped
               "1\"\t3.2\t0\n"  // no inner diameter: dropped
               "solo due\t1\n"  // too few fields: dropped
               "1\"\t3.2\t27.2\n");
    CaricaMateriali(*a, av, msg);
    ASSERT_EQ(a->NumMateriali(), 3);
    EXPECT_EQ(a->NomiMateriali(), (std::vector<std::string>{"A", "A", "rame"}));
    const MaterialeTubo& acciaio = a->Materiali[1];
    EXPECT_EQ(acciaio.TipoFormula, 1);
    EXPECT_EQ(acciaio.Descrizione, "Tubi in acciaio. serie leggera");
    ASSERT_EQ(acciaio.NumRighe(), 2);
    const RigaDiametro& r = acciaio.Righe[1];
    EXPECT_EQ(r.DN, "3/4\"");
    EXPECT_EQ(r.DiamEsterno, 27.400001525878906f);
    EXPECT_EQ(r.PesoMetro, 1.7521485090255737f);
    EXPECT_EQ(r.Sezione, 0.366424560546875f);
    EXPECT_EQ(r.PortataLimite, 0.0f);
    EXPECT_EQ(a->Materiali[3].Descrizione, ".");
    EXPECT_EQ(a->Materiali[3].NumRighe(), 2);

    EXPECT_EQ(IndiceMateriale(*a, " rame "), 3);
    EXPECT_EQ(IndiceMateriale(*a, "RAME"), 0);  // exact: case counts here
    EXPECT_EQ(IndiceRiga(*a, 1, "1\""), 2);
    EXPECT_EQ(DiametroInterno(*a, 1, "1\""), 27.2f);
    EXPECT_EQ(DiametroInterno(*a, 1, "2\""), 0.0f);
    EXPECT_EQ(DiametroInterno(*a, 9, "1\""), 0.0f);
    EXPECT_TRUE(msg.mostrati.empty());
}

TEST_F(ArchiviProva, MaterialeSalvatoERiletto) {
    dir.Scrivi("PE.mat", "3\n950\nPolietilene\nDN 20\t2\t16\t\nDN 25\t2,3\t20,4\t\n");
    CaricaMateriali(*a, av, msg);
    a->Materiali[1].Descrizione = "  ";  // an empty description is written as "."
    ASSERT_TRUE(SalvaMateriale(*a, 1, msg));
    const std::string scritto = dir.LeggiByte("PE.mat");
    EXPECT_NE(scritto.find("# Tipo di formula :   1 - Acciaio,  2 - Rame, 3 - Plastica\r\n"
                           "# --------------------------------------------------------------------------\r\n"
                           " 3 \r\n#\r\n# Peso Specifico\r\n"),
              std::string::npos);
    EXPECT_NE(scritto.find("# Descrizione\r\n# -----"), std::string::npos);
    EXPECT_NE(scritto.find("\r\n.\r\n#\r\n#    DN    Spess   Diam Int. \r\n"), std::string::npos);
    EXPECT_NE(scritto.find("\r\nDN 25\t 2.3 \t 20.4 \t\r\n"), std::string::npos);
    auto b = std::make_unique<Archivi>();
    b->Cartella = dir.Percorso();
    CaricaMateriali(*b, av, msg);
    ASSERT_EQ(b->NumMateriali(), 1);
    EXPECT_EQ(b->Materiali[1].TipoFormula, 3);
    EXPECT_EQ(b->Materiali[1].PesoSpecifico, 950.0f);
    ASSERT_EQ(b->Materiali[1].NumRighe(), 2);
    EXPECT_EQ(b->Materiali[1].Righe[2].Spessore, 2.3f);
    SalvaMateriale(*b, 1, msg);
    EXPECT_EQ(dir.LeggiByte("PE.mat"), scritto);
}

TEST_F(ArchiviProva, NomiDiMaterialeEDaPercorso) {
    EXPECT_TRUE(NomeValido("ACCIAIO2"));
    EXPECT_FALSE(NomeValido("RAME-B"));
    EXPECT_FALSE(NomeValido("PE 100"));
    EXPECT_EQ(NomeDaPercorso("C:\\Fornax\\ACCIAIOL.mat"), "ACCIAIOL");
    EXPECT_EQ(NomeDaPercorso("/dati/PE4437.MAT"), "PE4437");
    EXPECT_EQ(NomeDaPercorso("/dati/SENZAPUNTO"), "SENZAPUNTO");
}

TEST_F(ArchiviProva, SostituzioneChiestaUnaVoltaPerNome) {
    NuovoGas(*a, "METANO");
    NuovoGas(*a, "GPL");
    msg.scelte = {2};
    Sostituzioni e;  // the open project's list
    EXPECT_EQ(Substitute(e, *a, "propano", 2, msg), 2);
    EXPECT_EQ(Substitute(e, *a, " PROPANO ", 2, msg), 2);
    EXPECT_EQ(msg.sostituzioniChieste.size(), 1u);
    EXPECT_EQ(Substitute(e, *a, "   ", 2, msg), 0);
    EXPECT_EQ(SearchEquiv(e, "PROPANO", 1), 0);  // the lists of materials and gases are apart
    Reset(e);
    EXPECT_EQ(Substitute(e, *a, "PROPANO", 2, msg), 0);  // asked again; no answer this time
    EXPECT_EQ(msg.sostituzioniChieste.size(), 2u);
}

TEST_F(ArchiviProva, RaccordiInterniPerClasseDiDiametroEFamiglia) {
    TabellaSpeciali t{};
    CaricaSpecialiInterni(t);
    EXPECT_EQ(t[2].Nome, "RACCORDO A T");
    EXPECT_EQ(LunghezzaInterna(t, 1, 22.3f, 2), 0.2f);  // a limit belongs to the lower class
    EXPECT_EQ(LunghezzaInterna(t, 1, 22.31f, 2), 0.5f);
    EXPECT_EQ(LunghezzaInterna(t, 1, 53.89f, 3), 0.5f);
    EXPECT_EQ(LunghezzaInterna(t, 1, 53.9f, 3), 1.0f);  // the single 53.9 lies just above the limit
    EXPECT_EQ(LunghezzaInterna(t, 1, 81.7f, 3), 1.0f);
    EXPECT_EQ(LunghezzaInterna(t, 2, 100.0f, 3), 7.5f);
    EXPECT_EQ(LunghezzaInterna(t, 3, 30.0f, 3), 2.0f);
    EXPECT_EQ(LunghezzaInterna(t, 4, 10.0f, 1), 0.3f);
    EXPECT_EQ(LunghezzaInterna(t, 2, 10.0f, 0), 0.0f);  // a gas that doesn't burn has no family
    EXPECT_EQ(LunghezzaInterna(t, 5, 10.0f, 2), 0.0f);
}

TEST_F(ArchiviProva, RaccordiInPressioneDaEqlen) {
    TabellaSpeciali t{};
    CaricaSpecialiInterni(t);
    MessaggiRegistrati m1;
    EXPECT_FALSE(CaricaSpecialiPressione(t, a->Cartella, m1));
    EXPECT_EQ(m1.Testi().at(0), "Il file eqlen.cfg non e' presente nel disco. Reinstallare il programma.");

    dir.Scrivi("EQLEN.CFG", "# accidentalita'\nCURVA\t0,5\t1\t2\nTEE\t1\n");
    MessaggiRegistrati m2;
    EXPECT_TRUE(CaricaSpecialiPressione(t, a->Cartella, m2));
    EXPECT_EQ(m2.Testi(), std::vector<std::string>{"Errore nel file EQLEN.CFG"});
    EXPECT_EQ(LunghezzaPressione(t, 1, 50.0f), 0.5f);   // up to 50 mm
    EXPECT_EQ(LunghezzaPressione(t, 1, 125.0f), 1.0f);  // up to 125 mm
    EXPECT_EQ(LunghezzaPressione(t, 1, 125.5f), 2.0f);
    EXPECT_EQ(t[2].Nome, "TEE");
    EXPECT_EQ(LunghezzaPressione(t, 2, 10.0f), 1.0f);
    EXPECT_EQ(LunghezzaPressione(t, 2, 60.0f), 0.0f);  // missing numbers read 0
    // Only family 1 is replaced: the other families and the names of kinds 3, 4 stay.
    EXPECT_EQ(t[3].Nome, "GOMITO");
    EXPECT_EQ(t[1].Lunghezza[3][3], 1.0f);

    t[5].Nome.clear();
    ASSERT_TRUE(SalvaSpeciali(t, a->Cartella, m2));
    EXPECT_EQ(t[5].Nome, "-");
    const std::string scritto = dir.LeggiByte("EQLEN.CFG");
    EXPECT_EQ(scritto.substr(0, 41), "CURVA\t 0.5 \t 1 \t 2 \r\nTEE\t 1 \t 0 \t 0 \r\nGOM");
    TabellaSpeciali u{};
    EXPECT_TRUE(CaricaSpecialiPressione(u, dir.Percorso(), m2));
    EXPECT_EQ(u[5].Nome, "-");
    EXPECT_EQ(u[1].Lunghezza[1][3], 2.0f);
}

TEST_F(ArchiviProva, LimitiDiPerditaDiCarico) {
    auto d = std::make_unique<Documento>();
    CaricaPdc(d->Pdc, a->Cartella, 1, msg);
    EXPECT_EQ(msg.Testi().at(0), "Non esiste il file PDC 'PDCMAX_1992.CFG'");
    VerificaDefaultPdc(d->Pdc);
    EXPECT_EQ(d->Pdc.SogliaPotenza, 35.0f);
    EXPECT_EQ(d->Pdc.PdcMax[2][2], 50.0f);

    dir.Scrivi("PDCMAX_2008.CFG", " 35 \n 50 \n 0 \n 200 \n 50 \n 70,5 \n 200 \n");
    CaricaPdc(d->Pdc, a->Cartella, 2, msg);
    EXPECT_EQ(d->Pdc.NomeFilePdc, "PDCMAX_2008.CFG");
    EXPECT_EQ(d->Pdc.PdcMax[1][2], 0.0f);  // replaced only by the check, not on reading
    VerificaDefaultPdc(d->Pdc);
    EXPECT_EQ(d->Pdc.PdcMax[1][2], 100.0f);
    EXPECT_EQ(d->Pdc.PdcMax[2][2], 70.5f);

    d->GasCorrente.Pci = 36.0f;
    d->GasCorrente.Famiglia = 2;
    d->T(1).ID_P_TRONCO = 3.5f;  // 36 * 3.5 / 3.6 = 35 kW: at the threshold, band 1
    EXPECT_EQ(LimitePdc(*d), 100.0f);
    d->T(1).ID_P_TRONCO = 3.6f;
    EXPECT_EQ(LimitePdc(*d), 70.5f);
    d->DpMax = 80;
    EXPECT_EQ(LimitePdc(*d), 80.0f);

    d->rete().NumTronchi = 2;
    d->T(2).ID_PDC_PERCORSO = 80.0f;
    EXPECT_TRUE(LimitiRispettati(*d));
    d->T(2).ID_PDC_PERCORSO = 80.5f;
    EXPECT_FALSE(LimitiRispettati(*d));

    ASSERT_TRUE(SalvaPdc(d->Pdc, a->Cartella, msg));
    EXPECT_EQ(dir.LeggiByte("PDCMAX_2008.CFG"), " 35 \r\n 50 \r\n 100 \r\n 200 \r\n 50 \r\n 70.5 \r\n 200 \r\n");
}

TEST_F(ArchiviProva, ValoriDiDefault) {
    NuovoGas(*a, "METANO");
    dir.Scrivi("ACC.mat", "1\n7850\n.\n3/4\"\t2.9\t21.6\n");
    CaricaMateriali(*a, av, msg);
    LeggiDefault(*a, msg);  // no file: the first gas and material, 15, 200, 150
    EXPECT_EQ(a->Default.DefaultGas, "METANO");
    EXPECT_EQ(a->Default.DefaultMateriale, "ACC");
    EXPECT_EQ(a->Default.DefaultPressioneFinale, "150");

    // Only the gas in the file: the other items keep what they had.
    dir.Scrivi("defaultValue.ini", "!DEFAULTGAS\nGPL\n~DEFAULTGAS\n!defaultpipematerial\nRAME\n");
    a->Default.DefaultVelocita = "12";
    LeggiDefault(*a, msg);
    EXPECT_EQ(a->Default.DefaultGas, "GPL");
    EXPECT_EQ(a->Default.DefaultMateriale, "ACC");  // tags compare with case
    EXPECT_EQ(a->Default.DefaultVelocita, "12");

    a->Default.DefaultPressioneIniziale = "2,5";
    ASSERT_TRUE(putDefaultValueInFile(*a, msg));
    EXPECT_EQ(dir.LeggiByte("defaultValue.ini"),
              "!DEFAULTGAS\r\nGPL\r\n~DEFAULTGAS\r\n!DEFAULTPIPEMATERIAL\r\nACC\r\n~DEFAULTPIPEMATERIAL\r\n"
              "!DEFAULTMEDIUMSPEED\r\n12\r\n~DEFAULTMEDIUMSPEED\r\n!DEFAULTINITPRESSURE\r\n2,5\r\n"
              "~DEFAULTINITPRESSURE\r\n!DEFAULTFINPRESSURE\r\n150\r\n~DEFAULTFINPRESSURE\r\n");
    EXPECT_TRUE(msg.mostrati.empty());
}

TEST(ArchiviConsegnati, OgniGasNellaSuaFamigliaEOgniFileLeggibile) {
    auto a = std::make_unique<Archivi>();
    a->Cartella = FORNAX_SOURCE_DIR "/data";
    MessaggiRegistrati msg;
    AvanzamentoNullo av;
    CaricaGas(*a, msg);
    CaricaMateriali(*a, av, msg);
    CaricaParFamGas(*a);
    TabellaPdc pdc;
    CaricaPdc(pdc, a->Cartella, 1, msg);
    CaricaPdc(pdc, a->Cartella, 2, msg);
    TabellaSpeciali speciali{};
    EXPECT_TRUE(CaricaSpecialiPressione(speciali, a->Cartella, msg));
    EXPECT_TRUE(msg.mostrati.empty()) << msg.Testi().front();
    ASSERT_GE(a->NumGas(), 7);
    for (int i = 1; i <= a->NumGas(); ++i) {
        const GasRecord& g = a->Gas[static_cast<size_t>(i)];
        EXPECT_TRUE(GasValido(g)) << g.Nome;
        EXPECT_EQ(g.FamigliaErrata, 0) << g.Nome;
        EXPECT_GT(g.Viscosita, 0.0f) << g.Nome;
    }
    EXPECT_EQ(CercaGas(*a, "PROPANO"), 0);
    ASSERT_GE(a->NumMateriali(), 5);
    for (int m = 1; m <= a->NumMateriali(); ++m) {
        const MaterialeTubo& t = a->Materiali[static_cast<size_t>(m)];
        EXPECT_GE(t.NumRighe(), 5) << t.Nome;
        EXPECT_GE(t.TipoFormula, 1) << t.Nome;
        EXPECT_LE(t.TipoFormula, 3) << t.Nome;
        for (int r = 2; r <= t.NumRighe(); ++r)  // sizes grow down the table
            EXPECT_GT(t.Righe[static_cast<size_t>(r)].DiamInterno, t.Righe[static_cast<size_t>(r - 1)].DiamInterno)
                << t.Nome;
    }
    // The leak-test references exist for the first two families only (UNI 11137-1:2004).
    EXPECT_GT(a->ParFam[1].PressioneRiferimento, 0.0f);
    EXPECT_GT(a->ParFam[2].PressioneRiferimento, 0.0f);
    EXPECT_EQ(a->ParFam[3].PressioneRiferimento, 0.0f);
    EXPECT_GT(pdc.SogliaPotenza, 0.0f);
}

// Names that would read back as comments (a gas, a pipe size, a fitting beginning with '#') or
// as more than one field (a tab typed in an editor) keep their entry, and their place, through a
// save: the rows after them don't shift.
TEST_F(ArchiviProva, NomiCheSembranoCommentiSopravvivonoAlSalvataggio) {
    dir.Scrivi("GAS.CFG", "\t#PROVA\t0.5\t0.00001\t30\t33\t0\nMETANO\t0.55\t0.0000142\t34.02\t37.78\t0\n");
    CaricaGas(*a, msg);
    ASSERT_EQ(a->NomiGas(), (std::vector<std::string>{"#PROVA", "METANO"}));
    a->Gas[2].Nome = "METANO\tRETE";
    ASSERT_TRUE(SalvaGas(*a, msg));
    dir.Scrivi("PE.mat", "3\n950\nPolietilene\n\t#1\t2\t16\t\nDN 25\t2\t20\t\n");
    CaricaMateriali(*a, av, msg);
    a->Materiali[1].Descrizione = "#PE 100\r\nSDR 11";
    ASSERT_TRUE(SalvaMateriale(*a, 1, msg));
    TabellaSpeciali t{};
    CaricaSpecialiInterni(t);
    t[1].Nome = "#curva";
    ASSERT_TRUE(SalvaSpeciali(t, a->Cartella, msg));

    auto b = std::make_unique<Archivi>();
    b->Cartella = dir.Percorso();
    CaricaGas(*b, msg);
    CaricaMateriali(*b, av, msg);
    EXPECT_EQ(b->NomiGas(), (std::vector<std::string>{"#PROVA", "METANO RETE"}));
    EXPECT_EQ(b->Gas[2].Pcs, 37.78f);
    ASSERT_EQ(b->Materiali[1].NumRighe(), 2);
    EXPECT_EQ(b->Materiali[1].Righe[1].DN, "#1");
    EXPECT_EQ(b->Materiali[1].Descrizione, " #PE 100  SDR 11");
    TabellaSpeciali u{};
    ASSERT_TRUE(CaricaSpecialiPressione(u, dir.Percorso(), msg));
    EXPECT_EQ(u[1].Nome, "#curva");
    EXPECT_EQ(u[2].Nome, t[2].Nome);
    EXPECT_TRUE(msg.mostrati.empty());
}
