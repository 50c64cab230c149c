// Undo and redo as the user meets them: the "Modifica" menu and the tool bar name the step, the
// keys Ctrl+Z, Ctrl+Y and Ctrl+Shift+Z work on the grid, the grid and the combos show the
// document again after each, the modified mark comes back off at the saved state, and the
// history starts afresh with each project.
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <filesystem>

#include "app/frmMainForm.h"
#include "editing/Modifiche.h"
#include "editing/ui/GasGrid.h"
#include "editing/ui/ModelloTronchi.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;

class TestAnnulla : public QObject {
    Q_OBJECT

private slots:
    void annullaERipristinaDalMenuEDaiTasti();
    void ilSegnoDiModificaEIlNuovoProgetto();
};

namespace {

QAction* Azione(QWidget* f, const char* nome) {
    auto* a = f->findChild<QAction*>(QString::fromLatin1(nome));
    if (a == nullptr) qFatal("manca %s", nome);
    return a;
}

// Types `testo` into the cell (riga, colonna id) and commits it with Enter.
void Scrivi(GasGrid* g, int riga, int id, const QString& testo) {
    g->VaiA(riga, g->Modello()->ColonnaDi(id));
    g->GridEditing(testo);
    QTest::keyClick(g->EditorTesto(), Qt::Key_Return);
}

}  // namespace

