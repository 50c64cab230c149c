#include "reports/ui/Carta.h"

#include <array>

namespace fornax::ui {

namespace {

constexpr std::array<const char*, 42> kNomi = {
    "",
    "Lettera (21,6 x 27,9 cm).",
    "Lettera ridotta (21,6 x 27,9 cm).",
    "Tabloid (27,9 x 43,2 cm).",
    "Ledger (43,2 x 27,9 cm).",
    "Legale (21,6 x 35,6 cm).",
    "Statement (14 x 21,7 cm).",
    "Executive (18,4 x 26,7 cm).",
    "A3 (29,7 x 42 cm).",
    "A4 (21 x 29,7 cm)",
    "A4 ridotto (21 x 29,7 cm).",
    "A5 (14,8 x 21 cm).",
    "B4 (25 x 35,4 cm).",
    "B5 (18,2 x 25,7 cm).",
    "Folio (21,6 x 33 cm).",
    "Quarto (21,5 x 27,5 cm).",
    "25,3 x 35,6 cm.",
    "27,9 x 43,2 cm.",
    "Nota (21,6 x 27,9 cm).",
    "Busta #9, 3 7/8 x 8 7/8",
    "Busta #10, 4 1/8 x 9 1/2",
    "Busta #11, 4 1/2 x 10 3/8",
    "Busta #12, 4 1/2 x 11",
    "Busta #14, 5 x 11 1/2",
    "Foglio dimensioni C",
    "Foglio dimensioni D",
    "Foglio dimensioni E",
    "Busta DL, 110 x 220 mm",
    "Busta C5, 162 x 229 mm",
    "Busta C3, 324 x 458 mm",
    "Busta C4, 229 x 324 mm",
    "Busta C6, 114 x 162 mm",
    "Busta C65, 114 x 229 mm",
    "Busta B4, 250 x 353 mm",
    "Busta B5, 176 x 250 mm",
    "Busta B6, 176 x 125 mm",
    "Busta, 110 x 230 mm",
    "Busta Monarch, 3 7/8 x 7 1/2",
    "Busta, 3 5/8 x 6 1/2",
    "Modulo continuo americano standard, 14 7/8 x 11",
    "Modulo continuo tedesco Standard, 8 1/2 x 12",
    "Uso bollo modulo continuo tedesco, 8 1/2 x 13",
};

}  // namespace

QString NomeCarta(int codice) {
    if (codice >= 1 && codice < static_cast<int>(kNomi.size())) return QString::fromUtf8(kNomi[codice]);
    return QStringLiteral("Definito dall'utente.");
}

QPageSize FormatoCarta(int codice) {
    const QPageSize::PageSizeId id = QPageSize::id(codice);
    return QPageSize(id == QPageSize::Custom ? QPageSize::A4 : id);
}

int CodiceCarta(const QPageSize& formato) { return formato.windowsId(); }

}  // namespace fornax::ui
