#include "editing/ui/PTronchi.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QToolButton>
#include <QVBoxLayout>
#include <functional>

#include "archives/ui/ViewDiametriFrm.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/ui/Controlli.h"
#include "editing/Modifiche.h"

namespace fornax::ui {

namespace {

constexpr const char* DOMANDA_MULTIPLA =
    "ATTENZIONE! questi valori verranno attribuiti a tutti i tronchi selezionati.\r\n Procedere  con l'operazione?";

// A spin button: two small arrows beside a box. They take no focus: the arrow keys in the box
// do the same from the keyboard.
QWidget* CreaSpin(QWidget* padre, const QString& nome, std::function<void(int)> passo) {
    auto* w = new QWidget(padre);
    w->setObjectName(nome);
    auto* l = new QVBoxLayout(w);
    l->setContentsMargins(0, 0, 0, 0);
    l->setSpacing(0);
    for (const int verso : {+1, -1}) {
        auto* b = new QToolButton(w);
        b->setObjectName(nome + (verso > 0 ? QStringLiteral("_su") : QStringLiteral("_giu")));
        b->setArrowType(verso > 0 ? Qt::UpArrow : Qt::DownArrow);
        b->setFocusPolicy(Qt::NoFocus);
        b->setAutoRepeat(true);
        b->setFixedSize(16, 11);
        QObject::connect(b, &QToolButton::clicked, w, [passo, verso] { passo(verso); });
        l->addWidget(b);
    }
    return w;
}

QValidator* SoloCifre(QObject* padre) {
    return new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,4}")), padre);
}

int Intero(const QLineEdit* e) { return static_cast<int>(NumeroDi(e->text())); }

}  // namespace

