#include "reports/ui/frmPrintSchemaPreview.h"

#include <QFocusEvent>
#include <QFontDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <cmath>

#include "core/Cartelle.h"
#include "core/Numeri.h"
#include "core/Testo.h"
#include "core/ui/Controlli.h"
#include "reports/Stampa.h"
#include "reports/Stampante.h"
#include "reports/ui/Carta.h"
#include "reports/ui/DispositivoQPrinter.h"
#include "reports/ui/SchemaSuCarta.h"
#include "reports/ui/frmSelectPrinter.h"
#include "schema/Carta.h"
#include "schema/ui/SchemaQt.h"

namespace fornax::ui {

namespace {

constexpr const char* kSezione = "Stampa";

// A line edit that tells when it loses the focus, as the zoom box must.
class CasellaZoom final : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    std::function<void()> uscita;

protected:
    void focusOutEvent(QFocusEvent* e) override {
        QLineEdit::focusOutEvent(e);
        if (uscita) uscita();
    }
};

std::string TestoZoom(float z) {
    std::string t = std::to_string(std::nearbyint(static_cast<double>(z) * 100.0) / 100.0);
    while (!t.empty() && t.back() == '0') t.pop_back();
    if (!t.empty() && t.back() == '.') t.pop_back();
    return t;
}

}  // namespace

frmPrintSchemaPreview::frmPrintSchemaPreview(Documento& d, const Archivi& a, Impostazioni& imp, Messaggi& msg,
                                             QWidget* padre)
    : QDialog(padre), d_(d), a_(a), imp_(imp), msg_(msg) {
    setObjectName(QStringLiteral("frmPrintSchemaPreview"));
    setWindowTitle(QStringLiteral("Preview"));
    ChiediFont = [this](QFont& f) {
        bool ok = false;
        const QFont scelto = QFontDialog::getFont(&ok, f, this, QStringLiteral("Font testo"));
        if (ok) f = scelto;
        return ok;
    };

    auto* lay = new QVBoxLayout(this);
    picArea = new QScrollArea(this);
    picArea->setObjectName(QStringLiteral("picArea"));
    picSchema = new QLabel;
    picSchema->setObjectName(QStringLiteral("picSchema"));
    picArea->setWidget(picSchema);
    picArea->setBackgroundRole(QPalette::Dark);
    HpicScroll = picArea->horizontalScrollBar();
    VpicScroll = picArea->verticalScrollBar();
    lay->addWidget(picArea, 1);

    auto* riga = new QHBoxLayout;
    auto* zoom = new QGroupBox(QStringLiteral("Zoom"), this);
    auto* lz = new QHBoxLayout(zoom);
    auto* casella = new CasellaZoom(zoom);
    casella->uscita = [this] { TextZoom_LostFocus(); };
    TextZoom = casella;
    TextZoom->setObjectName(QStringLiteral("TextZoom"));
    TextZoom->setMaximumWidth(60);
    auto bottone = [](QWidget* padreB, const QString& testo, const char* nome) {
        auto* b = new QPushButton(testo, padreB);
        b->setObjectName(QString::fromLatin1(nome));
        b->setAutoDefault(false);
        return b;
    };
    cmdZoomMinus = bottone(zoom, QStringLiteral("-"), "cmdZoomMinus");
    cmdZoomPlus = bottone(zoom, QStringLiteral("+"), "cmdZoomPlus");
    cmdZoomApply = bottone(zoom, QStringLiteral("Applica"), "cmdZoomApply");
    lz->addWidget(TextZoom);
    lz->addWidget(cmdZoomMinus);
    lz->addWidget(cmdZoomPlus);
    lz->addWidget(cmdZoomApply);
    riga->addWidget(zoom);

    auto* font = new QGroupBox(QStringLiteral("Font testo"), this);
    auto* lf = new QHBoxLayout(font);
    txtFontType = new QLineEdit(font);
    txtFontType->setObjectName(QStringLiteral("txtFontType"));
    txtFontType->setReadOnly(true);
    cmdFont = bottone(font, QStringLiteral("..."), "cmdFont");
    lf->addWidget(txtFontType);
    lf->addWidget(cmdFont);
    riga->addWidget(font, 1);

    cmdPrint = bottone(this, QStringLiteral("Stampa"), "cmdPrint");
    cmdCancel = bottone(this, QStringLiteral("Annulla"), "cmdCancel");
    riga->addWidget(cmdPrint);
    riga->addWidget(cmdCancel);
    lay->addLayout(riga);

    connect(cmdZoomPlus, &QPushButton::clicked, this, [this] { cmdZoomPlus_Click(); });
    connect(cmdZoomMinus, &QPushButton::clicked, this, [this] { cmdZoomMinus_Click(); });
    connect(cmdZoomApply, &QPushButton::clicked, this, [this] { TextZoom_LostFocus(); });
    connect(TextZoom, &QLineEdit::returnPressed, this, [this] { TextZoom_LostFocus(); });
    connect(cmdFont, &QPushButton::clicked, this, [this] { cmdFont_Click(); });
    connect(cmdPrint, &QPushButton::clicked, this, [this] { cmdPrint_Click(); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });

    // Load: the three settings, then the picture.
    NomeFont = imp_.Leggi(kSezione, "PrintPreviewLastFontName", "arial");
    DimensioneFont = LeggiNumero(imp_.Leggi(kSezione, "PrintPreviewLastFontSize"));
    const double z = LeggiNumero(imp_.Leggi(kSezione, "PrintPreviewLastZoom"));
    Zoom = z > 0 ? std::clamp(static_cast<float>(z), ZOOM_MIN, ZOOM_MAX) : 1.0f;
    resize(900, 640);
    pictureRepaint();
}

