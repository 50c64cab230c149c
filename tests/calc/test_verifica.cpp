// The least favourable path, the verdicts the views mark, the bill of pipes and the capacity of
// the pipes.

#include <gtest/gtest.h>

#include "archives/Materiali.h"
#include "calc/Calcolo.h"
#include "calc/Computo.h"
#include "calc/Verifica.h"
#include "tests/calc/ReteProva.h"

using namespace fornax;
using namespace fornax::prova;

namespace {

struct Verifica : ::testing::Test {
    std::unique_ptr<Archivi> a = ArchiviProva();
    std::unique_ptr<Documento> d = DocumentoProva();
    MessaggiRegistrati msg;

    // 1 -> {2 -> {4, 5}, 3}
    void Albero() {
        Dati x;
        Aggiungi(*d, *a, 0, x);
        Aggiungi(*d, *a, 1, x);
        Aggiungi(*d, *a, 1, x);
        Aggiungi(*d, *a, 2, x);
        Aggiungi(*d, *a, 2, x);
    }
    void Percorsi(std::initializer_list<float> valori) {
        int i = 1;
        for (float v : valori) d->T(i++).ID_PDC_PERCORSO = v;
    }
};

}  // namespace

TEST_F(Verifica, PercorsoSfavoritoDalPeggioreAllaRadice) {
    Albero();
    Percorsi({10, 20, 25, 31, 30});
    EXPECT_EQ(PercorsoSfavorito(*d), (std::vector<int16_t>{4, 2, 1}));

    // Ties go to the lowest index; a failed section (-1) is never the worst.
    Percorsi({10, 20, 31, 31, -1});
    EXPECT_EQ(PercorsoSfavorito(*d), (std::vector<int16_t>{3, 1}));

    // No drop anywhere: no worst section, an empty path.
    Percorsi({0, 0, 0, 0, 0});
    EXPECT_TRUE(PercorsoSfavorito(*d).empty());

    // A section cut off the tree is no candidate; the root is one without a parent.
    Percorsi({40, 20, 25, 31, 30});
    EXPECT_EQ(PercorsoSfavorito(*d), (std::vector<int16_t>{1}));
    d->T(5).ID_PREV = 0;
    d->T(5).ID_PDC_PERCORSO = 99;
    EXPECT_EQ(PercorsoSfavorito(*d), (std::vector<int16_t>{1}));
}

TEST_F(Verifica, PercorsoSfavoritoDopoUnCalcolo) {
    Dati x;
    Aggiungi(*d, *a, 0, x);
    x.utenze = 1.0f;
    x.lunghezza = 30;
    Aggiungi(*d, *a, 1, x);
    x.utenze = 2.0f;
    x.lunghezza = 5;
    Aggiungi(*d, *a, 1, x);
    CalcolaRete(*d, *a, msg);
    const auto percorso = PercorsoSfavorito(*d);
    ASSERT_FALSE(percorso.empty());
    const int peggiore = percorso.front();
    for (int i = 1; i <= d->NumTronchi(); ++i) EXPECT_LE(d->T(i).ID_PDC_PERCORSO, d->T(peggiore).ID_PDC_PERCORSO);
    EXPECT_EQ(percorso.back(), 1);
}

TEST_F(Verifica, VerdettiDiUnImpiantoInterno) {
    d->DpMax = 50.9;  // the grid compares with the whole part, 50
    Dati x;
    x.diametro = "4\"";
    const int i = Aggiungi(*d, *a, 0, x);
    Tronco& t = d->T(i);
    t.ID_PDC_PERCORSO = 50.5f;
    t.ID_VELOCITA = 99.0f;
    t.ID_PDC_TRONCO = 1.0f;
    Verdetti v = VerificaTronco(*a, *d, i);
    EXPECT_TRUE(v.percorsoOltre);
    EXPECT_FALSE(v.velocitaOltre);  // no speed test in an internal installation
    EXPECT_FALSE(v.perditaFallita);
    EXPECT_FALSE(v.pressioneBassa);
    EXPECT_FALSE(v.pressioneFallita);
    // At the largest row, but within the whole limit as a float: no yellow.
    EXPECT_FALSE(v.diametroInsufficiente);
    EXPECT_DOUBLE_EQ(LimiteIntero(*d), 50.0);

    t.ID_PDC_PERCORSO = 51.0f;
    EXPECT_TRUE(VerificaTronco(*a, *d, i).diametroInsufficiente);
    t.ID_DIAMETRO = "3\"";
    EXPECT_FALSE(VerificaTronco(*a, *d, i).diametroInsufficiente);
    t.ID_DIAMETRO = "";  // no bore at all
    EXPECT_TRUE(VerificaTronco(*a, *d, i).diametroInsufficiente);
    t.ID_PDC_PERCORSO = 50.0f;
    EXPECT_FALSE(VerificaTronco(*a, *d, i).percorsoOltre);
    t.ID_PDC_TRONCO = -1.0f;
    EXPECT_TRUE(VerificaTronco(*a, *d, i).perditaFallita);
}