PTronchi::PTronchi(Sessione& s, Messaggi& msg, QWidget* padre) : QDialog(padre), s_(s), msg_(msg) {
    setObjectName(QStringLiteral("PTronchi"));
    setWindowTitle(QStringLiteral("Parametri Tronco"));
    auto* lay = new QVBoxLayout(this);
    lay->setSizeConstraint(QLayout::SetFixedSize);

    // The section in view, where it comes from, its reference.
    auto* testa = new QHBoxLayout;
    auto* l10 = new QLabel(QStringLiteral("N. &Tronco:"), this);
    Text10 = new QLineEdit(this);
    Text10->setObjectName(QStringLiteral("Text10"));
    Text10->setReadOnly(true);
    Text10->setAlignment(Qt::AlignRight);
    Text10->setFixedWidth(48);
    Text10->setToolTip(QStringLiteral("Frecce su e giù: tronco precedente o successivo"));
    l10->setBuddy(Text10);
    QWidget* spin4 = CreaSpin(this, QStringLiteral("Spin4"), [this](int p) { Spin4(p); });
    Label6 = new QLabel(this);
    Label6->setObjectName(QStringLiteral("Label6"));
    lblRiferimento = new QLabel(this);
    lblRiferimento->setObjectName(QStringLiteral("lblRiferimento"));
    QFont fr = lblRiferimento->font();
    fr.setBold(true);
    lblRiferimento->setFont(fr);
    testa->addWidget(l10);
    testa->addWidget(Text10);
    testa->addWidget(spin4);
    testa->addSpacing(16);
    testa->addWidget(Label6);
    testa->addSpacing(16);
    testa->addWidget(lblRiferimento, 1);
    lay->addLayout(testa);

    // Lengths, material, diameter.
    auto* tubo = new QFrame(this);
    tubo->setFrameShape(QFrame::StyledPanel);
    auto* g = new QGridLayout(tubo);
    int riga = 0;
    auto etichetta = [&](const QString& testo, QWidget* campo) {
        auto* l = new QLabel(testo, tubo);
        l->setBuddy(campo);
        g->addWidget(l, riga, 0);
        return l;
    };
    txtlen = new QLineEdit(tubo);
    txtlen->setObjectName(QStringLiteral("txtlen"));
    txtlen->setValidator(FiltroNumerico(txtlen));
    etichetta(QStringLiteral("&Lunghezza effettiva tubazione:"), txtlen);
    g->addWidget(txtlen, riga, 1);
    g->addWidget(new QLabel(QStringLiteral("m"), tubo), riga++, 2);
    Text3 = new QLineEdit(tubo);
    Text3->setObjectName(QStringLiteral("Text3"));
    Text3->setValidator(FiltroNumerico(Text3));
    etichetta(QStringLiteral("Lunghezza e&quivalente aggiuntiva:"), Text3);
    g->addWidget(Text3, riga, 1);
    g->addWidget(new QLabel(QStringLiteral("m eq."), tubo), riga++, 2);
    cmbMateriali = new QComboBox(tubo);
    cmbMateriali->setObjectName(QStringLiteral("cmbMateriali"));
    for (int m = 1; m <= s_.a.NumMateriali(); ++m)
        cmbMateriali->addItem(Q(s_.a.Materiali[static_cast<size_t>(m)].Nome));
    etichetta(QStringLiteral("Tipo t&ubazione:"), cmbMateriali);
    g->addWidget(cmbMateriali, riga++, 1, 1, 2);
    txtDiametro = new QLineEdit(tubo);
    txtDiametro->setObjectName(QStringLiteral("txtDiametro"));
    txtDiametro->setToolTip(QStringLiteral("Auto: il diametro è scelto dal calcolo"));
    etichetta(QStringLiteral("&Diametro:"), txtDiametro);
    auto* dia = new QHBoxLayout;
    dia->setSpacing(3);
    dia->addWidget(txtDiametro, 1);
    Command3 = new QPushButton(QStringLiteral("..."), tubo);
    Command3->setObjectName(QStringLiteral("Command3"));
    Command3->setToolTip(QStringLiteral("Diametri disponibili"));
    Command3->setAutoDefault(false);
    Command3->setFixedWidth(Command3->fontMetrics().horizontalAdvance(QStringLiteral("....")) + 12);
    dia->addWidget(Command3);
    g->addLayout(dia, riga, 1);
    SSRibbon1 = new QToolButton(tubo);
    SSRibbon1->setObjectName(QStringLiteral("SSRibbon1"));
    SSRibbon1->setCheckable(true);
    SSRibbon1->setText(QStringLiteral("&Fisso"));
    SSRibbon1->setToolTip(QStringLiteral("Diametro fissato dall'utente: il calcolo non lo cambia"));
    SSRibbon1->setFocusPolicy(Qt::StrongFocus);
    g->addWidget(SSRibbon1, riga++, 2);
    g->setColumnMinimumWidth(1, 150);
    lay->addWidget(tubo);
    connect(Command3, &QPushButton::clicked, this, &PTronchi::Command3Click);
    connect(SSRibbon1, &QToolButton::toggled, this, [this] { ColoreDiametro(); });

    // One line for each fitting of the network's table.
    auto* speciali = new QFrame(this);
    speciali->setObjectName(QStringLiteral("fraLocal"));
    speciali->setFrameShape(QFrame::StyledPanel);
    auto* gs = new QGridLayout(speciali);
    for (int i = 0; i < 10; ++i) {
        const auto k = static_cast<size_t>(i);
        lblLocal[k] = new QLabel(speciali);
        lblLocal[k]->setObjectName(QStringLiteral("lblLocal%1").arg(i));
        txtLocal[k] = new QLineEdit(speciali);
        txtLocal[k]->setObjectName(QStringLiteral("txtLocal%1").arg(i));
        txtLocal[k]->setValidator(SoloCifre(txtLocal[k]));
        txtLocal[k]->setAlignment(Qt::AlignRight);
        txtLocal[k]->setFixedWidth(60);
        txtLocal[k]->installEventFilter(this);
        lblLocal[k]->setBuddy(txtLocal[k]);
        spnLocal[k] = CreaSpin(speciali, QStringLiteral("spnLocal%1").arg(i), [this, i](int p) { SpinLocal(i, p); });
        gs->addWidget(lblLocal[k], i, 0);
        gs->addWidget(txtLocal[k], i, 1);
        gs->addWidget(spnLocal[k], i, 2);
    }
    gs->setColumnStretch(0, 1);
    lay->addWidget(speciali);

    // Simultaneity, for the junctions of a pressure network.
    pnlContemp = new QFrame(this);
    pnlContemp->setObjectName(QStringLiteral("pnlContemp"));
    pnlContemp->setFrameShape(QFrame::StyledPanel);
    auto* lc = new QHBoxLayout(pnlContemp);
    txtContemp = new QLineEdit(pnlContemp);
    txtContemp->setObjectName(QStringLiteral("txtContemp"));
    txtContemp->setValidator(SoloCifre(txtContemp));
    txtContemp->setAlignment(Qt::AlignRight);
    txtContemp->setFixedWidth(60);
    txtContemp->installEventFilter(this);
    auto* lcc = new QLabel(QStringLiteral("Percentuale di &contemporaneità :"), pnlContemp);
    lcc->setBuddy(txtContemp);
    SpinButton1Widget = CreaSpin(pnlContemp, QStringLiteral("SpinButton1"), [this](int p) { SpinButton1(p); });
    lc->addWidget(lcc, 1);
    lc->addWidget(txtContemp);
    lc->addWidget(SpinButton1Widget);
    lay->addWidget(pnlContemp);

    Command1 = BottoniOkAnnulla(this, lay, QStringLiteral("Command1"), QStringLiteral("Command2"));
    Command2 = findChild<QPushButton*>(QStringLiteral("Command2"));
    connect(Command1, &QPushButton::clicked, this, &PTronchi::Command1Click);

    Text10->installEventFilter(this);
    // The keyboard goes through the panel from top to bottom.
    QWidget* ordine[] = {Text10, txtlen, Text3, cmbMateriali, txtDiametro, Command3, SSRibbon1};
    QWidget* prima = nullptr;
    for (QWidget* w : ordine) {
        if (prima) setTabOrder(prima, w);
        prima = w;
    }
    for (QLineEdit* t : txtLocal) {
        setTabOrder(prima, t);
        prima = t;
    }
    setTabOrder(prima, txtContemp);
    setTabOrder(txtContemp, Command1);
    setTabOrder(Command1, Command2);
}

