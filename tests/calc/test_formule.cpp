// The pressure-drop formulas against values worked out apart by tools/riferimento.py, to the
// last bit of the float: a wrong literal, a missing rounding or a wrong branch shows here.

#include <gtest/gtest.h>

#include <cmath>

#include "calc/Formule.h"
#include "tests/calc/ReteProva.h"

using namespace fornax;
using namespace fornax::prova;

namespace {

struct Formule : ::testing::Test {
    std::unique_ptr<Archivi> a = ArchiviProva();
    std::unique_ptr<Documento> d = DocumentoProva(2, false, true);
};

}  // namespace

TEST_F(Formule, PerditaSpecificaDelleDueEdizioni) {
    struct {
        float D, Q, j1992, j2008;
    } casi[] = {
        {0.0126f, 0.5f, 2.3019853f, 2.325368f},     {0.02f, 2.0f, 2.7438939f, 3.069265f},
        {0.0273f, 3.7f, 1.791292f, 2.0859635f},     {0.0531f, 12.0f, 0.57221484f, 0.7115359f},
        {0.1053f, 60.0f, 0.35830563f, 0.48210356f},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.D);
        d->Normativa = 1;
        EXPECT_EQ(Bit(PerditaSpecifica(*d, c.D, c.Q)), Bit(c.j1992));
        d->Normativa = 2;
        EXPECT_EQ(Bit(PerditaSpecifica(*d, c.D, c.Q)), Bit(c.j2008));
        // Any edition other than 1992 is the 2008 formula.
        d->Normativa = 0;
        EXPECT_EQ(Bit(PerditaSpecifica(*d, c.D, c.Q)), Bit(c.j2008));
    }
}

TEST_F(Formule, SenzaPortataDiametroOViscositaNonCeCaduta) {
    for (int32_t norma : {1, 2}) {
        d->Normativa = norma;
        EXPECT_EQ(PerditaSpecifica(*d, 0.0f, 2.0f), 0.0f);
        EXPECT_EQ(PerditaSpecifica(*d, -0.02f, 2.0f), 0.0f);
        EXPECT_EQ(PerditaSpecifica(*d, 0.02f, 0.0f), 0.0f);
        d->GasCorrente.Viscosita = 0;
        // The 2008 formula doesn't use the viscosity, yet a gas without it gives no drop.
        EXPECT_EQ(PerditaSpecifica(*d, 0.02f, 2.0f), 0.0f);
        d->GasCorrente.Viscosita = 0.00001574f;
    }
    d->ReteInPressione = VERO;
    EXPECT_EQ(PerditaSezione(*d, 200.0f, 0.0f, 20.0f, 50.0f, 1), 0.0f);
    EXPECT_EQ(PerditaSezione(*d, 200.0f, 0.0273f, 0.0f, 50.0f, 1), 0.0f);
    EXPECT_EQ(PerditaUnitariaPressione(*d, 0.0f, 20.0f, 200.0f, 1), 0.0f);
    d->GasCorrente.Viscosita = 0;
    EXPECT_EQ(PerditaSezione(*d, 200.0f, 0.0273f, 20.0f, 50.0f, 1), 0.0f);
    EXPECT_EQ(PerditaUnitariaPressione(*d, 0.0273f, 20.0f, 200.0f, 1), 0.0f);
}

TEST_F(Formule, CoefficienteAttritoNeiTreRegimi) {
    struct {
        float D, Re;
        double eps;
        float lambda;
    } casi[] = {
        {0.0531f, 3000.0f, 2e-05, 0.043594033f},     // smooth pipe
        {0.0161f, 15000.0f, 2e-05, 0.029953869f},    // smooth pipe
        {0.0531f, 80000.0f, 0.00015, 0.027400581f},  // transition
        {0.0126f, 2e+06f, 0.00015, 0.040231176f},    // fully rough, reached through the transition
        {0.2f, 5e+07f, 0.00015, 0.018325672f},       // fully rough
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.Re);
        EXPECT_EQ(Bit(CoefficienteAttrito(c.D, c.Re, c.eps)), Bit(c.lambda));
    }
    EXPECT_EQ(Rugosita(1), 0.00015);
    EXPECT_EQ(Rugosita(2), 0.00002);
    EXPECT_EQ(Rugosita(3), 0.00002);
}

