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

static bool CartellaCompleta(const std::string& cartella) {
    return !cartella.empty() && EsisteFile(TrovaFile(cartella, "gridgas.cne"));
}

// When the program's folder is read-only (an installed copy), the user works on a copy of the
// archives in his own data folder, made once and kept from then on. The copy is made beside its
// final place and renamed into it when complete, so a start cut short (disk full, program killed)
// never leaves a half copy that the next start would take for a good one.
// Copies the installed folder: files and subfolders, the user's copies writable by him (the
// installed files are read-only, and a copied read-only subfolder could not even be filled).
// Files already there are kept.
static void CopiaCartella(const fs::path& origine, const fs::path& destinazione, std::error_code& ec) {
    fs::create_directories(destinazione, ec);
    if (ec) return;
    for (fs::directory_iterator it(origine, ec), fine; !ec && it != fine; it.increment(ec)) {
        const fs::path verso = destinazione / it->path().filename();
        std::error_code ec2;
        if (it->is_directory(ec2)) {
            CopiaCartella(it->path(), verso, ec);
        } else if (it->is_regular_file(ec2) && !fs::exists(verso, ec2)) {
            fs::copy_file(it->path(), verso, ec);
            if (!ec) fs::permissions(verso, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, ec);
        }
        if (ec) return;
    }
}

static std::string CopiaUtente(const std::string& origine) {
    const char* xdg = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    std::string base = xdg && *xdg ? xdg : (home && *home ? std::string(home) + "/.local/share" : "");
    if (base.empty()) return origine;
    const std::string copia = base + "/Fornax";
    if (CartellaCompleta(copia)) return copia;
    std::error_code ec;
    fs::create_directories(base, ec);
    if (fs::exists(copia, ec)) {
        // The folder is there without the archives (another program's data, a copy by hand):
        // what is missing is added, nothing of the user's is replaced.
        CopiaCartella(origine, copia, ec);
        return !ec && CartellaCompleta(copia) ? copia : origine;
    }
    const std::string parziale = copia + ".fornax-tmp";
    fs::remove_all(parziale, ec);
    CopiaCartella(origine, parziale, ec);
    if (!ec) fs::rename(parziale, copia, ec);
    if (ec) {
        fs::remove_all(parziale, ec);
        return origine;
    }
    return copia;
}

std::string SceltaCartellaProgramma(const std::string& cartellaEseguibile, const std::string& installata) {
    if (const char* home = std::getenv("FORNAX_HOME"); home && *home) return home;
    std::string scelta = installata;
    if (CartellaCompleta(cartellaEseguibile)) {
        scelta = cartellaEseguibile;
    } else if (!cartellaEseguibile.empty()) {
        // An installed tree: bin/fornax beside share/fornax, wherever the tree was put.
        const std::string condivisa = (fs::path(cartellaEseguibile).parent_path() / "share" / "fornax").string();
        if (CartellaCompleta(condivisa)) scelta = condivisa;
    }
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

std::string CartellaProgramma(const std::string& eseguibile, const std::string& installata) {
    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec) exe = fs::absolute(eseguibile, ec);
    return SceltaCartellaProgramma(exe.parent_path().string(), installata);
}

}  // namespace fornax