// ---- Entry points ----

void PTronchi::SReteSync() {
    righe_ = RigheSpeciali(s_.d);
    for (size_t i = 0; i < txtLocal.size(); ++i) {
        const bool attiva = i < righe_.size();
        lblLocal[i]->setVisible(attiva);
        txtLocal[i]->setVisible(attiva);
        spnLocal[i]->setVisible(attiva);
        if (attiva) lblLocal[i]->setText(Q(righe_[i].etichetta));
    }
    pnlContemp->setVisible(s_.d.ReteInPressione != 0);
    if (tronco_ >= 1) CaricaTronco();
}

void PTronchi::TroncoSync(int tronco) {
    if (righe_.empty()) SReteSync();
    tronco_ = PassoSezione(tronco, 0, s_.d.NumTronchi());
    CaricaTronco();
}

void PTronchi::ImpostaSelezione(const std::vector<int>& tronchi, const SelezioneCopia& campi) {
    selezione_ = tronchi;
    campi_ = campi;
}

void PTronchi::CaricaTronco() {
    const Documento& d = s_.d;
    if (tronco_ < 1 || tronco_ > d.NumTronchi()) return;
    const auto& t = d.T(tronco_);
    const ValoriPannello v = CaricaPannello(d, tronco_);
    Text10->setText(QString::number(tronco_));
    Label6->setText(QStringLiteral("Provenienza : %1").arg(t.ID_PREV));
    lblRiferimento->setText(Q(t.ID_RIF));
    txtlen->setText(Q(v.lunghezza));
    Text3->setText(Q(v.eqLenNota));
    cmbMateriali->setCurrentIndex(s_.a.HaMateriale(v.materiale) ? v.materiale - 1 : -1);
    txtDiametro->setText(Q(v.diametro));
    {
        QSignalBlocker b(SSRibbon1);
        SSRibbon1->setChecked(v.bloccato);
    }
    ColoreDiametro();
    for (size_t i = 0; i < righe_.size() && i < txtLocal.size(); ++i)
        txtLocal[i]->setText(Q(v.conteggi[static_cast<size_t>(righe_[i].tipo)]));
    txtContemp->setText(Q(v.contemp));
    // The percentage belongs to the junctions: a consumer's section keeps its own.
    const bool terminale = t.IsUtenza();
    txtContemp->setReadOnly(terminale);
    SpinButton1Widget->setEnabled(!terminale);
}

