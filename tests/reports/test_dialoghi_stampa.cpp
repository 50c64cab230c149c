// The print dialog and its small windows, driven offscreen: the stored selection, the
// selection buttons, the checks before a run (copies, nothing chosen, no printer, the logo),
// one run per copy, the file choice, the page proportions, the progress bar, the manual and
// the printer list of a machine without printers.

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

#include "app/frmMainForm.h"
#include "core/FileTesto.h"
#include "core/ui/Controlli.h"
#include "documento/Progetto.h"
#include "reports/DispositivoRegistrato.h"
#include "reports/ui/Carta.h"
#include "reports/ui/frmManuale.h"
#include "reports/ui/frmPagina.h"
#include "reports/ui/frmPrintSchemaPreview.h"
#include "reports/ui/frmPrintWait.h"
#include "reports/ui/frmSelectPrinter.h"
#include "reports/ui/frmStampa.h"
#include "tests/ui/AmbienteUi.h"

using namespace fornax;
using namespace fornax::ui;
using fornax::prova::AmbienteUi;

namespace {

std::vector<bool> Caselle(const frmStampa& f) {
    return {f.chkCopertina->isChecked(),      f.ChkTronchi->isChecked(),       f.chkDiagrammaRete->isChecked(),
            f.chkPDCLocalizzate->isChecked(), f.ChkVerifica->isChecked(),      f.ChkUtenze->isChecked(),
            f.ChkComputo->isChecked(),        f.ChkTenutaImpianto->isChecked()};
}

bool Apri(AmbienteUi& e, const std::string& nome) {
    FileTesto f;
    if (!f.Apri(AmbienteUi::Esempio(nome))) return false;
    AvanzamentoNullo av;
    return LeggiProgettoDa(f, e.d, e.a, "/home/utente/Lavori/" + nome, e.msg, av);
}

// Runs of the printer's report, counted instead of printed.
struct Registro {
    std::vector<OpzioniStampante> esecuzioni;
    std::vector<std::string> pdf;
    void Collega(frmStampa& f) {
        f.StampaSuDispositivo = [this](const OpzioniStampante& o, const std::string& file) {
            esecuzioni.push_back(o);
            pdf.push_back(file);
            return EsitoStampante{true, 1, 1};
        };
    }
};

// A file dialog must never open in a test: it would wait for a user.
void SenzaDialoghiDiFile(frmStampa& f) {
    f.ChiediFilePdf = [] {
        QTest::qFail("una finestra di scelta del file si sarebbe aperta", __FILE__, __LINE__);
        return std::string();
    };
    f.ChiediFileRelazione = [](bool) {
        QTest::qFail("una finestra di scelta del file si sarebbe aperta", __FILE__, __LINE__);
        return std::string();
    };
}

bool Mostrato(const AmbienteUi& e, const std::string& testo) {
    for (const auto& v : e.msg.mostrati)
        if (v.testo == testo) return true;
    return false;
}

}  // namespace

