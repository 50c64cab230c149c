// The housekeeping windows driven as a user drives them: the overwrite question and its five
// answers, the rename, the two copy windows, the tip of the day, the menu entries and the
// publisher block on the about window.
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <filesystem>

#include "app/frmMainForm.h"
#include "app/frmSplash.h"
#include "housekeeping/ui/frmCopyArchieves.h"
#include "housekeeping/ui/frmCopyArchievesMessage.h"
#include "housekeeping/ui/frmHints.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;

namespace {

template <typename T>
T* Figlio(QObject* w, const char* nome) {
    T* x = w->findChild<T*>(QString::fromLatin1(nome));
    if (x == nullptr) qFatal("manca %s", nome);
    return x;
}

// Runs `azione` on the modal window named `nome` as soon as it is the active one; gives up after
// about two seconds, so that a window that never opens fails the test instead of hanging it.
void QuandoAperta(const QString& nome, std::function<void(QWidget*)> azione) {
    auto tentativo = std::make_shared<std::function<void(int)>>();
    std::weak_ptr<std::function<void(int)>> debole = tentativo;
    *tentativo = [nome, azione, debole](int resto) {
        QWidget* w = QApplication::activeModalWidget();
        if (w != nullptr && w->objectName() == nome && w->isVisible()) {
            azione(w);
            return;
        }
        auto f = debole.lock();
        if (f && resto > 0) QTimer::singleShot(5, [f, resto] { (*f)(resto - 1); });
    };
    QTimer::singleShot(0, [tentativo] { (*tentativo)(400); });
}

void Clic(QWidget* w, const char* bottone) { QTest::mouseClick(Figlio<QPushButton>(w, bottone), Qt::LeftButton); }

}  // namespace

class TestFinestreServizio : public QObject {
    Q_OBJECT

private slots:
    void domandaDiSovrascritturaECinqueRisposte();
    void rinominaRifiutaUnNomeVuoto();
    void copiaArchiviConSiTutti();
    void copiaProgettiConRinomina();
    void suggerimentoDelGiornoEImpostazioni();
    void menuSuggerimentiEInformazioni();
};

void TestFinestreServizio::domandaDiSovrascritturaECinqueRisposte() {
    const struct {
        const char* bottone;
        int16_t risposta;
    } casi[] = {{"cmdNo", RispostaCopia::No},
                {"cmdOK", RispostaCopia::Si},
                {"cmdAllOK", RispostaCopia::SiTutti},
                {"cmdRename", RispostaCopia::Rinomina},
                {"cmdCancel", RispostaCopia::Annulla}};
    for (const auto& c : casi) {
        frmCopyArchievesMessage f(QStringLiteral("Sovrascrivere?"));
        QCOMPARE(f.windowTitle(), QStringLiteral("Attenzione"));
        QCOMPARE(f.Label1->text(), QStringLiteral("Sovrascrivere?"));
        QuandoAperta(QStringLiteral("frmCopyArchievesMessage"), [&](QWidget* w) { Clic(w, c.bottone); });
        f.exec();
        QCOMPARE(f.Risposta(), c.risposta);
    }
    QCOMPARE(frmCopyArchievesMessage(QString()).cmdAllOK->text(), QStringLiteral("Si Tutti"));
    // Closed by Esc: the copy stops.
    frmCopyArchievesMessage f(QStringLiteral("?"));
    QuandoAperta(QStringLiteral("frmCopyArchievesMessage"), [](QWidget* w) { QTest::keyClick(w, Qt::Key_Escape); });
    f.exec();
    QCOMPARE(f.Risposta(), RispostaCopia::Annulla);
}

