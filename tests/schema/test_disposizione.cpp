// The layout of the walk: columns and rows, the steps, the origin's shift, whole twips half to
// even, the drawn lengths, the turn rules of derivations and the free ends offered. Every
// expected figure is worked out by hand in the comments from the sizes of ReteSchema.h.
#include <gtest/gtest.h>

#include "tests/schema/ReteSchema.h"

using namespace fornax;
using namespace fornax::schema;
using fornax::prova::ReteSchema;

namespace {

using E = EstremoLibero;

void Estremo(const ReteSchema& r, int i, int16_t dir, int32_t x, int32_t y) {
    SCOPED_TRACE("tronco " + std::to_string(i));
    EXPECT_EQ(r.T(i).SchemaDirezione, dir);
    EXPECT_EQ(r.T(i).ID_SCHEMA_X, x);
    EXPECT_EQ(r.T(i).ID_SCHEMA_Y, y);
}

}  // namespace

TEST(Disposizione, ReteVuotaOffreSoloLaDestraDellaSorgente) {
    ReteSchema r;
    r.Disegna();
    const ParametriWalk& p = r.s->Parametri;
    EXPECT_EQ(p.Fattore, 1.0f);
    EXPECT_EQ(p.B, 480);
    EXPECT_EQ(p.SX, 800);
    EXPECT_EQ(p.SY, 800);
    EXPECT_EQ(p.X0, 620);
    EXPECT_EQ(p.Y0, 8040);
    EXPECT_TRUE(r.s->Sezioni.empty());
    EXPECT_EQ(r.s->EstremiTronco, (std::vector<E>{{0, 4, 1, 620, 8040}}));
    EXPECT_TRUE(r.s->EstremiUtenza.empty());
    EXPECT_EQ(r.T(0).SchemaDisegnato, VERO);
    EXPECT_EQ(r.s->SchemaXMin, 0);
    EXPECT_EQ(r.s->SchemaYMax, 0);
}

TEST(Disposizione, UnaSezioneOccupaTuttaLAreaEOffreSetteDirezioni) {
    ReteSchema r;
    r.Sezione(0);
    r.Disegna();
    // Columns 0, 2: SX = 2 W / 2 = 15360.
    EXPECT_EQ(r.s->Parametri.SX, 15360);
    EXPECT_EQ(r.s->Parametri.ColonnaMax, 2);
    Estremo(r, 1, 4, 620 + 15360, 8040);
    EXPECT_EQ(r.T(1).ID_SCHEMA_LEN, 0);  // the step is not written back
    // Straight on, 45, 90, 135 left, 45, 90, 135 right; never straight back.
    EXPECT_EQ(r.s->EstremiTronco, (std::vector<E>{{1, 4, 1, 15980, 8040},
                                                  {1, 8, 4, 15980, 8040},
                                                  {1, 1, 2, 15980, 8040},
                                                  {1, 5, 5, 15980, 8040},
                                                  {1, 7, 7, 15980, 8040},
                                                  {1, 3, 3, 15980, 8040},
                                                  {1, 6, 8, 15980, 8040}}));
    EXPECT_EQ(r.s->EstremiUtenza, (std::vector<E>{{1, 4, 1, 15980, 8040}}));
    EXPECT_EQ(r.s->SchemaXMin, 15980);
    EXPECT_EQ(r.s->SchemaXMax, 15980);
    EXPECT_EQ(r.s->SchemaYMin, 8040);
}

