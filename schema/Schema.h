#pragma once
// The schema: the tree of sections placed on the plane and painted on a SchemaTarget.
//
// One walk (`DisegnaSchema`) runs two passes over the tree from the root. The measuring pass
// only counts logical columns and rows; from their spread and the picture's size the walk
// works out the default step SX of every section and shifts the origin so that the tree stays
// on the picture. The drawing pass paints the source, the sections, nodes and consumers, fills
// the hit regions, and writes back into each record its direction and far end. A section keeps
// a drawn length of its own (ID_SCHEMA_LEN) only when the user stretched it or the project
// brought one; a section at 0 is drawn with the step of each walk, so the schema refits the
// picture as sections are added and the window changes.
//
// All state of a walk lives in a StatoSchema, one per document view; two documents can be
// drawn side by side.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/Rete.h"
#include "schema/Direzioni.h"
#include "schema/HotRegions.h"
#include "schema/SchemaTarget.h"

namespace fornax {
class Messaggi;
struct Documento;
struct Archivi;
}  // namespace fornax

namespace fornax::schema {

// The reference screen of the normalisation, twips: the same layout on every computer.
constexpr double LARGHEZZA_SCHERMO = 12000;
constexpr double ALTEZZA_SCHERMO = 9000;
constexpr int16_t ZOOM_MIN = -12;
constexpr int16_t ZOOM_MAX = 5;
constexpr int32_t PASSO_DEFAULT = 800;

// Where the schema goes: the schema tab, the hidden pictures of the saved picture and of the
// preview, the printer.
enum class Superficie { Display, Print, Schema, Stampante };

// A place where an element may be attached: a new section (EstremiTronco) or a consumer
// (EstremiUtenza, whose turn code is always 1).
struct EstremoLibero {
    int16_t tronco = 0;
    int16_t direzione = 0;
    int16_t svolta = 0;
    int32_t x = 0;
    int32_t y = 0;
};

// One section as the drawing pass of the last walk placed it, in call order.
struct SezioneDisegnata {
    int16_t n = 0;
    int16_t direzione = 0;
    int32_t x = 0, y = 0;         // far end
    int32_t lunghezza = 0;        // length drawn (ID_SCHEMA_LEN, or SX when that is 0)
    int32_t lunghezzaUtente = 0;  // ID_SCHEMA_LEN of the record
};

// The figures of the last walk.
struct ParametriWalk {
    float Fattore = 1.0f;  // SchemaFattore
    int32_t B = 0;         // base unit
    int32_t W = 0, H = 0;  // work area, normalised to the reference screen
    int32_t SX = 0, SY = 0;
    int32_t X0 = 0, Y0 = 0;  // origin after the shift
    // Extremes of the logical counters as the measuring pass left them.
    int32_t ColonnaMin = 0, ColonnaMax = 0, RigaMin = 0, RigaMax = 0;
};

// The arguments of one DisegnaSchema call besides the surface.
struct ChiamataSchema {
    int16_t modo = 2;  // 2 a picture, 1 the printer pass
    Superficie superficie = Superficie::Display;
    std::optional<double> x0, y0, larghezza, altezza;
    std::string nomeFont = "Arial";
    double dimensioneFont = 7;
    std::string titolo;  // printed in orange above the source when not empty
};

// Rubber line of a stretch in progress.
struct ElasticoTronco {
    int32_t UltimoX = 0, UltimoY = 0;
    std::string UltimoTag;
};

struct StatoSchema {
    // `msg` shows the walk's messages (a full region table, a visit fault); it must outlive
    // the state.
    explicit StatoSchema(Messaggi& msg);
    StatoSchema(const StatoSchema&) = delete;
    StatoSchema& operator=(const StatoSchema&) = delete;

    Messaggi& msg;

    // Settings of the view, kept between walks.
    int16_t Zoom = 0;  // -12..5; a larger level zooms in
    double LarghezzaSchermo = LARGHEZZA_SCHERMO;
    double AltezzaSchermo = ALTEZZA_SCHERMO;
    int16_t SchemaInScala = FALSO;  // the printer report asked for a drawing to scale
    double SchemaScala = 1.0;       // the printer report's ratio

