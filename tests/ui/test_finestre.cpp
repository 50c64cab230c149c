// The project dialogs: parameters (the norm edition reloads the limits and the network is
// recalculated), defaults with the firm's lines, substitutions of unknown names, fittings of
// pressure networks, limits, deletion choice, message boxes.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "app/FinestraDocumento.h"
#include "app/frmMainForm.h"
#include "archives/Pdc.h"
#include "archives/Speciali.h"
#include "archives/ui/Parametri.h"
#include "archives/ui/frmDefaultValue.h"
#include "archives/ui/frmEquiv.h"
#include "archives/ui/frmPDC.h"
#include "archives/ui/frmSpeciali.h"
#include "core/Numeri.h"
#include "core/ui/MessaggiQt.h"
#include "core/ui/PaginaDocumento.h"
#include "documento/Progetto.h"
#include "editing/ui/GasGrid.h"
#include "editing/ui/ModelloTronchi.h"
#include "editing/ui/frmDelete.h"
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

float MassimaPerditaPercorso(const Documento& d) {
    float m = 0;
    for (int i = 1; i <= d.NumTronchi(); ++i) m = std::max(m, d.T(i).ID_PDC_PERCORSO);
    return m;
}

}  // namespace

class TestFinestre : public QObject {
    Q_OBJECT

private slots:
    void parametriCambiaLaNormaERicalcola();
    void parametriSecondoIlTipoDiRete();
    void valoriDiDefaultEDitta();
    void sostituzioniDiGasETubazioni();
    void lunghezzeEquivalentiDelleRetiInPressione();
    void perditeDiCaricoPredefinite();
    void sceltaDellaCancellazione();
    void messaggiConIBottoniDelProdotto();
    void laFinestraDelDocumentoAggiornaLaPaginaInVista();
};

namespace {
// A page that counts how often the window asks it to show the document.
class PaginaContata : public PaginaDocumento {
public:
    using PaginaDocumento::PaginaDocumento;
    void Aggiorna() override { ++aggiornamenti; }
    void TerminaModifica() override { ++terminate; }
    void Modifica() { emit richiestaElaborazione(); }
    int aggiornamenti = 0;
    int terminate = 0;
};
}  // namespace

void TestFinestre::laFinestraDelDocumentoAggiornaLaPaginaInVista() {
    auto amb = prova::NuovoAmbiente();
    frmMainForm f(amb->s, amb->msg);
    QVERIFY(f.ApriPercorso(QString::fromStdString(prova::AmbienteUi::Esempio("appartamento.RTG"))));
    FinestraDocumento* w = f.Finestra();
    // The leak-test record is a page of the window from the start.
    const int schede = w->Schede()->count();
    QCOMPARE(w->Schede()->tabText(schede - 1), QStringLiteral("Verifica tenuta"));
    auto* pagina = new PaginaContata;
    w->AggiungiPagina(pagina, QStringLiteral("Prova"));
    QCOMPARE(w->Schede()->count(), schede + 1);
    int elaborazioni = 0;
    connect(w->Griglia(), &GasGrid::elaborato, [&] { ++elaborazioni; });

    // Hidden, the page is not asked; shown, it is, after a recalculation.
    w->Elaborazione();
    QCOMPARE(pagina->aggiornamenti, 0);
    w->Schede()->setCurrentWidget(pagina);
    QCOMPARE(pagina->aggiornamenti, 1);
    QCOMPARE(elaborazioni, 2);
    // An edit on the page: the network is recalculated and the page shows it.
    pagina->Modifica();
    QCOMPARE(elaborazioni, 3);
    QCOMPARE(pagina->aggiornamenti, 2);
    // A command of the main frame commits the editor of the page in view, not the grid's.
    w->TerminaModifica();
    QCOMPARE(pagina->terminate, 1);
    // Back on the grid, the page rests.
    w->Schede()->setCurrentIndex(0);
    QCOMPARE(pagina->aggiornamenti, 2);

    // Behind another page, the grid's rows are not rewritten after every edit; they are when the
    // grid comes back in view.
    f.show();
    w->Schede()->setCurrentWidget(pagina);
    const ModelloTronchi* m = w->Griglia()->Modello();
    const int lunghezza = m->ColonnaDi(Id::ID_LEN);
    const QString prima = m->cella(1, lunghezza).testo;
    amb->d.T(1).ID_LEN = 123.5f;
    pagina->Modifica();
    QCOMPARE(m->cella(1, lunghezza).testo, prima);
    w->Schede()->setCurrentIndex(0);
    QVERIFY(m->cella(1, lunghezza).testo.startsWith(QStringLiteral("123")));
}

