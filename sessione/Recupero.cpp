#include "sessione/Recupero.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

#include "core/Cartelle.h"
#include "core/Servizi.h"
#include "core/Testo.h"
#include "documento/Progetto.h"
#include "leaktest/AperturaTenuta.h"
#include "sessione/Sessione.h"

namespace fornax {

namespace fs = std::filesystem;

namespace {

constexpr const char* PROGETTO = "recupero.rtg";
constexpr const char* NOTA = "recupero.txt";

// A write in the background shows nothing: a failure leaves the previous copy and is tried
// again at the next turn.
class MessaggiMuti final : public Messaggi {
public:
    int Mostra(const std::string&, int flags, const std::string&) override {
        return (flags & 0x0F) == Box::YESNO || (flags & 0x0F) == Box::YESNOCANCEL ? Risposta::NO : Risposta::OK;
    }
    int ScegliSostituto(const std::string&, int, const std::vector<std::string>&) override { return 0; }
};

// A small text file written beside its target and renamed over it.
bool ScriviNota(const std::string& percorso, const std::string& testo) {
    const std::string temporaneo = percorso + ".tmp";
    {
        std::ofstream f(temporaneo, std::ios::binary | std::ios::trunc);
        if (!f) return false;
        f << testo << '\n';
        f.flush();
        if (!f) return false;
    }
    std::error_code ec;
    fs::rename(temporaneo, percorso, ec);
    if (ec) fs::remove(temporaneo, ec);
    return !ec;
}

}  // namespace

std::string CartellaRecupero() {
    const char* xdg = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    const std::string base = xdg && *xdg ? xdg : (home && *home ? std::string(home) + "/.local/share" : "");
    return base.empty() ? std::string() : base + "/Fornax/Recupero";
}

Recupero::Recupero(std::string cartella) : cartella_(std::move(cartella)) {}

bool Recupero::Scrivi(const Sessione& s) {
    if (cartella_.empty()) return false;
    std::error_code ec;
    fs::create_directories(cartella_, ec);
    MessaggiMuti muti;
    // The copy is written as a save would write it (the leak-test page filled as opening fills
    // it), from a copy: the open document is not touched.
    auto copia = std::make_unique<Documento>(s.d);
    StatoPaginaTenuta pagina = s.PaginaTenuta;
    if (!pagina.inizializzata) ApriPaginaTenuta(*copia, s.a, pagina, muti);
    if (!ScriviNota(cartella_ + "/" + NOTA, s.d.NomeFileProgetto)) return false;
    if (!ScriviProgetto(*copia, s.a, cartella_ + "/" + PROGETTO, muti)) return false;
    scritta_ = true;
    return true;
}

void Recupero::Rimuovi() {
    if (cartella_.empty()) return;
    std::error_code ec;
    fs::remove(cartella_ + "/" + PROGETTO, ec);
    fs::remove(cartella_ + "/" + NOTA, ec);
    scritta_ = false;
    primaModifica_ = -1;
    // Unsaved work that begins after this gets its own copy as soon as the user pauses.
    ultimaScrittura_ = -1e300;
}

void Recupero::RimuoviPropria() {
    if (scritta_) Rimuovi();
}

bool Recupero::Controlla(const Sessione& s, double adesso) {
    if (s.d.ReteModificata == FALSO) {
        RimuoviPropria();
        primaModifica_ = -1;
        vista_ = false;
        return false;
    }
    const unsigned long long v = s.Storia.Versione();
    if (!vista_ || v != versioneVista_) {
        vista_ = true;
        versioneVista_ = v;
        ultimaModifica_ = adesso;
    }
    const bool superata = !scritta_ || versioneScritta_ != v;
    if (!superata) return false;
    if (primaModifica_ < 0) primaModifica_ = adesso;
    const bool dovuta = adesso - ultimaScrittura_ >= INTERVALLO_MINIMO &&
                        (adesso - ultimaModifica_ >= PAUSA || adesso - primaModifica_ >= ATTESA_MASSIMA);
    if (!dovuta || !Scrivi(s)) return false;
    versioneScritta_ = v;
    ultimaScrittura_ = adesso;
    primaModifica_ = -1;
    return true;
}

std::optional<CopiaRecupero> Recupero::Trova(const std::string& cartella) {
    if (cartella.empty()) return std::nullopt;
    const std::string progetto = cartella + "/" + PROGETTO;
    const std::string nota = cartella + "/" + NOTA;
    if (!EsisteFile(progetto) || !EsisteFile(nota)) return std::nullopt;
    std::ifstream f(nota, std::ios::binary);
    std::string nome;
    std::getline(f, nome);
    if (!nome.empty() && nome.back() == '\r') nome.pop_back();
    return CopiaRecupero{progetto, nome};
}

bool Recupero::Apri(Sessione& s, const CopiaRecupero& c, Messaggi& msg, Avanzamento& av) {
    if (!ApriProgetto(s, c.progetto, msg, av)) return false;
    s.d.NomeFileProgetto = c.nome;
    s.d.ReteModificata = VERO;
    s.Storia.Svuota(s.d);
    s.Titolo = "Fornax - " + s.d.NomeFileProgetto;
    return true;
}

std::string Recupero::Domanda(const CopiaRecupero& c) {
    const std::string nome = Trim(c.nome).empty() ? std::string("un progetto mai salvato") : NomeDi(c.nome);
    return "Recuperare il lavoro non salvato di " + nome + "?";
}

}  // namespace fornax
