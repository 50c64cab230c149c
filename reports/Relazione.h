#pragma once
// The calculation report ("Relazione di calcolo"): what each section of the report holds,
// worked out once from the document and the archives. The HTML, text and printer back ends
// only lay this content out; none of them reads a Tronco record by itself.

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "archives/Archivi.h"
#include "core/Documento.h"

namespace fornax {

// The eight sections a run may write, in the order of the print dialog's check boxes, which
// is also the order of the letters of the stored setting "SetStampe".
struct ReportSelection {
    bool Copertina = false;       // chkCopertina: cover
    bool Tronchi = false;         // ChkTronchi: table of sections
    bool DiagrammaRete = false;   // chkDiagrammaRete: schema of the network
    bool PDCLocalizzate = false;  // chkPDCLocalizzate: localised pressure losses
    bool Verifica = false;        // ChkVerifica: worst path
    bool Utenze = false;          // ChkUtenze: consumers
    bool Computo = false;         // ChkComputo: bill of pipes
    bool TenutaImpianto = false;  // ChkTenutaImpianto: leak-test record

    // "A" ticks a box, "B" leaves it clear; a missing letter is clear.
    static ReportSelection DaLettere(std::string_view lettere);
    std::string Lettere() const;  // eight letters
    static ReportSelection Completa();
    bool Qualcuna() const;
    // Any section that is written as text (all but the schema).
    bool AltreDalloSchema() const;
};

// Phases of a run; each has its own line in the error message.
namespace Fase {
constexpr int APERTURA = 1;
constexpr int COPERTINA = 2;
constexpr int TRONCHI = 3;
constexpr int PERDITE = 4;
constexpr int PERCORSO = 5;
constexpr int UTENZE = 6;
constexpr int COMPUTO = 7;
constexpr int TENUTA = 8;
constexpr int SCHEMA = 9;
}  // namespace Fase

// The error line of a phase ("Errore nella stampa della copertina.").
std::string TestoFase(int fase);

// A failure while a report is being worked out or written: the error's number and its own
// text, as the message box shows them ("Codice d'errore: 11", "Descrizione errore: ...").
class ErroreEsecuzione : public std::runtime_error {
public:
    ErroreEsecuzione(int codice, const std::string& descrizione) : std::runtime_error(descrizione), codice_(codice) {}
    int Codice() const { return codice_; }

private:
    int codice_;
};

namespace CodiceErrore {
constexpr int ARGOMENTO_NON_VALIDO = 5;
constexpr int OVERFLOW_ = 6;
constexpr int INDICE = 9;
constexpr int DIVISIONE_PER_ZERO = 11;
constexpr int IO = 57;
constexpr int AUTORIZZAZIONE = 70;
constexpr int ACCESSO = 75;
constexpr int PERCORSO = 76;
constexpr int INTERNO = 51;
}  // namespace CodiceErrore
[[noreturn]] void Fallisci(int codice);

// The text with at most `n` characters (not bytes: the texts are UTF-8). A negative count is
// the error of a run, as in every place where a report cuts a text.
std::string Sinistra(std::string_view testo, int n);
int NumeroCaratteri(std::string_view testo);
// The last `n` characters.
std::string Destra(std::string_view testo, int n);

// ---- Tables of sections ----

// A column of a report table: its field, weight, titles and pattern, and the width and
// character budget the file back ends give it. Titles and values stand whole in the model:
// each back end cuts them to its own budget (the printer measures its own).
struct ColonnaRelazione {
    int16_t id = 0;
    int16_t peso = 0;     // the column file's weight
    std::string titolo1;  // empty when the column file holds "."
    std::string titolo2;
    std::string formato;
    int larghezza = 0;  // millimetres of the file reports: weight x unit
    int budget = 0;     // characters of the file reports: Int(width / 2) - 1
};

struct RigaRelazione {
    int16_t sezione = 0;
    bool ultima = false;              // the row of the last section of the network (NumTronchi or beyond)
    std::vector<std::string> valori;  // one per column, laid out and trimmed; "" is a blank cell
};

// The line below the worst path and the consumers: its label and the value laid out by the
// pattern of one column, whose budget it is cut to.
struct TotaleRelazione {
    std::string etichetta;  // "TOTALE PERDITA DI PRESSIONE:", "TOTALE PORTATA GAS:"
    std::string valore;
    size_t colonna = 0;
};

struct TabellaRelazione {
    std::string titolo;
    std::vector<ColonnaRelazione> colonne;
    std::vector<RigaRelazione> righe;
    std::optional<TotaleRelazione> totale;
};

// Table numbers of the column file, by the kind of network.
struct TabelleRelazione {
    int tronchi, perdite, percorso, utenze;
};
TabelleRelazione NumeriTabelle(bool reteInPressione);

// The columns of a table of the column file, with the widths and budgets of the file
// reports: the page's 170 mm are shared out by weight, unit = 170 / sum of the weights, rounded.
std::vector<ColonnaRelazione> ColonneRelazione(const Archivi& a, int tabella);

TabellaRelazione TabellaTronchi(const Documento& d, const Archivi& a);
// The localised losses: one table for an internal installation, two for a pressure network
// (the fittings, then "Lunghezze equivalenti").
std::vector<TabellaRelazione> TabellePerdite(const Documento& d, const Archivi& a);
TabellaRelazione TabellaPercorso(const Documento& d, const Archivi& a);
TabellaRelazione TabellaUtenze(const Documento& d, const Archivi& a);

// ---- Cover ----

// The cover's values, each already laid out by its display pattern; the raw numbers stay
// beside them for a back end that lays them out its own way.
struct CopertinaRelazione {
    bool pressione = false;
    std::string titolo;       // "Schema di impianto interno gas" / "Rete gas in pressione"
    std::string riferimento;  // cut to 70 characters
    std::string lavoro;
    std::string normativa;  // "UNI7129 (1992)" / "UNI7129 (2008)"
    std::string tipoGas;
    std::string densita;  // "##0.###"
    int16_t famiglia = 0;
    std::string massaVolumica;  // " ##0.###"
    std::string viscosita;      // mm2/s, " ##0.##"
    std::string pci, pcs;       // " ##0.## MJ/mc"
    // Internal installation.
    std::string limitePa;       // " ##0  Pa"
    std::string limiteMbar;     // "##0.00 mbar"
    std::string portataTotale;  // flow of section 1, " ##0.0  Nmc/h"
    // Pressure network.
    std::string pressioneIniziale;     // " ##0.00  kPa"
    std::string pressioneInizialeBar;  // "##0.000 bar"
    std::string pressioneFinale;
    std::string pressioneFinaleBar;
    std::string velocitaImpostata;     // " ##0.0  m/s"
    std::string velocitaCalcolata;     // " ##0.00  m/s"
    std::string portataNominale;       // flow of section 1 undone of its contemporaneity
    std::string portataContemporanea;  // flow of section 1

