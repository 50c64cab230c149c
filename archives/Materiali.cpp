#include "archives/Materiali.h"

#include <algorithm>
#include <vector>

#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"

namespace fornax {

namespace {

// The value of pi the pipe tables have always been computed with.
constexpr double PI_TABELLE = 3.1415;

}  // namespace

void CaricaMateriali(Archivi& a, Avanzamento& av, Messaggi& msg) {
    a.Materiali.assign(1, MaterialeTubo{});
    std::vector<std::string> file = ElencaFile(a.Cartella, ".mat");
    if (file.size() > static_cast<size_t>(MAX_MATERIALI)) {
        msg.Mostra("Nella cartella del programma ci sono piu' di " + std::to_string(MAX_MATERIALI) +
                       " archivi di tubazioni (*.mat): vengono caricati solo i primi " + std::to_string(MAX_MATERIALI) +
                       ".",
                   Box::EXCLAMATION);
        file.resize(MAX_MATERIALI);
    }
    for (const std::string& percorso : file) {
        // The material is named by its file name up to the first '.', so "A.B.mat" is "A".
        std::string nome = NomeDi(percorso);
        nome = nome.substr(0, nome.find('.'));
        a.Materiali.emplace_back();
        const int indice = a.NumMateriali();
        av.Testo("Caricamento tubazione: " + nome);
        if (!CaricaMateriale(a, indice, nome)) {
            msg.Mostra("Impossibile leggere l'archivio della tubazione '" + nome + "' (" + nome +
                           ".mat): la tubazione resta senza diametri.",
                       Box::EXCLAMATION);
        }
    }
    av.Passo(2);
    CalcolaDerivati(a);
}

bool CaricaMateriale(Archivi& a, int indice, const std::string& nome) {
    if (!a.HaMateriale(indice)) return false;
    MaterialeTubo& m = a.Materiali[static_cast<size_t>(indice)];
    m = MaterialeTubo{};
    m.Nome = nome;
    FileTesto f;
    const std::string percorso = TrovaFile(a.Cartella, nome + ".mat");
    if (!EsisteFile(percorso) || !f.Apri(percorso)) return false;
    m.TipoFormula = ArrotondaI16(LeggiNumero(f.LeggiRiga()));
    m.PesoSpecifico = Singolo(LeggiNumero(f.LeggiRiga()));
    m.Descrizione = f.LeggiRiga();
    std::vector<std::string> campi;
    while (!f.Fine()) {
        const std::string riga = f.RigaFisica();
        if (!riga.empty() && riga[0] == '#') continue;
        if (SeparaCampi(riga, campi) < 2) continue;
        RigaDiametro r;
        r.DN = Trim(campi[0]);
        r.Spessore = Singolo(LeggiNumero(campi[1]));
        r.DiamInterno = Singolo(LeggiNumero(campi[2]));
        if (r.DN.empty() || !(r.DiamInterno > 0)) continue;
        // A table holds at most 50 sizes; further rows are not used.
        if (m.NumRighe() >= MAX_RIGHE) break;
        m.Righe.push_back(r);
    }
    return true;
}

bool SalvaMateriale(const Archivi& a, int indice, Messaggi& msg) {
    if (!a.HaMateriale(indice)) return false;
    const MaterialeTubo& m = a.Materiali[static_cast<size_t>(indice)];
    const std::string tratteggio = "# --------------------------------------------------------------------------";
    ScrittoreTesto w;
    w.Riga("#                          TABELLA  CARATTERISTICHE TUBI");
    w.Riga("#");
    w.Riga("# Tipo di formula :   1 - Acciaio,  2 - Rame, 3 - Plastica");
    w.Riga(tratteggio);
    w.Riga(NumeroFile(static_cast<int32_t>(m.TipoFormula)));
    w.Riga("#");
    w.Riga("# Peso Specifico");
    w.Riga(tratteggio);
    w.Riga(NumeroFile(m.PesoSpecifico));
    w.Riga("#");
    w.Riga("# Descrizione");
    w.Riga(tratteggio);
    w.Riga(RigaDiLeggiRiga(m.Descrizione));
    w.Riga("#");
    w.Riga("#    DN    Spess   Diam Int. ");
    w.Riga("#            mm       mm");
    w.Riga("#---------------------------------------------------------------------------");
    for (int r = 1; r <= m.NumRighe(); ++r) {
        const RigaDiametro& riga = m.Righe[static_cast<size_t>(r)];
        if (Trim(riga.DN).empty()) continue;
        w.Riga(PrimoCampo(riga.DN) + "\t" + NumeroFile(riga.Spessore) + "\t" + NumeroFile(riga.DiamInterno) + "\t");
    }
    return w.SalvaOAvvisa(TrovaFile(a.Cartella, m.Nome + ".mat"), msg);
}

void DerivaRiga(RigaDiametro& riga, float pesoSpecifico) {
    const double esterna = static_cast<double>(riga.DiamEsterno) * riga.DiamEsterno / 4.0 * PI_TABELLE;
    const double interna = static_cast<double>(riga.DiamInterno) * riga.DiamInterno / 4.0 * PI_TABELLE;
    riga.PesoMetro = static_cast<float>((esterna - interna) * pesoSpecifico / 1000000.0);
    riga.Sezione = static_cast<float>(interna / 1000.0);
    // The speed and flow limits of a size are not used by any calculation: both stay 0.
    riga.VelocitaLimite = 0;
    riga.PortataLimite = static_cast<float>(riga.VelocitaLimite * 3600.0 * riga.Sezione);
}

void CalcolaDerivati(Archivi& a) {
    for (int i = 1; i <= a.NumMateriali(); ++i) {
        MaterialeTubo& m = a.Materiali[static_cast<size_t>(i)];
        for (int r = 1; r <= m.NumRighe(); ++r) {
            RigaDiametro& riga = m.Righe[static_cast<size_t>(r)];
            riga.DiamEsterno = static_cast<float>(2.0 * riga.Spessore + riga.DiamInterno);
            DerivaRiga(riga, m.PesoSpecifico);
        }
    }
}

int IndiceMateriale(const Archivi& a, const std::string& nome) {
    const std::string cercato = Trim(nome);
    for (int i = 1; i <= a.NumMateriali(); ++i)
        if (Trim(a.Materiali[static_cast<size_t>(i)].Nome) == cercato) return i;
    return 0;
}

int IndiceRiga(const Archivi& a, int materiale, const std::string& dn) {
    if (!a.HaMateriale(materiale)) return 0;
    const MaterialeTubo& m = a.Materiali[static_cast<size_t>(materiale)];
    for (int r = 1; r <= m.NumRighe(); ++r)
        if (m.Righe[static_cast<size_t>(r)].DN == dn) return r;
    return 0;
}

float DiametroInterno(const Archivi& a, int materiale, const std::string& dn) {
    const int r = IndiceRiga(a, materiale, dn);
    if (r == 0) return 0;
    return a.Materiali[static_cast<size_t>(materiale)].Righe[static_cast<size_t>(r)].DiamInterno;
}

bool NomeValido(const std::string& nome) {
    return std::all_of(nome.begin(), nome.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    });
}