void TestFinestreServizio::rinominaRifiutaUnNomeVuoto() {
    MessaggiRegistrati msg;
    frmRenameFile f(QStringLiteral("ACCIAIOL.MAT"), msg);
    QCOMPARE(f.windowTitle(), QStringLiteral("Rinomina File"));
    QCOMPARE(f.txtFileName->text(), QStringLiteral("ACCIAIOL"));
    f.show();
    f.txtFileName->clear();
    QTest::keyClicks(f.txtFileName, QStringLiteral("   "));
    QTest::mouseClick(f.cmdRename, Qt::LeftButton);
    QCOMPARE(msg.Testi(), std::vector<std::string>{"E' necessario inserire un nome per il file."});
    QVERIFY(f.isVisible());
    f.txtFileName->setText(QStringLiteral(" Acciaio vecchio "));
    QTest::mouseClick(f.cmdRename, Qt::LeftButton);
    QCOMPARE(f.result(), int(QDialog::Accepted));
    QCOMPARE(f.Nome(), QStringLiteral("Acciaio vecchio"));
}

void TestFinestreServizio::copiaArchiviConSiTutti() {
    prova::CartellaProva da{"finestre-da"}, a{"finestre-a"}, programma{"finestre-prog"};
    da.CopiaDa(FORNAX_BUILD_DATA_DIR);
    a.Scrivi("ACCIAIOL.MAT", "in uso\n");
    a.Scrivi("GAS.CFG", "METANO\t0.56\t1.4e-05\t34\t37\t0\n");
    MessaggiRegistrati msg;
    frmCopyArchieves f(programma.Percorso(), msg);
    QCOMPARE(f.windowTitle(), QStringLiteral("Copia Archivi"));
    // The destination starts from the program's folder.
    QCOMPARE(f.txtCopyTo->text(), QString::fromStdString(programma.Percorso()));
    f.show();
    f.txtCopyTo->clear();
    QTest::mouseClick(f.cmdCopy, Qt::LeftButton);
    QCOMPARE(msg.Testi(), std::vector<std::string>{"Inserire un valore sia per la directory\r\ndi provenienza che per "
                                                   "quella di destinazione."});
    // The two browse buttons, with their titles.
    QStringList titoli;
    f.Sfoglia = [&](const QString& titolo, const QString& filtro, const QString&) {
        titoli << titolo;
        [&] { QVERIFY(filtro.contains(QStringLiteral("*.CFG"))); }();
        return QString::fromStdString(titoli.size() == 1 ? da.Percorso() : a.Percorso());
    };
    QTest::mouseClick(f.cmdOpenCopyFromDlg, Qt::LeftButton);
    QTest::mouseClick(f.cmdOpenCopyToDlg, Qt::LeftButton);
    QCOMPARE(titoli, (QStringList{QStringLiteral("Copia archivi da:"), QStringLiteral("Copia archivi in:")}));
    QCOMPARE(f.txtCopyFrom->text(), QString::fromStdString(da.Percorso()));

    msg.mostrati.clear();
    QString domanda;
    QuandoAperta(QStringLiteral("frmCopyArchievesMessage"), [&](QWidget* w) {
        domanda = Figlio<QLabel>(w, "Label1")->text();
        Clic(w, "cmdAllOK");
    });
    QTest::mouseClick(f.cmdCopy, Qt::LeftButton);
    QCOMPARE(domanda, QStringLiteral("La cartella di destinazione contiene già un file di nome ACCIAIOL.MAT.\n"
                                     "Sovrascrivere il file esistente?"));
    QCOMPARE(f.result(), int(QDialog::Accepted));
    QCOMPARE(f.Riepilogo().esito, EsitoCopia::Completata);
    QCOMPARE(f.Riepilogo().uniti, std::vector<std::string>{"GAS.CFG"});
    QCOMPARE(a.LeggiByte("ACCIAIOL.MAT"), da.LeggiByte("ACCIAIOL.MAT"));
    QVERIFY(a.LeggiByte("GAS.CFG").rfind("$$METANO\t0.56", 0) == 0);
    // The missing PDCMAX.CFG note, then the summary.
    const auto testi = msg.Testi();
    QCOMPARE(testi.size(), size_t(2));
    QVERIFY(testi[0].rfind("Il file PDCMAX.CFG non verrà copiato", 0) == 0);
    QCOMPARE(testi[1], std::string("Copia degli archivi completata: 8 file copiati, gas uniti."));
}

