// The section panel and the consumer dialogs driven by keys and mouse: the linked values of
// "Calcolo portata", the limits of its boxes, the spins and the save of "Parametri Tronco",
// the multiple selection from the grid, and Annulla leaving the project as it was.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <fstream>
#include <sstream>

#include "core/ui/Controlli.h"
#include "documento/Progetto.h"
#include "editing/Portata.h"
#include "editing/ui/DialoghiTronco.h"
#include "editing/ui/GasGrid.h"
#include "editing/ui/ModelloTronchi.h"
#include "editing/ui/PTronchi.h"
#include "editing/ui/frmCopySelect.h"
#include "editing/ui/frmCportata.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;

namespace {

// The project file of a document, as saved, to compare two states byte by byte.
std::string Testo(const Documento& d, const Archivi& a, const std::string& percorso) {
    Documento copia = d;
    MessaggiRegistrati msg;
    if (!ScriviProgetto(copia, a, percorso, msg)) return "(non scritto)";
    std::ifstream f(percorso, std::ios::binary);
    std::stringstream ss;
    ss << f.rdbuf();
    return ss.str();
}

}  // namespace

class TestDialoghiTronco : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<prova::AmbienteUi> amb;

    void Apri(const std::string& progetto) {
        amb = prova::NuovoAmbiente();
        AvanzamentoNullo av;
        QVERIFY(ApriProgetto(amb->s, prova::AmbienteUi::Esempio(progetto), amb->msg, av));
        amb->msg.mostrati.clear();
    }

private slots:
    void cucinaCompletaECodifica();
    void cotturaECaldaiaSullaStessaPotenza();
    void limitiDelleCaselle();
    void pannelloSpinELimiti();
    void pannelloDiametroDigitatoEInvio();
    void righeDegliSpecialiEAltezza();
    void annullaNonCambiaNulla();
    void selezioneMultiplaDallaGriglia();
    void doppioClickDallaGriglia();
};

void TestDialoghiTronco::cucinaCompletaECodifica() {
    Apri("appartamento.RTG");
    frmCportata f(amb->d);
    f.SetDati(1, 0);
    f.show();
    QCOMPARE(f.windowTitle(), QStringLiteral("Calcolo portata  -  Tronco N. 1"));
    f.ribSelect[0]->click();
    QCOMPARE(f.Tipologia, int16_t{1});
    QVERIFY(!f.pnlUtenze->isHidden());
    f.Command3->click();
    QCOMPARE(f.Watt, 21000);
    QCOMPARE(f.txtWatt->text(), QStringLiteral("21.000"));
    QCOMPARE(f.txtKcal->text(), QStringLiteral("18.060"));
    QCOMPARE(f.CodificaComposizione(), std::string("111111"));
    // Unticking the oven takes its 7000 W off.
    f.chk[5]->click();
    QCOMPARE(f.Watt, 14000);
    QCOMPARE(f.CodificaComposizione(), std::string("111110"));
    // A typed value replaces the sum of the boxes.
    f.txtWatt->setFocus();
    f.txtWatt->selectAll();
    QTest::keyClicks(f.txtWatt, "5000");
    QCOMPARE(f.CodificaComposizione(), std::string("000000"));
    QCOMPARE(f.Watt, 0);
    QTest::keyClick(f.txtWatt, Qt::Key_Return);  // Enter is OK
    QVERIFY(f.Done);
    QCOMPARE(f.Composizione, std::string("000000"));
    QCOMPARE(f.Portata, static_cast<float>(5000.0 / 1000 * 3.6 / amb->d.GasCorrente.Pcs));

    // A composition of fewer than six characters ticks nothing; a full one is decoded.
    const int terminale = 3;
    QVERIFY(amb->d.T(terminale).IsUtenza());
    frmCportata g(amb->d);
    g.DecodificaComposizione("11");
    QCOMPARE(g.CodificaComposizione(), std::string("000000"));
    g.DecodificaComposizione("100001");
    QCOMPARE(g.Watt, 8000);
    QCOMPARE(g.CodificaComposizione(), std::string("100001"));
}

