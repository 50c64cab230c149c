#pragma once
// Paper: the platform's paper codes (1 Letter ... 9 A4 ... 41), their names in the print
// dialogs, and Qt's page sizes.

#include <QPageSize>
#include <QString>

namespace fornax::ui {

// "A4 (21 x 29,7 cm)", ...; any code outside the table is "Definito dall'utente.".
QString NomeCarta(int codice);
// Qt's page size of a code; A4 for a code Qt does not know.
QPageSize FormatoCarta(int codice);
// The code of a page size, 0 when it has none.
int CodiceCarta(const QPageSize& formato);

}  // namespace fornax::ui
