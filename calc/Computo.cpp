#include "calc/Computo.h"

#include "archives/Materiali.h"
#include "calc/Formule.h"

namespace fornax {

void CalcolaComputo(const Documento& d, Archivi& a, int slot) {
    if (slot == 0) return;
    // Record 0 is blank and never counts.
    for (int i = 0; i <= d.NumTronchi(); ++i) {
        const Tronco& t = d.T(i);
        if (t.Visitato == FALSO || !a.HaMateriale(t.IndiceMateriale)) continue;
        // A section without a diameter has row 0 and adds nothing.
        AggiungiComputo(a, t.IndiceMateriale, RigaTronco(a, t), t.ID_LEN);
    }
}

double VolumeTubazioni(const Documento& d, const Archivi& a) {
    double volume = 0.0;
    for (int i = 1; i <= d.NumTronchi(); ++i) {
        const Tronco& t = d.T(i);
        const double raggio = static_cast<double>(DiametroTronco(a, t)) / 2.0;
        volume += raggio * raggio * static_cast<double>(t.ID_LEN) * 3.1415;
    }
    return volume;
}

}  // namespace fornax
