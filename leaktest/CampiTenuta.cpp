#include "leaktest/CampiTenuta.h"

#include <variant>

#include "core/Numeri.h"

namespace fornax {

namespace {

using Membro = std::variant<std::string VerificaTenuta::*, int16_t VerificaTenuta::*>;

struct Campo {
    const char* nome;
    Membro membro;
};

// The fields in the order of the block.
const Campo CAMPI[NUM_CAMPI_TENUTA] = {
    {"txtTenutaImpiantoRagSociale", &VerificaTenuta::RagSociale},
    {"txtTenutaImpiantoIndirizzo", &VerificaTenuta::Indirizzo},
    {"txtTenutaImpiantoTelefono", &VerificaTenuta::Telefono},
    {"txtTenutaImpiantoNomeTecnico", &VerificaTenuta::NomeTecnico},
    {"txtTenutaImpiantoProprietarioNome", &VerificaTenuta::ProprietarioNome},
    {"txtTenutaImpiantoProprietarioTel", &VerificaTenuta::ProprietarioTel},
    {"txtTenutaImpiantoProprietarioComuneInstall", &VerificaTenuta::ComuneInstallazione},
    {"txtTenutaImpiantoProprietarioProv", &VerificaTenuta::Provincia},
    {"txtTenutaImpiantoProprietarioCap", &VerificaTenuta::Cap},
    {"txtTenutaImpiantoProprietarioVia", &VerificaTenuta::Via},
    {"txtTenutaImpiantoProprietarioNumero", &VerificaTenuta::Numero},
    {"txtTenutaImpiantoProprietarioScala", &VerificaTenuta::Scala},
    {"txtTenutaImpiantoProprietarioNome2", &VerificaTenuta::ProprietarioNome2},
    {"txtTenutaImpiantoProprietarioComuneResid", &VerificaTenuta::ComuneResidenza},
    {"txtTenutaImpiantoProprietarioVia2", &VerificaTenuta::Via2},
    {"txtTenutaImpiantoProprietarioNumCiv", &VerificaTenuta::NumCiv},
    {"txtTenutaImpiantoProprietarioPresente", &VerificaTenuta::Presente},
    {"FamigliaGas", &VerificaTenuta::FamigliaGas},
    {"txtTenutaImpiantoCapacitaImpianto", &VerificaTenuta::CapacitaImpianto},
    {"txtTenutaImpiantoCapacitaContatore", &VerificaTenuta::CapacitaContatore},
    {"txtTenutaImpiantoCapacitaTotale", &VerificaTenuta::CapacitaTotale},
    {"txtTenutaImpiantoDataEsecuzione", &VerificaTenuta::DataEsecuzione},
    {"txtTenutaImpiantoOraEsecuzione", &VerificaTenuta::OraEsecuzione},
    {"CauseIntervento", &VerificaTenuta::CauseIntervento},
    {"txtTenutaImpiantoCausaAltro", &VerificaTenuta::CausaAltro},
    {"txtTenutaImpiantoAppComplessivo", &VerificaTenuta::AppComplessivo},
    {"txtTenutaImpiantoAppRisc", &VerificaTenuta::AppRisc},
    {"txtTenutaImpiantoAppAcquaSan", &VerificaTenuta::AppAcquaSan},
    {"txtTenutaImpiantoAppCombinati", &VerificaTenuta::AppCombinati},
    {"txtTenutaImpiantoAppCottura", &VerificaTenuta::AppCottura},
    {"txtTenutaImpiantoAppAltroNum", &VerificaTenuta::AppAltroNum},
    {"txtTenutaImpiantoAppAltroDesc", &VerificaTenuta::AppAltroDesc},
    {"MetodoProva", &VerificaTenuta::MetodoProva},
    {"txtTenutaImpiantoProvaContModello", &VerificaTenuta::ContModello},
    {"txtTenutaImpiantoProvaContCalibro", &VerificaTenuta::ContCalibro},
    {"txtTenutaImpiantoProvaContMarca", &VerificaTenuta::ContMarca},
    {"txtTenutaImpiantoProvaContMatricola", &VerificaTenuta::ContMatricola},
    {"txtTenutaImpiantoProvaContQn", &VerificaTenuta::ContQn},
    {"txtTenutaImpiantoProvaContPprova", &VerificaTenuta::ContPprova},
    {"txtTenutaImpiantoProvaContDispRil", &VerificaTenuta::ContDispRil},
    {"txtTenutaImpiantoProvaContPRif", &VerificaTenuta::ContPRif},
    {"txtTenutaImpiantoProvaContDispRif", &VerificaTenuta::ContDispRif},
    {"txtTenutaImpiantoProvaCDPStrumento", &VerificaTenuta::CdpStrumento},
    {"txtTenutaImpiantoProvaCDPMarca", &VerificaTenuta::CdpMarca},
    {"txtTenutaImpiantoProvaCDPMatricola", &VerificaTenuta::CdpMatricola},
    {"txtTenutaImpiantoProvaCDPPprova", &VerificaTenuta::CdpPprova},
    {"txtTenutaImpiantoProvaCDPcdp", &VerificaTenuta::CdpCdp},
    {"txtTenutaImpiantoProvaCDPPrifer", &VerificaTenuta::CdpPrifer},
    {"txtTenutaImpiantoProvaCDPcdpmax", &VerificaTenuta::CdpCdpMax},
    {"DispositivoIntercettazione", &VerificaTenuta::DispositivoIntercettazione},
    {"EsitoProva", &VerificaTenuta::EsitoProva},
    {"txtTenutaImpiantoNote", &VerificaTenuta::Note},
};

bool Valido(int campo) { return campo >= 1 && campo <= NUM_CAMPI_TENUTA; }
const Campo& Di(int campo) { return CAMPI[campo - 1]; }

constexpr double kCapacitaMaxContatore = 3.0;  // litres

}  // namespace

std::string_view NomeCampoTenuta(int campo) { return Valido(campo) ? Di(campo).nome : ""; }

bool CampoTenutaIntero(int campo) {
    return Valido(campo) && std::holds_alternative<int16_t VerificaTenuta::*>(Di(campo).membro);
}

bool CampoTenutaDigitato(int campo) {
    using namespace CampoTenuta;
    if (!Valido(campo)) return false;
    switch (campo) {
        case FAMIGLIA_GAS:
        case CAPACITA_IMPIANTO:
        case CAPACITA_TOTALE:
        case CAUSE:
        case METODO:
        case CONT_PRIF:
        case CONT_DISP_RIF:
        case CDP_PRIFER:
        case CDP_CDPMAX:
        case DISPOSITIVO:
        case ESITO:
            return false;
        default:
            return true;
    }
}

bool CampoTenutaNumerico(int campo) {
    using namespace CampoTenuta;
    return campo == CAPACITA_CONTATORE || campo == CONT_QN || campo == CONT_PPROVA || campo == CONT_DISP_RIL ||
           campo == CDP_PPROVA || campo == CDP_CDP;
}

std::string TestoCampoTenuta(const VerificaTenuta& r, int campo) {
    if (!Valido(campo)) return "";
    const Membro& m = Di(campo).membro;
    if (const auto* s = std::get_if<std::string VerificaTenuta::*>(&m)) return r.**s;
    return std::to_string(r.*std::get<int16_t VerificaTenuta::*>(m));
}

void ImpostaCampoTenuta(VerificaTenuta& r, int campo, const std::string& testo) {
    if (!Valido(campo)) return;
    const Membro& m = Di(campo).membro;
    if (const auto* s = std::get_if<std::string VerificaTenuta::*>(&m))
        r.** s = testo;
    else
        r.*std::get<int16_t VerificaTenuta::*>(m) = ArrotondaI16(LeggiNumero(testo));
}

std::array<bool, NUM_CAUSE> CauseSegnate(const std::string& testo) {
    std::array<bool, NUM_CAUSE> cause{};
    std::array<std::string, NUM_CAUSE> campi;
    size_t n = 0;
    size_t inizio = 0;
    for (;;) {
        const size_t fine = testo.find(';', inizio);
        if (n == NUM_CAUSE) return {};  // more than seven fields
        campi[n++] = testo.substr(inizio, fine == std::string::npos ? std::string::npos : fine - inizio);
        if (fine == std::string::npos) break;
        inizio = fine + 1;
    }
    if (n != NUM_CAUSE) return {};
    for (size_t i = 0; i < NUM_CAUSE; ++i) cause[i] = !campi[i].empty();
    return cause;
}

std::string TestoCause(const std::array<bool, NUM_CAUSE>& cause) {
    std::string testo;
    for (size_t i = 0; i < NUM_CAUSE; ++i) {
        if (i > 0) testo += ';';
        if (cause[i]) testo += static_cast<char>('1' + i);
    }
    return testo;
}

std::string ControllaCampoNumerico(int campo, const std::string& testo) {
    if (campo == CampoTenuta::CAPACITA_CONTATORE && LeggiNumero(testo) > kCapacitaMaxContatore) return "3";
    return testo;
}

}  // namespace fornax
