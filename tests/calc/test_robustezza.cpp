// Damaged or extreme inputs: the calculation never crashes or hangs, the sections it can't
// compute get the failure value, and the rest goes on.

#include <gtest/gtest.h>

#include "calc/Calcolo.h"
#include "calc/Computo.h"
#include "calc/RisultatiJson.h"
#include "calc/Verifica.h"
#include "tests/calc/ReteProva.h"

using namespace fornax;
using namespace fornax::prova;

namespace {

struct Robustezza : ::testing::TestWithParam<bool> {
    bool pressione = GetParam();
    std::unique_ptr<Archivi> a = ArchiviProva();
    std::unique_ptr<Documento> d = DocumentoProva(2, pressione);
    MessaggiRegistrati msg;

    int Sezione(int padre, float utenze, float lunghezza = 10, int materiale = ACCIAIO) {
        Dati x;
        x.utenze = utenze;
        x.lunghezza = lunghezza;
        x.materiale = materiale;
        return Aggiungi(*d, *a, padre, x);
    }
    // 1 -> {2 -> {4, 5}, 3}
    void Albero() {
        Sezione(0, 0);
        Sezione(1, 0);
        Sezione(1, 2.0f);
        Sezione(2, 1.0f);
        Sezione(2, 1.5f);
    }
    // Everything a view or a report reads afterwards must work on the result too.
    void Leggi() {
        PercorsoSfavorito(*d);
        for (int i = 1; i <= d->NumTronchi(); ++i) VerificaTronco(*a, *d, i);
        VolumeTubazioni(*d, *a);
        EXPECT_FALSE(RisultatiJson(*d, *a).empty());
    }
};

std::string Nome(const testing::TestParamInfo<bool>& info) { return info.param ? "Pressione" : "Interna"; }

}  // namespace

TEST_P(Robustezza, MaterialeFuoriTabellaOSenzaRighe) {
    Albero();
    d->T(4).IndiceMateriale = 9;
    d->T(5).IndiceMateriale = 0;
    a->Materiali.push_back(Materiale("VUOTO", 1, 7850, {}, 1.0f));
    d->T(3).IndiceMateriale = 3;
    CalcolaRete(*d, *a, msg);
    for (int i : {3, 4, 5}) {
        SCOPED_TRACE(i);
        EXPECT_EQ(d->T(i).ID_DIAMETRO, "");
        EXPECT_EQ(d->T(i).ID_PDC_TRONCO, -1.0f);
        EXPECT_EQ(d->T(i).ID_PDC_PERCORSO, -1.0f);
        EXPECT_EQ(d->T(i).ID_VELOCITA, 0.0f);
    }
    // The sections with a pipe are still sized.
    EXPECT_FALSE(d->T(1).ID_DIAMETRO.empty());
    EXPECT_GE(d->T(1).ID_PDC_TRONCO, 0.0f);
    EXPECT_TRUE(msg.mostrati.empty());
    Leggi();
}

TEST_P(Robustezza, DiametroNulloOBloccatoSuUnaMisuraInesistente) {
    Albero();
    a->Materiali.push_back(Materiale("ZERO", 1, 7850, {{"Z", 0.0f}}, 1.0f));
    d->T(4).IndiceMateriale = 3;
    d->T(5).ID_DIAMCUSTOM = VERO;
    d->T(5).ID_DIAMETRO = "7/8\"";
    CalcolaRete(*d, *a, msg);
    EXPECT_EQ(d->T(4).ID_PDC_TRONCO, -1.0f);
    EXPECT_EQ(d->T(5).ID_PDC_TRONCO, -1.0f);
    EXPECT_EQ(d->T(5).ID_DIAMETRO, "7/8\"");
    EXPECT_EQ(d->T(4).ID_VELOCITA, 0.0f);
    EXPECT_EQ(d->T(5).ID_VELOCITA, 0.0f);
    Leggi();
}

TEST_P(Robustezza, GasSenzaViscositaNonDaCadute) {
    Albero();
    d->GasCorrente.Viscosita = 0;
    CalcolaRete(*d, *a, msg);
    for (int i = 1; i <= 5; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(d->T(i).ID_PDC_TRONCO, 0.0f);
        EXPECT_EQ(d->T(i).ID_PDC_PERCORSO, 0.0f);
    }
    Leggi();
}

