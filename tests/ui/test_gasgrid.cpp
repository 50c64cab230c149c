// The grid of sections driven by keys and mouse: typing a network, the parent rules and their
// messages, the consumer-flow rule, Esc, the locked cursor, the diameter list, deleting rows,
// the pressure combos.
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "archives/Speciali.h"
#include "documento/Progetto.h"
#include "editing/ui/GasGrid.h"
#include "editing/ui/ModelloTronchi.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;

class TestGasGrid : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<prova::AmbienteUi> amb;
    std::unique_ptr<GasGrid> g;

    // A document window on an empty internal installation, or on a project.
    void Apri(const std::string& progetto = "", bool pressione = false) {
        g.reset();  // the window goes before the document it shows
        amb = prova::NuovoAmbiente();
        if (progetto.empty()) {
            QVERIFY(NuovoProgetto(amb->s, pressione, amb->msg));
        } else {
            AvanzamentoNullo av;
            QVERIFY(ApriProgetto(amb->s, progetto, amb->msg, av));
        }
        g = std::make_unique<GasGrid>(amb->s, amb->msg);
        g->resize(1300, 600);
        g->show();
        g->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(g.get()));
        g->NewRete();
        g->Griglia()->setFocus();
        amb->msg.mostrati.clear();
    }

    int Colonna(int id) const { return g->Modello()->ColonnaDi(id); }
    QString Cella(int r, int id) const { return g->Modello()->cella(r, Colonna(id)).testo; }
    // The widget with the focus; after a modal dialog the window may still be coming back.
    QWidget* Fuoco() const {
        if (QApplication::focusWidget() == nullptr) {
            g->activateWindow();
            if (!QTest::qWaitForWindowActive(g.get())) return g->Griglia();
        }
        return QApplication::focusWidget() ? QApplication::focusWidget() : g->Griglia();
    }

    // Keys go where the focus is, as a user's would: the first opens the editor, the others
    // go to the editor.
    void Digita(const QString& testo) const {
        for (const QChar c : testo) QTest::keyClick(Fuoco(), c.toLatin1());
    }
    void Tasto(Qt::Key k) const { QTest::keyClick(Fuoco(), k); }

    // Types `testo` in the cell of field `id` of row `r` and presses Enter.
    void Scrivi(int r, int id, const QString& testo) {
        g->VaiA(r, Colonna(id));
        Digita(testo);
        Tasto(Qt::Key_Return);
    }

private slots:
    void cleanup() { g.reset(); }
    void digitareUnaReteSoloConLaTastiera();
    void regoleDellaProvenienza();
    void portataDellUtenza();
    void escRestituisceLaCella();
    void cursoreBloccato();
    void freccieConfermanoESpostano();
    void clicApreLEditorEPerditaDelFuocoConferma();
    void diametroDallElenco();
    void cancellazioneDiPiuRighe();
    void combiDellePressioni();
    void suggerimentiDelleColonne();
};