void TestFinestreServizio::copiaProgettiConRinomina() {
    prova::CartellaProva da{"finestre-prog-da"}, lavoro{"finestre-lavoro"};
    da.Scrivi("villa.RTG", "nuova\n");
    const std::string dest = lavoro.Percorso() + "/Archivio Lavori";
    std::filesystem::create_directories(dest);
    { std::ofstream(dest + "/villa.RTG", std::ios::binary) << "in uso\r\n"; }
    MessaggiRegistrati msg;
    frmCopyProjectFiles f(lavoro.Percorso(), lavoro.Percorso(), msg);
    QCOMPARE(f.windowTitle(), QStringLiteral("Copia File di Progetto"));
    QVERIFY(Figlio<QLabel>(&f, "lblDestinazione")->text().contains(QString::fromStdString(dest)));
    f.show();
    QTest::mouseClick(f.cmdCopy, Qt::LeftButton);
    QCOMPARE(msg.Testi(), std::vector<std::string>{"Inserire un valore per la directory di provenienza."});
    msg.mostrati.clear();
    f.txtCopyFrom->setText(QString::fromStdString(da.Percorso()));
    QuandoAperta(QStringLiteral("frmCopyArchievesMessage"), [](QWidget* w) {
        QuandoAperta(QStringLiteral("frmRenameFile"), [](QWidget* r) {
            auto* nome = Figlio<QLineEdit>(r, "txtFileName");
            QCOMPARE(nome->text(), QStringLiteral("villa"));
            nome->setText(QStringLiteral("villa 2025"));
            Clic(r, "cmdRename");
        });
        Clic(w, "cmdRename");
    });
    QTest::mouseClick(f.cmdCopy, Qt::LeftButton);
    QCOMPARE(f.Riepilogo().copiati, std::vector<std::string>{"villa 2025.RTG"});
    QCOMPARE(prova::CartellaProva::LeggiFile(dest + "/villa 2025.RTG"), std::string("nuova\r\n"));
    QCOMPARE(prova::CartellaProva::LeggiFile(dest + "/villa.RTG"), std::string("in uso\r\n"));
    QCOMPARE(msg.Testi().size(), size_t(1));
    QVERIFY(msg.Testi()[0].rfind("Copia dei file di progetto completata: 1 file copiato.", 0) == 0);
}

void TestFinestreServizio::suggerimentoDelGiornoEImpostazioni() {
    ImpostazioniInMemoria imp;
    Suggerimenti s;
    s.ElencoTips = LeggiHintsDaTesto("Primo <b>&<br>seconda riga\nSecondo\nTerzo<SWCOMPANY=1>\n");
    s.UltimoSuggerimento = 5;  // beyond the end: the modulus brings it back
    BloccoEditore distributore;
    distributore.Personalizzato = VERO;
    {
        frmHints f(s, distributore, imp);
        QVERIFY(f.HaSuggerimento());
        // Text, not markup; "<br>" a line break. "Terzo" is the publisher's: skipped.
        QCOMPARE(f.txtHint->toPlainText(), QStringLiteral("Primo <b>&\nseconda riga"));
        QTest::mouseClick(f.cmdNextHint, Qt::LeftButton);
        QCOMPARE(f.txtHint->toPlainText(), QStringLiteral("Secondo"));
        // The publisher's tip is skipped on a distributor's copy.
        QTest::mouseClick(f.cmdNextHint, Qt::LeftButton);
        QCOMPARE(f.txtHint->toPlainText(), QStringLiteral("Primo <b>&\nseconda riga"));
        f.show();
        QTest::mouseClick(f.ckDontShowAgain, Qt::LeftButton);
        QTest::keyClick(&f, Qt::Key_Escape);  // closed any way, the settings are kept
    }
    QCOMPARE(imp.Leggi("Settings", "HintsShow"), std::string("false"));
    QCOMPARE(imp.Leggi("Settings", "HintLast"), std::string("1"));

    Suggerimenti vuoto;
    vuoto.ElencoTips = LeggiHintsDaTesto("# nessun suggerimento\n");
    frmHints f(vuoto, distributore, imp);
    QVERIFY(!f.HaSuggerimento());
    QVERIFY(!f.cmdNextHint->isEnabled());
}

