#include "editing/ui/GasGrid.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "archives/Pdc.h"
#include "calc/Verifica.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/ui/Controlli.h"
#include "editing/Modifiche.h"
#include "editing/RegoleGriglia.h"
#include "editing/ui/ModelloTronchi.h"

namespace fornax::ui {

namespace {

// The grid shows every record the table can hold: 400 sections and the header row.
constexpr int RIGHE_GRIGLIA = MAX_TRONCHI + 1;

QColor ColoreInchiostro(Inchiostro i) {
    switch (i) {
        case Inchiostro::Blu:
            return Colori::BLU;
        case Inchiostro::Rosso:
            return Colori::ROSSO;
        case Inchiostro::RossoScuro:
            return Colori::ROSSO_SCURO;
        case Inchiostro::Nero:
            break;
    }
    return Colori::NERO;
}

QColor ColoreFondo(Fondo f) {
    switch (f) {
        case Fondo::GialloPallido:
            return Colori::GIALLO_PALLIDO;
        case Fondo::RossoCupo:
            return Colori::ROSSO_CUPO;
        case Fondo::Bianco:
            break;
    }
    return Colori::BIANCO;
}

QComboBox* ComboPressione(const QString& nome, QWidget* padre) {
    auto* c = new QComboBox(padre);
    c->setObjectName(nome);
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    c->setMinimumWidth(90);
    for (const std::string& v : VociComboPressione()) c->addItem(Q(v));
    c->lineEdit()->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9.,]*|Auto")), c));
    return c;
}

void Colora(QComboBox* c, bool rosso) {
    c->setStyleSheet(rosso ? QStringLiteral("QComboBox { color: rgb(220,0,0); }") : QString());
}

}  // namespace

GasGrid::GasGrid(Sessione& s, Messaggi& msg, QWidget* padre)
    : PaginaDocumento(padre), Zoom(s.Zoom), TroncoSelezionato(s.TroncoSelezionato), s_(s), d_(s.d), a_(s.a), msg_(msg) {
    setObjectName(QStringLiteral("GasGrid"));
    Costruisci();
}

GasGrid::~GasGrid() {
    // The editors may hold the focus: their focus rules must not run on a window going away.
    ++bloccoFuoco_;
    for (QObject* o : {static_cast<QObject*>(Text1), static_cast<QObject*>(Combo1), static_cast<QObject*>(Grid),
                       static_cast<QObject*>(Grid->viewport())})
        o->removeEventFilter(this);
}

