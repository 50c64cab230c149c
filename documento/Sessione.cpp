#include "documento/Sessione.h"

#include "archives/Default.h"
#include "archives/Gas.h"
#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "archives/Speciali.h"
#include "core/Cartelle.h"
#include "core/Servizi.h"
#include "core/Testo.h"
#include "documento/Campi.h"
#include "documento/Progetto.h"

namespace fornax {

// ---- Recent files ----

void clsMRU::AddItem(const std::string& nome) {
    if (voci_.empty()) return;
    const int p = SearchItem(nome);
    // The name goes to the top; those above its old place move down one, and without an old
    // place the last entry falls off.
    const size_t da = p > 0 ? static_cast<size_t>(p - 1) : voci_.size() - 1;
    for (size_t k = da; k > 0; --k) voci_[k] = voci_[k - 1];
    voci_[0] = nome;
    save();
}

std::string clsMRU::GetItem(int i) const {
    if (i < 1 || i > Conteggio()) return "";
    return voci_[static_cast<size_t>(i - 1)];
}

void clsMRU::Load() {
    for (size_t i = 0; i < voci_.size(); ++i) voci_[i] = imp_.Leggi(sezione_, "Item" + std::to_string(i + 1), "");
}

void clsMRU::save() {
    for (size_t i = 0; i < voci_.size(); ++i) imp_.Scrivi(sezione_, "Item" + std::to_string(i + 1), voci_[i]);
}

int clsMRU::SearchItem(const std::string& nome) const {
    for (size_t i = 0; i < voci_.size(); ++i)
        if (voci_[i] == nome) return static_cast<int>(i + 1);
    return 0;
}

void clsMRU::Setup(const std::string& sezione, int n) {
    sezione_ = sezione;
    voci_.assign(static_cast<size_t>(n > 0 ? n : 0), std::string());
}

// ---- Start-up ----

bool CaricaArchivi(Archivi& a, Documento& d, const std::string& cartella, Avanzamento& av, Messaggi& msg,
                   bool colonneObbligatorie) {
    a.Cartella = cartella;
    av.Testo("Inizializzazione...");
    AzzeraRete(d, a.Default);
    CaricaMateriali(a, av, msg);
    av.Passo(2);
    av.Testo("Caricamento archivio gas");
    CaricaGas(a, msg);
    CaricaPdc(a, 0, msg);
    VerificaDefaultPdc(a);
    CaricaSpecialiInterni(a);
    CaricaParFamGas(a);
    const bool colonne =
        (!colonneObbligatorie && !EsisteFile(TrovaFile(cartella, "gridgas.cne"))) || LeggiColonne(a, msg, av);
    LeggiDefault(a, msg);
    if (a.NumGas() > 0) {
        d.GasCorrente = a.Gas[1];
        if (Trim(a.Default.DefaultGas).empty()) a.Default.DefaultGas = a.Gas[1].Nome;
    } else {
        msg.Mostra(
            "L'archivio dei gas (GAS.CFG) e' vuoto o mancante nella cartella del programma: "
            "nessun calcolo e' possibile finche' non si inserisce almeno un gas.",
            Box::EXCLAMATION, "Errore");
    }
    AzzeraRete(d, a.Default);
    return colonne;
}

// ---- Work directory ----

std::string CartellaLavoro(const Impostazioni& imp, const std::string& cartellaProgramma) {
    const std::string predefinita = cartellaProgramma + "/Archivio Lavori";
    const std::string c = imp.Leggi("Recent", "LastWorkDirectory", "");
    return c.empty() ? predefinita : c;
}

void RicordaCartellaLavoro(Impostazioni& imp, const std::string& percorsoFile) {
    if (percorsoFile.empty()) return;
    const std::string cartella = CartellaDi(percorsoFile);
    if (cartella.empty()) return;
    imp.Scrivi("Recent", "LastWorkDirectory", cartella);
}

// ---- New, open, save ----

namespace {

// Saves the project; with an empty name asks for one. False when nothing was written.
bool Salva(Sessione& s, Documento& d, Archivi& a, const std::string& nome, Messaggi& msg,
           const ChiediNomeFile& chiediNome) {
    bool scritto = false;
    if (!Trim(nome).empty()) {
        scritto = ScriviProgetto(d, a, nome, msg);
        if (scritto) {
            d.NomeFileProgetto = nome;
            d.ReteModificata = FALSO;
            s.mru.AddItem(nome);
        }
    } else {
        const std::string scelto = chiediNome ? Trim(chiediNome()) : std::string();
        if (scelto.empty()) return false;
        scritto = ScriviProgetto(d, a, scelto, msg);
        if (scritto) {
            // Saving under a new name leaves the modified mark as it was.
            d.NomeFileProgetto = scelto;
            s.mru.AddItem(scelto);
            RicordaCartellaLavoro(s.imp, scelto);
        }
    }
    s.Titolo = "Fornax - " + d.NomeFileProgetto;
    return scritto;
}

}  // namespace

bool ChiediSalvataggio(Sessione& s, Documento& d, Archivi& a, Messaggi& msg, const ChiediNomeFile& chiediNome) {
    if (d.ReteModificata != 0) {
        const int r = msg.Mostra("Salvare il progetto aperto", Box::YESNOCANCEL | Box::QUESTION);
        if (r == Risposta::CANCEL) return false;
        // A save that didn't happen (cancelled or failed) keeps the project open.
        if (r == Risposta::YES && !Salva(s, d, a, d.NomeFileProgetto, msg, chiediNome)) return false;
    }
    Reset(a);
    AzzeraRete(d, a.Default);
    s.Titolo = "Fornax  - " + d.NomeFileProgetto;
    return true;
}

std::string SalvaConNome(Sessione& s, Documento& d, Archivi& a, const std::string& nome, Messaggi& msg,
                         const ChiediNomeFile& chiediNome) {
    Salva(s, d, a, nome, msg, chiediNome);
    return d.NomeFileProgetto;
}

bool ApriFile(Sessione& s, Documento& d, Archivi& a, const std::string& nome, Messaggi& msg, Avanzamento& av) {
    if (!EsisteFile(nome)) {
        msg.Mostra("Il file selezionato non esiste");
        return false;
    }
    const bool ok = LeggiProgetto(d, a, nome, msg, av);
    if (ok) s.Titolo = "Fornax - " + d.NomeFileProgetto;
    return ok;
}

}  // namespace fornax
