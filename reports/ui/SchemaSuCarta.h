#pragma once
// The schema through Qt for paper and files: the picture saved beside a report (SaveSchema),
// the pictures of the command line (PNG, SVG: the schema tab's layout on white) and the
// printer's question before the schema goes alone to paper (PrintSchema). No Qt in this
// header: the command line includes it.

#include <string>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "reports/Stampa.h"

namespace fornax {

class Messaggi;

// The picture beside a report: a landscape A4 page at 96 dots to the inch (1123 x 794 pixels),
// the printer's drawing, "Arial" 7, black on white.
constexpr double LARGHEZZA_IMMAGINE_SCHEMA = 16838;  // twips
constexpr double ALTEZZA_IMMAGINE_SCHEMA = 11906;
constexpr double DPI_IMMAGINE_SCHEMA = 96;

// SaveSchema: the picture in `percorso` (BMP, or PNG or SVG by its extension). False when the
// file could not be written.
bool SaveSchema(Documento& d, const Archivi& a, Messaggi& msg, const std::string& percorso);
// The same as the report's callback: a failure stops the run in the schema's phase.
SalvaSchema SalvaSchemaBmp(Documento& d, const Archivi& a, Messaggi& msg);

// The schema as the schema tab lays it out on a picture of `larghezza` x `altezza` twips at
// `zoom`, written to a PNG or SVG file (by its extension) on white, at 96 dots to the inch.
struct VistaSchemaFile {
    double larghezza = 19200, altezza = 9000;
    double schermoL = 12000, schermoA = 9000;
    int zoom = 0;
};
bool SalvaVistaSchema(Documento& d, const Archivi& a, Messaggi& msg, const VistaSchemaFile& v,
                      const std::string& percorso);

// The question before the schema alone goes to the printer.
constexpr const char* DOMANDA_STAMPA_SCHEMA = "Confermi la stampa dello schema grafico?";

}  // namespace fornax
