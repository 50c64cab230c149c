// What the walk paints on the recording surface: labels and their colours, handles, bars and
// their regions, consumers and their frames, source, title, selection, and a region table
// that runs out on a large network.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/schema/ReteSchema.h"

using namespace fornax;
using namespace fornax::schema;
using fornax::prova::ReteSchema;

namespace {

std::vector<Tratto> DiTipo(const TargetRegistrato& t, Tratto::Tipo tipo) {
    std::vector<Tratto> v;
    for (const Tratto& x : t.Visibili())
        if (x.tipo == tipo) v.push_back(x);
    return v;
}

const Tratto* Testo(const TargetRegistrato& t, const std::string& testo) {
    static Tratto trovato;
    for (const Tratto& x : t.Visibili())
        if (x.tipo == Tratto::Tipo::Testo && x.testo == testo) return &(trovato = x);
    return nullptr;
}

}  // namespace

TEST(Pittura, EtichettaColoriManigliaEBarra) {
    ReteSchema r;
    r.Sezione(0);
    Tronco& t = r.d->T(1);
    t.ID_DIAMETRO = "3/4\"";
    t.ID_EQ_LEN = 2.5f;
    r.Disegna();
    // Number in the default colour (white on the screen), label beside it.
    const Tratto* numero = Testo(r.t, "1");
    ASSERT_NE(numero, nullptr);
    EXPECT_EQ(numero->colore, Colore::BIANCO);
    const Tratto* etichetta = Testo(r.t, " \xC3\xB8 3/4\" - 2.5m [1m]");
    ASSERT_NE(etichetta, nullptr);
    EXPECT_EQ(etichetta->colore, Colore::BIANCO);
    // The handle: a green square of side 75 centred on the far end (15980, 8040).
    bool maniglia = false;
    for (const Tratto& x : DiTipo(r.t, Tratto::Tipo::Rettangolo))
        if (x.colore == Colore::VERDE && x.x1 == 15980 - 37.5 && x.y1 == 8040 - 37.5 && x.x2 == 75 && x.y2 == 75)
            maniglia = true;
    EXPECT_TRUE(maniglia);
    // The bar: from (620, 8037) 15360 long and 3 thick.
    bool barra = false;
    for (const Tratto& x : DiTipo(r.t, Tratto::Tipo::Rettangolo))
        if (x.colore == Colore::BIANCO && x.x1 == 620 && x.y1 == 8037 && x.x2 == 15360 && x.y2 == 3) barra = true;
    EXPECT_TRUE(barra);
    // Regions: the bar 100 either side, the handle beyond the far end (15980 + 2.5 x 3,
    // half to even) with radius 150.
    const clsHotRegions& click = r.s->RegioniClick;
    EXPECT_EQ(click.GetIndex(click.TestHit(620, 7940)), 1);
    EXPECT_EQ(click.GetTag(click.TestHit(15980, 8140)), "T");
    EXPECT_EQ(click.TestHit(15980, 8141), 0);
    const clsHotRegions& maniglie = r.s->RegioniManiglia;
    const int p = maniglie.TestHit(15988 + 150, 8040);
    ASSERT_NE(p, 0);
    EXPECT_EQ(maniglie.GetTag(p), "R");
    EXPECT_EQ(maniglie.Voce(p).X1, 15988);
    EXPECT_EQ(maniglie.Voce(p).Raggio, 150);

    // A locked diameter shows its label in red; at zoom -7 only the number is left.
    t.ID_DIAMCUSTOM = VERO;
    r.Disegna();
    EXPECT_EQ(Testo(r.t, " \xC3\xB8 3/4\" - 2.5m [1m]")->colore, Colore::ROSSO);
    r.s->Zoom = -7;
    r.Disegna();
    EXPECT_NE(Testo(r.t, "1"), nullptr);
    EXPECT_EQ(Testo(r.t, " \xC3\xB8 3/4\" - 2.5m [1m]"), nullptr);
}

TEST(Pittura, UtenzeCornicePerLimiteESimboli) {
    ReteSchema r;
    r.d->DpMax = 100;
    const int s1 = r.Sezione(0);
    const int a = r.Sezione(s1, 0, 0, 1.0f);
    const int b = r.Sezione(s1, 0, 0, 2.0f);
    r.d->T(a).ID_PDC_PERCORSO = 100.0f;  // exactly the limit: sound
    r.d->T(b).ID_PDC_PERCORSO = 100.5f;  // above it: red
    r.d->T(a).ID_TIPOUTENZA = 0;
    r.d->T(b).ID_TIPOUTENZA = 1;
    r.d->T(a).ID_RIF = " cucina ";
    r.Disegna();
    const auto immagini = DiTipo(r.t, Tratto::Tipo::Immagine);
    EXPECT_TRUE(std::any_of(immagini.begin(), immagini.end(), [](const Tratto& x) { return x.testo == "picCaldaia"; }));
    EXPECT_TRUE(
        std::any_of(immagini.begin(), immagini.end(), [](const Tratto& x) { return x.testo == "picFornello"; }));
    const Tratto* flussoA = Testo(r.t, "1.0 Nmc/h");
    const Tratto* flussoB = Testo(r.t, "2.0 Nmc/h");
    ASSERT_TRUE(flussoA && flussoB);
    EXPECT_EQ(Testo(r.t, "1.0 Nmc/h")->colore, Colore::BIANCO);
    EXPECT_EQ(Testo(r.t, "2.0 Nmc/h")->colore, Colore::ROSSO);
    EXPECT_NE(Testo(r.t, "CUCINA"), nullptr);  // the reference, trimmed, in capitals
    // The consumer's frame is a "U" region of its section; a click on it selects nothing.
    const clsHotRegions& click = r.s->RegioniClick;
    EXPECT_NE(click.SearchIndex(static_cast<int16_t>(a), "U"), 0);
    // Below zoom -6 the flows are left out.
    r.s->Zoom = -7;
    r.Disegna();
    EXPECT_EQ(Testo(r.t, "1.0 Nmc/h"), nullptr);

    // A pressure network: red where the final pressure falls below the minimum.
    ReteSchema p;
    p.d->ReteInPressione = VERO;
    p.d->PressioneFinale = 150.0;
    const int q = p.Sezione(p.Sezione(0), 0, 0, 3.0f);
    p.d->T(q).ID_PFINALE = 149.9f;
    p.Disegna();
    EXPECT_EQ(Testo(p.t, "3.0 Nmc/h")->colore, Colore::ROSSO);
    p.d->T(q).ID_PFINALE = 150.0f;
    p.Disegna();
    EXPECT_EQ(Testo(p.t, "3.0 Nmc/h")->colore, Colore::BIANCO);
}

