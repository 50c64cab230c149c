#include "housekeeping/ui/frmCopyArchievesMessage.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "core/Servizi.h"
#include "core/ui/Controlli.h"

namespace fornax::ui {

namespace {

QPushButton* Bottone(const QString& testo, const QString& nome, QWidget* padre) {
    auto* b = new QPushButton(testo, padre);
    b->setObjectName(nome);
    b->setAutoDefault(false);
    return b;
}

QString TestoFinestra(const std::string& testo) {
    QString t = Q(testo);
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return t;
}

}  // namespace

frmCopyArchievesMessage::frmCopyArchievesMessage(const QString& domanda, QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmCopyArchievesMessage"));
    setWindowTitle(QStringLiteral("Attenzione"));
    auto* lay = new QVBoxLayout(this);
    lay->setContentsMargins(16, 16, 16, 12);
    auto* testa = new QHBoxLayout;
    testa->setSpacing(14);
    auto* icona = new QLabel(this);
    const int lato = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    icona->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(lato, lato));
    icona->setAlignment(Qt::AlignTop);
    testa->addWidget(icona);
    Label1 = new QLabel(domanda, this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    Label1->setMinimumWidth(440);
    testa->addWidget(Label1, 1);
    lay->addLayout(testa);
    lay->addSpacing(12);

    auto* bottoni = new QHBoxLayout;
    bottoni->addStretch(1);
    cmdOK = Bottone(QStringLiteral("Sì"), QStringLiteral("cmdOK"), this);
    cmdAllOK = Bottone(QStringLiteral("Si Tutti"), QStringLiteral("cmdAllOK"), this);
    cmdNo = Bottone(QStringLiteral("No"), QStringLiteral("cmdNo"), this);
    cmdRename = Bottone(QStringLiteral("Rinomina"), QStringLiteral("cmdRename"), this);
    cmdCancel = Bottone(QStringLiteral("Annulla"), QStringLiteral("cmdCancel"), this);
    cmdOK->setDefault(true);
    for (auto* b : {cmdOK, cmdAllOK, cmdNo, cmdRename, cmdCancel}) bottoni->addWidget(b);
    lay->addLayout(bottoni);

    auto risponde = [this](QPushButton* b, int16_t r) {
        connect(b, &QPushButton::clicked, this, [this, r] {
            risposta_ = r;
            if (r == RispostaCopia::Annulla) {
                reject();
            } else {
                accept();
            }
        });
    };
    risponde(cmdNo, RispostaCopia::No);
    risponde(cmdOK, RispostaCopia::Si);
    risponde(cmdAllOK, RispostaCopia::SiTutti);
    risponde(cmdRename, RispostaCopia::Rinomina);
    risponde(cmdCancel, RispostaCopia::Annulla);
    cmdOK->setFocus();
}

frmRenameFile::frmRenameFile(const QString& nomeAttuale, Messaggi& msg, QWidget* padre) : QDialog(padre), msg_(msg) {
    setObjectName(QStringLiteral("frmRenameFile"));
    setWindowTitle(QStringLiteral("Rinomina File"));
    auto* lay = new QVBoxLayout(this);
    auto* spiega = new QLabel(
        QStringLiteral("Nome con cui copiare il file %1 (l'estensione viene aggiunta):").arg(nomeAttuale), this);
    spiega->setWordWrap(true);
    lay->addWidget(spiega);
    txtFileName = new QLineEdit(this);
    txtFileName->setObjectName(QStringLiteral("txtFileName"));
    txtFileName->setMinimumWidth(320);
    const int punto = nomeAttuale.lastIndexOf(QLatin1Char('.'));
    txtFileName->setText(punto > 0 ? nomeAttuale.left(punto) : nomeAttuale);
    txtFileName->selectAll();
    lay->addWidget(txtFileName);
    auto* bottoni = new QHBoxLayout;
    bottoni->addStretch(1);
    cmdRename = new QPushButton(QStringLiteral("Rinomina"), this);
    cmdRename->setObjectName(QStringLiteral("cmdRename"));
    cmdRename->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Annulla"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    bottoni->addWidget(cmdRename);
    bottoni->addWidget(cmdCancel);
    lay->addLayout(bottoni);
    connect(cmdRename, &QPushButton::clicked, this, &frmRenameFile::Rinomina);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmRenameFile::Rinomina() {
    const std::string problema = ControllaNomeFile(S(txtFileName->text()));
    if (!problema.empty()) {
        msg_.Mostra(problema, Box::EXCLAMATION, "Rinomina File");
        txtFileName->setFocus();
        return;
    }
    nome_ = txtFileName->text().trimmed();
    accept();
}

int16_t DomandeCopiaQt::Sovrascrivere(const std::string& domanda) {
    frmCopyArchievesMessage f(TestoFinestra(domanda), padre_);
    f.exec();
    return f.Risposta();
}

std::string DomandeCopiaQt::NuovoNome(const std::string& nomeAttuale) {
    frmRenameFile f(Q(nomeAttuale), msg_, padre_);
    if (f.exec() != QDialog::Accepted) return {};
    return S(f.Nome());
}

}  // namespace fornax::ui
