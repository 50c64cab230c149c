#include "housekeeping/ui/frmHints.h"

#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "core/Rete.h"
#include "core/Servizi.h"
#include "core/ui/Controlli.h"
#include "housekeeping/ui/frmCopyArchieves.h"

namespace fornax::ui {

QString TestoSuggerimento(const std::string& testo) {
    QString t = Q(testo).toHtmlEscaped();
    t.replace(QStringLiteral("\r\n"), QStringLiteral("<br>"));
    return t;
}

frmHints::frmHints(Suggerimenti& s, const BloccoEditore& editore, Impostazioni& imp, QWidget* padre)
    : QDialog(padre), s_(s), editore_(editore), imp_(imp) {
    setObjectName(QStringLiteral("frmHints"));
    setWindowTitle(QStringLiteral("Suggerimenti"));
    auto* lay = new QVBoxLayout(this);
    auto* corpo = new QHBoxLayout;
    auto* icona = new QLabel(this);
    icona->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation, nullptr, this).pixmap(40, 40));
    icona->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    icona->setMinimumWidth(56);
    corpo->addWidget(icona);
    auto* destra = new QVBoxLayout;
    auto* titolo = new QLabel(QStringLiteral("Lo sapevi che..."), this);
    QFont f = titolo->font();
    f.setBold(true);
    f.setPointSizeF(f.pointSizeF() * 1.25);
    titolo->setFont(f);
    destra->addWidget(titolo);
    txtHint = new QTextBrowser(this);
    txtHint->setObjectName(QStringLiteral("txtHint"));
    txtHint->setOpenLinks(false);
    txtHint->setFrameShape(QFrame::NoFrame);
    txtHint->setMinimumSize(440, 120);
    txtHint->setFocusPolicy(Qt::NoFocus);
    QPalette p = txtHint->palette();
    p.setColor(QPalette::Base, palette().color(QPalette::Window));
    txtHint->setPalette(p);
    destra->addWidget(txtHint, 1);
    corpo->addLayout(destra, 1);
    lay->addLayout(corpo, 1);

    auto* riga = new QHBoxLayout;
    ckDontShowAgain = new QCheckBox(QStringLiteral("Non mostrare i suggerimenti all'avvio"), this);
    ckDontShowAgain->setObjectName(QStringLiteral("ckDontShowAgain"));
    riga->addWidget(ckDontShowAgain);
    riga->addStretch(1);
    cmdNextHint = new QPushButton(QStringLiteral("Suggerimento successivo"), this);
    cmdNextHint->setObjectName(QStringLiteral("cmdNextHint"));
    cmdNextHint->setAutoDefault(false);
    cmdClose = new QPushButton(QStringLiteral("Chiudi"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    cmdClose->setDefault(true);
    riga->addWidget(cmdNextHint);
    riga->addWidget(cmdClose);
    lay->addLayout(riga);

    connect(cmdNextHint, &QPushButton::clicked, this, &frmHints::Prossimo);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    Prossimo();
}

void frmHints::Prossimo() {
    const TipRecord* t = ProssimoSuggerimento(s_, editore_);
    haSuggerimento_ = haSuggerimento_ || t != nullptr;
    cmdNextHint->setEnabled(t != nullptr);
    if (t) txtHint->setHtml(TestoSuggerimento(t->Testo));
}

void frmHints::done(int r) {
    // However the window closes, the choice and the place in the list are kept.
    s_.MostraSuggerimenti = ckDontShowAgain->isChecked() ? FALSO : VERO;
    SalvaImpostazioniHints(s_, imp_);
    QDialog::done(r);
}

// ---- Menu entries ----

ComandiServizio::ComandiServizio(std::string cartellaProgramma, Impostazioni& imp, Messaggi& msg,
                                 std::function<std::string()> cartellaLavoro, QWidget* padre)
    : QObject(padre),
      programma_(std::move(cartellaProgramma)),
      imp_(imp),
      msg_(msg),
      lavoro_(std::move(cartellaLavoro)),
      padre_(padre),
      editore_(LeggiBloccoEditore(programma_)) {
    mnuArchiveCopy = new QAction(QStringLiteral("Copia A&rchivi..."), this);
    mnuArchiveCopy->setObjectName(QStringLiteral("mnuArchiveCopy"));
    mnuArchiveCopy->setStatusTip(QStringLiteral("Copia gli archivi tecnici da un'altra cartella"));
    mnuProjectFileCopy = new QAction(QStringLiteral("Copia File di &Progetto..."), this);
    mnuProjectFileCopy->setObjectName(QStringLiteral("mnuProjectFileCopy"));
    mnuProjectFileCopy->setStatusTip(QStringLiteral("Copia i progetti di un'altra cartella nell'Archivio Lavori"));
    mnuShowHints = new QAction(QStringLiteral("&Visualizza suggerimenti"), this);
    mnuShowHints->setObjectName(QStringLiteral("mnuShowHints"));
    mnuShowHints->setCheckable(true);
    mnuShowHints->setStatusTip(QStringLiteral("Mostra o nasconde i suggerimenti all'avvio"));
    AggiornaSpunta();

    connect(mnuArchiveCopy, &QAction::triggered, this, [this] {
        frmCopyArchieves f(programma_, msg_, padre_);
        f.exec();
    });
    connect(mnuProjectFileCopy, &QAction::triggered, this, [this] {
        frmCopyProjectFiles f(lavoro_ ? lavoro_() : programma_, programma_, msg_, padre_);
        f.exec();
    });
    connect(mnuShowHints, &QAction::triggered, this, &ComandiServizio::CambiaSuggerimenti);
}

void ComandiServizio::AggiornaSpunta() {
    Suggerimenti s;
    LeggiImpostazioniHints(s, imp_);
    mnuShowHints->setChecked(s.MostraSuggerimenti != FALSO);
}

void ComandiServizio::CambiaSuggerimenti() {
    Suggerimenti s;
    LeggiImpostazioniHints(s, imp_);
    s.MostraSuggerimenti = s.MostraSuggerimenti != FALSO ? FALSO : VERO;
    SalvaImpostazioniHints(s, imp_);
    AggiornaSpunta();
}

void ComandiServizio::SuggerimentiAllAvvio() {
    Suggerimenti s;
    s.ElencoTips = LeggiHints(programma_);
    LeggiImpostazioniHints(s, imp_);
    if (s.MostraSuggerimenti != FALSO) {
        frmHints f(s, editore_, imp_, padre_);
        if (f.HaSuggerimento()) f.exec();
    }
    AggiornaSpunta();
}

}  // namespace fornax::ui
