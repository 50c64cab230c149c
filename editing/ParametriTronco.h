#pragma once
// The rules of the section panel ("Parametri Tronco") and of the choice of the fields a
// multiple selection receives ("Selezione copia multipla"), free of any window: which fitting
// lines the network's table offers, what the boxes show for a section, how the spins step,
// and what OK writes (through modifica::ApplicaParametriTronco).

#include <array>
#include <string>
#include <vector>

#include "archives/Archivi.h"
#include "core/Documento.h"

namespace fornax {

// One line of fittings of the panel: the kind of the table (1..10) and its label.
struct RigaSpeciale {
    int tipo = 0;
    std::string etichetta;
};

// The lines the network's table offers. An internal installation has the four built-in kinds,
// bends, elbows, T fittings and taps, under their fixed labels. A pressure network has a line
// for each kind of its table that has a name ("-" is the name written for an empty line): the
// first four under the same fixed labels, the user's kinds 5..10 under their names.
std::vector<RigaSpeciale> RigheSpeciali(const Documento& d);

// What the panel's boxes hold, as texts, as the user sees and edits them.
struct ValoriPannello {
    std::string lunghezza;                   // m
    std::string eqLenNota;                   // m eq.
    std::string contemp;                     // %
    int materiale = 0;                       // 1-based archive index
    std::string diametro;                    // "Auto" while the size is computed
    bool bloccato = false;                   // the diameter is fixed by the user
    std::array<std::string, 11> conteggi{};  // [kind 1..10]
};

// The boxes of a section: its numbers as a text box shows them, "Auto" for a diameter left to
// the calculation, 100 for a simultaneity of 0.
ValoriPannello CaricaPannello(const Documento& d, int tronco);

// ---- Spins and limits ----

// The section spin: one up or down, never below 1 nor above the last section.
int PassoSezione(int attuale, int passo, int numTronchi);
// A fitting count's spin: one up or down, not below 0.
int PassoConteggio(int attuale, int passo);
// The simultaneity spin: up adds 5 below 95, else gives 100; down takes 5 off from 10 up.
int ContempSu(int attuale);
int ContempGiu(int attuale);
// Leaving the simultaneity box: above 100 gives 100, below 10 gives 10.
int ContempAllUscita(int attuale);
// A fitting count as OK stores it: the whole value of the text, 0..9999.
int16_t ConteggioDaTesto(const std::string& testo);

// ---- The fields a multiple selection receives ----

// The boxes of "Selezione copia multipla", in the order the window lists them.
struct SelezioneCopia {
    // "Parametri tronco"
    bool diametro = false;         // "Diametro": material, size and its lock go together
    bool eqLenAggiuntiva = false;  // "Lunghezza equivalente aggiuntiva"
    bool contemporaneita = false;  // "Percentuale di contemporaneità"
    bool lunghezza = false;        // "Lunghezza effettiva tubazione"
    // "PDC Localizzate"
    std::array<bool, 8> localizzate{};
};

// The positions of the "PDC Localizzate" boxes.
namespace Localizzata {
constexpr int KV_VALVOLE = 0;      // "Kv valvole": the panel holds no such value
constexpr int NUMERO_VALVOLE = 1;  // "Numero valvole": the user's fittings 5..10
constexpr int PDC_NOTA = 2;        // "Perdita di carico nota": the panel holds no such value
constexpr int CURVE = 3;           // "N. curve": kind 1
constexpr int GOMITI = 4;          // "N. Gomiti": kind 3
constexpr int SARACINESCHE = 5;    // "N. Saracinesche": kind 4, the taps and shut-off valves
constexpr int VALVOLE_GLOBO = 6;   // "N. Valvole a globo": the panel holds no such value
constexpr int RACCORDI_T = 7;      // "Tipo di raccordo a T": kind 2
}  // namespace Localizzata

// The boxes a network kind enables: those whose value the panel shows for it. Simultaneity
// and the user's fittings belong to pressure networks; a fitting box needs its line in the
// table.
SelezioneCopia VociAbilitate(const Documento& d);
// True when the selection carries the count of fitting kind `tipo` (1..10).
bool CopiaConteggio(const SelezioneCopia& s, int tipo);

}  // namespace fornax