TEST_F(Formule, PerditaSezioneDiUnaReteInPressione) {
    d->ReteInPressione = VERO;
    struct {
        float P1, D, Q, L;
        int tipo;
        float kPa;
    } casi[] = {
        {200.0f, 0.0273f, 20.0f, 50.0f, 1, 0.6734042f},
        {181.5f, 0.0161f, 8.0f, 120.0f, 3, 3.465671f},
        {150.0f, 0.0531f, 300.0f, 80.0f, 1, 7.9765153f},
        // The head pressure can't drive the flow: -1 before any iteration.
        {5.0f, 0.0126f, 60.0f, 400.0f, 1, -1.0f},
        {20.0f, 0.0126f, 40.0f, 40.0f, 3, -1.0f},
        // 50 rounds without converging: the value with the smallest error is a valid drop.
        {1.0f, 0.0161f, 128.0f, 1.0f, 1, 48.354816f},
        // The first estimate passes, the iteration finds the drop beyond the pressure.
        {1.0f, 0.0161f, 129.3f, 1.0f, 1, -1.0f},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.Q);
        EXPECT_EQ(Bit(PerditaSezione(*d, c.P1, c.D, c.Q, c.L, c.tipo)), Bit(c.kPa));
    }
}

TEST_F(Formule, PerditaUnitariaPerLaSceltaDeiDiametri) {
    d->ReteInPressione = VERO;
    struct {
        float D, Q, P1;
        int tipo;
        float kPaM;
    } casi[] = {
        {0.0273f, 20.0f, 200.0f, 1, 0.01365625f},
        {0.0161f, 8.0f, 181.5f, 3, 0.029f},
        {0.0126f, 60.0f, 5.0f, 1, 24.562243f},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.Q);
        EXPECT_EQ(Bit(PerditaUnitariaPressione(*d, c.D, c.Q, c.P1, c.tipo)), Bit(c.kPaM));
    }
}

TEST(Reynolds, ArrotondatoTramiteIlTestoDecimale) {
    // Just above the midpoint of 1 and the next float: a direct rounding goes up, the text of
    // 15 digits ("1.00000005960464") falls below the midpoint and reads back as 1.
    const double sopra = 1.0 + std::ldexp(1.0, -24) + std::ldexp(1.0, -52);
    EXPECT_EQ(static_cast<float>(sopra), std::nextafter(1.0f, 2.0f));
    EXPECT_EQ(ReynoldsDaTesto(sopra), 1.0f);
    EXPECT_EQ(ReynoldsDaTesto(2357.8510087671634), 2357.851f);
}

TEST_F(Formule, PressioneValleIterataParteDallaPrimaStima) {
    d->ReteInPressione = VERO;
    // Converges in one round from the first estimate (sqrt(P1a^2 - delta0) at 32 bits).
    EXPECT_EQ(PressioneValleIterata(*d, 200.0f, 20.0f, 0.0273f, 50.0f, 300651.84375, 1), 300651.5957592523);
    // A drop beyond the absolute pressure: -1 in the first round.
    EXPECT_EQ(PressioneValleIterata(*d, 20.0f, 40.0f, 0.0126f, 40.0f, 121325.0, 3), -1.0);
}

TEST_F(Formule, VelocitaNormaleEMedia) {
    // 0.3537 = 1000 / (3600 * pi/4) / 1000 per mm2.
    EXPECT_EQ(Bit(static_cast<float>(VelocitaNormale(3.7f, 27.3f))), Bit(1.7559475f));
    EXPECT_EQ(VelocitaNormale(3.7f, 0.0f), 0.0);
    EXPECT_EQ(Bit(static_cast<float>(VelocitaMedia(55.0f, 27.3f, 100.0f, 86.84811f))), Bit(13.580437f));
    EXPECT_EQ(VelocitaMedia(55.0f, 0.0f, 100.0f, 86.84811f), 0.0);
}

