#pragma once
// The session: start-up loading of the archives, recent files, work directory, and the
// new / open / save operations, free of any window. The desktop supplies the dialogs.

#include <functional>
#include <string>
#include <vector>

#include "archives/Archivi.h"
#include "core/Documento.h"

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

struct Sessione {
    explicit Sessione(Impostazioni& impostazioni) : imp(impostazioni), mru(impostazioni) {}
    Impostazioni& imp;
    clsMRU mru;
    int16_t AvvioCompletato = FALSO;
    int16_t CursorLocked = FALSO;
    int16_t RicalcoloAutomatico = VERO;
    int16_t MostraSuggerimenti = FALSO;
    std::string Titolo = "Fornax";  // title of the main window
};

// The archives of the program's folder, in the start-up order: materials, gases, limits (2008
// edition), fittings of an internal installation, family references, column table, default
// texts; then the first gas becomes the current one. False when the column table is missing:
// the program can't show or print any table without it. A headless run that prints no table
// passes colonneObbligatorie false, and a folder without the column file is then accepted.
bool CaricaArchivi(Archivi& a, Documento& d, const std::string& cartella, Avanzamento& av, Messaggi& msg,
                   bool colonneObbligatorie = true);

// Work directory of the file dialogs: "Recent"/"LastWorkDirectory", by default the folder
// "Archivio Lavori" of the program's folder.
std::string CartellaLavoro(const Impostazioni& imp, const std::string& cartellaProgramma);
// Stores the folder of a chosen file as the work directory (nothing for an empty path).
void RicordaCartellaLavoro(Impostazioni& imp, const std::string& percorsoFile);

// Asks for the name to save under; "" when the user cancels.
using ChiediNomeFile = std::function<std::string()>;

// Before the project is closed: offers to save it when modified. False when the user cancels.
bool ChiediSalvataggio(Sessione& s, Documento& d, Archivi& a, Messaggi& msg, const ChiediNomeFile& chiediNome);
// Save (name given) and save as (empty name: asks for one). Returns the project's name after it.
std::string SalvaConNome(Sessione& s, Documento& d, Archivi& a, const std::string& nome, Messaggi& msg,
                         const ChiediNomeFile& chiediNome);
// Opens a project file; "Il file selezionato non esiste" when it isn't there.
bool ApriFile(Sessione& s, Documento& d, Archivi& a, const std::string& nome, Messaggi& msg, Avanzamento& av);

}  // namespace fornax
