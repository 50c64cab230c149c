#include "reports/Relazione.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "calc/Computo.h"
#include "calc/Verifica.h"
#include "core/Numeri.h"
#include "core/Testo.h"
#include "documento/Campi.h"

namespace fornax {

// ---- Selection ----

ReportSelection ReportSelection::DaLettere(std::string_view lettere) {
    auto spuntata = [&](size_t i) { return i < lettere.size() && lettere[i] == 'A'; };
    ReportSelection s;
    s.Copertina = spuntata(0);
    s.Tronchi = spuntata(1);
    s.DiagrammaRete = spuntata(2);
    s.PDCLocalizzate = spuntata(3);
    s.Verifica = spuntata(4);
    s.Utenze = spuntata(5);
    s.Computo = spuntata(6);
    s.TenutaImpianto = spuntata(7);
    return s;
}

std::string ReportSelection::Lettere() const {
    std::string l;
    for (bool b : {Copertina, Tronchi, DiagrammaRete, PDCLocalizzate, Verifica, Utenze, Computo, TenutaImpianto})
        l += b ? 'A' : 'B';
    return l;
}

ReportSelection ReportSelection::Completa() { return DaLettere("AAAAAAAA"); }

bool ReportSelection::Qualcuna() const { return DiagrammaRete || AltreDalloSchema(); }

bool ReportSelection::AltreDalloSchema() const {
    return Copertina || Tronchi || PDCLocalizzate || Verifica || Utenze || Computo || TenutaImpianto;
}

// ---- Phases and errors ----

std::string TestoFase(int fase) {
    switch (fase) {
        case Fase::APERTURA:
            return "Errore nell'apertura del file.";
        case Fase::COPERTINA:
            return "Errore nella stampa della copertina.";
        case Fase::TRONCHI:
            return "Errore nella stampa della tabella dei tronchi.";
        case Fase::PERDITE:
            return "Errore nella stampa della tabella delle perdite localizzate.";
        case Fase::PERCORSO:
            return "Errore nella stampa della verifica del percorso più sfavorito.";
        case Fase::UTENZE:
            return "Errore nella stampa del riepilogo utenze.";
        case Fase::COMPUTO:
            return "Errore nella stampa del computo dei materiali.";
        case Fase::TENUTA:
            return "Errore nella stampa della \"Verifica tenuta impianto\".";
        case Fase::SCHEMA:
            return "Errore nella stampa dello schema della rete.";
        default:
            return "";
    }
}

void Fallisci(int codice) {
    switch (codice) {
        case CodiceErrore::ARGOMENTO_NON_VALIDO:
            throw ErroreEsecuzione(codice, "Chiamata di routine o argomento non validi");
        case CodiceErrore::OVERFLOW_:
            throw ErroreEsecuzione(codice, "Overflow");
        case CodiceErrore::INDICE:
            throw ErroreEsecuzione(codice, "Indice non compreso nell'intervallo");
        case CodiceErrore::DIVISIONE_PER_ZERO:
            throw ErroreEsecuzione(codice, "Divisione per zero");
        case CodiceErrore::IO:
            throw ErroreEsecuzione(codice, "Errore di I/O della periferica");
        case CodiceErrore::AUTORIZZAZIONE:
            throw ErroreEsecuzione(codice, "Autorizzazione negata");
        case CodiceErrore::ACCESSO:
            throw ErroreEsecuzione(codice, "Errore di accesso al percorso/file");
        case CodiceErrore::PERCORSO:
            throw ErroreEsecuzione(codice, "Impossibile trovare il percorso");
        case CodiceErrore::INTERNO:
            throw ErroreEsecuzione(codice, "Errore interno");
        default:
            throw ErroreEsecuzione(codice, "Errore definito dall'applicazione o dall'oggetto");
    }
}

namespace {

// Byte length of the first `n` UTF-8 characters of s.
size_t ByteDeiCaratteri(std::string_view s, size_t n) {
    size_t i = 0;
    while (i < s.size() && n > 0) {
        ++i;
        while (i < s.size() && (static_cast<unsigned char>(s[i]) & 0xC0) == 0x80) ++i;
        --n;
    }
    return i;
}

}  // namespace

int NumeroCaratteri(std::string_view s) {
    int n = 0;
    for (char c : s)
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++n;
    return n;
}

std::string Sinistra(std::string_view testo, int n) {
    if (n < 0) Fallisci(CodiceErrore::ARGOMENTO_NON_VALIDO);
    return std::string(testo.substr(0, ByteDeiCaratteri(testo, static_cast<size_t>(n))));
}

std::string Destra(std::string_view testo, int n) {
    if (n < 0) Fallisci(CodiceErrore::ARGOMENTO_NON_VALIDO);
    const size_t totale = static_cast<size_t>(NumeroCaratteri(testo));
    if (static_cast<size_t>(n) >= totale) return std::string(testo);
    return std::string(testo.substr(ByteDeiCaratteri(testo, totale - static_cast<size_t>(n))));
}

// ---- Tables ----

namespace {

// A 16-bit product or sum of the layout: beyond its range the run fails, as the product's does.
int16_t Intero16(long v) {
    if (v < -32768 || v > 32767) Fallisci(CodiceErrore::OVERFLOW_);
    return static_cast<int16_t>(v);
}

// The column file writes "." for an empty title.
std::string Titolo(const std::string& t) { return t == "." ? std::string() : t; }

double Numero(const Valore& v) {
    if (const auto* f = std::get_if<float>(&v)) return static_cast<double>(*f);
    if (const auto* x = std::get_if<double>(&v)) return *x;
    if (const auto* i = std::get_if<int16_t>(&v)) return *i;
    if (const auto* l = std::get_if<int32_t>(&v)) return *l;
    return 0.0;
}

bool IsNumero(const Valore& v) {
    return !std::holds_alternative<std::monostate>(v) && !std::holds_alternative<std::string>(v);
}

// A field laid out by its column's pattern. Texts print as they stand; a text pattern ("@")
// on a number prints the number's own text.
std::string Formatta(const Valore& v, const std::string& formato) {
    if (!IsNumero(v)) return TestoValore(v);
    const bool segnaposti = formato.find_first_of("#0") != std::string::npos;
    if (!segnaposti && formato.find('@') != std::string::npos) return TestoValore(v);
    return FormattaNumero(Numero(v), formato);
}

enum class Genere { Tronchi, Perdite, Percorso, Utenze };

struct Regole {
    Genere genere;
    bool pressione;
    std::vector<int16_t> trattini;  // fields printed "-" when 0
};

Regole RegoleDi(Genere g, bool pressione, bool secondaPerdite = false) {
    using namespace Id;
    Regole r{g, pressione, {}};
    switch (g) {
        case Genere::Tronchi:
            r.trattini = pressione ? std::vector<int16_t>{ID_LEN, ID_VELOCITA, ID_PDC_TRONCO}
                                   : std::vector<int16_t>{ID_P_UTENZE, ID_LEN, ID_VELOCITA, ID_PDC_TRONCO};
            break;
        case Genere::Perdite:
            if (!pressione)
                r.trattini = {ID_LEN, ID_NCURVE, ID_NGOMITI, ID_NRACCORDI, ID_NRUBINETTI, ID_EQLENNOTA, ID_EQ_LEN};
            else if (!secondaPerdite)
                r.trattini = {ID_LEN,  ID_NCURVE, ID_NGOMITI, ID_NRACCORDI, ID_NRUBINETTI, ID_SPC5,
                              ID_SPC6, ID_SPC7,   ID_SPC8,    ID_SPC9,      ID_SPC10};
            else
                r.trattini = {ID_LEN, ID_EQLENNOTA, ID_EQ_LEN, ID_EQLENLOC};
            break;
        case Genere::Percorso:
            r.trattini = {ID_P_UTENZE, ID_LEN, ID_VELOCITA, ID_PDC_TRONCO, ID_PDC_PERCORSO};
            break;
        case Genere::Utenze:
            r.trattini = {ID_P_UTENZE, ID_P_KW, ID_P_KCAL};
            break;
    }
    return r;
}

bool Contiene(const std::vector<int16_t>& v, int16_t id) {
    for (int16_t x : v)
        if (x == id) return true;
    return false;
}

// The flow of a pressure network's section: with a contemporaneity strictly between 0 and
// 100 the percentage follows in brackets, and the blank after it stays.
std::string PortataContemporanea(const Tronco& t, const Valore& v, const std::string& formato) {
    if (t.ID_CONTEMP > 0 && t.ID_CONTEMP < 100)
        return Trim(Formatta(v, formato)) + "[" + std::to_string(t.ID_CONTEMP) + "%] ";
    if (Numero(v) == 0) return "-";
    return Trim(Formatta(v, formato));
}

std::string Cella(const Documento& d, const Archivi& a, const Regole& r, int sezione, const ColonnaRelazione& c) {
    using namespace Id;
    const Tronco& t = d.T(sezione);
    const Valore v = LeggiCampo(d, a, sezione, c.id);
    std::string testo;
    const bool portataPressione =
        r.pressione && c.id == ID_P_TRONCO && (r.genere == Genere::Tronchi || r.genere == Genere::Percorso);
    if (portataPressione) {
        testo = PortataContemporanea(t, v, c.formato);
    } else if (r.genere == Genere::Tronchi && !r.pressione && c.id == ID_PDC_PERCORSO &&
               (Numero(v) == 0 || t.ID_P_UTENZE == 0)) {
        // Only the consumers show the drop of their path.
        testo = "-";
    } else if (r.genere == Genere::Tronchi && r.pressione && c.id == ID_PFINALE && (t.ID_LEFT > 0 || t.ID_RIGHT > 0)) {
        // Only the ends of the network show a final pressure.
        testo = "-";
    } else if (Contiene(r.trattini, c.id) && IsNumero(v) && Numero(v) == 0) {
        testo = "-";
    } else {
        testo = Trim(Formatta(v, c.formato));
    }
    return testo;
}

RigaRelazione Riga(const Documento& d, const Archivi& a, const Regole& r, int sezione,
                   const std::vector<ColonnaRelazione>& colonne) {
    RigaRelazione riga;
    riga.sezione = static_cast<int16_t>(sezione);
    riga.ultima = sezione >= d.NumTronchi();
    riga.valori.reserve(colonne.size());
    for (size_t c = 0; c < colonne.size(); ++c) {
        if (c == 0) {
            // Column 0 is always the section's number.
            const Valore numero = static_cast<int16_t>(sezione);
            riga.valori.push_back(Trim(Formatta(numero, colonne[0].formato)));
        } else {
            riga.valori.push_back(Cella(d, a, r, sezione, colonne[c]));
        }
    }
    return riga;
}

// Pattern and budget of a column the totals are laid out by; the table must have it.
const ColonnaRelazione& ColonnaTotale(const std::vector<ColonnaRelazione>& colonne, size_t c) {
    if (c >= colonne.size()) Fallisci(CodiceErrore::INDICE);
    return colonne[c];
}

}  // namespace

TabelleRelazione NumeriTabelle(bool reteInPressione) {
    return reteInPressione ? TabelleRelazione{6, 9, 7, 8} : TabelleRelazione{1, 2, 3, 4};
}

std::vector<ColonnaRelazione> ColonneRelazione(const Archivi& a, int tabella) {
    if (tabella < 0 || tabella >= NUM_TABELLE) Fallisci(CodiceErrore::INDICE);
    const auto& def = a.Colonne.Tabelle[static_cast<size_t>(tabella)];
    const int ultima = a.Colonne.NumColonne[static_cast<size_t>(tabella)];
    long somma = 0;
    for (int c = 0; c <= ultima; ++c) somma = Intero16(somma + def[static_cast<size_t>(c)].Larghezza);
    if (somma == 0) Fallisci(CodiceErrore::DIVISIONE_PER_ZERO);
    const long unita = Intero16(std::lrint(170.0 / static_cast<double>(somma)));  // half to even
    std::vector<ColonnaRelazione> colonne;
    for (int c = 0; c <= ultima; ++c) {
        const ColonnaTabella& x = def[static_cast<size_t>(c)];
        ColonnaRelazione k;
        k.id = x.Id;
        k.peso = x.Larghezza;
        k.formato = x.Formato;
        k.larghezza = Intero16(static_cast<long>(x.Larghezza) * unita);
        k.budget = static_cast<int>(std::floor(static_cast<double>(k.larghezza) / 2.0)) - 1;
        k.titolo1 = Titolo(x.Titolo1);
        k.titolo2 = Titolo(x.Titolo2);
        colonne.push_back(std::move(k));
    }
    return colonne;
}

// The rows of every section the last calculation reached, in index order.
static void AggiungiRigheVisitate(const Documento& d, const Archivi& a, const Regole& r, TabellaRelazione& t) {
    for (int i = 1; i <= d.NumTronchi(); ++i)
        if (d.T(i).Visitato != 0) t.righe.push_back(Riga(d, a, r, i, t.colonne));
}

TabellaRelazione TabellaTronchi(const Documento& d, const Archivi& a) {
    const bool pressione = d.ReteInPressione != 0;
    TabellaRelazione t;
    t.titolo = TITOLO_TRONCHI;
    t.colonne = ColonneRelazione(a, NumeriTabelle(pressione).tronchi);
    AggiungiRigheVisitate(d, a, RegoleDi(Genere::Tronchi, pressione), t);
    return t;
}

std::vector<TabellaRelazione> TabellePerdite(const Documento& d, const Archivi& a) {
    const bool pressione = d.ReteInPressione != 0;
    std::vector<TabellaRelazione> tabelle;
    TabellaRelazione t;
    t.titolo = TITOLO_PERDITE;
    t.colonne = ColonneRelazione(a, NumeriTabelle(pressione).perdite);
    if (pressione) {
        // The user's fittings 5..10 are titled by their names in the fittings table.
        for (size_t c = 0; c < t.colonne.size(); ++c) {
            const int16_t id = t.colonne[c].id;
            if (id >= Id::ID_SPC5 && id <= Id::ID_SPC10) {
                const size_t tipo = static_cast<size_t>(id - Id::ID_SPC5 + 5);
                t.colonne[c].titolo1 = d.Speciali[tipo].Nome;
            }
        }
    }
    AggiungiRigheVisitate(d, a, RegoleDi(Genere::Perdite, pressione), t);
    tabelle.push_back(std::move(t));
    if (pressione) {
        TabellaRelazione l;
        l.titolo = TITOLO_LUNGHEZZE;
        l.colonne = ColonneRelazione(a, 10);
        AggiungiRigheVisitate(d, a, RegoleDi(Genere::Perdite, true, true), l);
        tabelle.push_back(std::move(l));
    }
    return tabelle;
}

TabellaRelazione TabellaPercorso(const Documento& d, const Archivi& a) {
    const bool pressione = d.ReteInPressione != 0;
    TabellaRelazione t;
    t.titolo = TITOLO_PERCORSO;
    t.colonne = ColonneRelazione(a, NumeriTabelle(pressione).percorso);
    const Regole r = RegoleDi(Genere::Percorso, pressione);
    const std::vector<int16_t> percorso = PercorsoSfavorito(d);
    float somma = 0.0f;  // 32-bit, as the rows are written
    for (auto it = percorso.rbegin(); it != percorso.rend(); ++it) {
        const int i = *it;
        if (i < 1 || i > MAX_TRONCHI || d.T(i).Visitato == 0) continue;
        t.righe.push_back(Riga(d, a, r, i, t.colonne));
        somma = static_cast<float>(somma + d.T(i).ID_PDC_TRONCO);
    }
    t.totale =
        TotaleRelazione{"TOTALE PERDITA DI PRESSIONE:", FormattaNumero(somma, ColonnaTotale(t.colonne, 7).formato), 7};
    return t;
}

TabellaRelazione TabellaUtenze(const Documento& d, const Archivi& a) {
    const bool pressione = d.ReteInPressione != 0;
    TabellaRelazione t;
    t.titolo = TITOLO_UTENZE;
    t.colonne = ColonneRelazione(a, NumeriTabelle(pressione).utenze);
    const Regole r = RegoleDi(Genere::Utenze, pressione);
    // The flow of the consumers is summed in 32 bits as the rows are written.
    float portata = 0.0f;
    for (int i = 1; i <= d.NumTronchi(); ++i) {
        const Tronco& x = d.T(i);
        if (!(x.ID_P_UTENZE > 0) || x.Visitato == 0) continue;
        t.righe.push_back(Riga(d, a, r, i, t.colonne));
        portata = static_cast<float>(portata + x.ID_P_UTENZE);
    }
    const size_t colonna = pressione ? 2 : 4;
    t.totale = TotaleRelazione{
        "TOTALE PORTATA GAS:", FormattaNumero(portata, ColonnaTotale(t.colonne, colonna).formato), colonna};
    return t;
}

// ---- Cover ----

CopertinaRelazione Copertina(const Documento& d) {
    CopertinaRelazione c;
    const GasRecord& g = d.GasCorrente;
    c.pressione = d.ReteInPressione != 0;
    c.titolo = c.pressione ? "Rete gas in pressione" : "Schema di impianto interno gas";
    c.riferimento = Sinistra(d.Riferimento, 70);
    c.lavoro = d.DescrizioneLavoro;
    c.normativa = d.Normativa == 1 ? "UNI7129 (1992)" : "UNI7129 (2008)";
    c.tipoGas = g.Nome;
    c.densita = FormattaNumero(g.Densita, "##0.###");
    c.famiglia = g.Famiglia;
    c.massaVolumica = FormattaNumero(g.MassaVolumica, " ##0.###");
    c.viscosita = FormattaNumero(static_cast<double>(g.Viscosita) * 1000000.0, " ##0.##");
    c.pci = FormattaNumero(g.Pci, " ##0.## MJ/mc");
    c.pcs = FormattaNumero(g.Pcs, " ##0.## MJ/mc");
    const Tronco& primo = d.T(1);
    c.qContemporanea = primo.ID_P_TRONCO;
    if (!c.pressione) {
        c.limite = LimitePdc(d);
        c.limitePa = FormattaNumero(c.limite, " ##0  Pa");
        // Single precision divided by a whole number stays single precision.
        c.limiteMbar = FormattaNumero(static_cast<float>(c.limite / 100.0), "##0.00 mbar");
        c.portataTotale = FormattaNumero(primo.ID_P_TRONCO, " ##0.0  Nmc/h");
        return c;
    }
    c.pIniziale = d.PressioneIniziale;
    c.pFinale = d.PressioneFinale;
    c.velMax = d.VelocitaMassima;
    c.pressioneIniziale = FormattaNumero(c.pIniziale, " ##0.00  kPa");
    c.pressioneInizialeBar = FormattaNumero(c.pIniziale / 100.0, "##0.000 bar");
    c.pressioneFinale = FormattaNumero(c.pFinale, " ##0.00  kPa");
    c.pressioneFinaleBar = FormattaNumero(c.pFinale / 100.0, "##0.000 bar");
    c.velocitaImpostata = FormattaNumero(c.velMax, " ##0.0  m/s");
    float massima = 0.0f;
    for (int i = 1; i <= d.NumTronchi(); ++i) massima = std::max(massima, d.T(i).ID_VELOCITA);
    c.velCalcolata = massima;
    c.velocitaCalcolata = FormattaNumero(c.velCalcolata, " ##0.00  m/s");
    // The flow of the whole network undoes the contemporaneity of its first section; the
    // quotient of whole numbers and single values is a single value.
    const float quota = static_cast<float>(primo.ID_CONTEMP / 100.0);
    if (quota == 0) Fallisci(primo.ID_P_TRONCO == 0 ? CodiceErrore::OVERFLOW_ : CodiceErrore::DIVISIONE_PER_ZERO);
    c.qTotale = static_cast<float>(static_cast<double>(primo.ID_P_TRONCO) / quota);
    c.portataNominale = FormattaNumero(c.qTotale, " ##0.0  Nmc/h");
    c.portataContemporanea = FormattaNumero(c.qContemporanea, " ##0.0  Nmc/h");
    return c;
}

// ---- Bill of pipes ----

ComputoRelazione Computo(const Documento& d, const Archivi& a) {
    const ComputoTubi totali = CalcolaComputo(d, a);
    ComputoRelazione c;
    for (int m = 1; m <= a.NumMateriali(); ++m) {
        const MaterialeTubo& mat = a.Materiali[static_cast<size_t>(m)];
        const ComputoTubi::Materiale& tot = totali.Materiali[static_cast<size_t>(m)];
        if (tot.Totalizzato == 0) continue;
        MaterialeComputo x;
        x.nome = mat.Nome;
        x.descrizione = mat.Descrizione;
        x.acciaio = mat.TipoFormula == 1;
        x.peso = FormattaNumero(tot.PesoTotale, "#######0");
        for (int r = 1; r <= mat.NumRighe(); ++r) {
            const float lunghezza = tot.LunghezzaTotale[static_cast<size_t>(r)];
            if (lunghezza > 0)
                x.diametri.emplace_back(mat.Righe[static_cast<size_t>(r)].DN, FormattaNumero(lunghezza, "###0.0"));
        }
        c.materiali.push_back(std::move(x));
    }
    if (totali.PesoTotaleAcciaio > 0) c.pesoAcciaio = FormattaNumero(totali.PesoTotaleAcciaio, "#######0");
    return c;
}

// ---- Leak-test record ----

namespace {

VoceTenuta Voce(VoceTenuta::Tipo tipo, std::string testo = {}) {
    VoceTenuta v;
    v.tipo = tipo;
    v.testo = std::move(testo);
    return v;
}

}  // namespace

std::vector<VoceTenuta> TenutaRelazione(const VerificaTenuta& r, const std::string& nomeGas) {
    using T = VoceTenuta::Tipo;
    std::vector<VoceTenuta> v;
    auto spazio = [&] { v.push_back(Voce(T::Spazio)); };
    auto intestazione = [&](const std::string& s) { v.push_back(Voce(T::Intestazione, s)); };
    auto riga = [&](const std::string& s) { v.push_back(Voce(T::Riga, s)); };

    spazio();
    v.push_back(Voce(T::Titolo, TITOLO_TENUTA));
    spazio();

    intestazione("Dati dell'utente e/o proprietario");
    riga(r.ProprietarioNome);
    riga(r.Via + " n° " + r.Numero + (r.Scala.empty() ? std::string() : " scala " + r.Scala));
    riga(r.ComuneInstallazione + " (" + r.Provincia + ") " + " - " + r.Cap);
    spazio();

    intestazione("Proprietario (se diverso dall'occupante) ");
    if (!r.ProprietarioNome2.empty()) {
        riga(r.ProprietarioNome2);
        riga(r.Via2 + " n° " + r.NumCiv);
        riga(" - " + r.ComuneResidenza);
    }
    spazio();

    intestazione("Durante l'intervento era presente il/la sig. ");
    riga(r.Presente);
    spazio();

    intestazione("TIPO DI GAS: ");
    switch (r.FamigliaGas) {
        case 1:
            riga("I famiglia");
            break;
        case 2:
            riga("II famiglia");
            break;
        case 3:
            riga("III famiglia");
            break;
        default:
            riga("");
            break;
    }
    riga(nomeGas);
    spazio();

    riga("Intervento eseguito il " + r.DataEsecuzione + " alle ore " + r.OraEsecuzione);
    spazio();

    intestazione("CAUSA DELL'INTERVENTO");
    VoceTenuta cause = Voce(T::Elenco);
    {
        // Seven fields joined by ';': any other count prints no cause at all.
        std::vector<std::string> campi(1);
        for (char ch : r.CauseIntervento) {
            if (ch == ';')
                campi.emplace_back();
            else
                campi.back() += ch;
        }
        static const char* const kCause[7] = {
            "- Sostituzione apparecchio",
            "- Sostituzione tipo di gas",
            "- Riattivazione impianto",
            "- Persistente odore di gas",
            "- Esito incerto secondo UNI 10738",
            "- Verifica periodica decennale",
            "- Altro: ",
        };
        if (campi.size() == 7) {
            for (size_t i = 0; i < 7; ++i) {
                if (campi[i].empty()) continue;
                cause.elementi.push_back(std::string(kCause[i]) + (i == 6 ? r.CausaAltro : std::string()));
            }
        }
    }
    v.push_back(std::move(cause));
    spazio();

    intestazione("APPARECCHI ALIMENTATI DALL'IMPIANTO");
    riga("Numero complessivo apparecchi: " + std::to_string(r.AppComplessivo));
    VoceTenuta app = Voce(T::Apparecchi);
    auto conta = [](int16_t n) { return "n° " + std::to_string(n); };
    app.coppie.emplace_back(conta(r.AppRisc), " per il riscaldamento");
    app.coppie.emplace_back(conta(r.AppAcquaSan), " per la produzione di acqua sanitaria");
    app.coppie.emplace_back(conta(r.AppCombinati), " combinati (riscaldamento/sanitario)");
    app.coppie.emplace_back(conta(r.AppCottura), " per cottura cibi");
    app.coppie.emplace_back(conta(r.AppAltroNum), std::string(" di altro tipo") +
                                                      (r.AppAltroNum > 0 ? ": " + r.AppAltroDesc : std::string()));
    v.push_back(std::move(app));
    spazio();

    intestazione("METODOLOGIA DI VERIFICA APPLICATA:");
    if (r.MetodoProva == 1)
        riga("Prova preliminare con contatore");
    else if (r.MetodoProva == 2)
        riga("Prova preliminare mediante rilevazione c.d.p. (solo per impianto con capacità > 25 litri)");
    else
        riga("Non indicata");
    spazio();

    if (r.MetodoProva == 1) {
        intestazione("PROVA PRELIMINARE CON CONTATORE");
        riga("Modello: " + r.ContModello);
        riga("Calibro: " + r.ContCalibro);
        riga("Marca: " + r.ContMarca);
        riga("Matricola: " + r.ContMatricola);
        riga("Portata nominale minima: " + r.ContQn + " (l/h)");
        riga("Pressione di prova: " + r.ContPprova + " (Pa)");
        riga("Valore di dispersione rilevato: " + r.ContDispRil + " (l/h)");
        riga("Pressione di riferimento (ricavata come da norma UNI): " + r.ContPRif + " (Pa)");
        riga("Dispersione di riferimento (ricavata come da norma UNI): " + r.ContDispRif + " (l/h)");
        spazio();
    } else if (r.MetodoProva == 2) {
        intestazione("PROVA PRELIMINARE MEDIANTE RILEVAZIONE C.D.P.");
        riga("Strumento tipo: " + r.CdpStrumento);
        riga("Marca: " + r.CdpMarca);
        riga("Matricola: " + r.CdpMatricola);
        riga("Pressione di prova con gas di rete: " + r.CdpPprova + " (Pa)");
        riga("Caduta di pressione rilevata in un minuto: " + r.CdpCdp + " (Pa)");
        riga("Pressione di riferimento (ricavata come da norma UNI): " + r.CdpPrifer + " (Pa)");
        riga("Caduta di pressione massima in un minuto (ricavata come da norma UNI): " + r.CdpCdpMax + " (Pa)");
        spazio();
    }

    intestazione("CONTROLLO DISPOSITIVO DI INTERCETTAZIONE");
    if (r.DispositivoIntercettazione == 1)
        riga("Dispositivo di intercettazione a tenuta");
    else if (r.DispositivoIntercettazione == 2)
        riga("Dispositivo di intercettazione NON a tenuta");
    else
        riga("Dispositivo di intercettazione NON INDICATO");
    spazio();

    intestazione("RISULTATO DELLA VERIFICA");
    if (r.EsitoProva == 1) {
        riga("Tenuta idonea al funzionamento");
    } else if (r.EsitoProva == 2) {
        riga("Tenuta idonea al funzionamento temporaneo (*)");
        riga(
            "(*) La tenuta dell'impianto deve essere ripristinata entro e non oltre 30 giorni a partire dalla "
            "data odierna");
    } else {
        riga("Tenuta non idonea al funzionamento (**)");
        riga("(**) L'impianto viene messo fuori esercizio.");
        riga(
            "Si diffida dall'utilizzo: la mancanza di tenuta rilevata pregiudica la sicurezza della pubblica "
            "incolumità");
    }
    spazio();

    intestazione("NOTE");
    riga(r.Note);
    spazio();

    intestazione("Dati dell'impresa e/o del tecnico che ha effettuato la verifica");
    riga(r.RagSociale);
    riga(r.Indirizzo);
    riga(r.Telefono);
    riga("Tecnico: " + r.NomeTecnico);
    spazio();

    VoceTenuta firme = Voce(T::Firme);
    firme.elementi = {"     Timbro e Firma", "Firma per accettazione dell'occupante"};
    v.push_back(std::move(firme));
    return v;
}

}  // namespace fornax
