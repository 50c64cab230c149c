#pragma once
// The user's settings kept in an INI file, for the command line. The desktop reads and writes
// the same file through QSettings (IniFormat, user scope, "Fornax"): plain values are written
// the way QSettings writes them, so both see the same firm lines and recent files.

#include <map>
#include <string>

#include "core/Servizi.h"

namespace fornax {

class ImpostazioniFile final : public Impostazioni {
public:
    // The default file: $XDG_CONFIG_HOME/Fornax/Fornax.ini (or ~/.config/Fornax/Fornax.ini).
    ImpostazioniFile();
    explicit ImpostazioniFile(std::string percorso);

    static std::string PercorsoPredefinito();

    std::string Leggi(const std::string& sezione, const std::string& chiave,
                      const std::string& predefinito = "") const override;
    // Writes the whole file at once; a failure leaves the previous file as it was.
    void Scrivi(const std::string& sezione, const std::string& chiave, const std::string& valore) override;
    bool UltimaScritturaRiuscita() const { return ok_; }

private:
    void Carica();  // a damaged file is read as far as it makes sense, never fatal
    bool Salva() const;

    std::string percorso_;
    std::map<std::string, std::map<std::string, std::string>> sezioni_;
    bool ok_ = true;
};

}  // namespace fornax
