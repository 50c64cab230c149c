#pragma once
// "Sostituzioni": a project names a material or a gas that the archive lacks; the user picks
// the one to use instead. The 1-based position chosen stays in the dialog for the caller.

#include <QDialog>
#include <string>
#include <vector>

class QLabel;
class QListWidget;
class QPushButton;

#include "core/ui/MessaggiQt.h"

namespace fornax::ui {

class frmEquiv : public QDialog {
    Q_OBJECT
public:
    // `tipo` 1 lists materials, 2 gases; `elenco` holds the archive's names in table order.
    frmEquiv(const std::string& nome, int tipo, const std::vector<std::string>& elenco, Messaggi& msg,
             QWidget* padre = nullptr);

    // The 1-based position chosen, 0 when the window was closed without a choice.
    int value() const { return valore_; }

private:
    void Procedi();

    Messaggi& msg_;
    QLabel* SSPanel1;
    QListWidget* List1;
    QPushButton* Command1;
    int valore_ = 0;
};

// Makes the dialog the answer of `msg` to a name the archives lack.
void UsaDialogoSostituzioni(MessaggiQt& msg);

}  // namespace fornax::ui
