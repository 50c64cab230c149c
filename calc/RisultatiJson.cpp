#include "calc/RisultatiJson.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "calc/Computo.h"
#include "calc/Verifica.h"
#include "core/Json.h"

namespace fornax {

namespace {

const char* Booleano(int16_t v) { return v != 0 ? "true" : "false"; }

class Scrittore {
public:
    void Chiave(const char* nome, const std::string& valore, bool ultima = false) {
        testo_ += rientro_ + "\"" + nome + "\": " + valore + (ultima ? "\n" : ",\n");
    }
    void Apri(const std::string& intestazione, char parentesi) {
        testo_ += rientro_ + intestazione + parentesi + "\n";
        rientro_ += "  ";
    }
    void Chiudi(char parentesi, bool ultima) {
        rientro_.resize(rientro_.size() - 2);
        testo_ += rientro_ + parentesi + (ultima ? "\n" : ",\n");
    }
    void Riga(const std::string& valore, bool ultima) { testo_ += rientro_ + valore + (ultima ? "\n" : ",\n"); }
    const std::string& Testo() const { return testo_; }

private:
    std::string testo_;
    std::string rientro_;
};

}  // namespace

std::string RisultatiJson(const Documento& d, const Archivi& a) {
    const ComputoTubi computo = CalcolaComputo(d, a);

    Scrittore w;
    w.Apri("", '{');
    w.Chiave("ReteInPressione", Booleano(d.ReteInPressione));
    w.Chiave("Normativa", std::to_string(d.Normativa));
    w.Chiave("LimitePdc", NumeroJson(LimitePdc(d)));
    w.Chiave("MaxPdcPercorso", NumeroJson(d.MaxPdcPercorso));
    w.Chiave("MaxLenPercorso", NumeroJson(d.MaxLenPercorso));

    w.Apri("\"sections\": ", '[');
    for (int i = 1; i <= d.NumTronchi(); ++i) {
        const Tronco& t = d.T(i);
        w.Apri("", '{');
        w.Chiave("index", std::to_string(i));
        w.Chiave("Visitato", Booleano(t.Visitato));
        w.Chiave("ID_P_UTENZE", NumeroJson(t.ID_P_UTENZE));
        w.Chiave("ID_P_TRONCO", NumeroJson(t.ID_P_TRONCO));
        w.Chiave("ID_CONTEMP", std::to_string(t.ID_CONTEMP));
        w.Chiave("ID_EQ_LEN", NumeroJson(t.ID_EQ_LEN));
        w.Chiave("LenPercorso", NumeroJson(t.LenPercorso));
        w.Chiave("ID_DIAMETRO", TestoJson(t.ID_DIAMETRO));
        w.Chiave("ID_DIAMCUSTOM", Booleano(t.ID_DIAMCUSTOM));
        w.Chiave("ID_PDC_TRONCO", NumeroJson(t.ID_PDC_TRONCO));
        w.Chiave("ID_PDC_PERCORSO", NumeroJson(t.ID_PDC_PERCORSO));
        w.Chiave("ID_PFINALE", NumeroJson(t.ID_PFINALE));
        w.Chiave("ID_VELOCITA", NumeroJson(t.ID_VELOCITA));
        w.Chiave("PressioneTesta", NumeroJson(t.PressioneTesta), true);
        w.Chiudi('}', i == d.NumTronchi());
    }
    w.Chiudi(']', false);

    const std::vector<int16_t> percorso = PercorsoSfavorito(d);
    w.Apri("\"PercorsoSfavorito\": ", '[');
    for (size_t k = 0; k < percorso.size(); ++k) w.Riga(std::to_string(percorso[k]), k + 1 == percorso.size());
    w.Chiudi(']', false);

    std::vector<int> materiali;
    for (int m = 1; m <= a.NumMateriali(); ++m) {
        if (computo.Materiali[static_cast<size_t>(m)].Totalizzato != 0) materiali.push_back(m);
    }
    w.Apri("\"Computo\": ", '[');
    for (size_t k = 0; k < materiali.size(); ++k) {
        const MaterialeTubo& m = a.Materiali[static_cast<size_t>(materiali[k])];
        const ComputoTubi::Materiale& tot = computo.Materiali[static_cast<size_t>(materiali[k])];
        w.Apri("", '{');
        w.Chiave("Materiale", TestoJson(m.Nome));
        w.Chiave("PesoTotale", NumeroJson(tot.PesoTotale));
        std::vector<int> righe;
        for (int r = 1; r <= m.NumRighe(); ++r) {
            if (tot.LunghezzaTotale[static_cast<size_t>(r)] != 0) righe.push_back(r);
        }
        w.Apri("\"Righe\": ", '[');
        for (size_t j = 0; j < righe.size(); ++j) {
            const RigaDiametro& r = m.Righe[static_cast<size_t>(righe[j])];
            w.Apri("", '{');
            w.Chiave("DN", TestoJson(r.DN));
            w.Chiave("LunghezzaTotale", NumeroJson(tot.LunghezzaTotale[static_cast<size_t>(righe[j])]), true);
            w.Chiudi('}', j + 1 == righe.size());
        }
        w.Chiudi(']', true);
        w.Chiudi('}', k + 1 == materiali.size());
    }
    w.Chiudi(']', false);
    w.Chiave("PesoTotaleAcciaio", NumeroJson(computo.PesoTotaleAcciaio));
    w.Chiave("VolumeTubazioni", NumeroJson(VolumeTubazioni(d, a)), true);
    w.Chiudi('}', true);
    return w.Testo();
}

}  // namespace fornax
