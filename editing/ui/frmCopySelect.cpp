#include "editing/ui/frmCopySelect.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ui/Controlli.h"

namespace fornax::ui {

namespace {

const char* const TESTI_GRUPPO0[4] = {"Diametro", "Lunghezza equivalente aggiuntiva", "Percentuale di contemporaneità",
                                      "Lunghezza effettiva tubazione"};
const char* const TESTI_GRUPPO1[8] = {"Kv valvole",         "Numero valvole",      "Perdita di carico nota",
                                      "N. curve",           "N. Gomiti",           "N. Saracinesche",
                                      "N. Valvole a globo", "Tipo di raccordo a T"};

}  // namespace

frmCopySelect::frmCopySelect(const Documento& d, QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmCopySelect"));
    setWindowTitle(QStringLiteral("Selezione copia multipla"));
    auto* lay = new QVBoxLayout(this);

    Text1 = new QPlainTextEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true);
    Text1->setFocusPolicy(Qt::NoFocus);
    Text1->setPlainText(QStringLiteral(
        "E' stata eseguita una selezione multipla. I valori specificati nella finetra 'parametri tronco' saranno "
        "applicati a TUTTI i tronchi selezionati  solo per i parametri abilitati in questa finestra."));
    Text1->setFixedHeight(Text1->fontMetrics().lineSpacing() * 4 + 12);
    lay->addWidget(Text1);

    const SelezioneCopia abilitate = VociAbilitate(d);
    const bool abil0[4] = {abilitate.diametro, abilitate.eqLenAggiuntiva, abilitate.contemporaneita,
                           abilitate.lunghezza};

    auto* gruppo0 = new QGroupBox(QStringLiteral("Parametri tronco"), this);
    auto* l0 = new QVBoxLayout(gruppo0);
    for (int i = 0; i < 4; ++i) {
        chkGroup0[i] = new QCheckBox(QString::fromUtf8(TESTI_GRUPPO0[i]), gruppo0);
        chkGroup0[i]->setObjectName(QStringLiteral("chkGroup0_%1").arg(i));
        chkGroup0[i]->setEnabled(abil0[i]);
        l0->addWidget(chkGroup0[i]);
    }
    lay->addWidget(gruppo0);

    auto* gruppo1 = new QGroupBox(this);
    auto* l1 = new QVBoxLayout(gruppo1);
    chkAllGroup1 = new QCheckBox(QStringLiteral("PDC Localizzate"), gruppo1);
    chkAllGroup1->setObjectName(QStringLiteral("chkAllGroup1"));
    QFont f = chkAllGroup1->font();
    f.setBold(true);
    chkAllGroup1->setFont(f);
    l1->addWidget(chkAllGroup1);
    bool qualcuna = false;
    for (size_t i = 0; i < chkGroup1.size(); ++i) {
        chkGroup1[i] = new QCheckBox(QString::fromUtf8(TESTI_GRUPPO1[i]), gruppo1);
        chkGroup1[i]->setObjectName(QStringLiteral("chkGroup1_%1").arg(i));
        chkGroup1[i]->setEnabled(abilitate.localizzate[i]);
        qualcuna = qualcuna || abilitate.localizzate[i];
        auto* riga = new QHBoxLayout;
        riga->addSpacing(18);
        riga->addWidget(chkGroup1[i]);
        l1->addLayout(riga);
        connect(chkGroup1[i], &QCheckBox::toggled, this, [this] { AggiornaMaestro(); });
    }
    chkAllGroup1->setEnabled(qualcuna);
    connect(chkAllGroup1, &QCheckBox::clicked, this, [this](bool spunta) { TuttiGruppo1(spunta); });
    lay->addWidget(gruppo1);

    QPushButton* ok = BottoniOkAnnulla(this, lay, QStringLiteral("cmdOK"), QStringLiteral("cmdAnnulla"));
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    setFixedWidth(sizeHint().width() < 380 ? 380 : sizeHint().width());
}

void frmCopySelect::TuttiGruppo1(bool spunta) {
    inAggiornamento_ = true;
    for (QCheckBox* c : chkGroup1)
        if (c->isEnabled()) c->setChecked(spunta);
    inAggiornamento_ = false;
    AggiornaMaestro();
}

// The master box is ticked when every enabled box of the group is.
void frmCopySelect::AggiornaMaestro() {
    if (inAggiornamento_) return;
    bool tutte = true;
    bool qualcuna = false;
    for (QCheckBox* c : chkGroup1) {
        if (!c->isEnabled()) continue;
        qualcuna = true;
        tutte = tutte && c->isChecked();
    }
    QSignalBlocker b(chkAllGroup1);
    chkAllGroup1->setChecked(qualcuna && tutte);
}

SelezioneCopia frmCopySelect::GetSelection() const {
    SelezioneCopia s;
    auto spuntata = [](const QCheckBox* c) { return c->isEnabled() && c->isChecked(); };
    s.diametro = spuntata(chkGroup0[0]);
    s.eqLenAggiuntiva = spuntata(chkGroup0[1]);
    s.contemporaneita = spuntata(chkGroup0[2]);
    s.lunghezza = spuntata(chkGroup0[3]);
    for (size_t i = 0; i < chkGroup1.size(); ++i) s.localizzate[i] = spuntata(chkGroup1[i]);
    return s;
}

}  // namespace fornax::ui
