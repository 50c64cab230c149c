#include "editing/Cancellazione.h"

#include <algorithm>

#include "core/Servizi.h"

namespace fornax {

namespace {

void Chiama(const std::function<void()>& f) {
    if (f) f();
}

// Only the table's sections can be deleted: a record beyond its count is not part of the
// document, and the parent it may still name is a section of the table that doesn't derive it.
bool Valida(const Documento& d, int tronco) { return tronco >= 1 && tronco <= d.NumTronchi(); }

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
    if (!Valida(d, tronco)) return false;
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
        // The first row taken away empties the table: the rows after it are no longer part of it.
        if (!Valida(d, riga)) break;
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