void TestGasGrid::digitareUnaReteSoloConLaTastiera() {
    Apri();
    QCOMPARE(g->Row(), 1);
    QCOMPARE(g->Col(), 1);
    // Row 1: parent, material (Enter opens the list, Enter takes it), no flow, length, the
    // computed diameter left as it is, a reference.
    Digita("0");
    Tasto(Qt::Key_Return);
    QCOMPARE(amb->d.NumTronchi(), 1);
    QCOMPARE(g->Col(), Colonna(Id::ID_MATERIALE));
    Tasto(Qt::Key_Return);
    QVERIFY(g->EditorMateriale()->isVisible());
    Tasto(Qt::Key_Return);
    QCOMPARE(g->Col(), Colonna(Id::ID_P_UTENZE));
    QCOMPARE(amb->d.T(1).ID_MATERIALE, amb->a.Default.DefaultMateriale);
    Tasto(Qt::Key_Tab);  // the flow of the first section stays 0
    QCOMPARE(g->Col(), Colonna(Id::ID_P_TRONCO));
    g->VaiA(1, Colonna(Id::ID_LEN));
    Digita("6,5");
    Tasto(Qt::Key_Return);
    QCOMPARE(amb->d.T(1).ID_LEN, 6.5f);
    // The next editable column is the diameter: Enter opens it on the computed size.
    QCOMPARE(g->Col(), Colonna(Id::ID_DIAMETRO));
    Tasto(Qt::Key_Return);
    QVERIFY(g->EditorTesto()->isVisible());
    Tasto(Qt::Key_Return);
    QCOMPARE(amb->d.T(1).ID_DIAMCUSTOM, FALSO);
    QCOMPARE(g->Col(), Colonna(Id::ID_RIF));
    Digita("contatore");
    Tasto(Qt::Key_Return);
    // Past the last column: first cell of the next row.
    QCOMPARE(g->Row(), 2);
    QCOMPARE(g->Col(), 1);
    QCOMPARE(amb->d.T(1).ID_RIF, std::string("CONTATORE"));

    // Two consumers under section 1.
    Scrivi(2, Id::ID_PREV, "1");
    Scrivi(2, Id::ID_P_UTENZE, "2.5");
    Scrivi(2, Id::ID_LEN, "4");
    QCOMPARE(amb->d.NumTronchi(), 2);
    // The row just past the last section: Enter on its length starts from the row above.
    g->VaiA(3, Colonna(Id::ID_LEN));
    Tasto(Qt::Key_Return);
    QCOMPARE(g->EditorTesto()->text(), QStringLiteral("4"));
    Tasto(Qt::Key_Return);
    QCOMPARE(amb->d.NumTronchi(), 3);
    QCOMPARE(amb->d.T(3).ID_LEN, 4.0f);
    Scrivi(3, Id::ID_PREV, "1");
    Scrivi(3, Id::ID_P_UTENZE, "1,5");

    QCOMPARE(amb->d.T(1).ID_LEFT, int16_t(2));
    QCOMPARE(amb->d.T(1).ID_RIGHT, int16_t(3));
    // Recalculated at every commit: the flows add up and every section has a size.
    QCOMPARE(amb->d.T(1).ID_P_TRONCO, 4.0f);
    QCOMPARE(Cella(1, Id::ID_P_TRONCO), QStringLiteral("4.000"));
    for (int r = 1; r <= 3; ++r) {
        QVERIFY2(!amb->d.T(r).ID_DIAMETRO.empty(), qPrintable(QString::number(r)));
        QCOMPARE(Cella(r, Id::ID_DIAMETRO), QString::fromStdString(amb->d.T(r).ID_DIAMETRO));
        QVERIFY(amb->d.T(r).ID_PDC_TRONCO > 0);
    }
    QCOMPARE(amb->d.ReteModificata, VERO);
    QVERIFY(amb->msg.mostrati.empty());
}

void TestGasGrid::regoleDellaProvenienza() {
    Apri(prova::AmbienteUi::Esempio("appartamento.RTG"));
    QVERIFY(amb->d.NumTronchi() >= 3);
    Scrivi(2, Id::ID_PREV, "2");
    QCOMPARE(amb->msg.Testi(), std::vector<std::string>{"Il tronco non puo' provenire da se stesso!"});
    QCOMPARE(amb->d.T(2).ID_PREV, int16_t(1));

    // The emptied cell shows until the next recalculation: here, with the automatic one off.
    amb->msg.mostrati.clear();
    amb->s.RicalcoloAutomatico = FALSO;
    Scrivi(2, Id::ID_PREV, "401");
    QCOMPARE(amb->msg.Testi(), std::vector<std::string>{"Valore di provenienza troppo alto"});
    QCOMPARE(Cella(2, Id::ID_PREV), QString());
    QCOMPARE(amb->d.T(2).ID_PREV, int16_t(1));
    amb->s.RicalcoloAutomatico = VERO;

    amb->msg.mostrati.clear();
    g->VaiA(2, Colonna(Id::ID_PREV));
    Digita("-3");
    Tasto(Qt::Key_Return);
    QCOMPARE(amb->msg.Testi(), std::vector<std::string>{"Valori  negativi non validi"});

    // Section 3 under the consumer 2: the question; No leaves 3 cut from its old parent.
    amb->msg.mostrati.clear();
    amb->msg.risposte.push_back(Risposta::NO);
    Scrivi(3, Id::ID_PREV, "2");
    QCOMPARE(amb->msg.mostrati.size(), size_t(1));
    QCOMPARE(amb->msg.mostrati[0].flags, 36);
    QCOMPARE(amb->d.T(3).ID_PREV, int16_t(1));
    QVERIFY(amb->d.T(1).ID_LEFT != 3 && amb->d.T(1).ID_RIGHT != 3);

    // Writing a parent in row 1 always gives 0.
    Scrivi(1, Id::ID_PREV, "3");
    QCOMPARE(Cella(1, Id::ID_PREV), QStringLiteral("0"));
    QCOMPARE(amb->d.T(1).ID_PREV, int16_t(0));
}