TEST_F(Formule, LunghezzaEquivalenteInternaAccoppiaITipi1324) {
    struct {
        float len;
        int16_t curve, gomiti, raccordi, rubinetti;
        float nota, diametro;
        int16_t famiglia;
        float atteso;
    } casi[] = {
        {2.5f, 1, 2, 3, 4, 0.7f, 20.0f, 2, 9.0f},
        {2.5f, 1, 2, 3, 4, 0.0f, 22.3f, 3, 8.9f},  // 22.3 is still the first class
        {1.0f, 4, 3, 2, 1, 0.0f, 22.4f, 1, 12.3f},
        {3.0f, 1, 1, 1, 1, 1.5f, 81.7f, 3, 14.5f},
        {3.0f, 2, 0, 1, 0, 0.0f, 81.8f, 2, 12.5f},
    };
    // The built-in table alone (a pressure table would replace its first family), and a third
    // material whose only row has the diameter of the case.
    a = ArchiviProva();
    CaricaSpecialiInterni(d->Speciali);
    a->Materiali.push_back(Materiale("PROVA", 1, 7850, {{"X", 0.0f}}, 1.0f));
    Dati x;
    x.materiale = 3;
    x.diametro = "X";
    const int i = Aggiungi(*d, *a, 0, x);
    for (const auto& c : casi) {
        SCOPED_TRACE(c.atteso);
        a->Materiali[3].Righe[1].DiamInterno = c.diametro;
        d->GasCorrente.Famiglia = c.famiglia;
        Tronco& t = d->T(i);
        t.ID_LEN = c.len;
        t.ID_NCURVE = c.curve;
        t.ID_NGOMITI = c.gomiti;
        t.ID_NRACCORDI = c.raccordi;
        t.ID_NRUBINETTI = c.rubinetti;
        t.ID_EQLENNOTA = c.nota;
        CalcolaLunghezzaEquivalente(*d, *a, 1, i);
        EXPECT_EQ(Bit(t.ID_EQ_LEN), Bit(c.atteso));
    }
    // Any other mode takes the reference 100 mm, class 4.
    d->GasCorrente.Famiglia = 2;
    d->T(i).ID_NCURVE = 1;
    d->T(i).ID_NGOMITI = 0;
    d->T(i).ID_NRACCORDI = 0;
    d->T(i).ID_NRUBINETTI = 0;
    d->T(i).ID_EQLENNOTA = 0;
    CalcolaLunghezzaEquivalente(*d, *a, 2, i);
    EXPECT_EQ(d->T(i).ID_EQ_LEN, 4.5f);
}

TEST_F(Formule, LunghezzaEquivalenteInPressioneSommataInPassiA32Bit) {
    struct {
        float len;
        std::array<int16_t, 4> conteggi;
        std::array<int16_t, 6> speciali;
        float nota, diametro, atteso;
    } casi[] = {
        // One double sum rounded at the end would give 91.2 (0x42b66666) here.
        {7.7f, {1, 2, 3, 1}, {1, 2, 0, 1, 3, 1}, 0.3f, 200.0f, 91.200005f},
        {12.345f, {0, 0, 0, 1}, {1, 2, 0, 1, 3, 1}, 0.3f, 50.0f, 20.744999f},
        {5.0f, {1, 2, 3, 4}, {0, 0, 0, 0, 0, 0}, 0.0f, 125.0f, 38.27f},
    };
    a->Materiali.push_back(Materiale("PROVA", 1, 7850, {{"X", 0.0f}}, 1.0f));
    d->ReteInPressione = VERO;
    Dati x;
    x.materiale = 3;
    x.diametro = "X";
    const int i = Aggiungi(*d, *a, 0, x);
    for (const auto& c : casi) {
        SCOPED_TRACE(c.atteso);
        a->Materiali[3].Righe[1].DiamInterno = c.diametro;
        Tronco& t = d->T(i);
        t.ID_LEN = c.len;
        t.ID_NCURVE = c.conteggi[0];
        t.ID_NGOMITI = c.conteggi[1];
        t.ID_NRACCORDI = c.conteggi[2];
        t.ID_NRUBINETTI = c.conteggi[3];
        t.ID_SPC5 = c.speciali[0];
        t.ID_SPC6 = c.speciali[1];
        t.ID_SPC7 = c.speciali[2];
        t.ID_SPC8 = c.speciali[3];
        t.ID_SPC9 = c.speciali[4];
        t.ID_SPC10 = c.speciali[5];
        t.ID_EQLENNOTA = c.nota;
        CalcolaLunghezzaEquivalentePressione(*d, *a, 1, i);
        EXPECT_EQ(Bit(t.ID_EQ_LEN), Bit(c.atteso));
    }
    // The reference of other modes is 200 mm, the third class.
    CalcolaLunghezzaEquivalentePressione(*d, *a, 2, i);
    EXPECT_EQ(Bit(d->T(i).ID_EQ_LEN), Bit(58.2f));
}