    // State of the last walk.
    int16_t SchemaDisegnaAttivo = FALSO;
    int16_t SchemaSuCarta = FALSO;
    float SchemaFattore = 1.0f;
    int32_t SchemaColore = Colore::BIANCO;
    int16_t SchemaColonna = 0;
    int16_t SchemaRiga = 0;
    int32_t SchemaColonnaMin = 0, SchemaColonnaMax = 0, SchemaRigaMin = 0, SchemaRigaMax = 0;
    // Bounding box of the far ends drawn by the last drawing pass; all 0 when none.
    int32_t SchemaXMin = 0, SchemaYMin = 0, SchemaXMax = 0, SchemaYMax = 0;
    std::vector<EstremoLibero> EstremiTronco;
    std::vector<EstremoLibero> EstremiUtenza;
    clsHotRegions RegioniClick, RegioniDrop, RegioniManiglia;
    // The length each section was drawn with in the last walk, and whether it was drawn.
    std::array<int32_t, MAX_TRONCHI + 1> LunghezzaDisegnata{};
    std::array<bool, MAX_TRONCHI + 1> Disegnato{};
    ParametriWalk Parametri;
    std::vector<SezioneDisegnata> Sezioni;
    int16_t TroncoSelezionato = 0;
    ElasticoTronco Elastico;

    // Internal to a walk.
    std::string NomeFont = "Arial";
    double DimensioneFont = 7;
    bool boxVuoto = true;
    std::array<uint32_t, MAX_TRONCHI + 1> entrato{};
    uint32_t giro = 0;
};

// What a walk works on.
struct ContestoSchema {
    StatoSchema& s;
    Documento& d;
    const Archivi& a;
    SchemaTarget& t;
};

// The walk: measuring pass, step and origin, drawing pass, free ends (on a picture).
void DisegnaSchema(StatoSchema& s, Documento& d, const Archivi& a, SchemaTarget& t, const ChiamataSchema& c);

// 0, 1 or 2: the non-zero links among ID_LEFT, ID_RIGHT.
int NumeroFigli(const Documento& d, int tronco);
// n = 1: ID_LEFT if non-zero, else ID_RIGHT; n = 2: ID_RIGHT. An n above NumeroFigli shows
// "Errore visita rete" and goes on; an n other than 1 or 2 gives 0.
int16_t Figlio(const Documento& d, int tronco, int n, Messaggi& msg);
// Direction of `figlio` under a parent running in direction `d`: its turn code when 1..8, else
// with `evita` the first turn to the left that is neither d nor evita, else straight on.
int16_t DirezioneFiglio(const Documento& d, int figlio, int16_t direzione, std::optional<int16_t> evita = {});

// The recursive visit of everything beyond `tronco`, whose far end is (x, y).
void VisitaRete(ContestoSchema& c, int tronco, int32_t x, int32_t y, int16_t direzione, int32_t lunghezzaDefault,
                int32_t lunghezzaSecondaria);
// One section from its near end (x, y): painted in the drawing pass, counted in both. Returns
// the point the walk goes on from: the far end of the bar. `coloreBarra` < 0 is the default.
struct Punto {
    int32_t x = 0, y = 0;
};
Punto DisegnaTronco(ContestoSchema& c, int tronco, int32_t x, int32_t y, int16_t direzione, int32_t lunghezzaDefault,
                    int32_t lunghezzaSecondaria, int32_t coloreBarra = -1);
// A junction's dot (drawing pass only).
void DisegnaNodo(ContestoSchema& c, double x, double y);
// The consumer at the far end (x, y) of `tronco` (drawing pass only).
void DisegnaUtenza(ContestoSchema& c, int32_t x, int32_t y, int16_t direzione, int16_t tipo, int tronco);
// Lists where a new section or a consumer may be attached.
void EstremiLiberi(StatoSchema& s, Documento& d);

// Near end of a section as the last walk drew it: its far end stepped back by the drawn length.
Punto EstremoVicino(const StatoSchema& s, const Documento& d, int tronco);
// Repaints the previously selected section white and `tronco` red (0: only the deselection),
// and remembers the selection. Records are not touched.
void SelezionaTronco(StatoSchema& s, const Documento& d, SchemaTarget& t, int16_t tronco);

// The arrows offered while a palette element is dragged over the picture: for a section at
// every free end, for a consumer at every free section end. Both fill RegioniDrop.
void DisegnaFrecceTronco(StatoSchema& s, const Documento& d, SchemaTarget& t);
void DisegnaFrecceUtenza(StatoSchema& s, const Documento& d, SchemaTarget& t);

// SchemaFattore of a view at zoom level `zoom`: the float 0.9^zoom.
float FattoreZoom(int zoom);
// The zoom level held to -12..5.
int16_t LimitaZoom(int zoom);
// What Rescale sets on the view for a zoom level: the scale of the picture (ScaleWidth and
// ScaleHeight are this times Width and Height), the percentage shown ("###"), and the two
// scroll bars' Max, LargeChange and SmallChange.
struct ScalaVista {
    double scala = 1.0;
    std::string percentuale;
    int32_t maxVerticale = 0, maxOrizzontale = 0;
    int32_t grandeVerticale = 0, grandeOrizzontale = 0;
    int32_t piccoloVerticale = 0, piccoloOrizzontale = 0;
};
ScalaVista Rescale(int16_t zoom);

}  // namespace fornax::schema
