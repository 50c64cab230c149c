#pragma once
// The two archive editors, "Gestione GAS" and "Gestione tubazioni", without their windows:
// the state each keeps (the record in view, its work copy, the mark of changes) and the
// operations behind their buttons. After start-up these are the only code that changes the
// gas table and the material table; what they write goes through the archive writers, so a
// refused or failed save leaves the file as it was.

#include <set>
#include <string>
#include <vector>

#include "archives/Archivi.h"

namespace fornax {

class Messaggi;

// ---- Gas editor ----

// The four input boxes of the gas editor as the user sees them (the viscosity in mm²/s) and
// the check "GAS non combustibile".
struct TestiGas {
    std::string densita;
    std::string viscosita;
    std::string pci;
    std::string pcs;
    bool nonCombustibile = false;
};

class EditorGas {
public:
    explicit EditorGas(Archivi& a);

    // The gas in view (1-based index of the table), 0 when the table is empty.
    int Indice() const { return indice_; }
    // The work copy shown by the boxes, derived values included.
    const GasRecord& Lavoro() const { return lavoro_; }
    // The input boxes as they show the work copy.
    TestiGas Testi() const;
    // Changes not saved yet: an input box or the check was changed.
    bool Modificato() const { return modificato_; }
    void SegnaModifica() { modificato_ = true; }

    // Shows gas `indice` (clamped to the table): the work copy takes the archive record and the
    // mark is cleared.
    void Mostra(int indice);
    // The boxes into the work copy; a box left as it was shown keeps the exact stored value.
    void Memorizza(const TestiGas& t);
    // "Ricalcola": the boxes into the work copy and its derived values computed again.
    void Ricalcola(const TestiGas& t, Messaggi& msg);
    // "Salva": refused with "Impossibile salvare il gas. Dati incompleti" unless GasValido;
    // otherwise the work copy goes into the table and GAS.CFG is written. A failed write puts
    // the table back as it was. True when the file was written.
    bool Salva(const TestiGas& t, Messaggi& msg);
    // "Nuovo": a gas of that name added to the table and shown; 0 (nothing added) for a name
    // that is empty after trimming.
    int Nuovo(const std::string& nome);
    // "Cancella": the gas of the project (`gasCorrente`) can't go; any other after a Yes goes
    // from GAS.CFG, which is read again. True when the gas was deleted.
    bool Cancella(const GasRecord& gasCorrente, Messaggi& msg);
    // Before the gas in view is left (another gas chosen, a new one, exit): with changes,
    // "Salvare le modifiche?" Yes / No / Cancel. False to stay on the gas in view (Cancel, or
    // Yes and the save refused).
    bool PrimaDiCambiare(const TestiGas& t, Messaggi& msg);
    // When the editor closes: gases added and never saved leave the table (GAS.CFG doesn't
    // hold them and they have no data).
    void Chiudi();

    // Names (upper case) of the gases saved while the editor was open.
    const std::set<std::string>& Salvati() const { return salvati_; }
    // The positions of the gases deleted, in the order they went (each counted in the table as
    // it was at that moment).
    const std::vector<int>& Cancellati() const { return cancellati_; }

private:
    bool Scrivi(Messaggi& msg);

    Archivi& a_;
    int indice_ = 0;
    GasRecord lavoro_;
    TestiGas mostrati_;
    bool modificato_ = false;
    std::set<std::string> salvati_;
    std::vector<int> cancellati_;
    std::set<int> nuovi_;  // gases added by "Nuovo" and not saved since
};

// After the gas editor, on the open project: when the record of the project's gas was saved,
// GasCorrente takes it again and the limit DpMax goes back to automatic (0); an internal
// installation whose gas doesn't burn gets its message. The project is marked modified.
// True when GasCorrente was replaced.
bool DopoGestioneGas(Documento& d, const Archivi& a, const std::set<std::string>& salvati, Messaggi& msg,
                     const std::vector<int>& cancellati = {});
// The substitutions the project chose among the gases follow deletions from the table.
void RinumeraSostituzioniGas(Sostituzioni& e, const std::vector<int>& cancellati);

// ---- Pipe-material editor ----

// Columns of the material grid.
namespace ColonnaMateriale {
constexpr int DN = 1;
constexpr int ESTERNO = 2;
constexpr int SPESSORE = 3;
constexpr int INTERNO = 4;
constexpr int PESO = 5;
}  // namespace ColonnaMateriale

class EditorMateriali {
public:
    explicit EditorMateriali(Archivi& a);

    int Indice() const { return indice_; }
    bool Modificato() const { return modificato_; }
    // True when a material was written while the editor was open.
    bool Salvato() const { return salvato_; }

    // Shows material `indice`: options, specific weight, description and its rows in the work
    // table; the mark is cleared.
    void Mostra(int indice);

    int16_t TipoFormula() const { return tipo_; }
    float PesoSpecifico() const { return peso_; }
    const std::string& Descrizione() const { return descrizione_; }
    void ImpostaTipoFormula(int16_t tipo);
    // The specific weight as typed; every row's weight per metre follows it.
    void ImpostaPesoSpecifico(const std::string& testo);
    void ImpostaDescrizione(const std::string& testo);

    // Rows of the grid: those of the work table and one empty row after them, at most 50.
    int RigheGriglia() const;
    // Rows of the work table.
    int RigheInUso() const { return static_cast<int>(righe_.size()); }
    // Row `r` (1-based) of the work table; an empty row past its end.
    RigaDiametro Riga(int r) const;
    // The text a cell shows (columns 1..5).
    std::string TestoCella(int r, int c) const;
    static bool Modificabile(int c) { return c >= ColonnaMateriale::DN && c <= ColonnaMateriale::SPESSORE; }
    // Enter on a cell: the value into the work table (a thickness of at least half the outer
    // diameter: "Spessore non compatibile", thickness 0), then inner diameter and weight per
    // metre of the row. Returns false when the cell can't be edited or the row is out of the
    // grid.
    bool ImpostaCella(int r, int c, const std::string& testo, Messaggi& msg);

    // "Salva": the work table into the material (rows with an empty DN dropped), its file
    // written, the derived columns computed again. A failed write puts the material back.
    bool Salva(Messaggi& msg);
    // "Nuovo" with the name the user typed: trimmed, in upper case, cut to 8 characters after
    // a Yes, refused when it exists or isn't a valid file name. Returns the index of the new
    // material (then shown, empty), 0 when nothing was added.
    int Nuovo(const std::string& risposta, Messaggi& msg);
    // "Cancella": after a Yes the file <name>.mat goes; the table keeps the material until the
    // next start. True when the file was deleted.
    bool Cancella(Messaggi& msg);
    // Before the material in view is left: with changes, "Salvare le modifiche?" Yes / No /
    // Cancel. False to stay (Cancel, or Yes and the write failed).
    bool CheckBeforeChange(Messaggi& msg);
    // When the editor closes: materials added and never saved leave the table.
    void Chiudi();

private:
    void Deriva(RigaDiametro& r) const;

    Archivi& a_;
    int indice_ = 0;
    int16_t tipo_ = 1;
    float peso_ = 0;
    std::string descrizione_;
    std::vector<RigaDiametro> righe_;  // 0-based work table
    bool modificato_ = false;
    bool salvato_ = false;
    std::set<int> nuovi_;  // materials added and not saved yet
};

}  // namespace fornax
