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
    // Edits the limits the project has in force and writes them to the edition's file.
    frmPDC(const Archivi& a, const Documento& d, Messaggi& msg, QWidget* padre = nullptr);

    // After OK: the limits as written, for the caller to put in force.
    const TabellaPdc& Tabella() const { return tabella_; }

private:
    void cmdOK();

    std::string cartella_;
    TabellaPdc tabella_;
    Messaggi& msg_;
    QLineEdit* txtPotenza;
    QLineEdit* txtPotenzaBis;
    std::array<QLineEdit*, 4> txtPotenza1{};
    std::array<QLineEdit*, 4> txtPotenza2{};
};

}  // namespace fornax::ui
