#pragma once
// A run of the report to a file: the HTML file made to be printed on A4 from a browser, and
// the plain text file for other tools. Both calculate the network first, so that a report is
// never out of date, and write the sections chosen in the fixed order of the report.

#include <cstdint>
#include <functional>
#include <string>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "documento/Progetto.h"
#include "reports/Relazione.h"

namespace fornax {

class Avanzamento;
class Messaggi;

struct OpzioniStampa {
    ReportSelection selezione;
    std::string DataStampa;              // printed in every footer, "dd/mm/yyyy"
    std::string DittaRiga1, DittaRiga2;  // the user's firm, in every header
    std::string VersioneProgramma = VERSIONE_PROGRAMMA;
    bool logo = false;  // logo.bmp of the program's folder is used
};

// Writes the picture of the schema to the given path (a .bmp beside the report). The report
// only places it; the drawing belongs to the schema.
using SalvaSchema = std::function<void(const std::string& percorso)>;

struct EsitoStampa {
    bool riuscita = true;
    int fase = 0;             // Fase::...
    int codice = 0;           // the error's number
    std::string descrizione;  // the error's own text
};

// The run's error box text: the opening line ("Stampa su file HTML."), the phase's line,
// "Codice d'errore: " and "Descrizione errore: ", joined by line breaks.
std::string TestoErroreStampa(const std::string& apertura, const EsitoStampa& e);

// Size of a Windows bitmap in pixels, from its header; false when the file is not one.
bool DimensioniBmp(const std::string& percorso, int32_t& larghezza, int32_t& altezza);

// The logo of the program's folder: absent is no error; a picture larger than the header has
// room for is refused with the product's message. True when it is to be used.
bool ControllaLogo(const std::string& cartellaProgramma, Messaggi& msg);

// The two runs. The document is calculated first; the bill of pipes fills the totals of the
// material table. A failure stops the run and leaves the file as far as it was written.
// The schema is written only when `schema` is given.
EsitoStampa PrintHTMLFile(Documento& d, const Archivi& a, const OpzioniStampa& o, const std::string& percorso,
                          Avanzamento& av, Messaggi& msg, const SalvaSchema& schema = nullptr);
EsitoStampa PrintTXTFile(Documento& d, const Archivi& a, const OpzioniStampa& o, const std::string& percorso,
                         Avanzamento& av, Messaggi& msg, const SalvaSchema& schema = nullptr);

// The same runs with the product's closing boxes: "Conclusione" on success, "Errore" with the
// text above on failure.
bool StampaHTML(Documento& d, const Archivi& a, const OpzioniStampa& o, const std::string& percorso, Avanzamento& av,
                Messaggi& msg, const SalvaSchema& schema = nullptr);
bool StampaTXT(Documento& d, const Archivi& a, const OpzioniStampa& o, const std::string& percorso, Avanzamento& av,
               Messaggi& msg, const SalvaSchema& schema = nullptr);

// The question asked before a file of the same name is replaced.
constexpr const char* DOMANDA_SOVRASCRIVI =
    "Un file con lo stesso nome è gia presente nella cartella selezionata.\nSi desidera sovrascriverlo?";

// The chosen output: a file that exists is replaced only when the user answers Yes to the
// question above (title "Sovrascrivere"). False means the run ends silently.
bool UscitaConfermata(const std::string& percorso, Messaggi& msg);

}  // namespace fornax
