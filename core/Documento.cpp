#include "core/Documento.h"

#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"

namespace fornax {

int16_t Tronco::Conteggio(int tipo) const {
    switch (tipo) {
        case 1:
            return ID_NCURVE;
        case 2:
            return ID_NRACCORDI;
        case 3:
            return ID_NGOMITI;
        case 4:
            return ID_NRUBINETTI;
        case 5:
            return ID_SPC5;
        case 6:
            return ID_SPC6;
        case 7:
            return ID_SPC7;
        case 8:
            return ID_SPC8;
        case 9:
            return ID_SPC9;
        case 10:
            return ID_SPC10;
        default:
            return 0;
    }
}

// A number as the product prints it in a message: a blank in place of the plus sign.
static std::string NumeroConSegno(int n) { return (n < 0 ? "" : " ") + std::to_string(n); }

int16_t NuovoTronco(Documento& d, int16_t parent, const std::vector<std::string>& nomiMateriali,
                    const std::string& materialeDefault, Messaggi& msg) {
    Rete& r = d.rete();
    int16_t nuovo = 0;
    for (int i = 1; i <= r.NumTronchi; ++i) {
        const Tronco& t = r.Tronchi[static_cast<size_t>(i)];
        if (t.ID_SCOLLEGATO != 0 && t.ID_CANCELLATO != 0) {
            nuovo = static_cast<int16_t>(i);
            break;
        }
    }
    if (nuovo == 0) {
        if (r.NumTronchi >= MAX_TRONCHI) {
            msg.Mostra("Raggiunto il massimo numero di tronchi.");
            return 0;
        }
        nuovo = ++r.NumTronchi;
    }
    Tronco& t = d.T(nuovo);
    t.ID_CANCELLATO = FALSO;
    t.ID_SCOLLEGATO = FALSO;
    t.ID_LEFT = 0;
    t.ID_RIGHT = 0;
    t.ID_LEN = 1.0f;

    if (r.MaterialeCorrente == 0) {
        const int m = PosizioneNome(nomiMateriali, materialeDefault);
        r.MaterialeCorrente = static_cast<int16_t>(m > 0 ? m : 1);
    }
    t.IndiceMateriale = r.MaterialeCorrente;
    const auto m = static_cast<size_t>(r.MaterialeCorrente);
    t.ID_MATERIALE = m >= 1 && m <= nomiMateriali.size() ? nomiMateriali[m - 1] : std::string();
    t.ID_PREV = parent;

    if (parent != 0 && Rete::IndiceValido(parent)) {
        Tronco& p = d.T(parent);
        if (p.ID_LEFT == 0) {
            p.ID_LEFT = nuovo;
        } else if (p.ID_RIGHT == 0) {
            p.ID_RIGHT = nuovo;
        } else {
            // The record taken stays counted: the caller sees the table one longer. It names no
            // parent, as a parent refused in the grid leaves it: a parent that doesn't derive the
            // section would be a tree whose links disagree.
            t.ID_PREV = 0;
            msg.Mostra("Errore! Il tronco" + NumeroConSegno(parent) + " ha gia' due derivazioni");
            return 0;
        }
    }
    return nuovo;
}

// Clears the parent's link to `sezione`: the left one when it points here, else the right one.
static void StaccaDalPadre(Documento& d, Tronco& t, int16_t sezione) {
    if (t.ID_PREV > 0 && Rete::IndiceValido(t.ID_PREV)) {
        Tronco& p = d.T(t.ID_PREV);
        if (p.ID_LEFT == sezione) {
            p.ID_LEFT = 0;
        } else {
            p.ID_RIGHT = 0;
        }
    }
}

void ScollegaTronco(Documento& d, int16_t sezione) {
    if (sezione <= 0 || !Rete::IndiceValido(sezione)) return;
    if (sezione == 1) d.rete().NumTronchi = 0;
    Tronco& t = d.T(sezione);
    StaccaDalPadre(d, t, sezione);
    t.ID_PREV = 0;
    t.ID_SCOLLEGATO = VERO;
    d.ReteModificata = VERO;
}

// Depth-first over the branch. A damaged file may link a record into its own branch: the
// `visitati` marks keep the walk finite whatever the links say.
static void CancellaRamoDa(Documento& d, int16_t sezione, std::array<bool, MAX_TRONCHI + 1>& visitati) {
    if (sezione <= 0 || !Rete::IndiceValido(sezione) || visitati[static_cast<size_t>(sezione)]) return;
    visitati[static_cast<size_t>(sezione)] = true;
    if (sezione == 1) d.rete().NumTronchi = 0;
    Tronco& t = d.T(sezione);
    StaccaDalPadre(d, t, sezione);
    const int16_t sinistro = t.ID_LEFT;
    const int16_t destro = t.ID_RIGHT;
    if (sinistro > 0) CancellaRamoDa(d, sinistro, visitati);
    if (destro > 0) CancellaRamoDa(d, destro, visitati);
    t.ID_LEFT = 0;
    t.ID_RIGHT = 0;
    AzzeraTronco(t);
    t.ID_SCOLLEGATO = VERO;
    t.ID_CANCELLATO = VERO;
    d.ReteModificata = VERO;
}

void CancellaRamo(Documento& d, int16_t sezione) {
    std::array<bool, MAX_TRONCHI + 1> visitati{};
    CancellaRamoDa(d, sezione, visitati);
}

void TagliaCoda(Documento& d) {
    Rete& r = d.rete();
    int i = r.NumTronchi;
    while (i > 1) {
        Tronco& t = d.T(i);
        if (t.ID_PREV != 0 || t.ID_SCOLLEGATO == FALSO) break;
        AzzeraTronco(t);
        t.ID_SCOLLEGATO = VERO;
        --i;
    }
    if (i < 1) return;
    const bool seguenteLibero = i + 1 > MAX_TRONCHI || d.T(i + 1).ID_PREV == 0;
    if (seguenteLibero && d.T(i).ID_SCOLLEGATO != FALSO) r.NumTronchi = static_cast<int16_t>(i);
}

void CompattaRete(Documento& d) {
    Rete& r = d.rete();
    for (int i = 1; i <= r.NumTronchi; ++i) {
        if (d.T(i).ID_SCOLLEGATO == FALSO) continue;
        for (int j = i + 1; j <= r.NumTronchi; ++j) {
            d.T(j - 1) = d.T(j);
            RinumeraRiferimenti(d, static_cast<int16_t>(j - 1), static_cast<int16_t>(j));
            AzzeraTronco(d.T(j));
        }
        --i;
        --r.NumTronchi;
    }
}

void RinumeraRiferimenti(Documento& d, int16_t nuovo, int16_t vecchio) {
    for (int i = 1; i <= d.rete().NumTronchi; ++i) {
        Tronco& t = d.T(i);
        if (t.ID_PREV == vecchio) t.ID_PREV = nuovo;
        if (t.ID_LEFT == vecchio) t.ID_LEFT = nuovo;
        if (t.ID_RIGHT == vecchio) t.ID_RIGHT = nuovo;
    }
}

void AzzeraTronco(Tronco& t) {
    t.ID_NAME.clear();
    t.ID_MATERIALE.clear();
    t.ID_NOMEUTENZA.clear();
    t.ID_DIAMETRO.clear();
    t.ID_RIF.clear();
    t.ID_NUM = t.ID_PREV = t.ID_LEFT = t.ID_RIGHT = 0;
    t.IndiceMateriale = 0;
    t.ID_P_UTENZE = t.ID_P_TRONCO = t.ID_LEN = t.ID_EQ_LEN = 0;
    t.ID_NCURVE = t.ID_NGOMITI = t.ID_NRACCORDI = t.ID_NRUBINETTI = 0;
    t.ID_SPC5 = t.ID_SPC6 = t.ID_SPC7 = t.ID_SPC8 = t.ID_SPC9 = t.ID_SPC10 = 0;
    t.ID_RACCORDO = 0;
    t.ID_TIPORACCORDO = 0;
    t.ID_TIPOUTENZA = 0;
    t.ID_PDC_NOTA = 0;
    t.ID_EQLENNOTA = 0;
    t.ID_DIAMCUSTOM = 0;
    t.ID_POTENZA = 0;
    t.ID_SCHEMA_SVOLTA = 0;
    t.SchemaDirezione = 0;
    t.SchemaDisegnato = 0;
    t.ID_SCHEMA_X = t.ID_SCHEMA_Y = t.ID_SCHEMA_LEN = 0;
    t.ID_CONTEMP = 100;
}

void AzzeraRete(Documento& d, const TestiDefault& def) {
    Rete& r = d.rete();
    for (int i = 0; i <= r.NumTronchi && i <= MAX_TRONCHI; ++i) AzzeraTronco(d.T(i));
    r.NumTronchi = 0;
    d.Riferimento.clear();
    d.DescrizioneLavoro.clear();
    d.NomeFileProgetto.clear();
    d.ArchivioDocumenti.clear();
    d.ReteModificata = FALSO;
    d.VelocitaMassima = Trim(def.DefaultVelocita).empty() ? 15.0f : Singolo(LeggiNumero(def.DefaultVelocita));
    d.PressioneIniziale =
        Trim(def.DefaultPressioneIniziale).empty() ? 200.0 : LeggiNumero(def.DefaultPressioneIniziale);
    d.PressioneFinale = Trim(def.DefaultPressioneFinale).empty() ? 150.0 : LeggiNumero(def.DefaultPressioneFinale);
    d.DpMax = 0.0;
    d.Tenuta = VerificaTenuta{};
}

}  // namespace fornax
