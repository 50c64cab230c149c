#pragma once
// Plain-text tables of the command line: fixed-width columns, numbers to the right.

#include <string>
#include <vector>

namespace fornax::cli {

class Tabella {
public:
    struct Colonna {
        std::string titolo;
        int larghezza;  // negative: text aligned to the left
    };
    explicit Tabella(std::vector<Colonna> colonne) : colonne_(std::move(colonne)) {}
    void AggiungiColonna(Colonna c) { colonne_.push_back(std::move(c)); }
    // The titles, an optional line of units by column position (from the fifth), and a rule.
    std::string Intestazione(const std::string& u5 = "", const std::string& u6 = "", const std::string& u7 = "") const;
    std::string Riga(const std::vector<std::string>& celle) const;

private:
    std::vector<Colonna> colonne_;
};

}  // namespace fornax::cli
