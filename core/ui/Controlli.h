#pragma once
// Small helpers shared by the windows: text between the logic (UTF-8 std::string) and Qt, the
// key filter of the numeric boxes, and numbers as a text box shows them.

#include <QString>
#include <QValidator>
#include <string>

class QDialog;
class QWidget;
class QLineEdit;
class QComboBox;
class QBoxLayout;
class QPushButton;

namespace fornax::ui {

inline QString Q(const std::string& s) { return QString::fromStdString(s); }
inline std::string S(const QString& s) { return s.toStdString(); }

// Digits, comma and point only, as the product's numeric boxes accept them (backspace and the
// moving keys are never filtered).
QValidator* FiltroNumerico(QObject* padre);

// A number in a text box: at most `cifre` significant digits, no trailing zeros.
QString TestoNumero(double v, int cifre = 7);

// The number a box holds, with the decimal comma accepted and 0 for no number.
double NumeroDi(const QString& testo);

// A combo that lists "" or "Auto" and 10, 20, ... 500 and takes typed numbers.
void RiempiComboPressioni(QComboBox* combo, const QString& prima);

// Selects the item whose text equals `testo` (case ignored), or else shows the text as typed.
void SelezionaTesto(QComboBox* combo, const QString& testo);

// The row of a dialog's two closing buttons, right-aligned under `lay`: OK (the default button)
// and "Annulla", named for the tests. Annulla rejects the dialog; the caller connects OK.
QPushButton* BottoniOkAnnulla(QDialog* dialogo, QBoxLayout* lay, const QString& nomeOk, const QString& nomeAnnulla);

// A text asked of the user in a small modal window with "OK" and "Annulla"; empty when cancelled.
QString TestoInserito(QWidget* padre, const QString& titolo, const QString& domanda);

}  // namespace fornax::ui
