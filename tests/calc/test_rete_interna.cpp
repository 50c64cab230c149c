// Internal installations calculated whole, against tools/riferimento.py.

#include <gtest/gtest.h>

#include "calc/Calcolo.h"
#include "calc/VList.h"
#include "tests/calc/ReteProva.h"

using namespace fornax;
using namespace fornax::prova;

namespace {

struct ReteInterna : ::testing::Test {
    std::unique_ptr<Archivi> a = ArchiviProva();
    std::unique_ptr<Documento> d = DocumentoProva();
    MessaggiRegistrati msg;

    int Sezione(int padre, float utenze, float lunghezza) {
        Dati x;
        x.utenze = utenze;
        x.lunghezza = lunghezza;
        return Aggiungi(*d, *a, padre, x);
    }
};

}  // namespace

TEST_F(ReteInterna, Edizione1992ConAccidentalitaDistinte) {
    d->Normativa = 1;
    Dati x;
    x.lunghezza = 6;
    x.curve = 1, x.gomiti = 2, x.raccordi = 3, x.rubinetti = 1;
    Aggiungi(*d, *a, 0, x);
    x = {};
    x.lunghezza = 4;
    x.curve = 2, x.raccordi = 1;
    Aggiungi(*d, *a, 1, x);
    x = {};
    x.utenze = 1.2f, x.lunghezza = 3, x.curve = 1, x.gomiti = 1, x.rubinetti = 1;
    Aggiungi(*d, *a, 2, x);
    x = {};
    x.utenze = 2.5f, x.lunghezza = 5.5f, x.gomiti = 1, x.rubinetti = 1;
    Aggiungi(*d, *a, 2, x);

    CalcolaRete(*d, *a, msg);
    ConfrontaTronchi(*d, {
                             {1, 3.7f, 16.3f, 16.3f, "1\"", 29.198065f, 29.198065f, 170.80194f, 1.7559475f, 0.0f},
                             {2, 3.7f, 7.0f, 23.3f, "1\"", 12.539047f, 41.737114f, 158.26288f, 1.7559475f, 0.0f},
                             {3, 1.2f, 4.5f, 27.8f, "3/8\"", 47.091633f, 88.82875f, 111.17125f, 2.6734693f, 0.0f},
                             {4, 2.5f, 6.8f, 30.099998f, "3/4\"", 18.562279f, 60.299393f, 139.7006f, 1.8778269f, 0.0f},
                         });
    // 3.7 Nm3/h of methane is 35 kW: at the threshold, the first band of the second family.
    // Section 3 stands above the limit: the consumer's own share couldn't be met.
    EXPECT_EQ(d->MaxPdcPercorso, 119.88870239257812f);
    EXPECT_EQ(d->MaxLenPercorso, 63.5f);
    EXPECT_TRUE(msg.mostrati.empty());
    EXPECT_EQ(d->ReteModificata, FALSO);  // a calculation is not an edit
    for (int i = 1; i <= 4; ++i) {
        EXPECT_EQ(d->T(i).Visitato, VERO);
        EXPECT_EQ(d->T(i).ID_CONTEMP, 100);
    }
}

TEST_F(ReteInterna, DiametroBloccatoSenzaPortataEMaterialiDiversi) {
    Sezione(0, 0, 3);
    Sezione(1, 0, 3);
    Sezione(2, 0, 4);
    Sezione(2, 0, 4);
    Sezione(3, 2.4f, 6);
    Dati x;
    x.utenze = 0.9f, x.lunghezza = 6, x.diametro = "1\"", x.bloccato = true;
    Aggiungi(*d, *a, 3, x);
    Sezione(4, 0.0f, 6);
    x = {};
    x.utenze = 3.1f, x.lunghezza = 6, x.materiale = RAME;
    Aggiungi(*d, *a, 4, x);

    CalcolaRete(*d, *a, msg);
    ConfrontaTronchi(*d, {
                             {1, 6.4f, 3.0f, 3.0f, "1 1/4\"", 4.447517f, 4.447517f, 195.55249f, 1.7466667f, 0.0f},
                             {2, 6.4f, 3.0f, 6.0f, "1\"", 16.779884f, 21.227402f, 178.7726f, 3.0373147f, 0.0f},
                             {3, 3.3000002f, 4.0f, 10.0f, "1\"", 6.7909236f, 28.018326f, 171.98167f, 1.5661154f, 0.0f},
                             {4, 3.1f, 4.0f, 10.0f, "1\"", 6.068128f, 27.29553f, 172.70447f, 1.4711992f, 0.0f},
                             {5, 2.4f, 6.0f, 16.0f, "3/4\"", 17.284191f, 45.302517f, 154.69748f, 1.802714f, 0.0f},
                             // Locked: kept through sizing and narrowing, and still its parent's neighbour.
                             {6, 0.9f, 6.0f, 16.0f, "1\"", 0.9824976f, 29.000824f, 170.99918f, 0.42712235f, 0.0f},
                             // No flow: no diameter, no drop, no speed.
                             {7, 0.0f, 6.0f, 16.0f, "", 0.0f, 27.29553f, 172.70447f, 0.0f, 0.0f},
                             {8, 3.1f, 6.0f, 16.0f, "28x1", 11.5041485f, 38.79968f, 161.20032f, 1.621997f, 0.0f},
                         });
    EXPECT_EQ(d->T(6).ID_DIAMCUSTOM, VERO);
    // The running maximum also saw a narrowing trial that was undone.
    EXPECT_EQ(d->MaxPdcPercorso, 100.44383239746094f);
}

