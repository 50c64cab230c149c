// The archive editors driven as a user drives them: "Gestione GAS" from the main frame and
// from the project parameters, "Gestione tubazioni" with its grid and the text box over the
// cell; after each, the lists of the frame and of the document window follow the archive.
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "app/frmMainForm.h"
#include "archives/Gas.h"
#include "archives/Materiali.h"
#include "archives/ui/GestMateriali.h"
#include "archives/ui/Parametri.h"
#include "archives/ui/frmGas.h"
#include "core/Numeri.h"
#include "editing/ui/GasGrid.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;

namespace {

template <typename T>
T* Figlio(QWidget* w, const char* nome) {
    T* x = w->findChild<T*>(QString::fromLatin1(nome));
    if (x == nullptr) qFatal("manca %s", nome);
    return x;
}

// Runs `azione` on the first modal window of class T as soon as it is shown (nested modal
// windows included); gives up after about two seconds.
template <typename T>
void QuandoAperto(std::function<void(T*)> azione) {
    auto tentativo = std::make_shared<std::function<void(int)>>();
    std::weak_ptr<std::function<void(int)>> debole = tentativo;
    *tentativo = [azione, debole](int resto) {
        if (auto* w = qobject_cast<T*>(QApplication::activeModalWidget())) {
            azione(w);
            return;
        }
        auto f = debole.lock();
        if (f && resto > 0) QTimer::singleShot(5, [f, resto] { (*f)(resto - 1); });
    };
    QTimer::singleShot(0, [tentativo] { (*tentativo)(400); });
}

void Scrivi(QLineEdit* e, const QString& testo) {
    e->setFocus();
    e->selectAll();
    QTest::keyClick(e, Qt::Key_Backspace);
    QTest::keyClicks(e, testo);
}

void Scegli(QComboBox* c, const QString& testo) {
    const int i = c->findText(testo);
    QVERIFY2(i >= 0, qPrintable(testo));
    c->setCurrentIndex(i);
    emit c->activated(i);
}

QStringList Voci(QComboBox* c) {
    QStringList v;
    for (int i = 0; i < c->count(); ++i) v << c->itemText(i);
    return v;
}

// Typing on the grid: the first key opens the box over the cell, the others go into it.
void Digita(QTableWidget* g, QLineEdit* box, const QString& testo) {
    QTest::keyClicks(g, testo.left(1));
    if (testo.size() > 1) QTest::keyClicks(box, testo.mid(1));
}

QString Cella(QTableWidget* g, int r, int c) {
    const QTableWidgetItem* it = g->item(r - 1, c - 1);
    return it ? it->text() : QString();
}

}  // namespace

class TestEditoriArchivi : public QObject {
    Q_OBJECT

private slots:
    void gasSalvaSoloSeValido();
    void gasNuovoECancellazione();
    void gasDalMenuAggiornaProgettoELista();
    void gasDaiParametri();
    void tubazioniGrigliaESpessore();
    void tubazioniNuovaCancellaEListaDellaGriglia();
};