TEST(Disposizione, DestraDestraSinistraSinistraEGliEstremiConUnFiglio) {
    ReteSchema r;
    const int s1 = r.Sezione(0);
    const int s2 = r.Sezione(s1);
    const int s3 = r.Sezione(s2, Svolta::INVERSIONE);  // straight back over its parent
    r.Sezione(s3);
    r.Disegna();
    // Columns 0, 2, 4, 3, 2: a spread of 4, SX = 30720 / 4 = 7680.
    const ParametriWalk& p = r.s->Parametri;
    EXPECT_EQ(p.ColonnaMin, 0);
    EXPECT_EQ(p.ColonnaMax, 4);
    EXPECT_EQ(p.SX, 7680);
    EXPECT_EQ(p.SY, 800);
    Estremo(r, 1, 4, 8300, 8040);
    Estremo(r, 2, 4, 15980, 8040);
    Estremo(r, 3, 2, 8300, 8040);
    Estremo(r, 4, 2, 620, 8040);
    const std::vector<E> attesi = {
        // 1 (R, child R): round from UR back to R, without L (its own reverse).
        {1, 8, 4, 8300, 8040},
        {1, 1, 2, 8300, 8040},
        {1, 5, 5, 8300, 8040},
        {1, 6, 8, 8300, 8040},
        {1, 3, 3, 8300, 8040},
        {1, 7, 7, 8300, 8040},
        // 2 (R, child L): the child's direction is the reverse: seven places, R straight on.
        {2, 6, 8, 15980, 8040},
        {2, 3, 3, 15980, 8040},
        {2, 7, 7, 15980, 8040},
        {2, 4, 1, 15980, 8040},
        {2, 8, 4, 15980, 8040},
        {2, 1, 2, 15980, 8040},
        {2, 5, 5, 15980, 8040},
        // 3 (L, child L): from DL round to UL, without R.
        {3, 6, 4, 8300, 8040},
        {3, 3, 2, 8300, 8040},
        {3, 7, 5, 8300, 8040},
        {3, 8, 8, 8300, 8040},
        {3, 1, 3, 8300, 8040},
        {3, 5, 7, 8300, 8040},
        // 4, the free end, running L.
        {4, 2, 1, 620, 8040},
        {4, 6, 4, 620, 8040},
        {4, 3, 2, 620, 8040},
        {4, 7, 5, 620, 8040},
        {4, 5, 7, 620, 8040},
        {4, 1, 3, 620, 8040},
        {4, 8, 8, 620, 8040},
    };
    EXPECT_EQ(r.s->EstremiTronco, attesi);
    EXPECT_EQ(r.s->EstremiUtenza, (std::vector<E>{{4, 2, 1, 620, 8040}}));
    EXPECT_EQ(r.s->SchemaXMin, 620);
    EXPECT_EQ(r.s->SchemaXMax, 15980);
}

TEST(Disposizione, ColonneNegativeSpostanoLOrigineADestra) {
    ReteSchema r;
    const int s1 = r.Sezione(0);
    r.Catena(r.Sezione(s1, Svolta::INVERSIONE), 2);
    r.Disegna();
    // Columns 0, 2, 1, 0, -1: spread 3, SX = 30720 / 3 = 10240;
    // X0 = 620 + 1 x (1 x 10240 / 2) + 0.1 x 15360 = 7276.
    const ParametriWalk& p = r.s->Parametri;
    EXPECT_EQ(p.ColonnaMin, -1);
    EXPECT_EQ(p.ColonnaMax, 2);
    EXPECT_EQ(p.SX, 10240);
    EXPECT_EQ(p.X0, 7276);
    EXPECT_EQ(p.Y0, 8040);
    Estremo(r, 1, 4, 17516, 8040);
    Estremo(r, 4, 2, 17516 - 3 * 10240, 8040);
}

TEST(Disposizione, RigheNegativeAlzanoLOrigine) {
    ReteSchema r;
    r.Catena(r.Sezione(r.Sezione(0), Svolta::DESTRA_90), 1);
    r.Disegna();
    // Rows 0, -1, -2: SY = 0.9 x 7560 / 2 = 3402, Y0 = 8040 - 2 x 3402 = 1236.
    // Columns 0, 2: SX = 15360, which every section uses, also going down.
    const ParametriWalk& p = r.s->Parametri;
    EXPECT_EQ(p.RigaMin, -2);
    EXPECT_EQ(p.RigaMax, 0);
    EXPECT_EQ(p.SY, 3402);
    EXPECT_EQ(p.Y0, 1236);
    Estremo(r, 1, 4, 15980, 1236);
    Estremo(r, 2, 3, 15980, 16596);
    Estremo(r, 3, 3, 15980, 31956);
    EXPECT_EQ(r.s->SchemaYMin, 1236);
    EXPECT_EQ(r.s->SchemaYMax, 31956);
}

