#pragma once
// What the leak-test page does when a project has been opened: the firm's defaults of the
// program's folder fill an empty firm, and the record is judged again. The desktop's page,
// the saving of a project and the report all start from the record in this state.

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "leaktest/RegoleTenuta.h"

namespace fornax {

class Messaggi;

// TenutaImpiantoInit on the open project: reads TENIMPTECDEF.CFG of the program's folder (a
// missing file is created empty), fills an empty firm, and judges the record keeping the
// capacity of the pipes it records.
void ApriPaginaTenuta(Documento& d, const Archivi& a, StatoPaginaTenuta& stato, Messaggi& msg);

// TenutaImpiantoRefresh on the open project: every judgement after the first one, the page's
// and the writer's, takes the capacity of the pipes from the network as it stands.
void RinfrescaPaginaTenuta(Documento& d, const Archivi& a, StatoPaginaTenuta& stato, Messaggi& msg);

}  // namespace fornax