class DialoghiStampa : public QObject {
    Q_OBJECT
private slots:
    // The preview of the schema: its three settings, zoom, font, and its two answers.
    void AnteprimaDelloSchema() {
        auto e = prova::NuovoAmbiente();
        QVERIFY(Apri(*e, "appartamento.RTG"));
        e->imp.Scrivi("Stampa", "PrintPreviewLastFontName", "");
        {
            frmPrintSchemaPreview f(e->d, e->a, e->imp, e->msg);
            f.ChiediFont = [](QFont&) {
                QTest::qFail("la finestra dei font si sarebbe aperta", __FILE__, __LINE__);
                return false;
            };
            QCOMPARE(f.windowTitle(), QStringLiteral("Preview"));
            QCOMPARE(f.FontEffettivo(), std::string("Arial"));  // a blank saved name
            QCOMPARE(f.DimensioneEffettiva(), 7.0);
            QCOMPARE(f.TextZoom->text(), QStringLiteral("1"));
            // The landscape page at 96 dots to the inch, black on white with the schema on it.
            QImage img = f.picSchema->pixmap().toImage();
            QCOMPARE(img.size(), QSize(1123, 794));
            int scuri = 0;
            for (int y = 0; y < img.height(); y += 2)
                for (int x = 0; x < img.width(); x += 2)
                    if (qGray(img.pixel(x, y)) < 100) ++scuri;
            QVERIFY2(scuri > 150, qPrintable(QString::number(scuri)));
            QTest::mouseClick(f.cmdZoomPlus, Qt::LeftButton);
            QCOMPARE(f.Zoom, 2.0f);
            QCOMPARE(f.picSchema->pixmap().size(), QSize(2245, 1587));
            QTest::mouseClick(f.cmdZoomMinus, Qt::LeftButton);
            QTest::mouseClick(f.cmdZoomMinus, Qt::LeftButton);
            QCOMPARE(f.Zoom, frmPrintSchemaPreview::ZOOM_MIN);
            f.TextZoom->setText(QStringLiteral("1,5"));
            QTest::mouseClick(f.cmdZoomApply, Qt::LeftButton);
            QCOMPARE(f.Zoom, 1.5f);
            QCOMPARE(f.picSchema->pixmap().width(), 1684);
            f.TextZoom->setText(QStringLiteral("abc"));  // not a number: the zoom stays
            f.TextZoom_LostFocus();
            QCOMPARE(f.Zoom, 1.5f);
            // The platform's font dialog: the choice shows and the picture follows it.
            f.ChiediFont = [](QFont& font) {
                font = QFont(QStringLiteral("DejaVu Serif"));
                font.setPointSizeF(9);
                return true;
            };
            QTest::mouseClick(f.cmdFont, Qt::LeftButton);
            QCOMPARE(f.FontEffettivo(), std::string("DejaVu Serif"));
            QCOMPARE(f.txtFontType->text(), QStringLiteral("DejaVu Serif 9"));
            // Annulla keeps the saved settings as they were.
            QTest::mouseClick(f.cmdCancel, Qt::LeftButton);
            QCOMPARE(f.Risultato, std::string("cancel"));
            QCOMPARE(e->imp.Leggi("Stampa", "PrintPreviewLastFontName", "-"), std::string());
            QCOMPARE(e->imp.Leggi("Stampa", "PrintPreviewLastZoom", "-"), std::string("-"));
            // Stampa stores the three.
            QTest::mouseClick(f.cmdPrint, Qt::LeftButton);
            QCOMPARE(f.Risultato, std::string("print"));
            QCOMPARE(e->imp.Leggi("Stampa", "PrintPreviewLastFontName"), std::string("DejaVu Serif"));
            QCOMPARE(e->imp.Leggi("Stampa", "PrintPreviewLastFontSize"), std::string("9"));
            QCOMPARE(e->imp.Leggi("Stampa", "PrintPreviewLastZoom"), std::string("1.5"));
        }
        frmPrintSchemaPreview f(e->d, e->a, e->imp, e->msg);
        QCOMPARE(f.FontEffettivo(), std::string("DejaVu Serif"));
        QCOMPARE(f.Zoom, 1.5f);
        // Escape answers "cancel".
        QTest::keyClick(&f, Qt::Key_Escape);
        QCOMPARE(f.Risultato, std::string("cancel"));
    }

    // The schema alone to the printer (a PDF file on a machine without printers), after its
    // question.
    void StampaDelloSchema() {
        auto e = prova::NuovoAmbiente();
        QVERIFY(Apri(*e, "bifamiliare-gpl.RTG"));
        if (!StampantiInstallate().isEmpty()) QSKIP("questa macchina ha una stampante");
        const std::string pdf = e->cartella.Percorso("schema.pdf");
        int chiesti = 0;
        auto chiedi = [&] {
            ++chiesti;
            return pdf;
        };
        e->msg.risposte = {Risposta::NO};
        QVERIFY(!PrintSchema(e->d, e->a, e->imp, e->msg, chiedi));
        QCOMPARE(e->msg.mostrati.back().testo, std::string("Confermi la stampa dello schema grafico?"));
        QCOMPARE(e->msg.mostrati.back().flags, Box::YESNO | Box::QUESTION);
        QCOMPARE(chiesti, 0);
        e->msg.risposte = {Risposta::YES};
        QVERIFY(PrintSchema(e->d, e->a, e->imp, e->msg, chiedi));
        QCOMPARE(chiesti, 1);
        const std::string byte = prova::CartellaProva::LeggiFile(pdf);
        QVERIFY(byte.rfind("%PDF-", 0) == 0);
        QVERIFY(byte.find("/MediaBox [0 0 842.000000 595.000000]") != std::string::npos);  // landscape A4
    }

