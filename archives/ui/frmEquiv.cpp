#include "archives/ui/frmEquiv.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Servizi.h"
#include "core/ui/Controlli.h"

namespace fornax::ui {

frmEquiv::frmEquiv(const std::string& nome, int tipo, const std::vector<std::string>& elenco, Messaggi& msg,
                   QWidget* padre)
    : QDialog(padre), msg_(msg) {
    setObjectName(QStringLiteral("frmEquiv"));
    setWindowTitle(QStringLiteral("Sostituzioni"));
    auto* lay = new QVBoxLayout(this);
    lay->addWidget(new QLabel(QStringLiteral("La seguente tabella non esiste in archivio:"), this));
    SSPanel1 = new QLabel(Q(nome), this);
    SSPanel1->setObjectName(QStringLiteral("SSPanel1"));
    SSPanel1->setFrameShape(QFrame::Panel);
    SSPanel1->setFrameShadow(QFrame::Sunken);
    SSPanel1->setMargin(4);
    QFont f = SSPanel1->font();
    f.setBold(true);
    SSPanel1->setFont(f);
    lay->addWidget(SSPanel1);
    lay->addSpacing(6);
    lay->addWidget(new QLabel(QStringLiteral("sostituire  con :"), this));
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setToolTip(tipo == 2 ? QStringLiteral("Gas in archivio") : QStringLiteral("Tubazioni in archivio"));
    for (const std::string& n : elenco) List1->addItem(Q(n));
    lay->addWidget(List1, 1);
    auto* riga = new QHBoxLayout;
    riga->addStretch(1);
    Command1 = new QPushButton(QStringLiteral("Procedi"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    riga->addWidget(Command1);
    lay->addLayout(riga);
    connect(Command1, &QPushButton::clicked, this, &frmEquiv::Procedi);
    connect(List1, &QListWidget::itemDoubleClicked, this, &frmEquiv::Procedi);
    resize(340, 380);
}

void frmEquiv::Procedi() {
    const int r = List1->currentRow();
    if (r < 0 || List1->selectedItems().isEmpty()) {
        msg_.Mostra("E' necessario selezionare una sostituzione");
        return;
    }
    valore_ = r + 1;
    accept();
}

void UsaDialogoSostituzioni(MessaggiQt& msg) {
    msg.ImpostaSceltaSostituto(
        [&msg](QWidget* padre, const std::string& nome, int tipo, const std::vector<std::string>& elenco) {
            frmEquiv f(nome, tipo, elenco, msg, padre);
            f.exec();
            return f.value();
        });
}

}  // namespace fornax::ui
