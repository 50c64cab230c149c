#pragma once
// The judgement of a leak test under UNI 11137-1 (edition 2004: first and second family only).
//
// The page of the leak test shows the record's fields as texts; the rules read the numbers
// from those texts (a decimal comma is accepted, what isn't a number counts 0) and write the
// referred values and the verdict back into the record, so that the record always holds what
// the page shows and what the report prints.

#include <string>

#include "archives/Archivi.h"
#include "core/Documento.h"

namespace fornax {

class Messaggi;

// What the page shows beside the record.
struct StatoPaginaTenuta {
    bool inizializzata = false;  // the page has been loaded once
    bool abilitata = true;       // the page can be edited
    std::string descrizione;     // lblTenutaImpiantoDescrizioneProva
    bool descrizioneRossa = false;
    int opzioneFamiglia = 0;           // 1..3: optTenutaImpianto1afam..3afam, 0 none
    bool metodoCdpDisponibile = true;  // total capacity not above 25 litres
    std::string erroreContatore;       // lblTenutaImpiantoProvaContErrore
    std::string erroreCdp;             // lblTenutaImpiantoProvaCDPErrore
};

// Verdicts of EsitoProva.
namespace Esito {
constexpr int16_t IDONEO = 1;
constexpr int16_t TEMPORANEO = 2;
constexpr int16_t NON_IDONEO = 3;
}  // namespace Esito

// The page loads: the firm's defaults fill fields 1..4 when all four are empty, then the page
// is judged. `volumeTubazioniLitri` is the capacity of the pipes (VolumeTubazioni / 1000).
void TenutaImpiantoInit(Documento& d, const Archivi& a, const DefaultTenuta& ditta, StatoPaginaTenuta& stato,
                        double volumeTubazioniLitri, Messaggi& msg);

// The whole judgement: family, capacities, method, referred values, verdict, gas family.
void TenutaImpiantoRefresh(Documento& d, const Archivi& a, StatoPaginaTenuta& stato, double volumeTubazioniLitri,
                           Messaggi& msg);

// The evaluation alone on a record, with the family's reference pressure and leak.
void ValutaTenuta(VerificaTenuta& r, StatoPaginaTenuta& stato, float pressioneRif, float dispersioneRif);

// The frame of a method's data (1 meter, 2 pressure drop) is open while that method is chosen;
// with no method chosen neither is.
inline bool MetodoAperto(const VerificaTenuta& r, int metodo) { return r.MetodoProva == metodo; }
// A pair of options (method, shut-off device) neither of which is chosen: the page points it
// out as what is missing.
inline bool CoppiaSenzaRisposta(int16_t codice) { return codice != 1 && codice != 2; }
// The verdict "not suitable" is drawn in red.
inline bool EsitoInRosso(const VerificaTenuta& r) { return r.EsitoProva == Esito::NON_IDONEO; }

}  // namespace fornax
