#include "core/ui/PaginaDocumento.h"

namespace fornax::ui {

// Anchors the page's type information and meta-object in the kit.
PaginaDocumento::~PaginaDocumento() = default;

}  // namespace fornax::ui
