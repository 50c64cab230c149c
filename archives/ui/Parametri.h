#pragma once
// "Parametri di progetto": reference, job description, document folder, norm edition, gas and,
// for a pressure network, the maximum speed. On OK the dialog puts them in the document, loads
// the limits of the edition chosen and recomputes the materials' derived columns; the caller
// then recalculates, marks the project modified and refreshes its window.

#include <QDialog>
#include <functional>

#include "archives/Archivi.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QGroupBox;
class QPushButton;

namespace fornax {
class Messaggi;
class Cronologia;
}  // namespace fornax

namespace fornax::ui {

class Parametri : public QDialog {
    Q_OBJECT
public:
    Parametri(Archivi& a, Documento& d, Messaggi& msg, QWidget* padre = nullptr);

    // Fills the gas list (all gases for a pressure network, only those that burn for an
    // internal installation) and selects `nome`, or the first entry.
    void ReloadCombo(const QString& nome);
    // Shows the document's values again.
    void Aggiorna();

    // The archive index of the gas shown, 0 when none.
    int IndiceGas() const { return indiceGas_; }

    // "Gestione gas ->": opens the gas editor. The main frame puts its own opening here, so
    // that its lists and the project follow the archive; without one the editor opens alone.
    std::function<void()> GestioneGas;

    // The history the OK's edit is recorded in (the session's); none in the dialog's own tests.
    Cronologia* Storia = nullptr;

protected:
    bool eventFilter(QObject* o, QEvent* e) override;

private:
    void MostraGas();
    void Command1();
    void cmdBrowse();
    void Command4();

    Archivi& a_;
    Documento& d_;
    Messaggi& msg_;
    int indiceGas_ = 0;

    QLineEdit* Text1;
    QLineEdit* Text2;
    QLineEdit* txtDocumentPath;
    QGroupBox* fraNormativa;
    QRadioButton* optNormativa0;
    QRadioButton* optNormativa1;
    QComboBox* Combo1;
    QGroupBox* pnlVelocita;
    QLineEdit* txtVelocita;
    QLineEdit* txtDensita;
    QLineEdit* txtViscosita;
    QLineEdit* txtPCinf;
    QLineEdit* txtPCsup;
    QLineEdit* txtMassa;
    QLineEdit* txtWobbeInf;
    QLineEdit* txtWobbeSup;
    QLineEdit* txtFamiglia;
    QLabel* pnlCombustibile;
    QPushButton* cmdOK;
};

}  // namespace fornax::ui
