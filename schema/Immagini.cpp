#include "schema/Immagini.h"

#include <array>

namespace fornax::schema {

const FormatoSorgente& Sorgente(int orientamento) {
    static const std::array<FormatoSorgente, 4> sorgenti = {{
        {{"picSource0", 480, 480}, 2},
        {{"picSource1", 480, 480}, 1},
        {{"picSource2", 480, 480}, 2},
        {{"picSource3", 480, 480}, 1},
    }};
    const int o = orientamento >= 0 && orientamento <= 3 ? orientamento : 0;
    return sorgenti[static_cast<size_t>(o)];
}

const FormatoImmagine& SimboloUtenza(int tipo) {
    static const std::array<FormatoImmagine, 5> simboli = {{
        {"picCaldaia", 440, 460},
        {"picFornello", 440, 460},
        {"picCaldaia", 440, 460},
        {"picBruciatore", 440, 460},
        {"picConvettore", 440, 460},
    }};
    const int t = tipo >= 1 && tipo <= 4 ? tipo : 0;
    return simboli[static_cast<size_t>(t)];
}

const FormatoImmagine& Freccia(int16_t direzione) {
    static const std::array<FormatoImmagine, 9> frecce = {{
        {"picRIGHT", 300, 300},
        {"picUP", 300, 300},
        {"picLEFT", 300, 300},
        {"picDOWN", 300, 300},
        {"picRIGHT", 300, 300},
        {"picUPLEFT", 300, 300},
        {"picDOWNLEFT", 300, 300},
        {"picDOWNRIGHT", 300, 300},
        {"picUPRIGHT", 300, 300},
    }};
    const int d = direzione >= 1 && direzione <= 8 ? direzione : 0;
    return frecce[static_cast<size_t>(d)];
}

}  // namespace fornax::schema
