#include <gtest/gtest.h>

#include <memory>

#include "core/Documento.h"
#include "core/ServiziProva.h"

using namespace fornax;

namespace {

struct Albero : ::testing::Test {
    std::unique_ptr<Documento> doc = std::make_unique<Documento>();
    MessaggiRegistrati msg;
    std::vector<std::string> materiali{"ACCIAIOL", "RAME-B"};

    int16_t Nuovo(int16_t padre) { return NuovoTronco(*doc, padre, materiali, "rame-b", msg); }
};

}  // namespace

TEST_F(Albero, NuovoTroncoCollegaAlPadreEUsaIlMaterialePredefinito) {
    EXPECT_EQ(Nuovo(0), 1);
    EXPECT_EQ(Nuovo(1), 2);
    EXPECT_EQ(Nuovo(1), 3);
    EXPECT_EQ(doc->T(1).ID_LEFT, 2);
    EXPECT_EQ(doc->T(1).ID_RIGHT, 3);
    EXPECT_EQ(doc->T(3).ID_PREV, 1);
    EXPECT_EQ(doc->T(3).ID_LEN, 1.0f);
    EXPECT_EQ(doc->T(3).IndiceMateriale, 2);  // default found without regard to case
    EXPECT_EQ(doc->T(3).ID_MATERIALE, "RAME-B");

    // A third derivation is refused, but the record taken stays counted.
    EXPECT_EQ(Nuovo(1), 0);
    EXPECT_EQ(doc->NumTronchi(), 4);
    EXPECT_EQ(msg.Testi().back(), "Errore! Il tronco 1 ha gia' due derivazioni");
    // Found by fuzzing the editing rules: the refused record named the full parent, which
    // doesn't derive it.
    EXPECT_EQ(doc->T(4).ID_PREV, 0);
    EXPECT_EQ(doc->T(1).ID_LEFT, 2);
    EXPECT_EQ(doc->T(1).ID_RIGHT, 3);
}

TEST_F(Albero, MaterialeSconosciutoOVuotoPrendeIlPrimo) {
    EXPECT_EQ(NuovoTronco(*doc, 0, materiali, "", msg), 1);
    EXPECT_EQ(doc->T(1).IndiceMateriale, 1);
    doc->rete().MaterialeCorrente = 0;
    EXPECT_EQ(NuovoTronco(*doc, 1, materiali, "PVC", msg), 2);
    EXPECT_EQ(doc->T(2).IndiceMateriale, 1);
}

TEST_F(Albero, RecordLiberatoRiusatoPrimaDiAllungareLaTabella) {
    Nuovo(0);
    Nuovo(1);
    Nuovo(2);
    Nuovo(1);               // 4 under 1
    CancellaRamo(*doc, 2);  // frees 2 and 3
    EXPECT_EQ(doc->T(1).ID_LEFT, 0);
    EXPECT_EQ(doc->T(1).ID_RIGHT, 4);
    EXPECT_TRUE(doc->T(2).ID_CANCELLATO && doc->T(3).ID_CANCELLATO);
    EXPECT_EQ(doc->T(3).ID_CONTEMP, 100);
    EXPECT_EQ(Nuovo(4), 2);
    EXPECT_EQ(doc->NumTronchi(), 4);

    // A section only cut off is not free: the table grows.
    ScollegaTronco(*doc, 2);
    EXPECT_EQ(doc->T(4).ID_LEFT, 0);
    EXPECT_TRUE(doc->T(2).ID_SCOLLEGATO);
    EXPECT_FALSE(doc->T(2).ID_CANCELLATO);
    EXPECT_EQ(Nuovo(4), 3);  // 3 is free from the deletion
    EXPECT_EQ(Nuovo(4), 5);
    EXPECT_TRUE(doc->ReteModificata);
}

TEST_F(Albero, CancellareLaRadiceSvuotaLaTabellaPrimaDiTutto) {
    Nuovo(0);
    Nuovo(1);
    CancellaRamo(*doc, 1);
    EXPECT_EQ(doc->NumTronchi(), 0);
}

TEST_F(Albero, CancellaRamoFiniscaAncheSuUnCiclo) {
    Nuovo(0);
    Nuovo(1);
    Nuovo(2);
    doc->T(3).ID_LEFT = 2;  // a damaged file linking back up
    CancellaRamo(*doc, 2);
    EXPECT_TRUE(doc->T(2).ID_CANCELLATO && doc->T(3).ID_CANCELLATO);
}

