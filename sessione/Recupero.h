#pragma once
// Never lose work: while the open project has unsaved changes, a copy of it is kept in the
// user's data folder, so that after a crash (the program killed, the machine switched off) the
// next start offers it back: "Recuperare il lavoro non salvato di …?".
//
// The copy is a project file (`recupero.rtg`, written to a temporary file and renamed, never
// over the user's own file) beside a note with the name of the user's file (`recupero.txt`).
// It is written at most every 30 seconds, and at least every 2 minutes of unsaved work; it is
// removed as soon as nothing is unsaved (a save, an undo back to the saved state, a project
// closed or left without saving) and when the program ends normally. Fornax runs one session
// per user, so one copy per user is all there is.

#include <optional>
#include <string>

namespace fornax {

struct Sessione;
class Messaggi;
class Avanzamento;

// $XDG_DATA_HOME/Fornax/Recupero (~/.local/share/Fornax/Recupero); "" when neither is known.
std::string CartellaRecupero();

// What a crashed session left.
struct CopiaRecupero {
    std::string progetto;  // the recovery copy
    std::string nome;      // the user's file it belongs to, "" for a project never saved
};

class Recupero {
public:
    static constexpr double INTERVALLO_MINIMO = 30;  // s between two writes at least
    static constexpr double ATTESA_MASSIMA = 90;     // s of unsaved work before a write at most
    static constexpr double PAUSA = 5;               // s without edits: a good moment to write

    explicit Recupero(std::string cartella);

    // Called on a timer (and after a save, an open, a close) with the time in seconds from any
    // fixed origin: writes the copy when it is out of date and due, removes it when nothing is
    // unsaved. True when a copy was written.
    bool Controlla(const Sessione& s, double adesso);
    // Writes the copy now. False when it could not be written (the old copy, if any, stays).
    bool Scrivi(const Sessione& s);
    // Removes the copy (a normal end of the program, a crashed session's copy declined).
    void Rimuovi();
    // Removes the copy only if this session wrote it: a crashed session's copy stays until the
    // user has answered about it.
    void RimuoviPropria();

    // The copy a crashed session left in `cartella`, if any.
    static std::optional<CopiaRecupero> Trova(const std::string& cartella);
    // Opens it as the session's project: under the user's file name, marked modified, with a
    // fresh history. False (after the product's message) when the copy can't be read.
    static bool Apri(Sessione& s, const CopiaRecupero& c, Messaggi& msg, Avanzamento& av);
    // The question asked at start-up.
    static std::string Domanda(const CopiaRecupero& c);

    const std::string& Cartella() const { return cartella_; }

private:
    std::string cartella_;
    bool scritta_ = false;  // a copy of this session is on disk
    unsigned long long versioneScritta_ = 0;
    unsigned long long versioneVista_ = 0;
    bool vista_ = false;
    double ultimaScrittura_ = -1e300;
    double ultimaModifica_ = 0;
    double primaModifica_ = -1;  // first change not yet in the copy, -1 none
};

}  // namespace fornax
