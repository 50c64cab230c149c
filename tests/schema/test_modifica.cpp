// Editing on the schema without a window: drops of the palette on the arrows, the refused
// drops, clicks and double clicks, the handles and the stretch, the source's turn, the zoom.
#include <gtest/gtest.h>

#include "schema/Modifica.h"
#include "tests/schema/ReteSchema.h"

using namespace fornax;
using namespace fornax::schema;
using fornax::prova::ReteSchema;

namespace {

const std::vector<std::string> kMateriali = {"ACCIAIO", "RAME"};

}  // namespace

TEST(Modifica, DropSulloSchemaVuotoCreaLaSezioneUnoSenzaPadre) {
    ReteSchema r;
    r.Disegna();
    EXPECT_EQ(FrecceDaTag("TRONCO"), FrecceDrag::Tronco);
    DisegnaFrecceTronco(*r.s, *r.d, r.t);
    // One arrow to the right of the source, its wedge from (620, 8040).
    EXPECT_EQ(r.t.Visibili().back().testo, "picRIGHT");
    EXPECT_EQ(CercaDrop(*r.s, *r.d, 1020, 8040, "TRONCO", r.msg).tipo, AzioneDrop::Tipo::Ridisegna);  // 400 away
    EXPECT_EQ(CercaDrop(*r.s, *r.d, 700, 8100, "TRONCO", r.msg).tipo, AzioneDrop::Tipo::Ridisegna);   // 37 degrees
    const AzioneDrop a = CercaDrop(*r.s, *r.d, 799.6, 8040.4, "TRONCO", r.msg);
    ASSERT_EQ(a.tipo, AzioneDrop::Tipo::NuovoTronco);
    EXPECT_EQ(a.x, 800);
    EXPECT_EQ(a.padre, 0);
    EXPECT_EQ(a.svolta, 1);
    EXPECT_EQ(AggiungiTroncoDaDrop(*r.d, a, kMateriali, "", r.msg), 1);
    EXPECT_EQ(r.d->NumTronchi(), 1);
    EXPECT_EQ(r.T(1).ID_PREV, 0);
    EXPECT_EQ(r.T(1).ID_SCHEMA_SVOLTA, 1);
    EXPECT_EQ(r.T(1).ID_MATERIALE, "ACCIAIO");
    EXPECT_TRUE(r.msg.mostrati.empty());
    // No consumer can go on an empty schema.
    DisegnaFrecceUtenza(*r.s, *r.d, r.t);
    EXPECT_EQ(CercaDrop(*r.s, *r.d, 800, 8040, "CALDAIA", r.msg).tipo, AzioneDrop::Tipo::Ridisegna);
}

TEST(Modifica, DropSuUnaTabellaPienaRifiutatoAncheUnUtenza) {
    ReteSchema r;
    r.Sezione(0);
    r.Disegna();
    DisegnaFrecceUtenza(*r.s, *r.d, r.t);
    r.d->rete().NumTronchi = 400;
    for (const char* tag : {"TRONCO", "CALDAIA", "FORNELLO"}) {
        EXPECT_EQ(CercaDrop(*r.s, *r.d, 16100, 8000, tag, r.msg).tipo, AzioneDrop::Tipo::Rifiutato);
    }
    ASSERT_EQ(r.msg.mostrati.size(), 3u);
    EXPECT_EQ(r.msg.mostrati[0].testo, "Raggiunto il massimo numero di tronchi.");
    EXPECT_EQ(r.msg.mostrati[0].flags, 0);
}

