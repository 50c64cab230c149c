// Pictures of the leak-test page, for looking at its layout as a user sees it (not a test):
// run under xvfb-run; writes fornax-tenuta-*.png into the folder given (default /tmp). The
// page is drawn at the size the document window gives it on a 1366x768 screen.
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>

#include "app/FinestraDocumento.h"
#include "app/frmMainForm.h"
#include "leaktest/ui/PaginaTenuta.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;

namespace {

QString cartella = QStringLiteral("/tmp");

void Salva(QWidget* w, const QString& nome) {
    QApplication::processEvents();
    const QString f = QDir(cartella).filePath(QStringLiteral("fornax-tenuta-%1.png").arg(nome));
    w->grab().save(f);
    qInfo("%s %dx%d", qPrintable(f), w->width(), w->height());
}

// The page of a project, at the top and scrolled to the bottom.
void Pagina(prova::AmbienteUi& amb, const std::string& progetto, const QString& nome,
            const std::function<void(PaginaTenuta&)>& prima = nullptr) {
    AvanzamentoNullo av;
    if (!ApriProgetto(amb.s, progetto, amb.msg, av)) qFatal("non si apre %s", progetto.c_str());
    PaginaTenuta p(amb.s, amb.msg);
    p.resize(1350, 600);
    p.show();
    if (prima) prima(p);
    p.Aggiorna();
    Salva(&p, nome);
    auto* sc = p.findChild<QScrollArea*>();
    sc->verticalScrollBar()->setValue(sc->verticalScrollBar()->maximum());
    Salva(&p, nome + QStringLiteral("-fine"));
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    if (argc > 1) cartella = QString::fromLocal8Bit(argv[1]);
    auto amb = prova::NuovoAmbiente();
    Pagina(*amb, prova::AmbienteUi::Accettazione("i25_leaktest_meter_ok.RTG"), QStringLiteral("metano"));
    Pagina(*amb, prova::AmbienteUi::Esempio("appartamento.RTG"), QStringLiteral("metano-vuota"));
    Pagina(*amb, prova::AmbienteUi::Esempio("appartamento.RTG"), QStringLiteral("metano-qn"), [](PaginaTenuta& p) {
        p.findChild<QRadioButton*>(QStringLiteral("optTenutaImpiantoMetodoContatore"))->click();
        p.findChild<QLineEdit*>(QStringLiteral("txtTenutaImpiantoProvaContQn"))->setText(QStringLiteral("2,5"));
        p.findChild<QLineEdit*>(QStringLiteral("txtTenutaImpiantoProvaContQn"))->textEdited(QStringLiteral("2,5"));
    });
    Pagina(*amb, prova::AmbienteUi::Esempio("bifamiliare-gpl.RTG"), QStringLiteral("gpl"));
    Pagina(*amb, prova::AmbienteUi::Esempio("rete-media-pressione.RTG"), QStringLiteral("pressione"));

    // The main window of a 1366x768 screen with the page in view.
    for (const auto& [progetto, nome] :
         {std::pair{prova::AmbienteUi::Accettazione("i25_leaktest_meter_ok.RTG"), QStringLiteral("finestra-metano")},
          std::pair{prova::AmbienteUi::Esempio("bifamiliare-gpl.RTG"), QStringLiteral("finestra-gpl")}}) {
        frmMainForm f(amb->s, amb->msg);
        f.resize(1366, 740);
        f.show();
        if (!f.ApriPercorso(QString::fromStdString(progetto))) qFatal("non si apre");
        QTabWidget* schede = f.Finestra()->Schede();
        schede->setCurrentIndex(schede->count() - 1);
        Salva(&f, nome);
    }
    return 0;
}
