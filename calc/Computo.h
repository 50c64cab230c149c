#pragma once
// The bill of pipes and the capacity of the pipes.

#include "archives/Archivi.h"
#include "core/Documento.h"

namespace fornax {

// Adds the real length (ID_LEN, not the equivalent length) of every section the last run
// reached to the totals of its material and diameter row, in the material table. The caller
// clears the totals first (AzzeraComputo). `slot` is the network's slot: 0 does nothing.
void CalcolaComputo(const Documento& d, Archivi& a, int slot = 1);

// Capacity of the pipes in mm2*m (divide by 1000 for litres): (Dmm/2)^2 * ID_LEN * 3.1415
// summed in double over every record 1..NumTronchi, reached or not; fittings don't count.
double VolumeTubazioni(const Documento& d, const Archivi& a);

}  // namespace fornax
