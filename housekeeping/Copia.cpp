#include "housekeeping/Copia.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <system_error>

#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/Servizi.h"
#include "core/Testo.h"

namespace fornax {

namespace fs = std::filesystem;

namespace {

constexpr const char* TITOLO_ARCHIVI = "Copia Archivi";
constexpr const char* TITOLO_PROGETTI = "Copia File di Progetto";

// The error as the log and the user read it: the system's number, an Italian description,
// the file concerned.
ErroreFile Errore(int numero, const std::string& percorso) {
    if (numero == 0) numero = EIO;
    std::string d;
    switch (numero) {
        case ENOENT:
            d = "File o cartella inesistente";
            break;
        case EACCES:
        case EPERM:
            d = "Permesso negato";
            break;
        case ENOSPC:
            d = "Spazio su disco esaurito";
            break;
        case EROFS:
            d = "Il disco è di sola lettura";
            break;
        case EISDIR:
            d = "Il percorso indica una cartella";
            break;
        case ENOTDIR:
            d = "Il percorso non indica una cartella";
            break;
        case EDQUOT:
            d = "Quota del disco superata";
            break;
        default:
            d = "Errore di lettura o scrittura";
            break;
    }
    return {numero, d + ": " + percorso};
}

// Why a file could not be written into its folder: the folder itself first, since a missing or
// read-only folder explains more than the last system call does.
ErroreFile ErroreScrittura(const std::string& percorso, int numero) {
    const std::string cartella = fs::path(percorso).parent_path().string();
    std::error_code ec;
    if (!cartella.empty() && !fs::is_directory(cartella, ec)) return Errore(ENOENT, cartella);
    if (!cartella.empty() && ::access(cartella.c_str(), W_OK) != 0) return Errore(errno, cartella);
    return Errore(numero, percorso);
}

// One file copied as the archives and projects are written: read as lines, written in
// Windows-1252 with CR LF line ends to a temporary file renamed over the target.
bool CopiaFile(const std::string& origine, const std::string& destinazione, ErroreFile& errore) {
    FileTesto f;
    errno = 0;
    if (!f.Apri(origine)) {
        errore = Errore(errno, origine);
        return false;
    }
    ScrittoreTesto w;
    while (!f.Fine()) w.Riga(f.RigaFisica());
    errno = 0;
    if (!w.Salva(destinazione)) {
        errore = ErroreScrittura(destinazione, errno);
        return false;
    }
    return true;
}

std::string DataOra() {
    const std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    char buf[32];
    std::strftime(buf, sizeof buf, "%d/%m/%Y %H:%M:%S", &tm);
    return buf;
}

// One line appended to the log beside the program. A log that can't be written is given up:
// the user has the message on the screen anyway.
void Registra(const std::string& cartellaProgramma, const std::string& nomeLog, const ErroreFile& e) {
    const std::string percorso = TrovaFile(cartellaProgramma, nomeLog);
    ScrittoreTesto w;
    FileTesto vecchio;
    if (EsisteFile(percorso) && vecchio.Apri(percorso)) {
        while (!vecchio.Fine()) w.Riga(vecchio.RigaFisica());
    }
    w.Riga(std::to_string(e.numero) + "   #   " + e.descrizione + "   #   " + DataOra());
    w.Salva(percorso);
}

std::string Assoluto(const std::string& cartella) {
    std::error_code ec;
    fs::path p = fs::absolute(fs::path(Trim(cartella)), ec);
    if (ec) return Trim(cartella);
    p = p.lexically_normal();
    std::string s = p.string();
    while (s.size() > 1 && s.back() == '/') s.pop_back();
    return s;
}

bool FinisceCon(const std::string& testo, const std::string& fine) {
    return testo.size() >= fine.size() && UgualiSenzaMaiuscole(testo.substr(testo.size() - fine.size()), fine);
}

std::string Estensione(const std::string& nome) {
    const size_t punto = nome.rfind('.');
    return punto == std::string::npos ? std::string() : nome.substr(punto);
}

// One run of either copy.
class Copia {
public:
    Copia(std::string da, std::string a, const std::string& cartellaProgramma, bool archivi, Messaggi& msg,
          DomandeCopia& domande)
        : da_(std::move(da)),
          a_(std::move(a)),
          programma_(cartellaProgramma),
          archivi_(archivi),
          msg_(msg),
          domande_(domande) {}

    RiepilogoCopia r;

