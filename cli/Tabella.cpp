#include "cli/Tabella.h"

#include <cstdlib>

namespace fornax::cli {

namespace {

// Width in characters of a UTF-8 text.
size_t Caratteri(const std::string& s) {
    size_t n = 0;
    for (unsigned char c : s)
        if ((c & 0xC0) != 0x80) ++n;
    return n;
}

std::string Cella(const std::string& testo, int larghezza) {
    const size_t w = static_cast<size_t>(std::abs(larghezza));
    const size_t n = Caratteri(testo);
    const std::string spazi(n < w ? w - n : 0, ' ');
    return larghezza < 0 ? testo + spazi : spazi + testo;
}

}  // namespace

std::string Tabella::Intestazione(const std::string& u5, const std::string& u6, const std::string& u7) const {
    std::vector<std::string> titoli, unita;
    for (size_t i = 0; i < colonne_.size(); ++i) {
        titoli.push_back(colonne_[i].titolo);
        unita.push_back(i == 4 ? u5 : i == 5 ? u6 : i == 6 ? u7 : "");
    }
    std::string s = Riga(titoli);
    if (!u5.empty() || !u6.empty() || !u7.empty()) s += Riga(unita);
    size_t larghezza = 0;
    for (const auto& c : colonne_) larghezza += static_cast<size_t>(std::abs(c.larghezza)) + 1;
    return s + std::string(larghezza > 0 ? larghezza - 1 : 0, '-') + "\n";
}

std::string Tabella::Riga(const std::vector<std::string>& celle) const {
    std::string s;
    for (size_t i = 0; i < colonne_.size(); ++i) {
        if (i > 0) s += ' ';
        s += Cella(i < celle.size() ? celle[i] : std::string(), colonne_[i].larghezza);
    }
    while (!s.empty() && s.back() == ' ') s.pop_back();
    return s + "\n";
}

}  // namespace fornax::cli