void TestFinestreServizio::menuSuggerimentiEInformazioni() {
    auto amb = prova::NuovoAmbiente();
    amb->cartella.Scrivi("HINTS.CFG", "# suggerimenti\nUno\nDue\n");
    amb->cartella.Scrivi("SWCOMPANY.CFG", "TermoGas S.r.l.\nVia Po 3, Torino\nTel. 011 000000\nwww.termogas.example\n");
    frmMainForm f(amb->s, amb->msg);
    f.show();
    for (const char* nome : {"mnuArchiveCopy", "mnuProjectFileCopy"}) QVERIFY(Figlio<QAction>(&f, nome)->isEnabled());
    auto* mostra = Figlio<QAction>(&f, "mnuShowHints");
    QVERIFY(mostra->isChecked());

    // End of start-up: the first tip; the box ticked stops the tips, and the menu follows.
    QString visto;
    QuandoAperta(QStringLiteral("frmHints"), [&](QWidget* w) {
        visto = Figlio<QTextBrowser>(w, "txtHint")->toPlainText();
        QTest::mouseClick(Figlio<QCheckBox>(w, "ckDontShowAgain"), Qt::LeftButton);
        Clic(w, "cmdClose");
    });
    f.SuggerimentiAllAvvio();
    QCOMPARE(visto, QStringLiteral("Uno"));
    QCOMPARE(amb->imp.Leggi("Settings", "HintLast"), std::string("1"));
    QVERIFY(!mostra->isChecked());
    // Off: no window at the next start.
    bool aperta = false;
    {
        // Closes a window that should not have opened; gone with the scope when none did.
        QTimer guardia;
        guardia.setSingleShot(true);
        guardia.setInterval(50);
        connect(&guardia, &QTimer::timeout, [&aperta] {
            if (QWidget* w = QApplication::activeModalWidget()) {
                aperta = true;
                w->close();
            }
        });
        guardia.start();
        f.SuggerimentiAllAvvio();
    }
    QVERIFY(!aperta);
    // The menu entry turns them on again.
    mostra->trigger();
    QVERIFY(mostra->isChecked());
    QCOMPARE(amb->imp.Leggi("Settings", "HintsShow"), std::string("true"));
    QuandoAperta(QStringLiteral("frmHints"), [&](QWidget* w) {
        visto = Figlio<QTextBrowser>(w, "txtHint")->toPlainText();
        Clic(w, "cmdClose");
    });
    f.SuggerimentiAllAvvio();
    QCOMPARE(visto, QStringLiteral("Due"));

    // The distributor's lines in the about window.
    QString editore;
    QuandoAperta(QStringLiteral("frmSplash"), [&](QWidget* w) {
        editore = Figlio<QLabel>(w, "lblEditore")->text();
        QTest::keyClick(w, Qt::Key_Escape);
    });
    f.AboutMnu();
    QVERIFY2(
        editore.contains(QStringLiteral("TermoGas S.r.l.")) && editore.contains(QStringLiteral("www.termogas.example")),
        qPrintable(editore));
    // The splash of a copy without SWCOMPANY.CFG shows the built-in block.
    frmSplash s(false);
    QVERIFY(
        Figlio<QLabel>(&s, "lblEditore")->text().contains(QString::fromStdString(BloccoEditorePredefinito().Riga2)));
}

QTEST_MAIN(TestFinestreServizio)
#include "test_finestre_servizio.moc"