void TestEditoriArchivi::gasSalvaSoloSeValido() {
    auto amb = prova::NuovoAmbiente();
    const std::string gasCfg = amb->cartella.LeggiByte("GAS.CFG");
    frmGas f(amb->a, amb->d, amb->msg);
    f.show();
    // Opened on the project's gas, with its derived values.
    QCOMPARE(Figlio<QComboBox>(&f, "Combo1")->currentText(), QString::fromStdString(amb->d.GasCorrente.Nome));
    QCOMPARE(Figlio<QLineEdit>(&f, "txtViscosita")->text(), QStringLiteral("15.74"));
    QVERIFY(Figlio<QLineEdit>(&f, "txtFamiglia")->text().startsWith(QStringLiteral("2° Famiglia")));
    QVERIFY(Figlio<QLineEdit>(&f, "txtMassa")->isReadOnly());
    QCOMPARE(Figlio<QLabel>(&f, "pnlCombustibile")->text(), QStringLiteral("Gas combustibile"));

    // Letters don't go into a number box.
    auto* densita = Figlio<QLineEdit>(&f, "txtDensita");
    Scrivi(densita, QStringLiteral("0x"));
    QCOMPARE(densita->text(), QStringLiteral("0"));
    Figlio<QPushButton>(&f, "cmdSaveIt")->click();
    QCOMPARE(amb->msg.Testi(), std::vector<std::string>{"Impossibile salvare il gas. Dati incompleti"});
    QCOMPARE(amb->cartella.LeggiByte("GAS.CFG"), gasCfg);
    QCOMPARE(amb->a.Gas[1].Densita, 0.5547f);

    // Another gas with the change pending: Cancel stays, and so does Yes with the save refused.
    auto* combo = Figlio<QComboBox>(&f, "Combo1");
    amb->msg.mostrati.clear();
    amb->msg.risposte = {Risposta::CANCEL};
    Scegli(combo, QStringLiteral("BUTANO"));
    QCOMPARE(combo->currentIndex(), 0);
    QCOMPARE(densita->text(), QStringLiteral("0"));
    QCOMPARE(amb->msg.mostrati.back().testo, std::string("Salvare le modifiche?"));
    QCOMPARE(amb->msg.mostrati.back().flags, 35);

    // "Ricalcola" shows the derived values of the boxes; a comma is a decimal point.
    Scrivi(densita, QStringLiteral("0,6"));
    Figlio<QPushButton>(&f, "cmdRecalculate")->click();
    QCOMPARE(Figlio<QLineEdit>(&f, "txtMassa")->text(), QString::fromStdString(TestoGenerale(0.6f * 1.22566, 5)));
    QCOMPARE(amb->a.Gas[1].Densita, 0.5547f);  // not saved yet

    // A gas that doesn't burn saves without calorific values.
    amb->msg.mostrati.clear();
    Scegli(combo, QStringLiteral("ARIA"));  // Yes: the METANO change is saved first
    QCOMPARE(amb->a.Gas[1].Densita, 0.6f);
    QCOMPARE(Figlio<QLabel>(&f, "pnlCombustibile")->text(), QStringLiteral("Gas NON combustibile"));
    QVERIFY(Figlio<QCheckBox>(&f, "chkGasCombustibile")->isChecked());
    Scrivi(Figlio<QLineEdit>(&f, "txtPCinf"), QString());
    Figlio<QPushButton>(&f, "cmdSaveIt")->click();
    QVERIFY(amb->msg.mostrati.size() == 1);  // only the question about METANO
    QVERIFY(f.Salvati().count("ARIA") == 1);
    QVERIFY(f.Salvati().count("METANO") == 1);

    // Unchecking the box is a change too: leaving asks.
    Figlio<QCheckBox>(&f, "chkGasCombustibile")->click();
    QCOMPARE(Figlio<QLabel>(&f, "pnlCombustibile")->text(), QStringLiteral("Gas combustibile"));
    amb->msg.risposte = {Risposta::CANCEL};
    Figlio<QPushButton>(&f, "cmdExit")->click();
    QVERIFY(f.isVisible());
    amb->msg.risposte = {Risposta::NO};
    Figlio<QPushButton>(&f, "cmdExit")->click();
    QVERIFY(!f.isVisible());
    QVERIFY(amb->a.Gas[static_cast<size_t>(CercaGas(amb->a, "ARIA"))].NonCombustibile != 0);
}

