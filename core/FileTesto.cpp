#include "core/FileTesto.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

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

void ScrittoreTesto::Riga(std::string_view testo) {
    testo_.append(testo);
    testo_ += "\r\n";
}

bool ScrittoreTesto::Salva(const std::string& percorso) const {
    namespace fs = std::filesystem;
    const std::string temporaneo = percorso + ".fornax-tmp";
    {
        std::ofstream out(temporaneo, std::ios::binary | std::ios::trunc);
        if (!out) return false;
        const std::string byte = Utf8ACp1252(testo_);
        out.write(byte.data(), static_cast<std::streamsize>(byte.size()));
        out.flush();
        if (!out) {
            out.close();
            std::error_code ec;
            fs::remove(temporaneo, ec);
            return false;
        }
    }
    std::error_code ec;
    fs::rename(temporaneo, percorso, ec);
    if (ec) {
        fs::remove(temporaneo, ec);
        return false;
    }
    return true;
}

bool ScrittoreTesto::SalvaOAvvisa(const std::string& percorso, Messaggi& msg) const {
    if (Salva(percorso)) return true;
    msg.Mostra(
        "Impossibile scrivere il file '" + percorso +
            "'. Controllare che la cartella esista e sia scrivibile: il file precedente non e' stato modificato.",
        Box::CRITICAL, "Errore");
    return false;
}

}  // namespace fornax