TEST(Modifica, DropDiUnaSezioneSuUnaFrecciaEDiUnUtenza) {
    ReteSchema r;
    r.Sezione(0);
    r.Disegna();
    DisegnaFrecceTronco(*r.s, *r.d, r.t);
    // Above the free end (15980, 8040): the arrow "U", third entry, code 2 (90 left).
    const AzioneDrop a = CercaDrop(*r.s, *r.d, 15980, 7900, "TRONCO", r.msg);
    ASSERT_EQ(a.tipo, AzioneDrop::Tipo::NuovoTronco);
    EXPECT_EQ(r.s->RegioniDrop.GetTag(r.s->RegioniDrop.TestHit(15980, 7900)), "EU");
    EXPECT_EQ(a.padre, 1);
    EXPECT_EQ(a.svolta, 2);
    EXPECT_EQ(AggiungiTroncoDaDrop(*r.d, a, kMateriali, "", r.msg), 2);
    EXPECT_EQ(r.T(1).ID_LEFT, 2);
    r.d->T(2).Visitato = VERO;
    r.Disegna();
    EXPECT_EQ(r.T(2).SchemaDirezione, 1);

    // Consumers: the arrow's rectangle beyond the free end of 2, which runs up from (15980, 8040).
    DisegnaFrecceUtenza(*r.s, *r.d, r.t);
    const int32_t x = r.T(2).ID_SCHEMA_X, y = r.T(2).ID_SCHEMA_Y;
    AzioneDrop u = CercaDrop(*r.s, *r.d, x, y - 100, "BRUCIATORE", r.msg);
    ASSERT_EQ(u.tipo, AzioneDrop::Tipo::Utenza);
    EXPECT_EQ(u.tronco, 2);
    EXPECT_EQ(u.tipoUtenza, TipoUtenza::BRUCIATORE);
    EXPECT_EQ(u.dialogo, DialogoUtenza::Cportata);
    ImpostaTipoUtenzaDrop(*r.d, u);
    EXPECT_EQ(r.T(2).ID_TIPOUTENZA, 3);  // set before the dialog, kept if it is cancelled
    ApplicaUtenzaDrop(*r.d, 2, 2.5f, 2, "Caldaia murale");
    EXPECT_EQ(r.T(2).ID_P_UTENZE, 2.5f);
    EXPECT_EQ(r.T(2).ID_P_TRONCO, 2.5f);
    EXPECT_EQ(r.T(2).ID_TIPOUTENZA, 2);
    EXPECT_EQ(r.T(2).ID_NOMEUTENZA, "Caldaia murale");
    // In a pressure network the dialog is frmPortata, except for a cooker.
    r.d->ReteInPressione = VERO;
    EXPECT_EQ(CercaDrop(*r.s, *r.d, x, y - 100, "CONVETTORE", r.msg).dialogo, DialogoUtenza::Portata);
    EXPECT_EQ(CercaDrop(*r.s, *r.d, x, y - 100, "FORNELLO", r.msg).dialogo, DialogoUtenza::Cportata);
    // A tag of no palette element does nothing on an arrow.
    EXPECT_EQ(CercaDrop(*r.s, *r.d, x, y - 100, "ALTRO", r.msg).tipo, AzioneDrop::Tipo::Nessuna);
}

TEST(Modifica, DropSuUnPadreConDueDerivazioni) {
    ReteSchema r;
    const int s1 = r.Sezione(0);
    r.Sezione(s1);
    r.Sezione(s1);
    AzioneDrop a;
    a.tipo = AzioneDrop::Tipo::NuovoTronco;
    a.padre = 1;
    a.svolta = 7;
    EXPECT_EQ(AggiungiTroncoDaDrop(*r.d, a, kMateriali, "", r.msg), 0);
    ASSERT_EQ(r.msg.mostrati.size(), 1u);
    EXPECT_EQ(r.msg.mostrati[0].testo, "Errore! Il tronco 1 ha gia' due derivazioni");
    EXPECT_EQ(r.T(0).ID_SCHEMA_SVOLTA, 0);  // record 0 stays blank
}

