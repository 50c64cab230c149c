#include "reports/Stampa.h"

#include <cstdint>
#include <fstream>

#include "core/Cartelle.h"
#include "core/Servizi.h"

namespace fornax {

std::string TestoErroreStampa(const std::string& apertura, const EsitoStampa& e) {
    return apertura + "\n" + TestoFase(e.fase) + "\nCodice d'errore: " + std::to_string(e.codice) +
           "\nDescrizione errore: " + e.descrizione;
}

bool DimensioniBmp(const std::string& percorso, int32_t& larghezza, int32_t& altezza) {
    std::ifstream in(percorso, std::ios::binary);
    unsigned char h[26] = {};
    if (!in.read(reinterpret_cast<char*>(h), sizeof h) || h[0] != 'B' || h[1] != 'M') return false;
    auto le32 = [&](int o) {
        return static_cast<int32_t>(static_cast<uint32_t>(h[o]) | static_cast<uint32_t>(h[o + 1]) << 8 |
                                    static_cast<uint32_t>(h[o + 2]) << 16 | static_cast<uint32_t>(h[o + 3]) << 24);
    };
    const uint32_t intestazione = static_cast<uint32_t>(le32(14));
    if (intestazione == 12) {  // the old OS/2 header holds 16-bit sizes
        larghezza = h[18] | h[19] << 8;
        altezza = h[20] | h[21] << 8;
    } else {
        larghezza = le32(18);
        altezza = le32(22);
        if (altezza < 0) altezza = -altezza;  // a top-down bitmap
    }
    return larghezza > 0 && altezza > 0;
}

bool ControllaLogo(const std::string& cartellaProgramma, Messaggi& msg) {
    const std::string percorso = TrovaFile(cartellaProgramma, "logo.bmp");
    if (!EsisteFile(percorso)) return false;
    int32_t larghezza = 0, altezza = 0;
    // The header has room for 2295 x 300 twips, 15 twips to the pixel of a 96 dpi screen.
    constexpr int32_t kTwip = 15;
    if (!DimensioniBmp(percorso, larghezza, altezza) || larghezza * kTwip > 2295 || altezza * kTwip > 300) {
        msg.Mostra("Le dimensioni massime consentite sono 184 X 41 pixel.\nIl logo non verrà stampato.");
        return false;
    }
    return true;
}

bool UscitaConfermata(const std::string& percorso, Messaggi& msg) {
    if (percorso.empty()) return false;
    if (!EsisteFile(percorso)) return true;
    return msg.Mostra(DOMANDA_SOVRASCRIVI, Box::YESNO | Box::QUESTION, "Sovrascrivere") == Risposta::YES;
}

namespace {

bool Chiudi(const EsitoStampa& e, const std::string& apertura, const std::string& successo, Messaggi& msg) {
    if (e.riuscita)
        msg.Mostra(successo, Box::INFORMATION, "Conclusione");
    else
        msg.Mostra(TestoErroreStampa(apertura, e), Box::EXCLAMATION, "Errore");
    return e.riuscita;
}

}  // namespace

bool StampaHTML(Documento& d, const Archivi& a, const OpzioniStampa& o, const std::string& percorso, Avanzamento& av,
                Messaggi& msg, const SalvaSchema& schema) {
    return Chiudi(PrintHTMLFile(d, a, o, percorso, av, msg, schema), "Stampa su file HTML.",
                  "Stampa su file HTML conclusa con successo.", msg);
}

bool StampaTXT(Documento& d, const Archivi& a, const OpzioniStampa& o, const std::string& percorso, Avanzamento& av,
               Messaggi& msg, const SalvaSchema& schema) {
    return Chiudi(PrintTXTFile(d, a, o, percorso, av, msg, schema), "Stampa su file TXT.",
                  "Stampa su file TXT conclusa con successo.", msg);
}

}  // namespace fornax
