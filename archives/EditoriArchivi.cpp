#include "archives/EditoriArchivi.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "archives/Gas.h"
#include "archives/Materiali.h"
#include "core/Cartelle.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"

namespace fornax {

namespace {

// The viscosity is typed in mm²/s and stored in m²/s.
constexpr double MMQ_PER_MQ = 1000000.0;
constexpr double MQ_PER_MMQ = 0.000001;
// Significant digits of a number in an input box: enough to give back every single value.
constexpr int CIFRE_BOX = 7;
// A pipe-material name is a file name of at most eight characters.
constexpr size_t LUNGHEZZA_NOME_MATERIALE = 8;

const char* const SALVARE = "Salvare le modifiche?";

std::string TestoBox(double v) { return TestoGenerale(v, CIFRE_BOX); }

// A box left as it was shown keeps the exact stored value: showing and reading back a number
// must not move it by the last bit.
float LeggiBox(const std::string& testo, const std::string& mostrato, float valore, double scala = 1.0) {
    if (testo == mostrato) return valore;
    return Singolo(LeggiNumero(testo) * scala);
}

// Characters of a UTF-8 text (continuation bytes don't count).
size_t Caratteri(const std::string& s) {
    return static_cast<size_t>(
        std::count_if(s.begin(), s.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// The first `n` characters of a UTF-8 text.
std::string PrimiCaratteri(const std::string& s, size_t n) {
    size_t contati = 0;
    for (size_t i = 0; i < s.size(); ++i) {
        if ((static_cast<unsigned char>(s[i]) & 0xC0) != 0x80) {
            if (contati == n) return s.substr(0, i);
            ++contati;
        }
    }
    return s;
}

bool RigaVuota(const RigaDiametro& r) { return Trim(r.DN).empty() && r.DiamEsterno == 0 && r.Spessore == 0; }

}  // namespace

// ---- Gas editor ----

EditorGas::EditorGas(Archivi& a) : a_(a) { Mostra(1); }

TestiGas EditorGas::Testi() const {
    TestiGas t;
    t.densita = TestoBox(lavoro_.Densita);
    t.viscosita = TestoBox(static_cast<double>(lavoro_.Viscosita) * MMQ_PER_MQ);
    t.pci = TestoBox(lavoro_.Pci);
    t.pcs = TestoBox(lavoro_.Pcs);
    t.nonCombustibile = lavoro_.NonCombustibile != 0;
    return t;
}

void EditorGas::Mostra(int indice) {
    indice_ = a_.NumGas() == 0 ? 0 : std::clamp(indice, 1, static_cast<int>(a_.NumGas()));
    lavoro_ = indice_ == 0 ? GasRecord{} : a_.Gas[static_cast<size_t>(indice_)];
    mostrati_ = Testi();
    modificato_ = false;
}

void EditorGas::Memorizza(const TestiGas& t) {
    lavoro_.Densita = LeggiBox(t.densita, mostrati_.densita, lavoro_.Densita);
    lavoro_.Viscosita = LeggiBox(t.viscosita, mostrati_.viscosita, lavoro_.Viscosita, MQ_PER_MMQ);
    lavoro_.Pci = LeggiBox(t.pci, mostrati_.pci, lavoro_.Pci);
    lavoro_.Pcs = LeggiBox(t.pcs, mostrati_.pcs, lavoro_.Pcs);
    // A flag the file holds as 1 stays 1 while the check is left on.
    if (t.nonCombustibile != (lavoro_.NonCombustibile != 0)) lavoro_.NonCombustibile = t.nonCombustibile ? VERO : FALSO;
    mostrati_ = Testi();
}

void EditorGas::Ricalcola(const TestiGas& t, Messaggi& msg) {
    Memorizza(t);
    CalcolaGas(lavoro_, msg);
    mostrati_ = Testi();
}

bool EditorGas::Salva(const TestiGas& t, Messaggi& msg) {
    if (indice_ == 0) return false;
    Memorizza(t);
    if (!GasValido(lavoro_)) {
        msg.Mostra("Impossibile salvare il gas. Dati incompleti");
        return false;
    }
    // The archive holds the derived values a new reading of the file would give.
    CalcolaGas(lavoro_, msg);
    GasRecord& r = a_.Gas[static_cast<size_t>(indice_)];
    const GasRecord prima = r;
    r = lavoro_;
    // Written as any other gas of the file from now on.
    const bool nuovo = nuovi_.erase(indice_) > 0;
    if (!Scrivi(msg)) {
        if (nuovo) nuovi_.insert(indice_);
        r = prima;
        return false;
    }
    salvati_.insert(Maiuscolo(Trim(r.Nome)));
    mostrati_ = Testi();
    modificato_ = false;
    return true;
}

// GAS.CFG from the table, without the gases added and never saved: they have no data yet
// and only "Salva" puts a gas in the file.
bool EditorGas::Scrivi(Messaggi& msg) {
    std::vector<int16_t> cancellati;
    for (int i : nuovi_) {
        GasRecord& g = a_.Gas[static_cast<size_t>(i)];
        cancellati.push_back(g.Cancellato);
        g.Cancellato = VERO;
    }
    const bool scritto = SalvaGas(a_, msg);
    size_t k = 0;
    for (int i : nuovi_) a_.Gas[static_cast<size_t>(i)].Cancellato = cancellati[k++];
    return scritto;
}

int EditorGas::Nuovo(const std::string& nome) {
    if (Trim(nome).empty()) return 0;
    const int indice = NuovoGas(a_, nome);
    nuovi_.insert(indice);
    Mostra(indice);
    return indice;
}

bool EditorGas::Cancella(const GasRecord& gasCorrente, Messaggi& msg) {
    if (indice_ == 0) return false;
    const std::string nome = a_.Gas[static_cast<size_t>(indice_)].Nome;
    if (UgualiSenzaMaiuscole(Trim(nome), Trim(gasCorrente.Nome))) {
        msg.Mostra("Non è possibile cancellare il gas correntemente in uso");
        return false;
    }
    if (msg.Mostra("Confermi la cancellazione del gas : \r" + nome, Box::YESNO | Box::QUESTION) != Risposta::YES)
        return false;
    const int cancellato = indice_;
    a_.Gas[static_cast<size_t>(cancellato)].Cancellato = VERO;
    const bool scritto = Scrivi(msg);
    a_.Gas[static_cast<size_t>(cancellato)].Cancellato = FALSO;
    if (!scritto) return false;
    CaricaGas(a_, msg);
    // The gases chosen for unknown names of the project follow the table (DopoGestioneGas).
    cancellati_.push_back(cancellato);
    // Gases added and not saved aren't in the file, so the new reading has dropped them.
    nuovi_.clear();
    Mostra(std::min(cancellato, static_cast<int>(a_.NumGas())));
    return true;
}

bool EditorGas::PrimaDiCambiare(const TestiGas& t, Messaggi& msg) {
    if (!modificato_) return true;
    switch (msg.Mostra(SALVARE, Box::YESNOCANCEL | Box::QUESTION)) {
        case Risposta::YES:
            return Salva(t, msg);
        case Risposta::NO:
            modificato_ = false;
            return true;
        default:
            return false;
    }
}

void EditorGas::Chiudi() {
    for (auto i = nuovi_.rbegin(); i != nuovi_.rend(); ++i)
        if (*i >= 1 && *i <= a_.NumGas()) a_.Gas.erase(a_.Gas.begin() + *i);
    nuovi_.clear();
    indice_ = std::min(indice_, static_cast<int>(a_.NumGas()));
}

void RinumeraSostituzioniGas(Sostituzioni& e, const std::vector<int>& cancellati) {
    // The deleted gas is asked about again, those after it move up one place.
    auto& scelte = e.liste[2];
    for (const int cancellato : cancellati) {
        scelte.erase(std::remove_if(scelte.begin(), scelte.end(),
                                    [cancellato](const Sostituzioni::Coppia& c) { return c.indice == cancellato; }),
                     scelte.end());
        for (auto& c : scelte)
            if (c.indice > cancellato) --c.indice;
    }
}

bool DopoGestioneGas(Documento& d, const Archivi& a, const std::set<std::string>& salvati, Messaggi& msg,
                     const std::vector<int>& cancellati) {
    RinumeraSostituzioniGas(d.Equiv, cancellati);
    bool sostituito = false;
    const std::string corrente = Maiuscolo(Trim(d.GasCorrente.Nome));
    if (salvati.count(corrente) != 0) {
        for (int g = 1; g <= a.NumGas(); ++g) {
            const GasRecord& r = a.Gas[static_cast<size_t>(g)];
            if (Maiuscolo(Trim(r.Nome)) == corrente) {
                d.GasCorrente = r;
                d.DpMax = 0;
                sostituito = true;
                break;
            }
        }
    }
    if (d.ReteInPressione == 0 && d.GasCorrente.NonCombustibile != 0)
        msg.Mostra("Nel calcolo dell'impianto interno gas non può essere utilizzato un gas non combustibile");
    d.ReteModificata = VERO;
    return sostituito;
}

// ---- Pipe-material editor ----

EditorMateriali::EditorMateriali(Archivi& a) : a_(a) { Mostra(1); }

void EditorMateriali::Mostra(int indice) {
    indice_ = a_.NumMateriali() == 0 ? 0 : std::clamp(indice, 1, static_cast<int>(a_.NumMateriali()));
    righe_.clear();
    if (indice_ == 0) {
        tipo_ = 1;
        peso_ = 0;
        descrizione_.clear();
    } else {
        const MaterialeTubo& m = a_.Materiali[static_cast<size_t>(indice_)];
        tipo_ = m.TipoFormula;
        peso_ = m.PesoSpecifico;
        descrizione_ = m.Descrizione;
        righe_.assign(m.Righe.begin() + 1, m.Righe.end());
    }
    modificato_ = false;
}

void EditorMateriali::ImpostaTipoFormula(int16_t tipo) {
    if (tipo == tipo_) return;
    tipo_ = tipo;
    modificato_ = true;
}

void EditorMateriali::ImpostaPesoSpecifico(const std::string& testo) {
    const auto peso = Singolo(LeggiNumero(testo));
    if (peso == peso_) return;
    peso_ = peso;
    for (RigaDiametro& r : righe_) Deriva(r);
    modificato_ = true;
}

void EditorMateriali::ImpostaDescrizione(const std::string& testo) {
    if (testo == descrizione_) return;
    descrizione_ = testo;
    modificato_ = true;
}

int EditorMateriali::RigheGriglia() const { return std::min(RigheInUso() + 1, MAX_RIGHE); }

RigaDiametro EditorMateriali::Riga(int r) const {
    if (r < 1 || r > RigheInUso()) return RigaDiametro{};
    return righe_[static_cast<size_t>(r - 1)];
}

std::string EditorMateriali::TestoCella(int r, int c) const {
    const RigaDiametro riga = Riga(r);
    if (RigaVuota(riga)) return {};
    switch (c) {
        case ColonnaMateriale::DN:
            return riga.DN;
        case ColonnaMateriale::ESTERNO:
            return riga.DiamEsterno == 0 ? std::string() : TestoBox(riga.DiamEsterno);
        case ColonnaMateriale::SPESSORE:
            return riga.Spessore == 0 ? std::string() : TestoBox(riga.Spessore);
        case ColonnaMateriale::INTERNO:
            return TestoBox(riga.DiamInterno);
        case ColonnaMateriale::PESO:
            return FormattaNumero(riga.PesoMetro, "###0.00");
        default:
            return {};
    }
}

// Weight per metre of a row as the archive computes it, with the specific weight in view.
void EditorMateriali::Deriva(RigaDiametro& r) const { DerivaRiga(r, peso_); }

bool EditorMateriali::ImpostaCella(int r, int c, const std::string& testo, Messaggi& msg) {
    if (indice_ == 0 || !Modificabile(c) || r < 1 || r > RigheGriglia()) return false;
    if (r > RigheInUso()) {
        // Typing into the empty row after the last one adds a row, unless nothing was typed.
        if (Trim(testo).empty()) return true;
        righe_.emplace_back();
    }
    RigaDiametro& riga = righe_[static_cast<size_t>(r - 1)];
    switch (c) {
        case ColonnaMateriale::DN:
            riga.DN = Trim(testo);
            break;
        case ColonnaMateriale::ESTERNO:
            riga.DiamEsterno = Singolo(LeggiNumero(testo));
            break;
        default: {
            riga.Spessore = Singolo(LeggiNumero(testo));
            // A wall of half the outer diameter leaves no bore.
            if (static_cast<double>(riga.Spessore) >= static_cast<double>(riga.DiamEsterno) / 2.0) {
                msg.Mostra("Spessore non compatibile");
                riga.Spessore = 0;
            }
            break;
        }
    }
    // The bore follows the two diameters it comes from; a new name alone leaves it exact.
    if (c != ColonnaMateriale::DN)
        riga.DiamInterno = static_cast<float>(static_cast<double>(riga.DiamEsterno) - 2.0 * riga.Spessore);
    Deriva(riga);
    modificato_ = true;
    return true;
}

bool EditorMateriali::Salva(Messaggi& msg) {
    if (indice_ == 0) return false;
    MaterialeTubo& m = a_.Materiali[static_cast<size_t>(indice_)];
    const MaterialeTubo prima = m;
    m.TipoFormula = tipo_;
    m.PesoSpecifico = peso_;
    m.Descrizione = descrizione_;
    m.Righe.assign(1, RigaDiametro{});
    for (const RigaDiametro& r : righe_)
        if (!Trim(r.DN).empty()) m.Righe.push_back(r);
    if (!SalvaMateriale(a_, indice_, msg)) {
        m = prima;
        return false;
    }
    CalcolaDerivati(a_);
    nuovi_.erase(indice_);
    salvato_ = true;
    Mostra(indice_);
    return true;
}

int EditorMateriali::Nuovo(const std::string& risposta, Messaggi& msg) {
    std::string nome = Maiuscolo(Trim(risposta));
    if (nome.empty()) return 0;
    if (Caratteri(nome) > LUNGHEZZA_NOME_MATERIALE) {
        if (msg.Mostra("Il nome del tipo di tubazione e' piu' lungo di 8 caratteri.Ignoro i caratteri eccedenti?",
                       Box::YESNO | Box::QUESTION) != Risposta::YES)
            return 0;
        nome = PrimiCaratteri(nome, LUNGHEZZA_NOME_MATERIALE);
    }
    // The file of a name that differs only in case is the same file on the users' machines.
    bool esiste = IndiceMateriale(a_, nome) != 0;
    for (int i = 1; i <= a_.NumMateriali() && !esiste; ++i)
        esiste = UgualiSenzaMaiuscole(Trim(a_.Materiali[static_cast<size_t>(i)].Nome), nome);
    if (esiste) {
        msg.Mostra("Un tipo di tubazione con questo nome esite gia'");
        return 0;
    }
    if (!NomeValido(nome)) {
        msg.Mostra("Nome del file di archivio non valido");
        return 0;
    }
    if (a_.NumMateriali() >= MAX_MATERIALI) {
        msg.Mostra("L'archivio contiene gia' " + std::to_string(MAX_MATERIALI) +
                       " tipi di tubazione: non e' possibile aggiungerne altri.",
                   Box::EXCLAMATION);
        return 0;
    }
    MaterialeTubo m;
    m.Nome = nome;
    m.TipoFormula = 1;
    a_.Materiali.push_back(m);
    const int indice = a_.NumMateriali();
    nuovi_.insert(indice);
    Mostra(indice);
    // Until it is saved the new material exists only here: leaving it asks first.
    modificato_ = true;
    return indice;
}

bool EditorMateriali::Cancella(Messaggi& msg) {
    if (indice_ == 0) return false;
    if (msg.Mostra("Confermi cancellazione  dall'archivio", Box::YESNO | Box::QUESTION) != Risposta::YES) return false;
    const std::string percorso = TrovaFile(a_.Cartella, a_.Materiali[static_cast<size_t>(indice_)].Nome + ".mat");
    if (!EsisteFile(percorso)) {
        msg.Mostra("Il file non esiste, e' gia' stato eliminato!");
        return false;
    }
    if (std::remove(percorso.c_str()) != 0) {
        msg.Mostra("Impossibile cancellare il file '" + percorso + "': " + std::strerror(errno), Box::EXCLAMATION);
        return false;
    }
    // The sections of the open project may use it: the table keeps it until the next start.
    msg.Mostra("L'archivio e' stato cancellato!Solo al prossimo riavvio del programma non sara' piu' presente");
    modificato_ = false;
    return true;
}

bool EditorMateriali::CheckBeforeChange(Messaggi& msg) {
    if (!modificato_) return true;
    switch (msg.Mostra(SALVARE, Box::YESNOCANCEL | Box::QUESTION)) {
        case Risposta::YES:
            return Salva(msg);
        case Risposta::NO:
            modificato_ = false;
            return true;
        default:
            return false;
    }
}

void EditorMateriali::Chiudi() {
    for (auto i = nuovi_.rbegin(); i != nuovi_.rend(); ++i)
        if (*i >= 1 && *i <= a_.NumMateriali()) a_.Materiali.erase(a_.Materiali.begin() + *i);
    nuovi_.clear();
    indice_ = std::min(indice_, static_cast<int>(a_.NumMateriali()));
}

}  // namespace fornax
