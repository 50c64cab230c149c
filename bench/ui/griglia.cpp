// Times of the desktop on a full table of 400 sections: opening the project and filling the
// grid, and one commit with its recalculation and repaint; the best of a few runs is printed.
// Run it under an offscreen or virtual display: QT_QPA_PLATFORM=offscreen bench/ui/bench_griglia
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <algorithm>

#include "app/frmMainForm.h"
#include "archives/Speciali.h"
#include "documento/Progetto.h"
#include "editing/ui/GasGrid.h"
#include "editing/ui/ModelloTronchi.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;

class BenchGriglia : public QObject {
    Q_OBJECT

    // A tree of 400 sections, each section i hanging on i / 2; consumers on the free ends.
    static std::string Progetto400(prova::AmbienteUi& amb) {
        const auto nomi = amb.a.NomiMateriali();
        amb.d.ReteInPressione = FALSO;
        for (int i = 1; i <= MAX_TRONCHI; ++i) {
            const int16_t t =
                NuovoTronco(amb.d, static_cast<int16_t>(i / 2), nomi, amb.a.Default.DefaultMateriale, amb.msg);
            amb.d.T(t).ID_LEN = 1.0f + static_cast<float>(i % 7);
            amb.d.T(t).ID_NCURVE = static_cast<int16_t>(i % 3);
        }
        for (int i = 1; i <= MAX_TRONCHI; ++i)
            if (amb.d.T(i).IsUtenza()) amb.d.T(i).ID_P_UTENZE = amb.d.T(i).ID_P_TRONCO = 0.05f;
        const std::string percorso = amb.cartella.Percorso("grande.RTG");
        if (!SalvaProgetto(amb.s, percorso, amb.msg)) return {};
        AzzeraRete(amb.d, amb.a.Default);
        return percorso;
    }

private slots:
    void apriReteDi400TronchiERiempireLaGriglia();
    void annullaERipristinaSu400Tronchi();
};

void BenchGriglia::apriReteDi400TronchiERiempireLaGriglia() {
    auto amb = prova::NuovoAmbiente();
    const std::string percorso = Progetto400(*amb);
    QVERIFY(!percorso.empty());

    qint64 apertura = std::numeric_limits<qint64>::max();
    qint64 conferma = std::numeric_limits<qint64>::max();
    for (int giro = 0; giro < 3; ++giro) {
        QElapsedTimer t;
        t.start();
        AvanzamentoNullo av;
        QVERIFY(ApriProgetto(amb->s, percorso, amb->msg, av));
        GasGrid g(amb->s, amb->msg);
        g.resize(1300, 700);
        g.show();
        g.NewRete();
        g.Griglia()->viewport()->repaint();
        apertura = std::min(apertura, t.nsecsElapsed() / 1000);
        QCOMPARE(amb->d.NumTronchi(), int16_t(MAX_TRONCHI));
        QVERIFY(!amb->d.T(MAX_TRONCHI).ID_DIAMETRO.empty());
        QCOMPARE(g.Modello()->cella(MAX_TRONCHI, 1).testo, QStringLiteral("200"));

        g.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&g));
        for (int k = 0; k < 3; ++k) {
            g.VaiA(399, g.Modello()->ColonnaDi(Id::ID_LEN));
            QElapsedTimer c;
            c.start();
            g.GridEditing(QString::number(k + 2));
            QTest::keyClick(g.EditorTesto(), Qt::Key_Return);
            g.Griglia()->viewport()->repaint();
            conferma = std::min(conferma, c.nsecsElapsed() / 1000);
            QCOMPARE(amb->d.T(399).ID_LEN, static_cast<float>(k + 2));
        }
        amb->d.ReteModificata = FALSO;
    }
    qInfo("400 tronchi: apertura e griglia %.1f ms, conferma con ricalcolo e ridisegno %.1f ms", apertura / 1000.0,
          conferma / 1000.0);
}

// An undo and a redo through the main frame's menu commands, each with its recalculation and
// the repaint of the grid, after cell commits on a table of 400 sections.
void BenchGriglia::annullaERipristinaSu400Tronchi() {
    auto amb = prova::NuovoAmbiente();
    const std::string percorso = Progetto400(*amb);
    QVERIFY(!percorso.empty());
    frmMainForm form(amb->s, amb->msg);
    form.resize(1300, 800);
    form.show();
    QVERIFY(form.ApriPercorso(QString::fromStdString(percorso)));
    GasGrid* g = form.Griglia();
    QVERIFY(g != nullptr);
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    auto* annulla = form.findChild<QAction*>(QStringLiteral("AnnullaMnu"));
    auto* ripristina = form.findChild<QAction*>(QStringLiteral("RipristinaMnu"));
    QVERIFY(annulla && ripristina);
    for (int k = 0; k < 5; ++k) {
        g->VaiA(300 + k, g->Modello()->ColonnaDi(Id::ID_LEN));
        g->GridEditing(QString::number(k + 2));
        QTest::keyClick(g->EditorTesto(), Qt::Key_Return);
    }
    qint64 peggiore = 0;
    qint64 migliore = std::numeric_limits<qint64>::max();
    qint64 somma = 0;
    int n = 0;
    for (int giro = 0; giro < 4; ++giro) {
        for (QAction* act : {annulla, annulla, annulla, ripristina, ripristina, ripristina}) {
            QElapsedTimer t;
            t.start();
            act->trigger();
            g->Griglia()->viewport()->repaint();
            const qint64 us = t.nsecsElapsed() / 1000;
            peggiore = std::max(peggiore, us);
            migliore = std::min(migliore, us);
            somma += us;
            ++n;
        }
    }
    QCOMPARE(amb->d.T(304).ID_LEN, 6.0f);
    qInfo(
        "400 tronchi: annulla o ripristina con ricalcolo e ridisegno: migliore %.1f ms, media %.1f ms, peggiore %.1f "
        "ms",
        migliore / 1000.0, somma / 1000.0 / n, peggiore / 1000.0);
    amb->d.ReteModificata = FALSO;
}

QTEST_MAIN(BenchGriglia)
#include "griglia.moc"
