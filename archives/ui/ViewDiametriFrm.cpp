#include "archives/ui/ViewDiametriFrm.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ui/Controlli.h"

namespace fornax::ui {

ViewDiametriFrm::ViewDiametriFrm(QWidget* padre) : QDialog(padre) {
    setWindowTitle(QStringLiteral("Diametri Disponibili"));
    setObjectName(QStringLiteral("ViewDiametriFrm"));
    auto* lay = new QVBoxLayout(this);
    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    QFont f = Label1->font();
    f.setBold(true);
    Label1->setFont(f);
    List1 = new QListWidget(this);
    List1->setObjectName(QStringLiteral("List1"));
    auto* bottoni = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    bottoni->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Annulla"));
    lay->addWidget(Label1);
    lay->addWidget(List1, 1);
    lay->addWidget(bottoni);
    connect(bottoni, &QDialogButtonBox::accepted, this, &ViewDiametriFrm::Conferma);
    connect(bottoni, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(List1, &QListWidget::itemDoubleClicked, this, &ViewDiametriFrm::Conferma);
    resize(260, 360);
}

void ViewDiametriFrm::SetMateriale(const Archivi& a, int indice) {
    const bool valido = a.HaMateriale(indice);
    Label1->setText(valido ? Q(a.Materiali[static_cast<size_t>(indice)].Nome) : QString());
    List1->clear();
    if (valido) {
        List1->addItem(QStringLiteral("Auto"));
        const MaterialeTubo& m = a.Materiali[static_cast<size_t>(indice)];
        for (int r = 1; r <= m.NumRighe(); ++r) List1->addItem(Q(m.Righe[static_cast<size_t>(r)].DN));
    }
    if (List1->count() > 0) List1->setCurrentRow(0);
}

void ViewDiametriFrm::Conferma() {
    if (List1->currentItem() == nullptr) return;
    scelta_ = List1->currentItem()->text();
    accept();
}

QString ViewDiametriFrm::Scegli(QWidget* padre, const Archivi& a, int materiale) {
    ViewDiametriFrm f(padre);
    f.SetMateriale(a, materiale);
    if (f.exec() != QDialog::Accepted) return {};
    return f.Scelta();
}

}  // namespace fornax::ui