void GasGrid::Costruisci() {
    auto* lay = new QVBoxLayout(this);
    lay->setContentsMargins(4, 4, 4, 4);
    lay->setSpacing(4);

    // Heading: the kind of network, and the limits that the results are judged against.
    auto* testa = new QHBoxLayout;
    lblTitolo = new QLabel(this);
    lblTitolo->setObjectName(QStringLiteral("lblTitolo"));
    QFont ft = lblTitolo->font();
    ft.setBold(true);
    ft.setPointSizeF(ft.pointSizeF() * 1.15);
    lblTitolo->setFont(ft);
    testa->addWidget(lblTitolo);
    testa->addStretch(1);

    barraPressione = new QWidget(this);
    auto* bp = new QHBoxLayout(barraPressione);
    bp->setContentsMargins(0, 0, 0, 0);
    ComboInitPres = ComboPressione(QStringLiteral("ComboInitPres"), barraPressione);
    ComboInitPres->setToolTip(QStringLiteral("Pressione relativa all'inizio della rete; Auto: il valore di default"));
    ComboFinalPres = ComboPressione(QStringLiteral("ComboFinalPres"), barraPressione);
    ComboFinalPres->setToolTip(
        QStringLiteral("Pressione relativa minima alla fine di ogni tronco; Auto: il valore di default"));
    auto* li = new QLabel(QStringLiteral("Pressione in&iziale [kPa]:"), barraPressione);
    li->setBuddy(ComboInitPres);
    auto* lf = new QLabel(QStringLiteral("Pressione fi&nale [kPa]:"), barraPressione);
    lf->setBuddy(ComboFinalPres);
    bp->addWidget(li);
    bp->addWidget(ComboInitPres);
    bp->addSpacing(12);
    bp->addWidget(lf);
    bp->addWidget(ComboFinalPres);
    testa->addWidget(barraPressione);

    barraInterna = new QWidget(this);
    auto* bi = new QHBoxLayout(barraInterna);
    bi->setContentsMargins(0, 0, 0, 0);
    ComboDpMax = ComboPressione(QStringLiteral("ComboDpMax"), barraInterna);
    ComboDpMax->setToolTip(
        QStringLiteral("Perdita di carico massima imposta; Auto: dalla tabella della normativa in vigore"));
    auto* ld = new QLabel(QStringLiteral("D&p max imposto [Pa]:"), barraInterna);
    ld->setBuddy(ComboDpMax);
    bi->addWidget(ld);
    bi->addWidget(ComboDpMax);
    testa->addWidget(barraInterna);
    testa->addSpacing(12);
    lblLimite = new QLabel(this);
    lblLimite->setObjectName(QStringLiteral("lblLimite"));
    testa->addWidget(lblLimite);
    lay->addLayout(testa);

    auto* lp = lay;

    Grid = new QTableView(this);
    Grid->setObjectName(QStringLiteral("Grid"));
    modello_ = new ModelloTronchi(a_, this);
    Grid->setModel(modello_);
    Grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid->setSelectionMode(QAbstractItemView::ContiguousSelection);
    Grid->setSelectionBehavior(QAbstractItemView::SelectItems);
    Grid->setWordWrap(false);
    Grid->setCornerButtonEnabled(false);
    Grid->horizontalHeader()->setSectionsMovable(false);
    Grid->horizontalHeader()->setHighlightSections(true);
    Grid->horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    Grid->horizontalHeader()->setStretchLastSection(true);
    Grid->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    Grid->setStyleSheet(
        QStringLiteral("QTableView { gridline-color: #c8c8c8; selection-background-color: #cfe3f7; "
                       "selection-color: black; }"));
    const int altezza = Grid->fontMetrics().height() + 6;
    Grid->verticalHeader()->setDefaultSectionSize(altezza);
    Grid->verticalHeader()->setMinimumWidth(Grid->fontMetrics().horizontalAdvance(QStringLiteral("0000")) + 10);
    Grid->installEventFilter(this);
    Grid->viewport()->installEventFilter(this);
    // The help of the column and the state of the row's diameter follow the cursor.
    connect(Grid->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& i) {
        if (!i.isValid()) return;
        ImmagineDiametro(i.row() + 1);
        AggiornaPannello();
    });
    lp->addWidget(Grid, 1);

    Text1 = new QLineEdit(Grid->viewport());
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setFrame(false);
    Text1->setStyleSheet(QStringLiteral("QLineEdit { border: 2px solid #3c78c8; background: white; }"));
    Text1->hide();
    Text1->installEventFilter(this);
    connect(Text1, &QLineEdit::textEdited, this, [this] { modificaTesto_ = true; });
    // The cell mirrors the editor: a commit reads the cell's text.
    connect(Text1, &QLineEdit::textChanged, this, [this](const QString& t) {
        if (StatoEdit == 2) modello_->ScriviTesto(RigaEdit, ColonnaEdit, t);
    });

    Combo1 = new QComboBox(Grid->viewport());
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->hide();
    Combo1->installEventFilter(this);
    connect(Combo1, &QComboBox::activated, this, [this] {
        StatoEdit = 2;
        modificaMateriale_ = true;
        AggiornaPannello();
    });
    connect(Combo1, &QComboBox::currentIndexChanged, this, [this] {
        if (Combo1->isVisible()) modificaMateriale_ = true;
    });
    connect(Combo1, &QComboBox::highlighted, this, [this](int i) {
        if (a_.HaMateriale(i + 1))
            Panel3D2->setText(Q(a_.Materiali[static_cast<size_t>(i + 1)].Nome) + QStringLiteral(": ") +
                              Q(a_.Materiali[static_cast<size_t>(i + 1)].Descrizione));
    });

    cmdDettagliDiametro = new QToolButton(Grid->viewport());
    cmdDettagliDiametro->setObjectName(QStringLiteral("cmdDettagliDiametro"));
    cmdDettagliDiametro->setText(QStringLiteral("..."));
    cmdDettagliDiametro->setToolTip(QStringLiteral("Diametri disponibili"));
    cmdDettagliDiametro->setFocusPolicy(Qt::NoFocus);
    cmdDettagliDiametro->hide();
    connect(cmdDettagliDiametro, &QToolButton::clicked, this, [this] {
        cmdDettagliDiametro->hide();
        ApriDettaglio();
    });

    // The help of the column in view, the material's description, the state of the diameter.
    auto* piede = new QHBoxLayout;
    Panel3D2 = new QLabel(this);
    Panel3D2->setObjectName(QStringLiteral("Panel3D2"));
    Panel3D2->setFrameShape(QFrame::Panel);
    Panel3D2->setFrameShadow(QFrame::Sunken);
    Panel3D2->setMargin(3);
    Panel3D2->setMinimumHeight(Grid->fontMetrics().height() + 10);
    Panel3D2->setTextFormat(Qt::PlainText);
    imgDiametro = new QLabel(this);
    imgDiametro->setObjectName(QStringLiteral("imgDiametro"));
    imgDiametro->setFrameShape(QFrame::Panel);
    imgDiametro->setFrameShadow(QFrame::Sunken);
    imgDiametro->setMargin(3);
    imgDiametro->setMinimumWidth(170);
    piede->addWidget(Panel3D2, 1);
    piede->addWidget(imgDiametro);
    lp->addLayout(piede);

    connect(Grid->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { PosizionaEditor(); });
    connect(Grid->horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { PosizionaEditor(); });
    connect(Grid->horizontalHeader(), &QHeaderView::sectionResized, this, [this] { PosizionaEditor(); });

    for (QComboBox* c : {ComboInitPres, ComboFinalPres, ComboDpMax}) {
        connect(c->lineEdit(), &QLineEdit::editingFinished, this, [this, c] { ApplicaPressione(c); });
        connect(c, &QComboBox::activated, this, [this, c] { ApplicaPressione(c); });
    }

    auto* f9 = new QShortcut(QKeySequence(Qt::Key_F9), this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(f9, &QShortcut::activated, this, [this] {
        if (isVisible()) {
            TerminaModifica();
            Elaborazione();
        }
    });

    StatoEdit = 0;
}

