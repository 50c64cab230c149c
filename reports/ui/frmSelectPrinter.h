#pragma once
// The choice of printer and paper. The system's printers (CUPS) are listed in its order, and
// after them "File PDF", which is always there: a machine without printers prints to PDF.
// The choice is kept in the user's settings.

#include <QDialog>
#include <QString>
#include <vector>

#include "core/Servizi.h"

class QListWidget;
class QComboBox;
class QLabel;
class QPushButton;

namespace fornax::ui {

// The device name of the PDF file among the printers.
inline const QString STAMPANTE_PDF = QStringLiteral("File PDF");

struct StampanteScelta {
    QString nome;   // the device; empty is the system's default printer (or PDF without one)
    int carta = 9;  // paper code, A4
};

// The system's printers, by name, in the platform's order.
QStringList StampantiInstallate();
// The choice in force: the one kept in the settings, if still installed (or PDF), else the
// system's default printer, else PDF.
StampanteScelta StampanteCorrente(Impostazioni& imp);
// The paper codes a device takes, in code order.
std::vector<int> CarteAccettate(const QString& stampante);
// "A4 (21 x 29,7 cm)   -   name", as the print dialog shows the choice.
QString TestoStampante(const StampanteScelta& s);

class frmSelectPrinter final : public QDialog {
    Q_OBJECT
public:
    frmSelectPrinter(Impostazioni& imp, QWidget* padre = nullptr);

    void LoadList();
    // Row `riga` of List1 becomes the printer in use: its papers fill cmbFormat.
    void Seleziona(int riga);
    StampanteScelta Scelta() const { return scelta_; }

    QListWidget* List1 = nullptr;
    QLabel* SelectedPrinterText = nullptr;
    QComboBox* cmbFormat = nullptr;
    QPushButton* Command1 = nullptr;  // Annulla
    QPushButton* Command2 = nullptr;  // applies

private:
    void Applica();
    Impostazioni& imp_;
    QStringList nomi_;
    StampanteScelta scelta_;
};

}  // namespace fornax::ui
