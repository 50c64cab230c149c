#pragma once
// Comparison of a calculation's JSON with the expected one: every key the expected value holds,
// numbers at the width of their field (single precision but for the fields kept in double).

#include <cstdint>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/calc/JsonMinimo.h"

namespace fornax::prova {

inline std::string LeggiTesto(const std::string& percorso) {
    std::ifstream in(percorso, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

// The fields kept in double; every other number is a float.
inline bool Doppio(const std::string& chiave) { return chiave == "VolumeTubazioni"; }

inline std::string Bits(float v) {
    uint32_t b;
    std::memcpy(&b, &v, sizeof b);
    std::ostringstream s;
    s << std::hex << b;
    return s.str();
}

// Compares every key the expected value holds with ours; collects the differences as text.
inline void Confronta(const std::string& dove, const Json& atteso, const Json& nostro, const std::string& chiave,
                      std::vector<std::string>& differenze) {
    if (atteso.tipo != nostro.tipo) {
        differenze.push_back(dove + ": tipo diverso");
        return;
    }
    switch (atteso.tipo) {
        case Json::Tipo::Oggetto:
            for (const auto& [k, v] : atteso.oggetto) {
                const Json* n = nostro.Cerca(k);
                if (n == nullptr) {
                    differenze.push_back(dove + "." + k + ": assente");
                    continue;
                }
                Confronta(dove + "." + k, v, *n, k, differenze);
            }
            break;
        case Json::Tipo::Elenco:
            if (atteso.elenco.size() != nostro.elenco.size()) {
                differenze.push_back(dove + ": " + std::to_string(atteso.elenco.size()) + " elementi attesi, " +
                                     std::to_string(nostro.elenco.size()) + " calcolati");
                return;
            }
            for (size_t i = 0; i < atteso.elenco.size(); ++i) {
                Confronta(dove + "[" + std::to_string(i) + "]", atteso.elenco[i], nostro.elenco[i], chiave, differenze);
            }
            break;
        case Json::Tipo::Numero:
            if (Doppio(chiave)) {
                if (atteso.Doppio() != nostro.Doppio())
                    differenze.push_back(dove + ": atteso " + atteso.testo + ", calcolato " + nostro.testo);
            } else if (atteso.Singolo() != nostro.Singolo()) {
                differenze.push_back(dove + ": atteso " + atteso.testo + " (" + Bits(atteso.Singolo()) +
                                     "), calcolato " + nostro.testo + " (" + Bits(nostro.Singolo()) + ")");
            }
            break;
        case Json::Tipo::Testo:
            if (atteso.testo != nostro.testo)
                differenze.push_back(dove + ": atteso \"" + atteso.testo + "\", calcolato \"" + nostro.testo + "\"");
            break;
        case Json::Tipo::Booleano:
            if (atteso.booleano != nostro.booleano) differenze.push_back(dove + ": booleano diverso");
            break;
        case Json::Tipo::Nullo:
            break;
    }
}

// The differences as one text, a line each.
inline std::vector<std::string> Differenze(const std::string& nome, const Json& atteso, const Json& nostro) {
    std::vector<std::string> d;
    Confronta(nome, atteso, nostro, "", d);
    return d;
}

inline std::string Elenco(const std::vector<std::string>& differenze) {
    std::string s;
    for (const auto& x : differenze) s += "  " + x + "\n";
    return s;
}

}  // namespace fornax::prova