    // "Stampa avanzata": the fit cleared, one question, one copy; the schema goes to paper only
    // when its preview says "print", with the font chosen there.
    void StampaAvanzata() {
        auto e = prova::NuovoAmbiente();
        QVERIFY(Apri(*e, "appartamento.RTG"));
        frmStampa f(e->d, e->a, e->imp, e->msg);
        SenzaDialoghiDiFile(f);
        // No printer: the run goes to the PDF file named here (the run itself is counted, not made).
        f.StampantiPresenti = [] { return false; };
        f.ChiediFilePdf = [&] { return e->cartella.Percorso("avanzata.pdf"); };
        Registro r;
        r.Collega(f);
        QVERIFY(f.chkDiagrammaRete->isEnabled() && f.AdaptSchemaToPage->isEnabled() && f.cmdPrintPreview->isEnabled());
        QTest::mouseClick(f.SSCommand1[1], Qt::LeftButton);
        f.AdaptSchemaToPage->setChecked(true);
        std::vector<bool> anteprima = {false, true};
        int aperte = 0;
        f.AnteprimaSchema = [&](std::string& nome, double& dimensione) {
            nome = "DejaVu Serif";
            dimensione = 9;
            return anteprima[static_cast<size_t>(aperte++)];
        };
        e->msg.risposte = {Risposta::NO};
        f.cmdPrintPreview_Click();
        QVERIFY(!f.AdaptSchemaToPage->isChecked());
        QCOMPARE(e->msg.mostrati.back().testo, std::string("Confermi stampa?"));
        QCOMPARE(e->msg.mostrati.back().flags, Box::YESNO | Box::QUESTION);
        QCOMPARE(aperte, 0);
        QVERIFY(r.esecuzioni.empty());
        // Cancelled in the preview: the rest is printed, the schema is not.
        e->msg.risposte = {Risposta::YES};
        f.cmdPrintPreview_Click();
        QCOMPARE(aperte, 1);
        QCOMPARE(r.esecuzioni.size(), size_t(1));
        QVERIFY(!r.esecuzioni[0].schema);
        QVERIFY(!r.esecuzioni[0].adattaSchema);
        QCOMPARE(f.Esecuzioni, 1);
        // "print": the page of the schema, drawn with the preview's font.
        e->msg.risposte = {Risposta::YES};
        f.cmdPrintPreview_Click();
        QCOMPARE(r.esecuzioni.size(), size_t(2));
        QVERIFY(static_cast<bool>(r.esecuzioni[1].schema));
        DispositivoRegistrato dev;
        dev.ImpostaOrientamento(2);
        const GeometriaPagina g = ImpostaPagina(dev.Larghezza(), dev.Altezza(), {});
        r.esecuzioni[1].schema(PaginaSchemaStampa{dev, g, false});
        QCOMPARE(dev.schemi.size(), size_t(1));
        QCOMPARE(dev.schemi[0]->Font(), std::string("DejaVu Serif"));
        QCOMPARE(dev.schemi[0]->Punti(), 9.0);
        QCOMPARE(e->msg.mostrati.back().testo, std::string("Stampa completata"));
        // A file report has no preview.
        f.chkPrintFile->setChecked(true);
        QVERIFY(!f.cmdPrintPreview->isEnabled() && !f.AdaptSchemaToPage->isEnabled());
    }