void TestDialoghiTronco::cotturaECaldaiaSullaStessaPotenza() {
    Apri("appartamento.RTG");
    const GasRecord& gas = amb->d.GasCorrente;
    QVERIFY(gas.Pcs != gas.Pci);
    frmCportata f(amb->d);
    f.SetDati(2, 0);
    f.ribSelect[0]->click();
    f.txtWatt->selectAll();
    QTest::keyClicks(f.txtWatt, "10000");
    QCOMPARE(f.Portata, static_cast<float>(10000.0 / 1000 * 3.6 / gas.Pcs));
    QCOMPARE(f.txtNMC->text(), Q(TestoPortata(f.Portata)));
    // The power stays when the user gave it; the flow follows the inferior value.
    f.ribSelect[1]->click();
    QCOMPARE(f.Tipologia, int16_t{2});
    QVERIFY(f.pnlUtenze->isHidden());
    QCOMPARE(f.txtWatt->text(), QStringLiteral("10000"));
    QCOMPARE(f.Portata, static_cast<float>(10000.0 / 1000 * 3.6 / gas.Pci));

    // Untouched, the flow stays and the power follows.
    frmCportata g(amb->d);
    g.SetDati(2, 1.5f);
    QCOMPARE(g.txtNMC->text(), QStringLiteral("1,50"));
    g.ribSelect[0]->click();
    QCOMPARE(g.Portata, 1.5f);
    QCOMPARE(g.txtWatt->text(), Q(InsertTousendSeparator(1.5 * static_cast<double>(gas.Pcs) * 1000 / 3.6)));
}

void TestDialoghiTronco::limitiDelleCaselle() {
    Apri("appartamento.RTG");
    frmCportata f(amb->d);
    f.SetDati(2, 0);
    QTest::keyClicks(f.txtKcal, "9999999999");
    QCOMPARE(f.txtKcal->text(), QStringLiteral("850000000"));
    QVERIFY(f.Modificato);
    f.txtNMC->clear();
    QTest::keyClicks(f.txtNMC, "123456");
    QCOMPARE(f.txtNMC->text(), QStringLiteral("10000,00"));
    QCOMPARE(f.Portata, 10000.0f);

    frmPortata p(amb->d);
    p.SetDati(4, 2.5f);
    QCOMPARE(p.windowTitle(), QStringLiteral("Portata utenza -  Tronco N. 4"));
    QCOMPARE(p.txtNMC->text(), QStringLiteral("2,50"));
    p.txtNMC->selectAll();
    QTest::keyClicks(p.txtNMC, "20000");
    QCOMPARE(p.txtNMC->text(), QStringLiteral("10000,00"));
    QTest::keyClick(p.txtNMC, Qt::Key_Escape);
    QVERIFY(!p.Done);
}

void TestDialoghiTronco::pannelloSpinELimiti() {
    Apri("rete-media-pressione.RTG");
    const int n = amb->d.NumTronchi();
    PTronchi p(amb->s, amb->msg);
    p.SReteSync();
    p.TroncoSync(n - 1);
    p.show();
    p.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&p));
    // A keyboard user starts on the section number and goes down the panel with Tab.
    QCOMPARE(QApplication::focusWidget(), p.Text10);
    QTest::keyClick(p.Text10, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), p.txtlen);
    QTest::keyClick(p.txtlen, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), p.Text3);
    QVERIFY(!p.pnlContemp->isHidden());
    // The section spin stops at the last section.
    p.Text10->setFocus();
    QTest::keyClick(p.Text10, Qt::Key_Up);
    QTest::keyClick(p.Text10, Qt::Key_Up);
    QCOMPARE(p.Tronco(), n);
    QCOMPARE(p.Text10->text(), QString::number(n));
    p.Spin4(-100);
    QCOMPARE(p.Tronco(), 1);

    // Section 3 is a junction: its simultaneity goes 95 -> 100 in one step and stops.
    p.TroncoSync(3);
    QVERIFY(!amb->d.T(3).IsUtenza());
    QVERIFY(!p.txtContemp->isReadOnly());
    p.txtContemp->setText(QStringLiteral("95"));
    p.txtContemp->setFocus();
    QTest::keyClick(p.txtContemp, Qt::Key_Up);
    QCOMPARE(p.txtContemp->text(), QStringLiteral("100"));
    QTest::keyClick(p.txtContemp, Qt::Key_Up);
    QCOMPARE(p.txtContemp->text(), QStringLiteral("100"));
    p.txtContemp->setText(QStringLiteral("10"));
    QTest::keyClick(p.txtContemp, Qt::Key_Down);
    QCOMPARE(p.txtContemp->text(), QStringLiteral("5"));
    // Leaving the box brings it back within 10..100.
    p.txtlen->setFocus();
    QCOMPARE(p.txtContemp->text(), QStringLiteral("10"));
    // A consumer's section keeps its percentage.
    p.TroncoSync(2);
    QVERIFY(amb->d.T(2).IsUtenza());
    QVERIFY(p.txtContemp->isReadOnly());
}

