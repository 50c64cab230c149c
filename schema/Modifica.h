#pragma once
// Editing the network on the schema with the mouse, without the window: which element a click
// finds, what a palette drop on a free end creates, the stretch of a section by its handle,
// the turn of the source. Functions that only read return what to do; the functions that
// change the document are named for the change (Applica..., Aggiungi..., Ruota...) and are
// the only writers here. The window forwards its events and repaints with DisegnaSchema.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "schema/Schema.h"

namespace fornax {
class Messaggi;
struct Documento;
}  // namespace fornax

namespace fornax::schema {

// Tags of the palette controls.
namespace TagPalette {
inline const std::string TRONCO = "TRONCO";
inline const std::string CALDAIA = "CALDAIA";
inline const std::string BRUCIATORE = "BRUCIATORE";
inline const std::string CONVETTORE = "CONVETTORE";
inline const std::string FORNELLO = "FORNELLO";
}  // namespace TagPalette

// What a drag entering the picture paints: the arrows of the sections' free ends, those of the
// consumers' free ends, or nothing. Call DisegnaFrecceTronco / DisegnaFrecceUtenza accordingly.
enum class FrecceDrag { Nessuna, Tronco, Utenza };
FrecceDrag FrecceDaTag(const std::string& tagPalette);

// The consumer dialogs.
enum class DialogoUtenza { Cportata, Portata };  // frmCportata (internal), frmPortata (pressure)

struct AzioneDrop {
    enum class Tipo {
        Rifiutato,    // the table holds 400 sections: the message has been shown, nothing else
        Ridisegna,    // outside every arrow: repaint the schema to wipe the arrows
        Nessuna,      // an arrow was hit, but the tag asks for nothing
        NuovoTronco,  // a new section under `padre` with turn code `svolta`
        Utenza,       // a consumer of kind `tipoUtenza` on the free end of `tronco`
    };
    Tipo tipo = Tipo::Nessuna;
    int32_t x = 0, y = 0;  // the drop point, whole twips
    int16_t padre = 0;
    int16_t svolta = 0;
    int16_t tronco = 0;
    int16_t tipoUtenza = 0;
    DialogoUtenza dialogo = DialogoUtenza::Cportata;
};

// A palette element dropped at (x, y) on the picture, with RegioniDrop as the last drag filled
// it. The section limit is tested first, for a consumer too ("Raggiunto il massimo numero di
// tronchi.").
AzioneDrop CercaDrop(const StatoSchema& s, const Documento& d, double x, double y, const std::string& tagPalette,
                     Messaggi& msg);

// The new section of a drop: NuovoTronco under the entry's section, with the entry's turn code.
// Returns the new index, or 0 when the parent already has two derivations (its message shown by
// NuovoTronco). Then recalculate and repaint.
int16_t AggiungiTroncoDaDrop(Documento& d, const AzioneDrop& a, const std::vector<std::string>& nomiMateriali,
                             const std::string& materialeDefault, Messaggi& msg);
// A consumer dropped on a free end: its kind is set before the dialog opens, and stays when the
// dialog is cancelled.
void ImpostaTipoUtenzaDrop(Documento& d, const AzioneDrop& a);
// The consumer dialog confirmed after a drop: flow of the consumer and of the section, kind and
// composition.
void ApplicaUtenzaDrop(Documento& d, int16_t tronco, float portata, int16_t tipologia, const std::string& composizione);

// A click: the section under the point (tag "T"), else 0. A consumer or the source selects
// nothing.
int16_t TroncoCliccato(const StatoSchema& s, double x, double y);

struct AzioneDoppioClick {
    enum class Tipo { Nessuna, Utenza, Tronco, Sorgente };
    Tipo tipo = Tipo::Nessuna;
    int16_t tronco = 0;
    DialogoUtenza dialogo = DialogoUtenza::Cportata;
};
// A double click: the consumer dialog of a section, the section's panel, or the source's turn.
AzioneDoppioClick DoppioClick(const StatoSchema& s, const Documento& d, double x, double y);
// The consumer dialog of a double click confirmed: flow, kind and, from frmCportata, the
// composition; in an internal installation the imposed drop goes back to automatic.
void ApplicaUtenzaDoppioClick(Documento& d, int16_t tronco, float portata, int16_t tipologia,
                              const std::optional<std::string>& composizione);
// The source turned by a quarter: OrientamentoSorgente + 1, modulo 4.
void RuotaSorgente(Documento& d);

// The platform's standard cursors the handles ask for.
namespace Puntatore {
constexpr int NORMALE = 0;
constexpr int SPOSTA = 5;  // size-all, while a handle is dragged
constexpr int NE_SO = 6;
constexpr int N_S = 7;
constexpr int NO_SE = 8;
constexpr int O_E = 9;
constexpr int VIETATO = 12;  // the cursor left the picture's scale area
}  // namespace Puntatore

struct Maniglia {
    int16_t tronco = 0;  // 0 = none under the cursor
    std::string tag;     // the direction's name
    int puntatore = Puntatore::NORMALE;
};
// The stretch handle under the cursor (RegioniManiglia).
Maniglia CercaManiglia(const StatoSchema& s, double x, double y);

// A point of a handle's drag: held within the picture's scale area (ScaleLeft, ScaleTop,
// ScaleWidth, ScaleHeight), with the pointer to show: SPOSTA inside, VIETATO at an edge.
struct PuntoTrascinato {
    double x = 0, y = 0;
    int puntatore = Puntatore::SPOSTA;
};
PuntoTrascinato TieniNellArea(double x, double y, double sinistra, double alto, double larghezza, double altezza);

// The rubber line of a stretch in progress, from the near end of `tronco` to the cursor; the
// previous line is wiped in colour 0. Positions behind the near end are ignored.
void TrascinaLunghezza(StatoSchema& s, const Documento& d, SchemaTarget& t, int16_t tronco, double x, double y,
                       const std::string& tag);
// The length a stretch released at (x, y) gives `tronco`, in whole twips, or nothing when the
// position doesn't lengthen the section the way its tag runs.
std::optional<int32_t> NuovaLunghezza(const StatoSchema& s, const Documento& d, int16_t tronco, double x, double y,
                                      const std::string& tag);
// The stretch released: stores the new drawn length in ID_SCHEMA_LEN (ID_LEN is not touched).
// Returns whether anything was stored; then repaint with DisegnaSchema.
bool ApplicaLunghezza(Documento& d, const StatoSchema& s, int16_t tronco, double x, double y, const std::string& tag);

}  // namespace fornax::schema
