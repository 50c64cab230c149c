#include "editing/Modifiche.h"

#include <algorithm>

#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "archives/Speciali.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"

namespace fornax::modifica {

namespace {

constexpr const char* GAS_NON_COMBUSTIBILE =
    "Nel calcolo dell'impianto interno gas non può essere utilizzato un gas non combustibile";

// An internal installation burns its gas: a gas that doesn't burn can't be its gas.
bool GasRifiutato(const Documento& d, const Archivi& a, int gas) {
    return d.ReteInPressione == 0 && gas >= 1 && gas <= a.NumGas() &&
           a.Gas[static_cast<size_t>(gas)].NonCombustibile != 0;
}

bool Automatico(const std::string& testo) {
    const std::string t = Maiuscolo(Trim(testo));
    return t == "AUTO";
}

// A default text as a number, or `vuoto` when the text is empty.
double DaDefault(const std::string& testo, double vuoto) { return Trim(testo).empty() ? vuoto : LeggiNumero(testo); }

}  // namespace

// ---- Cells of the grid ----

EsitoConferma ConfermaCella(Documento& d, Archivi& a, int da, int a_, int id, const std::string& testo, Messaggi& msg,
                            const ScegliDiametro& scegli) {
    return ConfermaCelle(d, a, da, a_, id, testo, msg, scegli);
}

void ScegliMateriale(Documento& d, const Archivi& a, int da, int a_, int materiale) {
    ConfermaMateriale(d, a, da, a_, materiale);
}

int AggiungiRiga(Documento& d) {
    if (d.NumTronchi() >= MAX_TRONCHI) return 0;
    d.rete().NumTronchi = static_cast<int16_t>(d.NumTronchi() + 1);
    Tronco& t = d.T(d.NumTronchi());
    t.ID_LEFT = 0;
    t.ID_RIGHT = 0;
    return d.NumTronchi();
}

void AccogliRiga(Documento& d, int riga) {
    if (riga > d.NumTronchi() && riga <= MAX_TRONCHI) d.rete().NumTronchi = static_cast<int16_t>(riga);
}

// ---- Deleting ----

bool CancellaSezione(Documento& d, int tronco, int tipo, Messaggi& msg, const Rinfresco& r) {
    return fornax::CancellaSezione(d, tronco, tipo, msg, r);
}

void CancellaRighe(Documento& d, int da, int a_, int tipo, const Rinfresco& r) {
    fornax::CancellaRighe(d, da, a_, tipo, r);
}

// ---- Diameters ----

void BloccaDiametri(Documento& d, bool bloccati) {
    for (int i = 1; i <= d.NumTronchi(); ++i) {
        Tronco& t = d.T(i);
        if (bloccati && Trim(t.ID_DIAMETRO).empty()) continue;
        t.ID_DIAMCUSTOM = bloccati ? VERO : FALSO;
    }
    d.ReteModificata = VERO;
}

bool DiametriBloccati(const Documento& d) {
    bool qualcuno = false;
    for (int i = 1; i <= d.NumTronchi(); ++i) {
        const Tronco& t = d.T(i);
        if (Trim(t.ID_DIAMETRO).empty()) continue;
        if (t.ID_DIAMCUSTOM == FALSO) return false;
        qualcuno = true;
    }
    return qualcuno;
}

// ---- Pressure combos ----

bool ScegliPressioneIniziale(Documento& d, const Archivi& a, const std::string& testo) {
    const double v = ValoreComboPressione(testo, a.Default.DefaultPressioneIniziale);
    if (v == d.PressioneIniziale && !Automatico(testo)) return false;
    d.PressioneIniziale = v;
    d.ReteModificata = VERO;
    return true;
}

bool ScegliPressioneFinale(Documento& d, const Archivi& a, const std::string& testo) {
    const double v = ValoreComboPressione(testo, a.Default.DefaultPressioneFinale);
    if (v == d.PressioneFinale && !Automatico(testo)) return false;
    d.PressioneFinale = v;
    d.ReteModificata = VERO;
    return true;
}

bool ScegliDpMax(Documento& d, const std::string& testo) {
    const double v = ValoreComboDpMax(testo);
    if (v == d.DpMax) return false;
    d.DpMax = v;
    d.ReteModificata = VERO;
    return true;
}

// ---- The project ----

bool ImpostaParametri(Documento& d, const Archivi& a, const ValoriParametri& v, Messaggi& msg) {
    const bool pressione = d.ReteInPressione != 0;
    if (GasRifiutato(d, a, v.indiceGas)) {
        msg.Mostra(GAS_NON_COMBUSTIBILE);
        return false;
    }
    d.Riferimento = v.riferimento;
    d.DescrizioneLavoro = v.descrizioneLavoro;
    if (pressione) d.VelocitaMassima = Singolo(LeggiNumero(v.velocitaMassima));
    d.ArchivioDocumenti = v.archivioDocumenti;
    d.Normativa = v.edizione1992 ? 1 : 2;
    CaricaPdc(d.Pdc, a.Cartella, d.Normativa, msg);
    const int gas = v.indiceGas == 0 ? 1 : v.indiceGas;
    if (gas >= 1 && gas <= a.NumGas()) d.GasCorrente = a.Gas[static_cast<size_t>(gas)];
    if (Trim(d.GasCorrente.Nome).empty() && a.NumGas() > 0) d.GasCorrente = a.Gas[1];
    d.ReteModificata = VERO;
    return true;
}

bool ScegliGas(Documento& d, const Archivi& a, int gas, Messaggi& msg) {
    if (gas < 1 || gas > a.NumGas()) return false;
    if (GasRifiutato(d, a, gas)) {
        msg.Mostra(GAS_NON_COMBUSTIBILE);
        return false;
    }
    d.GasCorrente = a.Gas[static_cast<size_t>(gas)];
    d.ReteModificata = VERO;
    return true;
}

void DefaultAllApertura(Documento& d, const Archivi& a) {
    const TestiDefault& def = a.Default;
    d.VelocitaMassima = static_cast<float>(DaDefault(def.DefaultVelocita, 15.0));
    d.PressioneIniziale = DaDefault(def.DefaultPressioneIniziale, 200.0);
    d.PressioneFinale = DaDefault(def.DefaultPressioneFinale, 150.0);
}

bool AdottaSpeciali(Documento& d, const std::array<TipoSpeciale, 11>& tabella) {
    if (d.ReteInPressione == 0) return false;
    d.Speciali = tabella;
    return true;
}

void AdottaPdc(Documento& d, const TabellaPdc& tabella) { d.Pdc = tabella; }

// ---- The schema ----

int16_t AggiungiTroncoDaSchema(Documento& d, const Archivi& a, const schema::AzioneDrop& drop, Messaggi& msg) {
    const int16_t n = schema::AggiungiTroncoDaDrop(d, drop, a.NomiMateriali(), a.Default.DefaultMateriale, msg);
    if (n > 0) d.ReteModificata = VERO;
    return n;
}

void ImpostaUtenzaDaSchema(Documento& d, const schema::AzioneDrop& drop) {
    if (drop.tipo != schema::AzioneDrop::Tipo::Utenza) return;
    schema::ImpostaTipoUtenzaDrop(d, drop);
    d.ReteModificata = VERO;
}

void ConfermaUtenzaDrop(Documento& d, int16_t tronco, float portata, int16_t tipologia,
                        const std::string& composizione) {
    schema::ApplicaUtenzaDrop(d, tronco, portata, tipologia, composizione);
    d.ReteModificata = VERO;
}

void ConfermaUtenzaSchema(Documento& d, int16_t tronco, float portata, int16_t tipologia,
                          const std::optional<std::string>& composizione) {
    schema::ApplicaUtenzaDoppioClick(d, tronco, portata, tipologia, composizione);
    d.ReteModificata = VERO;
}

bool AllungaTronco(Documento& d, const schema::StatoSchema& s, int16_t tronco, double x, double y,
                   const std::string& tag) {
    if (!schema::ApplicaLunghezza(d, s, tronco, x, y, tag)) return false;
    d.ReteModificata = VERO;
    return true;
}

void RuotaSorgente(Documento& d) {
    schema::RuotaSorgente(d);
    d.ReteModificata = VERO;
}

bool CancellaTroncoSchema(Documento& d, int tronco, int tipo, Messaggi& msg, const Rinfresco& r) {
    if (tronco < 1 || tronco > d.NumTronchi()) return false;
    return modifica::CancellaSezione(d, tronco, tipo, msg, r);
}

}  // namespace fornax::modifica