    // Steps 2 to 5 for one file of the source; false when the run stops.
    bool Uno(const std::string& nome, const std::string& origine) {
        std::string bersaglio = nome;
        for (;;) {
            const std::string percorso = TrovaFile(a_, bersaglio);
            if (!EsisteFile(percorso)) return Scrivi(origine, percorso, bersaglio, false);
            const bool gas = archivi_ && UgualiSenzaMaiuscole(bersaglio, "GAS.CFG");
            if (tutti_) return Scrivi(origine, percorso, bersaglio, gas);
            const int16_t risposta = domande_.Sovrascrivere(Domanda(bersaglio, gas));
            switch (risposta) {
                case RispostaCopia::No:
                    r.lasciati.push_back(bersaglio);
                    return true;
                case RispostaCopia::SiTutti:
                    tutti_ = true;
                    [[fallthrough]];
                case RispostaCopia::Si:
                    return Scrivi(origine, percorso, bersaglio, gas);
                case RispostaCopia::Rinomina: {
                    const std::string nuovo = Trim(domande_.NuovoNome(bersaglio));
                    if (nuovo.empty() || !ControllaNomeFile(nuovo).empty()) {
                        r.lasciati.push_back(bersaglio);
                        return true;
                    }
                    const std::string est = archivi_ ? Estensione(nome) : std::string(".RTG");
                    bersaglio = FinisceCon(nuovo, est) ? nuovo : nuovo + est;
                    continue;  // the new name may be taken too: the question comes again for it
                }
                default:
                    r.esito = EsitoCopia::Annullata;
                    return false;
            }
        }
    }

    // A copy error: logged beside the program, told to the user, and the run ends.
    bool Fallita(const ErroreFile& e) {
        r.esito = EsitoCopia::Errore;
        r.errore = e;
        Registra(programma_, archivi_ ? LOG_COPIA_ARCHIVI : LOG_COPIA_PROGETTI, e);
        msg_.Mostra(std::string(archivi_ ? "Si è verificato un errore durante la copia del file degli archivi."
                                         : "Si è verificato un errore durante la copia del file di progetto.") +
                        "\r\nNon è possibile completare l'operazione di copia.",
                    Box::CRITICAL, archivi_ ? TITOLO_ARCHIVI : TITOLO_PROGETTI);
        return false;
    }

private:
    static std::string Domanda(const std::string& nome, bool gas) {
        if (gas) {
            return "I gas presenti nel file GAS.CFG della cartella di provenienza verranno copiati all'interno del "
                   "file GAS.CFG della cartella di destinazione.\r\n"
                   "Se due gas hanno lo stesso nome verrà inserito il simbolo \"$$\" davanti al nome del gas "
                   "presente nel file della cartella di destinazione.";
        }
        return "La cartella di destinazione contiene già un file di nome " + nome +
               ".\r\nSovrascrivere il file esistente?";
    }

    bool Scrivi(const std::string& origine, const std::string& percorso, const std::string& bersaglio, bool gas) {
        ErroreFile e;
        if (gas) {
            if (!UnisciGas(da_, a_, e)) return Fallita(e);
            r.uniti.push_back(bersaglio);
            return true;
        }
        if (!CopiaFile(origine, percorso, e)) return Fallita(e);
        r.copiati.push_back(bersaglio);
        return true;
    }

