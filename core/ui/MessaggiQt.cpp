#include "core/ui/MessaggiQt.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "core/ui/Controlli.h"

namespace fornax::ui {

namespace {

QMessageBox::Icon Icona(int flags) {
    switch (flags & 0x70) {
        case Box::CRITICAL:
            return QMessageBox::Critical;
        case Box::QUESTION:
            return QMessageBox::Question;
        case Box::EXCLAMATION:
            return QMessageBox::Warning;
        case Box::INFORMATION:
            return QMessageBox::Information;
        default:
            return QMessageBox::NoIcon;
    }
}

}  // namespace

int MessaggiQt::Mostra(const std::string& testo, int flags, const std::string& titolo) {
    QWidget* padre = padre_ ? padre_.data() : QApplication::activeWindow();
    QString t = Q(testo);
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QMessageBox box(Icona(flags), titolo.empty() ? QStringLiteral("Fornax") : Q(titolo), t, QMessageBox::NoButton,
                    padre);
    box.setObjectName(QStringLiteral("MessaggioFornax"));
    QPushButton* ok = nullptr;
    QPushButton* annulla = nullptr;
    QPushButton* si = nullptr;
    QPushButton* no = nullptr;
    switch (flags & 7) {
        case Box::OKCANCEL:
            ok = box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
            annulla = box.addButton(QStringLiteral("Annulla"), QMessageBox::RejectRole);
            box.setDefaultButton(ok);
            box.setEscapeButton(annulla);
            break;
        case Box::YESNOCANCEL:
            si = box.addButton(QStringLiteral("Sì"), QMessageBox::YesRole);
            no = box.addButton(QStringLiteral("No"), QMessageBox::NoRole);
            annulla = box.addButton(QStringLiteral("Annulla"), QMessageBox::RejectRole);
            box.setDefaultButton(si);
            box.setEscapeButton(annulla);
            break;
        case Box::YESNO:
            si = box.addButton(QStringLiteral("Sì"), QMessageBox::YesRole);
            no = box.addButton(QStringLiteral("No"), QMessageBox::NoRole);
            box.setDefaultButton(si);
            box.setEscapeButton(no);
            break;
        default:
            ok = box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
            box.setDefaultButton(ok);
            box.setEscapeButton(ok);
            break;
    }
    box.exec();
    const QAbstractButton* premuto = box.clickedButton();
    if (premuto == nullptr) return annulla ? Risposta::CANCEL : (no ? Risposta::NO : Risposta::OK);
    if (premuto == si) return Risposta::YES;
    if (premuto == no) return Risposta::NO;
    if (premuto == annulla) return Risposta::CANCEL;
    return Risposta::OK;
}

int MessaggiQt::ScegliSostituto(const std::string& nome, int tipo, const std::vector<std::string>& elenco) {
    QWidget* padre = padre_ ? padre_.data() : QApplication::activeWindow();
    return scelta_ ? scelta_(padre, nome, tipo, elenco) : 0;
}

}  // namespace fornax::ui
