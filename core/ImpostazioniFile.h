#pragma once
// The user's settings kept in an INI file, shared by the desktop and the command line: the firm
// lines, the recent files, the last folders. Values are written in the INI syntax QSettings
// reads too; any value, control characters included, reads back as it was written.

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
