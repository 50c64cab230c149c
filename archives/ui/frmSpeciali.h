#pragma once
// "Lunghezze equivalenti accidentalità": the fittings table of pressure networks (EQLEN.CFG),
// ten kinds with their lengths for three ranges of inner diameter.
//
// The table is read from its file, whatever network is open: the store of an internal
// installation holds the built-in table, which must never be written into EQLEN.CFG.

#include <QDialog>
#include <array>

#include "archives/Archivi.h"

class QLineEdit;

namespace fornax {
class Messaggi;
}

namespace fornax::ui {

class frmSpeciali : public QDialog {
    Q_OBJECT
public:
    frmSpeciali(const Archivi& a, Messaggi& msg, QWidget* padre = nullptr);

    // After OK: the table as written to EQLEN.CFG, for the caller to put in force when a
    // pressure network is open.
    const TabellaSpeciali& Tabella() const { return tabella_; }
    bool Salvato() const { return salvato_; }

private:
    void cmdOK();

    Messaggi& msg_;
    std::string cartella_;
    TabellaSpeciali tabella_{};
    std::array<QLineEdit*, 11> txtDesc{};
    std::array<QLineEdit*, 11> txtRange1{};
    std::array<QLineEdit*, 11> txtRange2{};
    std::array<QLineEdit*, 11> txtRange3{};
    bool salvato_ = false;
};

}  // namespace fornax::ui
