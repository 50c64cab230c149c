#include "schema/Carta.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/Documento.h"

namespace fornax::schema {

namespace {

// A zero extent counts as this ratio: the other axis decides.
constexpr double kSenzaLimite = 1000000000.0;
constexpr float kFattoreMinimo = 0.1f;

void Aggiungi(Riquadro& r, double x, double y) {
    if (r.vuoto) {
        r = {x, y, x, y, false};
        return;
    }
    r.xMin = std::min(r.xMin, x);
    r.yMin = std::min(r.yMin, y);
    r.xMax = std::max(r.xMax, x);
    r.yMax = std::max(r.yMax, y);
}

// The drawing fields of every record, kept across a walk for paper.
struct CampiDisegno {
    int16_t direzione, disegnato;
    int32_t x, y;
};

class CampiSalvati {
public:
    explicit CampiSalvati(Documento& d) : d_(d) {
        for (int i = 0; i <= MAX_TRONCHI; ++i) {
            const Tronco& r = d_.T(i);
            campi_.push_back({r.SchemaDirezione, r.SchemaDisegnato, r.ID_SCHEMA_X, r.ID_SCHEMA_Y});
        }
    }
    ~CampiSalvati() {
        for (int i = 0; i <= MAX_TRONCHI; ++i) {
            Tronco& r = d_.T(i);
            const CampiDisegno& c = campi_[static_cast<size_t>(i)];
            r.SchemaDirezione = c.direzione;
            r.SchemaDisegnato = c.disegnato;
            r.ID_SCHEMA_X = c.x;
            r.ID_SCHEMA_Y = c.y;
        }
    }
    CampiSalvati(const CampiSalvati&) = delete;
    CampiSalvati& operator=(const CampiSalvati&) = delete;

private:
    Documento& d_;
    std::vector<CampiDisegno> campi_;
};

ChiamataSchema Chiamata(const OpzioniCarta& o) {
    ChiamataSchema c;
    c.superficie = o.superficie;
    // The printer's walk: black on white, no clearing, no free ends. The preview is a picture
    // (modo 2) that counts as paper.
    c.modo = o.superficie == Superficie::Schema ? 2 : 1;
    c.nomeFont = o.nomeFont.empty() ? "Arial" : o.nomeFont;
    c.dimensioneFont = o.dimensioneFont > 0 ? o.dimensioneFont : 7;
    return c;
}

// The scale that gives `fattore` through the walk's rounding (a ratio up to 2 is taken to one
// decimal, a larger one halved).
double ScalaPerFattore(float fattore) {
    return fattore <= 2.0f ? static_cast<double>(fattore) : 2.0 * static_cast<double>(fattore);
}

float FattoreDellaScala(double scala) {
    const double v = scala <= 2.0 ? scala : scala / 2.0;
    const auto f = static_cast<float>(std::nearbyint(v * 10.0) / 10.0);
    return f == 0.0f ? 1.0f : f;
}

}  // namespace

Riquadro Ingombro(const TargetRegistrato& t) {
    Riquadro r;
    for (const Tratto& x : t.Visibili()) {
        switch (x.tipo) {
            case Tratto::Tipo::Testo:
                Aggiungi(r, x.x1, x.y1);
                Aggiungi(r, x.x1 + t.LarghezzaTesto(x.testo), x.y1 + t.AltezzaTesto(x.testo));
                break;
            case Tratto::Tipo::Linea:
                Aggiungi(r, x.x1, x.y1);
                Aggiungi(r, x.x2, x.y2);
                break;
            case Tratto::Tipo::Rettangolo:
            case Tratto::Tipo::Immagine:
                Aggiungi(r, x.x1, x.y1);
                Aggiungi(r, x.x1 + x.x2, x.y1 + x.y2);
                break;
            case Tratto::Tipo::Cerchio:
                Aggiungi(r, x.x1 - x.raggio, x.y1 - x.raggio);
                Aggiungi(r, x.x1 + x.raggio, x.y1 + x.raggio);
                break;
            case Tratto::Tipo::Pulisci:
                break;
        }
    }
    return r;
}

double ScalaPagina(double larghezzaDisegno, double altezzaDisegno, double larghezzaPagina, double altezzaPagina) {
    const double rx = larghezzaDisegno > 0 ? (larghezzaPagina - 1000) / larghezzaDisegno : kSenzaLimite;
    const double ry = altezzaDisegno > 0 ? (altezzaPagina - 1000) / altezzaDisegno : kSenzaLimite;
    return std::min(rx, ry);
}

EsitoCarta DisegnaSuCarta(StatoSchema& s, Documento& d, const Archivi& a, SchemaTarget& t, const OpzioniCarta& o) {
    const CampiSalvati campi(d);
    const ChiamataSchema chiamata = Chiamata(o);
    EsitoCarta e;
    s.SchemaInScala = FALSO;
    s.SchemaScala = 1.0;
    if (o.adatta) {
        // The box of the far ends at the drawing's own size gives the page's ratio.
        TargetRegistrato prova(t.Larghezza(), t.Altezza());
        DisegnaSchema(s, d, a, prova, chiamata);
        const double largh = s.SchemaXMax - s.SchemaXMin, alt = s.SchemaYMax - s.SchemaYMin;
        e.scala = ScalaPagina(largh, alt, t.Larghezza(), t.Altezza());
        // That ratio stretches the sections only; the symbols, the labels and the origin do not
        // follow it. The scale then goes down until the whole drawing stays on the page. A
        // drawing to scale starts from the left edge of the previous walk, so each trial is
        // drawn until it lands where the one before it did.
        s.SchemaInScala = VERO;
        float fattore = std::min(FattoreDellaScala(e.scala), 4.0f);
        const double xMax = t.Larghezza() - o.margine, yMax = t.Altezza() - o.piede;
        for (int giro = 0; giro < 60; ++giro) {
            s.SchemaScala = ScalaPerFattore(fattore);
            const int32_t xPrima = s.SchemaXMin;
            prova.Svuota();
            DisegnaSchema(s, d, a, prova, chiamata);
            if (s.SchemaXMin != xPrima) continue;  // not settled yet
            const Riquadro r = Ingombro(prova);
            const bool entra =
                r.vuoto || (r.xMin >= o.margine && r.yMin >= o.margine && r.xMax <= xMax && r.yMax <= yMax);
            if (entra || fattore <= kFattoreMinimo) break;
            // Straight to the tenth that would fit if everything followed the scale, at least
            // one tenth down.
            const double quota = std::min((xMax - o.margine) / std::max(1.0, r.Larghezza()),
                                          (yMax - o.margine) / std::max(1.0, r.Altezza()));
            const auto stima = static_cast<float>(std::floor(static_cast<double>(fattore) * quota * 10.0) / 10.0);
            fattore = std::max(kFattoreMinimo, std::min(stima, fattore - 0.1f));
            fattore = static_cast<float>(std::nearbyint(static_cast<double>(fattore) * 10.0) / 10.0);
        }
        e.scala = s.SchemaScala;
        e.inScala = true;
    }
    DisegnaSchema(s, d, a, t, chiamata);
    e.fattore = s.SchemaFattore;
    return e;
}

}  // namespace fornax::schema
