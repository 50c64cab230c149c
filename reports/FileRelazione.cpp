#include "reports/FileRelazione.h"

#include <cerrno>

#include "core/Testo.h"
#include "reports/Relazione.h"

namespace fornax {

namespace {

bool Ascii(std::string_view s) {
    for (char c : s)
        if (static_cast<unsigned char>(c) >= 0x80) return false;
    return true;
}

}  // namespace

FileRelazione::~FileRelazione() {
    if (f_ != nullptr) std::fclose(f_);
}

void FileRelazione::Apri(const std::string& percorso) {
    if (f_ != nullptr) Chiudi();
    errno = 0;
    f_ = std::fopen(percorso.c_str(), "wb");
    if (f_ == nullptr) {
        if (errno == ENOENT || errno == ENOTDIR) Fallisci(CodiceErrore::PERCORSO);
        if (errno == EACCES || errno == EPERM || errno == EROFS) Fallisci(CodiceErrore::AUTORIZZAZIONE);
        Fallisci(CodiceErrore::ACCESSO);
    }
}

void FileRelazione::Scrivi(std::string_view byte) {
    if (f_ == nullptr) Fallisci(CodiceErrore::IO);
    if (byte.empty()) return;
    if (std::fwrite(byte.data(), 1, byte.size(), f_) != byte.size()) Fallisci(CodiceErrore::IO);
}

void FileRelazione::Testo(std::string_view testo) {
    // Most lines are plain ASCII: they need no conversion.
    if (Ascii(testo))
        Scrivi(testo);
    else
        Scrivi(Utf8ACp1252(testo));
}

void FileRelazione::Riga(std::string_view testo) {
    Testo(testo);
    Scrivi("\r\n");
}

void FileRelazione::Chiudi() {
    if (f_ == nullptr) return;
    std::FILE* f = f_;
    f_ = nullptr;
    const bool ok = std::fflush(f) == 0 && !std::ferror(f);
    if (std::fclose(f) != 0 || !ok) Fallisci(CodiceErrore::IO);
}

}  // namespace fornax