// ---- Rows ----

int GasGrid::IdColonna(int c) const { return modello_->Colonna(c).Id; }

bool GasGrid::HaFigli(int riga) const {
    if (riga < 1 || riga > MAX_TRONCHI) return false;
    return !d_.T(riga).IsUtenza();
}

namespace {

// The cells of one section as the grid paints them: texts and the colours of the verdicts.
std::vector<ModelloTronchi::Cella> CelleRiga(const Documento& d, const Archivi& a, const ModelloTronchi& modello,
                                             int r) {
    const Verdetti v = VerificaTronco(a, d, r);
    std::vector<ModelloTronchi::Cella> celle(static_cast<size_t>(modello.UltimaColonna()));
    for (int c = 1; c <= modello.UltimaColonna(); ++c) {
        const ColonnaTabella& col = modello.Colonna(c);
        if (col.Id == 0) continue;
        const AspettoCella s = AspettoDi(d, a, r, col, v);
        auto& x = celle[static_cast<size_t>(c - 1)];
        x.testo = Q(s.testo);
        x.inchiostro = ColoreInchiostro(s.inchiostro);
        x.fondo = ColoreFondo(s.fondo);
    }
    return celle;
}

}  // namespace

void GasGrid::ScriviRiga(int r) {
    if (r < 1 || r >= modello_->Righe()) return;
    if (r > d_.NumTronchi())
        modello_->SvuotaRigaMuta(r);
    else
        modello_->ScriviRigaMuta(r, CelleRiga(d_, a_, *modello_, r));
    modello_->Annuncia(r, r);
}

void GasGrid::ScriviTutte() {
    const int n = std::min<int>(d_.NumTronchi(), modello_->Righe() - 1);
    for (int r = 1; r <= n; ++r) modello_->ScriviRigaMuta(r, CelleRiga(d_, a_, *modello_, r));
    for (int r = n + 1; r < modello_->Righe(); ++r) modello_->SvuotaRigaMuta(r);
    // One notice for the whole grid: the view repaints once, without flicker.
    modello_->Annuncia(1, modello_->Righe() - 1);
}