void TestEditoriArchivi::gasNuovoECancellazione() {
    auto amb = prova::NuovoAmbiente();
    const std::string gasCfg = amb->cartella.LeggiByte("GAS.CFG");
    frmGas f(amb->a, amb->d, amb->msg);
    f.show();
    auto* combo = Figlio<QComboBox>(&f, "Combo1");
    const int prima = combo->count();

    // The gas of the project can't go.
    Figlio<QPushButton>(&f, "cmdCancel")->click();
    QCOMPARE(amb->msg.Testi(), std::vector<std::string>{"Non è possibile cancellare il gas correntemente in uso"});
    QCOMPARE(amb->cartella.LeggiByte("GAS.CFG"), gasCfg);

    // A new gas: asked for its name, added, shown empty; saved once complete.
    QString domanda;
    f.ChiediTesto = [&domanda](const QString&, const QString& d) {
        domanda = d;
        return QStringLiteral("G25");
    };
    Figlio<QPushButton>(&f, "cmdNew")->click();
    QCOMPARE(domanda, QStringLiteral("Nome del gas"));
    QCOMPARE(combo->count(), prima + 1);
    QCOMPARE(combo->currentText(), QStringLiteral("G25"));
    QCOMPARE(Figlio<QLineEdit>(&f, "txtDensita")->text(), QStringLiteral("0"));
    Scrivi(Figlio<QLineEdit>(&f, "txtDensita"), QStringLiteral("0.612"));
    Scrivi(Figlio<QLineEdit>(&f, "txtViscosita"), QStringLiteral("15.2"));
    Scrivi(Figlio<QLineEdit>(&f, "txtPCinf"), QStringLiteral("29.25"));
    Scrivi(Figlio<QLineEdit>(&f, "txtPCsup"), QStringLiteral("32.49"));
    Figlio<QPushButton>(&f, "cmdSaveIt")->click();
    QVERIFY(amb->cartella.LeggiByte("GAS.CFG").find("G25\t 0.612 \t 1.52e-05 \t 29.25 \t 32.49 \t 0 \r\n") !=
            std::string::npos);
    QVERIFY(Figlio<QLineEdit>(&f, "txtFamiglia")->text().startsWith(QStringLiteral("2° Famiglia")));

    // Deleted after a Yes: gone from the file, the table and the list.
    amb->msg.mostrati.clear();
    Figlio<QPushButton>(&f, "cmdCancel")->click();
    QCOMPARE(amb->msg.Testi(), std::vector<std::string>{"Confermi la cancellazione del gas : \rG25"});
    QCOMPARE(combo->count(), prima);
    QCOMPARE(combo->findText(QStringLiteral("G25")), -1);
    QVERIFY(amb->cartella.LeggiByte("GAS.CFG").find("G25") == std::string::npos);

    // A new gas left unsaved doesn't outlive the window.
    f.ChiediTesto = [](const QString&, const QString&) { return QStringLiteral("PROVVISORIO"); };
    Figlio<QPushButton>(&f, "cmdNew")->click();
    QCOMPARE(amb->a.NumGas(), prima + 1);
    f.reject();
    QCOMPARE(amb->a.NumGas(), prima);
}

