#include "archives/ui/frmDefaultValue.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "archives/Default.h"
#include "core/Servizi.h"
#include "core/Testo.h"
#include "core/ui/Controlli.h"

namespace fornax::ui {

namespace {

// The first name of a list after its empty entry, or "" for a list with nothing else.
QString PrimoNome(const QComboBox* c) { return c->count() > 1 ? c->itemText(1) : QString(); }

// Takes the name in the box, or the first of the list when it is empty, and selects it.
QString NomeScelto(QComboBox* c) {
    QString nome = c->currentText().trimmed();
    if (nome.isEmpty()) {
        nome = PrimoNome(c);
        c->setCurrentIndex(c->count() > 1 ? 1 : 0);
    }
    return nome;
}

QComboBox* ComboPressione(const QString& nome, QWidget* padre) {
    auto* c = new QComboBox(padre);
    c->setObjectName(nome);
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    RiempiComboPressioni(c, QString());
    c->lineEdit()->setValidator(FiltroNumerico(c));
    return c;
}

}  // namespace

frmDefaultValue::frmDefaultValue(Archivi& a, const Documento& d, Impostazioni& imp, Messaggi& msg, QWidget* padre)
    : QDialog(padre), a_(a), imp_(imp), msg_(msg) {
    setObjectName(QStringLiteral("frmDefaultValue"));
    setWindowTitle(QStringLiteral("Valori di default"));
    const bool pressione = d.ReteInPressione != 0;

    cmbGas = new QComboBox(this);
    cmbGas->setObjectName(QStringLiteral("cmbGas"));
    cmbGas->addItem(QString());
    for (int g = 1; g <= a.NumGas(); ++g) {
        const GasRecord& r = a.Gas[static_cast<size_t>(g)];
        // An internal installation can't burn a gas that doesn't burn.
        if (pressione || r.NonCombustibile == 0) cmbGas->addItem(Q(r.Nome));
    }
    cmbMateriali = new QComboBox(this);
    cmbMateriali->setObjectName(QStringLiteral("cmbMateriali"));
    cmbMateriali->addItem(QString());
    for (int m = 1; m <= a.NumMateriali(); ++m) cmbMateriali->addItem(Q(a.Materiali[static_cast<size_t>(m)].Nome));

    LeggiDefault(a_, msg_);
    const int ig = cmbGas->findText(Q(a.Default.DefaultGas).trimmed(), Qt::MatchFixedString);
    cmbGas->setCurrentIndex(ig >= 0 ? ig : 0);
    const int im = cmbMateriali->findText(Q(a.Default.DefaultMateriale).trimmed(), Qt::MatchFixedString);
    cmbMateriali->setCurrentIndex(im >= 0 ? im : 0);

    auto* lay = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Tipo di Gas :"), cmbGas);
    form->addRow(QStringLiteral("Tubazione"), cmbMateriali);
    lay->addLayout(form);

    fraPressione = new QGroupBox(QStringLiteral("Calcolo reti gas in pressione"), this);
    fraPressione->setObjectName(QStringLiteral("fraPressione"));
    auto* fp = new QFormLayout(fraPressione);
    txtVelocity = new QLineEdit(Q(a.Default.DefaultVelocita), fraPressione);
    txtVelocity->setObjectName(QStringLiteral("txtVelocity"));
    txtVelocity->setValidator(FiltroNumerico(txtVelocity));
    auto* vel = new QHBoxLayout;
    vel->addWidget(txtVelocity);
    vel->addWidget(new QLabel(QStringLiteral("m/s"), fraPressione));
    fp->addRow(QStringLiteral("Velocità media"), vel);
    cmbInitPres = ComboPressione(QStringLiteral("cmbInitPres"), fraPressione);
    cmbFinalPres = ComboPressione(QStringLiteral("cmbFinalPres"), fraPressione);
    const QString ini = Q(Trim(a.Default.DefaultPressioneIniziale));
    const QString fin = Q(Trim(a.Default.DefaultPressioneFinale));
    SelezionaTesto(cmbInitPres, ini.isEmpty() ? QStringLiteral("200") : ini);
    SelezionaTesto(cmbFinalPres, fin.isEmpty() ? QStringLiteral("150") : fin);
    fp->addRow(QStringLiteral("Pressione relativa iniziale  [kPa]:"), cmbInitPres);
    fp->addRow(QStringLiteral("Pressione relativa finale  [kPa]:"), cmbFinalPres);
    fraPressione->setVisible(pressione);
    lay->addWidget(fraPressione);

    auto* fraDitta = new QGroupBox(QStringLiteral("Ditta (intestazione della relazione di calcolo)"), this);
    fraDitta->setObjectName(QStringLiteral("fraDitta"));
    auto* fd = new QFormLayout(fraDitta);
    txtDittaRiga1 = new QLineEdit(Q(imp.Leggi("Ditta", "Riga1", "")), fraDitta);
    txtDittaRiga1->setObjectName(QStringLiteral("txtDittaRiga1"));
    txtDittaRiga2 = new QLineEdit(Q(imp.Leggi("Ditta", "Riga2", "")), fraDitta);
    txtDittaRiga2->setObjectName(QStringLiteral("txtDittaRiga2"));
    for (QLineEdit* e : {txtDittaRiga1, txtDittaRiga2}) {
        e->setMaxLength(LUNGHEZZA_RIGA_DITTA);
        e->setMinimumWidth(300);
    }
    fd->addRow(QStringLiteral("Ragione sociale:"), txtDittaRiga1);
    fd->addRow(QStringLiteral("Indirizzo:"), txtDittaRiga2);
    lay->addWidget(fraDitta);

    auto* ok = BottoniOkAnnulla(this, lay, QStringLiteral("cmdOK"), QStringLiteral("cmdCancel"));
    lay->setSizeConstraint(QLayout::SetFixedSize);
    connect(ok, &QPushButton::clicked, this, &frmDefaultValue::cmdOK);
}

void frmDefaultValue::cmdOK() {
    TestiDefault& def = a_.Default;
    def.DefaultGas = S(NomeScelto(cmbGas));
    def.DefaultMateriale = S(NomeScelto(cmbMateriali));
    const QString vel = txtVelocity->text().trimmed();
    const QString ini = cmbInitPres->currentText().trimmed();
    const QString fin = cmbFinalPres->currentText().trimmed();
    def.DefaultVelocita = vel.isEmpty() ? "15" : S(vel);
    def.DefaultPressioneIniziale = ini.isEmpty() ? "200" : S(ini);
    def.DefaultPressioneFinale = fin.isEmpty() ? "150" : S(fin);
    def.DefaultDpMax = "0";
    putDefaultValueInFile(a_, msg_);
    imp_.Scrivi("Ditta", "Riga1", S(txtDittaRiga1->text().left(LUNGHEZZA_RIGA_DITTA)));
    imp_.Scrivi("Ditta", "Riga2", S(txtDittaRiga2->text().left(LUNGHEZZA_RIGA_DITTA)));
    accept();
}

}  // namespace fornax::ui