void GasGrid::NuovaRiga() {
    if (d_.NumTronchi() >= MAX_TRONCHI) return;
    modello_->ImpostaRighe(modello_->Righe() + 1);
    PassoModifica passo(s_.Storia, d_, modifica::NomeNuovoTronco(d_.NumTronchi() + 1));
    ScriviRiga(modifica::AggiungiRiga(d_));
}

// ---- Public operations ----

void GasGrid::Elaborazione() {
    InElaborazione = false;
    AggiornaCalcoli();
    InElaborazione = true;
    emit elaborato();
}

void GasGrid::AggiornaCalcoli() {
    Ricalcola(s_, msg_);
    // Nothing is painted between two recalculations of one Enter: the grid is written once,
    // after the second.
    if (grigliaRinviata_) return;
    // Behind another page (an edit on the schema or the leak test), the 400 rows are written
    // when the grid comes into view, not after every edit.
    if (isHidden()) {
        righeDaScrivere_ = true;
        return;
    }
    MostraCalcoli();
}

void GasGrid::MostraCalcoli() {
    righeDaScrivere_ = false;
    ScriviTutte();
    AggiornaTitolo();
    ImmagineDiametro(Row());
}

void GasGrid::showEvent(QShowEvent* e) {
    PaginaDocumento::showEvent(e);
    if (righeDaScrivere_) MostraCalcoli();
}

void GasGrid::ResetGrid() {
    modello_->Svuota();
    VaiA(1, 1);
}

void GasGrid::LoadCombos() {
    QSignalBlocker b(Combo1);
    Combo1->clear();
    for (int m = 1; m <= a_.NumMateriali(); ++m) Combo1->addItem(Q(a_.Materiali[static_cast<size_t>(m)].Nome));
}

void GasGrid::ReLoadTubi() {
    modello_->ImpostaRighe(std::max(RIGHE_GRIGLIA, d_.NumTronchi() + 1));
    for (int r = 1; r < modello_->Righe(); ++r) ScriviRiga(r);
    Elaborazione();
}

void GasGrid::NewRete() {
    TipoGriglia = d_.ReteInPressione != 0 ? 5 : 0;
    modello_->ImpostaTabella(TipoGriglia);
    modello_->ImpostaRighe(std::max(RIGHE_GRIGLIA, d_.NumTronchi() + 1));
    // Widths in characters of the column file, never narrower than the header.
    const QFontMetrics fm = Grid->fontMetrics();
    const int carattere = fm.horizontalAdvance(QStringLiteral("0"));
    const QFontMetrics fh = Grid->horizontalHeader()->fontMetrics();
    for (int c = 1; c <= modello_->UltimaColonna(); ++c) {
        const ColonnaTabella& col = modello_->Colonna(c);
        const QStringList titoli = modello_->headerData(c - 1, Qt::Horizontal, Qt::DisplayRole).toString().split('\n');
        int titolo = 0;
        for (const QString& t : titoli) titolo = std::max(titolo, fh.horizontalAdvance(t));
        Grid->setColumnWidth(c - 1, std::max(col.Larghezza * carattere + 8, titolo + 14));
    }
    Grid->horizontalHeader()->setMinimumHeight(fh.height() * 2 + 8);
    LoadCombos();
    InitInitialPressureCombo();
    InitDPMaxCombo();
    barraPressione->setVisible(d_.ReteInPressione != 0);
    barraInterna->setVisible(d_.ReteInPressione == 0);
    ReLoadTubi();
    VaiA(1, 1);
    StatoEdit = 1;
}

void GasGrid::Rescale() {
    ImpostaZoom(s_, Zoom);
    const double scala = 100.0 / std::pow(0.9, Zoom);
    emit zoomCambiato(Zoom, Q(FormattaNumero(scala, "###")));
}

void GasGrid::BloccaDiametri(bool bloccati) {
    TerminaModifica();
    {
        PassoModifica passo(s_.Storia, d_, bloccati ? "blocco di tutti i diametri" : "sblocco di tutti i diametri");
        modifica::BloccaDiametri(d_, bloccati);
    }
    Elaborazione();
}

bool GasGrid::DiametriBloccati() const { return modifica::DiametriBloccati(d_); }

// ---- Heading and panels ----

