#pragma once
// The pictures of the tool bar, drawn in code so that they need no image file and no plugin.

#include <QIcon>

namespace fornax::ui {

enum class Icona {
    Nuovo,
    Apri,
    Salva,
    Parametri,
    Esci,
    Guida,
    Calcola,
    RicalcoloAutomatico,
    CursoreBloccato,
    DiametriBloccati,
    ZoomPiu,
    ZoomMeno,
    Gas,
};

QIcon CreaIcona(Icona i);

}  // namespace fornax::ui