void TestEditoriArchivi::gasDalMenuAggiornaProgettoELista() {
    auto amb = prova::NuovoAmbiente();
    frmMainForm f(amb->s, amb->msg);
    f.show();
    QVERIFY(f.ApriPercorso(QString::fromStdString(prova::AmbienteUi::Esempio("appartamento.RTG"))));
    amb->d.DpMax = 90;
    amb->d.ReteModificata = FALSO;
    const std::string gas = amb->d.GasCorrente.Nome;
    const float pci = amb->d.GasCorrente.Pci;
    auto* comboGas = Figlio<QComboBox>(&f, "ComboGas");
    const int voci = comboGas->count();

    QuandoAperto<frmGas>([](frmGas* w) {
        QCOMPARE(w->windowTitle(), QStringLiteral("Gestione GAS"));
        Scrivi(Figlio<QLineEdit>(w, "txtPCinf"), QStringLiteral("30"));
        Figlio<QPushButton>(w, "cmdSaveIt")->click();
        w->ChiediTesto = [](const QString&, const QString&) { return QStringLiteral("BIOMETANO"); };
        Figlio<QPushButton>(w, "cmdNew")->click();
        Scrivi(Figlio<QLineEdit>(w, "txtDensita"), QStringLiteral("0.56"));
        Scrivi(Figlio<QLineEdit>(w, "txtViscosita"), QStringLiteral("15.6"));
        Scrivi(Figlio<QLineEdit>(w, "txtPCinf"), QStringLiteral("34"));
        Scrivi(Figlio<QLineEdit>(w, "txtPCsup"), QStringLiteral("37.7"));
        Figlio<QPushButton>(w, "cmdExit")->click();  // Yes: saved on the way out
    });
    f.findChild<QAction*>(QStringLiteral("mnuGas"))->trigger();
    // The project's gas follows its record, the limit goes back to automatic, the network is
    // recalculated and marked modified; the frame's list shows the new gas.
    QCOMPARE(amb->d.GasCorrente.Nome, gas);
    QCOMPARE(amb->d.GasCorrente.Pci, 30.0f);
    QVERIFY(pci != 30.0f);
    QCOMPARE(amb->d.DpMax, 0.0);
    QCOMPARE(amb->d.ReteModificata, VERO);
    QCOMPARE(comboGas->count(), voci + 1);
    QVERIFY(comboGas->findText(QStringLiteral("BIOMETANO")) >= 0);
    QCOMPARE(comboGas->currentText(), QString::fromStdString(gas));
    QCOMPARE(amb->msg.Testi(), std::vector<std::string>{"Salvare le modifiche?"});
}

void TestEditoriArchivi::gasDaiParametri() {
    auto amb = prova::NuovoAmbiente();
    frmMainForm f(amb->s, amb->msg);
    f.show();
    QVERIFY(f.ApriPercorso(QString::fromStdString(prova::AmbienteUi::Esempio("appartamento.RTG"))));
    bool listaAggiornata = false;
    QuandoAperto<Parametri>([&listaAggiornata](Parametri* p) {
        auto* combo = Figlio<QComboBox>(p, "Combo1");
        Scegli(combo, QStringLiteral("BUTANO"));
        QuandoAperto<frmGas>([](frmGas* g) {
            g->ChiediTesto = [](const QString&, const QString&) { return QStringLiteral("PROPANO COMM"); };
            Figlio<QPushButton>(g, "cmdNew")->click();
            Scrivi(Figlio<QLineEdit>(g, "txtDensita"), QStringLiteral("1.55"));
            Scrivi(Figlio<QLineEdit>(g, "txtViscosita"), QStringLiteral("4.1"));
            Scrivi(Figlio<QLineEdit>(g, "txtPCinf"), QStringLiteral("93"));
            Scrivi(Figlio<QLineEdit>(g, "txtPCsup"), QStringLiteral("101"));
            Figlio<QPushButton>(g, "cmdSaveIt")->click();
            Figlio<QPushButton>(g, "cmdExit")->click();
        });
        Figlio<QPushButton>(p, "Command4")->click();
        // Back in the parameters: the list holds the new gas and shows the gas it showed.
        listaAggiornata =
            combo->findText(QStringLiteral("PROPANO COMM")) >= 0 && combo->currentText() == QStringLiteral("BUTANO");
        Figlio<QPushButton>(p, "Command2")->click();
    });
    f.findChild<QAction*>(QStringLiteral("ParametriMnu"))->trigger();
    QVERIFY(listaAggiornata);
    QVERIFY(Figlio<QComboBox>(&f, "ComboGas")->findText(QStringLiteral("PROPANO COMM")) >= 0);
    QVERIFY(amb->cartella.LeggiByte("GAS.CFG").find("PROPANO COMM\t") != std::string::npos);
}

