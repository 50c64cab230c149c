#include "archives/Default.h"

#include <fstream>

#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/Servizi.h"

namespace fornax {

namespace {

const char* const FILE_DEFAULT = "defaultValue.ini";

struct Voce {
    const char* apertura;
    const char* chiusura;
    std::string TestiDefault::*campo;
};
const Voce VOCI[] = {
    {"!DEFAULTGAS", "~DEFAULTGAS", &TestiDefault::DefaultGas},
    {"!DEFAULTPIPEMATERIAL", "~DEFAULTPIPEMATERIAL", &TestiDefault::DefaultMateriale},
    {"!DEFAULTMEDIUMSPEED", "~DEFAULTMEDIUMSPEED", &TestiDefault::DefaultVelocita},
    {"!DEFAULTINITPRESSURE", "~DEFAULTINITPRESSURE", &TestiDefault::DefaultPressioneIniziale},
    {"!DEFAULTFINPRESSURE", "~DEFAULTFINPRESSURE", &TestiDefault::DefaultPressioneFinale},
};

}  // namespace

void LeggiDefault(Archivi& a, Messaggi& msg) {
    const std::string percorso = TrovaFile(a.Cartella, FILE_DEFAULT);
    TestiDefault& d = a.Default;
    if (!EsisteFile(percorso)) {
        d.DefaultGas = a.NumGas() > 0 ? a.Gas[1].Nome : std::string();
        d.DefaultMateriale = a.NumMateriali() > 0 ? a.Materiali[1].Nome : std::string();
        d.DefaultVelocita = "15";
        d.DefaultPressioneIniziale = "200";
        d.DefaultPressioneFinale = "150";
        d.DefaultDpMax = "0";
        return;
    }
    FileTesto f;
    if (!f.Apri(percorso)) {
        msg.Mostra("Errore nell'apertura del file contenete i valori di default: impossibile leggere " + percorso +
                       " alla riga 0",
                   Box::EXCLAMATION);
        return;
    }
    // Each value stands on the line after its opening tag; anything else is passed over,
    // so the order of the items doesn't matter and a missing item keeps its value.
    while (!f.Fine()) {
        const std::string riga = f.RigaFisica();
        for (const Voce& v : VOCI) {
            if (riga == v.apertura) {
                d.*v.campo = f.RigaFisica();
                break;
            }
        }
    }
}

bool putDefaultValueInFile(const Archivi& a, Messaggi& msg) {
    ScrittoreTesto w;
    for (const Voce& v : VOCI) {
        w.Riga(v.apertura);
        w.Riga(a.Default.*v.campo);
        w.Riga(v.chiusura);
    }
    if (w.Salva(TrovaFile(a.Cartella, FILE_DEFAULT))) return true;
    msg.Mostra("Errore nella creazione del file contenente i valori di default.", Box::CRITICAL);
    return false;
}

}  // namespace fornax
