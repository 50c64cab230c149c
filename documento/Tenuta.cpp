#include "documento/Tenuta.h"

#include <cstdint>
#include <variant>

#include "core/Cartelle.h"
#include "core/Numeri.h"
#include "core/Servizi.h"

namespace fornax {

namespace {

using CampoTenuta = std::variant<std::string VerificaTenuta::*, int16_t VerificaTenuta::*>;

// The 52 fields in the order of the block.
const CampoTenuta CAMPI[] = {
    &VerificaTenuta::RagSociale,
    &VerificaTenuta::Indirizzo,
    &VerificaTenuta::Telefono,
    &VerificaTenuta::NomeTecnico,
    &VerificaTenuta::ProprietarioNome,
    &VerificaTenuta::ProprietarioTel,
    &VerificaTenuta::ComuneInstallazione,
    &VerificaTenuta::Provincia,
    &VerificaTenuta::Cap,
    &VerificaTenuta::Via,
    &VerificaTenuta::Numero,
    &VerificaTenuta::Scala,
    &VerificaTenuta::ProprietarioNome2,
    &VerificaTenuta::ComuneResidenza,
    &VerificaTenuta::Via2,
    &VerificaTenuta::NumCiv,
    &VerificaTenuta::Presente,
    &VerificaTenuta::FamigliaGas,
    &VerificaTenuta::CapacitaImpianto,
    &VerificaTenuta::CapacitaContatore,
    &VerificaTenuta::CapacitaTotale,
    &VerificaTenuta::DataEsecuzione,
    &VerificaTenuta::OraEsecuzione,
    &VerificaTenuta::CauseIntervento,
    &VerificaTenuta::CausaAltro,
    &VerificaTenuta::AppComplessivo,
    &VerificaTenuta::AppRisc,
    &VerificaTenuta::AppAcquaSan,
    &VerificaTenuta::AppCombinati,
    &VerificaTenuta::AppCottura,
    &VerificaTenuta::AppAltroNum,
    &VerificaTenuta::AppAltroDesc,
    &VerificaTenuta::MetodoProva,
    &VerificaTenuta::ContModello,
    &VerificaTenuta::ContCalibro,
    &VerificaTenuta::ContMarca,
    &VerificaTenuta::ContMatricola,
    &VerificaTenuta::ContQn,
    &VerificaTenuta::ContPprova,
    &VerificaTenuta::ContDispRil,
    &VerificaTenuta::ContPRif,
    &VerificaTenuta::ContDispRif,
    &VerificaTenuta::CdpStrumento,
    &VerificaTenuta::CdpMarca,
    &VerificaTenuta::CdpMatricola,
    &VerificaTenuta::CdpPprova,
    &VerificaTenuta::CdpCdp,
    &VerificaTenuta::CdpPrifer,
    &VerificaTenuta::CdpCdpMax,
    &VerificaTenuta::DispositivoIntercettazione,
    &VerificaTenuta::EsitoProva,
    &VerificaTenuta::Note,
};
static_assert(std::size(CAMPI) == 52);

const char* const FILE_DITTA = "TENIMPTECDEF.CFG";

}  // namespace

void SalvaTenuta(ScrittoreTesto& w, const VerificaTenuta& r) {
    w.Riga(MARCA_TENUTA);
    for (const CampoTenuta& c : CAMPI) {
        if (const auto* s = std::get_if<std::string VerificaTenuta::*>(&c))
            w.Riga(RigaNonCommento(r.**s));
        else
            w.Riga(std::to_string(r.*std::get<int16_t VerificaTenuta::*>(c)));
    }
}

void CaricaTenuta(FileTesto& f, VerificaTenuta& r) {
    const size_t inizio = f.Posizione();
    bool trovata = false;
    while (!f.Fine() && !trovata) trovata = f.RigaFisica() == MARCA_TENUTA;
    if (!trovata) {
        f.Riposiziona(inizio);
        return;
    }
    for (const CampoTenuta& c : CAMPI) {
        const std::string riga = f.LeggiRigaGrezza();
        if (const auto* s = std::get_if<std::string VerificaTenuta::*>(&c))
            r.** s = riga;
        else
            r.*std::get<int16_t VerificaTenuta::*>(c) = ArrotondaI16(LeggiNumero(riga));
    }
}

DefaultTenuta LeggiDefaultTenuta(const std::string& cartella, Messaggi& msg) {
    DefaultTenuta d;
    const std::string percorso = TrovaFile(cartella, FILE_DITTA);
    if (!EsisteFile(percorso)) {
        SalvaDefaultTenuta(cartella, VerificaTenuta{}, msg);
        return d;
    }
    FileTesto f;
    if (!f.Apri(percorso)) return d;
    f.RigaFisica();  // version of the file, not used
    d.RagSociale = f.RigaFisica();
    d.Indirizzo = f.RigaFisica();
    d.Telefono = f.RigaFisica();
    d.NomeTecnico = f.RigaFisica();
    return d;
}

bool SalvaDefaultTenuta(const std::string& cartella, const VerificaTenuta& r, Messaggi& msg) {
    ScrittoreTesto w;
    w.Riga("4.0");
    w.Riga(UnaRiga(r.RagSociale));
    w.Riga(UnaRiga(r.Indirizzo));
    w.Riga(UnaRiga(r.Telefono));
    w.Riga(UnaRiga(r.NomeTecnico));
    return w.SalvaOAvvisa(TrovaFile(cartella, FILE_DITTA), msg);
}

}  // namespace fornax
