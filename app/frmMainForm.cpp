#include "app/frmMainForm.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QTableView>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

#include "app/FinestraDocumento.h"
#include "app/frmAttivita.h"
#include "app/frmSplash.h"
#include "archives/EditoriArchivi.h"
#include "archives/ui/GestMateriali.h"
#include "archives/ui/Parametri.h"
#include "archives/ui/frmDefaultValue.h"
#include "archives/ui/frmGas.h"
#include "archives/ui/frmPDC.h"
#include "archives/ui/frmSpeciali.h"
#include "core/Cartelle.h"
#include "core/ui/Controlli.h"
#include "core/ui/Icone.h"
#include "editing/Modifiche.h"
#include "editing/ui/DialoghiTronco.h"
#include "editing/ui/GasGrid.h"
#include "editing/ui/ModelloTronchi.h"
#include "housekeeping/ui/frmHints.h"
#include "reports/ui/frmManuale.h"
#include "reports/ui/frmSelectPrinter.h"
#include "reports/ui/frmStampa.h"
#include "schema/ui/SchemaPagina.h"
#include "sessione/Recupero.h"

namespace fornax::ui {

namespace {

// The labels of Qt's own file dialog, in Italian.
void Italiano(QFileDialog& f, const QString& conferma) {
    f.setLabelText(QFileDialog::LookIn, QStringLiteral("Cerca in:"));
    f.setLabelText(QFileDialog::FileName, QStringLiteral("Nome file:"));
    f.setLabelText(QFileDialog::FileType, QStringLiteral("Tipo file:"));
    f.setLabelText(QFileDialog::Accept, conferma);
    f.setLabelText(QFileDialog::Reject, QStringLiteral("Annulla"));
}

// A wait cursor for the time of a long piece of work.
class Attesa {
public:
    Attesa() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Attesa() { QApplication::restoreOverrideCursor(); }
    Attesa(const Attesa&) = delete;
    Attesa& operator=(const Attesa&) = delete;
};

}  // namespace

frmMainForm::frmMainForm(Sessione& s, Messaggi& msg, QWidget* padre)
    : QMainWindow(padre), s_(s), d_(s.d), a_(s.a), msg_(msg) {
    setObjectName(QStringLiteral("frmMainForm"));
    s_.RicalcoloAutomatico = VERO;
    s_.CursorLocked = FALSO;
    s_.Titolo = "Fornax";
    DialogoApri = [this] { return ChiediFileApri(); };
    DialogoSalva = [this] { return ChiediFileSalva(); };

    centro_ = new QStackedWidget(this);
    vuoto_ = new QWidget(centro_);
    auto* lv = new QVBoxLayout(vuoto_);
    auto* invito =
        new QLabel(QStringLiteral("<p style='font-size:15pt; color:#5a6b80'>Nessun progetto aperto</p>"
                                  "<p style='color:#6b7785'>File &rarr; <b>Nuovo progetto</b> per un impianto "
                                  "interno o una rete in pressione,<br>File &rarr; <b>Apri progetto...</b> "
                                  "per un file .RTG esistente.</p>"),
                   vuoto_);
    invito->setAlignment(Qt::AlignCenter);
    lv->addWidget(invito);
    centro_->addWidget(vuoto_);
    setCentralWidget(centro_);

    CreaComandi();
    CreaComandiStampa();
    CreaComandiTronco();
    lblStato = new QLabel(this);
    statusBar()->addWidget(lblStato, 1);

    const QRect schermo = screen() ? screen()->availableGeometry() : QRect(0, 0, 1366, 768);
    resize(std::min(1280, schermo.width() - 40), std::min(800, schermo.height() - 40));
    AggiornaTitolo();
    AggiornaMRU();
    AggiornaComandi();

    // Twice a second: the undo commands follow the history, whoever recorded the last step,
    // and the recovery copy is kept (when start-up turned it on).
    orologio_ = new QTimer(this);
    orologio_->setInterval(500);
    connect(orologio_, &QTimer::timeout, this, [this] {
        if (s_.Storia.Versione() != versioneMostrata_) AggiornaComandi();
        ControllaRecupero();
    });
    orologio_->start();
}

frmMainForm::~frmMainForm() = default;

void frmMainForm::CreaComandi() {
    auto azione = [this](const QString& testo, Icona* icona, const QString& suggerimento,
                         void (frmMainForm::*metodo)()) {
        auto* act = icona ? new QAction(CreaIcona(*icona), testo, this) : new QAction(testo, this);
        if (!suggerimento.isEmpty()) {
            act->setToolTip(suggerimento);
            act->setStatusTip(suggerimento);
        }
        connect(act, &QAction::triggered, this, metodo);
        return act;
    };
    Icona nuovo = Icona::Nuovo, apri = Icona::Apri, salva = Icona::Salva, parametri = Icona::Parametri,
          esci = Icona::Esci, guida = Icona::Guida, calcola = Icona::Calcola, automatico = Icona::RicalcoloAutomatico,
          cursore = Icona::CursoreBloccato, diametri = Icona::DiametriBloccati, piu = Icona::ZoomPiu,
          meno = Icona::ZoomMeno;

    actNuovo =
        azione(QStringLiteral("&Nuovo progetto"), &nuovo, QStringLiteral("Nuovo progetto"), &frmMainForm::NuovoMnu);
    actNuovo->setObjectName(QStringLiteral("NuovoMnu"));
    actNuovo->setShortcut(QKeySequence::New);
    actApri = azione(QStringLiteral("&Apri progetto..."), &apri, QStringLiteral("Apri File"), &frmMainForm::ApriMnu);
    actApri->setObjectName(QStringLiteral("ApriMnu"));
    actApri->setShortcut(QKeySequence::Open);
    actSalva = azione(QStringLiteral("&Salva progetto"), &salva, QStringLiteral("Salva File"), &frmMainForm::SalvaMnu);
    actSalva->setObjectName(QStringLiteral("SalvaMnu"));
    actSalva->setShortcut(QKeySequence::Save);
    actSalvaCome = azione(QStringLiteral("Salva &con nome..."), nullptr, QString(), &frmMainForm::SaveAsMnu);
    actSalvaCome->setObjectName(QStringLiteral("SaveAsMnu"));
    actParametri = azione(QStringLiteral("&Parametri di progetto..."), &parametri, QStringLiteral("Parametri Impianto"),
                          &frmMainForm::ParametriMnu);
    actParametri->setObjectName(QStringLiteral("ParametriMnu"));
    actDefault = azione(QStringLiteral("&Valori di default ..."), nullptr, QString(), &frmMainForm::defaultValue);
    actDefault->setObjectName(QStringLiteral("defaultValue"));
    actEsci = azione(QStringLiteral("&Esci"), &esci, QStringLiteral("Esci"), &frmMainForm::EsciMnu);
    actEsci->setObjectName(QStringLiteral("EsciMnu"));
    actEqLen = azione(QStringLiteral("&Lungh. Equiv..."), nullptr, QString(), &frmMainForm::mnuEqLen);
    actEqLen->setObjectName(QStringLiteral("mnuEqLen"));
    actPdc = azione(QStringLiteral("&PDC predefinite..."), nullptr, QString(), &frmMainForm::mnuPreferenze);
    actPdc->setObjectName(QStringLiteral("mnuPreferenze"));
    Icona gas = Icona::Gas;
    actGas = azione(QStringLiteral("&Gas..."), &gas, QStringLiteral("Gestione Gas"), &frmMainForm::mnuGas);
    actGas->setObjectName(QStringLiteral("mnuGas"));
    actMateriali = azione(QStringLiteral("&Tubazioni..."), nullptr, QString(), &frmMainForm::MaterialiMnu);
    actMateriali->setObjectName(QStringLiteral("MaterialiMnu"));
    actManuale = azione(QStringLiteral("&Manuale..."), &guida, QStringLiteral("Guida"), &frmMainForm::mnuManuale);
    actManuale->setObjectName(QStringLiteral("mnuManuale"));
    actManuale->setShortcut(QKeySequence::HelpContents);
    actAbout = azione(QStringLiteral("&Informazioni..."), nullptr, QString(), &frmMainForm::AboutMnu);
    actAbout->setObjectName(QStringLiteral("AboutMnu"));
    actCalcola = azione(QStringLiteral("&Ricalcolo della Rete"), &calcola, QStringLiteral("Ricalcolo della Rete"),
                        &frmMainForm::CommandCalculate);
    actCalcola->setObjectName(QStringLiteral("CommandCalculate"));
    actAutomatico =
        azione(QStringLiteral("Calcolo &automatico"), &automatico,
               QStringLiteral("Abilita o Disabilita il Calcolo Automatico"), &frmMainForm::CommandAutomaticRecalculate);
    actAutomatico->setObjectName(QStringLiteral("CommandAutomaticRecalculate"));
    actAutomatico->setCheckable(true);
    actCursore = azione(QStringLiteral("&Blocca il cursore"), &cursore, QStringLiteral("Blocca o Sblocca il Cursore"),
                        &frmMainForm::CommandCursorLocked);
    actCursore->setObjectName(QStringLiteral("CommandCursorLocked"));
    actCursore->setCheckable(true);
    actDiametri = azione(QStringLiteral("Blocca tutti i &diametri"), &diametri,
                         QStringLiteral("Blocco del Calcolo Automatico di Tutti i Diametri della Colonna"),
                         &frmMainForm::cmdDiamLocked);
    actDiametri->setObjectName(QStringLiteral("cmdDiamLocked"));
    actDiametri->setCheckable(true);
    actZoomPiu = azione(QStringLiteral("Zoom +"), &piu, QStringLiteral("Zoom +"), &frmMainForm::ZoomPiu);
    actZoomPiu->setObjectName(QStringLiteral("Command6"));
    actZoomMeno = azione(QStringLiteral("Zoom -"), &meno, QStringLiteral("Zoom -"), &frmMainForm::ZoomMeno);
    actZoomMeno->setObjectName(QStringLiteral("Command7"));
    actRigeneraSchema = azione(QStringLiteral("Rigenera Schema"), nullptr, QStringLiteral("Rigenera Schema"),
                               &frmMainForm::SSCommandRefresh);
    actRigeneraSchema->setObjectName(QStringLiteral("SSCommandRefresh"));
    actCancellaTronco = azione(QStringLiteral("Cancella tronco selezionato"), nullptr,
                               QStringLiteral("Cancella tronco selezionato"), &frmMainForm::SSCommandCancel);
    actCancellaTronco->setObjectName(QStringLiteral("SSCommandCancel"));

    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    file->addAction(actNuovo);
    file->addAction(actApri);
    file->addAction(actSalva);
    file->addAction(actSalvaCome);
    file->addSeparator();
    file->addAction(actParametri);
    file->addAction(actDefault);
    file->addSeparator();
    for (size_t i = 0; i < actRecenti.size(); ++i) {
        auto* act = new QAction(this);
        act->setObjectName(QStringLiteral("mnuMRU%1").arg(i + 1));
        connect(act, &QAction::triggered, this, [this, act] {
            const QString percorso = act->data().toString();
            if (percorso.isEmpty()) return;
            if (!QFileInfo::exists(percorso)) {
                msg_.Mostra("Il file '" + S(percorso) + "' non esiste");
                return;
            }
            if (doc_) finestra_->TerminaModifica();
            if (!Chiedi()) return;
            ApriPercorso(percorso);
        });
        actRecenti[i] = act;
        file->addAction(act);
    }
    file->addSeparator();
    file->addAction(actEsci);

    // Undo and redo of the edits, each naming its step.
    actAnnulla = new QAction(style()->standardIcon(QStyle::SP_ArrowBack), QStringLiteral("Annulla"), this);
    actAnnulla->setObjectName(QStringLiteral("AnnullaMnu"));
    actAnnulla->setShortcut(QKeySequence::Undo);
    connect(actAnnulla, &QAction::triggered, this, &frmMainForm::AnnullaMnu);
    actRipristina = new QAction(style()->standardIcon(QStyle::SP_ArrowForward), QStringLiteral("Ripristina"), this);
    actRipristina->setObjectName(QStringLiteral("RipristinaMnu"));
    actRipristina->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
    connect(actRipristina, &QAction::triggered, this, &frmMainForm::RipristinaMnu);
    QMenu* modifica = menuBar()->addMenu(QStringLiteral("&Modifica"));
    modifica->addAction(actAnnulla);
    modifica->addAction(actRipristina);

    QMenu* archivi = menuBar()->addMenu(QStringLiteral("&Archivi"));
    archivi->addAction(actGas);
    archivi->addAction(actMateriali);
    archivi->addSeparator();
    archivi->addAction(actEqLen);
    archivi->addAction(actPdc);
    // Copying archives and projects from another folder; the tips at start.
    servizio_ = new ComandiServizio(
        a_.Cartella, s_.imp, msg_, [this] { return CartellaLavoro(s_.imp, a_.Cartella); }, this);
    archivi->addSeparator();
    archivi->addAction(servizio_->mnuArchiveCopy);
    archivi->addAction(servizio_->mnuProjectFileCopy);

    QMenu* calcolo = menuBar()->addMenu(QStringLiteral("&Calcolo"));
    calcolo->addAction(actCalcola);
    calcolo->addAction(actAutomatico);
    calcolo->addAction(actCursore);
    calcolo->addAction(actDiametri);
    calcolo->addSeparator();
    calcolo->addAction(actZoomPiu);
    calcolo->addAction(actZoomMeno);
    calcolo->addSeparator();
    calcolo->addAction(actRigeneraSchema);
    calcolo->addAction(actCancellaTronco);

    QMenu* aiuto = menuBar()->addMenu(QStringLiteral("&?"));
    aiuto->addAction(actManuale);
    aiuto->addAction(servizio_->mnuShowHints);
    aiuto->addSeparator();
    aiuto->addAction(actAbout);

    QToolBar* barra = addToolBar(QStringLiteral("Comandi"));
    barra->setObjectName(QStringLiteral("barraComandi"));
    barra->setMovable(false);
    barra->setIconSize(QSize(24, 24));
    barra->addAction(actNuovo);
    barra->addAction(actApri);
    barra->addAction(actSalva);
    barra->addSeparator();
    barra->addAction(actAnnulla);
    barra->addAction(actRipristina);
    barra->addSeparator();
    barra->addAction(actParametri);
    barra->addSeparator();
    barra->addAction(actCalcola);
    barra->addAction(actAutomatico);
    barra->addAction(actCursore);
    barra->addAction(actDiametri);
    barra->addSeparator();
    barra->addAction(actZoomMeno);
    txtScaleW = new QLineEdit(barra);
    txtScaleW->setObjectName(QStringLiteral("txtScaleW"));
    txtScaleW->setReadOnly(true);
    txtScaleW->setFocusPolicy(Qt::NoFocus);
    txtScaleW->setAlignment(Qt::AlignCenter);
    txtScaleW->setMaximumWidth(48);
    txtScaleW->setToolTip(QStringLiteral("Scala dello schema (%)"));
    barra->addWidget(txtScaleW);
    barra->addAction(actZoomPiu);
    barra->addAction(actRigeneraSchema);
    barra->addAction(actCancellaTronco);
    barra->addSeparator();
    auto* etichettaGas = new QLabel(QStringLiteral(" Tipo di Ga&s: "), barra);
    barra->addWidget(etichettaGas);
    ComboGas = new QComboBox(barra);
    ComboGas->setObjectName(QStringLiteral("ComboGas"));
    ComboGas->setToolTip(QStringLiteral("Tipo di Gas: "));
    ComboGas->setMinimumWidth(170);
    ComboGas->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    etichettaGas->setBuddy(ComboGas);
    barra->addWidget(ComboGas);
    connect(ComboGas, &QComboBox::activated, this, &frmMainForm::ComboGasScelto);
    barra->addAction(actGas);
    barra->addSeparator();
    barra->addAction(actManuale);
    barra->addAction(actEsci);
    auto* spazio = new QWidget(barra);
    spazio->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    barra->addWidget(spazio);
    // The firm's logo, when the program's folder holds one.
    imgSwCompany = new QLabel(barra);
    imgSwCompany->setObjectName(QStringLiteral("imgSwCompany"));
    const QString logo = Q(TrovaFile(a_.Cartella, "logo.bmp"));
    if (QFileInfo::exists(logo)) {
        const QPixmap pm(logo);
        if (!pm.isNull()) imgSwCompany->setPixmap(pm.scaledToHeight(28, Qt::SmoothTransformation));
    }
    barra->addWidget(imgSwCompany);
}

// ---- State shown by the frame ----

void frmMainForm::AggiornaTitolo() { setWindowTitle(Q(s_.Titolo)); }

void frmMainForm::AggiornaMRU() {
    for (size_t i = 0; i < actRecenti.size(); ++i) {
        const QString voce = Q(s_.mru.GetItem(static_cast<int>(i) + 1));
        actRecenti[i]->setData(voce);
        actRecenti[i]->setText(QStringLiteral("&%1 %2").arg(i + 1).arg(QFileInfo(voce).fileName()));
        actRecenti[i]->setToolTip(voce);
        actRecenti[i]->setVisible(voce.size() >= 3);
    }
}

void frmMainForm::AggiornaComandi() {
    const bool aperto = doc_ != nullptr;
    for (QAction* act : {actSalva, actSalvaCome, actParametri, actCalcola, actDiametri, actZoomPiu, actZoomMeno,
                         actStampa, actParametriTronco, actRigeneraSchema, actCancellaTronco})
        act->setEnabled(aperto);
    ComboGas->setEnabled(aperto);
    // The history's commands name the step they take back or bring back.
    versioneMostrata_ = s_.Storia.Versione();
    const std::string annulla = aperto ? s_.Storia.NomeAnnulla() : std::string();
    const std::string ripristina = aperto ? s_.Storia.NomeRipristina() : std::string();
    actAnnulla->setEnabled(!annulla.empty());
    actAnnulla->setText(annulla.empty() ? QStringLiteral("Annulla") : QStringLiteral("Annulla: ") + Q(annulla));
    actAnnulla->setToolTip(actAnnulla->text());
    actRipristina->setEnabled(!ripristina.empty());
    actRipristina->setText(ripristina.empty() ? QStringLiteral("Ripristina")
                                              : QStringLiteral("Ripristina: ") + Q(ripristina));
    actRipristina->setToolTip(actRipristina->text());
    actAutomatico->setChecked(s_.RicalcoloAutomatico != FALSO);
    actCursore->setChecked(s_.CursorLocked != FALSO);
    actDiametri->setChecked(aperto && doc_->DiametriBloccati());
    if (!aperto) {
        txtScaleW->clear();
        lblStato->clear();
        return;
    }
    const QString tipo = d_.ReteInPressione != 0
                             ? QStringLiteral("Rete gas in pressione")
                             : (d_.Normativa == 1 ? QStringLiteral("Impianto interno - UNI 7129 (1992)")
                                                  : QStringLiteral("Impianto interno - UNI 7129 (2008)"));
    lblStato->setText(QStringLiteral("%1   |   Gas: %2   |   Tronchi: %3%4")
                          .arg(tipo, Q(d_.GasCorrente.Nome))
                          .arg(d_.NumTronchi())
                          .arg(d_.ReteModificata != 0 ? QStringLiteral("   |   Modificato") : QString()));
}

void frmMainForm::AggiornaComboGas() {
    QSignalBlocker b(ComboGas);
    ComboGas->clear();
    for (int g = 1; g <= a_.NumGas(); ++g) ComboGas->addItem(Q(a_.Gas[static_cast<size_t>(g)].Nome));
    const int i = ComboGas->findText(Q(d_.GasCorrente.Nome), Qt::MatchFixedString);
    ComboGas->setCurrentIndex(i);
}

void frmMainForm::ComboGasScelto(int indice) {
    const int g = indice + 1;
    if (g < 1 || g > a_.NumGas()) return;
    if (doc_) finestra_->TerminaModifica();
    bool scelto = false;
    {
        PassoModifica passo(s_.Storia, d_, "scelta del gas " + a_.Gas[static_cast<size_t>(g)].Nome);
        scelto = modifica::ScegliGas(d_, a_, g, msg_);
    }
    if (!scelto) {
        AggiornaComboGas();
        return;
    }
    if (doc_) finestra_->Elaborazione();
    AggiornaComandi();
}

// ---- Document window ----

void frmMainForm::CreaDocumento() {
    ChiudiDocumento();
    finestra_ = new FinestraDocumento(s_, msg_, centro_);
    auto* g = finestra_->Griglia();
    doc_ = g;
    centro_->addWidget(finestra_);
    centro_->setCurrentWidget(finestra_);
    connect(g, &GasGrid::elaborato, this, [this] { AggiornaComandi(); });
    connect(g, &GasGrid::zoomCambiato, this, [this](int, const QString& scala) { txtScaleW->setText(scala); });
    connect(finestra_->Schema(), &schema::ui::SchemaPagina::zoomCambiato, this,
            [this](int, const QString& scala) { txtScaleW->setText(scala); });
    {
        Attesa attesa;
        g->NewRete();
    }
    g->Rescale();
    AggiornaComboGas();
    AggiornaComandi();
    g->Griglia()->setFocus();
}

void frmMainForm::ChiudiDocumento() {
    if (!doc_) return;
    FinestraDocumento* f = finestra_;
    doc_ = nullptr;
    finestra_ = nullptr;
    centro_->removeWidget(f);
    delete f;
    centro_->setCurrentWidget(vuoto_);
    AggiornaComandi();
}

// ---- Session ----

bool frmMainForm::Chiedi() {
    const bool ok = ChiediSalvataggio(s_, msg_, NomePerSalvare());
    AggiornaTitolo();
    AggiornaMRU();
    return ok;
}

ChiediNomeFile frmMainForm::NomePerSalvare() {
    return [this] { return DialogoSalva ? S(DialogoSalva()) : std::string(); };
}

QString frmMainForm::ChiediFileApri() {
    QFileDialog f(this, QStringLiteral("Carica impianto"), Q(CartellaLavoro(s_.imp, a_.Cartella)));
    f.setAcceptMode(QFileDialog::AcceptOpen);
    f.setFileMode(QFileDialog::ExistingFile);
    f.setNameFilter(QStringLiteral("Impianti (*.RTG *.rtg)"));
    f.setDefaultSuffix(QStringLiteral("RTG"));
    f.setOption(QFileDialog::DontUseNativeDialog, true);
    Italiano(f, QStringLiteral("Apri"));
    if (f.exec() != QDialog::Accepted || f.selectedFiles().isEmpty()) return {};
    return f.selectedFiles().first();
}

QString frmMainForm::ChiediFileSalva() {
    QFileDialog f(this, QStringLiteral("Salva con nome"), Q(CartellaLavoro(s_.imp, a_.Cartella)));
    f.setAcceptMode(QFileDialog::AcceptSave);
    f.setFileMode(QFileDialog::AnyFile);
    f.setNameFilter(QStringLiteral("Reti (*.rtg *.RTG)"));
    f.setDefaultSuffix(QStringLiteral("rtg"));
    f.setOption(QFileDialog::DontUseNativeDialog, true);
    // The overwrite is confirmed here, in Italian, rather than by Qt's own question.
    f.setOption(QFileDialog::DontConfirmOverwrite, true);
    Italiano(f, QStringLiteral("Salva"));
    if (f.exec() != QDialog::Accepted || f.selectedFiles().isEmpty()) return {};
    const QString scelto = f.selectedFiles().first();
    if (QFileInfo::exists(scelto) && msg_.Mostra("Il file " + S(scelto) + " esiste gia'.\r\nSostituirlo?",
                                                 Box::YESNO | Box::EXCLAMATION, "Salva con nome") != Risposta::YES)
        return {};
    return scelto;
}

bool frmMainForm::ApriPercorso(const QString& percorso) {
    AvanzamentoAttesa av;
    bool ok = false;
    {
        Attesa attesa;
        ok = ApriFile(s_, S(percorso), msg_, av);
    }
    if (!ok) {
        ChiudiDocumento();
        AggiornaTitolo();
        return false;
    }
    s_.mru.AddItem(S(percorso));
    CreaDocumento();
    AggiornaTitolo();
    AggiornaMRU();
    statusBar()->showMessage(QStringLiteral("Aperto: %1").arg(percorso), 4000);
    return true;
}

void frmMainForm::NuovoMnu() {
    if (doc_) finestra_->TerminaModifica();
    if (!Chiedi()) return;
    ChiudiDocumento();
    if (AttivitaDopoChiusura) MostraAttivita();
}

void frmMainForm::ApriMnu() {
    if (doc_) finestra_->TerminaModifica();
    const QString nome = DialogoApri ? DialogoApri() : QString();
    if (nome.isEmpty()) return;
    if (!Chiedi()) return;
    if (!nome.trimmed().isEmpty() && !nome.contains('*')) ApriPercorso(nome);
    RicordaCartellaLavoro(s_.imp, S(nome));
}

void frmMainForm::SalvaMnu() {
    if (!doc_) return;
    finestra_->TerminaModifica();
    SalvaConNome(s_, d_.NomeFileProgetto, msg_, NomePerSalvare());
    ControllaRecupero();
    AggiornaTitolo();
    AggiornaMRU();
    AggiornaComandi();
}

void frmMainForm::SaveAsMnu() {
    if (!doc_) return;
    finestra_->TerminaModifica();
    SalvaConNome(s_, "", msg_, NomePerSalvare());
    ControllaRecupero();
    AggiornaTitolo();
    AggiornaMRU();
    AggiornaComandi();
}

void frmMainForm::EsciMnu() { close(); }

// ---- Undo and redo ----

void frmMainForm::AnnullaMnu() {
    if (!doc_) return;
    // A cell being edited is committed first: the undo then takes back that commit.
    doc_->TerminaModifica();
    if (!Annulla(s_)) return;
    DopoStoria();
}

void frmMainForm::RipristinaMnu() {
    if (!doc_) return;
    doc_->TerminaModifica();
    if (!Ripristina(s_)) return;
    DopoStoria();
}

void frmMainForm::DopoStoria() {
    // The inputs are back: the combos show them and the network is recalculated, as after the
    // edit itself; the recalculation writes every row of the grid once (the grid keeps a row
    // beyond the last section, and never shrinks while the window is open).
    doc_->InitInitialPressureCombo();
    doc_->InitDPMaxCombo();
    ModelloTronchi* m = doc_->Modello();
    if (m->Righe() < d_.NumTronchi() + 1) m->ImpostaRighe(d_.NumTronchi() + 1);
    doc_->Elaborazione();
    AggiornaComboGas();
    AggiornaComandi();
}

// ---- Recovery of unsaved work ----

namespace {

double Secondi() {
    static QElapsedTimer inizio = [] {
        QElapsedTimer t;
        t.start();
        return t;
    }();
    return static_cast<double>(inizio.elapsed()) / 1000.0;
}

}  // namespace

void frmMainForm::AttivaRecupero(const std::string& cartella) { recupero_ = std::make_unique<Recupero>(cartella); }

void frmMainForm::ControllaRecupero() {
    if (!recupero_) return;
    // Without an open project nothing is unsaved (a project closed without saving leaves no copy).
    if (!doc_) {
        recupero_->RimuoviPropria();
        return;
    }
    recupero_->Controlla(s_, Secondi());
}

bool frmMainForm::OffriRecupero() {
    if (!recupero_) return false;
    const auto copia = Recupero::Trova(recupero_->Cartella());
    if (!copia) return false;
    if (msg_.Mostra(Recupero::Domanda(*copia), Box::YESNO | Box::QUESTION, "Fornax") != Risposta::YES) {
        recupero_->Rimuovi();
        return false;
    }
    AvanzamentoAttesa av;
    bool ok = false;
    {
        Attesa attesa;
        ok = Recupero::Apri(s_, *copia, msg_, av);
    }
    if (!ok) {
        // A copy that can't be read would be offered at every start.
        recupero_->Rimuovi();
        return false;
    }
    CreaDocumento();
    AggiornaTitolo();
    // The recovered work is at once this session's copy.
    recupero_->Scrivi(s_);
    return true;
}

void frmMainForm::closeEvent(QCloseEvent* e) {
    if (doc_) finestra_->TerminaModifica();
    if (!Chiedi()) {
        e->ignore();
        return;
    }
    ChiudiDocumento();
    // A normal end: nothing is left to recover.
    if (recupero_) recupero_->Rimuovi();
    e->accept();
}

bool frmMainForm::NuovoProgetto(bool pressione) {
    if (!fornax::NuovoProgetto(s_, pressione, msg_)) return false;
    CreaDocumento();
    AggiornaTitolo();
    if (ParametriDopoNuovo) ParametriMnu();
    return true;
}

void frmMainForm::MostraAttivita() {
    for (;;) {
        frmAttivita f(s_.mru, this);
        f.exec();
        switch (f.scelta()) {
            case frmAttivita::Scelta::NuovoInterno:
                if (NuovoProgetto(false)) return;
                break;
            case frmAttivita::Scelta::NuovoPressione:
                if (NuovoProgetto(true)) return;
                break;
            case frmAttivita::Scelta::Apri:
                ApriMnu();
                if (ProgettoAperto()) return;
                break;
            case frmAttivita::Scelta::Recente: {
                const QString percorso = f.FileRecente();
                if (!QFileInfo::exists(percorso)) {
                    msg_.Mostra("Il file '" + S(percorso) + "' non esiste");
                    break;
                }
                if (ApriPercorso(percorso)) return;
                break;
            }
            case frmAttivita::Scelta::Esci:
                close();
                return;
            case frmAttivita::Scelta::Nessuna:
                return;
        }
    }
}

// ---- Dialogs ----

void frmMainForm::DopoParametri() {
    if (!doc_) return;
    {
        Attesa attesa;
        finestra_->Elaborazione();
    }
    doc_->InitInitialPressureCombo();
    doc_->InitDPMaxCombo();
    AggiornaComboGas();
    AggiornaComandi();
}

void frmMainForm::ParametriMnu() {
    if (!doc_) return;
    finestra_->TerminaModifica();
    Parametri p(a_, d_, msg_, this);
    p.Storia = &s_.Storia;
    p.GestioneGas = [this, &p] { ApriGestioneGas(&p); };
    if (p.exec() == QDialog::Accepted) DopoParametri();
}

void frmMainForm::defaultValue() {
    if (doc_) finestra_->TerminaModifica();
    frmDefaultValue f(a_, d_, s_.imp, msg_, this);
    f.exec();
}

void frmMainForm::mnuEqLen() {
    if (doc_) finestra_->TerminaModifica();
    frmSpeciali f(a_, msg_, this);
    if (f.exec() != QDialog::Accepted || !f.Salvato()) return;
    // The table in force changes only for a pressure network; an internal installation keeps
    // the built-in one.
    bool adottata = false;
    {
        PassoModifica passo(s_.Storia, d_, "tabella delle lunghezze equivalenti");
        adottata = modifica::AdottaSpeciali(d_, f.Tabella());
    }
    if (adottata && doc_) finestra_->Elaborazione();
}

void frmMainForm::mnuPreferenze() {
    if (doc_) finestra_->TerminaModifica();
    frmPDC f(a_, d_, msg_, this);
    if (f.exec() != QDialog::Accepted) return;
    {
        PassoModifica passo(s_.Storia, d_, "perdite di carico predefinite");
        modifica::AdottaPdc(d_, f.Tabella());
    }
    if (doc_) finestra_->Elaborazione();
}

// ---- Archive editors ----

void frmMainForm::mnuGas() { ApriGestioneGas(this); }

void frmMainForm::ApriGestioneGas(QWidget* padre) {
    if (doc_) finestra_->TerminaModifica();
    frmGas f(a_, d_, msg_, padre);
    f.exec();
    if (doc_) {
        PassoModifica passo(s_.Storia, d_, "gestione dei gas");
        if (DopoGestioneGas(d_, a_, f.Salvati(), msg_, f.Cancellati())) doc_->InitDPMaxCombo();
        if (s_.RicalcoloAutomatico != FALSO) {
            Attesa attesa;
            finestra_->Elaborazione();
        }
    }
    AggiornaComboGas();
    AggiornaComandi();
}

void frmMainForm::MaterialiMnu() {
    if (doc_) finestra_->TerminaModifica();
    GestMateriali f(a_, msg_, this);
    connect(&f, &GestMateriali::materialeSalvato, this, [this] {
        if (doc_) doc_->LoadCombos();
    });
    f.exec();
    if (!doc_) return;
    // New materials added and never saved have left the table: the list follows it, and the
    // sizes of the sections follow the tables saved.
    doc_->LoadCombos();
    if (f.Salvato() && s_.RicalcoloAutomatico != FALSO) {
        Attesa attesa;
        finestra_->Elaborazione();
    }
}

void frmMainForm::mnuManuale() {
    const std::string percorso = TrovaFile(a_.Cartella, "Fornax5.htm");
    if (!EsisteFile(percorso) || !QDesktopServices::openUrl(QUrl::fromLocalFile(Q(percorso)))) {
        msg_.Mostra("Impossibile visualizzare il manuale '" + percorso +
                    "'. Provare a lanciarlo manualmente da Internet Explorer");
    }
}

void frmMainForm::AboutMnu() {
    frmSplash f(true, this);
    f.MostraEditore(servizio_->Editore());
    f.exec();
}

void frmMainForm::SuggerimentiAllAvvio() { servizio_->SuggerimentiAllAvvio(); }

// ---- Calculation switches ----

void frmMainForm::CommandCalculate() {
    if (!doc_) return;
    finestra_->TerminaModifica();
    if (d_.ReteInPressione == 0 && d_.GasCorrente.NonCombustibile != 0) {
        msg_.Mostra("Nel calcolo dell'impianto interno gas non può essere utilizzato un gas non combustibile");
        return;
    }
    Attesa attesa;
    finestra_->Elaborazione();
}

void frmMainForm::CommandAutomaticRecalculate() {
    s_.RicalcoloAutomatico = s_.RicalcoloAutomatico != FALSO ? FALSO : VERO;
    AggiornaComandi();
}

void frmMainForm::CommandCursorLocked() {
    s_.CursorLocked = s_.CursorLocked != FALSO ? FALSO : VERO;
    AggiornaComandi();
}

void frmMainForm::cmdDiamLocked() {
    if (!doc_) return;
    doc_->BloccaDiametri(!doc_->DiametriBloccati());
    AggiornaComandi();
}

void frmMainForm::ZoomPiu() {
    if (!doc_) return;
    // The button adds one up to 7; the level in force is held to the schema's range.
    ImpostaZoom(s_, std::min(s_.Zoom + 1, 7));
    doc_->Rescale();
    finestra_->Schema()->Rescale();
}

void frmMainForm::ZoomMeno() {
    if (!doc_) return;
    ImpostaZoom(s_, s_.Zoom - 1);
    doc_->Rescale();
    finestra_->Schema()->Rescale();
}

// ---- The schema ----

void frmMainForm::SSCommandRefresh() {
    if (!doc_) return;
    finestra_->TerminaModifica();
    finestra_->Schema()->Aggiorna();
}

void frmMainForm::SSCommandCancel() {
    if (!doc_) return;
    finestra_->TerminaModifica();
    finestra_->Schema()->CancellaSelezionato();
    AggiornaComandi();
}

}  // namespace fornax::ui