void TestGasGrid::portataDellUtenza() {
    Apri(prova::AmbienteUi::Esempio("appartamento.RTG"));
    // Section 1 has children and no flow of its own: its flow cell doesn't open.
    QVERIFY(!amb->d.T(1).IsUtenza());
    g->VaiA(1, Colonna(Id::ID_P_UTENZE));
    Digita("5");
    QVERIFY(!g->EditorTesto()->isVisible());
    QCOMPARE(amb->d.T(1).ID_P_UTENZE, 0.0f);

    // Typing 0 on a consumer clears both flows; the sums follow.
    QVERIFY(amb->d.T(2).IsUtenza());
    const float altra = amb->d.T(3).ID_P_UTENZE;
    Scrivi(2, Id::ID_P_UTENZE, "0");
    QCOMPARE(amb->d.T(2).ID_P_UTENZE, 0.0f);
    QCOMPARE(amb->d.T(2).ID_P_TRONCO, 0.0f);
    QCOMPARE(amb->d.T(1).ID_P_TRONCO, altra);
}

void TestGasGrid::escRestituisceLaCella() {
    Apri(prova::AmbienteUi::Esempio("appartamento.RTG"));
    const QString prima = Cella(2, Id::ID_LEN);
    const float lunghezza = amb->d.T(2).ID_LEN;
    g->VaiA(2, Colonna(Id::ID_LEN));
    Digita("987");
    QCOMPARE(Cella(2, Id::ID_LEN), QStringLiteral("987"));
    Tasto(Qt::Key_Escape);
    QVERIFY(!g->EditorTesto()->isVisible());
    QCOMPARE(Cella(2, Id::ID_LEN), prima);
    QCOMPARE(amb->d.T(2).ID_LEN, lunghezza);
    QCOMPARE(g->StatoEdit, 1);
    QCOMPARE(Fuoco(), static_cast<QWidget*>(g->Griglia()));
}

void TestGasGrid::cursoreBloccato() {
    Apri(prova::AmbienteUi::Esempio("appartamento.RTG"));
    amb->s.CursorLocked = VERO;
    Scrivi(2, Id::ID_LEN, "7");
    QCOMPARE(amb->d.T(2).ID_LEN, 7.0f);
    QCOMPARE(g->Row(), 2);
    QCOMPARE(g->Col(), Colonna(Id::ID_LEN));
    // Also past the last column the cursor stays.
    Scrivi(2, Id::ID_RIF, "x");
    QCOMPARE(g->Row(), 2);
    QCOMPARE(g->Col(), Colonna(Id::ID_RIF));

    amb->s.CursorLocked = FALSO;
    Scrivi(2, Id::ID_RIF, "y");
    QCOMPARE(g->Row(), 3);
    QCOMPARE(g->Col(), 1);
}

void TestGasGrid::freccieConfermanoESpostano() {
    Apri(prova::AmbienteUi::Esempio("appartamento.RTG"));
    g->VaiA(2, Colonna(Id::ID_LEN));
    Digita("3.25");
    Tasto(Qt::Key_Down);
    QCOMPARE(amb->d.T(2).ID_LEN, 3.25f);
    QCOMPARE(g->Row(), 3);
    QVERIFY(!g->EditorTesto()->isVisible());
    Digita("2");
    Tasto(Qt::Key_Left);
    QCOMPARE(amb->d.T(3).ID_LEN, 2.0f);
    QCOMPARE(g->Col(), Colonna(Id::ID_LEN) - 1);
    // Up from the first row and left from the first column stay in the grid.
    g->VaiA(1, 1);
    Digita("0");
    Tasto(Qt::Key_Up);
    QCOMPARE(g->Row(), 1);
}

void TestGasGrid::clicApreLEditorEPerditaDelFuocoConferma() {
    Apri(prova::AmbienteUi::Esempio("appartamento.RTG"));
    QTableView* v = g->Griglia();
    const QRect cella = v->visualRect(g->Modello()->index(1, Colonna(Id::ID_LEN) - 1));
    QTest::mouseClick(v->viewport(), Qt::LeftButton, {}, cella.center());
    QVERIFY(g->EditorTesto()->isVisible());
    QCOMPARE(g->RigaEdit, 2);
    // The text is selected: typing replaces it.
    QTest::keyClicks(g->EditorTesto(), "11");
    // A click on another cell commits the first one and opens the second.
    const QRect altra = v->visualRect(g->Modello()->index(2, Colonna(Id::ID_LEN) - 1));
    QTest::mouseClick(v->viewport(), Qt::LeftButton, {}, altra.center());
    QCOMPARE(amb->d.T(2).ID_LEN, 11.0f);
    QCOMPARE(g->RigaEdit, 3);
    QVERIFY(g->EditorTesto()->isVisible());
    // Opened and left without a change: nothing is committed.
    const float prima = amb->d.T(3).ID_LEN;
    amb->d.ReteModificata = FALSO;
    g->TerminaModifica();
    QCOMPARE(amb->d.T(3).ID_LEN, prima);
    QCOMPARE(amb->d.ReteModificata, FALSO);
}

