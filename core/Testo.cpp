#include "core/Testo.h"

#include <cstdint>
#include <cstring>

namespace fornax {

namespace {

// Windows-1252 codes 0x80..0x9F; 0 marks the five codes the page leaves undefined,
// which are kept as the C1 control of the same number so that no byte is lost.
constexpr char32_t kCp1252Alti[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// Decodes one UTF-8 character at s[i], advancing i. Invalid sequences give U+FFFD, one byte.
char32_t DecodificaUtf8(std::string_view s, size_t& i) {
    const auto b0 = static_cast<unsigned char>(s[i]);
    if (b0 < 0x80) {
        ++i;
        return b0;
    }
    int n = 0;
    char32_t c = 0;
    if ((b0 & 0xE0) == 0xC0) {
        n = 1;
        c = b0 & 0x1F;
    } else if ((b0 & 0xF0) == 0xE0) {
        n = 2;
        c = b0 & 0x0F;
    } else if ((b0 & 0xF8) == 0xF0) {
        n = 3;
        c = b0 & 0x07;
    } else {
        ++i;
        return 0xFFFD;
    }
    if (i + static_cast<size_t>(n) >= s.size()) {
        ++i;
        return 0xFFFD;
    }
    for (int k = 1; k <= n; ++k) {
        const auto b = static_cast<unsigned char>(s[i + static_cast<size_t>(k)]);
        if ((b & 0xC0) != 0x80) {
            ++i;
            return 0xFFFD;
        }
        c = (c << 6) | (b & 0x3F);
    }
    i += static_cast<size_t>(n) + 1;
    return c;
}

char32_t MaiuscoloCarattere(char32_t c) {
    if (c >= 'a' && c <= 'z') return c - 32;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 32;
    if (c == 0x0161 || c == 0x0153 || c == 0x017E) return c - 1;  // š œ ž
    if (c == 0xFF) return 0x0178;                                 // ÿ
    return c;
}

}  // namespace

std::string_view SenzaSpazi(std::string_view s) {
    size_t a = 0;
    size_t b = s.size();
    while (a < b && s[a] == ' ') ++a;
    while (b > a && s[b - 1] == ' ') --b;
    return s.substr(a, b - a);
}

std::string Trim(std::string_view s) { return std::string(SenzaSpazi(s)); }

std::string Maiuscolo(std::string_view s) {
    std::string out;
    out.reserve(s.size());
    size_t i = 0;
    while (i < s.size()) {
        if (static_cast<unsigned char>(s[i]) < 0x80) {
            char c = s[i++];
            out += (c >= 'a' && c <= 'z') ? static_cast<char>(c - 32) : c;
            continue;
        }
        const size_t inizio = i;
        const char32_t c = DecodificaUtf8(s, i);
        if (c == 0xFFFD) {
            out.append(s.substr(inizio, i - inizio));
        } else {
            AppendUtf8(out, MaiuscoloCarattere(c));
        }
    }
    return out;
}

std::string VirgolePunti(std::string_view s) {
    std::string out(s);
    for (char& c : out) {
        if (c == ',') c = '.';
    }
    return out;
}

// The length of the run of ASCII bytes at the start of `s`, eight at a time: nearly all of a
// project file is ASCII, and copying such runs whole keeps reading and writing a large project
// cheap.
static size_t LunghezzaAscii(std::string_view s) {
    size_t i = 0;
    for (; i + 8 <= s.size(); i += 8) {
        uint64_t parola = 0;
        std::memcpy(&parola, s.data() + i, 8);
        if ((parola & 0x8080808080808080ULL) != 0) break;
    }
    while (i < s.size() && static_cast<unsigned char>(s[i]) < 0x80) ++i;
    return i;
}

std::string Cp1252AUtf8(std::string_view s) {
    std::string out;
    out.reserve(s.size() + s.size() / 8);
    size_t i = 0;
    while (i < s.size()) {
        const size_t ascii = LunghezzaAscii(s.substr(i));
        out.append(s.data() + i, ascii);
        i += ascii;
        if (i >= s.size()) break;
        const auto b = static_cast<unsigned char>(s[i++]);
        if (b < 0xA0) {
            const char32_t c = kCp1252Alti[b - 0x80];
            AppendUtf8(out, c != 0 ? c : static_cast<char32_t>(b));
        } else {
            AppendUtf8(out, b);
        }
    }
    return out;
}

std::string Utf8ACp1252(std::string_view s) {
    std::string out;
    out.reserve(s.size());
    size_t i = 0;
    while (i < s.size()) {
        const size_t ascii = LunghezzaAscii(s.substr(i));
        out.append(s.data() + i, ascii);
        i += ascii;
        if (i >= s.size()) break;
        const char32_t c = DecodificaUtf8(s, i);
        if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
            out += static_cast<char>(c);
            continue;
        }
        char sostituto = '?';
        for (int k = 0; k < 32; ++k) {
            const char32_t atteso = kCp1252Alti[k] != 0 ? kCp1252Alti[k] : static_cast<char32_t>(0x80 + k);
            if (atteso == c) {
                sostituto = static_cast<char>(0x80 + k);
                break;
            }
        }
        out += sostituto;
    }
    return out;
}

bool UgualiSenzaMaiuscole(std::string_view a, std::string_view b) { return Maiuscolo(a) == Maiuscolo(b); }

int PosizioneNome(const std::vector<std::string>& nomi, std::string_view nome) {
    const std::string cercato = Maiuscolo(Trim(nome));
    if (cercato.empty()) return 0;
    for (size_t k = 0; k < nomi.size(); ++k)
        if (Maiuscolo(Trim(nomi[k])) == cercato) return static_cast<int>(k + 1);
    return 0;
}

}  // namespace fornax