TEST_F(Albero, CompattaReteChiudeIVuotiERinumeraILegami) {
    Nuovo(0);  // 1
    Nuovo(1);  // 2
    Nuovo(2);  // 3
    Nuovo(1);  // 4
    Nuovo(4);  // 5
    doc->T(5).ID_RIF = "caldaia";
    CancellaRamo(*doc, 2);  // 2 and 3 free
    CompattaRete(*doc);
    EXPECT_EQ(doc->NumTronchi(), 3);
    EXPECT_EQ(doc->T(1).ID_RIGHT, 2);
    EXPECT_EQ(doc->T(2).ID_PREV, 1);
    EXPECT_EQ(doc->T(2).ID_LEFT, 3);
    EXPECT_EQ(doc->T(3).ID_PREV, 2);
    EXPECT_EQ(doc->T(3).ID_RIF, "caldaia");
    EXPECT_EQ(doc->T(4).ID_RIF, "");
}

TEST_F(Albero, RinumeraToccaTuttiITreLegami) {
    Nuovo(0);
    Nuovo(1);
    doc->T(2).ID_LEFT = 7;
    doc->T(2).ID_RIGHT = 7;
    doc->T(2).ID_PREV = 7;
    RinumeraRiferimenti(*doc, 9, 7);
    EXPECT_EQ(doc->T(2).ID_PREV, 9);
    EXPECT_EQ(doc->T(2).ID_LEFT, 9);
    EXPECT_EQ(doc->T(2).ID_RIGHT, 9);
}

TEST_F(Albero, TagliaCodaSvuotaIRecordLiberiInFondo) {
    Nuovo(0);
    Nuovo(1);
    Nuovo(2);
    Nuovo(3);
    doc->T(2).ID_RIF = "cut";
    ScollegaTronco(*doc, 2);  // 2 cut: 3 and 4 stay linked under it
    CancellaRamo(*doc, 4);
    CancellaRamo(*doc, 3);
    TagliaCoda(*doc);
    // Records passed are blanked and stay marked cut; the length changes only when the
    // record where the scan stops is itself cut (here the root is live).
    EXPECT_EQ(doc->T(2).ID_RIF, "");
    EXPECT_TRUE(doc->T(2).ID_SCOLLEGATO);
    EXPECT_EQ(doc->NumTronchi(), 4);
    doc->T(1).ID_SCOLLEGATO = VERO;
    TagliaCoda(*doc);
    EXPECT_EQ(doc->NumTronchi(), 1);
}

TEST_F(Albero, AzzeraTroncoEAzzeraRete) {
    Nuovo(0);
    Tronco& t = doc->T(1);
    t.ID_CONTEMP = 50;
    t.ID_PDC_TRONCO = 12.5f;
    t.ID_NGOMITI = 3;
    AzzeraTronco(t);
    EXPECT_EQ(t.ID_CONTEMP, 100);
    EXPECT_EQ(t.ID_NGOMITI, 0);
    EXPECT_EQ(t.ID_PDC_TRONCO, 12.5f);  // computed results are left alone

    doc->Riferimento = "Lavoro";
    doc->Normativa = 1;
    doc->DpMax = 80;
    doc->Tenuta.Note = "x";
    TestiDefault def;
    def.DefaultVelocita = "20";
    def.DefaultPressioneIniziale = "";
    AzzeraRete(*doc, def);
    EXPECT_EQ(doc->NumTronchi(), 0);
    EXPECT_EQ(doc->Riferimento, "");
    EXPECT_EQ(doc->Normativa, 1);  // kept from the previous project
    EXPECT_EQ(doc->VelocitaMassima, 20.0f);
    EXPECT_EQ(doc->PressioneIniziale, 200.0);
    EXPECT_EQ(doc->DpMax, 0.0);
    EXPECT_EQ(doc->Tenuta.Note, "");
}

TEST_F(Albero, QuattrocentoTronchiAlMassimo) {
    int16_t padre = 0;
    for (int i = 0; i < MAX_TRONCHI; ++i) padre = Nuovo(padre);
    EXPECT_EQ(padre, MAX_TRONCHI);
    EXPECT_EQ(Nuovo(padre), 0);
    EXPECT_EQ(msg.Testi().back(), "Raggiunto il massimo numero di tronchi.");
    EXPECT_EQ(doc->NumTronchi(), MAX_TRONCHI);
}
