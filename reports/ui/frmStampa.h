#pragma once
// The print dialog: which sections, the date, the copies, printer or file (HTML or TXT), and
// the run itself, one run per copy. Where the system has no printer the printer's report goes
// to a PDF file; the dialog says so.

#include <QDialog>
#include <array>
#include <functional>
#include <string>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "core/Servizi.h"
#include "reports/Relazione.h"
#include "reports/Stampante.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace fornax::ui {

class frmStampa final : public QDialog {
    Q_OBJECT
public:
    frmStampa(Documento& d, Archivi& a, Impostazioni& imp, Messaggi& msg, QWidget* padre = nullptr);

    // "SetStampe": the boxes from the settings; the question, then the boxes to the settings.
    void GetOptionSetup();
    void SetOptionSetup();
    // The eight boxes, in the order of the letters.
    ReportSelection StoreSelected() const;
    // The selection buttons: 0 complete, 1 report, 2 summary, 3 the user's own (left click).
    void Seleziona(int indice);
    void cmdPrint_Click();
    // "Stampa avanzata": one copy on the printer, the schema through its preview.
    void cmdPrintPreview_Click();
    void AggiornaStampante();

    // The controls.
    QCheckBox *chkCopertina = nullptr, *ChkTronchi = nullptr, *chkDiagrammaRete = nullptr, *chkPDCLocalizzate = nullptr,
              *ChkVerifica = nullptr, *ChkUtenze = nullptr, *ChkComputo = nullptr, *ChkTenutaImpianto = nullptr;
    QCheckBox* AdaptSchemaToPage = nullptr;
    QLineEdit* txtDate = nullptr;
    QLineEdit* txtNumCopies = nullptr;
    QCheckBox* chkPrintFile = nullptr;
    QComboBox* comboFileType = nullptr;
    QLabel* Label2 = nullptr;
    QLabel* PrinterSelectedTxt = nullptr;
    QLabel* lblPdf = nullptr;
    QLabel* lblPrintPreviewDisabledFile = nullptr;
    QPushButton *cmdPrint = nullptr, *cmdPrintPreview = nullptr, *cmdPrinter = nullptr, *cmdPage = nullptr,
                *cmdCancel = nullptr;
    std::array<QPushButton*, 4> SSCommand1{};

    // What the dialog asks of the system, replaceable by the tests.
    std::function<bool()> StampantiPresenti;                    // a printer is installed
    bool PdfPossibile = true;                                   // the printer's report can go to a PDF file
    std::function<std::string(bool html)> ChiediFileRelazione;  // "" when cancelled
    std::function<std::string()> ChiediFilePdf;                 // "" when cancelled
    // One run of the printer's report; by default on the chosen printer or a PDF file.
    std::function<EsitoStampante(const OpzioniStampante& o, const std::string& pdf)> StampaSuDispositivo;

    // The schema's page on paper and its picture beside a file report; by default the schema's
    // own painting. Without the page the schema's box and the preview stay disabled.
    StampaSchema SchemaStampa;
    SalvaSchema SalvaSchemaFile;
    // The preview of the schema before "Stampa avanzata" prints it: true ("print") with the font
    // chosen, false ("cancel"). By default frmPrintSchemaPreview.
    std::function<bool(std::string& nomeFont, double& dimensioneFont)> AnteprimaSchema;

    int Esecuzioni = 0;  // runs done by the last cmdPrint
    bool SchemaAdattato() const { return schemaAdattato_; }

private:
    void FileCambiato();
    void TipoFileCambiato();
    bool SchemaDisponibile() const { return static_cast<bool>(SchemaStampa); }
    EsitoStampante StampaPredefinita(const OpzioniStampante& o, const std::string& pdf);
    Documento& d_;
    Archivi& a_;
    Impostazioni& imp_;
    Messaggi& msg_;
    bool schemaAdattato_ = false;
};

}  // namespace fornax::ui
