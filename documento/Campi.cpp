#include "documento/Campi.h"

#include <cmath>
#include <fstream>
#include <iterator>
#include <vector>

#include "archives/Materiali.h"
#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"

namespace fornax {

namespace {

using namespace Id;

struct ChiaveId {
    const char* chiave;
    int16_t id;
};
// Keys of the column definition file. Ids without a key are reached by number only.
constexpr ChiaveId CHIAVI[] = {
    {"ID_NAME", ID_NAME},
    {"ID_NUM", ID_NUM},
    {"ID_P_UTENZE", ID_P_UTENZE},
    {"ID_P_TRONCO", ID_P_TRONCO},
    {"ID_LEN", ID_LEN},
    {"ID_NCURVE", ID_NCURVE},
    {"ID_NGOMITI", ID_NGOMITI},
    {"ID_RACCORDO", ID_RACCORDO},
    {"ID_PDC_NOTA", ID_PDC_NOTA},
    {"ID_DIAMETRO", ID_DIAMETRO},
    {"ID_DIAMCUSTOM", ID_DIAMCUSTOM},
    {"ID_VELOCITA", ID_VELOCITA},
    {"ID_PDC_TRONCO", ID_PDC_TRONCO},
    {"ID_PDC_PERCORSO", ID_PDC_PERCORSO},
    {"ID_PESO", ID_PESO},
    {"ID_PREV", ID_PREV},
    {"ID_LEFT", ID_LEFT},
    {"ID_RIGHT", ID_RIGHT},
    {"ID_MATERIALE", ID_MATERIALE},
    {"ID_RIF", ID_RIF},
    {"ID_POTENZA", ID_POTENZA},
    {"ID_NRACCORDI", ID_NRACCORDI},
    {"ID_NRUBINETTI", ID_NRUBINETTI},
    {"ID_EQLENNOTA", ID_EQLENNOTA},
    {"ID_TIPORACCORDO", ID_TIPORACCORDO},
    {"ID_EQ_LEN", ID_EQ_LEN},
    {"ID_P_KW", ID_P_KW},
    {"ID_P_KCAL", ID_P_KCAL},
    {"ID_NOMETIPOUTENZA", ID_NOMETIPOUTENZA},
    {"ID_DIAMETRO_INTERNO", ID_DIAMETRO_INTERNO},
    {"ID_CONTEMP", ID_CONTEMP},
    {"ID_SPC5", ID_SPC5},
    {"ID_SPC6", ID_SPC6},
    {"ID_SPC7", ID_SPC7},
    {"ID_SPC8", ID_SPC8},
    {"ID_SPC9", ID_SPC9},
    {"ID_SPC10", ID_SPC10},
    {"ID_PFINALE", ID_PFINALE},
    {"ID_EQLENLOC", ID_EQLENLOC},
};

// Storage of a stored field, by kind.
std::string* CampoTesto(Tronco& t, int id) {
    switch (id) {
        case ID_NAME:
        case ID_NAME_BIS:
            return &t.ID_NAME;
        case ID_DIAMETRO:
            return &t.ID_DIAMETRO;
        case ID_RIF:
            return &t.ID_RIF;
        case ID_NOMEUTENZA:
            return &t.ID_NOMEUTENZA;
        default:
            return nullptr;
    }
}

float* CampoSingolo(Tronco& t, int id) {
    switch (id) {
        case ID_P_UTENZE:
            return &t.ID_P_UTENZE;
        case ID_P_TRONCO:
            return &t.ID_P_TRONCO;
        case ID_LEN:
            return &t.ID_LEN;
        case ID_RACCORDO:
        case ID_RACCORDO_BIS:
            return &t.ID_RACCORDO;
        case ID_PDC_NOTA:
            return &t.ID_PDC_NOTA;
        case ID_VELOCITA:
            return &t.ID_VELOCITA;
        case ID_PDC_TRONCO:
            return &t.ID_PDC_TRONCO;
        case ID_PDC_PERCORSO:
            return &t.ID_PDC_PERCORSO;
        case ID_PESO:
            return &t.ID_PESO;
        case ID_POTENZA:
            return &t.ID_POTENZA;
        case ID_EQLENNOTA:
            return &t.ID_EQLENNOTA;
        case ID_EQ_LEN:
            return &t.ID_EQ_LEN;
        default:
            return nullptr;
    }
}

int16_t* CampoIntero(Tronco& t, int id) {
    switch (id) {
        case ID_NUM:
            return &t.ID_NUM;
        case ID_NCURVE:
            return &t.ID_NCURVE;
        case ID_NGOMITI:
            return &t.ID_NGOMITI;
        case ID_DIAMCUSTOM:
            return &t.ID_DIAMCUSTOM;
        case ID_PREV:
            return &t.ID_PREV;
        case ID_LEFT:
            return &t.ID_LEFT;
        case ID_RIGHT:
            return &t.ID_RIGHT;
        case ID_NRACCORDI:
            return &t.ID_NRACCORDI;
        case ID_NRUBINETTI:
            return &t.ID_NRUBINETTI;
        case ID_TIPORACCORDO:
            return &t.ID_TIPORACCORDO;
        case ID_TIPOUTENZA:
            return &t.ID_TIPOUTENZA;
        case ID_SCHEMA_SVOLTA:
            return &t.ID_SCHEMA_SVOLTA;
        case ID_CONTEMP:
            return &t.ID_CONTEMP;
        case ID_SPC5:
            return &t.ID_SPC5;
        case ID_SPC6:
            return &t.ID_SPC6;
        case ID_SPC7:
            return &t.ID_SPC7;
        case ID_SPC8:
            return &t.ID_SPC8;
        case ID_SPC9:
            return &t.ID_SPC9;
        case ID_SPC10:
            return &t.ID_SPC10;
        default:
            return nullptr;
    }
}

int32_t* CampoLungo(Tronco& t, int id) {
    switch (id) {
        case ID_SCHEMA_X:
            return &t.ID_SCHEMA_X;
        case ID_SCHEMA_Y:
            return &t.ID_SCHEMA_Y;
        case ID_SCHEMA_LEN:
            return &t.ID_SCHEMA_LEN;
        default:
            return nullptr;
    }
}

// The number a value holds: numbers as they are, texts through the numeric reading.
double NumeroDi(const Valore& v) {
    if (const auto* s = std::get_if<std::string>(&v)) return LeggiNumero(*s);
    if (const auto* i = std::get_if<int16_t>(&v)) return *i;
    if (const auto* l = std::get_if<int32_t>(&v)) return *l;
    if (const auto* f = std::get_if<float>(&v)) return *f;
    if (const auto* x = std::get_if<double>(&v)) return *x;
    return 0;
}

// Power drawn by the section, in watts (calorific value in MJ/Nm3, flow in Nm3/h); a cooker
// is rated on the superior calorific value.
double PotenzaW(const Documento& d, const Tronco& t) {
    const float pc = t.ID_TIPOUTENZA == TipoUtenza::FORNELLO ? d.GasCorrente.Pcs : d.GasCorrente.Pci;
    return static_cast<double>(pc) * t.ID_P_TRONCO * 1000 / 3.6;
}

}  // namespace

std::string TestoValore(const Valore& v) {
    if (const auto* s = std::get_if<std::string>(&v)) return *s;
    if (const auto* i = std::get_if<int16_t>(&v)) return std::to_string(*i);
    if (const auto* l = std::get_if<int32_t>(&v)) return std::to_string(*l);
    // Written to the project file as well: an infinity must be a number that reads back.
    if (const auto* f = std::get_if<float>(&v)) return TestoBreve(Finito(*f));
    if (const auto* x = std::get_if<double>(&v)) return TestoBreve(Finito(*x));
    return "";
}

int16_t IdDaChiave(const std::string& chiave, Messaggi& msg) {
    const std::string k = Maiuscolo(Trim(chiave));
    for (const ChiaveId& c : CHIAVI)
        if (k == c.chiave) return c.id;
    msg.Mostra(k + "Non trovato:");
    return 0;
}

Valore LeggiCampo(const Documento& d, const Archivi& a, int sezione, int id) {
    if (id < 1 || id > 49 || sezione < 0 || sezione > MAX_TRONCHI) return {};
    // Read through a mutable view of the same record: the accessors are shared with the writer.
    Tronco& t = const_cast<Tronco&>(d.T(sezione));
    if (const std::string* s = CampoTesto(t, id)) return *s;
    if (const float* f = CampoSingolo(t, id)) return *f;
    if (const int16_t* i = CampoIntero(t, id)) return *i;
    if (const int32_t* l = CampoLungo(t, id)) return *l;
    switch (id) {
        case ID_MATERIALE:
            return t.ID_MATERIALE;
        case ID_P_KW:
            return PotenzaW(d, t);
        case ID_P_KCAL:
            return PotenzaW(d, t) * 0.86;
        case ID_NOMETIPOUTENZA:
            return std::string(t.ID_TIPOUTENZA == TipoUtenza::FORNELLO ? "Cottura" : "Riscaldamento");
        case ID_DIAMETRO_INTERNO:
            return DiametroInterno(a, t.IndiceMateriale, t.ID_DIAMETRO);
        case ID_PFINALE:
            return t.ID_PFINALE;
        case ID_EQLENLOC:
            return static_cast<float>(static_cast<double>(t.ID_EQ_LEN) - t.ID_LEN - t.ID_EQLENNOTA);
        case ID_SCOLLEGATO:
            return t.ID_SCOLLEGATO;
        case ID_CANCELLATO:
            return t.ID_CANCELLATO;
        default:
            return {};
    }
}

void ScriviCampo(Documento& d, const Archivi& a, int sezione, int id, const Valore& v, Messaggi& msg) {
    if (id < 1 || id > 49 || sezione < 0 || sezione > MAX_TRONCHI) return;
    Tronco& t = d.T(sezione);
    if (std::string* s = CampoTesto(t, id)) {
        *s = TestoValore(v);
        return;
    }
    if (float* f = CampoSingolo(t, id)) {
        *f = Singolo(NumeroDi(v));
        return;
    }
    if (int16_t* i = CampoIntero(t, id)) {
        *i = ArrotondaI16(NumeroDi(v));
        return;
    }
    if (int32_t* l = CampoLungo(t, id)) {
        *l = ArrotondaI32(NumeroDi(v));
        return;
    }
    switch (id) {
        case ID_SCOLLEGATO:
            t.ID_SCOLLEGATO = NumeroDi(v) != 0 ? VERO : FALSO;
            return;
        case ID_CANCELLATO:
            t.ID_CANCELLATO = NumeroDi(v) != 0 ? VERO : FALSO;
            return;
        case ID_MATERIALE: {
            t.ID_MATERIALE = TestoValore(v);
            const auto indice = static_cast<int16_t>(PosizioneNome(a.NomiMateriali(), t.ID_MATERIALE));
            if (Trim(t.ID_MATERIALE).empty() || indice >= 1) {
                t.IndiceMateriale = indice;
                return;
            }
            // A material the archive lacks: the user picks a substitute, once per name and session.
            const int sostituto = Substitute(d.Equiv, a, t.ID_MATERIALE, 1, msg);
            t.IndiceMateriale = static_cast<int16_t>(sostituto);
            if (sostituto > 0) t.ID_MATERIALE = a.Materiali[static_cast<size_t>(sostituto)].Nome;
            d.ReteModificata = VERO;
            return;
        }
        default:
            return;  // computed fields can't be set
    }
}

bool LeggiColonne(Archivi& a, Messaggi& msg, Avanzamento& av) {
    TabellaColonne& tc = a.Colonne;
    tc = TabellaColonne{};
    const std::string percorso = TrovaFile(a.Cartella, "gridgas.cne");
    std::ifstream in(percorso, std::ios::binary);
    if (!in) {
        msg.Mostra("Il file gridgas.cne non e' presente nella cartella del programma (" + a.Cartella +
                       "): reinstallare il programma.",
                   Box::CRITICAL, "Errore");
        return false;
    }
    const std::string byte((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    int tabella = 0;
    int colonna = -1;
    std::vector<std::string> campi;
    size_t inizio = 0;
    while (inizio < byte.size()) {
        size_t fine = byte.find('\n', inizio);
        if (fine == std::string::npos) fine = byte.size();
        std::string grezza = byte.substr(inizio, fine - inizio);
        inizio = fine + 1;
        if (!grezza.empty() && grezza.back() == '\r') grezza.pop_back();
        const std::string riga = VirgolePunti(DecodificaRiga(grezza));
        if (riga.empty() || riga[0] == '#') continue;
        if (riga == "@") break;
        if (riga == "+") {
            av.Testo("Caricamento definizione tabella: " + std::to_string(tabella));
            tc.NumColonne[static_cast<size_t>(tabella)] = static_cast<int16_t>(colonna);
            ++tabella;
            colonna = -1;
            if (tabella >= NUM_TABELLE) break;
            continue;
        }
        ++colonna;
        if (colonna >= MAX_COLONNE) {
            msg.Mostra("Il file gridgas.cne definisce piu' di " + std::to_string(MAX_COLONNE) +
                           " colonne nella tabella " + std::to_string(tabella) + ": le colonne in piu' sono ignorate.",
                       Box::EXCLAMATION);
            --colonna;
            continue;
        }
        if (SeparaCampi(riga, campi) != 6) {
            msg.Mostra("Numero campi nella tabella errato");
            break;
        }
        ColonnaTabella& c = tc.Tabelle[static_cast<size_t>(tabella)][static_cast<size_t>(colonna)];
        c.Titolo1 = campi[0];
        c.Formato = campi[1];
        c.Bloccata = ArrotondaI16(LeggiNumero(campi[2]));
        c.Titolo2 = campi[3];
        c.Larghezza = ArrotondaI16(LeggiNumero(campi[4]));
        c.Chiave = campi[5];
        c.Suggerimento = campi[6];
        const std::string prefisso = c.Chiave.substr(0, 3);
        if (prefisso == "ID_")
            c.Id = IdDaChiave(c.Chiave, msg);
        else if (prefisso == "IDR")
            c.Id = 0;
    }
    av.Passo(4);
    return true;
}

}  // namespace fornax
