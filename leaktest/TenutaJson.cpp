#include "leaktest/TenutaJson.h"

#include "core/Json.h"
#include "leaktest/CampiTenuta.h"

namespace fornax {

std::string TenutaJson(const VerificaTenuta& r, const StatoPaginaTenuta& stato) {
    std::string j = "{\n";
    j += "  \"EsitoProva\": " + std::to_string(r.EsitoProva) + ",\n";
    j += "  \"FamigliaGas\": " + std::to_string(r.FamigliaGas) + ",\n";
    j += "  \"campi\": [";
    for (int c = 1; c <= NUM_CAMPI_TENUTA; ++c) {
        j += c == 1 ? "\n    " : ",\n    ";
        j += TestoJson(TestoCampoTenuta(r, c));
    }
    j += "\n  ],\n";
    j += "  \"descrizione\": " + TestoJson(stato.descrizione) + ",\n";
    j += "  \"errori\": [";
    bool primo = true;
    for (const std::string* e : {&stato.erroreContatore, &stato.erroreCdp}) {
        if (e->empty()) continue;
        j += primo ? "" : ", ";
        j += TestoJson(*e);
        primo = false;
    }
    j += "],\n";
    j += std::string("  \"metodoCdpDisponibile\": ") + (stato.metodoCdpDisponibile ? "true" : "false") + ",\n";
    j += std::string("  \"paginaAbilitata\": ") + (stato.abilitata ? "true" : "false") + "\n";
    j += "}\n";
    return j;
}

}  // namespace fornax