void TestFinestre::parametriCambiaLaNormaERicalcola() {
    auto amb = prova::NuovoAmbiente();
    // The 1992 edition of this folder allows less than the 2008 one.
    amb->cartella.Scrivi("PDCMAX_1992.CFG", " 35 \n 30 \n 40 \n 80 \n 30 \n 30 \n 80 \n");
    frmMainForm f(amb->s, amb->msg);
    f.show();
    QVERIFY(f.ApriPercorso(QString::fromStdString(prova::AmbienteUi::Esempio("appartamento.RTG"))));
    GasGrid* g = f.Griglia();
    // Automatic limit: the edition's table decides.
    auto* dpmax = Figlio<QComboBox>(g, "ComboDpMax");
    dpmax->setCurrentIndex(0);
    emit dpmax->activated(0);
    QCOMPARE(amb->d.DpMax, 0.0);
    QCOMPARE(LimitePdc(amb->d), 100.0f);
    const float prima = MassimaPerditaPercorso(amb->d);
    QVERIFY(prima > 40.0f);

    prova::QuandoModale([](QWidget* w) {
        QCOMPARE(w->windowTitle(), QStringLiteral("Parametri di progetto"));
        Figlio<QRadioButton>(w, "optNormativa0")->click();
        Figlio<QLineEdit>(w, "Text1")->setText(QStringLiteral("Villa Bianchi"));
        Figlio<QPushButton>(w, "Command1")->click();
    });
    f.findChild<QAction*>(QStringLiteral("ParametriMnu"))->trigger();
    QCOMPARE(amb->d.Normativa, 1);
    QCOMPARE(amb->d.Riferimento, std::string("Villa Bianchi"));
    QCOMPARE(amb->d.Pdc.NomeFilePdc, std::string("PDCMAX_1992.CFG"));
    QCOMPARE(LimitePdc(amb->d), 40.0f);
    QCOMPARE(amb->d.ReteModificata, VERO);
    // Recalculated at once: the sizes grew so that every path keeps within the new limit, and
    // the grid shows the new results.
    const float dopo = MassimaPerditaPercorso(amb->d);
    QVERIFY2(dopo <= 40.0f, qPrintable(QString::number(dopo)));
    QVERIFY(dopo < prima);
    const int c = g->Modello()->ColonnaDi(Id::ID_PDC_PERCORSO);
    for (int i = 1; i <= amb->d.NumTronchi(); ++i)
        QCOMPARE(g->Modello()->cella(i, c).testo,
                 QString::fromStdString(FormattaNumero(amb->d.T(i).ID_PDC_PERCORSO, "##0.0")));
    QCOMPARE(Figlio<QLabel>(g, "lblLimite")->text(), QStringLiteral("Perdita massima ammessa: 40 Pa"));

    // Cancel changes nothing.
    prova::QuandoModale([](QWidget* w) {
        Figlio<QRadioButton>(w, "optNormativa1")->click();
        Figlio<QPushButton>(w, "Command2")->click();
    });
    f.findChild<QAction*>(QStringLiteral("ParametriMnu"))->trigger();
    QCOMPARE(amb->d.Normativa, 1);
    amb->d.ReteModificata = FALSO;
}

