#include "core/FileTesto.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <iterator>

#include "core/Servizi.h"
#include "core/Testo.h"

namespace fornax {

bool FileTesto::Apri(const std::string& percorso) {
    righe_.clear();
    pos_ = 0;
    std::ifstream in(percorso, std::ios::binary);
    if (!in) return false;
    std::string byte((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (in.bad()) return false;
    ApriDaTesto(byte);
    return true;
}

void FileTesto::ApriDaTesto(std::string_view contenuto) {
    righe_.clear();
    pos_ = 0;
    const std::string testo = Cp1252AUtf8(contenuto);
    size_t inizio = 0;
    while (inizio < testo.size()) {
        size_t fine = testo.find('\n', inizio);
        const bool ultima = fine == std::string::npos;
        if (ultima) fine = testo.size();
        size_t lunghezza = fine - inizio;
        if (lunghezza > 0 && testo[inizio + lunghezza - 1] == '\r') --lunghezza;
        righe_.emplace_back(testo, inizio, lunghezza);
        inizio = fine + 1;
    }
}

std::string FileTesto::RigaFisica() {
    if (Fine()) return {};
    return righe_[pos_++];
}

std::string FileTesto::LeggiRiga() {
    while (!Fine()) {
        const std::string& riga = righe_[pos_++];
        if (!Trim(riga).empty() && riga[0] != '#') return VirgolePunti(riga);
    }
    return {};
}

std::string FileTesto::LeggiRigaVuota() { return VirgolePunti(LeggiRigaGrezza()); }

std::string FileTesto::LeggiRigaGrezza() {
    while (!Fine()) {
        const std::string& riga = righe_[pos_++];
        if (riga.empty() || riga[0] != '#') return riga;
    }
    return {};
}

int SeparaCampi(std::string_view riga, std::vector<std::string>& campi) {
    campi.clear();
    size_t i = 0;
    while (i < riga.size()) {
        if (riga[i] == '\t') {
            ++i;
            continue;
        }
        size_t fine = riga.find('\t', i);
        if (fine == std::string_view::npos) fine = riga.size();
        campi.push_back(VirgolePunti(riga.substr(i, fine - i)));
        i = fine;
    }
    if (campi.empty()) campi.emplace_back();
    return static_cast<int>(campi.size()) - 1;
}

namespace {

std::string Sostituisci(std::string_view testo, std::string_view separatori) {
    std::string s(testo);
    if (testo.find_first_of(separatori) == std::string_view::npos) return s;
    for (char& c : s)
        if (separatori.find(c) != std::string_view::npos) c = ' ';
    return s;
}

}  // namespace

std::string UnaRiga(std::string_view testo) { return Sostituisci(testo, "\r\n"); }

std::string RigaNonCommento(std::string_view testo) {
    std::string s = UnaRiga(testo);
    return !s.empty() && s[0] == '#' ? " " + s : s;
}

std::string RigaDiLeggiRiga(std::string_view testo) {
    std::string s = RigaNonCommento(testo);
    return SenzaSpazi(s).empty() ? std::string(".") : s;
}

std::string CampoDiRiga(std::string_view testo) { return Sostituisci(testo, "\t\n"); }

std::string PrimoCampo(std::string_view testo) {
    std::string s = CampoDiRiga(testo);
    if (s.empty()) return "-";
    return s[0] == '#' ? "\t" + s : s;
}

void ScrittoreTesto::Riga(std::string_view testo) {
    testo_.append(testo);
    testo_ += "\r\n";
}

void IgnoraLimiteDimensione() {
    static const bool fatto = [] {
        struct sigaction attuale {};
        if (::sigaction(SIGXFSZ, nullptr, &attuale) == 0 && attuale.sa_handler == SIG_DFL) {
            struct sigaction ignora {};
            ignora.sa_handler = SIG_IGN;
            sigemptyset(&ignora.sa_mask);
            ::sigaction(SIGXFSZ, &ignora, nullptr);
        }
        return true;
    }();
    (void)fatto;
}

namespace {

int ScriviTutto(int fd, std::string_view byte) {
    while (!byte.empty()) {
        const ssize_t n = ::write(fd, byte.data(), byte.size());
        if (n < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        if (n == 0) return EIO;
        byte.remove_prefix(static_cast<size_t>(n));
    }
    return 0;
}

// A file opened without a name becomes visible only through linkat on /proc/self/fd.
bool ProcDisponibile() {
    static const bool presente = ::access("/proc/self/fd", X_OK) == 0;
    return presente;
}

}  // namespace

int ScriviFileSicuro(const std::string& percorso, std::string_view byte) {
    IgnoraLimiteDimensione();
    if (percorso.empty() || percorso.back() == '/') return EINVAL;
    const size_t barra = percorso.find_last_of('/');
    const std::string cartella = barra == std::string::npos ? "." : (barra == 0 ? "/" : percorso.substr(0, barra));
    const std::string temporaneo = percorso + ".fornax-tmp";

    struct stat vecchio {};
    const bool esisteva = ::stat(percorso.c_str(), &vecchio) == 0;
    if (!esisteva && errno != ENOENT) return errno;  // a name too long, a folder that is a file...
    if (esisteva && S_ISDIR(vecchio.st_mode)) return EISDIR;
    // A file the user marked read-only is not replaced behind his back.
    if (esisteva && ::access(percorso.c_str(), W_OK) != 0) return errno;
    // A save that was cut off (the program killed between naming the new file and renaming it)
    // may have left its temporary: it is never the user's file, so it goes.
    ::unlink(temporaneo.c_str());

    bool anonimo = false;
    int fd = -1;
    if (ProcDisponibile()) {
        fd = ::open(cartella.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
        if (fd >= 0) {
            anonimo = true;
        } else if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) {
            return errno;  // the folder is missing, read-only, or the name is refused
        }
    }
    if (fd < 0) {
        fd = ::open(temporaneo.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0) return errno;
    }
    // A file the user had restricted (0600) stays restricted once replaced.
    if (esisteva) (void)::fchmod(fd, vecchio.st_mode & 07777);

    int errore = ScriviTutto(fd, byte);
    if (errore == 0 && ::fsync(fd) != 0) errore = errno;
    if (errore == 0 && anonimo) {
        const std::string proc = "/proc/self/fd/" + std::to_string(fd);
        if (::linkat(AT_FDCWD, proc.c_str(), AT_FDCWD, temporaneo.c_str(), AT_SYMLINK_FOLLOW) != 0) errore = errno;
    }
    // The name and the rename follow each other at once: only a kill between these two calls can
    // leave the (complete) temporary behind, and the next save clears it.
    if (errore == 0 && ::rename(temporaneo.c_str(), percorso.c_str()) != 0) errore = errno;
    if (::close(fd) != 0 && errore == 0) errore = errno;
    if (errore != 0) {
        ::unlink(temporaneo.c_str());
        return errore;
    }
    // The new name is on the disk too, not only the content.
    if (const int dir = ::open(cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); dir >= 0) {
        (void)::fsync(dir);
        ::close(dir);
    }
    return 0;
}

std::string MessaggioScritturaFallita(const std::string& percorso, int errore) {
    const std::string invariato = " Il file precedente non e' stato modificato e il lavoro aperto resta com'era.";
    switch (errore) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return "Spazio su disco insufficiente: impossibile scrivere il file '" + percorso + "'." + invariato +
                   " Liberare spazio o salvare in un'altra cartella.";
        case EACCES:
        case EPERM:
        case EROFS:
            return "Impossibile scrivere il file '" + percorso +
                   "': la cartella o il file sono protetti da scrittura." + invariato +
                   " Salvare in un'altra cartella.";
        case ENOENT:
        case ENOTDIR:
            return "Impossibile scrivere il file '" + percorso + "': la cartella non esiste piu'." + invariato +
                   " Salvare in un'altra cartella.";
        case ENAMETOOLONG:
        case EINVAL:
        case EISDIR:
        case EILSEQ:
            return "Impossibile scrivere il file '" + percorso + "': il nome del file non e' accettato dal sistema." +
                   invariato + " Scegliere un altro nome.";
        default:
            return "Impossibile scrivere il file '" + percorso +
                   "'. Controllare che la cartella esista e sia scrivibile (errore di sistema " +
                   std::to_string(errore) + ")." + invariato;
    }
}

std::string ScrittoreTesto::Byte() const { return Utf8ACp1252(testo_); }

int ScrittoreTesto::SalvaConErrore(const std::string& percorso) const { return ScriviFileSicuro(percorso, Byte()); }

bool ScrittoreTesto::SalvaOAvvisa(const std::string& percorso, Messaggi& msg) const {
    const int errore = SalvaConErrore(percorso);
    if (errore == 0) return true;
    msg.Mostra(MessaggioScritturaFallita(percorso, errore), Box::CRITICAL, "Errore");
    return false;
}

}  // namespace fornax
