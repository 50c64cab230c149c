#pragma once
// What the leak-test page does when a project has been opened: the firm's defaults of the
// program's folder fill an empty firm, and the record is judged again. The desktop's page,
// the saving of a project and the report all start from the record in this state.

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "leaktest/RegoleTenuta.h"

namespace fornax {

class Messaggi;

void ApriPaginaTenuta(Documento& d, const Archivi& a, StatoPaginaTenuta& stato, Messaggi& msg);

}  // namespace fornax
