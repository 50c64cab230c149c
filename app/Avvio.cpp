#include "app/Avvio.h"

#include "archives/ui/frmEquiv.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTimer>
#include <memory>

#include "app/FinestraDocumento.h"
#include "app/frmMainForm.h"
#include "app/frmSplash.h"
#include "core/ImpostazioniFile.h"
#include "core/ui/Controlli.h"
#include "core/ui/MessaggiQt.h"
#include "editing/Modifiche.h"
#include "editing/ui/GasGrid.h"
#include "housekeeping/Suggerimenti.h"
#include "sessione/Recupero.h"
#include "sessione/Sessione.h"

namespace fornax::ui {

namespace {

// What lives from start-up to exit.
struct Programma {
    Archivi a;
    ImpostazioniFile imp;
    Sessione s{a, imp};
    Documento& d = s.d;
    MessaggiQt msg;
};

// The lock that keeps one session per user.
QString FileBlocco() {
    QString cartella = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (cartella.isEmpty()) cartella = QDir::tempPath();
    const QString utente = qEnvironmentVariable("USER", QStringLiteral("utente"));
    return QDir(cartella).filePath(QStringLiteral("fornax-%1.lock").arg(utente));
}

}  // namespace

QString PercorsoDaRigaComandi(const QStringList& argomenti) {
    QString riga = argomenti.join(QLatin1Char(' ')).trimmed();
    if (riga.startsWith(QLatin1Char('"'))) riga.remove(0, 1);
    if (riga.endsWith(QLatin1Char('"'))) riga.chop(1);
    return riga;
}

int Main(QApplication& app, const std::string& cartellaProgramma) {
    QLockFile blocco(FileBlocco());
    blocco.setStaleLockTime(0);
    if (!blocco.tryLock(100)) {
        QMessageBox::information(nullptr, QStringLiteral("Fornax"),
                                 QStringLiteral("E' gia' aperta una sessione di Fornax."));
        return 0;
    }

    auto p = std::make_unique<Programma>();
    auto splash = std::make_unique<frmSplash>(false);
    splash->show();
    QCoreApplication::processEvents();
    splash->MostraEditore(LeggiBloccoEditore(cartellaProgramma));
    splash->WriteVersionInfo();
    splash->ImpostaPasso(1);
    AvanzamentoSplash av(splash.get());
    UsaDialogoSostituzioni(p->msg);
    p->msg.ImpostaPadre(splash.get());
    if (!CaricaArchivi(p->a, p->d, cartellaProgramma, av, p->msg)) return 1;
    p->s.mru.Setup("MRUFileList", 4);
    p->s.mru.Load();

    av.Testo("Preparazione finestre");
    av.Passo(3);
    frmMainForm form(p->s, p->msg);
    p->msg.ImpostaPadre(&form);
    form.show();
    av.Testo("");
    splash->close();
    splash.reset();

    // Work a crashed session left unsaved is offered first; then the project named on the
    // command line.
    form.AttivaRecupero(CartellaRecupero());
    const bool recuperato = form.OffriRecupero();
    const QString comando = recuperato ? QString() : PercorsoDaRigaComandi(app.arguments().mid(1));
    if (!comando.isEmpty()) {
        if (QFileInfo::exists(comando)) {
            form.ApriPercorso(comando);
        } else {
            p->msg.Mostra("Il File " + S(comando) + "non esiste o non e' valido");
        }
    }
    // Speed and pressures start from the defaults, also for the project just opened (not for
    // recovered work, which keeps what the user had).
    if (!recuperato) modifica::DefaultAllApertura(p->d, p->a);
    if (form.ProgettoAperto() && !recuperato) {
        form.Griglia()->InitInitialPressureCombo();
        form.Finestra()->Elaborazione();
    }
    p->s.AvvioCompletato = VERO;

    QTimer::singleShot(0, &form, [&form] {
        form.SuggerimentiAllAvvio();
        if (!form.ProgettoAperto()) form.MostraAttivita();
    });
    return app.exec();
}

}  // namespace fornax::ui
