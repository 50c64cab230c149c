#include "core/ImpostazioniFile.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "core/FileTesto.h"

namespace fornax {

namespace {

std::string TrimSpazi(const std::string& s) {
    size_t a = 0;
    size_t b = s.size();
    while (a < b && (s[a] == ' ' || s[a] == '\t' || s[a] == '\r')) ++a;
    while (b > a && (s[b - 1] == ' ' || s[b - 1] == '\t' || s[b - 1] == '\r')) --b;
    return s.substr(a, b - a);
}

// A value that QSettings would quote: separators, quotes, backslashes or blanks at its ends.
bool DaVirgolettare(const std::string& v) {
    if (v.empty()) return false;
    if (v.front() == ' ' || v.back() == ' ') return true;
    return v.find_first_of(",;\"=\\#\t") != std::string::npos;
}

std::string Scrivi(const std::string& v) {
    if (!DaVirgolettare(v)) return v;
    std::string out = "\"";
    for (char c : v) {
        if (c == '"' || c == '\\') out += '\\';
        if (c == '\t') {
            out += "\\t";
            continue;
        }
        out += c;
    }
    return out + "\"";
}

std::string Leggi(const std::string& grezzo) {
    const std::string v = TrimSpazi(grezzo);
    if (v.size() < 2 || v.front() != '"') return v;
    std::string out;
    for (size_t i = 1; i < v.size(); ++i) {
        const char c = v[i];
        if (c == '"') break;
        if (c == '\\' && i + 1 < v.size()) {
            const char n = v[++i];
            out += n == 't' ? '\t' : n == 'n' ? '\n' : n;
            continue;
        }
        out += c;
    }
    return out;
}

}  // namespace

ImpostazioniFile::ImpostazioniFile() : ImpostazioniFile(PercorsoPredefinito()) {}

ImpostazioniFile::ImpostazioniFile(std::string percorso) : percorso_(std::move(percorso)) { Carica(); }

std::string ImpostazioniFile::PercorsoPredefinito() {
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    const std::string base = xdg && *xdg ? xdg : std::string(home && *home ? home : ".") + "/.config";
    return base + "/Fornax/Fornax.ini";
}

void ImpostazioniFile::Carica() {
    sezioni_.clear();
    std::ifstream in(percorso_, std::ios::binary);
    if (!in) return;
    std::string riga;
    std::string sezione = "General";
    while (std::getline(in, riga)) {
        riga = TrimSpazi(riga);
        if (riga.empty() || riga[0] == ';' || riga[0] == '#') continue;
        if (riga.front() == '[') {
            const size_t fine = riga.find(']');
            if (fine != std::string::npos) sezione = riga.substr(1, fine - 1);
            continue;
        }
        const size_t uguale = riga.find('=');
        if (uguale == std::string::npos) continue;  // a damaged line is passed over
        sezioni_[sezione][TrimSpazi(riga.substr(0, uguale))] = fornax::Leggi(riga.substr(uguale + 1));
    }
}

bool ImpostazioniFile::Salva() const {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::path p(percorso_);
    if (p.has_parent_path()) fs::create_directories(p.parent_path(), ec);
    std::string testo;
    for (const auto& [sezione, chiavi] : sezioni_) {
        if (!testo.empty()) testo += "\n";
        testo += "[" + sezione + "]\n";
        for (const auto& [k, v] : chiavi) testo += k + "=" + fornax::Scrivi(v) + "\n";
    }
    return ScriviFileSicuro(percorso_, testo) == 0;
}

std::string ImpostazioniFile::Leggi(const std::string& sezione, const std::string& chiave,
                                    const std::string& predefinito) const {
    const auto s = sezioni_.find(sezione);
    if (s == sezioni_.end()) return predefinito;
    const auto k = s->second.find(chiave);
    return k == s->second.end() ? predefinito : k->second;
}

void ImpostazioniFile::Scrivi(const std::string& sezione, const std::string& chiave, const std::string& valore) {
    Carica();  // another program (the desktop) may have written in the meantime
    sezioni_[sezione][chiave] = valore;
    ok_ = Salva();
}

}  // namespace fornax
