// fornax-cli ditta: the two lines that name the user's firm in the header of every report
// page, kept in the user's settings (section "Ditta", keys "Riga1" and "Riga2") where the
// desktop's defaults dialog edits them too.
#include <iostream>
#include <string>
#include <vector>

#include "cli/Comandi.h"
#include "core/ImpostazioniFile.h"

namespace fornax::cli {

namespace {

constexpr int kMassimo = 50;  // characters of each line

int Caratteri(const std::string& s) {
    int n = 0;
    for (char c : s)
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++n;
    return n;
}

int Ditta(ContestoCli&, const std::vector<std::string>& argomenti) {
    ImpostazioniFile impostazioni;
    if (argomenti.empty()) {
        std::cout << impostazioni.Leggi("Ditta", "Riga1") << "\n" << impostazioni.Leggi("Ditta", "Riga2") << "\n";
        return ESITO_OK;
    }
    if (argomenti.size() != 2) {
        std::cerr << "fornax-cli ditta: indicare le due righe della ditta (ditta \"RIGA1\" \"RIGA2\")\n";
        return ESITO_USO;
    }
    for (size_t i = 0; i < 2; ++i) {
        if (Caratteri(argomenti[i]) > kMassimo) {
            std::cerr << "fornax-cli ditta: la riga " << i + 1 << " supera i " << kMassimo << " caratteri\n";
            return ESITO_USO;
        }
    }
    impostazioni.Scrivi("Ditta", "Riga1", argomenti[0]);
    if (impostazioni.UltimaScritturaRiuscita()) impostazioni.Scrivi("Ditta", "Riga2", argomenti[1]);
    if (!impostazioni.UltimaScritturaRiuscita()) {
        std::cerr << "fornax-cli ditta: impossibile scrivere le impostazioni in "
                  << ImpostazioniFile::PercorsoPredefinito() << "\n";
        return ESITO_PROGETTO;
    }
    return ESITO_OK;
}

const bool registrato = RegistraComando(
    {"ditta", "ditta [\"RIGA1\" \"RIGA2\"]",
     "imposta le due righe della ditta (al massimo 50 caratteri ciascuna) stampate nell'intestazione delle "
     "relazioni; senza argomenti le mostra",
     Ditta});

}  // namespace

}  // namespace fornax::cli
