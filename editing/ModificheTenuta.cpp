#include "editing/ModificheTenuta.h"

#include "leaktest/CampiTenuta.h"

namespace fornax::modifica {

namespace {

bool Codice(Documento& d, int16_t VerificaTenuta::*campo, int valore) {
    if (valore != 1 && valore != 2) return false;
    if (d.Tenuta.*campo == valore) return false;
    d.Tenuta.*campo = static_cast<int16_t>(valore);
    d.ReteModificata = VERO;
    return true;
}

}  // namespace

bool ScriviCampoTenuta(Documento& d, int campo, const std::string& testo) {
    if (!CampoTenutaDigitato(campo)) return false;
    const std::string prima = TestoCampoTenuta(d.Tenuta, campo);
    ImpostaCampoTenuta(d.Tenuta, campo, testo);
    if (TestoCampoTenuta(d.Tenuta, campo) == prima) return false;
    d.ReteModificata = VERO;
    return true;
}

bool SegnaCausaIntervento(Documento& d, int causa, bool segnata) {
    if (causa < 1 || causa > NUM_CAUSE) return false;
    std::array<bool, NUM_CAUSE> cause = CauseSegnate(d.Tenuta.CauseIntervento);
    cause[static_cast<size_t>(causa - 1)] = segnata;
    const std::string testo = TestoCause(cause);
    if (testo == d.Tenuta.CauseIntervento) return false;
    d.Tenuta.CauseIntervento = testo;
    d.ReteModificata = VERO;
    return true;
}

bool ScegliMetodoProva(Documento& d, int metodo) { return Codice(d, &VerificaTenuta::MetodoProva, metodo); }

bool ScegliDispositivoIntercettazione(Documento& d, int dispositivo) {
    return Codice(d, &VerificaTenuta::DispositivoIntercettazione, dispositivo);
}

}  // namespace fornax::modifica
