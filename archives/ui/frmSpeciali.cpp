#include "archives/ui/frmSpeciali.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "archives/Speciali.h"
#include "core/Numeri.h"
#include "core/Testo.h"
#include "core/ui/Controlli.h"

namespace fornax::ui {

namespace {
QLabel* Titolo(const QString& t, QWidget* padre) {
    auto* l = new QLabel(t, padre);
    l->setAlignment(Qt::AlignCenter);
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
    return l;
}
}  // namespace

frmSpeciali::frmSpeciali(const Archivi& a, Messaggi& msg, QWidget* padre)
    : QDialog(padre), msg_(msg), cartella_(a.Cartella) {
    setObjectName(QStringLiteral("frmSpeciali"));
    setWindowTitle(QStringLiteral("Lunghezze equivalenti accidentalità"));
    CaricaSpecialiPressione(tabella_, cartella_, msg_);

    auto* lay = new QVBoxLayout(this);
    auto* g = new QGridLayout;
    g->setHorizontalSpacing(8);
    g->addWidget(Titolo(QStringLiteral("Descrizione"), this), 0, 0, 2, 1);
    g->addWidget(Titolo(QStringLiteral("Lunghezze equivalenti in metri di tubo"), this), 0, 1, 1, 3);
    auto* sotto = new QLabel(QStringLiteral("Per intervalli di diametro interno del tubo"), this);
    sotto->setAlignment(Qt::AlignCenter);
    g->addWidget(sotto, 1, 1, 1, 3);
    g->addWidget(Titolo(QStringLiteral("< 50mm"), this), 2, 1);
    g->addWidget(Titolo(QStringLiteral("50mm ÷ 125mm"), this), 2, 2);
    g->addWidget(Titolo(QStringLiteral("> 125mm"), this), 2, 3);
    for (size_t k = 1; k <= 10; ++k) {
        const TipoSpeciale& t = tabella_[k];
        const int riga = static_cast<int>(k) + 2;
        txtDesc[k] = new QLineEdit(Q(t.Nome), this);
        txtDesc[k]->setObjectName(QStringLiteral("txtDesc%1").arg(k));
        txtDesc[k]->setMinimumWidth(200);
        g->addWidget(txtDesc[k], riga, 0);
        std::array<QLineEdit*, 11>* colonne[3] = {&txtRange1, &txtRange2, &txtRange3};
        for (size_t c = 0; c < 3; ++c) {
            auto* e = new QLineEdit(TestoNumero(t.Lunghezza[1][c + 1]), this);
            e->setObjectName(QStringLiteral("txtRange%1_%2").arg(c + 1).arg(k));
            e->setValidator(FiltroNumerico(e));
            e->setAlignment(Qt::AlignRight);
            e->setMaximumWidth(110);
            (*colonne[c])[k] = e;
            g->addWidget(e, riga, static_cast<int>(c) + 1);
        }
    }
    lay->addLayout(g);
    auto* ok = BottoniOkAnnulla(this, lay, QStringLiteral("cmdOK"), QStringLiteral("cmdAnnulla"));
    connect(ok, &QPushButton::clicked, this, &frmSpeciali::cmdOK);
}

void frmSpeciali::cmdOK() {
    for (size_t k = 1; k <= 10; ++k) {
        TipoSpeciale& t = tabella_[k];
        t.Nome = Trim(S(txtDesc[k]->text()));
        t.Lunghezza[1][1] = Singolo(NumeroDi(txtRange1[k]->text()));
        t.Lunghezza[1][2] = Singolo(NumeroDi(txtRange2[k]->text()));
        t.Lunghezza[1][3] = Singolo(NumeroDi(txtRange3[k]->text()));
    }
    salvato_ = SalvaSpeciali(tabella_, cartella_, msg_);
    accept();
}

}  // namespace fornax::ui
