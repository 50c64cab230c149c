#include "archives/ui/Parametri.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QEvent>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include "archives/Gas.h"
#include "archives/ui/frmGas.h"
#include "core/Servizi.h"
#include "core/ui/Controlli.h"
#include "editing/Modifiche.h"

namespace fornax::ui {

namespace {

QLineEdit* Lettura(const QString& nome, QWidget* padre) {
    auto* e = new QLineEdit(padre);
    e->setObjectName(nome);
    e->setReadOnly(true);
    e->setFocusPolicy(Qt::NoFocus);
    e->setAlignment(Qt::AlignRight);
    e->setMinimumWidth(90);
    return e;
}

// Label, read-only box and unit on one row of the gas characteristics.
void RigaGas(QGridLayout* g, int riga, int colonna, const QString& etichetta, QLineEdit* box, const QString& unita) {
    auto* l = new QLabel(etichetta);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    g->addWidget(l, riga, colonna);
    g->addWidget(box, riga, colonna + 1);
    g->addWidget(new QLabel(unita), riga, colonna + 2);
}

}  // namespace

Parametri::Parametri(Archivi& a, Documento& d, Messaggi& msg, QWidget* padre)
    : QDialog(padre), a_(a), d_(d), msg_(msg) {
    setObjectName(QStringLiteral("Parametri"));
    setWindowTitle(QStringLiteral("Parametri di progetto"));
    const bool pressione = d.ReteInPressione != 0;

    auto* lay = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text2 = new QLineEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    txtDocumentPath = new QLineEdit(this);
    txtDocumentPath->setObjectName(QStringLiteral("txtDocumentPath"));
    txtDocumentPath->setToolTip(QStringLiteral("Doppio clic: apre la cartella"));
    txtDocumentPath->installEventFilter(this);
    auto* sfoglia = new QToolButton(this);
    sfoglia->setObjectName(QStringLiteral("cmdBrowse"));
    sfoglia->setText(QStringLiteral("..."));
    sfoglia->setToolTip(QStringLiteral("Seleziona la directory"));
    auto* percorso = new QHBoxLayout;
    percorso->addWidget(txtDocumentPath, 1);
    percorso->addWidget(sfoglia);
    form->addRow(QStringLiteral("Riferimento:"), Text1);
    form->addRow(QStringLiteral("Descrizione Lavoro:"), Text2);
    form->addRow(QStringLiteral("Archivio documenti:"), percorso);
    lay->addLayout(form);

    fraNormativa = new QGroupBox(QStringLiteral("Normativa di riferimento (per impianto interno)"), this);
    fraNormativa->setObjectName(QStringLiteral("lblUni"));
    auto* norme = new QHBoxLayout(fraNormativa);
    optNormativa0 = new QRadioButton(QStringLiteral("UNI 7129 - 1972/1992"), fraNormativa);
    optNormativa0->setObjectName(QStringLiteral("optNormativa0"));
    optNormativa1 = new QRadioButton(QStringLiteral("UNI 7129 - 2008"), fraNormativa);
    optNormativa1->setObjectName(QStringLiteral("optNormativa1"));
    norme->addWidget(optNormativa0);
    norme->addWidget(optNormativa1);
    norme->addStretch(1);
    fraNormativa->setVisible(!pressione);
    lay->addWidget(fraNormativa);

    auto* gas = new QHBoxLayout;
    gas->addWidget(new QLabel(QStringLiteral("Tipo di Gas :"), this));
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setMinimumWidth(220);
    gas->addWidget(Combo1, 1);
    auto* gestione = new QPushButton(QStringLiteral("Gestione gas ->"), this);
    gestione->setObjectName(QStringLiteral("Command4"));
    gestione->setAutoDefault(false);
    gas->addWidget(gestione);
    lay->addLayout(gas);

    pnlVelocita = new QGroupBox(this);
    pnlVelocita->setObjectName(QStringLiteral("pnlVelocita"));
    auto* vel = new QHBoxLayout(pnlVelocita);
    vel->addWidget(new QLabel(QStringLiteral("Velocità massima:"), pnlVelocita));
    txtVelocita = new QLineEdit(pnlVelocita);
    txtVelocita->setObjectName(QStringLiteral("txtVelocita"));
    txtVelocita->setValidator(FiltroNumerico(txtVelocita));
    txtVelocita->setMaximumWidth(90);
    vel->addWidget(txtVelocita);
    vel->addWidget(new QLabel(QStringLiteral("m/s"), pnlVelocita));
    vel->addStretch(1);
    pnlVelocita->setVisible(pressione);
    lay->addWidget(pnlVelocita);

    auto* car = new QGroupBox(QStringLiteral("Caratteristiche GAS in condizioni normali (15°C , 1013 mbar)"), this);
    auto* g = new QGridLayout(car);
    txtDensita = Lettura(QStringLiteral("txtDensita"), car);
    txtViscosita = Lettura(QStringLiteral("txtViscosita"), car);
    txtPCinf = Lettura(QStringLiteral("txtPCinf"), car);
    txtPCsup = Lettura(QStringLiteral("txtPCsup"), car);
    txtMassa = Lettura(QStringLiteral("txtMassa"), car);
    txtWobbeInf = Lettura(QStringLiteral("txtWobbeInf"), car);
    txtWobbeSup = Lettura(QStringLiteral("txtWobbeSup"), car);
    txtFamiglia = Lettura(QStringLiteral("txtFamiglia"), car);
    txtFamiglia->setAlignment(Qt::AlignLeft);
    RigaGas(g, 0, 0, QStringLiteral("Densita' relativa :"), txtDensita, QString());
    RigaGas(g, 1, 0, QStringLiteral("Visc. cinematica:"), txtViscosita, QStringLiteral("mmq/s"));
    RigaGas(g, 2, 0, QStringLiteral("Massa Volumica :"), txtMassa, QStringLiteral("Kg/mc"));
    RigaGas(g, 0, 3, QStringLiteral("Potere calorifico inf. :"), txtPCinf, QStringLiteral("MJ/mc"));
    RigaGas(g, 1, 3, QStringLiteral("Potere calorifico sup. :"), txtPCsup, QStringLiteral("MJ/mc"));
    RigaGas(g, 2, 3, QStringLiteral("Indice di Wobbe inf. :"), txtWobbeInf, QStringLiteral("MJ/mc"));
    RigaGas(g, 3, 3, QStringLiteral("Indice di Wobbe sup. :"), txtWobbeSup, QStringLiteral("MJ/mc"));
    auto* fam = new QLabel(QStringLiteral("Famiglia :"), car);
    fam->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    g->addWidget(fam, 4, 0);
    g->addWidget(txtFamiglia, 4, 1, 1, 5);
    pnlCombustibile = new QLabel(car);
    pnlCombustibile->setObjectName(QStringLiteral("pnlCombustibile"));
    pnlCombustibile->setAlignment(Qt::AlignCenter);
    pnlCombustibile->setFrameShape(QFrame::Panel);
    pnlCombustibile->setFrameShadow(QFrame::Sunken);
    pnlCombustibile->setMinimumHeight(24);
    g->addWidget(pnlCombustibile, 5, 0, 1, 6);
    g->setColumnStretch(2, 1);
    lay->addWidget(car);

    auto* bottoni = new QHBoxLayout;
    bottoni->addStretch(1);
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("Command1"));
    auto* annulla = new QPushButton(QStringLiteral("Annulla"), this);
    annulla->setObjectName(QStringLiteral("Command2"));
    for (QPushButton* b : {cmdOK, annulla}) {
        b->setAutoDefault(false);
        b->setMinimumWidth(90);
    }
    bottoni->addWidget(cmdOK);
    bottoni->addWidget(annulla);
    lay->addLayout(bottoni);
    lay->setSizeConstraint(QLayout::SetFixedSize);

