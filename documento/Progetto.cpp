#include "documento/Progetto.h"

#include <cctype>
#include <vector>

#include "archives/Gas.h"
#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "archives/Speciali.h"
#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"
#include "documento/Campi.h"
#include "documento/Tenuta.h"

namespace fornax {

namespace {

void ScriviTronchi(ScrittoreTesto& w, Documento& d, const Archivi& a) {
    Rete& r = d.rete();
    for (int i = 0; i <= r.NumTronchi && i <= MAX_TRONCHI; ++i) {
        Tronco& t = d.T(i);
        // A derivation pointing past the last section is a dangling link: saving repairs it.
        if (t.ID_LEFT > r.NumTronchi) t.ID_LEFT = 0;
        if (t.ID_RIGHT > r.NumTronchi) t.ID_RIGHT = 0;
        std::string riga;
        riga.reserve(256);
        for (int id = Id::ID_NUM; id <= Id::ID_CANCELLATO; ++id) {
            const Valore v = LeggiCampo(d, a, i, id);
            // Only a text can hold blanks at its ends, tabs or line breaks.
            const auto* s = std::get_if<std::string>(&v);
            std::string testo = s ? Trim(CampoDiRiga(*s)) : TestoValore(v);
            if (testo.empty()) testo = ".";
            if (id > Id::ID_NUM) riga += '\t';
            riga += testo;
        }
        w.Riga(riga);
    }
}

// Links outside the table would address memory that isn't there: a damaged file loses them.
void ControllaCollegamenti(Documento& d) {
    for (int i = 0; i <= MAX_TRONCHI; ++i) {
        Tronco& t = d.T(i);
        for (int16_t* l : {&t.ID_PREV, &t.ID_LEFT, &t.ID_RIGHT})
            if (*l < 0 || *l > MAX_TRONCHI) *l = 0;
    }
}

// The sections block: one row per record from 0, fields from id 2 on.
void LeggiTronchi(FileTesto& f, Documento& d, const Archivi& a, Messaggi& msg, Avanzamento& av) {
    while (!f.Fine() && f.LeggiRiga() != "[") {}
    int riga = -1;
    std::vector<std::string> campi;
    while (!f.Fine()) {
        const std::string linea = f.LeggiRiga();
        av.Respira();
        if (linea == "]") break;
        if (linea.empty() && f.Fine()) break;
        ++riga;
        if (riga > MAX_TRONCHI) {
            msg.Mostra("Il progetto contiene piu' di " + std::to_string(MAX_TRONCHI) +
                           " tronchi: i tronchi in piu' non sono stati letti.",
                       Box::EXCLAMATION);
            riga = MAX_TRONCHI;
            break;
        }
        const int ultimo = SeparaCampi(linea, campi);
        if (ultimo > 49) {
            msg.Mostra("Troppo campi nel tronco");
            ControllaCollegamenti(d);
            return;
        }
        for (int k = 0; k <= ultimo; ++k) {
            // A text is kept without the blanks at its ends, as it is written: a size or a name
            // read with a blank after it would not be found in the archives until the project had
            // been saved and opened again.
            const std::string_view campo = SenzaSpazi(campi[static_cast<size_t>(k)]);
            ScriviCampo(d, a, riga, k + 2, campo == "." ? std::string() : std::string(campo), msg);
        }
    }
    d.rete().NumTronchi = static_cast<int16_t>(riga < 0 ? 0 : riga);
    ControllaCollegamenti(d);
}

}  // namespace

void ComponiProgetto(Documento& d, const Archivi& a, ScrittoreTesto& w) {
    w.Riga(std::string(d.ReteInPressione != 0 ? "FXP" : "FX ") + VERSIONE);
    w.Riga("#");
    w.Riga("#");
    w.Riga("!PARAMETERS");
    w.Riga(RigaDiLeggiRiga(d.Riferimento));
    w.Riga(RigaDiLeggiRiga(d.DescrizioneLavoro));
    w.Riga(RigaDiLeggiRiga(d.GasCorrente.Nome));
    // An automatic limit is stored as the value in force now: it becomes the project's own.
    w.Riga(d.DpMax > 0 ? NumeroFile(d.DpMax) : NumeroFile(LimitePdc(d)));
    w.Riga(NumeroFile(static_cast<int32_t>(d.ReteInPressione)));
    w.Riga(NumeroFile(d.VelocitaMassima));
    w.Riga(NumeroFile(d.PressioneIniziale));
    w.Riga(NumeroFile(d.PressioneFinale));
    w.Riga(NumeroFile(static_cast<int32_t>(d.OrientamentoSorgente)));
    w.Riga(NumeroFile(d.Normativa));
    w.Riga("");
    w.Riga("~PARAMETERS");
    w.Riga("#");
    w.Riga("#");
    w.Riga("#");
    w.Riga("%");
    w.Riga("[");
    ScriviTronchi(w, d, a);
    w.Riga("]");
    SalvaTenuta(w, d.Tenuta);
    w.Riga("!PARAMETERS-DOCUMENTPATH");
    w.Riga(RigaNonCommento(d.ArchivioDocumenti));
    w.Riga("");
    w.Riga("~PARAMETERS-DOCUMENTPATH");
    w.Riga("#");
    w.Riga("#");
    w.Riga("!END");
}

bool ScriviProgetto(Documento& d, const Archivi& a, const std::string& percorso, Messaggi& msg) {
    ScrittoreTesto w;
    ComponiProgetto(d, a, w);
    if (!w.SalvaOAvvisa(percorso, msg)) return false;
    SalvaDefaultTenuta(a.Cartella, d.Tenuta, msg);
    return true;
}

bool LeggiProgetto(Documento& d, const Archivi& a, const std::string& percorso, Messaggi& msg, Avanzamento& av) {
    FileTesto f;
    if (!EsisteFile(percorso) || !f.Apri(percorso)) {
        msg.Mostra("Il file selezionato non esiste");
        return false;
    }
    return LeggiProgettoDa(f, d, a, percorso, msg, av);
}

bool LeggiProgettoDa(FileTesto& f, Documento& d, const Archivi& a, const std::string& percorso, Messaggi& msg,
                     Avanzamento& av) {
    d.CaricamentoProgetto = VERO;
    const std::string firma = f.LeggiRiga();
    if (Maiuscolo(firma.substr(0, 2)) != "FX") {
        msg.Mostra("Archivio non riconosciuto!");
        d.CaricamentoProgetto = FALSO;
        return false;
    }
    const std::string sig = Maiuscolo(firma.substr(0, 3));
    const char cifra = firma.size() > 3 ? firma[3] : '\0';
    const bool estesi = (sig == "FXP" && (cifra == '3' || cifra == '4' || cifra == '5')) ||
                        (sig == "FX " && (cifra == '4' || cifra == '5'));
    if (std::isdigit(static_cast<unsigned char>(cifra)) && cifra - '0' > VERSIONE_MAGGIORE) {
        msg.Mostra(std::string("Impossibile aprire il file.\r\nIl file è stato creato con la versione ") + cifra +
                       " di Fornax",
                   Box::INFORMATION, "Errore");
        d.CaricamentoProgetto = FALSO;
        return false;
    }

    while (!f.Fine() && f.LeggiRiga() != "!PARAMETERS") {}
    d.Riferimento = f.LeggiRiga();
    d.DescrizioneLavoro = f.LeggiRiga();

    const std::string nomeGas = f.LeggiRiga();
    int gas = CercaGas(a, nomeGas);
    if (gas == 0) {
        msg.Mostra(
            "Attenzione! Il gas " + nomeGas + " selezionato non è disponibile, verrà impostato un gas alternativo",
            Box::CRITICAL);
        gas = Substitute(d.Equiv, a, nomeGas, 2, msg);
        if (gas < 1 || gas > a.NumGas()) {
            msg.Mostra("Il progetto non puo' essere aperto senza un gas in sostituzione di " + nomeGas + ".",
                       Box::CRITICAL, "Errore");
            d.CaricamentoProgetto = FALSO;
            return false;
        }
        d.ReteModificata = VERO;
    }
    d.GasCorrente = a.Gas[static_cast<size_t>(gas)];
    d.DpMax = LeggiNumero(f.LeggiRiga());
    if (estesi) {
        d.ReteInPressione = ArrotondaI16(LeggiNumero(f.LeggiRiga()));
        d.VelocitaMassima = Singolo(LeggiNumero(f.LeggiRiga()));
        d.PressioneIniziale = LeggiNumero(f.LeggiRiga());
        d.PressioneFinale = LeggiNumero(f.LeggiRiga());
        d.OrientamentoSorgente = ArrotondaI16(LeggiNumero(f.LeggiRiga()));
        d.Normativa = ArrotondaI32(LeggiNumero(f.LeggiRiga()));
    } else {
        d.ReteInPressione = FALSO;
        d.OrientamentoSorgente = 0;
    }

    if (d.ReteInPressione != 0) {
        if (!CaricaSpecialiPressione(d.Speciali, a.Cartella, msg)) {
            d.CaricamentoProgetto = FALSO;
            return false;
        }
    } else {
        CaricaSpecialiInterni(d.Speciali);
    }
    // The limits follow the project's own norm edition.
    CaricaPdc(d.Pdc, a.Cartella, d.Normativa, msg);
    VerificaDefaultPdc(d.Pdc);

    const bool sostituzioni = d.ReteModificata != 0;
    d.NomeFileProgetto = percorso;
    d.ReteModificata = sostituzioni ? VERO : FALSO;

    LeggiTronchi(f, d, a, msg, av);
    CaricaTenuta(f, d.Tenuta);

    while (!f.Fine() && f.LeggiRiga() != "!PARAMETERS-DOCUMENTPATH") {}
    d.ArchivioDocumenti = f.LeggiRigaVuota();
    return true;
}

}  // namespace fornax
