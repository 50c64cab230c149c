#include "editing/ui/DialoghiTronco.h"

#include "core/ui/Controlli.h"
#include "editing/ui/PTronchi.h"
#include "editing/ui/frmCopySelect.h"
#include "editing/ui/frmCportata.h"

namespace fornax::ui {

bool ApriPTronchi(QWidget* padre, Sessione& s, Messaggi& msg, const std::vector<int>& tronchi) {
    if (tronchi.empty() || tronchi.front() < 1 || tronchi.front() > s.d.NumTronchi()) return false;
    SelezioneCopia campi;
    const bool multipla = tronchi.size() > 1;
    if (multipla) {
        frmCopySelect f(s.d, padre);
        if (f.exec() != QDialog::Accepted) return false;
        campi = f.GetSelection();
    }
    PTronchi p(s, msg, padre);
    p.SReteSync();
    p.TroncoSync(tronchi.front());
    if (multipla) p.ImpostaSelezione(tronchi, campi);
    p.exec();
    return p.Fatto();
}

std::optional<modifica::EsitoUtenza> ChiediUtenza(QWidget* padre, const Sessione& s, int tronco, bool cucina) {
    if (tronco < 1 || tronco > s.d.NumTronchi()) return std::nullopt;
    const float portata = s.d.T(tronco).ID_P_UTENZE;
    modifica::EsitoUtenza e;
    if (s.d.ReteInPressione == 0 || cucina) {
        frmCportata f(s.d, padre);
        f.SetDati(tronco, portata);
        f.exec();
        if (!f.Done) return std::nullopt;
        e.portata = f.Portata;
        e.tipologia = f.Tipologia;
        e.composizione = f.Composizione;
        e.riferimento = S(f.Riferimento());
        return e;
    }
    frmPortata f(s.d, padre);
    f.SetDati(tronco, portata);
    f.exec();
    if (!f.Done) return std::nullopt;
    e.portata = f.Portata;
    e.tipologia = s.d.T(tronco).ID_TIPOUTENZA;
    e.riferimento = S(f.Riferimento());
    return e;
}

bool ApriDialogoUtenza(QWidget* padre, Sessione& s, Messaggi&, int tronco) {
    const std::optional<modifica::EsitoUtenza> e = ChiediUtenza(padre, s, tronco);
    if (!e) return false;
    PassoModifica passo(s.Storia, s.d, "utenza del tronco " + std::to_string(tronco));
    modifica::ApplicaUtenza(s.d, tronco, *e);
    return true;
}

}  // namespace fornax::ui
