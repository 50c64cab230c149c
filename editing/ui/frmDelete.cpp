#include "editing/ui/frmDelete.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include "editing/Cancellazione.h"

namespace fornax::ui {

namespace {
QPushButton* Bottone(const QString& nome, const QIcon& icona, QWidget* padre) {
    auto* b = new QPushButton(icona, QString(), padre);
    b->setObjectName(nome);
    b->setIconSize(QSize(24, 24));
    b->setMinimumSize(44, 36);
    b->setAutoDefault(false);
    return b;
}
}  // namespace

frmDelete::frmDelete(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmDelete"));
    setWindowTitle(QStringLiteral("Tipo cancellazione"));
    auto* g = new QGridLayout(this);
    QStyle* st = style();
    cmdScollega = Bottone(QStringLiteral("cmdScollega"), st->standardIcon(QStyle::SP_DialogResetButton), this);
    cmdElimina = Bottone(QStringLiteral("cmdElimina"), st->standardIcon(QStyle::SP_ArrowUp), this);
    cmdCancella = Bottone(QStringLiteral("cmdCancella"), st->standardIcon(QStyle::SP_TrashIcon), this);
    Label1 = new QLabel(QStringLiteral("Scollega tronchi"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setBuddy(cmdScollega);
    auto* Label2 = new QLabel(QStringLiteral("Elimina e compatta  tronchi"), this);
    Label2->setObjectName(QStringLiteral("Label2"));
    auto* Label3 = new QLabel(QStringLiteral("Cancella tronchi"), this);
    Label3->setObjectName(QStringLiteral("Label3"));
    g->addWidget(cmdScollega, 0, 0);
    g->addWidget(Label1, 0, 1);
    g->addWidget(cmdElimina, 1, 0);
    g->addWidget(Label2, 1, 1);
    g->addWidget(cmdCancella, 2, 0);
    g->addWidget(Label3, 2, 1);
    cmdAnnulla = new QPushButton(QStringLiteral("Annulla"), this);
    cmdAnnulla->setObjectName(QStringLiteral("cmdAnnulla"));
    g->addWidget(cmdAnnulla, 3, 0, 1, 2, Qt::AlignRight);
    g->setColumnStretch(1, 1);
    g->setSizeConstraint(QLayout::SetFixedSize);
    cmdScollega->setToolTip(QStringLiteral("Stacca i tronchi dall'albero conservandone i dati"));
    cmdElimina->setToolTip(QStringLiteral("Cancella i tronchi e rinumera quelli successivi"));
    cmdCancella->setToolTip(QStringLiteral("Cancella i tronchi lasciando liberi i loro numeri"));
    connect(cmdScollega, &QPushButton::clicked, this, [this] { Scegli(TipoCancellazione::SCOLLEGA); });
    connect(cmdElimina, &QPushButton::clicked, this, [this] { Scegli(TipoCancellazione::ELIMINA_E_COMPATTA); });
    connect(cmdCancella, &QPushButton::clicked, this, [this] { Scegli(TipoCancellazione::CANCELLA); });
    connect(cmdAnnulla, &QPushButton::clicked, this, [this] {
        Fatto = false;
        reject();
    });
}

void frmDelete::HideUnlink() {
    cmdScollega->setEnabled(false);
    Label1->setEnabled(false);
}

void frmDelete::ShowUnlink() {
    cmdScollega->setEnabled(true);
    Label1->setEnabled(true);
}

void frmDelete::Scegli(int tipo) {
    TipoCancellazione = tipo;
    Fatto = true;
    accept();
}

}  // namespace fornax::ui
