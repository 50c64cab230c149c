#pragma once
// The leak-test record as the page holds it, as JSON (fornax-cli tenuta --json): the verdict,
// the gas family, the 52 fields as the project file's block would hold them, the description,
// the error texts shown, whether the pressure-drop method is available and the page enabled.

#include <string>

#include "core/VerificaTenuta.h"
#include "leaktest/RegoleTenuta.h"

namespace fornax {

std::string TenutaJson(const VerificaTenuta& r, const StatoPaginaTenuta& stato);

}  // namespace fornax