void TestFinestre::parametriSecondoIlTipoDiRete() {
    auto amb = prova::NuovoAmbiente();
    amb->d.ReteInPressione = FALSO;
    {
        Parametri p(amb->a, amb->d, amb->msg);
        p.show();
        QVERIFY(Figlio<QGroupBox>(&p, "pnlVelocita")->isHidden());
        QVERIFY(!Figlio<QGroupBox>(&p, "lblUni")->isHidden());
        auto* gas = Figlio<QComboBox>(&p, "Combo1");
        QCOMPARE(gas->findText(QStringLiteral("ARIA")), -1);
        QCOMPARE(gas->currentText(), QStringLiteral("METANO"));
        QCOMPARE(Figlio<QLineEdit>(&p, "txtDensita")->text(), QStringLiteral("0.5547"));
        QCOMPARE(Figlio<QLineEdit>(&p, "txtViscosita")->text(), QStringLiteral("15.74"));
        QVERIFY(Figlio<QLineEdit>(&p, "txtFamiglia")->text().startsWith(QStringLiteral("2° Famiglia")));
        QCOMPARE(Figlio<QLabel>(&p, "pnlCombustibile")->text(), QStringLiteral("Gas combustibile"));
        gas->setCurrentIndex(gas->findText(QStringLiteral("BUTANO")));
        Figlio<QPushButton>(&p, "Command1")->click();
        QCOMPARE(amb->d.GasCorrente.Nome, std::string("BUTANO"));
    }
    amb->d.ReteInPressione = VERO;
    {
        Parametri p(amb->a, amb->d, amb->msg);
        p.show();
        QVERIFY(!Figlio<QGroupBox>(&p, "pnlVelocita")->isHidden());
        QVERIFY(Figlio<QGroupBox>(&p, "lblUni")->isHidden());
        auto* gas = Figlio<QComboBox>(&p, "Combo1");
        gas->setCurrentIndex(gas->findText(QStringLiteral("ARIA")));
        QCOMPARE(Figlio<QLabel>(&p, "pnlCombustibile")->text(), QStringLiteral("Gas NON combustibile"));
        auto* vel = Figlio<QLineEdit>(&p, "txtVelocita");
        vel->clear();
        QTest::keyClicks(vel, "12,5x");
        QCOMPARE(vel->text(), QStringLiteral("12,5"));
        Figlio<QPushButton>(&p, "Command1")->click();
        QCOMPARE(amb->d.VelocitaMassima, 12.5f);
        QCOMPARE(amb->d.GasCorrente.Nome, std::string("ARIA"));
    }
}

void TestFinestre::valoriDiDefaultEDitta() {
    auto amb = prova::NuovoAmbiente();
    amb->d.ReteInPressione = FALSO;
    frmDefaultValue f(amb->a, amb->d, amb->imp, amb->msg);
    f.show();
    QVERIFY(Figlio<QGroupBox>(&f, "fraPressione")->isHidden());
    auto* gas = Figlio<QComboBox>(&f, "cmbGas");
    QCOMPARE(gas->currentText(), QStringLiteral("METANO"));
    QCOMPARE(gas->findText(QStringLiteral("AZOTO")), -1);
    QCOMPARE(Figlio<QComboBox>(&f, "cmbMateriali")->currentText(), QStringLiteral("ACCIAIOM"));
    // An empty choice takes the first name of the list; an empty speed takes 15.
    gas->setCurrentIndex(0);
    Figlio<QLineEdit>(&f, "txtVelocity")->clear();
    Figlio<QComboBox>(&f, "cmbInitPres")->setEditText(QStringLiteral("250"));
    auto* riga1 = Figlio<QLineEdit>(&f, "txtDittaRiga1");
    QTest::keyClicks(riga1, QStringLiteral("Studio Termotecnico Rossi & Associati di Milano e Monza srl"));
    QCOMPARE(riga1->text().size(), 50);
    Figlio<QLineEdit>(&f, "txtDittaRiga2")->setText(QStringLiteral("Via Roma 1, Milano"));
    Figlio<QPushButton>(&f, "cmdOK")->click();
    QCOMPARE(amb->a.Default.DefaultGas, std::string("METANO"));
    QCOMPARE(gas->currentIndex(), 1);
    QCOMPARE(amb->a.Default.DefaultVelocita, std::string("15"));
    QCOMPARE(amb->a.Default.DefaultPressioneIniziale, std::string("250"));
    QCOMPARE(amb->imp.Leggi("Ditta", "Riga1"), std::string("Studio Termotecnico Rossi & Associati di Milano e "));
    QCOMPARE(amb->imp.Leggi("Ditta", "Riga2"), std::string("Via Roma 1, Milano"));
    const std::string file = amb->cartella.LeggiByte("defaultValue.ini");
    QVERIFY(file.find("!DEFAULTINITPRESSURE\r\n250\r\n~DEFAULTINITPRESSURE") != std::string::npos);

    // A pressure network shows its frame, with the defaults read back from the file.
    amb->d.ReteInPressione = VERO;
    frmDefaultValue p(amb->a, amb->d, amb->imp, amb->msg);
    p.show();
    QVERIFY(!Figlio<QGroupBox>(&p, "fraPressione")->isHidden());
    QCOMPARE(Figlio<QComboBox>(&p, "cmbInitPres")->currentText(), QStringLiteral("250"));
    QCOMPARE(Figlio<QComboBox>(&p, "cmbFinalPres")->currentText(), QStringLiteral("150"));
    QVERIFY(Figlio<QComboBox>(&p, "cmbGas")->findText(QStringLiteral("AZOTO")) > 0);
    QCOMPARE(Figlio<QLineEdit>(&p, "txtDittaRiga2")->text(), QStringLiteral("Via Roma 1, Milano"));
}

