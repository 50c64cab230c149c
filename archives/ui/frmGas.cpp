#include "archives/ui/frmGas.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "archives/Gas.h"
#include "core/Numeri.h"
#include "core/Servizi.h"
#include "core/Testo.h"
#include "core/ui/Controlli.h"

namespace fornax::ui {

namespace {

QLineEdit* Box(const QString& nome, bool calcolato, QWidget* padre) {
    auto* e = new QLineEdit(padre);
    e->setObjectName(nome);
    e->setAlignment(Qt::AlignRight);
    e->setMinimumWidth(100);
    if (calcolato) {
        // Worked out from the others: shown, never typed.
        e->setReadOnly(true);
        e->setFocusPolicy(Qt::NoFocus);
        e->setStyleSheet(QStringLiteral("QLineEdit { background: #eef1f5; color: #203040; }"));
    } else {
        e->setValidator(FiltroNumerico(e));
    }
    return e;
}

void Riga(QGridLayout* g, int riga, int colonna, const QString& etichetta, QLineEdit* box, const QString& unita) {
    auto* l = new QLabel(etichetta);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    l->setBuddy(box);
    g->addWidget(l, riga, colonna);
    g->addWidget(box, riga, colonna + 1);
    g->addWidget(new QLabel(unita), riga, colonna + 2);
}

}  // namespace

frmGas::frmGas(Archivi& a, const Documento& d, Messaggi& msg, QWidget* padre)
    : QDialog(padre), editor_(a), a_(a), d_(d), msg_(msg) {
    setObjectName(QStringLiteral("frmGas"));
    setWindowTitle(QStringLiteral("Gestione GAS"));
    ChiediTesto = [this](const QString& titolo, const QString& domanda) {
        return TestoInserito(this, titolo, domanda);
    };

    auto* lay = new QVBoxLayout(this);
    auto* scelta = new QHBoxLayout;
    auto* etichetta = new QLabel(QStringLiteral("Tipo di gas :"), this);
    scelta->addWidget(etichetta);
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setMinimumWidth(260);
    etichetta->setBuddy(Combo1);
    scelta->addWidget(Combo1, 1);
    lay->addLayout(scelta);

    auto* car = new QGroupBox(QStringLiteral("Caratteristiche GAS in condizioni normali (15°C , 1013 mbar)"), this);
    auto* g = new QGridLayout(car);
    txtDensita = Box(QStringLiteral("txtDensita"), false, car);
    txtViscosita = Box(QStringLiteral("txtViscosita"), false, car);
    txtPCinf = Box(QStringLiteral("txtPCinf"), false, car);
    txtPCsup = Box(QStringLiteral("txtPCsup"), false, car);
    txtMassa = Box(QStringLiteral("txtMassa"), true, car);
    txtWobbeInf = Box(QStringLiteral("txtWobbeInf"), true, car);
    txtWobbeSup = Box(QStringLiteral("txtWobbeSup"), true, car);
    txtFamiglia = Box(QStringLiteral("txtFamiglia"), true, car);
    txtFamiglia->setAlignment(Qt::AlignLeft);
    Riga(g, 0, 0, QStringLiteral("Densita' relativa :"), txtDensita, QString());
    Riga(g, 1, 0, QStringLiteral("Visc. cinematica:"), txtViscosita, QStringLiteral("mmq/s"));
    Riga(g, 0, 3, QStringLiteral("Potere calorifico inf. :"), txtPCinf, QStringLiteral("MJ/mc"));
    Riga(g, 1, 3, QStringLiteral("Potere calorifico sup. :"), txtPCsup, QStringLiteral("MJ/mc"));
    auto* linea = new QFrame(car);
    linea->setFrameShape(QFrame::HLine);
    linea->setFrameShadow(QFrame::Sunken);
    g->addWidget(linea, 2, 0, 1, 6);
    Riga(g, 3, 0, QStringLiteral("Massa Volumica :"), txtMassa, QStringLiteral("Kg/mc"));
    Riga(g, 3, 3, QStringLiteral("Indice di Wobbe inf. :"), txtWobbeInf, QStringLiteral("MJ/mc"));
    Riga(g, 4, 3, QStringLiteral("Indice di Wobbe sup. :"), txtWobbeSup, QStringLiteral("MJ/mc"));
    auto* fam = new QLabel(QStringLiteral("Famiglia :"), car);
    fam->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    g->addWidget(fam, 5, 0);
    g->addWidget(txtFamiglia, 5, 1, 1, 5);
    chkGasCombustibile = new QCheckBox(QStringLiteral("GAS non combustibile"), car);
    chkGasCombustibile->setObjectName(QStringLiteral("chkGasCombustibile"));
    g->addWidget(chkGasCombustibile, 6, 0, 1, 2);
    pnlCombustibile = new QLabel(car);
    pnlCombustibile->setObjectName(QStringLiteral("pnlCombustibile"));
    pnlCombustibile->setAlignment(Qt::AlignCenter);
    pnlCombustibile->setFrameShape(QFrame::Panel);
    pnlCombustibile->setFrameShadow(QFrame::Sunken);
    pnlCombustibile->setMinimumHeight(24);
    g->addWidget(pnlCombustibile, 6, 2, 1, 4);
    // Room between the unit of the left half and the labels of the right half.
    g->setColumnMinimumWidth(2, 64);
    g->setColumnStretch(2, 1);
    lay->addWidget(car);

    auto* bottoni = new QHBoxLayout;
    auto bottone = [this, bottoni](const QString& testo, const QString& nome, const QString& suggerimento) {
        auto* b = new QPushButton(testo, this);
        b->setObjectName(nome);
        b->setToolTip(suggerimento);
        b->setAutoDefault(false);
        b->setMinimumWidth(90);
        bottoni->addWidget(b);
        return b;
    };
    auto* nuovo = bottone(QStringLiteral("Nuovo"), QStringLiteral("cmdNew"), QStringLiteral("Aggiunge un nuovo gas"));
    auto* cancella = bottone(QStringLiteral("Cancella"), QStringLiteral("cmdCancel"),
                             QStringLiteral("Cancella il gas dall'archivio"));
    auto* salva =
        bottone(QStringLiteral("Salva"), QStringLiteral("cmdSaveIt"), QStringLiteral("Salva le modifiche al gas"));
    auto* ricalcola = bottone(QStringLiteral("Ricalcola"), QStringLiteral("cmdRecalculate"),
                              QStringLiteral("Ricalcola massa volumica, indici di Wobbe e famiglia"));
    bottoni->addStretch(1);
    auto* esci = bottone(QStringLiteral("Esci"), QStringLiteral("cmdExit"), QString());
    lay->addLayout(bottoni);
    lay->setSizeConstraint(QLayout::SetFixedSize);

    for (QLineEdit* e : {txtDensita, txtViscosita, txtPCinf, txtPCsup})
        connect(e, &QLineEdit::textEdited, this, [this] { editor_.SegnaModifica(); });
    connect(chkGasCombustibile, &QCheckBox::clicked, this, [this] {
        editor_.SegnaModifica();
        AggiornaCombustibile();
    });
    connect(Combo1, &QComboBox::activated, this, &frmGas::Combo1Scelto);
    connect(nuovo, &QPushButton::clicked, this, &frmGas::cmdNew);
    connect(cancella, &QPushButton::clicked, this, &frmGas::cmdCancel);
    connect(salva, &QPushButton::clicked, this, &frmGas::cmdSaveIt);
    connect(ricalcola, &QPushButton::clicked, this, &frmGas::cmdRecalculate);
    connect(esci, &QPushButton::clicked, this, &frmGas::reject);

    // Opened on the project's gas when the archive holds it.
    for (int g = 1; g <= a_.NumGas(); ++g) {
        if (UgualiSenzaMaiuscole(Trim(a_.Gas[static_cast<size_t>(g)].Nome), Trim(d_.GasCorrente.Nome))) {
            editor_.Mostra(g);
            break;
        }
    }
    CaricaLista();
    MostraGas();
}

void frmGas::CaricaLista() {
    QSignalBlocker b(Combo1);
    Combo1->clear();
    for (int g = 1; g <= a_.NumGas(); ++g) Combo1->addItem(Q(a_.Gas[static_cast<size_t>(g)].Nome));
    Combo1->setCurrentIndex(editor_.Indice() - 1);
}

void frmGas::MostraGas() {
    const TestiGas t = editor_.Testi();
    const GasRecord& g = editor_.Lavoro();
    txtDensita->setText(Q(t.densita));
    txtViscosita->setText(Q(t.viscosita));
    txtPCinf->setText(Q(t.pci));
    txtPCsup->setText(Q(t.pcs));
    txtMassa->setText(TestoNumero(g.MassaVolumica, 5));
    txtWobbeInf->setText(TestoNumero(g.WobbeInf, 5));
    txtWobbeSup->setText(TestoNumero(g.WobbeSup, 5));
    txtFamiglia->setText(g.NonCombustibile != 0 || g.Famiglia == 0
                             ? QString()
                             : Q(NomeFamiglia(g.Famiglia) + " " + DescrizioneFamiglia(g.Famiglia)));
    txtFamiglia->setCursorPosition(0);
    chkGasCombustibile->setChecked(t.nonCombustibile);
    AggiornaCombustibile();
    const bool presente = editor_.Indice() > 0;
    for (QWidget* w : std::initializer_list<QWidget*>{txtDensita, txtViscosita, txtPCinf, txtPCsup, chkGasCombustibile})
        w->setEnabled(presente);
}

void frmGas::AggiornaCombustibile() {
    const bool brucia = !chkGasCombustibile->isChecked();
    pnlCombustibile->setText(brucia ? QStringLiteral("Gas combustibile") : QStringLiteral("Gas NON combustibile"));
    pnlCombustibile->setStyleSheet(brucia ? QStringLiteral("color: #1a5e1a; font-weight: bold;")
                                          : QStringLiteral("color: #b00000; font-weight: bold;"));
}

TestiGas frmGas::Boxes() const {
    TestiGas t;
    t.densita = S(txtDensita->text());
    t.viscosita = S(txtViscosita->text());
    t.pci = S(txtPCinf->text());
    t.pcs = S(txtPCsup->text());
    t.nonCombustibile = chkGasCombustibile->isChecked();
    return t;
}

void frmGas::Combo1Scelto(int indice) {
    const int scelto = indice + 1;
    if (scelto == editor_.Indice()) return;
    if (!editor_.PrimaDiCambiare(Boxes(), msg_)) {
        // Cancel (or a save refused): the gas in view stays, with what the boxes hold.
        QSignalBlocker b(Combo1);
        Combo1->setCurrentIndex(editor_.Indice() - 1);
        return;
    }
    editor_.Mostra(scelto);
    MostraGas();
}

void frmGas::cmdNew() {
    if (!editor_.PrimaDiCambiare(Boxes(), msg_)) return;
    const QString nome =
        ChiediTesto ? ChiediTesto(QStringLiteral("Gestione GAS"), QStringLiteral("Nome del gas")) : QString();
    if (editor_.Nuovo(S(nome)) == 0) {
        MostraGas();
        return;
    }
    CaricaLista();
    MostraGas();
    txtDensita->setFocus();
}

void frmGas::cmdCancel() {
    if (!editor_.Cancella(d_.GasCorrente, msg_)) return;
    CaricaLista();
    MostraGas();
}

void frmGas::cmdSaveIt() {
    editor_.Salva(Boxes(), msg_);
    MostraGas();
}

void frmGas::cmdRecalculate() {
    editor_.Ricalcola(Boxes(), msg_);
    MostraGas();
}

void frmGas::reject() {
    if (!editor_.PrimaDiCambiare(Boxes(), msg_)) return;
    editor_.Chiudi();
    QDialog::reject();
}

}  // namespace fornax::ui
