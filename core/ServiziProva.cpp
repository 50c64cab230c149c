#include "core/ServiziProva.h"

namespace fornax {

int MessaggiRegistrati::Mostra(const std::string& testo, int flags, const std::string& titolo) {
    mostrati.push_back({testo, flags, titolo});
    if (!risposte.empty()) {
        const int r = risposte.front();
        risposte.pop_front();
        return r;
    }
    const int bottoni = flags & 7;
    return (bottoni == Box::YESNO || bottoni == Box::YESNOCANCEL) ? Risposta::YES : Risposta::OK;
}

int MessaggiRegistrati::ScegliSostituto(const std::string& nome, int, const std::vector<std::string>&) {
    sostituzioniChieste.push_back(nome);
    if (scelte.empty()) return 0;
    const int s = scelte.front();
    scelte.pop_front();
    return s;
}

std::vector<std::string> MessaggiRegistrati::Testi() const {
    std::vector<std::string> t;
    t.reserve(mostrati.size());
    for (const auto& v : mostrati) t.push_back(v.testo);
    return t;
}

std::string ImpostazioniInMemoria::Leggi(const std::string& sezione, const std::string& chiave,
                                         const std::string& predefinito) const {
    const auto it = valori.find(sezione + "/" + chiave);
    return it == valori.end() ? predefinito : it->second;
}

void ImpostazioniInMemoria::Scrivi(const std::string& sezione, const std::string& chiave, const std::string& valore) {
    valori[sezione + "/" + chiave] = valore;
}

}  // namespace fornax
