#pragma once
// One calculation run of the current network: flows from the consumers up to the root,
// equivalent lengths, diameters, drops, speeds and final pressures, for an internal
// installation (UNI 7129) or for a pressure network.
//
// A run recomputes everything from the inputs and writes its results into the Tronco records:
// Visitato, ID_P_TRONCO, ID_CONTEMP, ID_EQ_LEN, LenPercorso, ID_DIAMETRO (unless the user
// locked it with ID_DIAMCUSTOM), ID_PDC_TRONCO, ID_PDC_PERCORSO, ID_PFINALE, ID_VELOCITA,
// PressioneTesta, and raises the running maxima MaxLenPercorso and MaxPdcPercorso.
// Results never raise messages: a negative drop is the failure value. The one message of a
// run is "Portata nel tronco N non compatibile", for a junction that carries a consumer's flow.
// A run is not an edit: it leaves ReteModificata as it was (an edit marks it).

#include <array>
#include <cstdint>

#include "archives/Archivi.h"
#include "calc/VList.h"
#include "core/Documento.h"

namespace fornax {

class Messaggi;

// One row of the sizing work table, one for each section.
struct RigaCalcolo {
    int16_t Dimensionato = FALSO;  // sized in this pass
    float Lunghezza = 0;           // ID_EQ_LEN, or for a terminal junction its path weight, m
    float Perdita = 0;             // the section's drop as of its sizing
    float PerditaCumulata = 0;     // drop from the source to the section's end along the sized path
    float PressioneValle = 0;      // pressure at the section's end, kPa (pressure networks)
};

// The work table and the list of terminal junctions. Each sizing pass rebuilds what it uses;
// the desktop keeps one for the life of the document, so that what a pass leaves behind is
// there for the next run, as the user sees it.
struct StatoCalcolo {
    std::array<RigaCalcolo, MAX_TRONCHI + 1> Tabella{};
    VList Lista;
    // What the narrowing sweep of the last run of an internal installation did: sweeps over the
    // tree, trials of a narrower row, trials kept.
    struct {
        int passate = 0;
        int prove = 0;
        int riduzioni = 0;
    } Riduzione;
};

// The whole run, on slot 1 of the document. `msg` receives the one message a run may show.
void CalcolaRete(Documento& d, const Archivi& a, StatoCalcolo& stato, Messaggi& msg);
// The same with a fresh work table (a project just loaded, the command line).
void CalcolaRete(Documento& d, const Archivi& a, Messaggi& msg);

}  // namespace fornax
