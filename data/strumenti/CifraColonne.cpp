// fornax-cifra-colonne SORGENTE DESTINAZIONE
//
// Builds the delivered column definition file gridgas.cne from its readable source
// (gridgas-sorgente.txt, UTF-8): every line is converted to Windows-1252, scrambled and written
// with CR LF. The source is checked on the way, so that a mistake stops the build here instead
// of showing up as a message at the program's start:
//   - every character must exist in Windows-1252 and survive the scrambling (a few accented
//     letters can't stand at some positions, see Cifratura.cpp);
//   - a column line must have exactly seven fields and no comma (the reader turns commas into
//     points, so a comma would not show as written);
//   - eleven tables, each closed by "+", with 1 to 50 columns, then "@".
// The file is written beside the target and renamed over it only when complete.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include "core/Colonne.h"
#include "core/FileTesto.h"
#include "core/Testo.h"
#include "documento/Campi.h"

namespace {

using namespace fornax;

struct Errore {
    size_t riga;
    std::string testo;
};

std::vector<std::string> Righe(const std::string& testo) {
    std::vector<std::string> righe;
    size_t inizio = testo.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0;
    while (inizio < testo.size()) {
        size_t fine = testo.find('\n', inizio);
        if (fine == std::string::npos) fine = testo.size();
        std::string r = testo.substr(inizio, fine - inizio);
        if (!r.empty() && r.back() == '\r') r.pop_back();
        righe.push_back(std::move(r));
        inizio = fine + 1;
    }
    return righe;
}

// Checks the structure of the source; an empty result means it is sound.
std::vector<Errore> ControllaStruttura(const std::vector<std::string>& righe) {
    std::vector<Errore> errori;
    int tabella = 0;
    int colonne = 0;
    bool fine = false;
    std::vector<std::string> campi;
    for (size_t n = 0; n < righe.size() && !fine; ++n) {
        const std::string& r = righe[n];
        if (r.empty() || r[0] == '#') continue;
        if (r == "@") {
            fine = true;
        } else if (r == "+") {
            if (colonne == 0) errori.push_back({n + 1, "tabella " + std::to_string(tabella) + " senza colonne"});
            ++tabella;
            colonne = 0;
        } else {
            if (tabella >= NUM_TABELLE) {
                errori.push_back({n + 1, "colonna oltre la tabella " + std::to_string(NUM_TABELLE - 1)});
                continue;
            }
            if (++colonne > MAX_COLONNE)
                errori.push_back({n + 1, "piu' di " + std::to_string(MAX_COLONNE) + " colonne nella tabella " +
                                             std::to_string(tabella)});
            if (r.find(',') != std::string::npos)
                errori.push_back({n + 1, "virgola in una colonna: alla lettura diventerebbe un punto"});
            const int ultimo = SeparaCampi(r, campi);
            if (ultimo != 6)
                errori.push_back({n + 1, std::to_string(ultimo + 1) +
                                             " campi invece di 7 (titolo 1, formato, bloccata, "
                                             "titolo 2, larghezza, chiave, suggerimento)"});
        }
    }
    if (!fine) errori.push_back({righe.size(), "manca la riga \"@\" che chiude il file"});
    if (tabella != NUM_TABELLE)
        errori.push_back({righe.size(), std::to_string(tabella) + " tabelle chiuse da \"+\" invece di " +
                                            std::to_string(NUM_TABELLE)});
    return errori;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "uso: fornax-cifra-colonne SORGENTE DESTINAZIONE\n";
        return 2;
    }
    const std::string sorgente = argv[1];
    const std::filesystem::path destinazione = argv[2];

    std::ifstream in(sorgente, std::ios::binary);
    if (!in) {
        std::cerr << sorgente << ": impossibile aprire il file\n";
        return 1;
    }
    const std::string testo((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    const std::vector<std::string> righe = Righe(testo);

    std::vector<Errore> errori = ControllaStruttura(righe);
    std::string uscita;
    for (size_t n = 0; n < righe.size(); ++n) {
        const std::string& r = righe[n];
        if (Cp1252AUtf8(Utf8ACp1252(r)) != r) {
            errori.push_back({n + 1, "carattere che non esiste in Windows-1252"});
            continue;
        }
        const std::string cifrata = CodificaRiga(r);
        if (cifrata.find_first_of("\r\n") != std::string::npos || DecodificaRiga(cifrata) != r) {
            errori.push_back({n + 1,
                              "un carattere non si puo' cifrare nella sua posizione "
                              "(lettere da \"õ\" a \"û\"): spostarlo o riscrivere il testo"});
            continue;
        }
        uscita += cifrata;
        uscita += "\r\n";
    }
    if (!errori.empty()) {
        for (const Errore& e : errori) std::cerr << sorgente << ":" << e.riga << ": " << e.testo << "\n";
        return 1;
    }

    std::error_code ec;
    std::filesystem::create_directories(destinazione.parent_path(), ec);
    const std::filesystem::path provvisorio = destinazione.string() + ".tmp";
    {
        std::ofstream out(provvisorio, std::ios::binary | std::ios::trunc);
        out.write(uscita.data(), static_cast<std::streamsize>(uscita.size()));
        out.close();
        if (!out) {
            std::cerr << provvisorio.string() << ": scrittura non riuscita\n";
            std::filesystem::remove(provvisorio, ec);
            return 1;
        }
    }
    std::filesystem::rename(provvisorio, destinazione, ec);
    if (ec) {
        std::cerr << destinazione.string() << ": " << ec.message() << "\n";
        std::filesystem::remove(provvisorio, ec);
        return 1;
    }
    return 0;
}
