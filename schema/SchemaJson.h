#pragma once
// The last walk as JSON, for scripts and for checking the layout against the rules: the
// figures of the walk, the counters' extremes of the measuring pass, the box of the far ends,
// every section the drawing pass placed in call order, the free ends offered, and the
// messages the walk showed.

#include <string>
#include <vector>

#include "schema/Schema.h"

namespace fornax::schema {

std::string SchemaJson(const StatoSchema& s, const std::vector<std::string>& messaggi);

}  // namespace fornax::schema
