#pragma once
// The schema on paper: the printer's landscape page, the picture saved beside a report and the
// preview before printing draw it black on white through the printer's walk. A walk writes the
// drawing fields of the records (direction, far end); a drawing for paper leaves them as the
// schema tab placed them, so that the tab's selection and stretches go on from its own layout.

#include <string>

#include "schema/Schema.h"
#include "schema/TargetRegistrato.h"

namespace fornax::schema {

// A box in twips; vuoto when nothing was drawn.
struct Riquadro {
    double xMin = 0, yMin = 0, xMax = 0, yMax = 0;
    bool vuoto = true;
    double Larghezza() const { return vuoto ? 0 : xMax - xMin; }
    double Altezza() const { return vuoto ? 0 : yMax - yMin; }
};

// Everything a recording surface drew since its last clearing: texts by the surface's own
// measure, pictures, circles, rectangles and lines.
Riquadro Ingombro(const TargetRegistrato& t);

struct OpzioniCarta {
    Superficie superficie = Superficie::Stampante;  // Stampante and Print: the printer's walk
    // The report's "Adatta lo schema alla pagina": the drawing is scaled to the page.
    bool adatta = false;
    std::string nomeFont = "Arial";
    double dimensioneFont = 7;
    // Where a fitted drawing must stay, twips from the paper's corner: the margins all round and
    // the room kept at the foot for the caption.
    double margine = 500;
    double piede = 1600;
};

struct EsitoCarta {
    bool inScala = false;  // SchemaInScala of the walk
    double scala = 1.0;    // SchemaScala the page asked for
    float fattore = 1.0f;  // SchemaFattore of the drawing
};

// The ratio that fits the drawing's far ends into the page less 1000 twips in each axis; an
// axis without extent does not limit it.
double ScalaPagina(double larghezzaDisegno, double altezzaDisegno, double larghezzaPagina, double altezzaPagina);

// One drawing of the schema on `t` for paper. With `adatta` the ratio of the page to the box of
// the far ends sets the scale, then the scale goes down by tenths until everything drawn
// (labels and consumers too) has room inside the margins, and the drawing is centred there;
// without, the drawing keeps its own size and is moved inside the margins where it has room.
EsitoCarta DisegnaSuCarta(StatoSchema& s, Documento& d, const Archivi& a, SchemaTarget& t, const OpzioniCarta& o);

}  // namespace fornax::schema
