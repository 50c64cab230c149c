#pragma once
// The text manual: fornax.txt of the program's folder, shown read-only.

#include <QDialog>
#include <string>

#include "core/Servizi.h"

class QPlainTextEdit;

namespace fornax::ui {

class frmManuale final : public QDialog {
    Q_OBJECT
public:
    frmManuale(const std::string& cartellaProgramma, Messaggi& msg, QWidget* padre = nullptr);
    // False, after the product's message, when the file is missing.
    bool LoadManuale();

    QPlainTextEdit* Text1 = nullptr;

private:
    std::string cartella_;
    Messaggi& msg_;
};

}  // namespace fornax::ui