    std::string da_, a_;
    std::string programma_;
    bool archivi_;
    Messaggi& msg_;
    DomandeCopia& domande_;
    bool tutti_ = false;
};

// A folder copied onto itself would merge the gas archive with itself and mark every gas.
constexpr const char* MESSAGGIO_STESSA_CARTELLA = "La cartella di provenienza e quella di destinazione coincidono.";

constexpr const char* MESSAGGIO_PROVENIENZA_MANCANTE = "La cartella di provenienza non esiste.";

bool Cartella(const std::string& percorso) {
    std::error_code ec;
    return fs::is_directory(Assoluto(percorso), ec);
}

bool StessaCartella(const std::string& x, const std::string& y) {
    std::error_code ec;
    const bool uguali = fs::equivalent(Assoluto(x), Assoluto(y), ec);
    return !ec && uguali;
}

bool RigaDiGas(const std::string& riga) { return !Trim(riga).empty() && riga[0] != '#'; }

// The name of the gas a line of GAS.CFG holds, as the program looks gases up: without regard to
// case or to the blanks around it.
std::string NomeGas(const std::string& riga) {
    std::vector<std::string> campi;
    SeparaCampi(riga, campi);
    return Maiuscolo(Trim(campi[0]));
}

}  // namespace

int16_t DomandeCopiaRegistrate::Sovrascrivere(const std::string& domanda) {
    domande.push_back(domanda);
    if (risposte.empty()) return RispostaCopia::Annulla;
    const int16_t r = risposte.front();
    risposte.pop_front();
    return r;
}

std::string DomandeCopiaRegistrate::NuovoNome(const std::string& nomeAttuale) {
    rinominati.push_back(nomeAttuale);
    if (nomi.empty()) return {};
    std::string n = nomi.front();
    nomi.pop_front();
    return n;
}

std::string ControllaCartelleArchivi(const std::string& da, const std::string& a) {
    const bool senzaDa = Trim(da).empty();
    const bool senzaA = Trim(a).empty();
    if (senzaDa && senzaA)
        return "Inserire un valore sia per la directory\r\ndi provenienza che per quella di destinazione.";
    if (senzaDa) return "Inserire un valore per la directory di provenienza.";
    if (senzaA) return "Inserire un valore per la directory di destinazione.";
    // A mistyped folder gets one message, not a note for each of the ten archives.
    if (!Cartella(da)) return MESSAGGIO_PROVENIENZA_MANCANTE;
    if (!Cartella(a)) return "La cartella di destinazione non esiste.";
    return StessaCartella(da, a) ? MESSAGGIO_STESSA_CARTELLA : std::string();
}

std::string ControllaCartellaProgetti(const std::string& da, const std::string& cartellaLavoro) {
    if (Trim(da).empty()) return "Inserire un valore per la directory di provenienza.";
    if (!Cartella(da)) return MESSAGGIO_PROVENIENZA_MANCANTE;
    return StessaCartella(da, CartellaArchivioLavori(cartellaLavoro)) ? MESSAGGIO_STESSA_CARTELLA : std::string();
}

std::string ControllaNomeFile(const std::string& nome) {
    const std::string n = Trim(nome);
    if (n.empty()) return "E' necessario inserire un nome per il file.";
    if (n == "." || n == ".." || n.find_first_of("\\/:*?\"<>|") != std::string::npos)
        return "Il nome del file non può contenere i caratteri \\ / : * ? \" < > |";
    return {};
}

RiepilogoCopia CopiaArchivi(const std::string& da, const std::string& a, const std::string& cartellaProgramma,
                            Messaggi& msg, DomandeCopia& domande) {
    Copia c(Assoluto(da), Assoluto(a), cartellaProgramma, true, msg, domande);
    const std::string origine = Assoluto(da);
    for (const char* nome : ARCHIVI_DA_COPIARE) {
        const std::string sorgente = TrovaFile(origine, nome);
        if (!EsisteFile(sorgente)) {
            c.r.mancanti.emplace_back(nome);
            msg.Mostra(std::string("Il file ") + nome +
                           " non verrà copiato \r\npoichè non è presente nella cartella di provenienza.",
                       Box::INFORMATION, TITOLO_ARCHIVI);
            continue;
        }
        if (!c.Uno(nome, sorgente)) break;
    }
    return c.r;
}

bool UnisciGas(const std::string& da, const std::string& a, ErroreFile& errore) {
    const std::string sorgente = TrovaFile(da, "GAS.CFG");
    const std::string destinazione = TrovaFile(a, "GAS.CFG");
    FileTesto fd;
    FileTesto fa;
    errno = 0;
    if (!fd.Apri(sorgente)) {
        errore = Errore(errno, sorgente);
        return false;
    }
    errno = 0;
    if (!fa.Apri(destinazione)) {
        errore = Errore(errno, destinazione);
        return false;
    }
    std::vector<std::string> righeDa;
    while (!fd.Fine()) righeDa.push_back(fd.RigaFisica());
    std::vector<std::string> nomiDa;
    for (const auto& riga : righeDa)
        if (RigaDiGas(riga)) nomiDa.push_back(NomeGas(riga));

    // The destination's gases that the source brings again keep their place under a "$$" name,
    // so that neither version is lost and a project still finds the one it was made with.
    ScrittoreTesto w;
    while (!fa.Fine()) {
        std::string riga = fa.RigaFisica();
        if (RigaDiGas(riga)) {
            const std::string nome = NomeGas(riga);
            for (const auto& n : nomiDa) {
                if (n == nome) {
                    riga = "$$" + riga;
                    break;
                }
            }
        }
        w.Riga(riga);
    }
    for (const auto& riga : righeDa) w.Riga(riga);
    errno = 0;
    if (!w.Salva(destinazione)) {
        errore = ErroreScrittura(destinazione, errno);
        return false;
    }
    return true;
}

std::string CartellaArchivioLavori(const std::string& cartellaLavoro) {
    std::string c = cartellaLavoro;
    while (c.size() > 1 && c.back() == '/') c.pop_back();
    if (UgualiSenzaMaiuscole(fs::path(c).filename().string(), "Archivio Lavori")) return c;
    return (fs::path(c) / "Archivio Lavori").string();
}

RiepilogoCopia CopiaProgetti(const std::string& da, const std::string& cartellaLavoro,
                             const std::string& cartellaProgramma, Messaggi& msg, DomandeCopia& domande) {
    const std::string destinazione = Assoluto(CartellaArchivioLavori(cartellaLavoro));
    Copia c(Assoluto(da), destinazione, cartellaProgramma, false, msg, domande);
    std::error_code ec;
    fs::create_directories(destinazione, ec);
    if (ec || !fs::is_directory(destinazione, ec)) {
        c.Fallita(Errore(ec ? ec.value() : ENOTDIR, destinazione));
        return c.r;
    }
    for (const std::string& sorgente : ElencaFile(Assoluto(da), ".RTG")) {
        if (!c.Uno(fs::path(sorgente).filename().string(), sorgente)) break;
    }
    return c.r;
}

}  // namespace fornax
