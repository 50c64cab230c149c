#include "reports/ui/SchemaSuCarta.h"

#include <QString>

#include "core/Servizi.h"
#include "reports/Relazione.h"
#include "reports/ui/RelazionePdf.h"
#include "schema/Carta.h"
#include "schema/ui/SchemaQt.h"

namespace fornax {

bool SaveSchema(Documento& d, const Archivi& a, Messaggi& msg, const std::string& percorso) {
    ApplicazioneGrafica();
    schema::StatoSchema stato(msg);
    schema::OpzioniCarta o;
    o.superficie = schema::Superficie::Print;
    return schema::ui::SalvaImmagineSchema(QString::fromStdString(percorso), LARGHEZZA_IMMAGINE_SCHEMA,
                                           ALTEZZA_IMMAGINE_SCHEMA, DPI_IMMAGINE_SCHEMA, schema::ui::Aspetto::Carta,
                                           [&](schema::SchemaTarget& t) { schema::DisegnaSuCarta(stato, d, a, t, o); });
}

SalvaSchema SalvaSchemaBmp(Documento& d, const Archivi& a, Messaggi& msg) {
    return [&d, &a, &msg](const std::string& percorso) {
        if (!SaveSchema(d, a, msg, percorso)) Fallisci(CodiceErrore::ACCESSO);
    };
}

bool SalvaVistaSchema(Documento& d, const Archivi& a, Messaggi& msg, const VistaSchemaFile& v,
                      const std::string& percorso) {
    ApplicazioneGrafica();
    schema::StatoSchema stato(msg);
    stato.Zoom = schema::LimitaZoom(v.zoom);
    stato.LarghezzaSchermo = v.schermoL;
    stato.AltezzaSchermo = v.schermoA;
    const schema::ChiamataSchema chiamata;  // the schema tab: picDisplay, "Arial" 7
    return schema::ui::SalvaImmagineSchema(QString::fromStdString(percorso), stato, d, a, chiamata, v.larghezza,
                                           v.altezza, DPI_IMMAGINE_SCHEMA, schema::ui::Aspetto::Carta);
}

}  // namespace fornax