TEST(Pittura, SorgenteTitoloENodo) {
    ReteSchema r;
    r.Sezione(0);
    ChiamataSchema c;
    c.titolo = "Villa Rossi";
    r.Disegna(c);
    const Tratto* titolo = Testo(r.t, "Villa Rossi");
    ASSERT_NE(titolo, nullptr);
    EXPECT_EQ(titolo->colore, Colore::ARANCIO);
    EXPECT_EQ(titolo->x1 + r.t.LarghezzaTesto("Villa Rossi"), 620);  // ends at X0
    const auto immagini = DiTipo(r.t, Tratto::Tipo::Immagine);
    ASSERT_FALSE(immagini.empty());
    EXPECT_EQ(immagini[0].testo, "picSource0");
    // The source's region: (X0 - 480, Y0 - 480 / 8) to (X0, Y0 + 480).
    const clsHotRegions& click = r.s->RegioniClick;
    EXPECT_EQ(click.GetTag(click.TestHit(140, 7980)), "SRC");
    EXPECT_EQ(click.GetTag(click.TestHit(620 - 1, 8520)), "SRC");
    EXPECT_EQ(click.TestHit(139, 8000), 0);
    EXPECT_EQ(click.TestHit(300, 7979), 0);
    // The first node: a dot on (X0, Y0).
    bool nodo = false;
    for (const Tratto& x : DiTipo(r.t, Tratto::Tipo::Cerchio)) nodo |= x.x1 == 620 && x.y1 == 8040 && x.raggio == 0;
    EXPECT_TRUE(nodo);
    // On paper the default colour is black.
    ReteSchema carta;
    carta.Sezione(0);
    ChiamataSchema stampa;
    stampa.modo = 1;
    stampa.superficie = Superficie::Stampante;
    carta.Disegna(stampa);
    EXPECT_EQ(Testo(carta.t, "1")->colore, Colore::NERO);
}

TEST(Pittura, SelezioneRidipingeSenzaToccareIRecord) {
    ReteSchema r;
    r.Sezione(r.Sezione(0));
    r.Disegna();
    const int32_t x2 = r.T(2).ID_SCHEMA_X;
    const int16_t maniglie = r.s->RegioniManiglia.Conteggio();
    r.t.Svuota();
    SelezionaTronco(*r.s, *r.d, r.t, 1);
    EXPECT_EQ(r.s->TroncoSelezionato, 1);
    // The bar of 1 in red from its near end (620, 8040), drawn length 7680.
    auto barre = [&](int32_t colore) {
        std::vector<Tratto> v;
        for (const Tratto& x : DiTipo(r.t, Tratto::Tipo::Rettangolo))
            if (x.colore == colore && x.y2 == 3) v.push_back(x);
        return v;
    };
    ASSERT_EQ(barre(Colore::ROSSO).size(), 1u);
    EXPECT_EQ(barre(Colore::ROSSO)[0].x1, 620);
    EXPECT_EQ(barre(Colore::ROSSO)[0].x2, 7680);
    r.t.Svuota();
    SelezionaTronco(*r.s, *r.d, r.t, 2);
    ASSERT_EQ(barre(Colore::BIANCO).size(), 1u);
    EXPECT_EQ(barre(Colore::BIANCO)[0].x1, 620);
    ASSERT_EQ(barre(Colore::ROSSO).size(), 1u);
    EXPECT_EQ(barre(Colore::ROSSO)[0].x1, 8300);
    EXPECT_EQ(r.T(2).ID_SCHEMA_X, x2);
    // Handles are circles: each repaint adds one again.
    EXPECT_EQ(r.s->RegioniManiglia.Conteggio(), maniglie + 3);  // three repaints
    // A new walk clears the selection.
    r.Disegna();
    EXPECT_EQ(r.s->TroncoSelezionato, 0);
}

TEST(Pittura, UnaReteGrandeEsaurisceLeRegioni) {
    ReteSchema r;
    r.Catena(0, 200);
    r.Disegna();
    // The source and 200 sections: 201 click regions of the 298, and 200 handles.
    EXPECT_TRUE(r.msg.mostrati.empty());
    ReteSchema g;
    g.Catena(0, 300);
    g.Disegna();
    // Click regions: the source and 297 sections fit, 3 more attempts; handles: 298 fit, 2 more.
    ASSERT_EQ(g.msg.mostrati.size(), 5u);
    for (const auto& m : g.msg.mostrati) EXPECT_EQ(m.testo, "Esaurito spazio per regioni attive");
    // The far ends are all written all the same.
    EXPECT_EQ(g.s->Sezioni.size(), 300u);
    EXPECT_EQ(g.T(300).SchemaDirezione, 4);
}