    // Raw values.
    double limite = 0, pIniziale = 0, pFinale = 0, velMax = 0, velCalcolata = 0;
    double qTotale = 0, qContemporanea = 0;
};

CopertinaRelazione Copertina(const Documento& d);

// ---- Bill of pipes ----

struct MaterialeComputo {
    std::string nome;
    std::string descrizione;
    bool acciaio = false;                                       // kind 1: its weight is printed
    std::string peso;                                           // "#######0"
    std::vector<std::pair<std::string, std::string>> diametri;  // DN (whole name), metres "###0.0"
};

struct ComputoRelazione {
    std::vector<MaterialeComputo> materiali;  // those with a length
    std::string pesoAcciaio;                  // "" unless the steel total is above 0
};

// Bills the network (slot 1) and lays the totals out with the names of the material table.
ComputoRelazione Computo(const Documento& d, const Archivi& a);

// ---- Leak-test record ----

struct VoceTenuta {
    enum class Tipo {
        Spazio,        // a blank line
        Titolo,        // the section's title
        Intestazione,  // a heading in bold
        Riga,          // a plain line
        Elenco,        // a list in two columns (HTML), one item a line (text)
        Apparecchi,    // the appliance counts: "n° " count, then label
        Firme,         // the two signature captions side by side
    };
    Tipo tipo = Tipo::Riga;
    std::string testo;
    std::vector<std::string> elementi;                        // Elenco, Firme
    std::vector<std::pair<std::string, std::string>> coppie;  // Apparecchi
};

// The record as it stands in the document, in the order it is printed. `nomeGas` is the
// name of the current gas.
std::vector<VoceTenuta> TenutaRelazione(const VerificaTenuta& r, const std::string& nomeGas);

// ---- Titles ----
constexpr const char* TITOLO_TRONCHI = "Tabella dati tronchi";
constexpr const char* TITOLO_PERDITE = "Perdite di carico localizzate";
constexpr const char* TITOLO_LUNGHEZZE = "Lunghezze equivalenti";
constexpr const char* TITOLO_PERCORSO = "Analisi percorso più sfavorito";
constexpr const char* TITOLO_UTENZE = "Riepilogo utenze";
constexpr const char* TITOLO_COMPUTO = "Computo Tubazioni";
constexpr const char* TITOLO_TENUTA = "Verifica di tenuta dell'impianto in base alla normativa UNI 11137-1";
constexpr const char* SOTTOTITOLO_COPERTINA = "Relazione di calcolo";

}  // namespace fornax
