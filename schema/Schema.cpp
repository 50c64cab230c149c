#include "schema/Schema.h"

#include <cmath>
#include <cstdlib>

#include "archives/Pdc.h"
#include "core/Documento.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"
#include "schema/Immagini.h"

namespace fornax::schema {

namespace {

// A diagonal of length L runs 0.707 L along each axis; the step back uses the same figure.
constexpr double kDiagonale = 0.707;

int32_t Intero(double v) { return ArrotondaI32(v); }

int Valido(int indice) { return indice >= 1 && indice <= MAX_TRONCHI ? indice : 0; }

int UltimoTronco(const Documento& d) {
    const int n = d.NumTronchi();
    return n < 0 ? 0 : (n > MAX_TRONCHI ? MAX_TRONCHI : n);
}

// Extent along each axis of a length `l` in direction `d`.
double EstensioneX(int16_t d, double l) { return PassoX(d) * (Diagonale(d) ? kDiagonale * l : l); }
double EstensioneY(int16_t d, double l) { return PassoY(d) * (Diagonale(d) ? kDiagonale * l : l); }

// The ratio the printer report asked for, as the factor of a walk: to one decimal up to 2, else
// half of it to one decimal (ties to even).
float FattoreDaScala(double scala) {
    const double v = scala <= 2.0 ? scala : scala / 2.0;
    return static_cast<float>(std::nearbyint(v * 10.0) / 10.0);
}

bool InScala(const StatoSchema& s) { return s.SchemaInScala != 0 && s.SchemaSuCarta != 0; }

// A section's length as painted: scaled only for a drawing to scale.
double LunghezzaDipinta(const StatoSchema& s, int32_t l) {
    return InScala(s) ? static_cast<double>(l) * static_cast<double>(s.SchemaFattore) : static_cast<double>(l);
}

// The label of a section: diameter, equivalent length, effective length.
std::string Etichetta(const StatoSchema& s, const Tronco& x) {
    if (s.SchemaFattore < 0.9f || s.Zoom < -6) return "";
    return " \xC3\xB8 " + x.ID_DIAMETRO + " - " + TestoGenerale(x.ID_EQ_LEN, 7) + "m" + " [" +
           TestoGenerale(x.ID_LEN, 7) + "m]";
}

// The clickable area of a section, (x, y) its near end and (dx, dy) its extent.
void RegioneTronco(StatoSchema& s, int tronco, double x, double y, double dx, double dy, int16_t d) {
    const auto i = static_cast<int16_t>(tronco);
    switch (d) {
        case Direzione::U:
            s.RegioniClick.AddRectangle(Intero(x - 100), Intero(y + dy), Intero(x + 100), Intero(y), i, "T");
            break;
        case Direzione::D:
            s.RegioniClick.AddRectangle(Intero(x - 100), Intero(y), Intero(x + 100), Intero(y + dy), i, "T");
            break;
        case Direzione::L:
            s.RegioniClick.AddRectangle(Intero(x + dx), Intero(y - 100), Intero(x), Intero(y + 100), i, "T");
            break;
        case Direzione::R:
            s.RegioniClick.AddRectangle(Intero(x), Intero(y - 100), Intero(x + dx), Intero(y + 100), i, "T");
            break;
        default: {
            // The bar shifted by 50 across itself: 0.707 x 50 on each axis, perpendicular to
            // the slant.
            const double a = 50 * kDiagonale;
            const double px = -PassoY(d) * a, py = PassoX(d) * a;
            s.RegioniClick.AddCustomRectangle(Intero(x + px), Intero(y + py), Intero(x + dx + px), Intero(y + dy + py),
                                              Intero(x + dx - px), Intero(y + dy - py), Intero(x - px), Intero(y - py),
                                              i, "T");
            break;
        }
    }
}

// The painting of one section from its near end (x, y), length `l` before any scaling. Leaves
// the pen at the far end of the bar and returns that point.
void DipingiTronco(StatoSchema& s, const Documento& doc, SchemaTarget& t, int tronco, double x, double y, int16_t d,
                   int32_t l, int32_t coloreBarra) {
    const Tronco& rec = doc.T(tronco);
    const float f = s.SchemaFattore;
    const float lato = 75.0f * f;
    const float spessore = 3.0f * f;
    const std::string etichetta = Etichetta(s, rec);
    const std::string numero = std::to_string(tronco);
    const double T = t.LarghezzaTesto(etichetta);
    const double hH = t.AltezzaTesto("H");
    const double A = 2 * hH;
    const double U = t.LarghezzaTesto("H");
    const int32_t coloreEtichetta = rec.ID_DIAMCUSTOM != 0 ? Colore::ROSSO : s.SchemaColore;
    const int32_t barra = coloreBarra >= 0 ? coloreBarra : s.SchemaColore;
    const double lp = LunghezzaDipinta(s, l);
    const double dx = EstensioneX(d, lp), dy = EstensioneY(d, lp);
    const double fx = x + dx, fy = y + dy;

    // Number and label beside the bar, where they don't cover it.
    if (d == Direzione::U || d == Direzione::D) {
        const double ty = d == Direzione::U ? y - (lp - A) / 2 - A : y + (lp - A) / 2;
        t.ImpostaPenna(x, ty);
        t.Testo(numero, s.SchemaColore);
        t.ImpostaPenna(x, ty + hH);
        t.Testo(etichetta, coloreEtichetta);
    } else if (d == Direzione::L || d == Direzione::R) {
        const double tx = d == Direzione::R ? x + (lp - T) / 2 : x - (lp - T) / 2 - T;
        t.ImpostaPenna(tx, y - hH);
        t.Testo(numero, s.SchemaColore);
        t.Testo(etichetta, coloreEtichetta);
    } else {
        const double tx = x + dx / 2 + 2 * U, ty = y + dy / 2 - A / 2;
        t.ImpostaPenna(tx, ty);
        t.Testo(numero, s.SchemaColore);
        t.ImpostaPenna(tx, ty + hH);
        t.Testo(etichetta, coloreEtichetta);
    }

    // The stretch handle on the far end, and its region a little beyond it.
    t.Rettangolo(fx - lato / 2.0, fy - lato / 2.0, lato, lato, Colore::VERDE);
    const double oltre = 2.5 * static_cast<double>(spessore) * (Diagonale(d) ? kDiagonale : 1.0);
    s.RegioniManiglia.AddCircle(Intero(fx + PassoX(d) * oltre), Intero(fy + PassoY(d) * oltre),
                                Intero(2.0 * static_cast<double>(lato)), static_cast<int16_t>(tronco),
                                NomeDirezione(d));

    // The bar.
    switch (d) {
        case Direzione::U:
        case Direzione::D:
            t.Rettangolo(x - spessore, y, spessore, dy, barra);
            break;
        case Direzione::L:
        case Direzione::R:
            t.Rettangolo(x, y - spessore, dx, spessore, barra);
            break;
        default:
            t.Linea(x, y, fx, fy, barra);
            break;
    }
    t.ImpostaPenna(fx, fy);
    RegioneTronco(s, tronco, x, y, dx, dy, d);
}

bool Entra(StatoSchema& s, int i) {
    auto& segno = s.entrato[static_cast<size_t>(i)];
    if (segno == s.giro) return false;
    segno = s.giro;
    return true;
}

void NuovoGiro(StatoSchema& s) {
    if (++s.giro == 0) {
        s.entrato.fill(0);
        s.giro = 1;
    }
}

void AggiornaEstremiContatori(StatoSchema& s) {
    if (s.SchemaColonna < s.SchemaColonnaMin) s.SchemaColonnaMin = s.SchemaColonna;
    if (s.SchemaColonna > s.SchemaColonnaMax) s.SchemaColonnaMax = s.SchemaColonna;
    if (s.SchemaRiga < s.SchemaRigaMin) s.SchemaRigaMin = s.SchemaRiga;
    if (s.SchemaRiga > s.SchemaRigaMax) s.SchemaRigaMax = s.SchemaRiga;
}

void AggiornaBox(StatoSchema& s, int32_t x, int32_t y) {
    if (s.boxVuoto) {
        s.SchemaXMin = s.SchemaXMax = x;
        s.SchemaYMin = s.SchemaYMax = y;
        s.boxVuoto = false;
        return;
    }
    if (x < s.SchemaXMin) s.SchemaXMin = x;
    if (x > s.SchemaXMax) s.SchemaXMax = x;
    if (y < s.SchemaYMin) s.SchemaYMin = y;
    if (y > s.SchemaYMax) s.SchemaYMax = y;
}

}  // namespace

StatoSchema::StatoSchema(Messaggi& m) : msg(m), RegioniClick(&m), RegioniDrop(&m), RegioniManiglia(&m) {}

int NumeroFigli(const Documento& d, int tronco) {
    const Tronco& t = d.T(tronco);
    return (t.ID_LEFT != 0 ? 1 : 0) + (t.ID_RIGHT != 0 ? 1 : 0);
}

int16_t Figlio(const Documento& d, int tronco, int n, Messaggi& msg) {
    if (n > NumeroFigli(d, tronco)) msg.Mostra("Errore visita rete", Box::OK);
    const Tronco& t = d.T(tronco);
    if (n == 1) return t.ID_LEFT != 0 ? t.ID_LEFT : t.ID_RIGHT;
    if (n == 2) return t.ID_RIGHT;
    return 0;
}

int16_t DirezioneFiglio(const Documento& d, int figlio, int16_t direzione, std::optional<int16_t> evita) {
    const int16_t codice = d.T(figlio).ID_SCHEMA_SVOLTA;
    // A code outside 1..8 (a damaged file) counts as automatic.
    if (codice >= 1 && codice <= 8) return RuotaDirezione(direzione, codice);
    if (evita) {
        int16_t candidato = SvoltaSinistra(direzione);
        for (int giri = 0; giri < 8 && (candidato == direzione || candidato == *evita); ++giri)
            candidato = SvoltaSinistra(candidato);
        return candidato;
    }
    return direzione;
}

Punto DisegnaTronco(ContestoSchema& c, int tronco, int32_t x, int32_t y, int16_t direzione, int32_t lunghezzaDefault,
                    int32_t /*lunghezzaSecondaria*/, int32_t coloreBarra) {
    StatoSchema& s = c.s;
    Tronco& rec = c.d.T(tronco);
    const int32_t l = rec.ID_SCHEMA_LEN != 0 ? rec.ID_SCHEMA_LEN : lunghezzaDefault;
    Punto penna{x, y};
    if (s.SchemaDisegnaAttivo != 0) {
        DipingiTronco(s, c.d, c.t, tronco, x, y, direzione, l, coloreBarra);
        penna = {Intero(c.t.PennaX()), Intero(c.t.PennaY())};
    }
    switch (direzione) {
        case Direzione::U:
            ++s.SchemaRiga;
            break;
        case Direzione::L:
            --s.SchemaColonna;
            break;
        case Direzione::D:
            --s.SchemaRiga;
            break;
        case Direzione::R:
            s.SchemaColonna = static_cast<int16_t>(s.SchemaColonna + 2);
            break;
        default:
            break;  // the diagonals add no room to the grid
    }
    // The far end, unscaled; a diagonal's is rounded and the walk goes on from there.
    const int32_t fx = Intero(static_cast<double>(x) + EstensioneX(direzione, l));
    const int32_t fy = Intero(static_cast<double>(y) + EstensioneY(direzione, l));
    if (s.SchemaDisegnaAttivo != 0) {
        AggiornaBox(s, fx, fy);
        rec.SchemaDirezione = direzione;
        rec.ID_SCHEMA_X = fx;
        rec.ID_SCHEMA_Y = fy;
        s.LunghezzaDisegnata[static_cast<size_t>(tronco)] = l;
        s.Disegnato[static_cast<size_t>(tronco)] = true;
        s.Sezioni.push_back({static_cast<int16_t>(tronco), direzione, fx, fy, l, rec.ID_SCHEMA_LEN});
        if (!InScala(s)) penna = {fx, fy};
    } else {
        penna = {fx, fy};
    }
    AggiornaEstremiContatori(s);
    return penna;
}

void DisegnaNodo(ContestoSchema& c, double x, double y) {
    if (c.s.SchemaDisegnaAttivo != 0) c.t.Cerchio(x, y, 0, c.s.SchemaColore, true);
}

void VisitaRete(ContestoSchema& c, int tronco, int32_t x, int32_t y, int16_t direzione, int32_t lunghezzaDefault,
                int32_t lunghezzaSecondaria) {
    if (tronco == 0 || Valido(tronco) == 0) return;
    StatoSchema& s = c.s;
    const int n = NumeroFigli(c.d, tronco);
    if (n == 0) {
        const Tronco& rec = c.d.T(tronco);
        if (rec.ID_P_TRONCO > 0) DisegnaUtenza(c, x, y, direzione, rec.ID_TIPOUTENZA, tronco);
        return;
    }
    DisegnaNodo(c, x, y);
    // A link outside the table or back to a section already drawn (a damaged file) is not
    // followed: the walk neither loops nor draws a section twice.
    auto ramo = [&](int f, int16_t e) {
        if (Valido(f) == 0 || !Entra(s, f)) return;
        const Punto p = DisegnaTronco(c, f, x, y, e, lunghezzaDefault, lunghezzaSecondaria);
        VisitaRete(c, f, p.x, p.y, e, lunghezzaDefault, lunghezzaSecondaria);
    };
    if (n == 1) {
        const int f = Figlio(c.d, tronco, 1, s.msg);
        if (Valido(f) == 0) return;
        ramo(f, DirezioneFiglio(c.d, f, direzione));
        return;
    }
    const int16_t colonna = s.SchemaColonna, riga = s.SchemaRiga;
    const int f1 = Figlio(c.d, tronco, 1, s.msg);
    const int16_t e1 = Valido(f1) != 0 ? DirezioneFiglio(c.d, f1, direzione) : direzione;
    ramo(f1, e1);
    s.SchemaColonna = colonna;
    s.SchemaRiga = riga;
    const int f2 = Figlio(c.d, tronco, 2, s.msg);
    if (Valido(f2) == 0) return;
    ramo(f2, DirezioneFiglio(c.d, f2, direzione, e1));
}

void DisegnaUtenza(ContestoSchema& c, int32_t x, int32_t y, int16_t direzione, int16_t tipo, int tronco) {
    StatoSchema& s = c.s;
    if (s.SchemaDisegnaAttivo == 0) return;
    const Tronco& rec = c.d.T(tronco);
    SchemaTarget& t = c.t;
    bool guasto;
    if (c.d.ReteInPressione != 0) {
        guasto = static_cast<float>(c.d.PressioneFinale) > rec.ID_PFINALE;
    } else {
        guasto = LimitePdc(c.d) < rec.ID_PDC_PERCORSO;
    }
    const int32_t cornice = guasto ? Colore::ROSSO : (s.SchemaSuCarta != 0 ? Colore::NERO : Colore::BIANCO);
    const float f = s.SchemaFattore;
    const double wc = f == 1.0f ? 440.0 : 440.0 * static_cast<double>(f);
    const double hc = f == 1.0f ? 460.0 : 460.0 * static_cast<double>(f);
    const int16_t d = DirezioneValida(direzione) ? direzione : Direzione::R;
    const double k = Diagonale(d) ? kDiagonale : 1.0;
    // A stub continues the pipe by the frame's height; the frame lies beyond it along d.
    const double sx = x + PassoX(d) * k * hc, sy = y + PassoY(d) * k * hc;
    t.Linea(x, y, sx, sy, cornice);
    const double cx = sx + PassoX(d) * wc / 2.0, cy = sy + PassoY(d) * hc / 2.0;
    const double x1 = cx - wc / 2.0, y1 = cy - hc / 2.0, x2 = cx + wc / 2.0, y2 = cy + hc / 2.0;
    t.Immagine(SimboloUtenza(tipo).nome, x1, y1, wc, hc);
    t.Linea(x1, y1, x2, y1, cornice);
    t.Linea(x2, y1, x2, y2, cornice);
    t.Linea(x2, y2, x1, y2, cornice);
    t.Linea(x1, y2, x1, y1, cornice);
    s.RegioniClick.AddRectangle(Intero(x1), Intero(y1), Intero(x2), Intero(y2), static_cast<int16_t>(tronco), "U");

    // The reference above the frame, the flow below it, centred by the width of "H".
    const double u = t.LarghezzaTesto("H");
    const double h = t.AltezzaTesto("H");
    std::string rif = Maiuscolo(Trim(rec.ID_RIF));
    t.ImpostaPenna(cx - u * static_cast<double>(rif.size()) / 2.0, y1 - h);
    t.Testo(rif, s.SchemaColore);
    if (s.Zoom >= -6) {
        const std::string portata = FormattaNumero(rec.ID_P_TRONCO, "#0.0 Nmc/h");
        t.ImpostaPenna(cx - u * static_cast<double>(portata.size()) / 2.0, y2);
        t.Testo(portata, cornice);
    }
}

void EstremiLiberi(StatoSchema& s, Documento& d) {
    const int n = UltimoTronco(d);
    for (int i = 1; i <= n; ++i) {
        Tronco& rec = d.T(i);
        if (rec.Visitato == FALSO) continue;
        rec.SchemaDisegnato = FALSO;
        if (i > 1 && rec.ID_PREV == 0) continue;
        const int figli = NumeroFigli(d, i);
        const int16_t dir = rec.SchemaDirezione;
        const auto indice = static_cast<int16_t>(i);
        if (rec.ID_P_TRONCO == 0 && figli == 0) {
            rec.SchemaDisegnato = VERO;
            // Straight on, 45, 90, 135 degrees left, 45, 90, 135 right; never straight back.
            for (int codice : {1, 4, 2, 5, 7, 3, 8}) {
                const auto c = static_cast<int16_t>(codice);
                s.EstremiTronco.push_back({indice, RuotaDirezione(dir, c), c, rec.ID_SCHEMA_X, rec.ID_SCHEMA_Y});
            }
            s.EstremiUtenza.push_back({indice, dir, 1, rec.ID_SCHEMA_X, rec.ID_SCHEMA_Y});
        } else if (figli == 1) {
            rec.SchemaDisegnato = VERO;
            const int figlio = rec.ID_LEFT != 0 ? rec.ID_LEFT : rec.ID_RIGHT;
            const int16_t c = Valido(figlio) != 0 ? d.T(figlio).SchemaDirezione : int16_t{0};
            const int16_t r = DirezioneOpposta(dir);
            // Round the ring from the one after the child's direction back to it.
            int16_t k = SvoltaSinistra(c);
            for (int giri = 0; giri < 8 && k != c && k != 0; ++giri, k = SvoltaSinistra(k))
                if (k != r)
                    s.EstremiTronco.push_back({indice, k, CodiceSvolta(k, dir), rec.ID_SCHEMA_X, rec.ID_SCHEMA_Y});
        }
    }
}

void DisegnaSchema(StatoSchema& s, Documento& d, const Archivi& a, SchemaTarget& t, const ChiamataSchema& ch) {
    ContestoSchema c{s, d, a, t};
    s.Zoom = LimitaZoom(s.Zoom);
    // The box of the previous walk places a drawing to scale on paper.
    const int32_t xMinPrecedente = s.SchemaXMin;

    // 1. Paper or screen, and the factor of the walk.
    float fattore;
    if (ch.modo != 2) {
        s.SchemaSuCarta = VERO;
        if (s.SchemaInScala != 0) {
            fattore = FattoreDaScala(s.SchemaScala);
            if (fattore == 0.0f) fattore = 1.0f;
        } else {
            fattore = 1.0f;
        }
    } else if (ch.superficie == Superficie::Print || ch.superficie == Superficie::Schema) {
        s.SchemaSuCarta = VERO;
        fattore = FattoreDaScala(s.SchemaScala);
    } else {
        s.SchemaSuCarta = FALSO;
        fattore = FattoreZoom(s.Zoom);
    }
    s.SchemaFattore = fattore;

    // 2. Base unit.
    const int32_t B = Intero(static_cast<double>(fattore) * 480.0);

    // 3. A fresh walk.
    s.SchemaDisegnaAttivo = FALSO;
    s.SchemaColonna = 0;
    s.SchemaRiga = 0;
    s.SchemaColonnaMin = s.SchemaColonnaMax = s.SchemaRigaMin = s.SchemaRigaMax = 0;
    s.SchemaXMin = s.SchemaYMin = s.SchemaXMax = s.SchemaYMax = 0;
    s.boxVuoto = true;
    s.RegioniClick.Reset();
    s.EstremiTronco.clear();
    s.EstremiUtenza.clear();
    s.Sezioni.clear();
    s.LunghezzaDisegnata.fill(0);
    s.Disegnato.fill(false);
    s.NomeFont = ch.nomeFont;
    s.DimensioneFont = ch.dimensioneFont;
    t.ImpostaFont(ch.nomeFont, ch.dimensioneFont);

    // 4.
    if (ch.modo == 2) {
        t.Pulisci();
        s.SchemaColore = Colore::BIANCO;
    } else {
        s.SchemaColore = Colore::NERO;
    }

    // 5. Work area and start.
    const double altezzaScala =
        ch.superficie == Superficie::Display ? std::pow(0.9, s.Zoom) * t.Altezza() : t.Altezza();
    double W = ch.larghezza ? *ch.larghezza * 0.8 : t.Larghezza() * 0.8;
    double H = ch.altezza ? *ch.altezza - 3.0 * B : t.Altezza() - 3.0 * B;
    double X0, Y0;
    if (ch.x0) {
        X0 = *ch.x0 + 200;
        Y0 = ch.y0.value_or(0.0);
    } else {
        X0 = 620;
        Y0 = altezzaScala - 2.0 * B;
    }

    // 6. Normalised to the reference screen.
    const double schermoL = s.LarghezzaSchermo > 0 ? s.LarghezzaSchermo : LARGHEZZA_SCHERMO;
    const double schermoA = s.AltezzaSchermo > 0 ? s.AltezzaSchermo : ALTEZZA_SCHERMO;
    const int32_t Wi = Intero(W * 12000.0 / schermoL);
    const int32_t Hi = Intero(H * 9000.0 / schermoA);

    // 7. Measuring pass: only the logical counters move.
    NuovoGiro(s);
    DisegnaNodo(c, X0, Y0);
    if (d.NumTronchi() > 0) {
        Entra(s, 1);
        const Punto p = DisegnaTronco(c, 1, Intero(X0), Intero(Y0), Direzione::R, PASSO_DEFAULT, PASSO_DEFAULT);
        VisitaRete(c, 1, p.x, p.y, Direzione::R, PASSO_DEFAULT, PASSO_DEFAULT);
    }
    ParametriWalk& par = s.Parametri;
    par = ParametriWalk{};
    par.ColonnaMin = s.SchemaColonnaMin;
    par.ColonnaMax = s.SchemaColonnaMax;
    par.RigaMin = s.SchemaRigaMin;
    par.RigaMax = s.SchemaRigaMax;

    // 8. Steps of the columns and of the rows.
    const int32_t colonne = s.SchemaColonnaMax - s.SchemaColonnaMin;
    const int32_t righe = s.SchemaRigaMax - s.SchemaRigaMin;
    const int32_t SX = colonne > 0 ? Intero(2.0 * Wi / colonne) : PASSO_DEFAULT;
    const int32_t SY = righe > 0 ? Intero(0.9 * Hi / righe) : PASSO_DEFAULT;

    // 9. The origin shifted so that the tree stays on the picture.
    if (s.SchemaColonnaMin < 0)
        X0 = X0 + std::abs(s.SchemaColonnaMin) * (static_cast<double>(fattore) * SX / 2.0) + 0.1 * Wi;
    if (s.SchemaRigaMin < 0) Y0 = Y0 - std::abs(s.SchemaRigaMin) * static_cast<double>(SY);
    const int32_t x0 = Intero(X0), y0 = Intero(Y0);
    par.Fattore = fattore;
    par.B = B;
    par.W = Wi;
    par.H = Hi;
    par.SX = SX;
    par.SY = SY;
    par.X0 = x0;
    par.Y0 = y0;

    // 10.
    s.SchemaDisegnaAttivo = VERO;
    if (ch.modo == 2) t.Pulisci();
    s.RegioniClick.Reset();
    s.RegioniManiglia.Reset();

    // 11. Source, title, first node.
    const bool inScala = InScala(s);
    const int32_t xBase = inScala ? (xMinPrecedente < 1 ? std::abs(xMinPrecedente) : x0) : x0;
    const FormatoSorgente& sorgente = Sorgente(d.OrientamentoSorgente);
    const double f = static_cast<double>(fattore);
    const double pw = sorgente.immagine.larghezza, ph = sorgente.immagine.altezza;
    const double xSorgente = inScala ? xBase + pw - f * pw : xBase - f * pw;
    t.Immagine(sorgente.immagine.nome, xSorgente, y0 - f * ph / sorgente.divisore, f * pw, f * ph);
    s.RegioniClick.AddRectangle(Intero(xBase - f * pw), Intero(y0 - f * ph / 8.0), xBase, Intero(y0 + f * ph), 1,
                                "SRC");
    if (!ch.titolo.empty()) {
        t.ImpostaPenna(xBase - t.LarghezzaTesto(ch.titolo), y0 - f * ph);
        t.Testo(ch.titolo, Colore::ARANCIO);
    }
    DisegnaNodo(c, xBase, y0);

    // 12. Drawing pass.
    NuovoGiro(s);
    if (d.NumTronchi() < 1) {
        d.T(0).SchemaDisegnato = VERO;
        s.EstremiTronco.push_back({0, Direzione::R, Svolta::DRITTO, x0, y0});
    } else {
        const int32_t x = inScala ? Intero(f * pw + pw + xBase) : x0;
        Entra(s, 1);
        const Punto p = DisegnaTronco(c, 1, x, y0, Direzione::R, SX, SY);
        VisitaRete(c, 1, p.x, p.y, Direzione::R, SX, SY);
    }

    // 13.
    if (ch.modo == 2) EstremiLiberi(s, d);
    s.TroncoSelezionato = 0;
}

Punto EstremoVicino(const StatoSchema& s, const Documento& d, int tronco) {
    const Tronco& rec = d.T(tronco);
    const int32_t l = s.LunghezzaDisegnata[static_cast<size_t>(tronco)];
    const int16_t r = DirezioneOpposta(rec.SchemaDirezione);
    return {Intero(static_cast<double>(rec.ID_SCHEMA_X) + EstensioneX(r, l)),
            Intero(static_cast<double>(rec.ID_SCHEMA_Y) + EstensioneY(r, l))};
}

void SelezionaTronco(StatoSchema& s, const Documento& d, SchemaTarget& t, int16_t tronco) {
    t.ImpostaFont("Arial", 7);
    auto ridipingi = [&](int i, int32_t colore) {
        if (Valido(i) == 0 || !s.Disegnato[static_cast<size_t>(i)]) return;
        const Tronco& rec = d.T(i);
        if (!DirezioneValida(rec.SchemaDirezione)) return;
        const Punto v = EstremoVicino(s, d, i);
        DipingiTronco(s, d, t, i, v.x, v.y, rec.SchemaDirezione, s.LunghezzaDisegnata[static_cast<size_t>(i)], colore);
    };
    if (s.TroncoSelezionato > 0) ridipingi(s.TroncoSelezionato, Colore::BIANCO);
    ridipingi(tronco, Colore::ROSSO);
    s.TroncoSelezionato = tronco;
}

namespace {

// The arrow of direction `dir` with its base on (x, y), at the walk's factor.
struct Freccia2 {
    double x, y, w, h;
};
Freccia2 RettangoloFreccia(const StatoSchema& s, int16_t dir, double x, double y) {
    const FormatoImmagine& img = Freccia(dir);
    const double f = static_cast<double>(s.SchemaFattore);
    const double w = f * img.larghezza, h = f * img.altezza;
    const double sx = PassoX(dir) < 0 ? x - w : (PassoX(dir) == 0 ? x - w / 2 : x);
    const double sy = PassoY(dir) < 0 ? y - h : (PassoY(dir) == 0 ? y - h / 2 : y);
    return {sx, sy, w, h};
}

bool Offerto(const Documento& d, int tronco) {
    return tronco >= 0 && tronco <= MAX_TRONCHI && d.T(tronco).SchemaDisegnato != 0;
}

}  // namespace

void DisegnaFrecceTronco(StatoSchema& s, const Documento& d, SchemaTarget& t) {
    s.RegioniDrop.Reset();
    constexpr double kCos = 0.924, kSen = 0.383;  // 22.5 degrees either side of the direction
    for (size_t k = 0; k < s.EstremiTronco.size(); ++k) {
        const EstremoLibero& e = s.EstremiTronco[k];
        if (!Offerto(d, e.tronco) || !DirezioneValida(e.direzione)) continue;
        const Freccia2 r = RettangoloFreccia(s, e.direzione, e.x, e.y);
        t.Immagine(Freccia(e.direzione).nome, r.x, r.y, r.w, r.h);
        // The wedge: from the far end to the arrow's outer end, turned either way.
        const double vx = PassoX(e.direzione) * r.w, vy = PassoY(e.direzione) * r.h;
        s.RegioniDrop.AddTriangle(Intero(e.x + vx * kCos - vy * kSen), Intero(e.y + vx * kSen + vy * kCos),
                                  Intero(e.x + vx * kCos + vy * kSen), Intero(e.y - vx * kSen + vy * kCos), e.x, e.y,
                                  static_cast<int16_t>(k + 1), "E" + NomeDirezione(e.direzione));
    }
}

void DisegnaFrecceUtenza(StatoSchema& s, const Documento& d, SchemaTarget& t) {
    s.RegioniDrop.Reset();
    for (size_t k = 0; k < s.EstremiUtenza.size(); ++k) {
        const EstremoLibero& e = s.EstremiUtenza[k];
        if (!Offerto(d, e.tronco) || !DirezioneValida(e.direzione)) continue;
        const Freccia2 r = RettangoloFreccia(s, e.direzione, e.x, e.y);
        t.Immagine(Freccia(e.direzione).nome, r.x, r.y, r.w, r.h);
        s.RegioniDrop.AddRectangle(Intero(r.x), Intero(r.y), Intero(r.x + r.w), Intero(r.y + r.h),
                                   static_cast<int16_t>(k + 1), "E" + NomeDirezione(e.direzione));
    }
}

float FattoreZoom(int zoom) { return static_cast<float>(std::pow(0.9, zoom)); }

int16_t LimitaZoom(int zoom) {
    return static_cast<int16_t>(zoom < ZOOM_MIN ? ZOOM_MIN : (zoom > ZOOM_MAX ? ZOOM_MAX : zoom));
}

ScalaVista Rescale(int16_t zoom) {
    ScalaVista v;
    v.scala = std::pow(0.9, LimitaZoom(zoom));
    v.percentuale = FormattaNumero(100.0 / v.scala, "###");
    v.maxVerticale = Intero(v.scala * 5370.0 / 10.0);
    v.maxOrizzontale = Intero(v.scala * 11000.0 / 10.0);
    v.grandeVerticale = Intero(v.maxVerticale / 10.0);
    v.grandeOrizzontale = Intero(v.maxOrizzontale / 10.0);
    v.piccoloVerticale = Intero(v.maxVerticale / 40.0);
    v.piccoloOrizzontale = Intero(v.maxOrizzontale / 40.0);
    return v;
}

}  // namespace fornax::schema