TEST(Modifica, ClicDoppioClicESorgente) {
    ReteSchema r;
    r.Sezione(r.Sezione(0), 0, 0, 1.5f);
    r.Disegna();
    // Section 1 runs from (620, 8040) to (8300, 8040); its consumer 2 ends at (15980, 8040),
    // with the frame beyond it to the right.
    EXPECT_EQ(TroncoCliccato(*r.s, 4000, 8100), 1);
    EXPECT_EQ(TroncoCliccato(*r.s, 16660, 8040), 0);  // the consumer's frame selects nothing
    EXPECT_EQ(TroncoCliccato(*r.s, 400, 8000), 0);    // nor does the source
    AzioneDoppioClick u = DoppioClick(*r.s, *r.d, 16660, 8040);
    EXPECT_EQ(u.tipo, AzioneDoppioClick::Tipo::Utenza);
    EXPECT_EQ(u.tronco, 2);
    EXPECT_EQ(DoppioClick(*r.s, *r.d, 4000, 8100).tipo, AzioneDoppioClick::Tipo::Tronco);
    EXPECT_EQ(DoppioClick(*r.s, *r.d, 4000, 7000).tipo, AzioneDoppioClick::Tipo::Nessuna);
    r.d->DpMax = 120;
    ApplicaUtenzaDoppioClick(*r.d, 2, 3.0f, 1, std::string("Piano cottura"));
    EXPECT_EQ(r.T(2).ID_P_TRONCO, 3.0f);
    EXPECT_EQ(r.T(2).ID_NOMEUTENZA, "Piano cottura");
    EXPECT_EQ(r.d->DpMax, 0.0);  // back to the automatic limit
    r.d->ReteInPressione = VERO;
    r.d->DpMax = 120;
    ApplicaUtenzaDoppioClick(*r.d, 2, 4.0f, 2, std::nullopt);
    EXPECT_EQ(r.T(2).ID_NOMEUTENZA, "Piano cottura");
    EXPECT_EQ(r.d->DpMax, 120.0);

    // Four double clicks on the source bring it back where it was.
    const AzioneDoppioClick s = DoppioClick(*r.s, *r.d, 400, 8000);
    ASSERT_EQ(s.tipo, AzioneDoppioClick::Tipo::Sorgente);
    r.d->OrientamentoSorgente = 1;
    const int16_t attesi[4] = {2, 3, 0, 1};
    for (int16_t atteso : attesi) {
        RuotaSorgente(*r.d);
        EXPECT_EQ(r.d->OrientamentoSorgente, atteso);
    }
    r.d->OrientamentoSorgente = -7;  // a damaged file
    RuotaSorgente(*r.d);
    EXPECT_GE(r.d->OrientamentoSorgente, 0);
    EXPECT_LE(r.d->OrientamentoSorgente, 3);
}

TEST(Modifica, ManiglieEPuntatori) {
    ReteSchema r;
    const int s1 = r.Sezione(0);
    r.Sezione(s1, Svolta::SINISTRA_90);  // U
    r.Sezione(s1, Svolta::SINISTRA_45);  // UR
    r.Disegna();
    // Columns 0, 2; rows 0, 1: SX = 15360; section 1 ends at (15980, 8040).
    const Maniglia m1 = CercaManiglia(*r.s, 15988, 8040);
    EXPECT_EQ(m1.tronco, 1);
    EXPECT_EQ(m1.tag, "R");
    EXPECT_EQ(m1.puntatore, Puntatore::O_E);
    const Maniglia m2 = CercaManiglia(*r.s, r.T(2).ID_SCHEMA_X, r.T(2).ID_SCHEMA_Y);
    EXPECT_EQ(m2.tag, "U");
    EXPECT_EQ(m2.puntatore, Puntatore::N_S);
    const Maniglia m3 = CercaManiglia(*r.s, r.T(3).ID_SCHEMA_X, r.T(3).ID_SCHEMA_Y);
    EXPECT_EQ(m3.tag, "UR");
    EXPECT_EQ(m3.puntatore, Puntatore::NE_SO);
    const Maniglia niente = CercaManiglia(*r.s, 4000, 4000);
    EXPECT_EQ(niente.tronco, 0);
    EXPECT_EQ(niente.puntatore, Puntatore::NORMALE);
    // While dragging, the cursor is held within the scale area.
    const PuntoTrascinato dentro = TieniNellArea(500, 600, 0, 0, 19200, 9000);
    EXPECT_EQ(dentro.puntatore, Puntatore::SPOSTA);
    EXPECT_EQ(dentro.x, 500);
    const PuntoTrascinato fuori = TieniNellArea(-20, 9500, 0, 0, 19200, 9000);
    EXPECT_EQ(fuori.puntatore, Puntatore::VIETATO);
    EXPECT_EQ(fuori.x, 0);
    EXPECT_EQ(fuori.y, 9000);
    EXPECT_EQ(TieniNellArea(19200, 9000, 0, 0, 19200, 9000).puntatore, Puntatore::SPOSTA);
}

