// The hit regions: every shape on and beside its border, the table's capacity and its message,
// duplicates, and positions against element numbers.
#include <gtest/gtest.h>

#include "core/ServiziProva.h"
#include "schema/HotRegions.h"

using namespace fornax;
using namespace fornax::schema;

namespace {

struct Caso {
    double x, y;
    bool colpito;
};

void Verifica(const clsHotRegions& r, const std::vector<Caso>& casi) {
    for (const Caso& c : casi) EXPECT_EQ(r.TestHit(c.x, c.y) != 0, c.colpito) << "(" << c.x << ", " << c.y << ")";
}

}  // namespace

TEST(Regioni, RettangoloBordiInclusi) {
    clsHotRegions r;
    r.Reset();
    r.AddRectangle(10, 20, 30, 40, 7, "T");
    Verifica(r, {{10, 20, true},
                 {30, 40, true},
                 {10, 40, true},
                 {20, 30, true},
                 {31, 40, false},
                 {9, 30, false},
                 {20, 19.5, false},
                 {20, 40.5, false}});
    // Corners given the wrong way round hold nothing.
    clsHotRegions rovescio;
    rovescio.Reset();
    rovescio.AddRectangle(30, 40, 10, 20, 1, "T");
    EXPECT_EQ(rovescio.TestHit(20, 30), 0);
}

TEST(Regioni, CerchioBordoIncluso) {
    clsHotRegions r;
    r.Reset();
    r.AddCircle(100, 100, 5, 3, "R");
    Verifica(r, {{100, 100, true}, {103, 104, true}, {95, 100, true}, {104, 104, false}, {100, 105.01, false}});
}

TEST(Regioni, TriangoloSpicchioDiPiuOMeno22GradiEntro400) {
    // The wedge of an arrow to the right from the vertex (0, 0): its outer points 300 away,
    // turned by 22.5 degrees (0.924 and 0.383).
    clsHotRegions r;
    r.Reset();
    r.AddTriangle(277, 115, 277, -115, 0, 0, 1, "ER");
    Verifica(r, {{0, 0, true},
                 {100, 0, true},
                 {399, 0, true},      // beyond the arrow but within 400
                 {400, 0, false},     // quick rejection
                 {100, 41, true},     // 22.3 degrees
                 {100, 42, false},    // 22.8 degrees
                 {100, -41, true},    // the sector straddles the bearing 0
                 {-100, 0, false}});  // behind the vertex
    // An arrow upward: bearings 247.45 .. 292.55 (Y downward).
    clsHotRegions su;
    su.Reset();
    su.AddTriangle(115, -277, -115, -277, 0, 0, 1, "EU");
    Verifica(su, {{0, -100, true}, {0, 100, false}, {40, -100, true}, {-42, -100, false}, {0, -400, false}});
}

TEST(Regioni, RettangoloLiberoInclinato) {
    clsHotRegions r;
    r.Reset();
    r.AddCustomRectangle(0, -10, 10, 0, 0, 10, -10, 0, 2, "T");
    Verifica(r, {{0, 0, true}, {5, 5, true}, {0, 10, true}, {-5, -5, true}, {6, 5, false}, {10, 10, false}});
    // A vertical side.
    clsHotRegions v;
    v.Reset();
    v.AddCustomRectangle(0, 0, 0, 50, 20, 60, 20, 10, 2, "T");
    Verifica(v, {{0, 25, true}, {20, 35, true}, {-1, 25, false}, {21, 35, false}, {10, 4, false}, {10, 5, true}});
}

TEST(Regioni, PosizioniIndiciEDoppioni) {
    clsHotRegions r;
    EXPECT_EQ(r.SearchIndex(1, "T"), 0);  // never reset: nothing to search
    r.Reset();
    r.AddRectangle(0, 0, 10, 10, 5, "T");
    r.AddRectangle(0, 0, 10, 10, 5, "T");  // same index and tag: stored once
    r.AddRectangle(0, 0, 10, 10, 5, "U");
    r.AddCircle(50, 50, 5, 9, "R");
    r.AddCircle(50, 50, 5, 9, "R");  // circles are appended regardless
    EXPECT_EQ(r.Conteggio(), 5);
    // The first region sits at position 2; a hit gives a position, GetIndex the element.
    EXPECT_EQ(r.TestHit(5, 5), 2);
    EXPECT_EQ(r.GetIndex(2), 5);
    EXPECT_EQ(r.GetTag(2), "T");
    EXPECT_EQ(r.SearchIndex(5, "U"), 3);
    EXPECT_EQ(r.SearchIndex(9, "R"), 4);
    EXPECT_EQ(r.TestHitWhitShape(50, 50, 2), 4);
    EXPECT_EQ(r.TestHitWhitShape(5, 5, 2), 0);
    EXPECT_EQ(r.TestHitWhitShape(5, 5, 1), 2);
    EXPECT_EQ(r.TestHitWhitShape(5, 5, 3), 0);
    r.Reset();
    EXPECT_EQ(r.TestHit(5, 5), 0);
    EXPECT_EQ(r.SearchIndex(5, "T"), 0);
}

TEST(Regioni, CapacitaDi298ConIlMessaggioAOgniTentativo) {
    MessaggiRegistrati msg;
    clsHotRegions r(&msg);
    r.Reset();
    for (int k = 1; k <= 298; ++k) r.AddRectangle(k * 10, 0, k * 10 + 5, 5, static_cast<int16_t>(k), "T");
    EXPECT_TRUE(msg.mostrati.empty());
    EXPECT_EQ(r.Conteggio(), 299);
    EXPECT_EQ(r.GetIndex(r.TestHit(2980, 0)), 298);
    r.AddRectangle(5000, 0, 5005, 5, 299, "T");
    r.AddCircle(6000, 0, 5, 300, "R");
    ASSERT_EQ(msg.mostrati.size(), 2u);
    EXPECT_EQ(msg.mostrati[0].testo, "Esaurito spazio per regioni attive");
    EXPECT_EQ(msg.mostrati[0].flags, 0);
    EXPECT_EQ(r.Conteggio(), 301);  // the count stays raised
    EXPECT_EQ(r.TestHit(5000, 0), 0);
    EXPECT_EQ(r.TestHit(6000, 0), 0);
    // A duplicate of a stored region is no attempt.
    r.AddRectangle(10, 0, 15, 5, 1, "T");
    EXPECT_EQ(msg.mostrati.size(), 2u);
    // The next Reset recovers the room.
    r.Reset();
    r.AddRectangle(5000, 0, 5005, 5, 299, "T");
    EXPECT_EQ(msg.mostrati.size(), 2u);
    EXPECT_EQ(r.GetIndex(r.TestHit(5000, 0)), 299);
}