void TestDialoghiTronco::pannelloDiametroDigitatoEInvio() {
    Apri("appartamento.RTG");
    const int t = 2;
    const int m = amb->d.T(t).IndiceMateriale;
    QVERIFY(amb->a.HaMateriale(m));
    const std::string dn = amb->a.Materiali[static_cast<size_t>(m)].Righe[2].DN;
    PTronchi p(amb->s, amb->msg);
    p.SReteSync();
    p.TroncoSync(t);
    p.show();
    QVERIFY(!p.SSRibbon1->isChecked());
    QCOMPARE(p.txtDiametro->text(), QStringLiteral("Auto"));
    // An internal installation: four fitting lines, no simultaneity.
    QVERIFY(p.pnlContemp->isHidden());
    p.txtDiametro->setFocus();
    p.txtDiametro->selectAll();
    QTest::keyClicks(p.txtDiametro, Q(dn));
    p.txtlen->setFocus();
    p.txtlen->selectAll();
    QTest::keyClicks(p.txtlen, "3,5");
    QTest::keyClick(p.txtlen, Qt::Key_Return);
    QVERIFY(p.Fatto());
    QCOMPARE(amb->d.T(t).ID_DIAMETRO, dn);
    QCOMPARE(amb->d.T(t).ID_DIAMCUSTOM, VERO);
    QCOMPARE(amb->d.T(t).ID_LEN, 3.5f);
    QCOMPARE(amb->d.ReteModificata, VERO);
    // One section: no question asked.
    QVERIFY(amb->msg.mostrati.empty());
}

void TestDialoghiTronco::righeDegliSpecialiEAltezza() {
    Apri("appartamento.RTG");
    PTronchi interno(amb->s, amb->msg);
    interno.SReteSync();
    interno.TroncoSync(1);
    interno.show();
    int visibili = 0;
    for (QLineEdit* e : interno.txtLocal) visibili += e->isHidden() ? 0 : 1;
    QCOMPARE(visibili, 4);
    QCOMPARE(interno.findChild<QLabel*>(QStringLiteral("lblLocal0"))->text(), QStringLiteral("Curve 90°:"));
    const int altezzaInterno = interno.height();

    auto pressione = prova::NuovoAmbiente();
    AvanzamentoNullo av;
    QVERIFY(ApriProgetto(pressione->s, prova::AmbienteUi::Esempio("rete-media-pressione.RTG"), pressione->msg, av));
    PTronchi p(pressione->s, pressione->msg);
    p.SReteSync();
    p.TroncoSync(1);
    p.show();
    visibili = 0;
    for (QLineEdit* e : p.txtLocal) visibili += e->isHidden() ? 0 : 1;
    QCOMPARE(visibili, 10);
    // The form grows with the lines it shows.
    QVERIFY(p.height() > altezzaInterno + 5 * p.txtLocal[0]->height());
    // The counts of the record are in their lines.
    // Bends, elbows, T fittings, taps, then the user's kinds.
    const int tipi[10] = {1, 3, 2, 4, 5, 6, 7, 8, 9, 10};
    for (size_t i = 0; i < 10; ++i)
        QCOMPARE(p.txtLocal[i]->text(), QString::number(pressione->d.T(1).Conteggio(tipi[i])));
}

