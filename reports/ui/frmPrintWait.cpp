#include "reports/ui/frmPrintWait.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace fornax::ui {

frmPrintWait::frmPrintWait(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmPrintWait"));
    setWindowTitle(QStringLiteral("Stampa in corso"));
    setModal(false);
    auto* lay = new QVBoxLayout(this);
    lblMsg = new QLabel(this);
    lblMsg->setObjectName(QStringLiteral("lblMsg"));
    lblMsg->setMinimumWidth(320);
    lay->addWidget(lblMsg);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setRange(0, 100);
    ProgressBar1->setValue(0);
    lay->addWidget(ProgressBar1);
}

void frmPrintWait::PrintMsg(const QString& testo) {
    lblMsg->setText(testo);
    Respira();
    Respira();
}

void frmPrintWait::UpdateBar(int corrente, int totale) {
    ProgressBar1->setValue(totale == 0 ? 0 : std::clamp(corrente * 100 / totale, 0, 100));
}

void frmPrintWait::Testo(const std::string& testo) { PrintMsg(QString::fromStdString(testo)); }

void frmPrintWait::Respira() { QApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }

}  // namespace fornax::ui