TEST_P(Robustezza, CollegamentiCheTornanoIndietro) {
    Albero();
    d->T(4).ID_LEFT = 1;  // back up to the root
    d->T(5).ID_LEFT = 5;  // onto itself
    d->T(3).ID_LEFT = 2;  // a second parent for 2
    d->T(3).ID_RIGHT = -3;
    d->T(2).ID_PREV = 4;  // parents that loop
    CalcolaRete(*d, *a, msg);
    EXPECT_EQ(d->T(1).Visitato, VERO);
    Leggi();

    // Only parents that loop, and a terminal junction among them.
    auto e = DocumentoProva(2, pressione);
    d = std::move(e);
    Sezione(0, 0);
    Sezione(1, 0);
    Sezione(2, 1.0f);
    Sezione(2, 1.0f);
    d->T(1).ID_PREV = 2;
    CalcolaRete(*d, *a, msg);
    Leggi();
}

TEST_P(Robustezza, NodoTerminaleStaccatoOffertoUnaVoltaSola) {
    // 3 was cut off the tree with its two consumers: it is still a terminal junction, of
    // weight 0, and sizing can't size it with nothing to share out. It must not be offered
    // again and again.
    Sezione(0, 0);
    Sezione(1, 2.0f);
    Sezione(0, 0);
    Sezione(3, 1.0f);
    Sezione(3, 1.0f);
    d->T(3).ID_SCOLLEGATO = VERO;
    CalcolaRete(*d, *a, msg);
    EXPECT_FALSE(d->T(1).ID_DIAMETRO.empty());
    EXPECT_FALSE(d->T(2).ID_DIAMETRO.empty());
    for (int i : {3, 4, 5}) EXPECT_EQ(d->T(i).Visitato, FALSO) << i;
    Leggi();
}

TEST_P(Robustezza, DerivazioneOltreLaTabellaTolta) {
    Albero();
    d->T(3).ID_LEFT = 9;   // beyond NumTronchi + 1: a stale link
    d->T(3).ID_RIGHT = 6;  // NumTronchi + 1: the blank record, read as it stands
    CalcolaRete(*d, *a, msg);
    EXPECT_EQ(d->T(3).ID_LEFT, 0);
    EXPECT_EQ(d->T(3).ID_RIGHT, 6);
    // With a derivation left, 3 is a junction: its consumer's flow goes, with the message.
    EXPECT_EQ(msg.Testi(), std::vector<std::string>{"Portata nel tronco 3 non compatibile"});
    EXPECT_EQ(d->T(3).ID_P_UTENZE, 0.0f);
    Leggi();

    d->T(3).ID_LEFT = 30000;
    d->T(3).ID_RIGHT = 0;
    CalcolaRete(*d, *a, msg);
    EXPECT_EQ(d->T(3).ID_LEFT, 0);
}

TEST_P(Robustezza, ReteVuotaOSezioneSenzaLunghezza) {
    CalcolaRete(*d, *a, msg);
    EXPECT_TRUE(PercorsoSfavorito(*d).empty());
    EXPECT_TRUE(msg.mostrati.empty());
    Leggi();

    Sezione(0, 3.0f, 0.0f);
    CalcolaRete(*d, *a, msg);
    Leggi();
}

TEST_P(Robustezza, CatenaDi400Tronchi) {
    // 399 sections in a row and a consumer at the end: the walks go 400 deep.
    int padre = 0;
    for (int i = 1; i < MAX_TRONCHI; ++i) padre = Sezione(padre, 0.0f, 0.5f);
    Sezione(padre, 4.0f, 0.5f);
    ASSERT_EQ(d->NumTronchi(), MAX_TRONCHI);
    if (pressione) d->PressioneFinale = 100.0;
    CalcolaRete(*d, *a, msg);
    EXPECT_EQ(d->T(MAX_TRONCHI).LenPercorso, 200.0f);
    for (int i = 1; i <= MAX_TRONCHI; ++i) {
        ASSERT_EQ(d->T(i).Visitato, VERO) << i;
        ASSERT_EQ(d->T(i).ID_P_TRONCO, 4.0f) << i;
        ASSERT_FALSE(d->T(i).ID_DIAMETRO.empty()) << i;
    }
    EXPECT_EQ(PercorsoSfavorito(*d).size(), static_cast<size_t>(MAX_TRONCHI));
    // The stale link one past the table is dropped.
    d->T(MAX_TRONCHI).ID_LEFT = MAX_TRONCHI + 1;
    CalcolaRete(*d, *a, msg);
    EXPECT_EQ(d->T(MAX_TRONCHI).ID_LEFT, 0);
    Leggi();
}

INSTANTIATE_TEST_SUITE_P(Reti, Robustezza, ::testing::Bool(), Nome);
