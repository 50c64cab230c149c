#pragma once
// "Valori di default": the user's defaults kept in defaultValue.ini (gas, pipe material, and for
// pressure networks speed and pressures), and the two lines of the user's firm that head every
// page of the reports, kept in the user's settings (section "Ditta", keys "Riga1", "Riga2").

#include <QDialog>

#include "archives/Archivi.h"

class QComboBox;
class QGroupBox;
class QLineEdit;

namespace fornax {
class Messaggi;
class Impostazioni;
}  // namespace fornax

namespace fornax::ui {

class frmDefaultValue : public QDialog {
    Q_OBJECT
public:
    frmDefaultValue(Archivi& a, const Documento& d, Impostazioni& imp, Messaggi& msg, QWidget* padre = nullptr);

    static constexpr int LUNGHEZZA_RIGA_DITTA = 50;

private:
    void cmdOK();

    Archivi& a_;
    Impostazioni& imp_;
    Messaggi& msg_;
    QComboBox* cmbGas;
    QComboBox* cmbMateriali;
    QGroupBox* fraPressione;
    QLineEdit* txtVelocity;
    QComboBox* cmbInitPres;
    QComboBox* cmbFinalPres;
    QLineEdit* txtDittaRiga1;
    QLineEdit* txtDittaRiga2;
};

}  // namespace fornax::ui