TEST(Modifica, StiramentoDiUnaSezione) {
    ReteSchema r;
    r.Sezione(r.Sezione(0), Svolta::SINISTRA_90);
    r.Disegna();
    // 1: R from (620, 8040) to (15980, 8040); 2: U from (15980, 8040) to (15980, -7320), both
    // drawn with SX = 15360 and holding 0.
    ASSERT_EQ(r.T(2).ID_SCHEMA_Y, -7320);
    // "U" below the near end, or on it: nothing stored.
    EXPECT_FALSE(ApplicaLunghezza(*r.d, *r.s, 2, 15980, 8100, "U"));
    EXPECT_FALSE(ApplicaLunghezza(*r.d, *r.s, 2, 15980, 8040, "U"));
    EXPECT_EQ(r.T(2).ID_SCHEMA_LEN, 0);
    EXPECT_EQ(NuovaLunghezza(*r.s, *r.d, 2, 15980, 5040, "U"), 3000);
    // "R": the new length counts from the near end; at least 1.
    EXPECT_EQ(NuovaLunghezza(*r.s, *r.d, 1, 620, 8040, "R"), std::nullopt);
    EXPECT_EQ(NuovaLunghezza(*r.s, *r.d, 1, 621, 8040, "R"), 1);
    EXPECT_EQ(NuovaLunghezza(*r.s, *r.d, 1, 10000.5, 9999, "R"), 9380);  // 9380.5, half to even
    EXPECT_EQ(NuovaLunghezza(*r.s, *r.d, 1, 10000, 8040, "L"), 21340);   // (15980 + 15360) - 10000
    // Diagonals count the movement along x only, by 1.414213562.
    EXPECT_EQ(NuovaLunghezza(*r.s, *r.d, 1, 16080, 0, "UR"), 15501);  // 15360 + 141.42
    EXPECT_EQ(NuovaLunghezza(*r.s, *r.d, 1, 16080, 0, "UL"), 15219);  // 15360 - 141.42
    EXPECT_EQ(NuovaLunghezza(*r.s, *r.d, 1, 30000, 0, "UL"), std::nullopt);
    EXPECT_EQ(NuovaLunghezza(*r.s, *r.d, 1, 0, 0, "T"), std::nullopt);
    // The stretch stores its length, leaves ID_LEN alone, and the next walk follows it.
    EXPECT_TRUE(ApplicaLunghezza(*r.d, *r.s, 2, 15980, 5040, "U"));
    EXPECT_EQ(r.T(2).ID_SCHEMA_LEN, 3000);
    EXPECT_EQ(r.T(2).ID_LEN, 1.0f);
    r.Disegna();
    EXPECT_EQ(r.T(2).ID_SCHEMA_Y, 5040);
}

TEST(Modifica, ElasticoDelloStiramento) {
    ReteSchema r;
    r.Sezione(0);
    r.Disegna();
    r.t.Svuota();
    TrascinaLunghezza(*r.s, *r.d, r.t, 1, 600, 8040, "R");  // behind the near end (620, 8040)
    EXPECT_TRUE(r.t.Tratti().empty());
    TrascinaLunghezza(*r.s, *r.d, r.t, 1, 9000, 8200, "R");
    ASSERT_EQ(r.t.Tratti().size(), 1u);
    EXPECT_EQ(r.t.Tratti()[0].colore, Colore::ROSSO);
    EXPECT_EQ(r.t.Tratti()[0].x1, 620);
    EXPECT_EQ(r.t.Tratti()[0].x2, 9000);
    EXPECT_EQ(r.t.Tratti()[0].y2, 8040);
    TrascinaLunghezza(*r.s, *r.d, r.t, 1, 9500, 8200, "R");
    ASSERT_EQ(r.t.Tratti().size(), 3u);
    EXPECT_EQ(r.t.Tratti()[1].colore, Colore::NERO);  // the previous line wiped
    EXPECT_EQ(r.t.Tratti()[1].x2, 9000);
    EXPECT_EQ(r.t.Tratti()[2].x2, 9500);
}

TEST(Modifica, LivelliDiZoom) {
    EXPECT_EQ(LimitaZoom(6), 5);
    EXPECT_EQ(LimitaZoom(-13), -12);
    EXPECT_EQ(LimitaZoom(-3), -3);
    EXPECT_EQ(FattoreZoom(0), 1.0f);
    EXPECT_EQ(FattoreZoom(1), 0.9f);
    const ScalaVista v0 = Rescale(0);
    EXPECT_EQ(v0.percentuale, "100");
    EXPECT_EQ(v0.maxVerticale, 537);
    EXPECT_EQ(v0.maxOrizzontale, 1100);
    EXPECT_EQ(v0.grandeVerticale, 54);
    EXPECT_EQ(v0.piccoloOrizzontale, 28);  // 27.5, half to even
    EXPECT_EQ(v0.piccoloVerticale, 13);
    const ScalaVista v1 = Rescale(1);
    EXPECT_EQ(v1.percentuale, "111");
    EXPECT_EQ(v1.maxVerticale, 483);
    EXPECT_EQ(v1.maxOrizzontale, 990);
}
