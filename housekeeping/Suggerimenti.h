#pragma once
// The tips shown at start, one after the other across runs of the program (HINTS.CFG), and the
// publisher block: four lines about the firm that distributes Fornax, shown on the splash and in
// the about window, which a distributor replaces with SWCOMPANY.CFG.

#include <cstdint>
#include <string>
#include <vector>

namespace fornax {

class Impostazioni;

struct TipRecord {
    int32_t SoloEditore = 0;  // 1: shown only in the publisher's own distribution
    std::string Testo;        // line breaks as CR LF
};

struct BloccoEditore {
    int16_t Personalizzato = 0;  // true when SWCOMPANY.CFG gave the lines
    std::string Riga1;           // the firm's name
    std::string Riga2;           // its address
    std::string Riga3;           // telephone and fax
    std::string Riga4;           // web and mail addresses
};

struct Suggerimenti {
    // The tips read, with one empty record kept behind the last one.
    std::vector<TipRecord> ElencoTips;
    int16_t MostraSuggerimenti = -1;  // "HintsShow": tips at start
    int16_t UltimoSuggerimento = 0;   // "HintLast": where the next tip is looked for
};

// Section and keys of the two settings in the user's settings store.
constexpr const char* SEZIONE_SUGGERIMENTI = "Settings";
constexpr const char* CHIAVE_MOSTRA = "HintsShow";
constexpr const char* CHIAVE_ULTIMO = "HintLast";

// Reads HINTS.CFG of the program's folder: one tip a line, "#" lines and empty lines skipped,
// "<br>" or "<BR>" a line break, the tags "<SWCOMPANY=1>" and "<SWCOMPANY=0>" taken out of the
// text wherever they stand. A missing file gives no tip and no message.
std::vector<TipRecord> LeggiHints(const std::string& cartellaProgramma);
// The same from the text of a file (tests).
std::vector<TipRecord> LeggiHintsDaTesto(const std::string& contenuto);

// The publisher block: SWCOMPANY.CFG of the program's folder when it holds at least one line
// that is neither a comment nor empty, else the block built into the program.
BloccoEditore LeggiBloccoEditore(const std::string& cartellaProgramma);
BloccoEditore BloccoEditorePredefinito();

void LeggiImpostazioniHints(Suggerimenti& s, const Impostazioni& imp);
void SalvaImpostazioniHints(const Suggerimenti& s, Impostazioni& imp);

// The next tip to show, moving UltimoSuggerimento past it; null when there is none: an empty
// list, or a distributor's copy whose tips are all for the publisher's own distribution (one
// pass over the list is enough to know).
const TipRecord* ProssimoSuggerimento(Suggerimenti& s, const BloccoEditore& editore);

}  // namespace fornax