void GasGrid::AggiornaTitolo() {
    const QString titolo = d_.ReteInPressione != 0 ? QStringLiteral("Calcolo reti gas in pressione")
                                                   : QStringLiteral("Calcolo impianto interno gas (UNI 7129)");
    setWindowTitle(titolo);
    lblTitolo->setText(titolo);
    if (d_.ReteInPressione != 0) {
        lblLimite->setText(QStringLiteral("Velocità massima: %1 m/s").arg(TestoNumero(d_.VelocitaMassima)));
        Colora(ComboInitPres, PressioneDiversaDaDefault(d_.PressioneIniziale, a_.Default.DefaultPressioneIniziale));
        Colora(ComboFinalPres, PressioneDiversaDaDefault(d_.PressioneFinale, a_.Default.DefaultPressioneFinale));
    } else {
        // The limit in force, kept as text after each change of the imposed drop.
        lblLimite->setText(QStringLiteral("Perdita massima ammessa: %1 Pa").arg(Q(TestoBreve(LimitePdc(d_)))));
        Colora(ComboDpMax, DpMaxDiversoDaTabella(d_));
    }
}

void GasGrid::AggiornaPannello() {
    const int c = Col();
    if (c < 1) {
        Panel3D2->clear();
        return;
    }
    QString testo = Q(modello_->Colonna(c).Suggerimento);
    if (IdColonna(c) == Id::ID_MATERIALE) {
        int m = 0;
        if (Combo1->isVisible())
            m = Combo1->currentIndex() + 1;
        else if (Row() >= 1 && Row() <= d_.NumTronchi())
            m = d_.T(Row()).IndiceMateriale;
        if (a_.HaMateriale(m))
            testo = Q(a_.Materiali[static_cast<size_t>(m)].Nome) + QStringLiteral(": ") +
                    Q(a_.Materiali[static_cast<size_t>(m)].Descrizione);
    }
    Panel3D2->setText(testo);
}

void GasGrid::ImmagineDiametro(int riga) {
    if (riga < 1 || riga > d_.NumTronchi() || riga > MAX_TRONCHI) {
        imgDiametro->clear();
        return;
    }
    const bool fisso = d_.T(riga).ID_DIAMCUSTOM != FALSO;
    imgDiametro->setText(fisso ? QStringLiteral("Diametro fisso (utente)") : QStringLiteral("Diametro automatico"));
    imgDiametro->setStyleSheet(fisso ? QStringLiteral("color: rgb(192,0,0); font-weight: bold;") : QString());
}

// ---- Pressure combos ----

void GasGrid::InitInitialPressureCombo() {
    SelectItemInInitialPressureList();
    SelectItemInFinalPressureList();
}

void GasGrid::InitDPMaxCombo() { SelectItemInDpMaxList(); }

void GasGrid::SelectItemInInitialPressureList() {
    QSignalBlocker b(ComboInitPres);
    SelezionaTesto(ComboInitPres, TestoNumero(d_.PressioneIniziale));
}

void GasGrid::SelectItemInFinalPressureList() {
    QSignalBlocker b(ComboFinalPres);
    SelezionaTesto(ComboFinalPres, TestoNumero(d_.PressioneFinale));
}

void GasGrid::SelectItemInDpMaxList() {
    QSignalBlocker b(ComboDpMax);
    SelezionaTesto(ComboDpMax, Q(TestoDpMax(d_)));
}

void GasGrid::ApplicaPressione(QComboBox* combo) {
    const std::string testo = S(combo->currentText());
    PassoModifica passo(s_.Storia, d_,
                        combo == ComboInitPres    ? "modifica della pressione iniziale"
                        : combo == ComboFinalPres ? "modifica della pressione finale"
                                                  : "modifica della perdita di carico imposta");
    if (combo == ComboInitPres) {
        if (!modifica::ScegliPressioneIniziale(d_, a_, testo)) return;
        SelectItemInInitialPressureList();
    } else if (combo == ComboFinalPres) {
        if (!modifica::ScegliPressioneFinale(d_, a_, testo)) return;
        SelectItemInFinalPressureList();
    } else {
        const bool cambiato = modifica::ScegliDpMax(d_, testo);
        SelectItemInDpMaxList();
        if (!cambiato) return;
    }
    if (s_.RicalcoloAutomatico != FALSO) {
        Elaborazione();
    } else {
        AggiornaTitolo();
    }
}

}  // namespace fornax::ui
