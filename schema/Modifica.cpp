#include "schema/Modifica.h"

#include <cmath>

#include "core/Documento.h"
#include "core/Numeri.h"
#include "core/Servizi.h"

namespace fornax::schema {

namespace {

bool Valido(int i) { return i >= 1 && i <= MAX_TRONCHI; }

// The kind of consumer a palette tag drops: 0 for any other tag.
int16_t TipoDaTag(const std::string& tag) {
    if (tag == TagPalette::FORNELLO) return TipoUtenza::FORNELLO;
    if (tag == TagPalette::CALDAIA) return TipoUtenza::CALDAIA;
    if (tag == TagPalette::BRUCIATORE) return TipoUtenza::BRUCIATORE;
    if (tag == TagPalette::CONVETTORE) return TipoUtenza::CONVETTORE;
    return 0;
}

DialogoUtenza DialogoDi(const Documento& d) {
    return d.ReteInPressione != 0 ? DialogoUtenza::Portata : DialogoUtenza::Cportata;
}

}  // namespace

FrecceDrag FrecceDaTag(const std::string& tagPalette) {
    if (tagPalette == TagPalette::TRONCO) return FrecceDrag::Tronco;
    if (TipoDaTag(tagPalette) != 0) return FrecceDrag::Utenza;
    return FrecceDrag::Nessuna;
}

AzioneDrop CercaDrop(const StatoSchema& s, const Documento& d, double x, double y, const std::string& tagPalette,
                     Messaggi& msg) {
    AzioneDrop a;
    if (d.NumTronchi() >= MAX_TRONCHI) {
        msg.Mostra("Raggiunto il massimo numero di tronchi.", Box::OK);
        a.tipo = AzioneDrop::Tipo::Rifiutato;
        return a;
    }
    a.x = ArrotondaI32(x);
    a.y = ArrotondaI32(y);
    const int posizione = s.RegioniDrop.TestHit(a.x, a.y);
    if (posizione == 0) {
        a.tipo = AzioneDrop::Tipo::Ridisegna;
        return a;
    }
    const int k = s.RegioniDrop.GetIndex(posizione);
    const std::string tag = s.RegioniDrop.GetTag(posizione);
    if (tag.empty() || tag[0] != 'E') return a;
    if (tagPalette == TagPalette::TRONCO) {
        if (k < 1 || static_cast<size_t>(k) > s.EstremiTronco.size()) return a;
        const EstremoLibero& e = s.EstremiTronco[static_cast<size_t>(k - 1)];
        a.tipo = AzioneDrop::Tipo::NuovoTronco;
        a.padre = e.tronco;
        a.svolta = e.svolta;
        return a;
    }
    const int16_t tipo = TipoDaTag(tagPalette);
    if (tipo == 0 || k < 1 || static_cast<size_t>(k) > s.EstremiUtenza.size()) return a;
    a.tipo = AzioneDrop::Tipo::Utenza;
    a.tronco = s.EstremiUtenza[static_cast<size_t>(k - 1)].tronco;
    a.tipoUtenza = tipo;
    // A cooker always opens the dialog of an internal installation.
    a.dialogo = tipo == TipoUtenza::FORNELLO ? DialogoUtenza::Cportata : DialogoDi(d);
    return a;
}

int16_t AggiungiTroncoDaDrop(Documento& d, const AzioneDrop& a, const std::vector<std::string>& nomiMateriali,
                             const std::string& materialeDefault, Messaggi& msg) {
    if (a.tipo != AzioneDrop::Tipo::NuovoTronco) return 0;
    const int16_t n = NuovoTronco(d, a.padre, nomiMateriali, materialeDefault, msg);
    // Record 0 stays blank: a refused section receives nothing.
    if (Valido(n)) d.T(n).ID_SCHEMA_SVOLTA = a.svolta;
    return n;
}

void ImpostaTipoUtenzaDrop(Documento& d, const AzioneDrop& a) {
    if (a.tipo == AzioneDrop::Tipo::Utenza && Valido(a.tronco)) d.T(a.tronco).ID_TIPOUTENZA = a.tipoUtenza;
}

void ApplicaUtenzaDrop(Documento& d, int16_t tronco, float portata, int16_t tipologia,
                       const std::string& composizione) {
    if (!Valido(tronco)) return;
    Tronco& t = d.T(tronco);
    t.ID_P_UTENZE = portata;
    t.ID_P_TRONCO = portata;
    t.ID_TIPOUTENZA = tipologia;
    t.ID_NOMEUTENZA = composizione;
}

int16_t TroncoCliccato(const StatoSchema& s, double x, double y) {
    const int p = s.RegioniClick.TestHit(x, y);
    if (p == 0 || s.RegioniClick.GetTag(p) != "T") return 0;
    return s.RegioniClick.GetIndex(p);
}

AzioneDoppioClick DoppioClick(const StatoSchema& s, const Documento& d, double x, double y) {
    AzioneDoppioClick a;
    const int p = s.RegioniClick.TestHit(x, y);
    if (p == 0) return a;
    const std::string tag = s.RegioniClick.GetTag(p);
    a.tronco = s.RegioniClick.GetIndex(p);
    if (tag == "U") {
        a.tipo = AzioneDoppioClick::Tipo::Utenza;
        a.dialogo = DialogoDi(d);
    } else if (tag == "T") {
        a.tipo = AzioneDoppioClick::Tipo::Tronco;
    } else if (tag == "SRC") {
        a.tipo = AzioneDoppioClick::Tipo::Sorgente;
    } else {
        a.tronco = 0;
    }
    return a;
}

void ApplicaUtenzaDoppioClick(Documento& d, int16_t tronco, float portata, int16_t tipologia,
                              const std::optional<std::string>& composizione) {
    if (!Valido(tronco)) return;
    Tronco& t = d.T(tronco);
    t.ID_P_UTENZE = portata;
    t.ID_P_TRONCO = portata;
    t.ID_TIPOUTENZA = tipologia;
    if (composizione) t.ID_NOMEUTENZA = *composizione;
    if (d.ReteInPressione == 0) d.DpMax = 0.0;
}

void RuotaSorgente(Documento& d) {
    // A damaged file may bring any number: the turn keeps the result in 0..3.
    d.OrientamentoSorgente = static_cast<int16_t>(((d.OrientamentoSorgente + 1) % 4 + 4) % 4);
}

Maniglia CercaManiglia(const StatoSchema& s, double x, double y) {
    Maniglia m;
    const int p = s.RegioniManiglia.TestHit(x, y);
    if (p == 0) return m;
    m.tronco = s.RegioniManiglia.GetIndex(p);
    m.tag = s.RegioniManiglia.GetTag(p);
    if (!m.tag.empty() && (m.tag[0] == 'L' || m.tag[0] == 'R')) {
        m.puntatore = Puntatore::O_E;
    } else if (m.tag == "D" || m.tag == "U") {
        m.puntatore = Puntatore::N_S;
    } else if (m.tag == "DL" || m.tag == "UR") {
        m.puntatore = Puntatore::NE_SO;
    } else if (m.tag == "DR" || m.tag == "UL") {
        m.puntatore = Puntatore::NO_SE;
    }
    return m;
}

PuntoTrascinato TieniNellArea(double x, double y, double sinistra, double alto, double larghezza, double altezza) {
    PuntoTrascinato p{x, y, Puntatore::SPOSTA};
    auto tieni = [&p](double& v, double minimo, double massimo) {
        if (v < minimo) {
            v = minimo;
            p.puntatore = Puntatore::VIETATO;
        } else if (v > massimo) {
            v = massimo;
            p.puntatore = Puntatore::VIETATO;
        }
    };
    tieni(p.x, sinistra, sinistra + larghezza);
    tieni(p.y, alto, alto + altezza);
    return p;
}

void TrascinaLunghezza(StatoSchema& s, const Documento& d, SchemaTarget& t, int16_t tronco, double x, double y,
                       const std::string& tag) {
    ElasticoTronco& e = s.Elastico;
    if (tag != e.UltimoTag) {
        e.UltimoX = 0;
        e.UltimoY = 0;
    }
    e.UltimoTag = tag;
    if (!Valido(tronco)) return;
    const Tronco& rec = d.T(tronco);
    const double X = rec.ID_SCHEMA_X, Y = rec.ID_SCHEMA_Y;
    const double L = s.LunghezzaDisegnata[static_cast<size_t>(tronco)];
    const Punto v = EstremoVicino(s, d, tronco);
    const double nx = v.x, ny = v.y;
    const int16_t dir = DirezioneDaNome(tag);
    if (dir == 0) return;
    if (!Diagonale(dir)) {
        const bool orizzontale = dir == Direzione::L || dir == Direzione::R;
        if ((dir == Direzione::R && x <= nx) || (dir == Direzione::L && x >= nx) || (dir == Direzione::U && y >= ny) ||
            (dir == Direzione::D && y <= ny))
            return;
        if (e.UltimoX > 0 || e.UltimoY > 0) {
            if (orizzontale) {
                t.Linea(nx, ny, e.UltimoX, ny, Colore::NERO);
            } else {
                t.Linea(nx, ny, nx, e.UltimoY, Colore::NERO);
            }
        }
        if (orizzontale) {
            t.Linea(nx, ny, x, ny, Colore::ROSSO);
            e.UltimoX = ArrotondaI32(x);
        } else {
            t.Linea(nx, ny, nx, y, Colore::ROSSO);
            e.UltimoY = ArrotondaI32(y);
        }
        return;
    }
    // Behind the near end along either axis: ignored.
    const double vx = X - PassoX(dir) * 0.707 * L, vy = Y - PassoY(dir) * 0.707 * L;
    if ((x - vx) * PassoX(dir) <= 0 || (y - vy) * PassoY(dir) <= 0) return;
    // The cursor projected on the line through the near end.
    double px, py;
    if (dir == Direzione::UL || dir == Direzione::DR) {
        py = (x + y - nx + ny) / 2;
        px = py + nx - ny;
    } else {
        py = (y - x + nx + ny) / 2;
        px = ny + nx - py;
    }
    if (e.UltimoX >= 1 || e.UltimoY >= 1) t.Linea(nx, ny, e.UltimoX, e.UltimoY, Colore::NERO);
    t.Linea(nx, ny, px, py, Colore::ROSSO);
    e.UltimoX = ArrotondaI32(px);
    e.UltimoY = ArrotondaI32(py);
}

std::optional<int32_t> NuovaLunghezza(const StatoSchema& s, const Documento& d, int16_t tronco, double x, double y,
                                      const std::string& tag) {
    if (!Valido(tronco)) return std::nullopt;
    const Tronco& rec = d.T(tronco);
    const double X = rec.ID_SCHEMA_X, Y = rec.ID_SCHEMA_Y;
    const double L = s.LunghezzaDisegnata[static_cast<size_t>(tronco)];
    constexpr double kRadice2 = 1.414213562;
    double n;
    if (tag == "R") {
        n = x - (X - L);
        if (!(n >= 1)) return std::nullopt;
    } else if (tag == "L") {
        n = (X + L) - x;
        if (!(n >= 1)) return std::nullopt;
    } else if (tag == "U") {
        n = y - (Y + L);
        if (!(n < 0)) return std::nullopt;
        n = -n;
    } else if (tag == "D") {
        n = y - (Y - L);
        if (!(n >= 1)) return std::nullopt;
    } else if (tag == "UR" || tag == "DR") {
        n = L + (x - X) * kRadice2;
        if (!(n > 0)) return std::nullopt;
    } else if (tag == "UL" || tag == "DL") {
        n = L + (X - x) * kRadice2;
        if (!(n >= 1)) return std::nullopt;
    } else {
        return std::nullopt;
    }
    return ArrotondaI32(n);
}

bool ApplicaLunghezza(Documento& d, const StatoSchema& s, int16_t tronco, double x, double y, const std::string& tag) {
    const std::optional<int32_t> n = NuovaLunghezza(s, d, tronco, x, y, tag);
    if (!n) return false;
    d.T(tronco).ID_SCHEMA_LEN = *n;
    return true;
}

}  // namespace fornax::schema
