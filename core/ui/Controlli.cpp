#include "core/ui/Controlli.h"

#include <QComboBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>

#include "core/Numeri.h"

namespace fornax::ui {

QValidator* FiltroNumerico(QObject* padre) {
    return new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9.,]*")), padre);
}

QString TestoNumero(double v, int cifre) { return Q(TestoGenerale(v, cifre)); }

double NumeroDi(const QString& testo) { return LeggiNumero(S(testo)); }

void RiempiComboPressioni(QComboBox* combo, const QString& prima) {
    combo->clear();
    combo->addItem(prima);
    for (int p = 10; p <= 500; p += 10) combo->addItem(QString::number(p));
}

void SelezionaTesto(QComboBox* combo, const QString& testo) {
    const int i = combo->findText(testo.trimmed(), Qt::MatchFixedString);
    if (i >= 0) {
        combo->setCurrentIndex(i);
    } else if (combo->isEditable()) {
        combo->setEditText(testo);
    }
}

QPushButton* BottoniOkAnnulla(QDialog* dialogo, QBoxLayout* lay, const QString& nomeOk, const QString& nomeAnnulla) {
    auto* bottoni = new QHBoxLayout;
    bottoni->addStretch(1);
    auto* ok = new QPushButton(QStringLiteral("OK"), dialogo);
    ok->setObjectName(nomeOk);
    ok->setDefault(true);
    auto* annulla = new QPushButton(QStringLiteral("Annulla"), dialogo);
    annulla->setObjectName(nomeAnnulla);
    bottoni->addWidget(ok);
    bottoni->addWidget(annulla);
    lay->addLayout(bottoni);
    QObject::connect(annulla, &QPushButton::clicked, dialogo, &QDialog::reject);
    return ok;
}

QString TestoInserito(QWidget* padre, const QString& titolo, const QString& domanda) {
    QInputDialog d(padre);
    d.setWindowTitle(titolo);
    d.setLabelText(domanda);
    d.setOkButtonText(QStringLiteral("OK"));
    d.setCancelButtonText(QStringLiteral("Annulla"));
    if (d.exec() != QDialog::Accepted) return {};
    return d.textValue();
}

}  // namespace fornax::ui
