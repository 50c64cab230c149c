#include "app/frmAttivita.h"

#include <QCommandLinkButton>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ui/Controlli.h"
#include "core/ui/Icone.h"
#include "sessione/Sessione.h"

namespace fornax::ui {

frmAttivita::frmAttivita(const clsMRU& mru, QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmAttivita"));
    setWindowTitle(QStringLiteral("Avvio attivita'"));
    auto* lay = new QVBoxLayout(this);
    lay->setSpacing(6);

    auto* nuovo = new QGroupBox(QStringLiteral("Nuovo progetto"), this);
    auto* ln = new QVBoxLayout(nuovo);
    cmdNewGAS = new QCommandLinkButton(QStringLiteral("Impianto interno gas"),
                                       QStringLiteral("Calcolo rete gas combustibile secondo norma UNI 7129 "), nuovo);
    cmdNewGAS->setObjectName(QStringLiteral("cmdNewGAS"));
    cmdNewGAS->setIcon(CreaIcona(Icona::Gas));
    cmdNewMP = new QCommandLinkButton(QStringLiteral("Rete gas in pressione"),
                                      QStringLiteral("Calcolo reti gas combustibile e non "), nuovo);
    cmdNewMP->setObjectName(QStringLiteral("cmdNewMP"));
    cmdNewMP->setIcon(CreaIcona(Icona::Parametri));
    ln->addWidget(cmdNewGAS);
    ln->addWidget(cmdNewMP);
    lay->addWidget(nuovo);

    auto* esistente = new QGroupBox(QStringLiteral("Progetto esistente"), this);
    auto* le = new QVBoxLayout(esistente);
    cmdApri = new QCommandLinkButton(QStringLiteral("Apri un archivio esistente"), esistente);
    cmdApri->setObjectName(QStringLiteral("cmdApri"));
    cmdApri->setIcon(CreaIcona(Icona::Apri));
    le->addWidget(cmdApri);
    auto* recenti = new QLabel(QStringLiteral("File recenti:"), esistente);
    recenti->setVisible(!mru.GetItem(1).empty());
    le->addWidget(recenti);
    for (size_t i = 0; i < lblMRUFile.size(); ++i) {
        const int n = static_cast<int>(i) + 1;
        const QString voce = Q(mru.GetItem(n));
        auto* b = new QPushButton(esistente);
        b->setObjectName(QStringLiteral("lblMRUFile%1").arg(i));
        b->setFlat(true);
        b->setStyleSheet(
            QStringLiteral("QPushButton { text-align: left; padding: 3px 8px; }"
                           "QPushButton:hover:enabled { color: #1f5fb0; text-decoration: underline; }"));
        b->setText(QStringLiteral(" %1. %2").arg(n).arg(QFileInfo(voce).fileName()));
        b->setToolTip(voce);
        // An entry shorter than three characters is no file name.
        b->setEnabled(voce.size() >= 3);
        b->setVisible(voce.size() >= 3);
        connect(b, &QPushButton::clicked, this, [this, voce] {
            if (voce.size() < 3) return;
            recente_ = voce;
            Scegli(Scelta::Recente);
        });
        lblMRUFile[i] = b;
        le->addWidget(b);
    }
    lay->addWidget(esistente);

    auto* riga = new QHBoxLayout;
    riga->addStretch(1);
    cmdESCI = new QPushButton(CreaIcona(Icona::Esci), QStringLiteral("Esci dal programma"), this);
    cmdESCI->setObjectName(QStringLiteral("cmdESCI"));
    cmdESCI->setAutoDefault(false);
    riga->addWidget(cmdESCI);
    lay->addLayout(riga);
    nuovo->setMinimumWidth(460);
    esistente->setMinimumWidth(460);
    lay->setSizeConstraint(QLayout::SetFixedSize);

    connect(cmdNewGAS, &QPushButton::clicked, this, [this] { Scegli(Scelta::NuovoInterno); });
    connect(cmdNewMP, &QPushButton::clicked, this, [this] { Scegli(Scelta::NuovoPressione); });
    connect(cmdApri, &QPushButton::clicked, this, [this] { Scegli(Scelta::Apri); });
    connect(cmdESCI, &QPushButton::clicked, this, [this] { Scegli(Scelta::Esci); });
    cmdNewGAS->setFocus();
}

void frmAttivita::Scegli(Scelta s) {
    scelta_ = s;
    accept();
}

}  // namespace fornax::ui