void TestFinestre::sostituzioniDiGasETubazioni() {
    auto amb = prova::NuovoAmbiente();
    // A project naming a gas and a material that this archive lacks.
    std::string testo = prova::CartellaProva::LeggiFile(prova::AmbienteUi::Esempio("appartamento.RTG"));
    testo.replace(testo.find("\r\nMETANO\r\n"), 10, "\r\nGAS IGNOTO\r\n");
    for (size_t p = testo.find("RAME-B"); p != std::string::npos; p = testo.find("RAME-B", p))
        testo.replace(p, 6, "RAME-Z");
    amb->cartella.ScriviByte("ignoto.RTG", testo);

    MessaggiQt msg;
    UsaDialogoSostituzioni(msg);
    std::vector<QString> avvisi;
    std::vector<QString> liste;
    int tentativiMateriale = 0;
    // Each dialog is answered once, by a queued click: a dialog may open another one from its
    // button, and the timer must be free to answer that one too.
    std::vector<QWidget*> risposti;
    QTimer risponditore;
    risponditore.setInterval(10);
    QObject::connect(&risponditore, &QTimer::timeout, [&] {
        QWidget* w = QApplication::activeModalWidget();
        if (w == nullptr || !w->isVisible()) return;
        if (std::find(risposti.begin(), risposti.end(), w) != risposti.end()) return;
        risposti.push_back(w);
        if (auto* box = qobject_cast<QMessageBox*>(w)) {
            avvisi.push_back(box->text());
            QMetaObject::invokeMethod(box->buttons().first(), "click", Qt::QueuedConnection);
            return;
        }
        if (w->objectName() != QStringLiteral("frmEquiv")) return;
        const QString nome = Figlio<QLabel>(w, "SSPanel1")->text();
        auto* lista = Figlio<QListWidget>(w, "List1");
        liste.push_back(nome + QStringLiteral(": ") + QString::number(lista->count()));
        if (nome == QStringLiteral("GAS IGNOTO")) {
            lista->setCurrentRow(1);
        } else if (tentativiMateriale++ == 0) {
            // Nothing selected: the product's message, and the dialog stays for a second answer.
            risposti.pop_back();
            QMetaObject::invokeMethod(Figlio<QPushButton>(w, "Command1"), "click", Qt::QueuedConnection);
            return;
        } else {
            lista->setCurrentRow(0);
        }
        QMetaObject::invokeMethod(Figlio<QPushButton>(w, "Command1"), "click", Qt::QueuedConnection);
    });
    risponditore.start();
    AvanzamentoNullo av;
    QVERIFY(ApriProgetto(amb->s, amb->cartella.Percorso("ignoto.RTG"), msg, av));
    risponditore.stop();

    // The gas list is offered for the gas, the material list for the material, once each.
    QCOMPARE(amb->d.GasCorrente.Nome, amb->a.Gas[2].Nome);
    QCOMPARE(amb->d.T(2).ID_MATERIALE, amb->a.Materiali[1].Nome);
    QCOMPARE(amb->d.T(3).ID_MATERIALE, amb->a.Materiali[1].Nome);
    QCOMPARE(liste.front(), QStringLiteral("GAS IGNOTO: %1").arg(amb->a.NumGas()));
    QCOMPARE(liste.back(), QStringLiteral("RAME-Z: %1").arg(amb->a.NumMateriali()));
    QCOMPARE(liste.size(), size_t(3));  // the gas once, the material twice (the first try empty)
    QVERIFY(std::find(avvisi.begin(), avvisi.end(), QStringLiteral("E' necessario selezionare una sostituzione")) !=
            avvisi.end());
    QVERIFY(avvisi.front().startsWith(QStringLiteral("Attenzione! Il gas GAS IGNOTO")));
}

