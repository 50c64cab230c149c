#include "core/Numeri.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace fornax {

double LeggiNumero(std::string_view t) {
    size_t i = 0;
    while (i < t.size() && (t[i] == ' ' || t[i] == '\t')) ++i;
    std::string numero;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) {
        if (t[i] == '-') numero += '-';
        ++i;
    }
    bool cifre = false;
    while (i < t.size() && t[i] >= '0' && t[i] <= '9') {
        numero += t[i++];
        cifre = true;
    }
    if (i < t.size() && (t[i] == '.' || t[i] == ',')) {
        size_t j = i + 1;
        std::string frazione;
        while (j < t.size() && t[j] >= '0' && t[j] <= '9') frazione += t[j++];
        if (cifre || !frazione.empty()) {
            if (!cifre) numero += '0';
            numero += '.';
            numero += frazione;
            cifre = true;
            i = j;
        }
    }
    if (!cifre) return 0.0;
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
        size_t j = i + 1;
        std::string esponente = "e";
        if (j < t.size() && (t[j] == '+' || t[j] == '-')) esponente += t[j++];
        bool cifreEsp = false;
        while (j < t.size() && t[j] >= '0' && t[j] <= '9') {
            esponente += t[j++];
            cifreEsp = true;
        }
        if (cifreEsp) numero += esponente;
    }
    double v = 0.0;
    const auto r = std::from_chars(numero.data(), numero.data() + numero.size(), v);
    if (r.ec == std::errc::result_out_of_range) {
        // An exponent beyond the double range: keep the sign, give the largest or zero.
        const bool negativo = numero[0] == '-';
        const bool grande = numero.find("e-") == std::string::npos;
        v = grande ? std::numeric_limits<double>::max() : 0.0;
        if (negativo) v = -v;
    } else if (r.ec != std::errc()) {
        return 0.0;
    }
    return v;
}

template <typename T>
static T Arrotonda(double v) {
    if (std::isnan(v)) return 0;
    const double r = std::nearbyint(v);
    if (r <= static_cast<double>(std::numeric_limits<T>::min())) return std::numeric_limits<T>::min();
    if (r >= static_cast<double>(std::numeric_limits<T>::max())) return std::numeric_limits<T>::max();
    return static_cast<T>(r);
}

int16_t ArrotondaI16(double v) { return Arrotonda<int16_t>(v); }
int32_t ArrotondaI32(double v) { return Arrotonda<int32_t>(v); }

template <typename T>
static std::string Breve(T v) {
    if (v == 0) return "0";  // also -0
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, r.ptr);
}

std::string TestoBreve(float v) { return Breve(v); }
std::string TestoBreve(double v) { return Breve(v); }

std::string TestoGenerale(double v, int cifre) {
    if (v == 0) return "0";
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, cifre);
    return std::string(buf, r.ptr);
}

static std::string ComeStampa(const std::string& testo) {
    if (!testo.empty() && testo[0] == '-') return testo + " ";
    return " " + testo + " ";
}

template <typename T>
static T FinitoDi(T v) {
    if (std::isnan(v)) return 0;
    if (std::isinf(v)) return v > 0 ? std::numeric_limits<T>::max() : std::numeric_limits<T>::lowest();
    return v;
}

float Finito(float v) { return FinitoDi(v); }
double Finito(double v) { return FinitoDi(v); }

float Singolo(double v) {
    constexpr double massimo = std::numeric_limits<float>::max();
    if (v > massimo) return std::numeric_limits<float>::max();
    if (v < -massimo) return std::numeric_limits<float>::lowest();
    return static_cast<float>(v);
}

std::string NumeroFile(float v) { return ComeStampa(TestoBreve(Finito(v))); }
std::string NumeroFile(double v) { return ComeStampa(TestoBreve(Finito(v))); }
std::string NumeroFile(int32_t v) { return ComeStampa(std::to_string(v)); }

std::string FormattaNumero(double v, std::string_view pattern) {
    if (pattern.empty()) return TestoBreve(v);
    if (!std::isfinite(v)) return TestoBreve(v);

    const size_t punto = pattern.find('.');
    const std::string_view intero = pattern.substr(0, punto);
    const std::string_view frazione = punto == std::string_view::npos ? std::string_view{} : pattern.substr(punto + 1);

    int decimali = 0;
    for (char c : frazione) {
        if (c == '#' || c == '0') ++decimali;
    }
    int segnaposti = 0;
    for (char c : intero) {
        if (c == '#' || c == '0') ++segnaposti;
    }

    // The exact binary value rounded to the pattern's decimals, ties to even.
    char buf[400];
    const auto r = std::to_chars(buf, buf + sizeof buf, std::fabs(v), std::chars_format::fixed, decimali);
    std::string testo(buf, r.ptr);
    const size_t p = testo.find('.');
    std::string cifreIntere = testo.substr(0, p);
    std::string cifreFraz = p == std::string::npos ? "" : testo.substr(p + 1);
    while (cifreIntere.size() > 0 && cifreIntere[0] == '0') cifreIntere.erase(0, 1);  // significant digits only

    bool zero = cifreIntere.empty();
    for (char c : cifreFraz) {
        if (c != '0') zero = false;
    }
    const bool negativo = v < 0 && !zero;

    std::string out;
    bool segnoScritto = !negativo;
    auto scriviCifra = [&](char c) {
        if (!segnoScritto) {
            out += '-';
            segnoScritto = true;
        }
        out += c;
    };

    // Integer part: the rightmost placeholders take the rightmost digits; extra digits all
    // print at the first placeholder.
    const int n = static_cast<int>(cifreIntere.size());
    int posto = 0;  // placeholders met so far
    for (char c : intero) {
        if (c != '#' && c != '0') {
            out += c;
            continue;
        }
        const int daDestra = segnaposti - posto;  // 1-based position from the right
        ++posto;
        if (posto == 1 && n > segnaposti) {
            for (int k = 0; k < n - segnaposti + 1; ++k) scriviCifra(cifreIntere[static_cast<size_t>(k)]);
            continue;
        }
        if (daDestra <= n) {
            scriviCifra(cifreIntere[static_cast<size_t>(n - daDestra)]);
        } else if (c == '0') {
            scriviCifra('0');
        }
    }
    if (segnaposti == 0 && n > 0) {
        for (char c : cifreIntere) scriviCifra(c);
    }

    if (punto != std::string_view::npos) {
        if (!segnoScritto) {
            out += '-';
            segnoScritto = true;
        }
        out += '.';
        // A '#' prints its digit unless only zeros and '#' placeholders follow it.
        int k = 0;
        std::string restoFraz;
        for (char c : frazione) {
            if (c != '#' && c != '0') {
                restoFraz += c;
                continue;
            }
            restoFraz +=
                static_cast<char>(k < static_cast<int>(cifreFraz.size()) ? cifreFraz[static_cast<size_t>(k)] : '0');
            ++k;
        }
        // Decide which placeholders print, from the right.
        std::string finale(restoFraz);
        bool tagliare = true;
        for (int idx = static_cast<int>(frazione.size()) - 1; idx >= 0; --idx) {
            const char c = frazione[static_cast<size_t>(idx)];
            if (c != '#' && c != '0') continue;
            const char cifra = finale[static_cast<size_t>(idx)];
            if (c == '0' || cifra != '0') tagliare = false;
            if (tagliare) finale[static_cast<size_t>(idx)] = '\0';
        }
        for (char c : finale) {
            if (c != '\0') out += c;
        }
    }
    return out;
}

}  // namespace fornax
