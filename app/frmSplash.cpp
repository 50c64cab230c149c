#include "app/frmSplash.h"

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "core/Versione.h"
#include "core/ui/Controlli.h"
#include "core/ui/Icone.h"

namespace fornax::ui {

frmSplash::frmSplash(bool informazioni, QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(informazioni ? QStringLiteral("Informazioni su Fornax") : QStringLiteral("Fornax"));
    if (!informazioni) setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setStyleSheet(
        QStringLiteral("QDialog#frmSplash { background: qlineargradient(x1:0, y1:0, x2:0, y2:1, "
                       "stop:0 #1f4f8f, stop:1 #2f6fb8); } QDialog#frmSplash QLabel { color: white; }"));
    auto* lay = new QVBoxLayout(this);
    lay->setContentsMargins(28, 22, 28, 18);
    auto* testa = new QHBoxLayout;
    auto* icona = new QLabel(this);
    icona->setPixmap(CreaIcona(Icona::Gas).pixmap(56, 56));
    testa->addWidget(icona);
    auto* titolo = new QLabel(QStringLiteral("Fornax"), this);
    QFont f = titolo->font();
    f.setPointSizeF(f.pointSizeF() * 2.6);
    f.setBold(true);
    titolo->setFont(f);
    testa->addWidget(titolo);
    testa->addStretch(1);
    lay->addLayout(testa);
    auto* sotto =
        new QLabel(QStringLiteral("Calcolo impianto interno gas (UNI 7129)\nCalcolo reti gas in pressione"), this);
    lay->addWidget(sotto);
    lblVersione = new QLabel(this);
    lblVersione->setObjectName(QStringLiteral("lblVersione"));
    QFont fv = lblVersione->font();
    fv.setBold(true);
    lblVersione->setFont(fv);
    lay->addSpacing(8);
    lay->addWidget(lblVersione);
    // The publisher block, under a thin rule.
    auto* filo = new QFrame(this);
    filo->setFrameShape(QFrame::HLine);
    filo->setStyleSheet(QStringLiteral("color: rgba(255, 255, 255, 90);"));
    lay->addSpacing(10);
    lay->addWidget(filo);
    lblEditore = new QLabel(this);
    lblEditore->setObjectName(QStringLiteral("lblEditore"));
    lblEditore->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont fe = lblEditore->font();
    fe.setPointSizeF(fe.pointSizeF() * 0.92);
    lblEditore->setFont(fe);
    lay->addWidget(lblEditore);
    lblStato = new QLabel(this);
    lblStato->setObjectName(QStringLiteral("lblStato"));
    lblStato->setMinimumWidth(360);
    lay->addSpacing(10);
    lay->addWidget(lblStato);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setRange(0, 4);
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setMaximumHeight(10);
    lay->addWidget(ProgressBar1);
    if (informazioni) {
        lblStato->hide();
        ProgressBar1->hide();
        auto* ok = new QPushButton(QStringLiteral("OK"), this);
        ok->setDefault(true);
        auto* riga = new QHBoxLayout;
        riga->addStretch(1);
        riga->addWidget(ok);
        lay->addLayout(riga);
        connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    }
    WriteVersionInfo();
    MostraEditore(BloccoEditorePredefinito());
}

QString frmSplash::Versione() const { return QStringLiteral("Versione ") + QString::fromLatin1(VERSIONE); }

void frmSplash::WriteVersionInfo() { lblVersione->setText(Versione()); }

void frmSplash::ShowWorking(const QString& testo) {
    lblStato->setText(testo);
    if (isVisible()) QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmSplash::MostraEditore(const BloccoEditore& b) {
    QStringList righe;
    for (const std::string* r : {&b.Riga1, &b.Riga2, &b.Riga3, &b.Riga4}) righe << Q(*r).toHtmlEscaped();
    // The firm's name stands out; empty lines of a distributor's file keep their place.
    righe[0] = QStringLiteral("<b>%1</b>").arg(righe[0]);
    lblEditore->setText(righe.join(QStringLiteral("<br>")));
    adjustSize();
}

void frmSplash::ImpostaPasso(int passo) { ProgressBar1->setValue(std::clamp(passo, 0, 4)); }

void AvanzamentoSplash::Testo(const std::string& testo) {
    if (s_) s_->ShowWorking(Q(testo));
}

void AvanzamentoSplash::Passo(int passo) {
    if (s_) s_->ImpostaPasso(passo);
}

void AvanzamentoSplash::Respira() { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

void AvanzamentoAttesa::Respira() {
    // Every few lines is enough to keep the window painted; more would slow the reading down.
    if (++conteggio_ % 64 == 0) QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace fornax::ui
