#include "reports/ui/frmStampa.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Cartelle.h"
#include "core/Numeri.h"
#include "core/Testo.h"
#include "core/ui/Controlli.h"
#include "reports/Stampa.h"
#include "reports/ui/Carta.h"
#include "reports/ui/DispositivoQPrinter.h"
#include "reports/ui/SchemaSuCarta.h"
#include "reports/ui/frmPagina.h"
#include "reports/ui/frmPrintSchemaPreview.h"
#include "reports/ui/frmPrintWait.h"
#include "reports/ui/frmSelectPrinter.h"

namespace fornax::ui {

namespace {

QString SalvaCon(QWidget* padre, const QString& titolo, const QString& filtro, const QString& estensione) {
    QFileDialog f(padre, titolo);
    f.setAcceptMode(QFileDialog::AcceptSave);
    f.setNameFilter(filtro);
    f.setDefaultSuffix(estensione);
    // The report asks itself before it replaces a file.
    f.setOption(QFileDialog::DontConfirmOverwrite);
    f.setLabelText(QFileDialog::Accept, QStringLiteral("Salva"));
    f.setLabelText(QFileDialog::Reject, QStringLiteral("Annulla"));
    f.setLabelText(QFileDialog::FileName, QStringLiteral("Nome file:"));
    f.setLabelText(QFileDialog::FileType, QStringLiteral("Tipo file:"));
    if (f.exec() != QDialog::Accepted || f.selectedFiles().isEmpty()) return {};
    return f.selectedFiles().front();
}

}  // namespace

frmStampa::frmStampa(Documento& d, Archivi& a, Impostazioni& imp, Messaggi& msg, QWidget* padre)
    : QDialog(padre), d_(d), a_(a), imp_(imp), msg_(msg) {
    setObjectName(QStringLiteral("frmStampa"));
    setWindowTitle(QStringLiteral("Stampa"));
    StampantiPresenti = [] { return !StampantiInstallate().isEmpty(); };
    ChiediFileRelazione = [this](bool html) {
        return S(html ? SalvaCon(this, QStringLiteral("Stampa su file HTML"),
                                 QStringLiteral("File HTML (*.htm *.html)"), QStringLiteral("htm"))
                      : SalvaCon(this, QStringLiteral("Stampa su file TXT"), QStringLiteral("File di testo (*.txt)"),
                                 QStringLiteral("txt")));
    };
    ChiediFilePdf = [this] {
        return S(SalvaCon(this, QStringLiteral("Stampa su file PDF"), QStringLiteral("File PDF (*.pdf)"),
                          QStringLiteral("pdf")));
    };
    StampaSuDispositivo = [this](const OpzioniStampante& o, const std::string& pdf) {
        return StampaPredefinita(o, pdf);
    };
    SchemaStampa = PaginaSchema(d_, a_, msg_);
    SalvaSchemaFile = SalvaSchemaBmp(d_, a_, msg_);
    AnteprimaSchema = [this](std::string& nomeFont, double& dimensioneFont) {
        frmPrintSchemaPreview f(d_, a_, imp_, msg_, this);
        f.exec();
        nomeFont = f.FontEffettivo();
        dimensioneFont = f.DimensioneEffettiva();
        return f.Risultato == "print";
    };

    auto* lay = new QVBoxLayout(this);
    auto* corpo = new QHBoxLayout;
    lay->addLayout(corpo);

    // The sections, in the order of the letters of SetStampe.
    auto* sezioni = new QGroupBox(QStringLiteral("Sezioni da stampare"), this);
    auto* gs = new QVBoxLayout(sezioni);
    auto casella = [&](const char* testo, const char* nome) {
        auto* c = new QCheckBox(QString::fromUtf8(testo), sezioni);
        c->setObjectName(QString::fromUtf8(nome));
        gs->addWidget(c);
        return c;
    };
    chkCopertina = casella("Frontespizio", "chkCopertina");
    ChkTronchi = casella("Dati tronchi", "ChkTronchi");
    chkDiagrammaRete = casella("Schema grafico della rete", "chkDiagrammaRete");
    chkPDCLocalizzate = casella("PDC localizzate", "chkPDCLocalizzate");
    ChkVerifica = casella(" Verifica percorso piu' sfavorito", "ChkVerifica");
    ChkUtenze = casella("Riepilogo Utenze", "ChkUtenze");
    ChkComputo = casella("Computo tubazione", "ChkComputo");
    ChkTenutaImpianto = casella("Verifica tenuta impianto", "ChkTenutaImpianto");
    AdaptSchemaToPage = casella("Adatta lo schema alla pagina", "AdaptSchemaToPage");
    connect(AdaptSchemaToPage, &QCheckBox::toggled, this, [this](bool v) { schemaAdattato_ = v; });
    corpo->addWidget(sezioni);

    auto* destra = new QVBoxLayout;
    corpo->addLayout(destra);
    const char* nomiSelezione[4] = {"Stampa completa", "Stampa relazione", "Stampa riepilogo",
                                    "Stampa personalizzata (click destro memorizza)"};
    for (int i = 0; i < 4; ++i) {
        auto* b = new QPushButton(QString::fromUtf8(nomiSelezione[i]), this);
        b->setObjectName(QStringLiteral("SSCommand1_%1").arg(i));
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [this, i] { Seleziona(i); });
        destra->addWidget(b);
        SSCommand1[static_cast<size_t>(i)] = b;
    }
    SSCommand1[3]->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(SSCommand1[3], &QWidget::customContextMenuRequested, this, [this] { SetOptionSetup(); });