void TestEditoriArchivi::tubazioniGrigliaESpessore() {
    auto amb = prova::NuovoAmbiente();
    const int m = IndiceMateriale(amb->a, "RAME-B");
    QVERIFY(m > 0);
    GestMateriali f(amb->a, amb->msg);
    f.show();
    Scegli(Figlio<QComboBox>(&f, "cmbMateriali"), QStringLiteral("RAME-B"));
    const MaterialeTubo& mat = amb->a.Materiali[static_cast<size_t>(m)];
    auto* grid = Figlio<QTableWidget>(&f, "Grid");
    QCOMPARE(grid->rowCount(), mat.NumRighe() + 1);
    QVERIFY(Figlio<QRadioButton>(&f, "Option3D2")->isChecked());
    QCOMPARE(Cella(grid, 1, 1), QString::fromStdString(mat.Righe[1].DN));
    QCOMPARE(Cella(grid, 1, 5), QString::fromStdString(FormattaNumero(mat.Righe[1].PesoMetro, "###0.00")));
    QCOMPARE(grid->model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Diam. ext\nmm"));

    // Typing on the empty last row opens the box over the cell; Enter stores and moves on.
    const int nuova = grid->rowCount();
    grid->setCurrentCell(nuova - 1, 0);
    grid->setFocus();
    auto* txt = Figlio<QLineEdit>(&f, "txtEdit");
    QTest::keyClicks(grid, QStringLiteral("4"));
    QVERIFY(txt->isVisible());
    QTest::keyClicks(txt, QStringLiteral("2x1"));
    QTest::keyClick(txt, Qt::Key_Return);
    QVERIFY(!txt->isVisible());
    QCOMPARE(Cella(grid, nuova, 1), QStringLiteral("42x1"));
    QCOMPARE(grid->rowCount(), nuova + 1);
    QCOMPARE(grid->currentColumn(), 1);
    Digita(grid, txt, QStringLiteral("42"));
    QTest::keyClick(txt, Qt::Key_Return);
    // A wall of half the diameter is refused and its cell emptied.
    Digita(grid, txt, QStringLiteral("21"));
    QTest::keyClick(txt, Qt::Key_Return);
    QCOMPARE(amb->msg.Testi(), std::vector<std::string>{"Spessore non compatibile"});
    QCOMPARE(Cella(grid, nuova, 3), QString());
    grid->setCurrentCell(nuova - 1, 2);
    QTest::keyClicks(grid, QStringLiteral("1"));
    QTest::keyClick(txt, Qt::Key_Return);
    QCOMPARE(Cella(grid, nuova, 4), QStringLiteral("40"));
    // Esc leaves the cell as it was; the computed columns can't be typed.
    grid->setCurrentCell(nuova - 1, 1);
    Digita(grid, txt, QStringLiteral("99"));
    QTest::keyClick(txt, Qt::Key_Escape);
    QCOMPARE(Cella(grid, nuova, 2), QStringLiteral("42"));
    grid->setCurrentCell(nuova - 1, 3);
    QTest::keyClicks(grid, QStringLiteral("5"));
    QVERIFY(!txt->isVisible());

    // Nothing reaches the archive before "Salva".
    QCOMPARE(IndiceRiga(amb->a, m, "42x1"), 0);
    bool avvisato = false;
    connect(&f, &GestMateriali::materialeSalvato, [&avvisato] { avvisato = true; });
    Figlio<QPushButton>(&f, "CmdSalva")->click();
    QVERIFY(avvisato);
    const int r = IndiceRiga(amb->a, m, "42x1");
    QVERIFY(r > 0);
    QCOMPARE(amb->a.Materiali[static_cast<size_t>(m)].Righe[static_cast<size_t>(r)].DiamInterno, 40.0f);
    QVERIFY(amb->cartella.LeggiByte("RAME-B.MAT").find("42x1\t 1 \t 40 \t\r\n") != std::string::npos);
}

void TestEditoriArchivi::tubazioniNuovaCancellaEListaDellaGriglia() {
    auto amb = prova::NuovoAmbiente();
    frmMainForm f(amb->s, amb->msg);
    f.show();
    QVERIFY(f.ApriPercorso(QString::fromStdString(prova::AmbienteUi::Esempio("appartamento.RTG"))));
    auto* listaGriglia = Figlio<QComboBox>(f.Griglia(), "Combo1");
    const QStringList prima = Voci(listaGriglia);

    QuandoAperto<GestMateriali>([](GestMateriali* w) {
        QCOMPARE(w->windowTitle(), QStringLiteral("Gestione tubazioni"));
        // Nine characters, answered Yes: cut to eight.
        QString titolo;
        w->ChiediTesto = [&titolo](const QString& t, const QString&) {
            titolo = t;
            return QStringLiteral("multistra");
        };
        Figlio<QPushButton>(w, "CmdNuovo")->click();
        QCOMPARE(titolo, QStringLiteral("Nuovo Materiale"));
        auto* combo = Figlio<QComboBox>(w, "cmbMateriali");
        QCOMPARE(combo->currentText(), QStringLiteral("MULTISTR"));
        auto* grid = Figlio<QTableWidget>(w, "Grid");
        QCOMPARE(grid->rowCount(), 1);
        QCOMPARE(grid->currentRow(), 0);
        QCOMPARE(grid->currentColumn(), 0);
        Figlio<QRadioButton>(w, "Option3D3")->click();
        Scrivi(Figlio<QLineEdit>(w, "Text1"), QStringLiteral("1750"));
        Scrivi(Figlio<QLineEdit>(w, "Text2"), QStringLiteral("Multistrato PE-Al-PE"));
        auto* txt = Figlio<QLineEdit>(w, "txtEdit");
        Digita(grid, txt, QStringLiteral("16x2"));
        QTest::keyClick(txt, Qt::Key_Return);
        Digita(grid, txt, QStringLiteral("16"));
        QTest::keyClick(txt, Qt::Key_Return);
        QTest::keyClicks(grid, QStringLiteral("2"));
        QTest::keyClick(txt, Qt::Key_Return);
        // Another material with all this pending: the question, Yes saves.
        Scegli(combo, QStringLiteral("RAME-B"));
        QCOMPARE(combo->currentText(), QStringLiteral("RAME-B"));
        // Deleted: the file goes, the material stays offered until the next start.
        Figlio<QPushButton>(w, "cmdCancella")->click();
        QCOMPARE(combo->findText(QStringLiteral("RAME-B")) >= 0, true);
        Figlio<QPushButton>(w, "CmdEsci")->click();
    });
    f.findChild<QAction*>(QStringLiteral("MaterialiMnu"))->trigger();
    QCOMPARE(amb->msg.Testi(),
             (std::vector<std::string>{
                 "Il nome del tipo di tubazione e' piu' lungo di 8 caratteri.Ignoro i caratteri eccedenti?",
                 "Salvare le modifiche?", "Confermi cancellazione  dall'archivio",
                 "L'archivio e' stato cancellato!Solo al prossimo riavvio del programma non sara' piu' presente"}));
    const std::string testo = amb->cartella.LeggiByte("MULTISTR.mat");
    QVERIFY(testo.find("\r\n 3 \r\n") != std::string::npos);
    QVERIFY(testo.find("Multistrato PE-Al-PE\r\n") != std::string::npos);
    QVERIFY(testo.find("16x2\t 2 \t 12 \t\r\n") != std::string::npos);
    QVERIFY(!std::filesystem::exists(amb->cartella.Percorso("RAME-B.MAT")));
    // The document window's list of materials follows the archive.
    QCOMPARE(Voci(listaGriglia), prima + QStringList{QStringLiteral("MULTISTR")});
    QVERIFY(IndiceMateriale(amb->a, "RAME-B") > 0);
}

QTEST_MAIN(TestEditoriArchivi)
#include "test_editori.moc"
