// The landscape page of the schema in the printer's report.
#include <memory>

#include "core/Cartelle.h"
#include "core/Servizi.h"
#include "core/Testo.h"
#include "reports/Relazione.h"
#include "reports/Stampante.h"
#include "schema/Carta.h"

namespace fornax {

std::string DidascaliaSchema(const Documento& d) {
    return Sinistra(d.Riferimento, 70) + " - Rete: " + NomeDi(d.NomeFileProgetto);
}

StampaSchema PaginaSchema(Documento& d, const Archivi& a, Messaggi& msg, const std::string& nomeFont,
                          double dimensioneFont) {
    return [&d, &a, &msg, nomeFont, dimensioneFont](const PaginaSchemaStampa& p) {
        schema::SchemaTarget& t = p.dispositivo.SuperficieSchema();
        // A state of its own: the schema tab's regions and selection stay as they are.
        schema::StatoSchema stato(msg);
        schema::OpzioniCarta o;
        o.adatta = p.adatta;
        o.nomeFont = nomeFont;
        o.dimensioneFont = dimensioneFont;
        schema::DisegnaSuCarta(stato, d, a, t, o);

        // The caption, in the page's own twips.
        DispositivoStampa& dev = p.dispositivo;
        Carattere c;
        c.dimensione = 11;
        dev.ImpostaFont(c);
        const std::string testo = DidascaliaSchema(d);
        if (p.adatta) {
            const double x = p.geometria.LarghezzaStampa - 1700 - dev.LarghezzaTesto(testo);
            dev.Testo(x, p.geometria.AltezzaStampa - 1500, testo);
        } else {
            dev.Testo(100, 100, testo);
        }
        c.dimensione = 9;
        dev.ImpostaFont(c);
    };
}

}  // namespace fornax
