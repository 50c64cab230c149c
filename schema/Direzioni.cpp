#include "schema/Direzioni.h"

#include <array>

namespace fornax::schema {

namespace {

// The ring, counter-clockwise on the screen.
constexpr std::array<int16_t, 8> kAnello = {1, 5, 2, 6, 3, 7, 4, 8};
// Position of each code in the ring (index 0 unused).
constexpr std::array<int, 9> kPosizione = {-1, 0, 2, 4, 6, 1, 3, 5, 7};

int16_t Passi(int16_t d, int passi) {
    if (!DirezioneValida(d)) return 0;
    const int p = ((kPosizione[static_cast<size_t>(d)] + passi) % 8 + 8) % 8;
    return kAnello[static_cast<size_t>(p)];
}

}  // namespace

int16_t SvoltaSinistra(int16_t d) { return Passi(d, 1); }
int16_t SvoltaDestra(int16_t d) { return Passi(d, -1); }
int16_t DirezioneOpposta(int16_t d) { return Passi(d, 4); }

int16_t RuotaDirezione(int16_t d, int16_t codice) {
    switch (codice) {
        case Svolta::DRITTO:
            return DirezioneValida(d) ? d : int16_t{0};
        case Svolta::SINISTRA_90:
            return Passi(d, 2);
        case Svolta::DESTRA_90:
            return Passi(d, -2);
        case Svolta::SINISTRA_45:
            return Passi(d, 1);
        case Svolta::SINISTRA_135:
            return Passi(d, 3);
        case Svolta::INVERSIONE:
            return Passi(d, 4);
        case Svolta::DESTRA_45:
            return Passi(d, -1);
        case Svolta::DESTRA_135:
            return Passi(d, -3);
        default:
            return 0;
    }
}

int16_t CodiceSvolta(int16_t target, int16_t base) {
    if (target == base) return Svolta::DRITTO;
    for (int codice : {8, 3, 7, 6, 5, 2, 4})
        if (RuotaDirezione(base, static_cast<int16_t>(codice)) == target) return static_cast<int16_t>(codice);
    return 0;
}

std::string NomeDirezione(int16_t d) {
    static const std::array<const char*, 9> nomi = {"", "U", "L", "D", "R", "UL", "DL", "DR", "UR"};
    return DirezioneValida(d) ? nomi[static_cast<size_t>(d)] : "";
}

int16_t DirezioneDaNome(const std::string& nome) {
    for (int16_t d = 1; d <= 8; ++d)
        if (NomeDirezione(d) == nome) return d;
    return 0;
}

int PassoX(int16_t d) {
    switch (d) {
        case Direzione::L:
        case Direzione::UL:
        case Direzione::DL:
            return -1;
        case Direzione::R:
        case Direzione::DR:
        case Direzione::UR:
            return 1;
        default:
            return 0;
    }
}

int PassoY(int16_t d) {
    switch (d) {
        case Direzione::U:
        case Direzione::UL:
        case Direzione::UR:
            return -1;
        case Direzione::D:
        case Direzione::DL:
        case Direzione::DR:
            return 1;
        default:
            return 0;
    }
}

}  // namespace fornax::schema
