#pragma once
// The main frame: menus, tool bar, the one document window, and the session commands (new,
// open, save, save as, exit, recent files, project parameters, defaults, fittings, limits,
// calculation switches, zoom, gas).

#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>
#include <memory>

#include "archives/Archivi.h"
#include "core/Documento.h"
#include "core/ui/MessaggiQt.h"
#include "sessione/Sessione.h"

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QStackedWidget;
class QTimer;

namespace fornax {
class Recupero;
}

namespace fornax::ui {

class ComandiServizio;
class FinestraDocumento;
class GasGrid;

class frmMainForm : public QMainWindow {
    Q_OBJECT
public:
    // The frame works on the session that start-up loaded: its document and archives.
    frmMainForm(Sessione& s, Messaggi& msg, QWidget* padre = nullptr);
    ~frmMainForm() override;

    // ---- Commands ----
    void NuovoMnu();
    void ApriMnu();
    void SalvaMnu();
    void SaveAsMnu();
    void EsciMnu();
    void ParametriMnu();
    void defaultValue();
    void mnuEqLen();
    void mnuPreferenze();
    void mnuGas();
    void MaterialiMnu();
    void mnuManuale();
    void AboutMnu();
    void CommandCalculate();
    void CommandAutomaticRecalculate();
    void CommandCursorLocked();
    void cmdDiamLocked();
    void ZoomPiu();
    void ZoomMeno();
    // The schema's commands: "Rigenera Schema" and "Cancella tronco selezionato".
    void SSCommandRefresh();
    void SSCommandCancel();
    // Printing: the print dialog, the printer and paper, the text manual.
    void StampaMnu();
    void mnuImpostaStampante();
    void mnuManualeTesto();

    // Opens a file by its path (command line, recent files): false when nothing was opened.
    bool ApriPercorso(const QString& percorso);
    // The start-of-work chooser, until a project is open or the user leaves it.
    void MostraAttivita();
    // A new project of either kind, as the chooser's first two buttons start it. False when
    // the fittings table of pressure networks is missing.
    bool NuovoProgetto(bool pressione);

    // Menu "Modifica": undo and redo of the last edit, then the recalculation and the repaint.
    void AnnullaMnu();
    void RipristinaMnu();

    // Keeps a recovery copy of unsaved work in `cartella` from now on (start-up turns it on;
    // the widget tests leave it off). At start-up, a copy a crashed session left there is
    // offered first: true when it was opened.
    void AttivaRecupero(const std::string& cartella);
    bool OffriRecupero();
    // One turn of the recovery timer (the tests call it with their own clock).
    void ControllaRecupero();

    // The end of start-up: the tip of the day, when the user keeps the tips at start.
    void SuggerimentiAllAvvio();

    // The document window, null when no project is open.
    FinestraDocumento* Finestra() const { return finestra_; }
    // The grid of sections, the document window's first page.
    GasGrid* Griglia() const { return doc_; }
    bool ProgettoAperto() const { return doc_ != nullptr; }

    // File dialogs, replaceable by the tests: the name chosen, "" when cancelled.
    std::function<QString()> DialogoApri;
    std::function<QString()> DialogoSalva;
    // The parameters dialog after a new project: shown modally unless a test turns it off.
    bool ParametriDopoNuovo = true;
    // The chooser after closing a project: turned off by the tests.
    bool AttivitaDopoChiusura = true;

    // Rebuilds the document window (the product makes it anew on each open).
    void CreaDocumento();
    void ChiudiDocumento();

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void CreaComandi();
    void CreaComandiStampa();
    void CreaComandiTronco();
    // "Parametri Tronco Selezionato": the section panel of the document window.
    void cmdParameterElemSel();
    void AggiornaTitolo();
    void AggiornaMRU();
    void AggiornaComandi();
    void AggiornaComboGas();
    void ComboGasScelto(int indice);
    QString ChiediFileApri();
    QString ChiediFileSalva();
    ChiediNomeFile NomePerSalvare();
    bool Chiedi();
    void DopoParametri();
    // After an undo or a redo: the page shows the document again and recalculates.
    void DopoStoria();
    // The gas editor over `padre`; then the gas lists, the project's gas and the calculation
    // follow the archive.
    void ApriGestioneGas(QWidget* padre);

    Sessione& s_;
    Documento& d_;
    Archivi& a_;
    Messaggi& msg_;
    FinestraDocumento* finestra_ = nullptr;  // owned by the central stack; made anew on each open
    GasGrid* doc_ = nullptr;                 // its grid page
    QStackedWidget* centro_ = nullptr;
    QWidget* vuoto_ = nullptr;

    QAction* actNuovo = nullptr;
    QAction* actApri = nullptr;
    QAction* actSalva = nullptr;
    QAction* actSalvaCome = nullptr;
    QAction* actParametri = nullptr;
    QAction* actDefault = nullptr;
    QAction* actEsci = nullptr;
    QAction* actEqLen = nullptr;
    QAction* actPdc = nullptr;
    QAction* actGas = nullptr;
    QAction* actMateriali = nullptr;
    QAction* actManuale = nullptr;
    QAction* actAbout = nullptr;
    QAction* actCalcola = nullptr;
    QAction* actAutomatico = nullptr;
    QAction* actCursore = nullptr;
    QAction* actDiametri = nullptr;
    QAction* actZoomPiu = nullptr;
    QAction* actZoomMeno = nullptr;
    QAction* actRigeneraSchema = nullptr;
    QAction* actCancellaTronco = nullptr;
    QAction* actStampa = nullptr;
    QAction* actImpostaStampante = nullptr;
    QAction* actManualeTesto = nullptr;
    QAction* actParametriTronco = nullptr;
    std::array<QAction*, 4> actRecenti{};
    QComboBox* ComboGas = nullptr;
    QLineEdit* txtScaleW = nullptr;
    QLabel* imgSwCompany = nullptr;
    QLabel* lblStato = nullptr;
    ComandiServizio* servizio_ = nullptr;  // archive and project copy, tips at start
    QAction* actAnnulla = nullptr;
    QAction* actRipristina = nullptr;
    QTimer* orologio_ = nullptr;         // the recovery copy's turns, and the undo names
    uint64_t versioneMostrata_ = ~0ull;  // the history's version the commands show
    std::unique_ptr<Recupero> recupero_;
};

}  // namespace fornax::ui