// ---- Printing ----

namespace fornax::ui {

void frmMainForm::CreaComandiStampa() {
    actStampa =
        new QAction(style()->standardIcon(QStyle::SP_FileDialogDetailedView), QStringLiteral("S&tampa..."), this);
    actStampa->setObjectName(QStringLiteral("StampaMnu"));
    actStampa->setToolTip(QStringLiteral("Stampa"));
    actStampa->setStatusTip(QStringLiteral("Stampa"));
    actStampa->setShortcut(QKeySequence::Print);
    connect(actStampa, &QAction::triggered, this, &frmMainForm::StampaMnu);
    actImpostaStampante = new QAction(QStringLiteral("&Imposta Stampante..."), this);
    actImpostaStampante->setObjectName(QStringLiteral("mnuImpostaStampante"));
    connect(actImpostaStampante, &QAction::triggered, this, &frmMainForm::mnuImpostaStampante);
    actManualeTesto = new QAction(QStringLiteral("Manuale in formato &testo..."), this);
    actManualeTesto->setObjectName(QStringLiteral("mnuManualeTesto"));
    connect(actManualeTesto, &QAction::triggered, this, &frmMainForm::mnuManualeTesto);

    // In the File menu before the recent files; on the tool bar beside the files.
    QMenu* file = menuBar()->actions().front()->menu();
    file->insertAction(actRecenti[0], actStampa);
    file->insertAction(actRecenti[0], actImpostaStampante);
    file->insertSeparator(actRecenti[0]);
    QMenu* aiuto = menuBar()->actions().back()->menu();
    aiuto->insertAction(actAbout, actManualeTesto);
    if (auto* barra = findChild<QToolBar*>(QStringLiteral("barraComandi")))
        barra->insertAction(actParametri, actStampa);
}

void frmMainForm::StampaMnu() {
    if (!doc_) return;
    finestra_->TerminaModifica();
    frmStampa f(d_, a_, s_.imp, msg_, this);
    f.exec();
    // The run recalculated the network: the page shows what was printed.
    if (doc_) doc_->AggiornaCalcoli();
    AggiornaComandi();
}

void frmMainForm::mnuImpostaStampante() {
    frmSelectPrinter f(s_.imp, this);
    f.exec();
}

void frmMainForm::mnuManualeTesto() {
    frmManuale f(a_.Cartella, msg_, this);
    if (f.LoadManuale()) f.exec();
}

}  // namespace fornax::ui

