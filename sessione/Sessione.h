#pragma once
// One working session, free of any window: the open document, the calculation's work table,
// the leak-test page, the selection and zoom the pages share, the switches of the tool bar,
// the recent files and the work directory; and the operations on them: start-up loading of the
// archives, open, new, save, recalculate and report. The desktop, fornax-cli, the tests and the
// benchmarks all go through it, so a project opens and saves the same way everywhere.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "archives/Archivi.h"
#include "calc/Calcolo.h"
#include "core/Documento.h"
#include "core/FileTesto.h"
#include "editing/Cronologia.h"
#include "leaktest/RegoleTenuta.h"
#include "reports/Stampa.h"

namespace fornax {

class Messaggi;
class Avanzamento;
class Impostazioni;

// The list of recent files, kept in the user's settings under its section, keys Item1..ItemN.
class clsMRU {
public:
    explicit clsMRU(Impostazioni& impostazioni) : imp_(impostazioni) {}
    void AddItem(const std::string& nome);
    std::string GetItem(int i) const;  // 1-based; "" above the count
    void Load();
    void save();
    int SearchItem(const std::string& nome) const;  // 1-based position, 0 when absent
    void Setup(const std::string& sezione, int n);
    int Conteggio() const { return static_cast<int>(voci_.size()); }

private:
    Impostazioni& imp_;
    std::string sezione_;
    std::vector<std::string> voci_;
};

constexpr int ZOOM_MINIMO = -12;
constexpr int ZOOM_MASSIMO = 5;

struct Sessione {
    Sessione(Archivi& archivi, Impostazioni& impostazioni);

    Archivi& a;  // loaded at start-up; the session only reads it
    Impostazioni& imp;

    // The open project. Its address never changes: an open reads into a fresh document and
    // moves it in here only when the file was accepted, so the windows keep their reference.
    Documento d;
    // The sizing work table. Each open or new project starts a fresh one; what a pass leaves
    // behind stays for the next run, as the user sees it.
    std::unique_ptr<StatoCalcolo> calcolo = std::make_unique<StatoCalcolo>();
    // The leak-test page beside the record of the document: filled when a project is opened.
    StatoPaginaTenuta PaginaTenuta;
    // What the grid and the schema share.
    int TroncoSelezionato = 0;  // the section selected on the schema, 0 none
    int Zoom = 0;               // schema zoom level, held to ZOOM_MINIMO..ZOOM_MASSIMO

    clsMRU mru;
    int16_t AvvioCompletato = FALSO;
    int16_t CursorLocked = FALSO;
    int16_t RicalcoloAutomatico = VERO;
    int16_t MostraSuggerimenti = FALSO;
    std::string Titolo = "Fornax";  // title of the main window

    // The history of the edits of `d`: every named edit of editing/ runs inside a step of it
    // (PassoModifica). Opening, making or closing a project starts it afresh; saving marks
    // the saved point.
    Cronologia Storia;
};

// Undo and redo of the last step (the history's), false when there is none. The window
// recalculates and repaints afterwards, as after any edit.
bool Annulla(Sessione& s);
bool Ripristina(Sessione& s);

// Sets the zoom level, held to ZOOM_MINIMO..ZOOM_MASSIMO; returns the level in force.
int ImpostaZoom(Sessione& s, int livello);

// The archives of the program's folder, in the start-up order: materials, gases, limits (2008
// edition), fittings of an internal installation, family references, column table, default
// texts; then the first gas becomes the current one. False when the column table is missing:
// the program can't show or print any table without it. A headless run that prints no table
// passes colonneObbligatorie false, and a folder without the column file is then accepted.
bool CaricaArchivi(Archivi& a, Documento& d, const std::string& cartella, Avanzamento& av, Messaggi& msg,
                   bool colonneObbligatorie = true);
// The same for a session: the archives and its empty document.
bool CaricaArchivi(Sessione& s, const std::string& cartella, Avanzamento& av, Messaggi& msg,
                   bool colonneObbligatorie = true);

// Work directory of the file dialogs: "Recent"/"LastWorkDirectory", by default the folder
// "Archivio Lavori" of the program's folder.
std::string CartellaLavoro(const Impostazioni& imp, const std::string& cartellaProgramma);
// Stores the folder of a chosen file as the work directory (nothing for an empty path).
void RicordaCartellaLavoro(Impostazioni& imp, const std::string& percorsoFile);

// ---- The project ----

// Opens a project file: reads it into a fresh document and, only when the file is accepted,
// makes it the session's, with a fresh work table and the leak-test page filled (the firm's
// defaults into an empty firm, the record judged). A refused or missing file (the product's
// message has been shown) leaves the open document as it was. Marks nothing as modified but
// what reading itself marks (a substituted name).
bool ApriProgetto(Sessione& s, const std::string& percorso, Messaggi& msg, Avanzamento& av);
// The same from a file already open, the project named `percorso` (the name reports print).
bool ApriProgettoDa(Sessione& s, FileTesto& f, const std::string& percorso, Messaggi& msg, Avanzamento& av);

// A new empty project of either kind, with the fittings table of that kind. False (after the
// product's message) when EQLEN.CFG is missing for a pressure network: the document is then
// left as it was.
bool NuovoProgetto(Sessione& s, bool pressione, Messaggi& msg);

// Writes the project to `percorso` as every front end saves it: the leak-test record as the
// page holds it (a page never filled, as in a new project, is filled first, as opening fills
// it), judged once more by the writer with the capacity of the pipes of the network, written
// to a temporary file renamed over the target. The filling and the repairs saving
// makes (links past the last section) are done on a copy that becomes the document only when
// the write succeeded, so a failed save changes nothing in memory and leaves the old file.
bool SalvaProgetto(Sessione& s, const std::string& percorso, Messaggi& msg);

// One calculation of the open network with the session's work table. A calculation is not an
// edit: it leaves ReteModificata as it was.
void Ricalcola(Sessione& s, Messaggi& msg);

// A report written to a file (HTML, or text when `html` is false) from the open document. The
// run calculates first, as every report does; neither the calculation nor the report marks
// the project as modified, so previewing or printing never asks to save.
EsitoStampa RelazioneSuFile(Sessione& s, bool html, const OpzioniStampa& o, const std::string& percorso,
                            Avanzamento& av, Messaggi& msg, const SalvaSchema& schema = nullptr);

// ---- Closing and saving with the desktop's questions ----

// Asks for the name to save under; "" when the user cancels.
using ChiediNomeFile = std::function<std::string()>;

// Before the project is closed: offers to save it when modified. False when the user cancels.
bool ChiediSalvataggio(Sessione& s, Messaggi& msg, const ChiediNomeFile& chiediNome);
// Save (name given) and save as (empty name: asks for one). Returns the project's name after it.
std::string SalvaConNome(Sessione& s, const std::string& nome, Messaggi& msg, const ChiediNomeFile& chiediNome);
// Opens a project file and names the main window after it; "Il file selezionato non esiste"
// when it isn't there.
bool ApriFile(Sessione& s, const std::string& nome, Messaggi& msg, Avanzamento& av);

}  // namespace fornax
