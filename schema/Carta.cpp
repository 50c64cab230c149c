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

// The surface moved by (dx, dy): a drawing fitted to the page is centred on it.
class TargetSpostato final : public SchemaTarget {
public:
    TargetSpostato(SchemaTarget& t, double dx, double dy) : t_(t), dx_(dx), dy_(dy) {}
    double Larghezza() const override { return t_.Larghezza(); }
    double Altezza() const override { return t_.Altezza(); }
    void ImpostaPenna(double x, double y) override { t_.ImpostaPenna(x + dx_, y + dy_); }
    double PennaX() const override { return t_.PennaX() - dx_; }
    double PennaY() const override { return t_.PennaY() - dy_; }
    void ImpostaFont(const std::string& nome, double dimensione) override { t_.ImpostaFont(nome, dimensione); }
    double LarghezzaTesto(const std::string& testo) const override { return t_.LarghezzaTesto(testo); }
    double AltezzaTesto(const std::string& testo) const override { return t_.AltezzaTesto(testo); }
    void Testo(const std::string& testo, int32_t colore) override { t_.Testo(testo, colore); }
    void Linea(double x1, double y1, double x2, double y2, int32_t colore) override {
        t_.Linea(x1 + dx_, y1 + dy_, x2 + dx_, y2 + dy_, colore);
    }
    void Rettangolo(double x, double y, double larghezza, double altezza, int32_t colore) override {
        t_.Rettangolo(x + dx_, y + dy_, larghezza, altezza, colore);
    }
    void Cerchio(double x, double y, double raggio, int32_t colore, bool pieno) override {
        t_.Cerchio(x + dx_, y + dy_, raggio, colore, pieno);
    }
    void Immagine(const std::string& nome, double x, double y, double larghezza, double altezza) override {
        t_.Immagine(nome, x + dx_, y + dy_, larghezza, altezza);
    }
    void Pulisci() override { t_.Pulisci(); }

private:
    SchemaTarget& t_;
    double dx_, dy_;
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
    double dx = 0, dy = 0;
    if (o.adatta) {
        // The box of the far ends at the drawing's own size gives the page's ratio.
        TargetRegistrato prova(t.Larghezza(), t.Altezza());
        DisegnaSchema(s, d, a, prova, chiamata);
        const double largh = s.SchemaXMax - s.SchemaXMin, alt = s.SchemaYMax - s.SchemaYMin;
        e.scala = ScalaPagina(largh, alt, t.Larghezza(), t.Altezza());
        // That ratio stretches the sections only; the symbols, the labels and the origin do not
        // follow it. The scale then goes down until everything drawn has room inside the
        // margins, and the drawing is centred there. A drawing to scale starts from the left
        // edge of the previous walk, so each trial is drawn until it lands where the one before
        // it did.
        s.SchemaInScala = VERO;
        const double xMin = o.margine, yMin = o.margine;
        const double larghezzaUtile = t.Larghezza() - 2 * o.margine, altezzaUtile = t.Altezza() - o.margine - o.piede;
        float fattore = std::min(FattoreDellaScala(e.scala), 4.0f);
        Riquadro r;
        for (int giro = 0; giro < 60; ++giro) {
            s.SchemaScala = ScalaPerFattore(fattore);
            const int32_t xPrima = s.SchemaXMin;
            prova.Svuota();
            DisegnaSchema(s, d, a, prova, chiamata);
            if (s.SchemaXMin != xPrima) continue;  // not settled yet
            r = Ingombro(prova);
            const bool entra = r.vuoto || (r.Larghezza() <= larghezzaUtile && r.Altezza() <= altezzaUtile);
            if (entra || fattore <= kFattoreMinimo) break;
            // Straight to the tenth that would fit if everything followed the scale, at least
            // one tenth down.
            const double quota =
                std::min(larghezzaUtile / std::max(1.0, r.Larghezza()), altezzaUtile / std::max(1.0, r.Altezza()));
            const auto stima = static_cast<float>(std::floor(static_cast<double>(fattore) * quota * 10.0) / 10.0);
            fattore = std::max(kFattoreMinimo, std::min(stima, fattore - 0.1f));
            fattore = static_cast<float>(std::nearbyint(static_cast<double>(fattore) * 10.0) / 10.0);
        }
        if (!r.vuoto) {
            dx = xMin + (larghezzaUtile - r.Larghezza()) / 2 - r.xMin;
            dy = yMin + (altezzaUtile - r.Altezza()) / 2 - r.yMin;
        }
        e.scala = s.SchemaScala;
        e.inScala = true;
    } else {
        // At its own size the walk puts the source two base units above the paper's lower
        // edge, where a printer does not print and the consumers below it are cut off: the
        // drawing is moved, not scaled, to stay inside the margins where it has room.
        TargetRegistrato prova(t.Larghezza(), t.Altezza());
        DisegnaSchema(s, d, a, prova, chiamata);
        const Riquadro r = Ingombro(prova);
        if (!r.vuoto) {
            const double xMax = t.Larghezza() - o.margine, yMax = t.Altezza() - o.margine;
            if (r.xMax > xMax) dx = xMax - r.xMax;
            if (r.xMin + dx < o.margine) dx = o.margine - r.xMin;
            if (r.yMax > yMax) dy = yMax - r.yMax;
            if (r.yMin + dy < o.margine) dy = o.margine - r.yMin;
        }
    }
    TargetSpostato spostato(t, dx, dy);
    DisegnaSchema(s, d, a, spostato, chiamata);
    e.fattore = s.SchemaFattore;
    return e;
}

}  // namespace fornax::schema
