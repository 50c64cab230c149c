// Pressure networks calculated whole, against tools/riferimento.py.

#include <gtest/gtest.h>

#include "calc/Calcolo.h"
#include "tests/calc/ReteProva.h"

using namespace fornax;
using namespace fornax::prova;

namespace {

struct RetePressione : ::testing::Test {
    std::unique_ptr<Archivi> a = ArchiviProva();
    std::unique_ptr<Documento> d = DocumentoProva(2, true);
    MessaggiRegistrati msg;

    int Sezione(int padre, float utenze, float lunghezza, int materiale = ACCIAIO) {
        Dati x;
        x.utenze = utenze;
        x.lunghezza = lunghezza;
        x.materiale = materiale;
        return Aggiungi(*d, *a, padre, x);
    }
};

}  // namespace

TEST_F(RetePressione, ContemporaneitaDelNodoEAccidentalitaDelleDieciSpecie) {
    d->PressioneIniziale = 100.0;
    d->PressioneFinale = 60.0;
    d->VelocitaMassima = 20.0f;
    Dati x;
    x.lunghezza = 80, x.curve = 2, x.raccordi = 1, x.speciali = {1, 0, 0, 0, 0, 2};
    Aggiungi(*d, *a, 0, x);
    x = {};
    x.lunghezza = 60, x.contemp = 60, x.speciali = {0, 1, 0, 0, 0, 0};
    Aggiungi(*d, *a, 1, x);
    x = {};
    x.utenze = 12, x.lunghezza = 45, x.rubinetti = 1;
    Aggiungi(*d, *a, 2, x);
    Sezione(2, 18, 30, RAME);
    x = {};
    x.utenze = 25, x.lunghezza = 70, x.curve = 3;
    Aggiungi(*d, *a, 1, x);
    // A consumer's contemporaneity is always 100; a junction keeps its own.
    d->T(3).ID_CONTEMP = 40;

    CalcolaRete(*d, *a, msg);
    ConfrontaTronchi(*d,
                     {
                         // The raw sum goes up: 30 + 25, not 18 + 25.
                         {1, 55.0f, 89.9f, 119.6f, "1\"", 13.151893f, 13.151893f, 86.84811f, 13.580437f, 100.0f},
                         {2, 18.0f, 60.8f, 182.8f, "3/4\"", 3.5294523f, 16.681345f, 83.31866f, 7.349186f, 86.84811f},
                         {3, 12.0f, 45.15f, 228.4f, "3/8\"", 21.651047f, 38.33239f, 61.66761f, 15.584638f, 83.31866f},
                         {4, 18.0f, 30.0f, 212.8f, "16x1", 11.781366f, 28.462711f, 71.53729f, 18.412588f, 83.31866f},
                         {5, 25.0f, 72.1f, 198.0f, "3/4\"", 7.9613795f, 21.113272f, 78.88673f, 10.330003f, 86.84811f},
                     });
    EXPECT_EQ(d->T(2).ID_CONTEMP, 60);
    EXPECT_EQ(d->T(3).ID_CONTEMP, 100);
    EXPECT_TRUE(msg.mostrati.empty());
}

TEST_F(RetePressione, BudgetEsauritoAMetaPercorso) {
    d->PressioneIniziale = 30.0;
    d->PressioneFinale = 20.0;
    d->VelocitaMassima = 25.0f;
    Sezione(0, 0, 100);
    Sezione(1, 0, 100, RAME);  // at its largest size, it overspends
    Sezione(2, 0, 100);
    Sezione(3, 40, 50);
    Sezione(1, 5, 20);
    CalcolaRete(*d, *a, msg);
    ConfrontaTronchi(*d,
                     {
                         {1, 45.0f, 100.0f, 100.0f, "1 1/2\"", 1.6324724f, 1.6324724f, 28.367527f, 7.0387645f, 30.0f},
                         {2, 40.0f, 100.0f, 200.0f, "28x1", 11.613765f, 13.246237f, 16.753763f, 17.117643f, 28.367527f},
                         // Nothing left: -1 from here down, whatever the later sections would have needed.
                         {3, 40.0f, 100.0f, 300.0f, "", -1.0f, -1.0f, -1.0f, 0.0f, 16.753763f},
                         {4, 40.0f, 50.0f, 350.0f, "4\"", -1.0f, -1.0f, -1.0f, 1.1066725f, 0.0f},
                         {5, 5.0f, 20.0f, 120.0f, "3/8\"", 2.387529f, 4.0200014f, 25.98f, 8.783783f, 28.367527f},
                     });
}

TEST_F(RetePressione, PressioneFinaleSopraLIniziale) {
    d->PressioneIniziale = 100.0;
    d->PressioneFinale = 120.0;
    Sezione(0, 0, 10);
    Sezione(1, 0, 10);
    Sezione(2, 5, 10);
    Sezione(2, 3, 5);
    CalcolaRete(*d, *a, msg);
    ConfrontaTronchi(*d, {
                             {1, 8.0f, 10.0f, 10.0f, "", -1.0f, -1.0f, -1.0f, 0.0f, 100.0f},
                             {2, 8.0f, 10.0f, 20.0f, "", -1.0f, -1.0f, -1.0f, 0.0f, 101.0f},
                             {3, 5.0f, 10.0f, 30.0f, "4\"", -1.0f, -1.0f, -1.0f, 0.106444106f, 0.0f},
                             {4, 3.0f, 5.0f, 25.0f, "4\"", -1.0f, -1.0f, -1.0f, 0.06386647f, 0.0f},
                         });
}

TEST_F(RetePressione, DiametroBloccatoPuoNonReggereLaPortata) {
    d->PressioneIniziale = 5.0;
    d->PressioneFinale = 1.0;
    Dati x;
    x.utenze = 60, x.lunghezza = 400, x.diametro = "3/8\"", x.bloccato = true;
    Aggiungi(*d, *a, 0, x);
    CalcolaRete(*d, *a, msg);
    // 60 Nm3/h through 400 m of 12.6 mm: more than the absolute pressure at the head.
    EXPECT_EQ(d->T(1).ID_DIAMETRO, "3/8\"");
    EXPECT_EQ(d->T(1).ID_PDC_TRONCO, -1.0f);
    EXPECT_EQ(d->T(1).ID_PDC_PERCORSO, -1.0f);
    EXPECT_EQ(d->T(1).ID_PFINALE, -1.0f);
}

TEST_F(RetePressione, IlDiametroMaggioreQuandoNessunaRigaPassa) {
    d->PressioneIniziale = 200.0;
    d->PressioneFinale = 150.0;
    d->VelocitaMassima = 0.2f;  // no row keeps the speed this low
    Sezione(0, 30, 50);
    CalcolaRete(*d, *a, msg);
    EXPECT_EQ(d->T(1).ID_DIAMETRO, "4\"");
    EXPECT_GT(d->T(1).ID_PDC_TRONCO, 0.0f);
    EXPECT_GT(d->T(1).ID_VELOCITA, d->VelocitaMassima);
}
