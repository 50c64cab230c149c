#pragma once
// The bill of pipes and the capacity of the pipes.

#include <vector>

#include "archives/Archivi.h"
#include "core/Documento.h"

namespace fornax {

// The bill of pipes of one network: lengths by material and diameter row, weights by
// material, laid out like the material table (1-based, [0] unused) so that the report reads it
// beside the archive's names.
struct ComputoTubi {
    struct Materiale {
        int16_t Totalizzato = FALSO;           // some length of this material was billed
        float PesoTotale = 0;                  // kg
        std::vector<float> LunghezzaTotale{};  // m, by diameter row (1-based)
    };
    std::vector<Materiale> Materiali{};
    float PesoTotaleAcciaio = 0;  // kg of steel pipes
};

// Adds the real length (ID_LEN, not the equivalent length) of every section the last run
// reached to the totals of its material and diameter row.
ComputoTubi CalcolaComputo(const Documento& d, const Archivi& a);

// Capacity of the pipes in mm2*m (divide by 1000 for litres): (Dmm/2)^2 * ID_LEN * 3.1415
// summed in double over every record 1..NumTronchi, reached or not; fittings don't count.
double VolumeTubazioni(const Documento& d, const Archivi& a);

}  // namespace fornax
