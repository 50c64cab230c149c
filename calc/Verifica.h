#pragma once
// Verification of a sized network. Sizing never refuses: what is acceptable is read
// afterwards from the results, section by section (the grid's marks) and along the least
// favourable path (the report's "Analisi percorso più sfavorito"). No verdict is stored: the
// views recompute them when they draw.

#include <cstdint>
#include <vector>

#include "archives/Archivi.h"
#include "core/Documento.h"

namespace fornax {

// The least favourable path: from the section with the greatest ID_PDC_PERCORSO (ties to the
// lowest index; failed sections, at -1, never chosen) up to the root. Empty when no section
// has a drop above 0.
std::vector<int16_t> PercorsoSfavorito(const Documento& d);

// The limit an internal installation is checked against in the grid: the whole part of
// LimitePdc() (truncated toward zero).
double LimiteIntero(const Documento& d);

// What the views mark on one section. `true` means the result fails its test.
struct Verdetti {
    bool velocitaOltre = false;          // pressure network: ID_VELOCITA above VelocitaMassima (red)
    bool perditaFallita = false;         // ID_PDC_TRONCO below 0: shown as "***"
    bool percorsoOltre = false;          // ID_PDC_PERCORSO above the whole part of LimitePdc() (red)
    bool pressioneBassa = false;         // pressure network: ID_PFINALE below PressioneFinale (red)
    bool pressioneFallita = false;       // pressure network: ID_PFINALE below 0: shown as "***"
    bool diametroInsufficiente = false;  // at the largest row or without a bore, and still failing
    bool contemporaneita = false;        // a junction whose ID_CONTEMP reduces its flow (red flow)
};

Verdetti VerificaTronco(const Archivi& a, const Documento& d, int sezione);

}  // namespace fornax
