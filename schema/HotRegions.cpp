#include "schema/HotRegions.h"

#include <cmath>
#include <cstdlib>

#include "core/Servizi.h"

namespace fornax::schema {

namespace {

constexpr double kGradi = 180.0 / 3.14159265358979;

// Bearing in degrees from the vertex to (dx, dy): the arctangent, with 180 added in the left
// half-plane, taken into 0..360.
double Rilevamento(double dx, double dy) {
    double a;
    if (dx == 0) {
        a = dy >= 0 ? 90.0 : 270.0;
    } else {
        a = std::atan(dy / dx) * kGradi;
        if (dx < 0) a += 180.0;
    }
    if (a < 0) a += 360.0;
    return a;
}

bool InTriangolo(const Regione& r, double x, double y) {
    const double dx = x - r.VerticeX, dy = y - r.VerticeY;
    if (std::fabs(dx) >= 400 || std::fabs(dy) >= 400) return false;
    if (dx == 0 && dy == 0) return true;  // the vertex itself lies on both sides
    const double p = Rilevamento(dx, dy);
    const double a1 = Rilevamento(r.X1 - r.VerticeX, r.Y1 - r.VerticeY);
    const double a2 = Rilevamento(r.X2 - r.VerticeX, r.Y2 - r.VerticeY);
    const double basso = std::fmin(a1, a2), alto = std::fmax(a1, a2);
    // A wedge is narrow (45 degrees); one whose two sides read more than 90 apart straddles
    // the bearing 0 and holds what lies outside the interval.
    if (alto - basso > 90.0) return p >= alto || p <= basso;
    return p >= basso && p <= alto;
}

// The point against the four sides of a convex quadrilateral: inside or on every side.
bool InQuadrilatero(const Regione& r, double x, double y) {
    const double px[4] = {double(r.X1), double(r.X2), double(r.X3), double(r.X4)};
    const double py[4] = {double(r.Y1), double(r.Y2), double(r.Y3), double(r.Y4)};
    bool positivo = false, negativo = false;
    for (int k = 0; k < 4; ++k) {
        const int j = (k + 1) % 4;
        const double c = (px[j] - px[k]) * (y - py[k]) - (py[j] - py[k]) * (x - px[k]);
        if (c > 0) positivo = true;
        if (c < 0) negativo = true;
    }
    return !(positivo && negativo);
}

bool InCerchio(const Regione& r, double x, double y) {
    const double dx = x - r.X1, dy = y - r.Y1;
    if (std::fabs(dx) < 1e9 && std::fabs(dy) < 1e9 && dx == std::floor(dx) && dy == std::floor(dy)) {
        // Whole twips: exact in 64 bits.
        const auto ix = static_cast<int64_t>(dx), iy = static_cast<int64_t>(dy);
        const auto rr = static_cast<int64_t>(r.Raggio);
        return r.Raggio >= 0 && ix * ix + iy * iy <= rr * rr;
    }
    return std::hypot(dx, dy) <= r.Raggio;
}

}  // namespace

bool clsHotRegions::Contiene(const Regione& r, double x, double y) {
    switch (r.Tipo) {
        case TipoRegione::RETTANGOLO:
            return r.X1 <= x && x <= r.X2 && r.Y1 <= y && y <= r.Y2;
        case TipoRegione::CERCHIO:
            return InCerchio(r, x, y);
        case TipoRegione::TRIANGOLO:
            return InTriangolo(r, x, y);
        case TipoRegione::RETTANGOLO_LIBERO:
            return InQuadrilatero(r, x, y);
        default:
            return false;
    }
}

int clsHotRegions::Nuova() {
    if (conteggio_ < INT16_MAX) ++conteggio_;
    if (conteggio_ < LIMITE) return conteggio_;
    if (msg_ != nullptr) msg_->Mostra("Esaurito spazio per regioni attive", Box::OK);
    return 0;
}

void clsHotRegions::Inserisci(const Regione& r) {
    const int p = Nuova();
    if (p != 0) tabella_[static_cast<size_t>(p)] = r;
}

void clsHotRegions::AddCircle(int32_t x, int32_t y, int32_t raggio, int16_t indice, const std::string& tag) {
    Regione r;
    r.Tipo = TipoRegione::CERCHIO;
    r.X1 = x;
    r.Y1 = y;
    r.Raggio = raggio;
    r.Indice = indice;
    r.Tag = tag;
    Inserisci(r);
}

void clsHotRegions::AddRectangle(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int16_t indice,
                                 const std::string& tag) {
    if (SearchIndex(indice, tag) > 0) return;
    Regione r;
    r.Tipo = TipoRegione::RETTANGOLO;
    r.X1 = x1;
    r.Y1 = y1;
    r.X2 = x2;
    r.Y2 = y2;
    r.Indice = indice;
    r.Tag = tag;
    Inserisci(r);
}

void clsHotRegions::AddCustomRectangle(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t x3, int32_t y3,
                                       int32_t x4, int32_t y4, int16_t indice, const std::string& tag) {
    if (SearchIndex(indice, tag) > 0) return;
    Regione r;
    r.Tipo = TipoRegione::RETTANGOLO_LIBERO;
    r.X1 = x1;
    r.Y1 = y1;
    r.X2 = x2;
    r.Y2 = y2;
    r.X3 = x3;
    r.Y3 = y3;
    r.X4 = x4;
    r.Y4 = y4;
    r.Indice = indice;
    r.Tag = tag;
    Inserisci(r);
}

void clsHotRegions::AddTriangle(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t vx, int32_t vy, int16_t indice,
                                const std::string& tag) {
    if (SearchIndex(indice, tag) > 0) return;
    Regione r;
    r.Tipo = TipoRegione::TRIANGOLO;
    r.X1 = x1;
    r.Y1 = y1;
    r.X2 = x2;
    r.Y2 = y2;
    r.VerticeX = vx;
    r.VerticeY = vy;
    r.Indice = indice;
    r.Tag = tag;
    Inserisci(r);
}

int16_t clsHotRegions::GetIndex(int posizione) const {
    if (posizione < 0 || posizione > LIMITE) return 0;
    return tabella_[static_cast<size_t>(posizione)].Indice;
}

std::string clsHotRegions::GetTag(int posizione) const {
    if (posizione < 0 || posizione > LIMITE) return "";
    return tabella_[static_cast<size_t>(posizione)].Tag;
}

int clsHotRegions::SearchIndex(int16_t indice, const std::string& tag) const {
    if (conteggio_ < 1) return 0;
    for (int p = 1; p <= UltimaPosizione(); ++p) {
        const Regione& r = tabella_[static_cast<size_t>(p)];
        if (r.Tipo != 0 && r.Indice == indice && r.Tag == tag) return p;
    }
    return 0;
}

int clsHotRegions::TestHit(double x, double y) const {
    for (int p = 1; p <= UltimaPosizione(); ++p)
        if (Contiene(tabella_[static_cast<size_t>(p)], x, y)) return p;
    return 0;
}

int clsHotRegions::TestHitWhitShape(double x, double y, int16_t tipo) const {
    if (tipo != TipoRegione::RETTANGOLO && tipo != TipoRegione::CERCHIO) return 0;
    for (int p = 1; p <= UltimaPosizione(); ++p) {
        const Regione& r = tabella_[static_cast<size_t>(p)];
        if (r.Tipo == tipo && Contiene(r, x, y)) return p;
    }
    return 0;
}

}  // namespace fornax::schema