TEST_F(ReteInterna, PercorsiDiUgualeLunghezzaPresiInOrdineDiIndice) {
    Sezione(0, 0, 13);
    Sezione(1, 0, 2);
    Sezione(2, 0, 5);
    Sezione(2, 0, 5);
    Sezione(3, 2.4f, 10);
    Sezione(3, 2.0f, 10);
    Sezione(4, 1.3f, 10);
    Sezione(4, 2.3f, 10);
    CalcolaRete(*d, *a, msg);
    // Taken the other way round, 4 and 8 would be 1" (see riferimento.py, rete_ordine).
    ConfrontaTronchi(*d, {
                             {1, 8.0f, 13.0f, 13.0f, "1 1/2\"", 13.899597f, 13.899597f, 186.1004f, 1.6117474f, 0.0f},
                             {2, 8.0f, 2.0f, 15.0f, "1 1/2\"", 2.1383996f, 16.037996f, 183.962f, 1.6117474f, 0.0f},
                             {3, 4.4f, 5.0f, 20.0f, "1 1/4\"", 3.7762194f, 19.814217f, 180.18579f, 1.2008333f, 0.0f},
                             {4, 3.6f, 5.0f, 20.0f, "1 1/4\"", 2.6313999f, 18.669395f, 181.3306f, 0.98249996f, 0.0f},
                             {5, 2.4f, 10.0f, 30.0f, "3/4\"", 28.806984f, 48.6212f, 151.3788f, 1.802714f, 0.0f},
                             {6, 2.0f, 10.0f, 30.0f, "3/4\"", 20.747776f, 40.561993f, 159.438f, 1.5022615f, 0.0f},
                             {7, 1.3f, 10.0f, 30.0f, "3/4\"", 9.5546665f, 28.224062f, 171.77594f, 0.97647f, 0.0f},
                             {8, 2.3f, 10.0f, 30.0f, "3/4\"", 26.682568f, 45.351963f, 154.64804f, 1.7276008f, 0.0f},
                         });
}

TEST_F(ReteInterna, LimiteImpostoDallUtente) {
    d->DpMax = 8.0;
    Dati x;
    x.lunghezza = 12, x.curve = 2, x.gomiti = 2, x.rubinetti = 1;
    Aggiungi(*d, *a, 0, x);
    x = {};
    x.utenze = 9, x.lunghezza = 25, x.curve = 4, x.rubinetti = 1;
    Aggiungi(*d, *a, 1, x);
    CalcolaRete(*d, *a, msg);
    ConfrontaTronchi(*d,
                     {
                         {1, 9.0f, 21.1f, 21.1f, "2 1/2\"", 2.5620694f, 2.5620694f, 197.43793f, 0.67056227f, 0.0f},
                         {2, 9.0f, 29.7f, 50.800003f, "2 1/2\"", 3.6063251f, 6.1683946f, 193.8316f, 0.67056227f, 0.0f},
                     });

    // A limit the network can't meet: the largest diameters, and the drop above the limit.
    d->DpMax = 0.5;
    CalcolaRete(*d, *a, msg);
    ConfrontaTronchi(*d, {
                             {1, 9.0f, 26.0f, 26.0f, "4\"", 0.41217148f, 0.41217148f, 199.58783f, 0.28709182f, 0.0f},
                             {2, 9.0f, 33.0f, 59.0f, "4\"", 0.5231407f, 0.9353122f, 199.06468f, 0.28709182f, 0.0f},
                         });
}