    connect(Combo1, &QComboBox::currentIndexChanged, this, [this] { MostraGas(); });
    connect(sfoglia, &QToolButton::clicked, this, &Parametri::cmdBrowse);
    connect(gestione, &QPushButton::clicked, this, &Parametri::Command4);
    connect(cmdOK, &QPushButton::clicked, this, &Parametri::Command1);
    connect(annulla, &QPushButton::clicked, this, &QDialog::reject);
    // Enter goes on to the next box; from the speed, to OK.
    connect(Text1, &QLineEdit::returnPressed, Text2, [this] { Text2->setFocus(); });
    connect(Text2, &QLineEdit::returnPressed, txtDocumentPath, [this] { txtDocumentPath->setFocus(); });
    connect(txtVelocita, &QLineEdit::returnPressed, cmdOK, [this] { cmdOK->setFocus(); });

    Aggiorna();
}

void Parametri::ReloadCombo(const QString& nome) {
    const bool pressione = d_.ReteInPressione != 0;
    QSignalBlocker blocco(Combo1);
    Combo1->clear();
    for (int g = 1; g <= a_.NumGas(); ++g) {
        const GasRecord& r = a_.Gas[static_cast<size_t>(g)];
        if (pressione || r.NonCombustibile == 0) Combo1->addItem(Q(r.Nome));
    }
    const int i = nome.isEmpty() ? -1 : Combo1->findText(nome, Qt::MatchFixedString);
    Combo1->setCurrentIndex(i >= 0 ? i : (Combo1->count() > 0 ? 0 : -1));
    blocco.unblock();
    MostraGas();
}

