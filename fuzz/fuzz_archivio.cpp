// Any bytes as one file of the program's folder, the one named by FORNAX_ARCHIVIO when the
// harness is built: loading never crashes, hangs or reads outside memory, what is loaded can be
// used as the calculation uses it, and an archive the program writes back survives a round
// trip (written, read again and written again, it gives the same file).
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "archives/Default.h"
#include "archives/Gas.h"
#include "archives/Materiali.h"
#include "archives/Pdc.h"
#include "archives/Speciali.h"
#include "core/ServiziProva.h"
#include "documento/Campi.h"
#include "documento/Tenuta.h"
#include "fuzz/Ambiente.h"
#include "housekeeping/Suggerimenti.h"

using namespace fornax;

namespace {

enum Archivio { GAS, PARFAMGAS, MATERIALE, EQLEN, PDCMAX, DEFAULTVALUE, TENIMPTECDEF, GRIDGAS, HINTS, SWCOMPANY };
constexpr Archivio QUESTO = FORNAX_ARCHIVIO;

const char* NomeFile() {
    switch (QUESTO) {
        case GAS:
            return "GAS.CFG";
        case PARFAMGAS:
            return "PARFAMGAS.CFG";
        case MATERIALE:
            return "PROVA.mat";
        case EQLEN:
            return "EQLEN.CFG";
        case PDCMAX:
            return "PDCMAX_2008.CFG";
        case DEFAULTVALUE:
            return "defaultValue.ini";
        case TENIMPTECDEF:
            return "TENIMPTECDEF.CFG";
        case GRIDGAS:
            return "gridgas.cne";
        case HINTS:
            return "HINTS.CFG";
        case SWCOMPANY:
            return "SWCOMPANY.CFG";
    }
    return "";
}

// Where the tips resume, as the user's settings hold it: any number a damaged settings file can
// give, taken from the input's first two bytes.
int16_t UltimoSuggerimento = 0;

// Every tip shown in turn, for the publisher's own copy and for a distributor's: each one
// returned is a tip of the list, and the walk never turns for ever.
void ScorriSuggerimenti(const std::string& cartella) {
    Suggerimenti s;
    s.ElencoTips = LeggiHints(cartella);
    for (int16_t personalizzato : {int16_t{0}, int16_t{1}}) {
        BloccoEditore editore;
        editore.Personalizzato = personalizzato;
        s.UltimoSuggerimento = UltimoSuggerimento;
        for (size_t k = 0; k <= s.ElencoTips.size() + 1; ++k) {
            const TipRecord* t = ProssimoSuggerimento(s, editore);
            if (t != nullptr && (t < s.ElencoTips.data() || t >= s.ElencoTips.data() + s.ElencoTips.size()))
                fuzz::Guasto("a tip outside the list");
        }
    }
}

// Reads the file into `a` and uses it; true when the program would write it back.
// The tables a project puts in force (fittings of a pressure network, pressure-drop limits),
// read from the archive under test as the desktop reads them.
TabellaSpeciali& Speciali() {
    static TabellaSpeciali t;
    return t;
}
TabellaPdc& Pdc() {
    static TabellaPdc t;
    return t;
}

bool Carica(Archivi& a, MessaggiRegistrati& msg) {
    AvanzamentoNullo av;
    switch (QUESTO) {
        case GAS:
            CaricaGas(a, msg);
            for (int g = 1; g <= a.NumGas(); ++g) (void)NomeFamiglia(a.Gas[static_cast<size_t>(g)].Famiglia);
            return a.NumGas() > 0;
        case PARFAMGAS:
            CaricaParFamGas(a);
            return false;
        case MATERIALE:
            a.Materiali.assign(2, MaterialeTubo{});
            if (!CaricaMateriale(a, 1, "PROVA")) return false;
            CalcolaDerivati(a);
            for (const RigaDiametro& r : a.Materiali[1].Righe) (void)DiametroInterno(a, 1, r.DN);
            return true;
        case EQLEN:
            Speciali() = TabellaSpeciali{};
            if (!CaricaSpecialiPressione(Speciali(), a.Cartella, msg)) return false;
            for (int tipo = 0; tipo <= 11; ++tipo)
                for (float diametro : {-1.0f, 0.0f, 20.0f, 60.0f, 100.0f, 1e30f})
                    (void)LunghezzaPressione(Speciali(), tipo, diametro);
            return true;
        case PDCMAX:
            Pdc() = TabellaPdc{};
            CaricaPdc(Pdc(), a.Cartella, 0, msg);
            VerificaDefaultPdc(Pdc());
            return true;
        case DEFAULTVALUE:
            LeggiDefault(a, msg);
            return true;
        case TENIMPTECDEF:
            (void)LeggiDefaultTenuta(a.Cartella, msg);
            return false;
        case GRIDGAS:
            LeggiColonne(a, msg, av);
            return false;
        case HINTS:
            ScorriSuggerimenti(a.Cartella);
            return false;
        case SWCOMPANY:
            (void)LeggiBloccoEditore(a.Cartella);
            return false;
    }
    return false;
}

bool Salva(Archivi& a, MessaggiRegistrati& msg) {
    switch (QUESTO) {
        case GAS:
            return SalvaGas(a, msg);
        case MATERIALE:
            return SalvaMateriale(a, 1, msg);
        case EQLEN:
            return SalvaSpeciali(Speciali(), a.Cartella, msg);
        case PDCMAX:
            return SalvaPdc(Pdc(), a.Cartella, msg);
        case DEFAULTVALUE:
            return putDefaultValueInFile(a, msg);
        default:
            return false;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
    static const std::string cartella = fuzz::CartellaLavoro(NomeFile());
    static const std::string file = cartella + "/" + NomeFile();
    fuzz::ScriviFile(file, std::string_view(reinterpret_cast<const char*>(dati), n));
    UltimoSuggerimento = static_cast<int16_t>(n >= 2 ? dati[0] | dati[1] << 8 : 0);
    Archivi a;
    a.Cartella = cartella;
    MessaggiRegistrati msg;
    msg.scelte.assign(1000, 1);
    if (!Carica(a, msg)) return 0;

    if (!Salva(a, msg)) fuzz::Guasto("a loaded archive could not be written back");
    const std::string prima = fuzz::LeggiFile(file);
    Archivi b;
    b.Cartella = cartella;
    if (!Carica(b, msg)) fuzz::Guasto("an archive written back could not be read again");
    if (!Salva(b, msg)) fuzz::Guasto("an archive read again could not be written back");
    if (const std::string dopo = fuzz::LeggiFile(file); dopo != prima)
        fuzz::GuastoRiletto("the archive read again is not the one written", prima, dopo);
    return 0;
}
