#include "archives/Archivi.h"

namespace fornax {

std::vector<std::string> Archivi::NomiMateriali() const {
    std::vector<std::string> nomi;
    for (size_t i = 1; i < Materiali.size(); ++i) nomi.push_back(Materiali[i].Nome);
    return nomi;
}

std::vector<std::string> Archivi::NomiGas() const {
    std::vector<std::string> nomi;
    for (size_t i = 1; i < Gas.size(); ++i) nomi.push_back(Gas[i].Nome);
    return nomi;
}

}  // namespace fornax
