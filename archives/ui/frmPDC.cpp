#include "archives/ui/frmPDC.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "archives/Gas.h"
#include "archives/Pdc.h"
#include "core/Numeri.h"
#include "core/ui/Controlli.h"

namespace fornax::ui {

namespace {
QLineEdit* Casella(double v, const QString& nome, QWidget* padre) {
    auto* e = new QLineEdit(TestoNumero(v), padre);
    e->setObjectName(nome);
    e->setValidator(FiltroNumerico(e));
    e->setAlignment(Qt::AlignRight);
    e->setMaximumWidth(90);
    return e;
}
}  // namespace

frmPDC::frmPDC(const Archivi& a, const Documento& d, Messaggi& msg, QWidget* padre)
    : QDialog(padre), cartella_(a.Cartella), tabella_(d.Pdc), msg_(msg) {
    setObjectName(QStringLiteral("frmPDC"));
    setWindowTitle(QStringLiteral("Perdite di carico massime predefinite - ") +
                   (d.Normativa == 1 ? QStringLiteral("UNI7129 (1992)") : QStringLiteral("UNI7129 (2008)")));
    auto* lay = new QVBoxLayout(this);
    auto* g = new QGridLayout;
    g->setHorizontalSpacing(10);
    for (int f = 1; f <= 3; ++f) {
        auto* l = new QLabel(Q(NomeFamiglia(f)) + QStringLiteral("\n") + Q(DescrizioneFamiglia(f)), this);
        l->setAlignment(Qt::AlignCenter);
        g->addWidget(l, 0, f + 1);
    }
    g->addWidget(new QLabel(QStringLiteral("Potenza fino a :"), this), 1, 0);
    txtPotenza = Casella(tabella_.SogliaPotenza, QStringLiteral("txtPotenza"), this);
    auto* kw1 = new QHBoxLayout;
    kw1->addWidget(txtPotenza);
    kw1->addWidget(new QLabel(QStringLiteral("kW"), this));
    g->addLayout(kw1, 1, 1);
    g->addWidget(new QLabel(QStringLiteral("Potenza oltre a :"), this), 2, 0);
    txtPotenzaBis = Casella(tabella_.SogliaPotenza, QStringLiteral("txtPotenzaBis"), this);
    txtPotenzaBis->setReadOnly(true);
    txtPotenzaBis->setFocusPolicy(Qt::NoFocus);
    auto* kw2 = new QHBoxLayout;
    kw2->addWidget(txtPotenzaBis);
    kw2->addWidget(new QLabel(QStringLiteral("kW"), this));
    g->addLayout(kw2, 2, 1);
    for (size_t f = 1; f <= 3; ++f) {
        txtPotenza1[f] = Casella(tabella_.PdcMax[1][f], QStringLiteral("txtPotenza1_%1").arg(f), this);
        txtPotenza2[f] = Casella(tabella_.PdcMax[2][f], QStringLiteral("txtPotenza2_%1").arg(f), this);
        g->addWidget(txtPotenza1[f], 1, static_cast<int>(f) + 1);
        g->addWidget(txtPotenza2[f], 2, static_cast<int>(f) + 1);
    }
    auto* unita = new QLabel(QStringLiteral("Perdite di carico massime in Pa"), this);
    unita->setAlignment(Qt::AlignRight);
    g->addWidget(unita, 3, 2, 1, 3);
    lay->addLayout(g);
    auto* ok = BottoniOkAnnulla(this, lay, QStringLiteral("cmdOK"), QStringLiteral("cmdAnnulla"));
    // The second threshold box repeats the first.
    connect(txtPotenza, &QLineEdit::editingFinished, this, [this] { txtPotenzaBis->setText(txtPotenza->text()); });
    connect(ok, &QPushButton::clicked, this, &frmPDC::cmdOK);
}

void frmPDC::cmdOK() {
    tabella_.SogliaPotenza = Singolo(NumeroDi(txtPotenza->text()));
    for (size_t f = 1; f <= 3; ++f) {
        tabella_.PdcMax[1][f] = Singolo(NumeroDi(txtPotenza1[f]->text()));
        tabella_.PdcMax[2][f] = Singolo(NumeroDi(txtPotenza2[f]->text()));
    }
    VerificaDefaultPdc(tabella_);
    SalvaPdc(tabella_, cartella_, msg_);
    accept();
}

}  // namespace fornax::ui