// ---- The section panel ----

namespace fornax::ui {

void frmMainForm::CreaComandiTronco() {
    actParametriTronco = new QAction(style()->standardIcon(QStyle::SP_FileDialogInfoView),
                                     QStringLiteral("Parametri Tronco Selezionato"), this);
    actParametriTronco->setObjectName(QStringLiteral("cmdParameterElemSel"));
    actParametriTronco->setToolTip(QStringLiteral("Parametri Tronco Selezionato (F11)"));
    actParametriTronco->setStatusTip(QStringLiteral("Parametri Tronco Selezionato"));
    connect(actParametriTronco, &QAction::triggered, this, &frmMainForm::cmdParameterElemSel);
    // In the Calcolo menu and on the tool bar, beside the diameters' lock.
    for (QAction* m : menuBar()->actions()) {
        if (!m->menu()) continue;
        const QList<QAction*> voci = m->menu()->actions();
        const qsizetype i = voci.indexOf(actDiametri);
        if (i < 0) continue;
        if (i + 1 < voci.size())
            m->menu()->insertAction(voci[i + 1], actParametriTronco);
        else
            m->menu()->addAction(actParametriTronco);
    }
    if (auto* barra = findChild<QToolBar*>(QStringLiteral("barraComandi")))
        barra->insertAction(actZoomMeno, actParametriTronco);
}

void frmMainForm::cmdParameterElemSel() {
    if (!doc_) return;
    // The grid in view: its current row, or the rows selected. Another page: the section
    // selected on the schema.
    if (doc_->Griglia()->isVisible()) {
        doc_->ParametriTronco();
    } else if (s_.TroncoSelezionato >= 1 && s_.TroncoSelezionato <= d_.NumTronchi()) {
        if (ApriPTronchi(this, s_, msg_, {s_.TroncoSelezionato})) doc_->Elaborazione();
    }
    AggiornaComandi();
}

}  // namespace fornax::ui
