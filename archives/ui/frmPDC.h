#pragma once
// "Perdite di carico massime predefinite": the limits of the norm edition in force, by power
// band and gas family, written back to its PDCMAX file.

#include <QDialog>
#include <array>

#include "archives/Archivi.h"

class QLineEdit;

namespace fornax {
class Messaggi;
}

namespace fornax::ui {

class frmPDC : public QDialog {
    Q_OBJECT
public:
    frmPDC(Archivi& a, const Documento& d, Messaggi& msg, QWidget* padre = nullptr);

private:
    void cmdOK();

    Archivi& a_;
    Messaggi& msg_;
    QLineEdit* txtPotenza;
    QLineEdit* txtPotenzaBis;
    std::array<QLineEdit*, 4> txtPotenza1{};
    std::array<QLineEdit*, 4> txtPotenza2{};
};

}  // namespace fornax::ui
