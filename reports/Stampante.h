#pragma once
// The report on a printer. The pages are drawn with text and lines in twips, cell by cell,
// and every page decision is taken from the printer's current vertical position. The drawing
// goes to a device: a real printer or a PDF file on the desktop, a recording device in the
// tests.

#include <functional>
#include <string>
#include <string_view>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "reports/Stampa.h"

namespace fornax {

class Avanzamento;
class Messaggi;
namespace schema {
class SchemaTarget;
}

// The font in force: name, size in points, bold, italic.
struct Carattere {
    std::string nome = "Arial";
    double dimensione = 9;
    bool grassetto = false;
    bool corsivo = false;
};

// What the report needs of a printer. All lengths are twips (1440 to the inch) from the top
// left corner of the paper; the report's own scale and current position are kept above it.
// A device fails by throwing (std::exception): the run then ends with the product's message.
class DispositivoStampa {
public:
    virtual ~DispositivoStampa() = default;
    // The paper in the current orientation.
    virtual int Larghezza() const = 0;
    virtual int Altezza() const = 0;
    // False when the device lacks the font: it then keeps the one it has.
    virtual bool ImpostaFont(const Carattere& c) = 0;
    virtual double LarghezzaTesto(std::string_view testo) const = 0;
    virtual double AltezzaTesto(std::string_view testo) const = 0;
    // Text whose box has its top left corner at x, y.
    virtual void Testo(double x, double y, std::string_view testo) = 0;
    virtual void Linea(double x1, double y1, double x2, double y2) = 0;
    // A picture file (the logo) at x, y in its own size.
    virtual void Immagine(double x, double y, double larghezza, double altezza, const std::string& file) = 0;
    virtual void NuovaPagina() = 0;
    virtual void FineDocumento() = 0;
    // 1 portrait, 2 landscape; false when the device refuses.
    virtual bool ImpostaOrientamento(int orientamento) = 0;
    // The schema's surface on the page in progress: twips from the paper's corner, the size of
    // the paper, black on white. The page begins with it.
    virtual schema::SchemaTarget& SuperficieSchema() = 0;
};

// The printable area the user chose (settings "X-percent", "Y-percent"): 0 or absent is 100.
struct ProporzioniPagina {
    int PercentoX = 100;
    int PercentoY = 100;
};

// The page geometry in the report's scale, worked out before the first page and again after a
// change of orientation.
struct GeometriaPagina {
    int AltezzaStampa = 0;    // (height - 100) x PercentoY / 100
    int LarghezzaStampa = 0;  // (width - 2000) x PercentoX / 100
    int FondoPagina = 0;      // AltezzaStampa - 2000: where the footer stands
    int CimaPagina = 800;     // where the body of a page begins
    int SogliaSezione = 0;    // 75 % of the height: a section that would start below starts a page
    double ScaleLeft = 0;     // the drawing centred: (LarghezzaStampa - width) / 2
    double ScaleTop = -600;
};
GeometriaPagina ImpostaPagina(int larghezza, int altezza, const ProporzioniPagina& p);

// The landscape page of the schema, drawn on the device when the schema's painting is given:
// `adatta` scales the drawing to the page (the dialog's "Adatta lo schema alla pagina").
struct PaginaSchemaStampa {
    DispositivoStampa& dispositivo;
    const GeometriaPagina& geometria;
    bool adatta;
};
using StampaSchema = std::function<void(const PaginaSchemaStampa&)>;

// The schema page of the document: the schema's painting for paper on the device's surface
// (fitted to the page when asked), then the caption: the reference cut to 70 characters,
// " - Rete: " and the project's file name, Arial 11, at the foot of a fitted drawing, at the
// top left otherwise. `nomeFont` and `dimensioneFont` are those of the labels (the preview's).
StampaSchema PaginaSchema(Documento& d, const Archivi& a, Messaggi& msg, const std::string& nomeFont = "Arial",
                          double dimensioneFont = 7);
// The caption of the schema page.
std::string DidascaliaSchema(const Documento& d);

struct OpzioniStampante {
    OpzioniStampa stampa;  // selection, date, firm, version, logo
    ProporzioniPagina proporzioni;
    std::string fileLogo;       // logo.bmp of the program's folder, when stampa.logo is set
    bool adattaSchema = false;  // AdaptSchemaToPage, for this run only
    StampaSchema schema;        // empty: the schema page is not drawn
};

struct EsitoStampante {
    bool riuscita = true;
    int pagine = 0;     // pages drawn
    int documenti = 0;  // documents ended
};

// The product's texts of the printer.
constexpr const char* PAGINA_TROPPO_GRANDE = "La pagina e' troppo grande. Selezionare un formato piu' piccolo";
constexpr const char* ERRORE_DI_STAMPA = "Errore di stampa, verificare le impostazioni";
constexpr const char* LANDSCAPE_IMPOSSIBILE = "Impossibile impostare modalita' landscape";
std::string FontNonDisponibile(const std::string& nome);

// A whole run on the device: the calculation, then the sections chosen, in the report's
// order. Failures are shown through `msg` and end the run; what reached the device stays.
EsitoStampante Print(Documento& d, Archivi& a, const OpzioniStampante& o, DispositivoStampa& dev, Avanzamento& av,
                     Messaggi& msg);

// Text cut into lines of at most `budget` characters, at blanks where it can.
std::vector<std::string> ACapo(std::string_view testo, int budget);

}  // namespace fornax
