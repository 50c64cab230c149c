// Pictures of the housekeeping windows, for looking at their layout (not a test): run under
// xvfb-run, writes PNG files into the folder given (default /tmp).
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMenuBar>

#include "app/frmMainForm.h"
#include "app/frmSplash.h"
#include "housekeeping/Suggerimenti.h"
#include "housekeeping/ui/frmCopyArchieves.h"
#include "housekeeping/ui/frmCopyArchievesMessage.h"
#include "housekeeping/ui/frmHints.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;

namespace {
QString cartella = QStringLiteral("/tmp");

void Salva(QWidget* w, const QString& nome) {
    w->show();
    QApplication::processEvents();
    const QString f = QDir(cartella).filePath(QStringLiteral("fornax-%1.png").arg(nome));
    w->grab().save(f);
    qInfo("%s %dx%d", qPrintable(f), w->width(), w->height());
    w->close();
}
}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    if (argc > 1) cartella = QString::fromLocal8Bit(argv[1]);
    auto amb = prova::NuovoAmbiente();
    const std::string dati = std::string(FORNAX_SOURCE_DIR) + "/data";

    frmCopyArchieves archivi(amb->cartella.Percorso(), amb->msg);
    archivi.txtCopyFrom->setText(QStringLiteral("/media/chiavetta/Fornax vecchio"));
    Salva(&archivi, QStringLiteral("copia-archivi"));

    frmCopyProjectFiles progetti("/home/utente/Lavori", amb->cartella.Percorso(), amb->msg);
    Salva(&progetti, QStringLiteral("copia-progetti"));

    frmCopyArchievesMessage domanda(
        QStringLiteral("La cartella di destinazione contiene già un file di nome ACCIAIOL.MAT.\n"
                       "Sovrascrivere il file esistente?"));
    Salva(&domanda, QStringLiteral("copia-domanda"));
    frmCopyArchievesMessage gas(QStringLiteral(
        "I gas presenti nel file GAS.CFG della cartella di provenienza verranno copiati all'interno del file GAS.CFG "
        "della cartella di destinazione.\nSe due gas hanno lo stesso nome verrà inserito il simbolo \"$$\" davanti "
        "al nome del gas presente nel file della cartella di destinazione."));
    Salva(&gas, QStringLiteral("copia-domanda-gas"));

    frmRenameFile rinomina(QStringLiteral("ACCIAIOL.MAT"), amb->msg);
    Salva(&rinomina, QStringLiteral("rinomina"));

    Suggerimenti s;
    s.ElencoTips = LeggiHints(dati);
    // The first tip and the longest one.
    int16_t lungo = 0;
    for (size_t i = 0; i < s.ElencoTips.size(); ++i)
        if (s.ElencoTips[i].Testo.size() > s.ElencoTips[static_cast<size_t>(lungo)].Testo.size())
            lungo = static_cast<int16_t>(i);
    for (int16_t i : {int16_t(0), lungo}) {
        s.UltimoSuggerimento = i;
        frmHints h(s, BloccoEditorePredefinito(), amb->imp);
        Salva(&h, QStringLiteral("suggerimento-%1").arg(i));
    }

    frmSplash splash(false);
    splash.MostraEditore(LeggiBloccoEditore(dati));
    splash.ShowWorking(QStringLiteral("Caricamento archivio gas"));
    Salva(&splash, QStringLiteral("splash"));
    frmSplash about(true);
    BloccoEditore b;
    b.Personalizzato = VERO;
    b.Riga1 = "TermoGas Distribuzione S.r.l.";
    b.Riga2 = "Via dell'Industria 10, Torino";
    b.Riga3 = "Tel. 011 000000 - Fax 011 000001";
    b.Riga4 = "www.termogas.example - info@termogas.example";
    about.MostraEditore(b);
    Salva(&about, QStringLiteral("informazioni"));

    frmMainForm form(amb->s, amb->msg);
    form.resize(1000, 600);
    form.show();
    QApplication::processEvents();
    for (QAction* m : form.menuBar()->actions()) {
        if (m->text() != QStringLiteral("&Archivi") && m->text() != QStringLiteral("&?")) continue;
        QMenu* menu = m->menu();
        menu->popup(form.mapToGlobal(QPoint(10, 30)));
        QApplication::processEvents();
        Salva(menu, QStringLiteral("menu-%1").arg(m->text() == QStringLiteral("&?") ? QStringLiteral("aiuto")
                                                                                    : QStringLiteral("archivi")));
    }
    return 0;
}
