#include "calc/Computo.h"

#include "archives/Materiali.h"
#include "calc/Formule.h"

namespace fornax {

ComputoTubi CalcolaComputo(const Documento& d, const Archivi& a) {
    ComputoTubi c;
    c.Materiali.resize(a.Materiali.size());
    for (size_t m = 1; m < a.Materiali.size(); ++m)
        c.Materiali[m].LunghezzaTotale.assign(a.Materiali[m].Righe.size(), 0.0f);
    // Record 0 is blank and never counts.
    for (int i = 0; i <= d.NumTronchi(); ++i) {
        const Tronco& t = d.T(i);
        if (t.Visitato == FALSO || !a.HaMateriale(t.IndiceMateriale)) continue;
        // A section without a diameter has row 0 and adds nothing; nor does a length of 0.
        const int riga = RigaTronco(a, t);
        const float lunghezza = t.ID_LEN;
        const MaterialeTubo& mat = a.Materiali[static_cast<size_t>(t.IndiceMateriale)];
        if (lunghezza == 0 || riga <= 0 || riga > mat.NumRighe()) continue;
        ComputoTubi::Materiale& m = c.Materiali[static_cast<size_t>(t.IndiceMateriale)];
        float& totale = m.LunghezzaTotale[static_cast<size_t>(riga)];
        totale = static_cast<float>(static_cast<double>(totale) + lunghezza);
        const double peso = static_cast<double>(mat.Righe[static_cast<size_t>(riga)].PesoMetro) * lunghezza;
        m.PesoTotale = static_cast<float>(m.PesoTotale + peso);
        m.Totalizzato = VERO;
        if (mat.TipoFormula == 1) c.PesoTotaleAcciaio = static_cast<float>(c.PesoTotaleAcciaio + peso);
    }
    return c;
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