void Parametri::Aggiorna() {
    Text1->setText(Q(d_.Riferimento));
    Text2->setText(Q(d_.DescrizioneLavoro));
    txtDocumentPath->setText(Q(d_.ArchivioDocumenti));
    // Long texts show from their beginning.
    for (QLineEdit* e : {Text1, Text2, txtDocumentPath}) e->setCursorPosition(0);
    optNormativa0->setChecked(d_.Normativa == 1);
    optNormativa1->setChecked(d_.Normativa != 1);
    txtVelocita->setText(TestoNumero(d_.VelocitaMassima));
    ReloadCombo(Q(d_.GasCorrente.Nome));
}

void Parametri::MostraGas() {
    indiceGas_ = Combo1->currentIndex() >= 0 ? CercaGas(a_, S(Combo1->currentText())) : 0;
    const bool presente = indiceGas_ >= 1 && indiceGas_ <= a_.NumGas();
    const GasRecord g = presente ? a_.Gas[static_cast<size_t>(indiceGas_)] : GasRecord{};
    txtDensita->setText(TestoNumero(g.Densita, 5));
    txtViscosita->setText(TestoNumero(static_cast<double>(g.Viscosita) * 1000000, 5));
    txtPCinf->setText(TestoNumero(g.Pci, 5));
    txtPCsup->setText(TestoNumero(g.Pcs, 5));
    txtMassa->setText(TestoNumero(g.MassaVolumica, 5));
    txtWobbeInf->setText(TestoNumero(g.WobbeInf, 5));
    txtWobbeSup->setText(TestoNumero(g.WobbeSup, 5));
    txtFamiglia->setText(g.NonCombustibile != 0 ? QString()
                                                : Q(NomeFamiglia(g.Famiglia) + " " + DescrizioneFamiglia(g.Famiglia)));
    txtFamiglia->setCursorPosition(0);
    const bool brucia = g.NonCombustibile == 0;
    pnlCombustibile->setText(brucia ? QStringLiteral("Gas combustibile") : QStringLiteral("Gas NON combustibile"));
    pnlCombustibile->setStyleSheet(brucia ? QStringLiteral("color: #1a5e1a; font-weight: bold;")
                                          : QStringLiteral("color: #b00000; font-weight: bold;"));
}

// ---- "Gestione gas ->" ----

void Parametri::Command4() {
    const QString mostrato = Combo1->currentText();
    if (GestioneGas) {
        GestioneGas();
    } else {
        frmGas f(a_, d_, msg_, this);
        f.exec();
    }
    // The archive may have changed: the list again, on the gas that was shown.
    ReloadCombo(mostrato);
}

void Parametri::cmdBrowse() {
    const QString cartella =
        QFileDialog::getExistingDirectory(this, QStringLiteral("Seleziona la directory"), txtDocumentPath->text());
    if (!cartella.isEmpty()) txtDocumentPath->setText(cartella);
}

bool Parametri::eventFilter(QObject* o, QEvent* e) {
    if (o == txtDocumentPath && e->type() == QEvent::MouseButtonDblClick && !txtDocumentPath->text().isEmpty()) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(txtDocumentPath->text()));
        return true;
    }
    return QDialog::eventFilter(o, e);
}

void Parametri::Command1() {
    modifica::ValoriParametri v;
    v.riferimento = S(Text1->text());
    v.descrizioneLavoro = S(Text2->text());
    v.archivioDocumenti = S(txtDocumentPath->text());
    v.edizione1992 = optNormativa0->isChecked();
    v.velocitaMassima = S(txtVelocita->text());
    v.indiceGas = indiceGas_;
    PassoModifica passo(Storia, d_, "parametri di progetto");
    if (!modifica::ImpostaParametri(d_, a_, v, msg_)) return;
    accept();
}

}  // namespace fornax::ui