void TestDialoghiTronco::annullaNonCambiaNulla() {
    Apri("rete-media-pressione.RTG");
    const std::string prima = Testo(amb->d, amb->a, amb->cartella.Percorso() + "/prima.RTG");
    {
        PTronchi p(amb->s, amb->msg);
        p.SReteSync();
        p.TroncoSync(3);
        p.show();
        p.txtlen->setText(QStringLiteral("999"));
        p.SSRibbon1->click();
        p.SpinButton1(-1);
        QTest::keyClick(p.txtlen, Qt::Key_Escape);
        QVERIFY(!p.Fatto());
    }
    {
        frmPortata f(amb->d);
        f.SetDati(2, amb->d.T(2).ID_P_UTENZE);
        f.txtNMC->setText(QStringLiteral("1"));
        f.Command2->click();
        QVERIFY(!f.Done);
    }
    // Annulla from the entry points too.
    prova::QuandoModale([](QWidget* w) { w->findChild<QPushButton*>(QStringLiteral("Command2"))->click(); });
    QVERIFY(!ApriDialogoUtenza(nullptr, amb->s, amb->msg, 2));
    prova::QuandoModale([](QWidget* w) { w->findChild<QPushButton*>(QStringLiteral("cmdAnnulla"))->click(); });
    QVERIFY(!ApriPTronchi(nullptr, amb->s, amb->msg, {2, 3}));
    QCOMPARE(amb->d.ReteModificata, FALSO);
    QVERIFY(Testo(amb->d, amb->a, amb->cartella.Percorso() + "/dopo.RTG") == prima);
}

