#include "calc/Verifica.h"

#include <cmath>

#include "archives/Pdc.h"
#include "calc/Formule.h"

namespace fornax {

std::vector<int16_t> PercorsoSfavorito(const Documento& d) {
    int peggiore = 0;
    double massimo = 0.0;
    for (int i = 1; i <= d.NumTronchi(); ++i) {
        const Tronco& t = d.T(i);
        if (t.ID_PREV <= 0 && i != 1) continue;  // cut off the tree
        if (t.ID_PDC_PERCORSO > massimo) {
            peggiore = i;
            massimo = t.ID_PDC_PERCORSO;
        }
    }
    std::vector<int16_t> percorso;
    // Up to the root; a damaged file whose parents loop can't make the path longer than the table.
    for (int i = peggiore; i >= 1 && i <= MAX_TRONCHI && percorso.size() <= MAX_TRONCHI; i = d.T(i).ID_PREV) {
        percorso.push_back(static_cast<int16_t>(i));
    }
    return percorso;
}

double LimiteIntero(const Documento& d) { return std::trunc(static_cast<double>(LimitePdc(d))); }

Verdetti VerificaTronco(const Archivi& a, const Documento& d, int sezione) {
    const Tronco& t = d.T(sezione);
    const bool pressione = d.ReteInPressione != 0;
    const float limite = LimitePdc(d);
    Verdetti v;
    v.velocitaOltre = pressione && t.ID_VELOCITA > d.VelocitaMassima;
    v.perditaFallita = t.ID_PDC_TRONCO < 0;
    v.percorsoOltre = static_cast<double>(t.ID_PDC_PERCORSO) > std::trunc(static_cast<double>(limite));
    v.pressioneBassa = pressione && static_cast<double>(t.ID_PFINALE) < d.PressioneFinale;
    v.pressioneFallita = pressione && t.ID_PFINALE < 0;
    int ultima = 0;
    if (a.HaMateriale(t.IndiceMateriale)) ultima = a.Materiali[static_cast<size_t>(t.IndiceMateriale)].NumRighe();
    const int riga = RigaTronco(a, t);
    const bool alMassimo = (riga > 0 && riga == ultima) || DiametroTronco(a, t) <= 0;
    v.diametroInsufficiente =
        alMassimo && (t.ID_PDC_PERCORSO > limite || (pressione && t.ID_VELOCITA > d.VelocitaMassima));
    v.contemporaneita = !t.IsUtenza() && t.ID_CONTEMP < 100;
    return v;
}

}  // namespace fornax
