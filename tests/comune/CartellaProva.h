#pragma once
// A throw-away folder for file tests: files written in Windows-1252 with CR LF line ends, as the
// users' Windows machines write them; removed at the end of the test.

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "core/Testo.h"

namespace fornax::prova {

class CartellaProva {
public:
    explicit CartellaProva(const std::string& nome) {
        static std::atomic<int> contatore{0};
        dir_ = std::filesystem::temp_directory_path() /
               ("fornax-" + nome + "-" + std::to_string(::getpid()) + "-" + std::to_string(contatore++));
        std::filesystem::remove_all(dir_);
        std::filesystem::create_directories(dir_);
    }
    ~CartellaProva() {
        std::error_code ec;
        std::filesystem::remove_all(dir_, ec);
    }
    CartellaProva(const CartellaProva&) = delete;
    CartellaProva& operator=(const CartellaProva&) = delete;

    std::string Percorso() const { return dir_.string(); }
    std::string Percorso(const std::string& nome) const { return (dir_ / nome).string(); }

    // UTF-8 text with '\n' line ends, stored as Windows-1252 with CR LF.
    void Scrivi(const std::string& nome, const std::string& testo) const {
        std::string crlf;
        for (char c : testo) {
            if (c == '\n') crlf += '\r';
            crlf += c;
        }
        ScriviByte(nome, Utf8ACp1252(crlf));
    }
    void ScriviByte(const std::string& nome, const std::string& byte) const {
        std::ofstream out(dir_ / nome, std::ios::binary | std::ios::trunc);
        out.write(byte.data(), static_cast<std::streamsize>(byte.size()));
    }
    std::string LeggiByte(const std::string& nome) const { return LeggiFile(Percorso(nome)); }

    // Copies every file of a folder here (the delivered archives, the acceptance archives).
    void CopiaDa(const std::string& origine) const {
        for (const auto& e : std::filesystem::directory_iterator(origine))
            if (e.is_regular_file())
                std::filesystem::copy_file(e.path(), dir_ / e.path().filename(),
                                           std::filesystem::copy_options::overwrite_existing);
    }

    static std::string LeggiFile(const std::string& percorso) {
        std::ifstream in(percorso, std::ios::binary);
        return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    }

private:
    std::filesystem::path dir_;
};

}  // namespace fornax::prova