void TestGasGrid::diametroDallElenco() {
    Apri(prova::AmbienteUi::Esempio("appartamento.RTG"));
    const int m = amb->d.T(2).IndiceMateriale;
    QVERIFY(m >= 1);
    const std::string dn = amb->a.Materiali[static_cast<size_t>(m)].Righe[3].DN;
    g->VaiA(2, Colonna(Id::ID_DIAMETRO));
    Tasto(Qt::Key_Return);
    QVERIFY(g->EditorTesto()->isVisible());
    // "?" opens the sizes of the row's material: "Auto" first, then each size.
    QString titolo;
    int voci = 0;
    prova::QuandoModale([&](QWidget* w) {
        titolo = w->windowTitle();
        auto* lista = w->findChild<QListWidget*>(QStringLiteral("List1"));
        voci = lista->count();
        lista->setCurrentRow(3);
        w->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    Digita("?");
    QCOMPARE(titolo, QStringLiteral("Diametri Disponibili"));
    QCOMPARE(voci, amb->a.Materiali[static_cast<size_t>(m)].NumRighe() + 1);
    QCOMPARE(amb->d.T(2).ID_DIAMETRO, dn);
    QCOMPARE(amb->d.T(2).ID_DIAMCUSTOM, VERO);
    // A size fixed by the user shows in dark red, and the calculation keeps it.
    QCOMPARE(g->Modello()->cella(2, Colonna(Id::ID_DIAMETRO)).inchiostro, Colori::ROSSO_SCURO);
    QCOMPARE(Cella(2, Id::ID_DIAMETRO), QString::fromStdString(dn));

    // "Auto" typed gives the size back to the calculation.
    Scrivi(2, Id::ID_DIAMETRO, "Auto");
    QCOMPARE(amb->d.T(2).ID_DIAMCUSTOM, FALSO);
    QCOMPARE(g->Modello()->cella(2, Colonna(Id::ID_DIAMETRO)).inchiostro, Colori::NERO);
}

void TestGasGrid::cancellazioneDiPiuRighe() {
    Apri(prova::AmbienteUi::Esempio("rete-media-pressione.RTG"));
    const int n = amb->d.NumTronchi();
    QVERIFY(n >= 7);
    // Section 5's branch: 6 and 7 hang on it. Rows 2..2 and 5..5 are deleted in two passes.
    QTableView* v = g->Griglia();
    v->selectRow(1);
    QCOMPARE(g->RowSel(), 2);
    QVERIFY(g->Col() != g->ColSel());
    prova::QuandoModale([](QWidget* w) {
        QCOMPARE(w->windowTitle(), QStringLiteral("Tipo cancellazione"));
        w->findChild<QPushButton*>(QStringLiteral("cmdElimina"))->click();
    });
    QTest::keyClick(v, Qt::Key_Delete);
    QCOMPARE(amb->d.NumTronchi(), n - 1);
    // Renumbered: the old section 3 is now 2, and still leaves from 1.
    QCOMPARE(amb->d.T(2).ID_PREV, int16_t(1));
    QCOMPARE(Cella(2, Id::ID_PREV), QStringLiteral("1"));

    // Two rows at once with "Cancella tronchi": the records stay as gaps.
    const int m = amb->d.NumTronchi();
    const int ultima = g->Modello()->columnCount() - 1;
    v->selectionModel()->setCurrentIndex(g->Modello()->index(4, 0), QItemSelectionModel::NoUpdate);
    v->selectionModel()->select(QItemSelection(g->Modello()->index(4, 0), g->Modello()->index(5, ultima)),
                                QItemSelectionModel::ClearAndSelect);
    QCOMPARE(std::min(g->Row(), g->RowSel()), 5);
    QCOMPARE(std::max(g->Row(), g->RowSel()), 6);
    prova::QuandoModale([](QWidget* w) { w->findChild<QPushButton*>(QStringLiteral("cmdCancella"))->click(); });
    QTest::keyClick(v, Qt::Key_Delete);
    QCOMPARE(amb->d.NumTronchi(), m);
    QCOMPARE(amb->d.T(5).ID_CANCELLATO, VERO);
    QCOMPARE(amb->d.T(6).ID_CANCELLATO, VERO);
    QCOMPARE(Cella(5, Id::ID_PREV), QStringLiteral("0"));
    // The cursor is back on the first cell after the grid is cleared.
    QCOMPARE(g->Row(), 1);

    // Annulla changes nothing.
    v->selectRow(2);
    prova::QuandoModale([](QWidget* w) { w->findChild<QPushButton*>(QStringLiteral("cmdAnnulla"))->click(); });
    QTest::keyClick(v, Qt::Key_Delete);
    QCOMPARE(amb->d.NumTronchi(), m);
    QCOMPARE(amb->d.T(3).ID_CANCELLATO, FALSO);
}

void TestGasGrid::combiDellePressioni() {
    Apri(prova::AmbienteUi::Esempio("rete-media-pressione.RTG"));
    auto* iniziale = g->findChild<QComboBox*>(QStringLiteral("ComboInitPres"));
    auto* finale = g->findChild<QComboBox*>(QStringLiteral("ComboFinalPres"));
    auto* dpmax = g->findChild<QComboBox*>(QStringLiteral("ComboDpMax"));
    QVERIFY(iniziale->isVisible());
    QVERIFY(!dpmax->isVisible());
    QCOMPARE(iniziale->count(), 51);
    QCOMPARE(iniziale->itemText(0), QStringLiteral("Auto"));

    // A value typed is taken as it is, and shows red when it isn't the default.
    finale->setFocus();
    finale->lineEdit()->selectAll();
    QTest::keyClicks(finale->lineEdit(), "299");
    QTest::keyClick(finale->lineEdit(), Qt::Key_Return);
    QCOMPARE(amb->d.PressioneFinale, 299.0);
    QVERIFY(finale->styleSheet().contains(QStringLiteral("220,0,0")));
    // Letters other than "Auto" never reach the box.
    QTest::keyClicks(finale->lineEdit(), "x");
    QVERIFY(!finale->currentText().contains('x'));
    // An initial pressure below the final one: recalculated, the failures show in red.
    iniziale->setCurrentIndex(25);
    emit iniziale->activated(25);
    QCOMPARE(amb->d.PressioneIniziale, 250.0);
    QVERIFY(iniziale->styleSheet().contains(QStringLiteral("220,0,0")));
    bool rosso = false;
    for (int r = 1; r <= amb->d.NumTronchi(); ++r)
        rosso = rosso || g->Modello()->cella(r, Colonna(Id::ID_PFINALE)).inchiostro == Colori::ROSSO;
    QVERIFY(rosso);

    // "Auto" brings the default back, in black.
    finale->setCurrentIndex(0);
    emit finale->activated(0);
    QCOMPARE(amb->d.PressioneFinale, 150.0);
    QVERIFY(finale->styleSheet().isEmpty());

    // An internal installation has the imposed limit instead.
    Apri(prova::AmbienteUi::Esempio("appartamento.RTG"));
    dpmax = g->findChild<QComboBox*>(QStringLiteral("ComboDpMax"));
    QVERIFY(dpmax->isVisible());
    dpmax->setCurrentIndex(0);
    emit dpmax->activated(0);
    QCOMPARE(amb->d.DpMax, 0.0);
    QCOMPARE(dpmax->currentText(), QStringLiteral("Auto"));
    QVERIFY(dpmax->styleSheet().isEmpty());
    dpmax->setCurrentIndex(2);
    emit dpmax->activated(2);
    QCOMPARE(amb->d.DpMax, 20.0);
    QVERIFY(dpmax->styleSheet().contains(QStringLiteral("220,0,0")));
}

void TestGasGrid::suggerimentiDelleColonne() {
    Apri();
    const ModelloTronchi* m = g->Modello();
    for (int c = 1; c <= m->UltimaColonna(); ++c) {
        const QModelIndex i = m->index(0, c - 1);
        QCOMPARE(m->data(i, Qt::ToolTipRole).toString(), QString::fromStdString(m->Colonna(c).Suggerimento));
    }
    QVERIFY(m->headerData(Colonna(Id::ID_LEN) - 1, Qt::Horizontal, Qt::DisplayRole).toString().contains('\n'));
    // Pressure networks use their own layout.
    Apri("", true);
    QCOMPARE(g->TipoGriglia, 5);
    QVERIFY(Colonna(Id::ID_PFINALE) > 0);
    QCOMPARE(g->windowTitle(), QStringLiteral("Calcolo reti gas in pressione"));
}

QTEST_MAIN(TestGasGrid)
#include "test_gasgrid.moc"