TEST(Disposizione, InteriMezzoAlPari) {
    // A screen 65536 twips wide: W = 15360 x 12000 / 65536 = 2812.5, which rounds to the even
    // 2812; one section spans it.
    ReteSchema r;
    r.Sezione(0);
    r.s->LarghezzaSchermo = 65536;
    r.Disegna();
    EXPECT_EQ(r.s->Parametri.SX, 2812);
    Estremo(r, 1, 4, 3432, 8040);
    // Zoom 2: the factor is the float 0.81, B = 0.81 x 480 = 388.8 -> 389, H = 9000 - 1167,
    // Y0 = 0.81 x 9000 - 778 = 6512.
    ReteSchema z;
    z.s->Zoom = 2;
    z.Disegna();
    EXPECT_EQ(z.s->Parametri.Fattore, 0.81f);
    EXPECT_EQ(z.s->Parametri.B, 389);
    EXPECT_EQ(z.s->Parametri.Y0, 6512);
    // A level beyond 5 is held there: 0.9^5 = 0.59049, B = 283.4 -> 283.
    ReteSchema g;
    g.s->Zoom = 9;
    g.Disegna();
    EXPECT_EQ(g.s->Zoom, 5);
    EXPECT_EQ(g.s->Parametri.B, 283);
    // A diagonal's far end is rounded, and the walk goes on from there: with SX = 15360,
    // 0.707 x 15360 = 10859.52 -> 10860 a step (two steps unrounded would give 21719).
    ReteSchema d;
    d.Sezione(d.Sezione(d.Sezione(0), Svolta::SINISTRA_45));
    d.Disegna();
    EXPECT_EQ(d.s->Parametri.SX, 15360);
    Estremo(d, 2, 8, 15980 + 10860, 8040 - 10860);
    Estremo(d, 3, 8, 15980 + 2 * 10860, 8040 - 2 * 10860);
}

TEST(Disposizione, FattoreSuCarta) {
    struct Caso {
        int16_t modo;
        Superficie superficie;
        bool inScala;
        double scala;
        float fattore;
    };
    const Caso casi[] = {
        {1, Superficie::Stampante, false, 0.25, 1.0f},  // not to scale: 1
        {1, Superficie::Stampante, true, 0.25, 0.2f},   // 2.5 tenths, half to even
        {1, Superficie::Stampante, true, 3.0, 1.5f},    // above 2: half of it
        {1, Superficie::Stampante, true, 2.0, 2.0f},   {1, Superficie::Stampante, true, 0.04, 1.0f},  // 0 becomes 1
        {2, Superficie::Print, false, 0.25, 0.2f},  // the hidden pictures read the ratio anyway
        {2, Superficie::Schema, false, 4.5, 2.2f},  // 2.25 -> 2.2
        {2, Superficie::Print, false, 0.04, 0.0f},  // without the guard
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(std::to_string(c.modo) + " " + std::to_string(c.scala));
        ReteSchema r;
        r.s->SchemaInScala = c.inScala ? VERO : FALSO;
        r.s->SchemaScala = c.scala;
        ChiamataSchema ch;
        ch.modo = c.modo;
        ch.superficie = c.superficie;
        r.Disegna(ch);
        EXPECT_EQ(r.s->SchemaFattore, c.fattore);
        EXPECT_EQ(r.s->SchemaSuCarta, VERO);
        EXPECT_EQ(r.s->SchemaColore, c.modo == 2 ? Colore::BIANCO : Colore::NERO);
    }
}