void PTronchi::ColoreDiametro() {
    txtDiametro->setStyleSheet(SSRibbon1->isChecked() ? QStringLiteral("QLineEdit { color: rgb(192,0,0); }")
                                                      : QStringLiteral("QLineEdit { color: black; }"));
    SSRibbon1->setStyleSheet(
        SSRibbon1->isChecked() ? QStringLiteral("QToolButton { color: rgb(192,0,0); font-weight: bold; }") : QString());
}

// ---- Spins ----

void PTronchi::Spin4(int passo) {
    const int n = PassoSezione(tronco_, passo, s_.d.NumTronchi());
    if (n == tronco_) return;
    tronco_ = n;
    CaricaTronco();
}

void PTronchi::SpinButton1(int passo) {
    if (txtContemp->isReadOnly()) return;
    const int v = Intero(txtContemp);
    txtContemp->setText(QString::number(passo > 0 ? ContempSu(v) : ContempGiu(v)));
}

void PTronchi::SpinLocal(int riga, int passo) {
    if (riga < 0 || riga >= static_cast<int>(txtLocal.size())) return;
    QLineEdit* t = txtLocal[static_cast<size_t>(riga)];
    t->setText(QString::number(std::min(9999, PassoConteggio(Intero(t), passo))));
}

void PTronchi::ContempUscita() {
    if (txtContemp->isReadOnly()) return;
    txtContemp->setText(QString::number(ContempAllUscita(Intero(txtContemp))));
}

bool PTronchi::eventFilter(QObject* o, QEvent* e) {
    if (e->type() == QEvent::KeyPress) {
        const int tasto = static_cast<QKeyEvent*>(e)->key();
        const int passo = tasto == Qt::Key_Up ? 1 : (tasto == Qt::Key_Down ? -1 : 0);
        if (passo != 0) {
            if (o == Text10) {
                Spin4(passo);
                return true;
            }
            if (o == txtContemp) {
                SpinButton1(passo);
                return true;
            }
            for (size_t i = 0; i < txtLocal.size(); ++i)
                if (o == txtLocal[i]) {
                    SpinLocal(static_cast<int>(i), passo);
                    return true;
                }
        }
    }
    if (o == txtContemp && e->type() == QEvent::FocusOut) ContempUscita();
    return QDialog::eventFilter(o, e);
}

// ---- Buttons ----

void PTronchi::Command3Click() {
    const QString scelta = ViewDiametriFrm::Scegli(this, s_.a, cmbMateriali->currentIndex() + 1);
    if (!scelta.isEmpty() && scelta != QStringLiteral("Auto")) txtDiametro->setText(scelta);
}

ValoriPannello PTronchi::Valori() const {
    ValoriPannello v;
    v.lunghezza = S(txtlen->text());
    v.eqLenNota = S(Text3->text());
    v.contemp = S(txtContemp->text());
    v.materiale = cmbMateriali->currentIndex() + 1;
    v.diametro = S(txtDiametro->text());
    v.bloccato = SSRibbon1->isChecked();
    for (size_t i = 0; i < righe_.size() && i < txtLocal.size(); ++i)
        v.conteggi[static_cast<size_t>(righe_[i].tipo)] = S(txtLocal[i]->text());
    return v;
}

void PTronchi::Command1Click() {
    if (tronco_ < 1) return;
    // Enter may press OK while the simultaneity box still has the focus.
    ContempUscita();
    const bool multipla = selezione_.size() > 1;
    if (multipla && msg_.Mostra(DOMANDA_MULTIPLA, Box::YESNO | Box::QUESTION) != Risposta::YES) return;
    const std::vector<int> tronchi = multipla ? selezione_ : std::vector<int>{tronco_};
    {
        PassoModifica passo(
            s_.Storia, s_.d,
            multipla ? "parametri dei tronchi selezionati" : "parametri del tronco " + std::to_string(tronco_));
        modifica::ApplicaParametriTronco(s_.d, s_.a, tronchi, Valori(), multipla ? &campi_ : nullptr);
    }
    fatto_ = true;
    accept();
}

}  // namespace fornax::ui