// ---- The section panel and the consumers ----

namespace fornax::modifica {

namespace {

void ImpostaConteggio(Tronco& t, int tipo, int16_t n) {
    switch (tipo) {
        case 1:
            t.ID_NCURVE = n;
            break;
        case 2:
            t.ID_NRACCORDI = n;
            break;
        case 3:
            t.ID_NGOMITI = n;
            break;
        case 4:
            t.ID_NRUBINETTI = n;
            break;
        case 5:
            t.ID_SPC5 = n;
            break;
        case 6:
            t.ID_SPC6 = n;
            break;
        case 7:
            t.ID_SPC7 = n;
            break;
        case 8:
            t.ID_SPC8 = n;
            break;
        case 9:
            t.ID_SPC9 = n;
            break;
        case 10:
            t.ID_SPC10 = n;
            break;
        default:
            break;
    }
}

}  // namespace

bool ApplicaParametriTronco(Documento& d, const Archivi& a, const std::vector<int>& tronchi, const ValoriPannello& v,
                            const SelezioneCopia* campi) {
    const std::vector<RigaSpeciale> righe = RigheSpeciali(d);
    const bool tutti = campi == nullptr;
    const std::string dn = Trim(v.diametro);
    // A size typed in the box fixes the diameter, whatever the toggle says.
    const bool misura =
        dn != "0" && Maiuscolo(dn) != "AUTO" && a.HaMateriale(v.materiale) && IndiceRiga(a, v.materiale, dn) > 0;
    bool scritto = false;
    for (const int n : tronchi) {
        if (n < 1 || n > d.NumTronchi()) continue;
        Tronco& t = d.T(n);
        for (const RigaSpeciale& r : righe)
            if (tutti || CopiaConteggio(*campi, r.tipo))
                ImpostaConteggio(t, r.tipo, ConteggioDaTesto(v.conteggi[static_cast<size_t>(r.tipo)]));
        if (tutti || campi->eqLenAggiuntiva) t.ID_EQLENNOTA = Singolo(LeggiNumero(v.eqLenNota));
        if (tutti || campi->contemporaneita) t.ID_CONTEMP = ArrotondaI16(LeggiNumero(v.contemp));
        if (tutti || campi->lunghezza) t.ID_LEN = Singolo(LeggiNumero(v.lunghezza));
        if (tutti || campi->diametro) {
            if (a.HaMateriale(v.materiale)) {
                t.IndiceMateriale = static_cast<int16_t>(v.materiale);
                t.ID_MATERIALE = a.Materiali[static_cast<size_t>(v.materiale)].Nome;
            }
            t.ID_DIAMCUSTOM = v.bloccato ? VERO : FALSO;
            if (misura) {
                t.ID_DIAMCUSTOM = VERO;
                t.ID_DIAMETRO = dn;
            }
        }
        scritto = true;
    }
    if (scritto) d.ReteModificata = VERO;
    return scritto;
}

void ApplicaUtenza(Documento& d, int tronco, const EsitoUtenza& e) {
    if (tronco < 1 || tronco > MAX_TRONCHI) return;
    Tronco& t = d.T(tronco);
    t.ID_RIF = e.riferimento;
    t.ID_P_UTENZE = e.portata;
    t.ID_P_TRONCO = e.portata;
    t.ID_TIPOUTENZA = e.tipologia;
    if (e.composizione) t.ID_NOMEUTENZA = *e.composizione;
    if (d.ReteInPressione == 0) d.DpMax = 0.0;
    d.ReteModificata = VERO;
}

// ---- Names of the steps ----

namespace {

std::string Tronchi(int da, int a_) {
    if (da == a_) return "del tronco " + std::to_string(da);
    return "dei tronchi " + std::to_string(std::min(da, a_)) + "-" + std::to_string(std::max(da, a_));
}

}  // namespace

std::string NomeCella(const ColonnaTabella& colonna, int da, int a_) {
    // The heading's first line names the quantity; the second holds its unit ("m", "Pa").
    auto testo = [](const std::string& t) { return Trim(t) == "." ? std::string() : Trim(t); };
    std::string titolo = testo(colonna.Titolo1);
    if (titolo.empty()) titolo = testo(colonna.Titolo2);
    if (titolo.empty()) titolo = colonna.Chiave;
    return (da == a_ ? "modifica della cella " : "modifica della colonna ") + titolo + " " + Tronchi(da, a_);
}

std::string NomeNuovoTronco(int tronco) { return "nuovo tronco " + std::to_string(tronco); }

std::string NomeCancellazione(int tipo, int da, int a_) {
    switch (tipo) {
        case TipoCancellazione::SCOLLEGA:
            return "scollegamento " + Tronchi(da, a_);
        case TipoCancellazione::ELIMINA_E_COMPATTA:
            return "eliminazione " + Tronchi(da, a_);
        default:
            return "cancellazione " + Tronchi(da, a_);
    }
}

}  // namespace fornax::modifica
