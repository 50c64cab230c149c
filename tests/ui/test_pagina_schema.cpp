// The schema page driven as a user drives it: palette elements dropped on the arrows, a click
// that selects, a handle stretched, double clicks on the source, the Delete key; and what the
// Qt surface paints on a picture and into files.
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QTest>

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include "app/FinestraDocumento.h"
#include "app/frmMainForm.h"
#include "core/Documento.h"
#include "editing/Modifiche.h"
#include "schema/Direzioni.h"
#include "schema/Immagini.h"
#include "schema/ui/SchemaPagina.h"
#include "schema/ui/SchemaQt.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::schema;
using namespace fornax::schema::ui;

class TestSchema : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<prova::AmbienteUi> amb;
    std::unique_ptr<SchemaPagina> p;
    int elaborazioni = 0;

    // A schema page on an empty internal installation; the window's Elaborazione is a
    // recalculation and a new walk.
    void Apri(int catena = 0) {
        p.reset();
        amb = prova::NuovoAmbiente();
        QVERIFY(NuovoProgetto(amb->s, false, amb->msg));
        const auto materiali = amb->a.NomiMateriali();
        for (int i = 1; i <= catena; ++i)
            NuovoTronco(amb->d, static_cast<int16_t>(i - 1), materiali, amb->a.Default.DefaultMateriale, amb->msg);
        Ricalcola(amb->s, amb->msg);
        p = std::make_unique<SchemaPagina>(amb->s, amb->msg);
        elaborazioni = 0;
        connect(p.get(), &SchemaPagina::richiestaElaborazione, p.get(), [this] {
            ++elaborazioni;
            Ricalcola(amb->s, amb->msg);
            p->Aggiorna();
        });
        p->resize(1000, 700);
        p->show();
        QVERIFY(QTest::qWaitForWindowExposed(p.get()));
        p->Aggiorna();
        amb->msg.mostrati.clear();
    }

    QPoint Pixel(double x, double y) const { return p->APixel(x, y).toPoint(); }

    // The drop point of free end k (1-based) of the list the drag offers: inside its arrow.
    QPoint SuFreccia(const std::vector<EstremoLibero>& estremi, int k) const {
        const EstremoLibero& e = estremi.at(static_cast<size_t>(k - 1));
        const double f = p->Stato().SchemaFattore;
        return Pixel(e.x + PassoX(e.direzione) * 150.0 * f, e.y + PassoY(e.direzione) * 150.0 * f);
    }

    // A palette element dragged in, moved over the picture and dropped at `punto`.
    void Trascina(const std::string& tag, QPoint punto, bool rilascia = true) {
        QMimeData dati;
        dati.setData(QLatin1String(MIME_PALETTE), QByteArray::fromStdString(tag));
        QWidget* w = p->Display();
        QDragEnterEvent entra(punto, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(w, &entra);
        QVERIFY(entra.isAccepted());
        QDragMoveEvent muove(punto, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(w, &muove);
        if (!rilascia) return;
        QDropEvent cade(QPointF(punto), Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(w, &cade);
    }

    int Contati(const std::string& testo) const {
        int n = 0;
        for (const auto& v : amb->msg.mostrati) n += v.testo == testo ? 1 : 0;
        return n;
    }

    // Pixels of `colore` on the page's picture along the segment a-b (twips).
    int PixelDi(QColor colore, double x1, double y1, double x2, double y2) const {
        int n = 0;
        for (int i = 1; i < 20; ++i) {
            const double t = i / 20.0;
            const QPoint q = Pixel(x1 + (x2 - x1) * t, y1 + (y2 - y1) * t);
            for (int dy = -1; dy <= 1; ++dy)
                if (p->Immagine().valid(q.x(), q.y() + dy) && p->Immagine().pixelColor(q.x(), q.y() + dy) == colore) {
                    ++n;
                    break;
                }
        }
        return n;
    }

private slots:
    void cleanup() { p.reset(); }
    void leImmaginiCiSonoTutte();
    void superficieSuImmagineESuFile();
    void dropDiUnTroncoEDiUnUtenza();
    void tabellaPienaRifiutaPrimaDiTutto();
    void dragCheEsceCancellaLeFrecce();
    void allungamentoConLaManiglia();
    void quattroDoppiClickSullaSorgente();
    void clickSelezionaECancSelezionato();
    void regioniEsauriteUnaVoltaPerWalk();
    void zoomEBarre();
    void comandiDellaFinestraPrincipale();
};

void TestSchema::leImmaginiCiSonoTutte() {
    QStringList nomi = {QStringLiteral("picTronco")};
    for (int o = 0; o < 4; ++o) nomi << QString::fromLatin1(Sorgente(o).immagine.nome);
    for (int t = 0; t <= 5; ++t) nomi << QString::fromLatin1(SimboloUtenza(t).nome);
    for (int16_t d = 1; d <= 8; ++d) nomi << QString::fromLatin1(Freccia(d).nome);
    for (const QString& n : nomi) {
        const QByteArray svg = SorgenteImmagine(n);
        QVERIFY2(!svg.isEmpty(), qPrintable(n));
        QSvgRenderer r(svg);
        QVERIFY2(r.isValid(), qPrintable(n));
        // Drawn in the one ink the surface recolours.
        QVERIFY2(svg.contains("#000000"), qPrintable(n));
        const QImage img = PixmapImmagine(n, QSize(60, 60), Qt::white, Qt::black).toImage();
        int bianchi = 0;
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < 60; ++x) bianchi += qGray(img.pixel(x, y)) > 200 ? 1 : 0;
        QVERIFY2(bianchi > 30, qPrintable(n));
    }
    QVERIFY(SorgenteImmagine(QStringLiteral("picNessuna")).isEmpty());
    // Each arrow points its own way: the ink lies toward its direction.
    for (int16_t d = 1; d <= 8; ++d) {
        const QImage img =
            PixmapImmagine(QString::fromLatin1(Freccia(d).nome), QSize(30, 30), Qt::white, Qt::black).toImage();
        double sx = 0, sy = 0, n = 0;
        for (int y = 0; y < 30; ++y)
            for (int x = 0; x < 30; ++x) {
                const double g = qGray(img.pixel(x, y)) / 255.0;
                sx += g * (x - 14.5);
                sy += g * (y - 14.5);
                n += g;
            }
        QVERIFY(n > 0);
        QVERIFY2(PassoX(d) == 0 ? std::abs(sx / n) < 1.0 : sx / n * PassoX(d) > 1.0, qPrintable(QString::number(d)));
        QVERIFY2(PassoY(d) == 0 ? std::abs(sy / n) < 1.0 : sy / n * PassoY(d) > 1.0, qPrintable(QString::number(d)));
    }
}

void TestSchema::superficieSuImmagineESuFile() {
    // Screen: dark background, a white bar, text metrics in twips whatever the scale.
    QImage img(400, 300, QImage::Format_RGB32);
    double larghezzaTesto = 0;
    {
        QPainter pt(&img);
        SchemaQt t(pt, 6000, 4500, 1.0 / 15, Aspetto::Schermo);
        t.Pulisci();
        t.Rettangolo(1500, 1500, 3000, 3, Colore::BIANCO);  // a bar 3 twips thick is one pixel
        t.Rettangolo(1500, 3000, 600, -600, Colore::ROSSO);
        t.ImpostaFont("Arial", 7);
        larghezzaTesto = t.LarghezzaTesto("1  ø 20 - 1m [1m]");
        QVERIFY(t.AltezzaTesto("H") > 120 && t.AltezzaTesto("H") < 200);  // a 7-point line
        t.ImpostaPenna(300, 300);
        t.Testo("12", Colore::BIANCO);
        QVERIFY(t.PennaX() > 300 && t.PennaY() == 300);  // on the same line, after the text
    }
    QCOMPARE(img.pixelColor(200, 100), QColor(Qt::white));
    QCOMPARE(img.pixelColor(150, 100), QColor(Qt::white));
    QCOMPARE(img.pixelColor(200, 105), SfondoSchermo());
    QCOMPARE(img.pixelColor(110, 190), QColor(Qt::red));
    QCOMPARE(img.pixelColor(350, 250), SfondoSchermo());
    {
        QImage grande(1600, 1200, QImage::Format_RGB32);
        QPainter pt(&grande);
        SchemaQt t(pt, 6000, 4500, 4.0 / 15, Aspetto::Carta);
        t.ImpostaFont("Arial", 7);
        QVERIFY(std::abs(t.LarghezzaTesto("1  ø 20 - 1m [1m]") - larghezzaTesto) < 1e-9);
        t.Pulisci();
        t.Linea(0, 0, 6000, 4500, Colore::BIANCO);  // white ink comes out black on paper
        pt.end();
        QCOMPARE(grande.pixelColor(800, 600), QColor(Qt::black));
        QCOMPARE(grande.pixelColor(1500, 100), QColor(Qt::white));
    }

    // Files: PNG, BMP and SVG of a drawing, black on white; other extensions refused.
    QTemporaryDir dir;
    auto disegna = [](SchemaTarget& t) {
        t.Linea(100, 720, 2780, 720, Colore::BIANCO);
        t.Immagine("picCaldaia", 1440, 100, 440, 460);
    };
    for (const char* est : {"png", "bmp"}) {
        const QString f = dir.filePath(QStringLiteral("schema.") + QLatin1String(est));
        QVERIFY(SalvaImmagineSchema(f, 2880, 1440, 96, Aspetto::Carta, disegna));
        QImage letta(f);
        QCOMPARE(letta.size(), QSize(192, 96));
        QCOMPARE(letta.pixelColor(96, 48), QColor(Qt::black));
        QCOMPARE(letta.pixelColor(5, 5), QColor(Qt::white));
    }
    const QString svg = dir.filePath(QStringLiteral("schema.svg"));
    QVERIFY(SalvaImmagineSchema(svg, 2880, 1440, 96, Aspetto::Carta, disegna));
    QFile f(svg);
    QVERIFY(f.open(QIODevice::ReadOnly));
    const QByteArray testo = f.readAll();
    QVERIFY(testo.contains("<svg"));
    QVERIFY(QSvgRenderer(testo).isValid());
    QVERIFY(!SalvaImmagineSchema(dir.filePath(QStringLiteral("schema.gif")), 2880, 1440, 96, Aspetto::Carta, disegna));
    QVERIFY(!SalvaImmagineSchema(dir.filePath(QStringLiteral("manca/schema.png")), 2880, 1440, 96, Aspetto::Carta,
                                 disegna));
}

void TestSchema::dropDiUnTroncoEDiUnUtenza() {
    Apri();
    StatoSchema& st = p->Stato();
    QCOMPARE(st.EstremiTronco.size(), size_t(1));
    QCOMPARE(st.EstremiTronco[0].tronco, int16_t(0));
    Trascina(TagPalette::TRONCO, SuFreccia(st.EstremiTronco, 1));
    QCOMPARE(amb->d.NumTronchi(), 1);
    QCOMPARE(amb->d.T(1).ID_PREV, int16_t(0));
    QCOMPARE(amb->d.T(1).ID_MATERIALE, amb->a.Default.DefaultMateriale);
    QCOMPARE(amb->d.ReteModificata, VERO);
    QCOMPARE(elaborazioni, 1);
    // The new section is drawn: white pixels along its bar.
    const SezioneDisegnata& s1 = st.Sezioni.at(0);
    QCOMPARE(s1.n, int16_t(1));
    QVERIFY(PixelDi(Qt::white, s1.x - s1.lunghezza, s1.y, s1.x, s1.y) >= 15);

    // A second section on the free end of the first.
    // Its free end offers every way but back; the last arrow offered is taken.
    QVERIFY(st.EstremiTronco.size() > 1);
    for (const EstremoLibero& e : st.EstremiTronco) QCOMPARE(e.tronco, int16_t(1));
    const int ultimo = static_cast<int>(st.EstremiTronco.size());
    const int16_t svolta = st.EstremiTronco.back().svolta;
    const int16_t direzione = st.EstremiTronco.back().direzione;
    Trascina(TagPalette::TRONCO, SuFreccia(st.EstremiTronco, ultimo));
    QCOMPARE(amb->d.NumTronchi(), 2);
    QCOMPARE(amb->d.T(2).ID_PREV, int16_t(1));
    QCOMPARE(amb->d.T(2).ID_SCHEMA_SVOLTA, svolta);  // the turn code of the arrow
    QCOMPARE(amb->d.T(2).SchemaDirezione, direzione);
    QCOMPARE(elaborazioni, 2);

    // Without a dialog wired, a cooker only sets the kind; the end stays free (flow 0).
    QCOMPARE(st.EstremiUtenza.size(), size_t(1));
    QCOMPARE(st.EstremiUtenza[0].tronco, int16_t(2));
    Trascina(TagPalette::FORNELLO, SuFreccia(st.EstremiUtenza, 1));
    QCOMPARE(amb->d.T(2).ID_TIPOUTENZA, int16_t(1));
    QCOMPARE(p->UltimaRichiestaUtenza().dialogo, DialogoUtenza::Cportata);
    QCOMPARE(elaborazioni, 3);
    // A boiler on it: the kind is set, the dialog the window wired opens on it.
    int aperta = 0;
    p->ApriUtenza = [&](int t) {
        aperta = t;
        QCOMPARE(amb->d.T(t).ID_TIPOUTENZA, int16_t(2));  // set before the dialog opens
        modifica::ConfermaUtenzaDrop(amb->d, static_cast<int16_t>(t), 2.5f, 2, "");
    };
    QCOMPARE(st.EstremiUtenza.size(), size_t(1));
    Trascina(TagPalette::CALDAIA, SuFreccia(st.EstremiUtenza, 1));
    QCOMPARE(aperta, 2);
    QCOMPARE(p->UltimaRichiestaUtenza().daDrop, true);
    QCOMPARE(amb->d.T(2).ID_P_UTENZE, 2.5f);
    QCOMPARE(amb->d.T(1).ID_P_TRONCO, 2.5f);  // recalculated: the flow reaches the first section
    QCOMPARE(elaborazioni, 4);

    // A drop beside every arrow repaints and changes nothing.
    const int prima = elaborazioni;
    Trascina(TagPalette::TRONCO, QPoint(2, 2));
    QCOMPARE(amb->d.NumTronchi(), 2);
    QCOMPARE(elaborazioni, prima);
    QVERIFY(amb->msg.mostrati.empty());
}

void TestSchema::tabellaPienaRifiutaPrimaDiTutto() {
    Apri();
    for (int i = 0; i < MAX_TRONCHI; ++i) modifica::AggiungiRiga(amb->d);
    p->Aggiorna();
    amb->msg.mostrati.clear();
    // A consumer too, although it would use no record; the point needn't even be on an arrow.
    for (const std::string& tag : {TagPalette::TRONCO, TagPalette::CALDAIA}) {
        amb->msg.mostrati.clear();
        Trascina(tag, QPoint(300, 300));
        QCOMPARE(amb->d.NumTronchi(), MAX_TRONCHI);
        QVERIFY(!amb->msg.mostrati.empty());
        QCOMPARE(amb->msg.mostrati.front().testo, std::string("Raggiunto il massimo numero di tronchi."));
    }
    QCOMPARE(elaborazioni, 0);
}

void TestSchema::dragCheEsceCancellaLeFrecce() {
    Apri(1);
    const QImage prima = p->Immagine().copy();
    Trascina(TagPalette::TRONCO, QPoint(5, 5), false);
    QVERIFY(p->Immagine() != prima);  // arrows painted over the free ends
    QVERIFY(p->Stato().RegioniDrop.Conteggio() > 1);
    QDragLeaveEvent esce;
    QApplication::sendEvent(p->Display(), &esce);
    QCOMPARE(p->Immagine(), prima);
}

void TestSchema::allungamentoConLaManiglia() {
    Apri(1);
    StatoSchema& st = p->Stato();
    const SezioneDisegnata s1 = st.Sezioni.at(0);
    QCOMPARE(s1.direzione, Direzione::R);
    QWidget* w = p->Display();
    // Over the handle the cursor runs west-east.
    QTest::mouseMove(w, Pixel(s1.x, s1.y));
    QCOMPARE(w->cursor().shape(), Qt::SizeHorCursor);
    QTest::mousePress(w, Qt::LeftButton, Qt::NoModifier, Pixel(s1.x, s1.y));
    const double nx = s1.x - s1.lunghezza;
    const double finale = s1.x + 1500;
    QTest::mouseMove(w, Pixel(s1.x + 700, s1.y));
    QCOMPARE(w->cursor().shape(), Qt::SizeAllCursor);
    // The rubber line in red runs from the near end to the cursor.
    QVERIFY(PixelDi(Qt::red, s1.x + 50, s1.y, s1.x + 650, s1.y) >= 15);
    QTest::mouseMove(w, Pixel(finale, s1.y));
    QTest::mouseRelease(w, Qt::LeftButton, Qt::NoModifier, Pixel(finale, s1.y));
    const double twipPixel = p->TwipPerPixel() * Rescale(0).scala;
    QVERIFY2(std::abs(amb->d.T(1).ID_SCHEMA_LEN - (finale - nx)) <= twipPixel,
             qPrintable(QString::number(amb->d.T(1).ID_SCHEMA_LEN)));
    QCOMPARE(amb->d.T(1).ID_LEN, 1.0f);  // the drawing has lengths of its own
    QCOMPARE(elaborazioni, 1);
    QCOMPARE(st.Sezioni.at(0).lunghezza, amb->d.T(1).ID_SCHEMA_LEN);

    // Dragged back behind the near end: nothing is stored.
    const SezioneDisegnata s2 = st.Sezioni.at(0);
    QTest::mouseMove(w, Pixel(s2.x, s2.y));
    QTest::mousePress(w, Qt::LeftButton, Qt::NoModifier, Pixel(s2.x, s2.y));
    QTest::mouseMove(w, Pixel(s2.x - s2.lunghezza - 300, s2.y));
    QTest::mouseRelease(w, Qt::LeftButton, Qt::NoModifier, Pixel(s2.x - s2.lunghezza - 300, s2.y));
    QCOMPARE(amb->d.T(1).ID_SCHEMA_LEN, s2.lunghezza);
    QCOMPARE(elaborazioni, 1);
}

void TestSchema::quattroDoppiClickSullaSorgente() {
    Apri(1);
    QCOMPARE(amb->d.OrientamentoSorgente, int16_t(0));
    for (int i = 1; i <= 4; ++i) {
        const ParametriWalk& w = p->Stato().Parametri;
        const double f = w.Fattore;
        const QPoint sorgente = Pixel(w.X0 - f * 240, w.Y0 + f * 120);
        QTest::mouseDClick(p->Display(), Qt::LeftButton, Qt::NoModifier, sorgente);
        QCOMPARE(amb->d.OrientamentoSorgente, int16_t(i % 4));
    }
    QCOMPARE(elaborazioni, 4);
    QCOMPARE(amb->d.ReteModificata, VERO);
    // A double click on a section opens its panel through the window.
    int pannello = 0;
    p->ApriParametriTronco = [&](int t) { pannello = t; };
    const SezioneDisegnata s1 = p->Stato().Sezioni.at(0);
    QTest::mouseDClick(p->Display(), Qt::LeftButton, Qt::NoModifier, Pixel(s1.x - s1.lunghezza / 2.0, s1.y));
    QCOMPARE(pannello, 1);
}

void TestSchema::clickSelezionaECancSelezionato() {
    Apri(3);  // a chain 1 - 2 - 3
    StatoSchema& st = p->Stato();
    const SezioneDisegnata s2 = st.Sezioni.at(1);
    QCOMPARE(s2.n, int16_t(2));
    const double mx = s2.x - PassoX(s2.direzione) * s2.lunghezza / 2.0;
    const double my = s2.y - PassoY(s2.direzione) * s2.lunghezza / 2.0;
    QTest::mouseClick(p->Display(), Qt::LeftButton, Qt::NoModifier, Pixel(mx, my));
    QCOMPARE(st.TroncoSelezionato, int16_t(2));
    QCOMPARE(amb->s.TroncoSelezionato, 2);
    // Repainted red.
    const double nx = s2.x - PassoX(s2.direzione) * s2.lunghezza, ny = s2.y - PassoY(s2.direzione) * s2.lunghezza;
    QVERIFY(PixelDi(Qt::red, nx, ny, s2.x, s2.y) >= 15);

    // Cancelled in the dialog: nothing happens.
    p->ChiediTipoCancellazione = [] { return 0; };
    QTest::keyClick(p->Display(), Qt::Key_Delete);
    QCOMPARE(amb->d.NumTronchi(), 3);
    // "Elimina e compatta": the section and its branch go.
    p->ChiediTipoCancellazione = [] { return TipoCancellazione::ELIMINA_E_COMPATTA; };
    QTest::keyClick(p->Display(), Qt::Key_Delete);
    QCOMPARE(amb->d.NumTronchi(), 1);
    QCOMPARE(amb->d.T(1).ID_LEFT, int16_t(0));
    QCOMPARE(st.TroncoSelezionato, int16_t(0));
    QVERIFY(elaborazioni >= 1);
    // Nothing selected: Delete asks nothing.
    bool chiesto = false;
    p->ChiediTipoCancellazione = [&] {
        chiesto = true;
        return 0;
    };
    QTest::keyClick(p->Display(), Qt::Key_Delete);
    QVERIFY(!chiesto);
    // Unlinking the first section is refused with the product's message.
    QTest::mouseClick(p->Display(), Qt::LeftButton, Qt::NoModifier,
                      Pixel(st.Sezioni.at(0).x - st.Sezioni.at(0).lunghezza / 2.0, st.Sezioni.at(0).y));
    QCOMPARE(st.TroncoSelezionato, int16_t(1));
    p->ChiediTipoCancellazione = [] { return TipoCancellazione::SCOLLEGA; };
    amb->msg.mostrati.clear();
    QTest::keyClick(p->Display(), Qt::Key_Delete);
    QCOMPARE(Contati("Non è possibile scollegare il primo tronco."), 1);
    QCOMPARE(amb->d.NumTronchi(), 1);
}

void TestSchema::regioniEsauriteUnaVoltaPerWalk() {
    Apri(320);  // a click region per section: more than the table holds
    QCOMPARE(Contati("Esaurito spazio per regioni attive"), 0);
    p->Aggiorna();
    QCOMPARE(Contati("Esaurito spazio per regioni attive"), 1);
    p->Aggiorna();
    QCOMPARE(Contati("Esaurito spazio per regioni attive"), 2);
}

void TestSchema::zoomEBarre() {
    Apri(2);
    QString scala;
    int livello = 99;
    connect(p.get(), &SchemaPagina::zoomCambiato, p.get(), [&](int l, const QString& t) {
        livello = l;
        scala = t;
    });
    const int32_t passo0 = p->Stato().Sezioni.at(0).lunghezza;
    const QPoint a0 = Pixel(p->Stato().Sezioni.at(0).x, 0);
    p->ImpostaZoom(3);
    QCOMPARE(livello, 3);
    QCOMPARE(scala, QStringLiteral("137"));
    QCOMPARE(p->BarraVerticale()->maximum(), Rescale(3).maxVerticale);
    QCOMPARE(p->BarraOrizzontale()->maximum(), Rescale(3).maxOrizzontale);
    QCOMPARE(p->Stato().SchemaFattore, FattoreZoom(3));
    // Zoomed in, the same layout is larger on the screen.
    QCOMPARE(p->Stato().Sezioni.at(0).lunghezza, passo0);
    QVERIFY(Pixel(p->Stato().Sezioni.at(0).x, 0).x() > a0.x());
    p->ImpostaZoom(40);
    QCOMPARE(livello, int(ZOOM_MAX));
    p->ImpostaZoom(-40);
    QCOMPARE(livello, int(ZOOM_MIN));
    QCOMPARE(amb->s.Zoom, int(ZOOM_MIN));
    // The scroll bars move the view.
    const QPointF o = p->ATwip(QPointF(0, 0));
    p->BarraOrizzontale()->setValue(100);
    QCOMPARE(p->ATwip(QPointF(0, 0)).x(), o.x() + 1000.0);
}

void TestSchema::comandiDellaFinestraPrincipale() {
    amb = prova::NuovoAmbiente();
    fornax::ui::frmMainForm f(amb->s, amb->msg);
    f.resize(1200, 800);
    f.show();
    QVERIFY(f.ApriPercorso(QString::fromStdString(prova::AmbienteUi::Esempio("appartamento.RTG"))));
    fornax::ui::FinestraDocumento* w = f.Finestra();
    SchemaPagina* pagina = w->Schema();
    QVERIFY(pagina != nullptr);
    QCOMPARE(w->Schede()->indexOf(pagina), 1);
    w->Schede()->setCurrentIndex(1);
    QCOMPARE(pagina->Stato().Sezioni.size(), size_t(3));

    auto azione = [&](const char* nome) {
        QAction* a = f.findChild<QAction*>(QLatin1String(nome));
        QVERIFY2(a != nullptr, nome);
        a->trigger();
    };
    auto* scala = f.findChild<QLineEdit*>(QStringLiteral("txtScaleW"));
    azione("Command6");
    QCOMPARE(pagina->Stato().Zoom, int16_t(1));
    QCOMPARE(scala->text(), QStringLiteral("111"));
    azione("Command7");
    azione("Command7");
    QCOMPARE(pagina->Stato().Zoom, int16_t(-1));
    QCOMPARE(scala->text(), QStringLiteral("90"));

    // A section selected on the schema, deleted from the main frame through the dialog.
    const SezioneDisegnata s3 = pagina->Stato().Sezioni.at(2);
    QCOMPARE(s3.n, int16_t(3));
    QTest::mouseClick(
        pagina->Display(), Qt::LeftButton, Qt::NoModifier,
        pagina
            ->APixel(s3.x - PassoX(s3.direzione) * s3.lunghezza / 2.0, s3.y - PassoY(s3.direzione) * s3.lunghezza / 2.0)
            .toPoint());
    QCOMPARE(amb->s.TroncoSelezionato, 3);
    prova::QuandoModale([](QWidget* d) { d->findChild<QPushButton*>(QStringLiteral("cmdElimina"))->click(); });
    azione("SSCommandCancel");
    QCOMPARE(amb->d.NumTronchi(), 2);
    QCOMPARE(pagina->Stato().Sezioni.size(), size_t(2));
    QCOMPARE(amb->s.TroncoSelezionato, 0);
    // "Rigenera Schema" walks again: a stretched length set meanwhile shows.
    const int32_t prima = pagina->Stato().Sezioni.at(0).lunghezza;
    amb->d.T(1).ID_SCHEMA_LEN = prima + 777;
    azione("SSCommandRefresh");
    QCOMPARE(pagina->Stato().Sezioni.at(0).lunghezza, prima + 777);
    amb->d.ReteModificata = FALSO;
}

QTEST_MAIN(TestSchema)
#include "test_pagina_schema.moc"