TEST_F(Verifica, VerdettiDiUnaReteInPressione) {
    d->ReteInPressione = VERO;
    d->PressioneFinale = 150.0;
    d->VelocitaMassima = 15.0f;
    Albero();
    d->T(2).ID_CONTEMP = 70;
    d->T(4).ID_CONTEMP = 70;  // a consumer's value is no reminder
    Tronco& t = d->T(4);
    t.ID_DIAMETRO = "4\"";
    t.ID_VELOCITA = 15.5f;
    t.ID_PFINALE = 149.9f;
    Verdetti v = VerificaTronco(*a, *d, 4);
    EXPECT_TRUE(v.velocitaOltre);
    EXPECT_TRUE(v.pressioneBassa);
    EXPECT_FALSE(v.pressioneFallita);
    EXPECT_TRUE(v.diametroInsufficiente);
    EXPECT_FALSE(v.contemporaneita);
    EXPECT_TRUE(VerificaTronco(*a, *d, 2).contemporaneita);
    t.ID_PFINALE = -1.0f;
    EXPECT_TRUE(VerificaTronco(*a, *d, 4).pressioneFallita);
    t.ID_VELOCITA = 15.0f;
    t.ID_PFINALE = 150.0f;
    v = VerificaTronco(*a, *d, 4);
    EXPECT_FALSE(v.velocitaOltre);
    EXPECT_FALSE(v.pressioneBassa);
    EXPECT_FALSE(v.diametroInsufficiente);
}

TEST_F(Verifica, ComputoDelleTubazioniRaggiunte) {
    Dati x;
    x.lunghezza = 2.0f, x.diametro = "3/4\"";
    Aggiungi(*d, *a, 0, x);
    x.lunghezza = 3.5f, x.diametro = "1\"";
    Aggiungi(*d, *a, 1, x);
    x.lunghezza = 1.25f, x.diametro = "3/4\"";
    Aggiungi(*d, *a, 1, x);
    x.lunghezza = 4.0f, x.diametro = "18x1", x.materiale = RAME;
    Aggiungi(*d, *a, 2, x);
    x.lunghezza = 7.0f, x.diametro = "1\"", x.materiale = ACCIAIO;
    Aggiungi(*d, *a, 0, x);      // cut off the tree: not reached
    d->T(2).ID_EQ_LEN = 100.0f;  // the real length counts, not the equivalent one
    for (int i = 1; i <= 4; ++i) d->T(i).Visitato = VERO;


    const ComputoTubi c = CalcolaComputo(*d, *a);
    const ComputoTubi::Materiale& acciaio = c.Materiali[ACCIAIO];
    const ComputoTubi::Materiale& rame = c.Materiali[RAME];
    const MaterialeTubo& tubiAcciaio = a->Materiali[ACCIAIO];
    EXPECT_EQ(acciaio.LunghezzaTotale[3], 3.25f);  // 3/4": two sections in one row
    EXPECT_EQ(acciaio.LunghezzaTotale[4], 3.5f);   // 1": the cut section isn't billed
    EXPECT_EQ(rame.LunghezzaTotale[5], 4.0f);
    EXPECT_EQ(acciaio.Totalizzato, VERO);
    const float pesoAcciaio =
        static_cast<float>(static_cast<float>(static_cast<double>(tubiAcciaio.Righe[3].PesoMetro) * 2.0) +
                           static_cast<double>(tubiAcciaio.Righe[4].PesoMetro) * 3.5);
    EXPECT_EQ(Bit(acciaio.PesoTotale),
              Bit(static_cast<float>(pesoAcciaio + static_cast<double>(tubiAcciaio.Righe[3].PesoMetro) * 1.25)));
    EXPECT_EQ(c.PesoTotaleAcciaio, acciaio.PesoTotale);  // copper is not steel
    EXPECT_GT(rame.PesoTotale, 0.0f);

    // A material without any section stays out of the bill; a second bill is the same, since
    // nothing was added up in the archives.
    a->Materiali.push_back(Materiale("PE", 3, 950, {{"PE 20", 16.0f}}, 2.0f));
    const ComputoTubi ancora = CalcolaComputo(*d, *a);
    EXPECT_EQ(ancora.Materiali[3].Totalizzato, FALSO);
    EXPECT_EQ(ancora.Materiali[ACCIAIO].LunghezzaTotale[3], 3.25f);
    EXPECT_EQ(Bit(ancora.PesoTotaleAcciaio), Bit(c.PesoTotaleAcciaio));
}

TEST_F(Verifica, VolumeDelleTubazioniSuTuttiIRecord) {
    Dati x;
    x.lunghezza = 2.0f, x.diametro = "3/4\"";
    Aggiungi(*d, *a, 0, x);
    x.lunghezza = 3.5f, x.diametro = "1\"";
    Aggiungi(*d, *a, 1, x);
    x.lunghezza = 1.25f, x.diametro = "3/8\"";
    Aggiungi(*d, *a, 0, x);  // not reached, counted all the same
    x.lunghezza = 9.0f, x.diametro = "";
    Aggiungi(*d, *a, 1, x);     // no diameter, no volume
    d->T(1).ID_EQ_LEN = 50.0f;  // fittings don't count
    // (21.7/2)^2*2*3.1415 + (27.3/2)^2*3.5*3.1415 + (12.6/2)^2*1.25*3.1415, in double.
    EXPECT_EQ(VolumeTubazioni(*d, *a), 2944.170551316412);
}
