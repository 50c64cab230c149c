#include "archives/Pdc.h"

#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/Numeri.h"
#include "core/Servizi.h"

namespace fornax {

namespace {

// Limits in force wherever a file gives none: up to 35 kW 50/100/200 Pa for the first,
// second and third family, above it 50/50/200 Pa.
constexpr float SOGLIA_PREDEFINITA = 35.0f;
constexpr float PDC_PREDEFINITE[3][4] = {{0, 0, 0, 0}, {0, 50.0f, 100.0f, 200.0f}, {0, 50.0f, 50.0f, 200.0f}};

}  // namespace

void CaricaPdc(TabellaPdc& t, const std::string& cartella, int32_t normativa, Messaggi& msg) {
    t.NomeFilePdc = normativa == 1 ? "PDCMAX_1992.CFG" : "PDCMAX_2008.CFG";
    FileTesto f;
    const std::string percorso = TrovaFile(cartella, t.NomeFilePdc);
    if (!EsisteFile(percorso) || !f.Apri(percorso)) {
        msg.Mostra("Non esiste il file PDC '" + t.NomeFilePdc + "'", Box::EXCLAMATION);
        return;
    }
    // Seven lines, one number each: the threshold, then band by band, family by family.
    t.SogliaPotenza = Singolo(LeggiNumero(f.RigaFisica()));
    for (size_t fascia = 1; fascia <= 2; ++fascia)
        for (size_t fam = 1; fam <= 3; ++fam) t.PdcMax[fascia][fam] = Singolo(LeggiNumero(f.RigaFisica()));
}

bool SalvaPdc(const TabellaPdc& t, const std::string& cartella, Messaggi& msg) {
    ScrittoreTesto w;
    w.Riga(NumeroFile(t.SogliaPotenza));
    for (size_t fascia = 1; fascia <= 2; ++fascia)
        for (size_t fam = 1; fam <= 3; ++fam) w.Riga(NumeroFile(t.PdcMax[fascia][fam]));
    const std::string nome = t.NomeFilePdc.empty() ? std::string("PDCMAX_2008.CFG") : t.NomeFilePdc;
    return w.SalvaOAvvisa(TrovaFile(cartella, nome), msg);
}

void VerificaDefaultPdc(TabellaPdc& t) {
    if (!(t.SogliaPotenza > 0)) t.SogliaPotenza = SOGLIA_PREDEFINITA;
    for (size_t fascia = 1; fascia <= 2; ++fascia)
        for (size_t fam = 1; fam <= 3; ++fam)
            if (!(t.PdcMax[fascia][fam] > 0)) t.PdcMax[fascia][fam] = PDC_PREDEFINITE[fascia][fam];
}

float LimitePdc(const Documento& d) {
    if (d.DpMax > 0) return static_cast<float>(d.DpMax);
    // Section 1 carries the whole flow, so this is the power of the installation in kW.
    const float potenza = static_cast<float>(static_cast<double>(d.GasCorrente.Pci) * d.T(1).ID_P_TRONCO / 3.6);
    const int fam = d.GasCorrente.Famiglia;
    if (fam < 0 || fam > 3) return 0;
    const size_t fascia = potenza > d.Pdc.SogliaPotenza ? 2 : 1;
    return d.Pdc.PdcMax[fascia][static_cast<size_t>(fam)];
}

bool LimitiRispettati(const Documento& d) {
    const float limite = LimitePdc(d);
    for (int i = 1; i <= d.NumTronchi(); ++i)
        if (d.T(i).ID_PDC_PERCORSO > limite) return false;
    return true;
}

}  // namespace fornax