std::string frmPrintSchemaPreview::FontEffettivo() const { return Trim(NomeFont).empty() ? "Arial" : NomeFont; }

double frmPrintSchemaPreview::DimensioneEffettiva() const { return DimensioneFont > 0 ? DimensioneFont : 7; }

void frmPrintSchemaPreview::pictureRepaint() {
    TextZoom->setText(Q(TestoZoom(Zoom)));
    txtFontType->setText(Q(FontEffettivo() + " " + TestoZoom(static_cast<float>(DimensioneEffettiva()))));
    // The landscape page at 96 dots to the inch, times the zoom.
    const double scala = DPI_IMMAGINE_SCHEMA / 1440.0 * static_cast<double>(Zoom);
    const int w = static_cast<int>(std::lround(LARGHEZZA_IMMAGINE_SCHEMA * scala));
    const int h = static_cast<int>(std::lround(ALTEZZA_IMMAGINE_SCHEMA * scala));
    QImage img(std::max(1, w), std::max(1, h), QImage::Format_RGB32);
    img.fill(Qt::white);
    {
        QPainter p(&img);
        schema::ui::SchemaQt t(p, LARGHEZZA_IMMAGINE_SCHEMA, ALTEZZA_IMMAGINE_SCHEMA, scala,
                               schema::ui::Aspetto::Carta);
        schema::StatoSchema stato(msg_);
        schema::OpzioniCarta o;
        o.superficie = schema::Superficie::Schema;
        o.nomeFont = FontEffettivo();
        o.dimensioneFont = DimensioneEffettiva();
        schema::DisegnaSuCarta(stato, d_, a_, t, o);
    }
    picSchema->setPixmap(QPixmap::fromImage(img));
    picSchema->resize(img.size());
}

void frmPrintSchemaPreview::cmdZoomPlus_Click() {
    Zoom = std::min(ZOOM_MAX, Zoom + 1.0f);
    pictureRepaint();
}

void frmPrintSchemaPreview::cmdZoomMinus_Click() {
    // Below 1 the steps would leave the range: the smallest zoom stops it.
    Zoom = std::max(ZOOM_MIN, Zoom - 1.0f);
    pictureRepaint();
}

void frmPrintSchemaPreview::TextZoom_LostFocus() {
    const std::string t = Trim(S(TextZoom->text()));
    const double v = LeggiNumero(t);
    if (v > 0) Zoom = std::clamp(static_cast<float>(v), ZOOM_MIN, ZOOM_MAX);
    pictureRepaint();
}

void frmPrintSchemaPreview::cmdFont_Click() {
    QFont f(Q(FontEffettivo()));
    f.setPointSizeF(DimensioneEffettiva());
    if (!ChiediFont(f)) return;
    NomeFont = S(f.family());
    if (f.pointSizeF() > 0) DimensioneFont = f.pointSizeF();
    pictureRepaint();
}

void frmPrintSchemaPreview::cmdPrint_Click() {
    imp_.Scrivi(kSezione, "PrintPreviewLastFontName", NomeFont);
    imp_.Scrivi(kSezione, "PrintPreviewLastFontSize", TestoZoom(static_cast<float>(DimensioneEffettiva())));
    imp_.Scrivi(kSezione, "PrintPreviewLastZoom", TestoZoom(Zoom));
    Risultato = "print";
    accept();
}

void frmPrintSchemaPreview::cmdCancel_Click() {
    Risultato = "cancel";
    QDialog::reject();
}

void frmPrintSchemaPreview::reject() { cmdCancel_Click(); }

bool PrintSchema(Documento& d, const Archivi& a, Impostazioni& imp, Messaggi& msg,
                 const std::function<std::string()>& chiediPdf) {
    if (msg.Mostra(DOMANDA_STAMPA_SCHEMA, Box::YESNO | Box::QUESTION) != Risposta::YES) return false;
    const StampanteScelta scelta = StampanteCorrente(imp);
    const bool pdf = StampantiInstallate().isEmpty() || scelta.nome == STAMPANTE_PDF;
    QPrinter printer(QPrinter::HighResolution);
    if (pdf) {
        const std::string percorso = chiediPdf ? chiediPdf() : std::string();
        if (!UscitaConfermata(percorso, msg)) return false;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(Q(percorso));
    } else {
        printer.setPrinterName(scelta.nome);
    }
    printer.setCreator(QStringLiteral("Fornax"));
    printer.setDocName(Q(d.Riferimento));
    printer.setPageSize(FormatoCarta(scelta.carta));
    printer.setPageOrientation(QPageLayout::Landscape);
    DispositivoQPrinter dev(printer);
    try {
        // The heading, then the schema fitted to the page below it.
        Carattere c;
        dev.ImpostaFont(c);
        dev.Testo(1000, 500, NomeDi(d.NomeFileProgetto) + " - Riferimento: " + d.Riferimento);
        schema::SchemaTarget& t = dev.SuperficieSchema();
        schema::StatoSchema stato(msg);
        schema::OpzioniCarta o;
        o.superficie = schema::Superficie::Print;
        o.adatta = true;
        o.margine = 1000;
        o.piede = 800;
        schema::DisegnaSuCarta(stato, d, a, t, o);
        dev.FineDocumento();
    } catch (const std::exception&) {
        msg.Mostra(ERRORE_DI_STAMPA);
        return false;
    }
    if (!dev.Chiudi()) {
        msg.Mostra(ERRORE_DI_STAMPA);
        return false;
    }
    return true;
}

}  // namespace fornax::ui