void TestDialoghiTronco::selezioneMultiplaDallaGriglia() {
    Apri("rete-media-pressione.RTG");
    GasGrid g(amb->s, amb->msg);
    g.resize(1300, 600);
    g.show();
    g.NewRete();
    const int colLen = g.Modello()->ColonnaDi(Id::ID_LEN);
    std::vector<float> eqPrima;
    for (int i = 1; i <= amb->d.NumTronchi(); ++i) eqPrima.push_back(amb->d.T(i).ID_EQLENNOTA);
    const float len1 = amb->d.T(1).ID_LEN;
    // Rows 2..4 selected, the cursor on row 2.
    g.VaiA(4, colLen);
    const QModelIndex da = g.Modello()->index(1, colLen - 1);
    g.Griglia()->selectionModel()->setCurrentIndex(da, QItemSelectionModel::NoUpdate);
    g.Griglia()->selectionModel()->select(
        QItemSelection(g.Modello()->index(1, colLen - 1), g.Modello()->index(3, colLen - 1)),
        QItemSelectionModel::ClearAndSelect);
    QCOMPARE(g.Row(), 2);
    QCOMPARE(g.RowSel(), 4);
    g.Griglia()->setFocus();

    QString titolo, nota;
    bool contempAbilitata = false, kvAbilitata = true;
    prova::QuandoModale([&](QWidget* w) {
        auto* f = qobject_cast<frmCopySelect*>(w);
        QVERIFY(f);
        titolo = f->windowTitle();
        nota = f->findChild<QPlainTextEdit*>(QStringLiteral("Text1"))->toPlainText();
        contempAbilitata = f->chkGroup0[2]->isEnabled();
        kvAbilitata = f->chkGroup1[0]->isEnabled();
        f->chkGroup0[3]->click();  // "Lunghezza effettiva tubazione"
        // The master box ticks the whole enabled group; one box off clears it.
        f->chkAllGroup1->click();
        QVERIFY(f->chkGroup1[3]->isChecked());
        f->chkGroup1[3]->click();
        QVERIFY(!f->chkAllGroup1->isChecked());
        f->chkAllGroup1->click();
        f->chkAllGroup1->click();  // all of group 1 off again
        QVERIFY(!f->chkGroup1[4]->isChecked());
        prova::QuandoModale([](QWidget* w2) {
            auto* p = qobject_cast<PTronchi*>(w2);
            QVERIFY(p);
            QCOMPARE(p->Tronco(), 2);
            p->txtlen->setText(QStringLiteral("42"));
            p->Text3->setText(QStringLiteral("7"));  // not ticked: stays as it is
            QTest::keyClick(p->txtlen, Qt::Key_Return);
        });
        f->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    QTest::keyClick(g.Griglia(), Qt::Key_F11);
    QCOMPARE(titolo, QStringLiteral("Selezione copia multipla"));
    QCOMPARE(nota, QStringLiteral("E' stata eseguita una selezione multipla. I valori specificati nella finetra "
                                  "'parametri tronco' saranno applicati a TUTTI i tronchi selezionati  solo per i "
                                  "parametri abilitati in questa finestra."));
    QVERIFY(contempAbilitata);
    QVERIFY(!kvAbilitata);
    QCOMPARE(amb->msg.Testi(),
             std::vector<std::string>{"ATTENZIONE! questi valori verranno attribuiti a tutti i tronchi "
                                      "selezionati.\r\n Procedere  con l'operazione?"});
    QCOMPARE(amb->msg.mostrati[0].flags, Box::YESNO | Box::QUESTION);
    for (int i = 2; i <= 4; ++i) QCOMPARE(amb->d.T(i).ID_LEN, 42.0f);
    QCOMPARE(amb->d.T(1).ID_LEN, len1);
    for (int i = 1; i <= amb->d.NumTronchi(); ++i)
        QCOMPARE(amb->d.T(i).ID_EQLENNOTA, eqPrima[static_cast<size_t>(i - 1)]);
    QCOMPARE(amb->d.ReteModificata, VERO);
    QCOMPARE(g.Modello()->cella(3, colLen).testo.toDouble(), 42.0);
}

void TestDialoghiTronco::doppioClickDallaGriglia() {
    Apri("appartamento.RTG");
    amb->d.DpMax = 150;
    GasGrid g(amb->s, amb->msg);
    g.resize(1300, 600);
    g.show();
    g.NewRete();
    int terminale = 0;
    for (int i = 1; i <= amb->d.NumTronchi() && terminale == 0; ++i)
        if (amb->d.T(i).IsUtenza()) terminale = i;
    QVERIFY(terminale > 0);
    const int colFlusso = g.Modello()->ColonnaDi(Id::ID_P_UTENZE);
    const int colLen = g.Modello()->ColonnaDi(Id::ID_LEN);

    // A double click on a consumer's flow opens "Calcolo portata"; a cooker on OK.
    g.VaiA(terminale, colFlusso);
    QString titolo;
    prova::QuandoModale([&](QWidget* w) {
        auto* f = qobject_cast<frmCportata*>(w);
        QVERIFY(f);
        titolo = f->windowTitle();
        f->ribSelect[0]->click();
        f->Command3->click();
        f->cmdOK->click();
    });
    const QRect r = g.Griglia()->visualRect(g.Modello()->index(terminale - 1, colFlusso - 1));
    QTest::mouseDClick(g.Griglia()->viewport(), Qt::LeftButton, {}, r.center());
    QCOMPARE(titolo, QStringLiteral("Calcolo portata  -  Tronco N. %1").arg(terminale));
    QCOMPARE(amb->d.T(terminale).ID_TIPOUTENZA, int16_t{1});
    QCOMPARE(amb->d.T(terminale).ID_NOMEUTENZA, std::string("111111"));
    QCOMPARE(amb->d.T(terminale).ID_P_UTENZE, static_cast<float>(21000.0 / 1000 * 3.6 / amb->d.GasCorrente.Pcs));
    QCOMPARE(amb->d.DpMax, 0.0);

    // A double click on the length opens the section panel on that row.
    g.VaiA(1, colLen);
    int aperto = 0;
    prova::QuandoModale([&](QWidget* w) {
        auto* p = qobject_cast<PTronchi*>(w);
        QVERIFY(p);
        aperto = p->Tronco();
        QTest::keyClick(p, Qt::Key_Escape);
    });
    const QRect rl = g.Griglia()->visualRect(g.Modello()->index(0, colLen - 1));
    QTest::mouseDClick(g.Griglia()->viewport(), Qt::LeftButton, {}, rl.center());
    QCOMPARE(aperto, 1);

    // The schema's double click on a section: the cursor follows it, the panel opens on it.
    aperto = 0;
    prova::QuandoModale([&](QWidget* w) {
        auto* p = qobject_cast<PTronchi*>(w);
        QVERIFY(p);
        aperto = p->Tronco();
        p->Command2->click();
    });
    QVERIFY(!g.ParametriTroncoDi(2));
    QCOMPARE(aperto, 2);
    QCOMPARE(g.Row(), 2);
}

QTEST_MAIN(TestDialoghiTronco)
#include "test_dialoghi_tronco.moc"