TEST(Disposizione, DueDerivazioniSenzaCodiceEConCodice) {
    // No codes: the first goes straight on, the second 45 degrees to the left of the parent.
    ReteSchema r;
    const int s1 = r.Sezione(0);
    r.Sezione(s1);
    r.Sezione(s1);
    r.Disegna();
    EXPECT_EQ(r.T(2).SchemaDirezione, 4);
    EXPECT_EQ(r.T(3).SchemaDirezione, 8);
    // Columns 0, 2, 4, then back to 2 for the second: spread 4.
    EXPECT_EQ(r.s->Parametri.SX, 7680);
    // The first turned 45 left: the second, without a code, goes 90 left.
    ReteSchema q;
    const int t1 = q.Sezione(0);
    q.Sezione(t1, Svolta::SINISTRA_45);
    q.Sezione(t1);
    q.Disegna();
    EXPECT_EQ(q.T(2).SchemaDirezione, 8);
    EXPECT_EQ(q.T(3).SchemaDirezione, 1);
    // A junction with two derivations offers nothing; both ends are free ends.
    for (const E& e : q.s->EstremiTronco) EXPECT_NE(e.tronco, 1);
    // A code outside 1..8 counts as automatic: straight on, then the 45 degree rule.
    ReteSchema x;
    const int u1 = x.Sezione(0);
    x.Sezione(u1, 9);
    x.Sezione(u1, 12);
    x.Sezione(3, -3);
    x.Disegna();
    EXPECT_EQ(x.T(2).SchemaDirezione, 4);
    EXPECT_EQ(x.T(3).SchemaDirezione, 8);
    EXPECT_EQ(x.T(4).SchemaDirezione, 8);
}

TEST(Disposizione, LunghezzaDellUtenteRestaLeAltreSeguonoLaFinestra) {
    ReteSchema r;
    r.Sezione(r.Sezione(0), 0, 1000);
    r.Disegna();
    // Columns 0, 2, 4: SX = 7680 for section 1, section 2 keeps its 1000.
    Estremo(r, 1, 4, 8300, 8040);
    Estremo(r, 2, 4, 9300, 8040);
    ASSERT_EQ(r.s->Sezioni.size(), 2u);
    EXPECT_EQ(r.s->Sezioni[0].lunghezza, 7680);
    EXPECT_EQ(r.s->Sezioni[0].lunghezzaUtente, 0);
    EXPECT_EQ(r.s->Sezioni[1].lunghezza, 1000);
    EXPECT_EQ(r.s->Sezioni[1].lunghezzaUtente, 1000);
    EXPECT_EQ(r.T(1).ID_SCHEMA_LEN, 0);
    EXPECT_EQ(r.s->LunghezzaDisegnata[1], 7680);
    // A narrower window: W = 9600, SX = 4800.
    r.t = TargetRegistrato(12000, 9000);
    r.Disegna();
    Estremo(r, 1, 4, 5420, 8040);
    Estremo(r, 2, 4, 6420, 8040);
    EXPECT_EQ(r.T(1).ID_SCHEMA_LEN, 0);
    EXPECT_EQ(r.T(2).ID_SCHEMA_LEN, 1000);
}

TEST(Disposizione, SoloLeSezioniRaggiunteOffronoEstremi) {
    ReteSchema r;
    const int s1 = r.Sezione(0);
    r.Sezione(s1, 0, 0, 2.5f);  // a consumer: offers nothing, takes no consumer
    r.Sezione(s1);              // a free end
    const int staccato = r.Sezione(0);
    r.d->T(staccato).Visitato = FALSO;  // cut off: the calculation didn't reach it
    r.d->T(staccato).SchemaDisegnato = VERO;
    r.Disegna();
    EXPECT_EQ(r.s->Sezioni.size(), 3u);
    for (const E& e : r.s->EstremiTronco) EXPECT_EQ(e.tronco, 3);
    EXPECT_EQ(r.s->EstremiTronco.size(), 7u);
    EXPECT_EQ(r.s->EstremiUtenza.size(), 1u);
    EXPECT_EQ(r.T(1).SchemaDisegnato, FALSO);
    EXPECT_EQ(r.T(2).SchemaDisegnato, FALSO);
    EXPECT_EQ(r.T(3).SchemaDisegnato, VERO);
    EXPECT_EQ(r.T(staccato).SchemaDisegnato, VERO);  // not visited: left as it was
}

TEST(Disposizione, UnFileDanneggiatoNonMandaInGiroLaVisita) {
    ReteSchema r;
    const int s1 = r.Sezione(0);
    const int s2 = r.Sezione(s1);
    r.d->T(s2).ID_LEFT = 1;     // back to the root
    r.d->T(s2).ID_RIGHT = 999;  // outside the table
    r.Disegna();
    EXPECT_EQ(r.s->Sezioni.size(), 2u);
}