std::string NomeDaPercorso(const std::string& percorso) {
    std::string nome = NomeDi(percorso);
    if (nome.find('.') != std::string::npos) nome = nome.size() >= 4 ? nome.substr(0, nome.size() - 4) : "";
    return Trim(nome);
}

// ---- Substitution of names a project uses and the archive lacks ----

int SearchEquiv(const Sostituzioni& e, const std::string& nome, int tipo) {
    if (tipo < 1 || tipo > 2) return 0;
    const std::string cercato = Maiuscolo(Trim(nome));
    for (const auto& c : e.liste[static_cast<size_t>(tipo)])
        if (Maiuscolo(c.nome) == cercato) return c.indice;
    return 0;
}

void AddEquiv(Sostituzioni& e, const std::string& nome, int tipo, int indice) {
    if (tipo < 1 || tipo > 2) return;
    e.liste[static_cast<size_t>(tipo)].push_back({Trim(nome), indice});
}

int Substitute(Sostituzioni& e, const Archivi& a, const std::string& nome, int tipo, Messaggi& msg) {
    if (Trim(nome).empty() || tipo < 1 || tipo > 2) return 0;
    // Each unknown name is asked about once per session.
    if (const int noto = SearchEquiv(e, nome, tipo); noto > 0) return noto;
    const std::vector<std::string> elenco = tipo == 1 ? a.NomiMateriali() : a.NomiGas();
    const int scelta = msg.ScegliSostituto(nome, tipo, elenco);
    if (scelta < 1 || scelta > static_cast<int>(elenco.size())) return 0;
    AddEquiv(e, nome, tipo, scelta);
    return scelta;
}

void Reset(Sostituzioni& e) {
    for (auto& l : e.liste) l.clear();
}

}  // namespace fornax
