#include "sessione/Sessione.h"

#include <algorithm>
#include <utility>

#include "archives/Default.h"
#include "archives/Gas.h"
#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "archives/Speciali.h"
#include "calc/Computo.h"
#include "core/Cartelle.h"
#include "core/Servizi.h"
#include "core/Testo.h"
#include "documento/Campi.h"
#include "documento/Progetto.h"
#include "leaktest/AperturaTenuta.h"

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

// ---- The session ----

Sessione::Sessione(Archivi& archivi, Impostazioni& impostazioni) : a(archivi), imp(impostazioni), mru(impostazioni) {}

int ImpostaZoom(Sessione& s, int livello) {
    s.Zoom = std::clamp(livello, ZOOM_MINIMO, ZOOM_MASSIMO);
    return s.Zoom;
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
    CaricaPdc(d.Pdc, cartella, 0, msg);
    VerificaDefaultPdc(d.Pdc);
    CaricaSpecialiInterni(d.Speciali);
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

bool CaricaArchivi(Sessione& s, const std::string& cartella, Avanzamento& av, Messaggi& msg, bool colonneObbligatorie) {
    return CaricaArchivi(s.a, s.d, cartella, av, msg, colonneObbligatorie);
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

// ---- The project ----

namespace {

// What a project just made or opened starts with: a fresh work table, nothing selected, the
// zoom as a new window shows it.
void NuovaPagina(Sessione& s) {
    s.calcolo = std::make_unique<StatoCalcolo>();
    s.PaginaTenuta = StatoPaginaTenuta{};
    s.TroncoSelezionato = 0;
    s.Zoom = 0;
}

}  // namespace

bool ApriProgetto(Sessione& s, const std::string& percorso, Messaggi& msg, Avanzamento& av) {
    FileTesto f;
    if (!EsisteFile(percorso) || !f.Apri(percorso)) {
        msg.Mostra("Il file selezionato non esiste");
        return false;
    }
    return ApriProgettoDa(s, f, percorso, msg, av);
}

bool ApriProgettoDa(Sessione& s, FileTesto& f, const std::string& percorso, Messaggi& msg, Avanzamento& av) {
    // The fresh document is the open one as closing leaves it: the network and the project's
    // texts blanked, what a file of an older version doesn't store (the norm edition) as the
    // session had it.
    auto nuovo = std::make_unique<Documento>(s.d);
    AzzeraRete(*nuovo, s.a.Default);
    if (!LeggiProgettoDa(f, *nuovo, s.a, percorso, msg, av) || nuovo->CaricamentoProgetto == FALSO) return false;
    s.d = std::move(*nuovo);
    NuovaPagina(s);
    ApriPaginaTenuta(s.d, s.a, s.PaginaTenuta, msg);
    s.Storia.Svuota(s.d);
    return true;
}

bool NuovoProgetto(Sessione& s, bool pressione, Messaggi& msg) {
    if (pressione) {
        if (!CaricaSpecialiPressione(s.d.Speciali, s.a.Cartella, msg)) return false;
    } else {
        CaricaSpecialiInterni(s.d.Speciali);
    }
    AzzeraRete(s.d, s.a.Default);
    s.d.ReteInPressione = pressione ? VERO : FALSO;
    s.d.OrientamentoSorgente = pressione ? 1 : 0;
    NuovaPagina(s);
    s.Storia.Svuota(s.d);
    return true;
}

bool SalvaProgetto(Sessione& s, const std::string& percorso, Messaggi& msg) {
    auto copia = std::make_unique<Documento>(s.d);
    StatoPaginaTenuta pagina = s.PaginaTenuta;
    // The writer stores the leak-test record as the page holds it. A project whose page was
    // never filled (a new one) has it filled now, as opening would: the firm's defaults into an
    // empty firm, the record judged. Then the writer judges it once more itself, with the
    // capacity of the pipes of the network as it stands.
    if (!pagina.inizializzata) ApriPaginaTenuta(*copia, s.a, pagina, msg);
    RinfrescaPaginaTenuta(*copia, s.a, pagina, msg);
    if (!ScriviProgetto(*copia, s.a, percorso, msg)) return false;
    s.d = std::move(*copia);
    s.PaginaTenuta = pagina;
    return true;
}

namespace {

// A section selected on the schema that an undo took away is no longer selected.
bool DopoStoria(Sessione& s, bool fatto) {
    if (fatto && s.TroncoSelezionato > s.d.NumTronchi()) s.TroncoSelezionato = 0;
    return fatto;
}

}  // namespace

bool Annulla(Sessione& s) { return DopoStoria(s, s.Storia.Annulla(s.d)); }

bool Ripristina(Sessione& s) { return DopoStoria(s, s.Storia.Ripristina(s.d)); }

void Ricalcola(Sessione& s, Messaggi& msg) { CalcolaRete(s.d, s.a, *s.calcolo, msg); }

EsitoStampa RelazioneSuFile(Sessione& s, bool html, const OpzioniStampa& o, const std::string& percorso,
                            Avanzamento& av, Messaggi& msg, const SalvaSchema& schema) {
    return html ? PrintHTMLFile(s.d, s.a, o, percorso, av, msg, schema)
                : PrintTXTFile(s.d, s.a, o, percorso, av, msg, schema);
}

// ---- Closing and saving with the desktop's questions ----

namespace {

// Saves the project; with an empty name asks for one. False when nothing was written.
bool Salva(Sessione& s, const std::string& nome, Messaggi& msg, const ChiediNomeFile& chiediNome) {
    Documento& d = s.d;
    bool scritto = false;
    if (!Trim(nome).empty()) {
        scritto = SalvaProgetto(s, nome, msg);
        if (scritto) {
            d.NomeFileProgetto = nome;
            d.ReteModificata = FALSO;
            s.mru.AddItem(nome);
            s.Storia.Salvato(d);
        }
    } else {
        const std::string scelto = chiediNome ? Trim(chiediNome()) : std::string();
        if (scelto.empty()) return false;
        scritto = SalvaProgetto(s, scelto, msg);
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

bool ChiediSalvataggio(Sessione& s, Messaggi& msg, const ChiediNomeFile& chiediNome) {
    if (s.d.ReteModificata != 0) {
        const int r = msg.Mostra("Salvare il progetto aperto", Box::YESNOCANCEL | Box::QUESTION);
        if (r == Risposta::CANCEL) return false;
        // A save that didn't happen (cancelled or failed) keeps the project open.
        if (r == Risposta::YES && !Salva(s, s.d.NomeFileProgetto, msg, chiediNome)) return false;
    }
    Reset(s.d.Equiv);
    AzzeraRete(s.d, s.a.Default);
    s.Storia.Svuota(s.d);
    s.Titolo = "Fornax  - " + s.d.NomeFileProgetto;
    return true;
}

std::string SalvaConNome(Sessione& s, const std::string& nome, Messaggi& msg, const ChiediNomeFile& chiediNome) {
    Salva(s, nome, msg, chiediNome);
    return s.d.NomeFileProgetto;
}

bool ApriFile(Sessione& s, const std::string& nome, Messaggi& msg, Avanzamento& av) {
    if (!EsisteFile(nome)) {
        msg.Mostra("Il file selezionato non esiste");
        return false;
    }
    const bool ok = ApriProgetto(s, nome, msg, av);
    if (ok) s.Titolo = "Fornax - " + s.d.NomeFileProgetto;
    return ok;
}

}  // namespace fornax
