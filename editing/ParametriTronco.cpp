#include "editing/ParametriTronco.h"

#include <algorithm>
#include <cmath>

#include "core/Numeri.h"
#include "core/Testo.h"

namespace fornax {

namespace {

// The labels of the four kinds every table has, in the order the panel lists them.
struct Fisso {
    int tipo;
    const char* etichetta;
};
constexpr Fisso FISSI[4] = {{1, "Curve 90°:"}, {3, "Gomiti :"}, {2, "Raccordi a T :"}, {4, "Rubinetti :"}};

bool HaNome(const TipoSpeciale& t) {
    const std::string n = Trim(t.Nome);
    return !n.empty() && n != "-";
}

}  // namespace

std::vector<RigaSpeciale> RigheSpeciali(const Documento& d) {
    std::vector<RigaSpeciale> righe;
    const bool pressione = d.ReteInPressione != 0;
    for (const Fisso& f : FISSI) {
        if (pressione && !HaNome(d.Speciali[static_cast<size_t>(f.tipo)])) continue;
        righe.push_back({f.tipo, f.etichetta});
    }
    if (!pressione) return righe;
    for (int k = 5; k <= 10; ++k) {
        const TipoSpeciale& t = d.Speciali[static_cast<size_t>(k)];
        if (HaNome(t)) righe.push_back({k, Trim(t.Nome) + " :"});
    }
    return righe;
}

ValoriPannello CaricaPannello(const Documento& d, int tronco) {
    ValoriPannello v;
    if (tronco < 1 || tronco > MAX_TRONCHI) return v;
    const Tronco& t = d.T(tronco);
    v.lunghezza = TestoBreve(t.ID_LEN);
    v.eqLenNota = TestoBreve(t.ID_EQLENNOTA);
    v.contemp = std::to_string(t.ID_CONTEMP == 0 ? 100 : t.ID_CONTEMP);
    v.materiale = t.IndiceMateriale;
    v.bloccato = t.ID_DIAMCUSTOM != FALSO;
    // A size the calculation chose is shown as "Auto": OK would otherwise fix it.
    v.diametro = v.bloccato && !Trim(t.ID_DIAMETRO).empty() ? Trim(t.ID_DIAMETRO) : std::string("Auto");
    for (int k = 1; k <= 10; ++k) v.conteggi[static_cast<size_t>(k)] = std::to_string(t.Conteggio(k));
    return v;
}

int PassoSezione(int attuale, int passo, int numTronchi) {
    return std::clamp(attuale + passo, 1, std::max(1, numTronchi));
}

int PassoConteggio(int attuale, int passo) { return std::max(0, attuale + passo); }

int ContempSu(int attuale) { return attuale < 95 ? attuale + 5 : 100; }

int ContempGiu(int attuale) { return attuale >= 10 ? attuale - 5 : attuale; }

int ContempAllUscita(int attuale) { return std::clamp(attuale, 10, 100); }

int16_t ConteggioDaTesto(const std::string& testo) {
    const double v = std::trunc(LeggiNumero(testo));
    return static_cast<int16_t>(std::clamp(v, 0.0, 9999.0));
}

SelezioneCopia VociAbilitate(const Documento& d) {
    SelezioneCopia s;
    s.diametro = true;
    s.eqLenAggiuntiva = true;
    s.lunghezza = true;
    s.contemporaneita = d.ReteInPressione != 0;
    bool tipo[11] = {};
    for (const RigaSpeciale& r : RigheSpeciali(d)) tipo[r.tipo] = true;
    s.localizzate[Localizzata::CURVE] = tipo[1];
    s.localizzate[Localizzata::RACCORDI_T] = tipo[2];
    s.localizzate[Localizzata::GOMITI] = tipo[3];
    s.localizzate[Localizzata::SARACINESCHE] = tipo[4];
    s.localizzate[Localizzata::NUMERO_VALVOLE] = std::any_of(tipo + 5, tipo + 11, [](bool b) { return b; });
    return s;
}

bool CopiaConteggio(const SelezioneCopia& s, int tipo) {
    switch (tipo) {
        case 1:
            return s.localizzate[Localizzata::CURVE];
        case 2:
            return s.localizzate[Localizzata::RACCORDI_T];
        case 3:
            return s.localizzate[Localizzata::GOMITI];
        case 4:
            return s.localizzate[Localizzata::SARACINESCHE];
        default:
            return tipo >= 5 && tipo <= 10 && s.localizzate[Localizzata::NUMERO_VALVOLE];
    }
}

}  // namespace fornax
