#include "leaktest/AperturaTenuta.h"

#include "calc/Computo.h"
#include "documento/Tenuta.h"

namespace fornax {

void ApriPaginaTenuta(Documento& d, const Archivi& a, StatoPaginaTenuta& stato, Messaggi& msg) {
    const DefaultTenuta ditta = LeggiDefaultTenuta(a.Cartella, msg);
    TenutaImpiantoInit(d, a, ditta, stato, VolumeTubazioni(d, a) / 1000.0, msg);
}

void RinfrescaPaginaTenuta(Documento& d, const Archivi& a, StatoPaginaTenuta& stato, Messaggi& msg) {
    TenutaImpiantoRefresh(d, a, stato, VolumeTubazioni(d, a) / 1000.0, msg);
}

}  // namespace fornax