    void SetStampeESelezioni() {
        auto e = prova::NuovoAmbiente();
        {
            // Nothing stored: all eight boxes clear, and the user's own button leaves them so.
            frmStampa f(e->d, e->a, e->imp, e->msg);
            SenzaDialoghiDiFile(f);
            QCOMPARE(Caselle(f), std::vector<bool>(8, false));
            QTest::mouseClick(f.SSCommand1[3], Qt::LeftButton);
            QCOMPARE(Caselle(f), std::vector<bool>(8, false));
            QTest::mouseClick(f.SSCommand1[0], Qt::LeftButton);
            QCOMPARE(Caselle(f), std::vector<bool>(8, true));
            QVERIFY(f.chkDiagrammaRete->isEnabled());
            QTest::mouseClick(f.SSCommand1[1], Qt::LeftButton);
            QCOMPARE(Caselle(f), (std::vector<bool>{true, true, true, false, true, false, false, false}));
            QTest::mouseClick(f.SSCommand1[2], Qt::LeftButton);
            QCOMPARE(Caselle(f), (std::vector<bool>{false, true, false, true, false, false, true, false}));
            // A right click asks, and stores the boxes on Yes, with a ninth blank.
            e->msg.risposte = {Risposta::NO};
            emit f.SSCommand1[3]->customContextMenuRequested(QPoint(2, 2));
            QCOMPARE(e->msg.mostrati.back().testo, std::string("Memorizzare le nuove opzioni di stampa?"));
            QCOMPARE(e->msg.mostrati.back().flags, Box::YESNO | Box::QUESTION);
            QCOMPARE(e->imp.Leggi("Stampa", "SetStampe"), std::string());
            emit f.SSCommand1[3]->customContextMenuRequested(QPoint(2, 2));
            QCOMPARE(e->imp.Leggi("Stampa", "SetStampe"), std::string("BABABBAB "));
        }
        frmStampa f(e->d, e->a, e->imp, e->msg);
        SenzaDialoghiDiFile(f);
        QCOMPARE(Caselle(f), (std::vector<bool>{false, true, false, true, false, false, true, false}));
        e->imp.Scrivi("Stampa", "SetStampe", "   ");
        QTest::mouseClick(f.SSCommand1[0], Qt::LeftButton);
        QTest::mouseClick(f.SSCommand1[3], Qt::LeftButton);
        QCOMPARE(Caselle(f), std::vector<bool>(8, false));
        // Captions as the user reads them.
        QCOMPARE(f.ChkVerifica->text(), QStringLiteral(" Verifica percorso piu' sfavorito"));
        QCOMPARE(f.SSCommand1[3]->text(), QStringLiteral("Stampa personalizzata (click destro memorizza)"));
        QCOMPARE(f.cmdPrint->text(), QStringLiteral("Stampa rapida"));
        QCOMPARE(f.txtDate->text(), QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")));
    }

    void StampaSuFile() {
        auto e = prova::NuovoAmbiente();
        frmStampa f(e->d, e->a, e->imp, e->msg);
        SenzaDialoghiDiFile(f);
        QVERIFY(!f.comboFileType->isEnabled());
        QCOMPARE(f.comboFileType->currentText(), QString());
        f.chkPrintFile->setChecked(true);
        QVERIFY(!f.cmdPrinter->isEnabled() && !f.cmdPage->isEnabled() && !f.Label2->isEnabled());
        QVERIFY(f.comboFileType->isEnabled());
        QCOMPARE(f.comboFileType->currentText(), QStringLiteral("HTML"));
        QVERIFY(!f.cmdPrintPreview->isEnabled());
        QVERIFY(f.lblPrintPreviewDisabledFile->isVisibleTo(&f));
        f.comboFileType->setCurrentIndex(1);
        QVERIFY(!f.chkDiagrammaRete->isEnabled());
        f.chkPrintFile->setChecked(false);
        QVERIFY(f.cmdPrinter->isEnabled() && f.cmdPage->isEnabled());
        QCOMPARE(f.comboFileType->currentText(), QString());
        QVERIFY(!f.lblPrintPreviewDisabledFile->isVisibleTo(&f));
    }

    void ControlliPrimaDellaStampa() {
        auto e = prova::NuovoAmbiente();
        QVERIFY(Apri(*e, "appartamento.RTG"));
        Registro r;
        frmStampa f(e->d, e->a, e->imp, e->msg);
        SenzaDialoghiDiFile(f);
        r.Collega(f);
        f.StampantiPresenti = [] { return true; };
        // The PDF file chosen among the printers: a file for each copy.
        e->imp.Scrivi("Stampa", "Stampante", "File PDF");
        int pdf = 0;
        f.ChiediFilePdf = [&] { return e->cartella.Percorso("copia" + std::to_string(++pdf) + ".pdf"); };
        const std::string minore = "Attenzione: Il numero di stampe impostate è minore di 1.";
        // Copies of 0 or not a number stop before anything else, even with nothing chosen.
        for (const char* copie : {"0", "abc", "-2"}) {
            e->msg.mostrati.clear();
            f.txtNumCopies->setText(QString::fromUtf8(copie));
            f.cmdPrint_Click();
            QCOMPARE(e->msg.mostrati.size(), size_t(1));
            QCOMPARE(e->msg.mostrati[0].testo, minore);
        }
        f.txtNumCopies->setText(QStringLiteral("1"));
        e->msg.mostrati.clear();
        f.cmdPrint_Click();
        QCOMPARE(e->msg.mostrati.back().testo, std::string("Nessuna opzione selezionata.Selezionarne almeno una."));
        QVERIFY(r.esecuzioni.empty());

        // Two copies: one question, two runs, one closing box.
        QTest::mouseClick(f.SSCommand1[0], Qt::LeftButton);
        f.txtNumCopies->setText(QStringLiteral("2"));
        f.txtDate->setText(QStringLiteral("05/06/2026"));
        e->imp.Scrivi("Ditta", "Riga1", "Studio Bianchi");
        e->imp.Scrivi("Stampa", "X-percent", "90");
        e->msg.mostrati.clear();
        f.cmdPrint_Click();
        QCOMPARE(e->msg.mostrati.size(), size_t(2));
        QCOMPARE(e->msg.mostrati[0].testo, std::string("Confermi l'esecuzione di 2 stampe?"));
        QCOMPARE(e->msg.mostrati[0].flags, Box::YESNO | Box::QUESTION);
        QCOMPARE(e->msg.mostrati[1].testo, std::string("Stampa completata"));
        QCOMPARE(r.esecuzioni.size(), size_t(2));
        QCOMPARE(f.Esecuzioni, 2);
        const OpzioniStampante& o = r.esecuzioni[0];
        QCOMPARE(o.stampa.DataStampa, std::string("05/06/2026"));
        QCOMPARE(o.stampa.DittaRiga1, std::string("Studio Bianchi"));
        QCOMPARE(o.proporzioni.PercentoX, 90);
        QCOMPARE(o.proporzioni.PercentoY, 100);
        QCOMPARE(e->imp.Leggi("Stampa", "Y-percent"), std::string("100"));  // 0 or missing is saved as 100
        QCOMPARE(o.stampa.selezione.Lettere(), std::string("AAAAAAAA"));    // the schema too
        QVERIFY(static_cast<bool>(o.schema));
        QVERIFY(!o.stampa.logo);
        QCOMPARE(r.pdf[1], e->cartella.Percorso("copia2.pdf"));  // a file for each copy

        // Answering No runs nothing.
        e->msg.risposte = {Risposta::NO};
        f.txtNumCopies->setText(QStringLiteral("1"));
        f.cmdPrint_Click();
        QCOMPARE(r.esecuzioni.size(), size_t(2));
    }

    void Logo() {
        auto e = prova::NuovoAmbiente();
        QVERIFY(Apri(*e, "appartamento.RTG"));
        const std::string troppo = "Le dimensioni massime consentite sono 184 X 41 pixel.\nIl logo non verrà stampato.";
        struct Caso {
            int larghezza, altezza;
            bool usato;
        } casi[] = {{153, 20, true}, {154, 20, false}, {153, 21, false}, {80, 10, true}};
        for (const Caso& c : casi) {
            // 2295 x 300 twips is 153 x 20 pixels at 15 twips to the pixel.
            QImage logo(c.larghezza, c.altezza, QImage::Format_RGB32);
            logo.fill(Qt::darkBlue);
            QVERIFY(logo.save(QString::fromStdString(e->cartella.Percorso("logo.bmp")), "BMP"));
            Registro r;
            frmStampa f(e->d, e->a, e->imp, e->msg);
            SenzaDialoghiDiFile(f);
            r.Collega(f);
            f.StampantiPresenti = [] { return true; };
            e->imp.Scrivi("Stampa", "Stampante", "File PDF");
            f.ChiediFilePdf = [&] { return e->cartella.Percorso("logo.pdf"); };
            QTest::mouseClick(f.SSCommand1[0], Qt::LeftButton);
            e->msg.mostrati.clear();
            f.cmdPrint_Click();
            QCOMPARE(r.esecuzioni.size(), size_t(1));
            QCOMPARE(r.esecuzioni[0].stampa.logo, c.usato);
            QCOMPARE(Mostrato(*e, troppo), !c.usato);
            if (c.usato) QCOMPARE(r.esecuzioni[0].fileLogo, e->cartella.Percorso("logo.bmp"));
        }
    }

    void SenzaStampante() {
        auto e = prova::NuovoAmbiente();
        QVERIFY(Apri(*e, "appartamento.RTG"));
        const std::string nessuna = "ATTENZIONE!!!\nNon è stata installata alcuna stampante sul sistema.";
        {
            // Neither a printer nor PDF: the product's message.
            frmStampa f(e->d, e->a, e->imp, e->msg);
            SenzaDialoghiDiFile(f);
            f.StampantiPresenti = [] { return false; };
            f.PdfPossibile = false;
            QTest::mouseClick(f.SSCommand1[0], Qt::LeftButton);
            f.cmdPrint_Click();
            QCOMPARE(e->msg.mostrati.back().testo, nessuna);
            QCOMPARE(e->msg.mostrati.back().flags, Box::EXCLAMATION);
            // A file ticked goes on all the same.
            f.chkPrintFile->setChecked(true);
            f.comboFileType->setCurrentIndex(1);
            const std::string txt = e->cartella.Percorso("relazione.txt");
            int chiesti = 0;
            f.ChiediFileRelazione = [&](bool html) {
                chiesti += html ? 100 : 1;
                return txt;
            };
            e->msg.mostrati.clear();
            f.cmdPrint_Click();
            QVERIFY(!Mostrato(*e, nessuna));
            QCOMPARE(chiesti, 1);  // one text file asked for
            QVERIFY(Mostrato(*e, "Stampa su file TXT conclusa con successo."));
            QCOMPARE(e->msg.mostrati.back().testo, std::string("Stampa completata"));
            QVERIFY(prova::CartellaProva::LeggiFile(txt).find("Tabella dati tronchi") != std::string::npos);
        }
        // No printer, PDF possible: the dialog says so, and the printer's report goes to a PDF.
        frmStampa f(e->d, e->a, e->imp, e->msg);
        SenzaDialoghiDiFile(f);
        f.StampantiPresenti = [] { return false; };
        f.AggiornaStampante();
        QVERIFY(f.lblPdf->isVisibleTo(&f));
        QVERIFY(f.PrinterSelectedTxt->text().endsWith(QStringLiteral("File PDF")));
        const std::string pdf = e->cartella.Percorso("relazione.pdf");
        f.ChiediFilePdf = [&] { return pdf; };
        QTest::mouseClick(f.SSCommand1[0], Qt::LeftButton);
        e->msg.mostrati.clear();
        f.cmdPrint_Click();
        QCOMPARE(e->msg.mostrati.back().testo, std::string("Stampa completata"));
        const std::string byte = prova::CartellaProva::LeggiFile(pdf);
        QVERIFY(byte.rfind("%PDF-", 0) == 0);
        QVERIFY(byte.size() > 5000);
    }

    void Pagina() {
        auto e = prova::NuovoAmbiente();
        frmPagina f(e->imp);
        QCOMPARE(f.txtW->text(), QStringLiteral("100%"));
        QCOMPARE(f.lblNota->text().split(QLatin1Char('\n')).size(), 7);
        f.ImpostaW(79);
        QCOMPARE(f.txtW->text(), QStringLiteral("80%"));
        f.ImpostaH(121);
        QCOMPARE(f.txtH->text(), QStringLiteral("120%"));
        QTest::mouseClick(f.cmdPlusH, Qt::LeftButton);
        QCOMPARE(f.PercentoY(), 120);
        QTest::mouseClick(f.cmdMinusH, Qt::LeftButton);
        QCOMPARE(f.PercentoY(), 119);
        // A typed value is taken when the box is left.
        f.txtW->setText(QStringLiteral("79"));
        emit f.txtW->editingFinished();
        QCOMPARE(f.txtW->text(), QStringLiteral("80%"));
        f.txtW->setText(QStringLiteral("95"));
        emit f.txtW->editingFinished();
        QCOMPARE(f.PercentoX(), 95);
        // The picture in proportion, centred.
        const QRect r = f.picPage->geometry();
        QCOMPARE(r.width(), static_cast<int>(f.picFull->width() * 0.95 * 0.9));
        QCOMPARE(r.height(), static_cast<int>(f.picFull->height() * 1.19 * 0.9));
        QVERIFY(std::abs(r.center().x() - f.picFull->width() / 2) <= 1);
        // Annulla leaves the settings, OK stores both.
        QTest::mouseClick(f.Command2, Qt::LeftButton);
        QCOMPARE(e->imp.Leggi("Stampa", "X-percent"), std::string("100"));
        QTest::mouseClick(f.Command1, Qt::LeftButton);
        QCOMPARE(e->imp.Leggi("Stampa", "X-percent"), std::string("95"));
        QCOMPARE(e->imp.Leggi("Stampa", "Y-percent"), std::string("119"));
        QCOMPARE(LeggiProporzioni(e->imp).PercentoX, 95);
    }

    void AttesaEManuale() {
        frmPrintWait w;
        w.UpdateBar(1, 4);
        QCOMPARE(w.ProgressBar1->value(), 25);
        w.UpdateBar(3, 0);
        QCOMPARE(w.ProgressBar1->value(), 0);
        w.Testo("Riepilogo utenze");
        QCOMPARE(w.lblMsg->text(), QStringLiteral("Riepilogo utenze"));
        QVERIFY(!w.isModal());

        auto e = prova::NuovoAmbiente();
        {
            prova::CartellaProva senzaManuale("manuale");
            frmManuale m(senzaManuale.Percorso(), e->msg);
            QVERIFY(!m.LoadManuale());
            QCOMPARE(e->msg.mostrati.back().testo, std::string("Non trovo il file fornax.txt "));
        }
        e->cartella.ScriviByte("fornax.txt", "Caff\xe8 e stampa\r\nseconda riga\r\n");
        frmManuale m(e->cartella.Percorso(), e->msg);
        QVERIFY(m.LoadManuale());
        QCOMPARE(m.Text1->toPlainText(), QStringLiteral("Caffè e stampa\nseconda riga"));
        QVERIFY(m.Text1->isReadOnly());
    }

    // The main frame offers printing once a project is open.
    void ComandiDelFrame() {
        auto e = prova::NuovoAmbiente();
        frmMainForm m(e->s, e->msg);
        m.AttivitaDopoChiusura = false;
        auto* stampa = m.findChild<QAction*>(QStringLiteral("StampaMnu"));
        QVERIFY(stampa && m.findChild<QAction*>(QStringLiteral("mnuImpostaStampante")));
        QCOMPARE(stampa->text(), QStringLiteral("S&tampa..."));
        QVERIFY(!stampa->isEnabled());
        QVERIFY(m.ApriPercorso(QString::fromStdString(AmbienteUi::Esempio("appartamento.RTG"))));
        QVERIFY(stampa->isEnabled());
    }

    void StampantiECarta() {
        QCOMPARE(NomeCarta(9), QStringLiteral("A4 (21 x 29,7 cm)"));
        QCOMPARE(NomeCarta(8), QStringLiteral("A3 (29,7 x 42 cm)."));
        QCOMPARE(NomeCarta(41), QStringLiteral("Uso bollo modulo continuo tedesco, 8 1/2 x 13"));
        QCOMPARE(NomeCarta(42), QStringLiteral("Definito dall'utente."));
        QCOMPARE(CodiceCarta(FormatoCarta(9)), 9);
        QCOMPARE(FormatoCarta(8).id(), QPageSize::A3);

        auto e = prova::NuovoAmbiente();
        frmSelectPrinter s(e->imp);
        // This machine's printers (none in the test run), then the PDF file, always last.
        const int n = s.List1->count();
        QVERIFY(n >= 1);
        QVERIFY(s.List1->item(n - 1)->text().startsWith(STAMPANTE_PDF + QStringLiteral("   -   ")));
        s.List1->setCurrentRow(n - 1);
        QCOMPARE(s.SelectedPrinterText->text(), STAMPANTE_PDF);
        QCOMPARE(s.cmbFormat->currentText(), QStringLiteral("A4 (21 x 29,7 cm)"));
        s.cmbFormat->setCurrentIndex(s.cmbFormat->findText(QStringLiteral("A3 (29,7 x 42 cm).")));
        QTest::mouseClick(s.Command2, Qt::LeftButton);
        QCOMPARE(e->imp.Leggi("Stampa", "Stampante"), S(STAMPANTE_PDF));
        QCOMPARE(e->imp.Leggi("Stampa", "Carta"), std::string("8"));
        frmStampa f(e->d, e->a, e->imp, e->msg);
        SenzaDialoghiDiFile(f);
        QCOMPARE(f.PrinterSelectedTxt->text(), QStringLiteral("A3 (29,7 x 42 cm).   -   File PDF"));
    }
};

QTEST_MAIN(DialoghiStampa)
#include "test_dialoghi_stampa.moc"
