#pragma once
// One gas of the archive. The project holds a copy of the chosen one (GasCorrente).

#include <cstdint>
#include <string>

namespace fornax {

struct GasRecord {
    std::string Nome;
    float Densita = 0;    // relative density, air = 1
    float Viscosita = 0;  // kinematic viscosity, m2/s
    float Pci = 0;        // inferior calorific value, MJ/m3
    float Pcs = 0;        // superior calorific value, MJ/m3
    int16_t NonCombustibile = 0;
    float MassaVolumica = 0;  // kg/m3, derived
    float WobbeInf = 0;       // MJ/m3, derived
    float WobbeSup = 0;       // MJ/m3, derived
    int16_t Famiglia = 0;     // 1, 2 or 3, derived
    int16_t FamigliaErrata = 0;
    int16_t Cancellato = 0;
};

}  // namespace fornax