void TestAnnulla::annullaERipristinaDalMenuEDaiTasti() {
    auto amb = prova::NuovoAmbiente();
    frmMainForm f(amb->s, amb->msg);
    f.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f));
    QVERIFY(f.ApriPercorso(QString::fromStdString(prova::AmbienteUi::Esempio("appartamento.RTG"))));
    f.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&f));
    GasGrid* g = f.Griglia();
    QAction* annulla = Azione(&f, "AnnullaMnu");
    QAction* ripristina = Azione(&f, "RipristinaMnu");
    // In the menu "Modifica" and on the tool bar.
    QMenu* modifica = nullptr;
    for (QAction* m : f.menuBar()->actions())
        if (m->text() == QStringLiteral("&Modifica")) modifica = m->menu();
    QVERIFY(modifica != nullptr);
    QVERIFY(modifica->actions().contains(annulla));
    QVERIFY(modifica->actions().contains(ripristina));
    QVERIFY(f.findChild<QToolBar*>(QStringLiteral("barraComandi"))->actions().contains(annulla));
    QCOMPARE(annulla->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Z));
    QVERIFY(ripristina->shortcuts().contains(QKeySequence(Qt::CTRL | Qt::Key_Y)));
    QVERIFY(ripristina->shortcuts().contains(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)));
    QVERIFY(!annulla->isEnabled());
    QVERIFY(!ripristina->isEnabled());

    const float lunghezza = amb->d.T(2).ID_LEN;
    const float portata = amb->d.T(1).ID_P_TRONCO;
    const int colonna = g->Modello()->ColonnaDi(Id::ID_LEN);
    const QString testoPrima = g->Modello()->cella(2, colonna).testo;
    Scrivi(g, 2, Id::ID_LEN, QStringLiteral("37"));
    QCOMPARE(amb->d.T(2).ID_LEN, 37.0f);
    QTRY_VERIFY(annulla->isEnabled());
    const QString titolo = QString::fromStdString(modifica::NomeCella(g->Modello()->Colonna(colonna), 2, 2));
    QVERIFY(titolo.startsWith(QStringLiteral("modifica della cella ")));
    QVERIFY(titolo.endsWith(QStringLiteral(" del tronco 2")));
    QCOMPARE(annulla->text(), QStringLiteral("Annulla: ") + titolo);

    // The consumer's flow as a second step, then Ctrl+Z on the grid twice.
    const int utenza = [&] {
        for (int i = 1; i <= amb->d.NumTronchi(); ++i)
            if (amb->d.T(i).IsUtenza()) return i;
        return 0;
    }();
    QVERIFY(utenza > 0);
    const float flusso = amb->d.T(utenza).ID_P_UTENZE;
    Scrivi(g, utenza, Id::ID_P_UTENZE, QStringLiteral("9"));
    QCOMPARE(amb->d.T(utenza).ID_P_UTENZE, 9.0f);
    QVERIFY(amb->d.T(1).ID_P_TRONCO != portata);
    g->Griglia()->setFocus();
    QTest::keyClick(g->Griglia(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(amb->d.T(utenza).ID_P_UTENZE, flusso);
    // Recalculated: the flow at the head is the old one again.
    QCOMPARE(amb->d.T(1).ID_P_TRONCO, portata);
    QTest::keyClick(g->Griglia(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(amb->d.T(2).ID_LEN, lunghezza);
    QCOMPARE(g->Modello()->cella(2, colonna).testo, testoPrima);
    QVERIFY(!annulla->isEnabled());
    QCOMPARE(ripristina->text(), QStringLiteral("Ripristina: ") + titolo);
    QCOMPARE(amb->d.ReteModificata, FALSO);

    // Ctrl+Y, then Ctrl+Shift+Z.
    QTest::keyClick(g->Griglia(), Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(amb->d.T(2).ID_LEN, 37.0f);
    QCOMPARE(g->Modello()->cella(2, colonna).testo, QStringLiteral("37.00"));
    QTest::keyClick(g->Griglia(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(amb->d.T(utenza).ID_P_UTENZE, 9.0f);
    QVERIFY(!ripristina->isEnabled());
    QCOMPARE(amb->d.ReteModificata, VERO);

    // The imposed drop: the combo shows the value given back.
    auto* dpmax = g->findChild<QComboBox*>(QStringLiteral("ComboDpMax"));
    const QString dpPrima = dpmax->currentText();
    dpmax->setEditText(QStringLiteral("123"));
    emit dpmax->lineEdit()->editingFinished();
    QCOMPARE(amb->d.DpMax, 123.0);
    QTRY_COMPARE(annulla->text(), QStringLiteral("Annulla: modifica della perdita di carico imposta"));
    annulla->trigger();
    QVERIFY(amb->d.DpMax != 123.0);
    QCOMPARE(dpmax->currentText(), dpPrima);
    amb->d.ReteModificata = FALSO;
}

void TestAnnulla::ilSegnoDiModificaEIlNuovoProgetto() {
    auto amb = prova::NuovoAmbiente();
    frmMainForm f(amb->s, amb->msg);
    f.ParametriDopoNuovo = false;
    f.show();
    const std::string copia = amb->cartella.Percorso("lavoro.RTG");
    std::filesystem::copy_file(prova::AmbienteUi::Esempio("appartamento.RTG"), copia);
    QVERIFY(f.ApriPercorso(QString::fromStdString(copia)));
    GasGrid* g = f.Griglia();
    Scrivi(g, 2, Id::ID_LEN, QStringLiteral("21"));
    Azione(&f, "SalvaMnu")->trigger();
    QCOMPARE(amb->d.ReteModificata, FALSO);
    Scrivi(g, 2, Id::ID_LEN, QStringLiteral("22"));
    QCOMPARE(amb->d.ReteModificata, VERO);
    Azione(&f, "AnnullaMnu")->trigger();
    QCOMPARE(amb->d.ReteModificata, FALSO);
    QCOMPARE(amb->d.T(2).ID_LEN, 21.0f);
    Azione(&f, "AnnullaMnu")->trigger();
    QCOMPARE(amb->d.ReteModificata, VERO);
    // A new project: nothing to undo.
    QVERIFY(f.NuovoProgetto(false));
    QVERIFY(!Azione(&f, "AnnullaMnu")->isEnabled());
    QVERIFY(!amb->s.Storia.PuoAnnullare());
    amb->d.ReteModificata = FALSO;
}

QTEST_MAIN(TestAnnulla)
#include "test_annulla.moc"
