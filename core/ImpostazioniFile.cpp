#include "core/ImpostazioniFile.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
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

bool Controllo(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }

// The value of a hex digit, or -1.
int Cifra16(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool Esadecimale(char c) { return Cifra16(c) >= 0; }

// A value written between quotes, in the INI syntax QSettings also reads: separators, quotes,
// backslashes, blanks at its ends or control characters (a line break would end the line).
bool DaVirgolettare(const std::string& v) {
    if (v.empty()) return false;
    if (v.front() == ' ' || v.back() == ' ') return true;
    for (char c : v)
        if (Controllo(c) || std::string_view(",;\"=\\#").find(c) != std::string_view::npos) return true;
    return false;
}

std::string Scrivi(const std::string& v) {
    if (!DaVirgolettare(v)) return v;
    static const char* const cifre = "0123456789abcdef";
    std::string out = "\"";
    bool dopoEsadecimale = false;  // a hex digit right after \xHH would read as part of it
    for (char c : v) {
        const bool esadecimale = Controllo(c) || (dopoEsadecimale && Esadecimale(c));
        dopoEsadecimale = false;
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (c == '\t') {
            out += "\\t";
        } else if (c == '\n') {
            out += "\\n";
        } else if (c == '\r') {
            out += "\\r";
        } else if (esadecimale) {
            const auto u = static_cast<unsigned char>(c);
            out += "\\x";
            out += cifre[u >> 4];
            out += cifre[u & 15];
            dopoEsadecimale = true;
        } else {
            out += c;
        }
    }
    return out + "\"";
}

// The inverse of Scrivi, and what QSettings writes: the quotes that enclose a value go, a
// backslash escapes the next character inside and outside them.
std::string Leggi(const std::string& grezzo) {
    const std::string v = TrimSpazi(grezzo);
    std::string out;
    for (size_t i = 0; i < v.size(); ++i) {
        const char c = v[i];
        if (c == '"') continue;
        if (c != '\\' || i + 1 >= v.size()) {
            out += c;
            continue;
        }
        const char n = v[++i];
        // The letters of C's escapes, and what each stands for.
        static constexpr std::string_view lettere = "abfnrtv";
        static constexpr std::string_view valori = "\a\b\f\n\r\t\v";
        if (const size_t k = lettere.find(n); k != std::string_view::npos) {
            out += valori[k];
        } else if (n == 'x') {
            unsigned valore = 0;
            while (i + 1 < v.size() && Esadecimale(v[i + 1]) && valore < 0x100)
                valore = valore * 16 + static_cast<unsigned>(Cifra16(v[++i]));
            out += static_cast<char>(valore & 0xff);
        } else if (n >= '0' && n <= '7') {
            unsigned valore = static_cast<unsigned>(n - '0');
            for (int altre = 0; altre < 2 && i + 1 < v.size() && v[i + 1] >= '0' && v[i + 1] <= '7'; ++altre)
                valore = valore * 8 + static_cast<unsigned>(v[++i] - '0');
            out += static_cast<char>(valore & 0xff);
        } else {
            out += n;
        }
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
