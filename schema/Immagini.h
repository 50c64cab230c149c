#pragma once
// The pictures the schema paints, by name, with the size in twips at which they are designed.
// Their artwork (SVG in data/) is the Qt surface's business; the painting only needs the names
// and the sizes, so that the layout is the same on every surface.

#include <cstdint>
#include <string>

namespace fornax::schema {

struct FormatoImmagine {
    const char* nome;
    double larghezza;  // twips
    double altezza;    // twips
};

// The source, by OrientamentoSorgente 0..3. `divisore` is the number in the picture's tag: the
// picture stands above the first node by its height divided by it.
struct FormatoSorgente {
    FormatoImmagine immagine;
    double divisore;
};

// Source pointing right (0), down (1), left (2), up (3).
const FormatoSorgente& Sorgente(int orientamento);
// Consumer symbols by ID_TIPOUTENZA: 1 picFornello, 2 picCaldaia, 3 picBruciatore,
// 4 picConvettore, any other value picCaldaia.
const FormatoImmagine& SimboloUtenza(int tipo);
// The arrows offered during a drag, by direction 1..8 (picUP, picLEFT, picDOWN, picRIGHT,
// picUPLEFT, picDOWNLEFT, picDOWNRIGHT, picUPRIGHT).
const FormatoImmagine& Freccia(int16_t direzione);

}  // namespace fornax::schema
