#pragma once
// Recording doubles of the platform services, for tests and for headless runs.

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "core/Servizi.h"

namespace fornax {

class MessaggiRegistrati final : public Messaggi {
public:
    struct Voce {
        std::string testo;
        int flags;
        std::string titolo;
    };
    std::vector<Voce> mostrati;
    std::deque<int> risposte;  // answers given in order; Risposta::OK/YES when empty
    std::deque<int> scelte;    // substitution choices in order; 0 when empty
    std::vector<std::string> sostituzioniChieste;

    int Mostra(const std::string& testo, int flags = Box::OK, const std::string& titolo = "") override;
    int ScegliSostituto(const std::string& nome, int tipo, const std::vector<std::string>& elenco) override;

    // Texts shown so far, in order.
    std::vector<std::string> Testi() const;
};

class ImpostazioniInMemoria final : public Impostazioni {
public:
    std::map<std::string, std::string> valori;  // "sezione/chiave" -> valore
    std::string Leggi(const std::string& sezione, const std::string& chiave,
                      const std::string& predefinito = "") const override;
    void Scrivi(const std::string& sezione, const std::string& chiave, const std::string& valore) override;
};

}  // namespace fornax
