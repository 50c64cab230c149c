#pragma once
// A small JSON reader for the tests: objects keep the order of their keys, numbers keep their
// text so that the caller reads them at the width it needs.

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace fornax::prova {

struct Json {
    enum class Tipo { Nullo, Booleano, Numero, Testo, Elenco, Oggetto };
    Tipo tipo = Tipo::Nullo;
    bool booleano = false;
    std::string testo;  // the text of a number, or a string's value
    std::vector<Json> elenco;
    std::vector<std::pair<std::string, Json>> oggetto;

    const Json* Cerca(const std::string& chiave) const {
        for (const auto& [k, v] : oggetto)
            if (k == chiave) return &v;
        return nullptr;
    }
    const Json& operator[](const std::string& chiave) const {
        const Json* v = Cerca(chiave);
        if (v == nullptr) throw std::runtime_error("chiave assente: " + chiave);
        return *v;
    }
    double Doppio() const { return std::stod(testo); }
    float Singolo() const { return std::stof(testo); }
    long Intero() const { return std::stol(testo); }
};

class LettoreJson {
public:
    explicit LettoreJson(std::string testo) : s_(std::move(testo)) {}

    Json Leggi() {
        Json v = Valore();
        Spazi();
        if (p_ != s_.size()) Errore("testo dopo il valore");
        return v;
    }

private:
    [[noreturn]] void Errore(const std::string& cosa) const {
        throw std::runtime_error("JSON non valido a " + std::to_string(p_) + ": " + cosa);
    }
    void Spazi() {
        while (p_ < s_.size() && (s_[p_] == ' ' || s_[p_] == '\n' || s_[p_] == '\r' || s_[p_] == '\t')) ++p_;
    }
    char Prossimo() {
        Spazi();
        if (p_ >= s_.size()) Errore("fine inattesa");
        return s_[p_];
    }
    void Atteso(char c) {
        if (Prossimo() != c) Errore(std::string("atteso ") + c);
        ++p_;
    }
    bool Parola(const char* w) {
        const std::string parola(w);
        if (s_.compare(p_, parola.size(), parola) != 0) return false;
        p_ += parola.size();
        return true;
    }

    Json Valore() {
        const char c = Prossimo();
        Json v;
        if (c == '{') {
            v.tipo = Json::Tipo::Oggetto;
            ++p_;
            if (Prossimo() == '}') {
                ++p_;
                return v;
            }
            for (;;) {
                std::string k = Stringa();
                Atteso(':');
                v.oggetto.emplace_back(std::move(k), Valore());
                if (Prossimo() == ',') {
                    ++p_;
                    continue;
                }
                Atteso('}');
                return v;
            }
        }
        if (c == '[') {
            v.tipo = Json::Tipo::Elenco;
            ++p_;
            if (Prossimo() == ']') {
                ++p_;
                return v;
            }
            for (;;) {
                v.elenco.push_back(Valore());
                if (Prossimo() == ',') {
                    ++p_;
                    continue;
                }
                Atteso(']');
                return v;
            }
        }
        if (c == '"') {
            v.tipo = Json::Tipo::Testo;
            v.testo = Stringa();
            return v;
        }
        if (Parola("true")) {
            v.tipo = Json::Tipo::Booleano;
            v.booleano = true;
            return v;
        }
        if (Parola("false")) {
            v.tipo = Json::Tipo::Booleano;
            return v;
        }
        if (Parola("null")) return v;
        const size_t inizio = p_;
        while (p_ < s_.size() && std::string("+-0123456789.eE").find(s_[p_]) != std::string::npos) ++p_;
        if (p_ == inizio) Errore("valore sconosciuto");
        v.tipo = Json::Tipo::Numero;
        v.testo = s_.substr(inizio, p_ - inizio);
        return v;
    }

    std::string Stringa() {
        Atteso('"');
        std::string out;
        while (p_ < s_.size() && s_[p_] != '"') {
            char c = s_[p_++];
            if (c == '\\') {
                if (p_ >= s_.size()) Errore("escape troncato");
                const char e = s_[p_++];
                switch (e) {
                    case 'n':
                        out += '\n';
                        break;
                    case 'r':
                        out += '\r';
                        break;
                    case 't':
                        out += '\t';
                        break;
                    case 'u': {
                        if (p_ + 4 > s_.size()) Errore("escape troncato");
                        const unsigned long cp = std::stoul(s_.substr(p_, 4), nullptr, 16);
                        p_ += 4;
                        if (cp < 0x80) {
                            out += static_cast<char>(cp);
                        } else if (cp < 0x800) {
                            out += static_cast<char>(0xC0 | (cp >> 6));
                            out += static_cast<char>(0x80 | (cp & 0x3F));
                        } else {
                            out += static_cast<char>(0xE0 | (cp >> 12));
                            out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
                            out += static_cast<char>(0x80 | (cp & 0x3F));
                        }
                        break;
                    }
                    default:
                        out += e;
                }
            } else {
                out += c;
            }
        }
        Atteso('"');
        return out;
    }

    std::string s_;
    size_t p_ = 0;
};

inline Json LeggiJson(const std::string& testo) { return LettoreJson(testo).Leggi(); }

}  // namespace fornax::prova
