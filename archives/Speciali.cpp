#include "archives/Speciali.h"

#include <vector>

#include "core/Cartelle.h"
#include "core/FileTesto.h"
#include "core/Numeri.h"
#include "core/Servizi.h"

namespace fornax {

namespace {

// Equivalent lengths of the fittings of an internal installation, metres of pipe, by gas
// family (1..3) and by class of inner diameter (up to 22.3, 53.9, 81.7 mm, and above).
struct RigaInterna {
    const char* nome;
    float lunghezza[3][4];
};
constexpr RigaInterna TABELLA_INTERNA[4] = {
    {"CURVA", {{0.2f, 0.5f, 0.8f, 1.5f}, {0.2f, 0.5f, 0.8f, 1.5f}, {0.2f, 0.5f, 1.0f, 1.5f}}},
    {"RACCORDO A T", {{0.8f, 2.0f, 4.0f, 6.5f}, {0.8f, 2.0f, 4.0f, 6.5f}, {1.0f, 2.5f, 4.5f, 7.5f}}},
    {"GOMITO", {{1.0f, 1.5f, 3.0f, 4.5f}, {1.0f, 1.5f, 3.0f, 4.5f}, {1.0f, 2.0f, 3.0f, 5.0f}}},
    {"RUBINETTO", {{0.3f, 0.8f, 1.5f, 2.0f}, {0.3f, 0.8f, 1.5f, 2.0f}, {0.3f, 0.8f, 1.5f, 2.0f}}},
};

bool TipoValido(int tipo) { return tipo >= 1 && tipo <= 10; }

}  // namespace

void CaricaSpecialiInterni(TabellaSpeciali& tabella) {
    for (size_t k = 0; k < 4; ++k) {
        TipoSpeciale& t = tabella[k + 1];
        t.Nome = TABELLA_INTERNA[k].nome;
        for (size_t fam = 1; fam <= 3; ++fam)
            for (size_t cl = 1; cl <= 4; ++cl) t.Lunghezza[fam][cl] = TABELLA_INTERNA[k].lunghezza[fam - 1][cl - 1];
    }
}

bool CaricaSpecialiPressione(TabellaSpeciali& tabella, const std::string& cartella, Messaggi& msg) {
    FileTesto f;
    const std::string percorso = TrovaFile(cartella, "EQLEN.CFG");
    if (!EsisteFile(percorso) || !f.Apri(percorso)) {
        msg.Mostra("Il file eqlen.cfg non e' presente nel disco. Reinstallare il programma.", Box::CRITICAL);
        return false;
    }
    std::vector<std::string> campi;
    for (size_t tipo = 1; tipo <= 10 && !f.Fine(); ++tipo) {
        const int ultimo = SeparaCampi(f.LeggiRiga(), campi);
        if (ultimo != 3) msg.Mostra("Errore nel file EQLEN.CFG", Box::EXCLAMATION);
        // A short line keeps what it has: missing numbers read 0.
        campi.resize(4);
        TipoSpeciale& t = tabella[tipo];
        t.Nome = campi[0];
        for (size_t cl = 1; cl <= 3; ++cl) t.Lunghezza[1][cl] = Singolo(LeggiNumero(campi[cl]));
    }
    return true;
}

bool SalvaSpeciali(TabellaSpeciali& tabella, const std::string& cartella, Messaggi& msg) {
    ScrittoreTesto w;
    for (size_t tipo = 1; tipo <= 10; ++tipo) {
        TipoSpeciale& t = tabella[tipo];
        // A line can't hold an empty field: a kind without a name is written, and kept, as "-".
        if (t.Nome.empty()) t.Nome = "-";
        w.Riga(PrimoCampo(t.Nome) + "\t" + NumeroFile(t.Lunghezza[1][1]) + "\t" + NumeroFile(t.Lunghezza[1][2]) + "\t" +
               NumeroFile(t.Lunghezza[1][3]));
    }
    return w.SalvaOAvvisa(TrovaFile(cartella, "EQLEN.CFG"), msg);
}

float LunghezzaInterna(const TabellaSpeciali& t, int tipo, float diametro, int famiglia) {
    if (!TipoValido(tipo) || famiglia < 0 || famiglia > 3) return 0;
    size_t classe = 4;
    if (diametro <= 22.3)
        classe = 1;
    else if (diametro <= 53.9)
        classe = 2;
    else if (diametro <= 81.7)
        classe = 3;
    return t[static_cast<size_t>(tipo)].Lunghezza[famiglia][classe];
}

float LunghezzaPressione(const TabellaSpeciali& t, int tipo, float diametro) {
    if (!TipoValido(tipo)) return 0;
    size_t classe = 2;
    if (diametro <= 50.0)
        classe = 1;
    else if (diametro > 125.0)
        classe = 3;
    return t[static_cast<size_t>(tipo)].Lunghezza[1][classe];
}

}  // namespace fornax