    auto* dati = new QGridLayout;
    dati->addWidget(new QLabel(QStringLiteral("Data:"), this), 0, 0);
    txtDate = new QLineEdit(QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")), this);
    txtDate->setObjectName(QStringLiteral("txtDate"));
    dati->addWidget(txtDate, 0, 1);
    dati->addWidget(new QLabel(QStringLiteral("Copie"), this), 1, 0);
    txtNumCopies = new QLineEdit(QStringLiteral("1"), this);
    txtNumCopies->setObjectName(QStringLiteral("txtNumCopies"));
    dati->addWidget(txtNumCopies, 1, 1);
    destra->addLayout(dati);

    auto* file = new QHBoxLayout;
    chkPrintFile = new QCheckBox(QStringLiteral("Stampa su file: "), this);
    chkPrintFile->setObjectName(QStringLiteral("chkPrintFile"));
    file->addWidget(chkPrintFile);
    comboFileType = new QComboBox(this);
    comboFileType->setObjectName(QStringLiteral("comboFileType"));
    comboFileType->setToolTip(QStringLiteral("tipo di file da generare"));
    comboFileType->addItems({QStringLiteral("HTML"), QStringLiteral("TXT")});
    comboFileType->setCurrentIndex(-1);
    comboFileType->setEnabled(false);
    file->addWidget(comboFileType);
    destra->addLayout(file);
    connect(chkPrintFile, &QCheckBox::toggled, this, &frmStampa::FileCambiato);
    connect(comboFileType, &QComboBox::currentIndexChanged, this, &frmStampa::TipoFileCambiato);
    destra->addStretch();

    auto* stampante = new QHBoxLayout;
    Label2 = new QLabel(QStringLiteral("Stampante selezionata:"), this);
    Label2->setObjectName(QStringLiteral("Label2"));
    stampante->addWidget(Label2);
    PrinterSelectedTxt = new QLabel(this);
    PrinterSelectedTxt->setObjectName(QStringLiteral("PrinterSelectedTxt"));
    stampante->addWidget(PrinterSelectedTxt, 1);
    lay->addLayout(stampante);
    lblPdf = new QLabel(QStringLiteral("Nessuna stampante installata sul sistema: la stampa crea un file PDF."), this);
    lblPdf->setObjectName(QStringLiteral("lblPdf"));
    lblPdf->setStyleSheet(QStringLiteral("color: #8a5a00"));
    lay->addWidget(lblPdf);

    auto* bottoni = new QHBoxLayout;
    auto bottone = [&](const char* testo, const char* nome) {
        auto* b = new QPushButton(QString::fromUtf8(testo), this);
        b->setObjectName(QString::fromUtf8(nome));
        b->setAutoDefault(false);
        bottoni->addWidget(b);
        return b;
    };
    cmdPrint = bottone("Stampa rapida", "cmdPrint");
    cmdPrint->setDefault(true);
    cmdPrintPreview = bottone("Stampa avanzata", "cmdPrintPreview");
    cmdPrinter = bottone("Stampante", "cmdPrinter");
    cmdPage = bottone("Pagina", "cmdPage");
    bottoni->addStretch();
    cmdCancel = bottone("Annulla", "cmdCancel");
    lay->addLayout(bottoni);
    lblPrintPreviewDisabledFile = new QLabel(QStringLiteral("Disabilitata per stampa su file"), this);
    lblPrintPreviewDisabledFile->setObjectName(QStringLiteral("lblPrintPreviewDisabledFile"));
    lblPrintPreviewDisabledFile->setVisible(false);
    lay->addWidget(lblPrintPreviewDisabledFile);

    connect(cmdPrint, &QPushButton::clicked, this, &frmStampa::cmdPrint_Click);
    connect(cmdPrintPreview, &QPushButton::clicked, this, &frmStampa::cmdPrintPreview_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);  // Escape presses it too
    connect(cmdPrinter, &QPushButton::clicked, this, [this] {
        frmSelectPrinter f(imp_, this);
        if (f.exec() == QDialog::Accepted) AggiornaStampante();
    });
    connect(cmdPage, &QPushButton::clicked, this, [this] {
        frmPagina f(imp_, this);
        f.exec();
    });

    GetOptionSetup();
    AggiornaStampante();
    FileCambiato();
}

void frmStampa::AggiornaStampante() {
    const bool presenti = StampantiPresenti();
    StampanteScelta scelta = StampanteCorrente(imp_);
    if (!presenti) scelta.nome = STAMPANTE_PDF;
    PrinterSelectedTxt->setText(TestoStampante(scelta));
    lblPdf->setVisible(!presenti && PdfPossibile);
}

void frmStampa::GetOptionSetup() {
    std::string lettere = imp_.Leggi("Stampa", "SetStampe");
    if (Trim(lettere).empty()) lettere = "BBBBBBBB";
    const ReportSelection s = ReportSelection::DaLettere(lettere);
    chkCopertina->setChecked(s.Copertina);
    ChkTronchi->setChecked(s.Tronchi);
    chkDiagrammaRete->setChecked(s.DiagrammaRete && SchemaDisponibile());
    chkPDCLocalizzate->setChecked(s.PDCLocalizzate);
    ChkVerifica->setChecked(s.Verifica);
    ChkUtenze->setChecked(s.Utenze);
    ChkComputo->setChecked(s.Computo);
    ChkTenutaImpianto->setChecked(s.TenutaImpianto);
}

void frmStampa::SetOptionSetup() {
    if (msg_.Mostra("Memorizzare le nuove opzioni di stampa?", Box::YESNO | Box::QUESTION) != Risposta::YES) return;
    imp_.Scrivi("Stampa", "SetStampe", StoreSelected().Lettere() + " ");
}

ReportSelection frmStampa::StoreSelected() const {
    // The boxes in the order of the report's sections.
    return ReportSelection{chkCopertina->isChecked(),
                           ChkTronchi->isChecked(),
                           chkDiagrammaRete->isChecked() && chkDiagrammaRete->isEnabled(),
                           chkPDCLocalizzate->isChecked(),
                           ChkVerifica->isChecked(),
                           ChkUtenze->isChecked(),
                           ChkComputo->isChecked(),
                           ChkTenutaImpianto->isChecked()};
}

void frmStampa::Seleziona(int indice) {
    if (indice == 3) {
        GetOptionSetup();
        return;
    }
    const bool tutte = indice == 0;
    chkCopertina->setChecked(tutte || indice == 1);
    ChkTronchi->setChecked(true);
    chkDiagrammaRete->setChecked((tutte || indice == 1) && chkDiagrammaRete->isEnabled());
    chkPDCLocalizzate->setChecked(tutte || indice == 2);
    ChkVerifica->setChecked(tutte || indice == 1);
    ChkUtenze->setChecked(tutte);
    ChkComputo->setChecked(tutte || indice == 2);
    ChkTenutaImpianto->setChecked(tutte);
}

void frmStampa::FileCambiato() {
    const bool file = chkPrintFile->isChecked();
    cmdPrinter->setEnabled(!file);
    cmdPage->setEnabled(!file);
    Label2->setEnabled(!file);
    comboFileType->setEnabled(file);
    {
        const QSignalBlocker b(comboFileType);
        comboFileType->setCurrentIndex(file ? 0 : -1);
    }
    lblPrintPreviewDisabledFile->setVisible(file);
    TipoFileCambiato();
}

// The schema goes into an HTML file and onto paper, never into a text file; the preview is for
// paper only. Both wait for the schema's drawing.
void frmStampa::TipoFileCambiato() {
    const bool file = chkPrintFile->isChecked();
    const bool txt = file && comboFileType->currentText() == QStringLiteral("TXT");
    chkDiagrammaRete->setEnabled(!txt && SchemaDisponibile());
    AdaptSchemaToPage->setEnabled(!file && SchemaDisponibile());
    cmdPrintPreview->setEnabled(!file && SchemaDisponibile());
    const QString attesa = QStringLiteral("Lo schema grafico non e' ancora disponibile nella stampa");
    for (QWidget* w : {static_cast<QWidget*>(chkDiagrammaRete), static_cast<QWidget*>(AdaptSchemaToPage),
                       static_cast<QWidget*>(cmdPrintPreview)})
        w->setToolTip(SchemaDisponibile() ? QString() : attesa);
}

EsitoStampante frmStampa::StampaPredefinita(const OpzioniStampante& o, const std::string& pdf) {
    const StampanteScelta scelta = StampanteCorrente(imp_);
    QPrinter printer(QPrinter::HighResolution);
    if (!pdf.empty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(Q(pdf));
    } else {
        printer.setPrinterName(scelta.nome);
    }
    printer.setCreator(QStringLiteral("Fornax"));
    printer.setDocName(Q(d_.Riferimento));
    printer.setPageSize(FormatoCarta(scelta.carta));
    printer.setPageOrientation(QPageLayout::Portrait);
    DispositivoQPrinter dev(printer);
    frmPrintWait attesa(this);
    attesa.show();
    EsitoStampante e = Print(d_, a_, o, dev, attesa, msg_);
    if (!dev.Chiudi() && e.riuscita) {
        msg_.Mostra(ERRORE_DI_STAMPA);
        e.riuscita = false;
    }
    attesa.close();
    return e;
}

void frmStampa::cmdPrint_Click() {
    Esecuzioni = 0;
    // 1. The copies, read as a number.
    const int copie = ArrotondaI16(LeggiNumero(S(txtNumCopies->text())));
    const bool file = chkPrintFile->isChecked();
    const bool stampanti = StampantiPresenti();
    // 2. Nowhere to print: no printer, no PDF, no file.
    if (!stampanti && !file && !PdfPossibile) {
        msg_.Mostra("ATTENZIONE!!!\nNon è stata installata alcuna stampante sul sistema.", Box::EXCLAMATION);
        return;
    }
    // 3.-5.
    ReportSelection s = StoreSelected();
    if (copie < 1) {
        msg_.Mostra("Attenzione: Il numero di stampe impostate è minore di 1.");
        return;
    }
    if (!s.Qualcuna()) {
        msg_.Mostra("Nessuna opzione selezionata.Selezionarne almeno una.");
        return;
    }
    // 6. The logo, refused when larger than the header's room.
    const bool logo = ControllaLogo(a_.Cartella, msg_);
    // 7.
    if (msg_.Mostra("Confermi l'esecuzione di " + std::to_string(copie) + " stampe?", Box::YESNO | Box::QUESTION) !=
        Risposta::YES)
        return;
    // 8.
    s = StoreSelected();
    OpzioniStampa o;
    o.selezione = s;
    o.DataStampa = S(txtDate->text());
    o.DittaRiga1 = imp_.Leggi("Ditta", "Riga1");
    o.DittaRiga2 = imp_.Leggi("Ditta", "Riga2");
    o.logo = logo;
    const bool html = comboFileType->currentText() == QStringLiteral("HTML");
    const StampanteScelta scelta = StampanteCorrente(imp_);
    const bool pdf = !stampanti || scelta.nome == STAMPANTE_PDF;
    // 9. One run per copy.
    for (int copia = 0; copia < copie; ++copia) {
        if (file) {
            const std::string percorso = ChiediFileRelazione(html);
            if (!UscitaConfermata(percorso, msg_)) continue;
            frmPrintWait attesa(this);
            attesa.show();
            // The schema's picture goes beside the file.
            const SalvaSchema immagine = s.DiagrammaRete ? SalvaSchemaFile : SalvaSchema();
            const bool ok = html ? StampaHTML(d_, a_, o, percorso, attesa, msg_, immagine)
                                 : StampaTXT(d_, a_, o, percorso, attesa, msg_, immagine);
            attesa.close();
            if (!ok) return;
        } else {
            std::string percorso;
            if (pdf) {
                percorso = ChiediFilePdf();
                if (!UscitaConfermata(percorso, msg_)) continue;
            }
            OpzioniStampante os;
            os.stampa = o;
            os.proporzioni = LeggiProporzioni(imp_);
            if (logo) os.fileLogo = TrovaFile(a_.Cartella, "logo.bmp");
            os.adattaSchema = schemaAdattato_;
            os.schema = SchemaStampa;
            const EsitoStampante e = StampaSuDispositivo(os, percorso);
            if (!e.riuscita) return;
        }
        ++Esecuzioni;
    }
    // The fit of the schema applies to one run.
    AdaptSchemaToPage->setChecked(false);
    if (Esecuzioni == 0) return;
    // 10.
    msg_.Mostra("Stampa completata");
    accept();
}

void frmStampa::cmdPrintPreview_Click() {
    AdaptSchemaToPage->setChecked(false);
    const bool stampanti = StampantiPresenti();
    if (!stampanti && !PdfPossibile) {
        msg_.Mostra("ATTENZIONE!!!\nNon è stata installata alcuna stampante sul sistema.", Box::EXCLAMATION);
        return;
    }
    if (msg_.Mostra("Confermi stampa?", Box::YESNO | Box::QUESTION) != Risposta::YES) return;
    OpzioniStampa o;
    o.selezione = StoreSelected();
    o.DataStampa = S(txtDate->text());
    o.DittaRiga1 = imp_.Leggi("Ditta", "Riga1");
    o.DittaRiga2 = imp_.Leggi("Ditta", "Riga2");
    o.logo = ControllaLogo(a_.Cartella, msg_);
    OpzioniStampante os;
    os.stampa = o;
    os.proporzioni = LeggiProporzioni(imp_);
    if (o.logo) os.fileLogo = TrovaFile(a_.Cartella, "logo.bmp");
    // The schema goes to paper only when its preview answers "print", with the font chosen there.
    if (o.selezione.DiagrammaRete && SchemaDisponibile()) {
        std::string nomeFont = "Arial";
        double dimensione = 7;
        if (AnteprimaSchema && AnteprimaSchema(nomeFont, dimensione))
            os.schema = PaginaSchema(d_, a_, msg_, nomeFont, dimensione);
    }
    Esecuzioni = 0;
    std::string percorso;
    if (!stampanti || StampanteCorrente(imp_).nome == STAMPANTE_PDF) {
        percorso = ChiediFilePdf();
        if (!UscitaConfermata(percorso, msg_)) return;
    }
    const EsitoStampante e = StampaSuDispositivo(os, percorso);
    if (!e.riuscita) return;
    Esecuzioni = 1;
    msg_.Mostra("Stampa completata");
    accept();
}

}  // namespace fornax::ui
