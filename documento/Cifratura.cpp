// The scrambling of the column definition file gridgas.cne.
//
// Each line is stored shifted character by character: the character at 1-based position i is
// stored with its Windows-1252 code raised by 3 + (i mod 7), and a tab is stored as the single
// code 254. Positions count characters of the file's code page, so the arithmetic works on the
// Windows-1252 bytes of the line as stored. DecodificaRiga takes those bytes (one line, without
// its line end) and gives the text in UTF-8, like every text in memory; CodificaRiga takes a
// UTF-8 text and gives the bytes to store, to be written as they are, followed by CR LF.
//
// Codes wrap around modulo 256, so any stored byte unscrambles to something and a damaged file
// can't throw us off. A few characters can't be stored at some positions: those whose shifted
// code would be 254 (Windows-1252 245..251, "õ" to "û", where the shift makes them look like a
// tab). The tool that builds the file checks every line by unscrambling it again.

#include "documento/Campi.h"

#include "core/Testo.h"

namespace fornax {

namespace {

constexpr unsigned char kTabulazione = 9;
constexpr unsigned char kTabulazioneCifrata = 254;

// Shift of the character at 0-based index k of the line.
unsigned Spostamento(size_t k) { return 3u + static_cast<unsigned>((k + 1) % 7); }

}  // namespace

std::string DecodificaRiga(const std::string& riga) {
    std::string byte = riga;
    for (size_t k = 0; k < byte.size(); ++k) {
        const auto c = static_cast<unsigned char>(byte[k]);
        byte[k] =
            static_cast<char>(c == kTabulazioneCifrata ? kTabulazione : static_cast<unsigned char>(c - Spostamento(k)));
    }
    return Cp1252AUtf8(byte);
}

std::string CodificaRiga(const std::string& riga) {
    std::string byte = Utf8ACp1252(riga);
    for (size_t k = 0; k < byte.size(); ++k) {
        const auto c = static_cast<unsigned char>(byte[k]);
        byte[k] =
            static_cast<char>(c == kTabulazione ? kTabulazioneCifrata : static_cast<unsigned char>(c + Spostamento(k)));
    }
    return byte;
}

}  // namespace fornax