void TestFinestre::lunghezzeEquivalentiDelleRetiInPressione() {
    auto amb = prova::NuovoAmbiente();
    amb->d.ReteInPressione = FALSO;
    CaricaSpecialiInterni(amb->d.Speciali);
    const float interna = amb->d.Speciali[1].Lunghezza[1][1];
    frmSpeciali f(amb->a, amb->msg);
    f.show();
    // The dialog shows the file's table, not the built-in one in force.
    QCOMPARE(Figlio<QLineEdit>(&f, "txtDesc1")->text(), QStringLiteral("CURVA"));
    QCOMPARE(Figlio<QLineEdit>(&f, "txtRange1_1")->text(), QStringLiteral("0.7"));
    Figlio<QLineEdit>(&f, "txtRange1_1")->setText(QStringLiteral("0,9"));
    Figlio<QLineEdit>(&f, "txtDesc10")->clear();
    Figlio<QPushButton>(&f, "cmdOK")->click();
    QVERIFY(f.Salvato());
    QCOMPARE(amb->d.Speciali[1].Lunghezza[1][1], interna);
    TabellaSpeciali riletti{};
    QVERIFY(CaricaSpecialiPressione(riletti, amb->cartella.Percorso(), amb->msg));
    QCOMPARE(riletti[1].Lunghezza[1][1], 0.9f);
    QCOMPARE(riletti[10].Nome, std::string("-"));
    QCOMPARE(f.Tabella()[1].Lunghezza[1][1], 0.9f);
}

void TestFinestre::perditeDiCaricoPredefinite() {
    auto amb = prova::NuovoAmbiente();
    frmPDC f(amb->a, amb->d, amb->msg);
    f.show();
    f.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&f));
    QCOMPARE(f.windowTitle(), QStringLiteral("Perdite di carico massime predefinite - UNI7129 (2008)"));
    auto* soglia = Figlio<QLineEdit>(&f, "txtPotenza");
    soglia->setFocus();
    soglia->selectAll();
    QTest::keyClicks(soglia, "40");
    QTest::keyClick(soglia, Qt::Key_Tab);
    QCOMPARE(Figlio<QLineEdit>(&f, "txtPotenzaBis")->text(), QStringLiteral("40"));
    Figlio<QLineEdit>(&f, "txtPotenza1_2")->setText(QStringLiteral("0"));
    Figlio<QLineEdit>(&f, "txtPotenza2_3")->setText(QStringLiteral("150,5"));
    Figlio<QPushButton>(&f, "cmdOK")->click();
    QCOMPARE(f.Tabella().SogliaPotenza, 40.0f);
    // A value of 0 takes the default back.
    QCOMPARE(f.Tabella().PdcMax[1][2], 100.0f);
    QCOMPARE(f.Tabella().PdcMax[2][3], 150.5f);
    const std::string file = amb->cartella.LeggiByte("PDCMAX_2008.CFG");
    QVERIFY(file.rfind(" 40 \r\n", 0) == 0);
    QVERIFY(file.find(" 150.5 ") != std::string::npos);
}

void TestFinestre::sceltaDellaCancellazione() {
    frmDelete f;
    f.HideUnlink();
    QVERIFY(!Figlio<QPushButton>(&f, "cmdScollega")->isEnabled());
    f.ShowUnlink();
    QVERIFY(Figlio<QPushButton>(&f, "cmdScollega")->isEnabled());
    QCOMPARE(Figlio<QLabel>(&f, "Label2")->text(), QStringLiteral("Elimina e compatta  tronchi"));
    Figlio<QPushButton>(&f, "cmdElimina")->click();
    QVERIFY(f.Fatto);
    QCOMPARE(f.TipoCancellazione, 2);
    frmDelete g;
    Figlio<QPushButton>(&g, "cmdAnnulla")->click();
    QVERIFY(!g.Fatto);
}

void TestFinestre::messaggiConIBottoniDelProdotto() {
    MessaggiQt msg;
    QString titolo;
    QStringList bottoni;
    prova::QuandoModale([&](QWidget* w) {
        auto* box = qobject_cast<QMessageBox*>(w);
        titolo = box->windowTitle();
        for (QAbstractButton* b : box->buttons()) bottoni << b->text();
        for (QAbstractButton* b : box->buttons())
            if (b->text() == QStringLiteral("No")) b->click();
    });
    QCOMPARE(msg.Mostra("Salvare il progetto aperto", Box::YESNOCANCEL | Box::QUESTION), Risposta::NO);
    QCOMPARE(titolo, QStringLiteral("Fornax"));
    bottoni.sort();
    QCOMPARE(bottoni, (QStringList{QStringLiteral("Annulla"), QStringLiteral("No"), QStringLiteral("Sì")}));

    prova::QuandoModale([&](QWidget* w) {
        titolo = w->windowTitle();
        QTest::keyClick(w, Qt::Key_Escape);
    });
    QCOMPARE(msg.Mostra("Non è possibile scollegare il primo tronco.", Box::INFORMATION, "Attenzione"), Risposta::OK);
    QCOMPARE(titolo, QStringLiteral("Attenzione"));
}

QTEST_MAIN(TestFinestre)
#include "test_finestre.moc"
