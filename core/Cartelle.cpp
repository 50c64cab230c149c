#include "core/Cartelle.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "core/Testo.h"

namespace fornax {

namespace fs = std::filesystem;

static std::string Unisci(const std::string& cartella, const std::string& nome) {
    if (cartella.empty()) return nome;
    if (cartella.back() == '/') return cartella + nome;
    return cartella + "/" + nome;
}

std::string TrovaFile(const std::string& cartella, const std::string& nome) {
    const std::string esatto = Unisci(cartella, nome);
    std::error_code ec;
    if (fs::exists(esatto, ec)) return esatto;
    const std::string cercato = Maiuscolo(nome);
    for (fs::directory_iterator it(cartella.empty() ? "." : cartella, ec), fine; !ec && it != fine; it.increment(ec)) {
        const std::string n = it->path().filename().string();
        if (Maiuscolo(n) == cercato) return Unisci(cartella, n);
    }
    return esatto;
}

std::vector<std::string> ElencaFile(const std::string& cartella, const std::string& estensione) {
    std::vector<std::pair<std::string, std::string>> trovati;  // (upper-case name, path)
    const std::string est = Maiuscolo(estensione);
    std::error_code ec;
    for (fs::directory_iterator it(cartella.empty() ? "." : cartella, ec), fine; !ec && it != fine; it.increment(ec)) {
        std::error_code ec2;
        if (!it->is_regular_file(ec2)) continue;
        const std::string n = it->path().filename().string();
        const std::string N = Maiuscolo(n);
        if (N.size() >= est.size() && N.compare(N.size() - est.size(), est.size(), est) == 0) {
            trovati.emplace_back(N, Unisci(cartella, n));
        }
    }
    std::sort(trovati.begin(), trovati.end());
    std::vector<std::string> out;
    out.reserve(trovati.size());
    for (auto& t : trovati) out.push_back(std::move(t.second));
    return out;
}

bool EsisteFile(const std::string& percorso) {
    std::error_code ec;
    return fs::is_regular_file(percorso, ec);
}

static bool Scrivibile(const std::string& cartella) { return ::access(cartella.c_str(), W_OK) == 0; }

// When the program's folder is read-only (an installed copy), the user works on a copy of the
// archives in his own data folder, made once and kept from then on.
static std::string CopiaUtente(const std::string& origine) {
    const char* xdg = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    std::string base = xdg && *xdg ? xdg : (home && *home ? std::string(home) + "/.local/share" : "");
    if (base.empty()) return origine;
    const std::string copia = base + "/Fornax";
    std::error_code ec;
    if (!fs::exists(TrovaFile(copia, "gridgas.cne"), ec)) {
        fs::create_directories(copia, ec);
        if (ec) return origine;
        fs::copy(origine, copia, fs::copy_options::recursive | fs::copy_options::skip_existing, ec);
        if (ec) return origine;
    }
    return copia;
}

std::string CartellaProgramma(const std::string& eseguibile, const std::string& installata) {
    if (const char* home = std::getenv("FORNAX_HOME"); home && *home) return home;

    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec) exe = fs::absolute(eseguibile, ec);
    const std::string cartellaExe = exe.parent_path().string();
    std::string scelta = installata;
    if (!cartellaExe.empty() && EsisteFile(TrovaFile(cartellaExe, "gridgas.cne"))) scelta = cartellaExe;
    if (!Scrivibile(scelta)) return CopiaUtente(scelta);
    return scelta;
}

std::string CartellaDi(const std::string& percorso) {
    const size_t barra = percorso.find_last_of("/\\");
    return barra == std::string::npos ? std::string() : percorso.substr(0, barra);
}

std::string NomeDi(const std::string& percorso) {
    const size_t barra = percorso.find_last_of("/\\");
    return barra == std::string::npos ? percorso : percorso.substr(barra + 1);
}

}  // namespace fornax