TEST_F(ReteInterna, UnaSolaUtenzaAllaSorgenteHaTuttoIlLimite) {
    // No junction: the list of paths is empty and the leftover pass sizes the section with the
    // whole limit (100 Pa, first band) over its own length: 3/4" (2.07 Pa/m) fits 2.5 Pa/m,
    // 1/2" (8.69 Pa/m) doesn't.
    Sezione(0, 2.0f, 40);
    CalcolaRete(*d, *a, msg);
    ConfrontaTronchi(*d, {{1, 2.0f, 40.0f, 40.0f, "3/4\"", 82.991104f, 82.991104f, 117.008896f, 1.5022615f, 0.0f}});
    EXPECT_EQ(d->T(1).Visitato, VERO);
}

TEST_F(ReteInterna, ContemporaneitaForzataA100EPortataDiUnNodoTolta) {
    Sezione(0, 0, 5);
    Sezione(1, 1.0f, 5);
    Sezione(1, 2.0f, 5);
    d->T(1).ID_CONTEMP = 50;
    d->T(2).ID_CONTEMP = 0;
    d->T(1).ID_P_UTENZE = 4.0f;  // a junction with a consumer's flow
    CalcolaRete(*d, *a, msg);
    ASSERT_EQ(msg.Testi().size(), 1u);
    EXPECT_EQ(msg.Testi()[0], "Portata nel tronco 1 non compatibile");
    EXPECT_EQ(d->T(1).ID_P_UTENZE, 0.0f);
    EXPECT_EQ(d->T(1).ID_P_TRONCO, 3.0f);
    EXPECT_EQ(d->T(1).ID_CONTEMP, 100);
    EXPECT_EQ(d->T(2).ID_CONTEMP, 100);
    // The second run finds nothing to say.
    CalcolaRete(*d, *a, msg);
    EXPECT_EQ(msg.Testi().size(), 1u);
}

TEST_F(ReteInterna, RiduciDiametriNonScendeSottoLeDerivazioni) {
    // Sizing gives the root 1 1/4"; the sweeps narrow it to 3/4", as wide as derivation 2:
    // a pipe stays strictly wider than what hangs below it.
    Sezione(0, 0, 2);
    Sezione(1, 4.0f, 3);
    Sezione(1, 0.7f, 16);
    CalcolaRete(*d, *a, msg);
    ConfrontaTronchi(*d, {
                             {1, 4.7f, 2.0f, 2.0f, "3/4\"", 19.316286f, 19.316286f, 180.68372f, 3.5303144f, 0.0f},
                             {2, 4.0f, 3.0f, 5.0f, "3/4\"", 21.674385f, 40.99067f, 159.00934f, 3.004523f, 0.0f},
                             {3, 0.7f, 16.0f, 18.0f, "1/2\"", 21.021149f, 40.337433f, 159.66257f, 0.9551714f, 0.0f},
                         });
}

TEST(VListOrdine, ChiaviUgualiRestanoNellOrdineDiInserimento) {
    VList l;
    l.Add(2, 10.0f);
    l.Add(5, 30.0f);
    l.Add(3, 10.0f);
    l.Add(7, 20.0f);
    l.Add(9, 10.0f);
    l.Add(1, 30.0f);
    const int attesi[] = {5, 1, 7, 2, 3, 9};
    ASSERT_EQ(l.Count(), 6);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(l.Item(i + 1), attesi[i]) << i;
    EXPECT_EQ(l.Key(3), 20.0f);
    l.Remove(7);
    EXPECT_EQ(l.Item(3), 2);
    l.SortLista();
    EXPECT_EQ(l.Item(4), 3);

    MessaggiRegistrati msg;
    VList m(&msg);
    m.Add(4, 1.0f);
    EXPECT_EQ(m.Item(2), 0);
    EXPECT_EQ(m.Key(0), 0.0f);
    EXPECT_EQ(msg.Testi(), (std::vector<std::string>{"Sconfinamento lista", "Sconfinamento lista"}));
    m.Clear();
    EXPECT_EQ(m.Count(), 0);
}
