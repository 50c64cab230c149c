#pragma once
// "Gestione GAS": the gas archive (GAS.CFG) seen one gas at a time. The rules live in
// EditorGas; this window shows its work copy, hands it the boxes and asks the user.
// When it closes, the caller refreshes its gas lists and hands Salvati() to DopoGestioneGas.

#include <QDialog>
#include <functional>
#include <set>
#include <string>

#include "archives/EditoriArchivi.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace fornax {
class Messaggi;
}

namespace fornax::ui {

class frmGas : public QDialog {
    Q_OBJECT
public:
    // `d` gives the gas of the open project, which can't be deleted.
    frmGas(Archivi& a, const Documento& d, Messaggi& msg, QWidget* padre = nullptr);

    // The input box of "Nuovo" (title, prompt): the name typed, "" when cancelled. Replaceable
    // by the tests.
    std::function<QString(const QString& titolo, const QString& domanda)> ChiediTesto;

    // Names (upper case) of the gases saved while the window was open.
    const std::set<std::string>& Salvati() const { return editor_.Salvati(); }
    const std::vector<int>& Cancellati() const { return editor_.Cancellati(); }
    // The gas in view, 1-based.
    int IndiceGas() const { return editor_.Indice(); }

public slots:
    // "Esci", Esc and the close box: asks about unsaved changes first.
    void reject() override;

private:
    void CaricaLista();
    void MostraGas();
    TestiGas Boxes() const;
    void Combo1Scelto(int indice);
    void cmdNew();
    void cmdCancel();
    void cmdSaveIt();
    void cmdRecalculate();
    void AggiornaCombustibile();

    EditorGas editor_;
    Archivi& a_;
    const Documento& d_;
    Messaggi& msg_;

    QComboBox* Combo1;
    QLineEdit* txtDensita;
    QLineEdit* txtViscosita;
    QLineEdit* txtPCinf;
    QLineEdit* txtPCsup;
    QLineEdit* txtMassa;
    QLineEdit* txtWobbeInf;
    QLineEdit* txtWobbeSup;
    QLineEdit* txtFamiglia;
    QCheckBox* chkGasCombustibile;
    QLabel* pnlCombustibile;
};

}  // namespace fornax::ui
