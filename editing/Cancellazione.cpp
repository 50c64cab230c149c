#include "editing/Cancellazione.h"

#include <algorithm>

#include "core/Servizi.h"

namespace fornax {

namespace {

void Chiama(const std::function<void()>& f) {
    if (f) f();
}

bool Valida(int tronco) { return tronco >= 1 && tronco <= MAX_TRONCHI; }

// Unlinked, not deleted: the record stays in the grid with parent 0 and its branch below it,
// and it is neither swept by CompattaRete nor free for reuse.
void Scollega(Documento& d, int tronco) {
    ScollegaTronco(d, static_cast<int16_t>(tronco));
    d.T(tronco).ID_SCOLLEGATO = FALSO;
}

// TagliaCoda ends with the window clearing and redrawing its grid.
void TagliaECompatta(Documento& d, const Rinfresco& r) {
    TagliaCoda(d);
    Chiama(r.rigenera);
    CompattaRete(d);
    Chiama(r.rigenera);
}

}  // namespace

bool CancellaSezione(Documento& d, int tronco, int tipo, Messaggi& msg, const Rinfresco& r) {
    if (!Valida(tronco)) return false;
    switch (tipo) {
        case TipoCancellazione::CANCELLA:
            CancellaRamo(d, static_cast<int16_t>(tronco));
            Chiama(r.rigenera);
            return true;
        case TipoCancellazione::ELIMINA_E_COMPATTA:
            CancellaRamo(d, static_cast<int16_t>(tronco));
            TagliaECompatta(d, r);
            return true;
        case TipoCancellazione::SCOLLEGA:
            if (tronco == 1) {
                msg.Mostra("Non è possibile scollegare il primo tronco.", Box::INFORMATION, "Attenzione");
                return false;
            }
            Scollega(d, tronco);
            Chiama(r.elabora);
            return true;
        default:
            return false;
    }
}

void CancellaRighe(Documento& d, int da, int a, int tipo, const Rinfresco& r) {
    const int primo = std::max(1, std::min(da, a));
    const int ultimo = std::min(MAX_TRONCHI, std::max(da, a));
    for (int riga = primo; riga <= ultimo; ++riga) {
        switch (tipo) {
            case TipoCancellazione::CANCELLA:
                CancellaRamo(d, static_cast<int16_t>(riga));
                break;
            case TipoCancellazione::ELIMINA_E_COMPATTA:
                CancellaRamo(d, static_cast<int16_t>(riga));
                Chiama(r.elabora);
                break;
            case TipoCancellazione::SCOLLEGA:
                Scollega(d, riga);
                break;
            default:
                return;
        }
    }
    switch (tipo) {
        case TipoCancellazione::CANCELLA:
            Chiama(r.rigenera);
            break;
        case TipoCancellazione::ELIMINA_E_COMPATTA:
            TagliaECompatta(d, r);
            break;
        case TipoCancellazione::SCOLLEGA:
            Chiama(r.elabora);
            break;
        default:
            break;
    }
}

}  // namespace fornax
