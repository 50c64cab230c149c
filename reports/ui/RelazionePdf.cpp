#include "reports/ui/RelazionePdf.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPrinter>
#include <memory>

#include <unistd.h>

#include "core/Servizi.h"
#include "reports/ui/Carta.h"
#include "reports/ui/DispositivoQPrinter.h"

namespace fornax {

// A process without an application (the command line) gets one on the offscreen platform:
// fonts and the PDF writer need it, a screen does not.
void ApplicazioneGrafica() {
    if (QCoreApplication::instance()) return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt wants a private runtime folder; a shell without a session has none.
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QString cartella = QDir::tempPath() + QStringLiteral("/fornax-runtime-") + QString::number(::getuid());
        if (QDir().mkpath(cartella)) {
            QFile::setPermissions(cartella, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
            qputenv("XDG_RUNTIME_DIR", cartella.toLocal8Bit());
        }
    }
    static int argc = 1;
    static char nome[] = "fornax-cli";
    static char* argv[] = {nome, nullptr};
    static std::unique_ptr<QGuiApplication> app = std::make_unique<QGuiApplication>(argc, argv);
}

EsitoStampante StampaPdf(Documento& d, Archivi& a, const OpzioniStampante& o, const std::string& percorso,
                         Avanzamento& av, Messaggi& msg, const CartaPdf& carta) {
    ApplicazioneGrafica();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(percorso));
    printer.setCreator(QStringLiteral("Fornax"));
    printer.setDocName(QString::fromStdString(d.Riferimento));
    printer.setPageSize(ui::FormatoCarta(carta.codice));
    printer.setPageOrientation(carta.orizzontale ? QPageLayout::Landscape : QPageLayout::Portrait);
    ui::DispositivoQPrinter dev(printer);
    EsitoStampante e = Print(d, a, o, dev, av, msg);
    if (!dev.Chiudi() && e.riuscita) {
        msg.Mostra(ERRORE_DI_STAMPA);
        e.riuscita = false;
    }
    return e;
}

}  // namespace fornax
