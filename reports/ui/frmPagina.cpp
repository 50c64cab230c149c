#include "reports/ui/frmPagina.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "core/Numeri.h"
#include "core/ui/Controlli.h"

namespace fornax::ui {

namespace {

constexpr int kMin = 80;
constexpr int kMax = 120;

int Letto(Impostazioni& imp, const char* chiave) {
    const int v = static_cast<int>(LeggiNumero(imp.Leggi("Stampa", chiave)));
    if (v > 0) return v;
    imp.Scrivi("Stampa", chiave, "100");
    return 100;
}

}  // namespace

ProporzioniPagina LeggiProporzioni(Impostazioni& imp) {
    ProporzioniPagina p;
    p.PercentoX = Letto(imp, "X-percent");
    p.PercentoY = Letto(imp, "Y-percent");
    return p;
}

frmPagina::frmPagina(Impostazioni& imp, QWidget* padre) : QDialog(padre), imp_(imp) {
    setObjectName(QStringLiteral("frmPagina"));
    setWindowTitle(QStringLiteral("Proporzioni pagina"));
    const ProporzioniPagina p = LeggiProporzioni(imp_);
    x_ = std::clamp(p.PercentoX, kMin, kMax);
    y_ = std::clamp(p.PercentoY, kMin, kMax);

    auto* lay = new QHBoxLayout(this);
    auto* sinistra = new QVBoxLayout;
    auto* griglia = new QGridLayout;
    auto bottone = [this](const char* testo, const char* nome) {
        auto* b = new QPushButton(QString::fromUtf8(testo), this);
        b->setObjectName(QString::fromUtf8(nome));
        b->setFixedWidth(28);
        b->setAutoDefault(false);
        return b;
    };
    auto casella = [this](const char* nome) {
        auto* t = new QLineEdit(this);
        t->setObjectName(QString::fromUtf8(nome));
        t->setMaximumWidth(60);
        t->setAlignment(Qt::AlignRight);
        return t;
    };
    txtW = casella("txtW");
    txtH = casella("txtH");
    cmdMinusW = bottone("-", "cmdMinusW");
    cmdPlusW = bottone("+", "cmdPlusW");
    cmdMinusH = bottone("-", "cmdMinusH");
    cmdPlusH = bottone("+", "cmdPlusH");
    griglia->addWidget(new QLabel(QStringLiteral("Larghezza"), this), 0, 0);
    griglia->addWidget(cmdMinusW, 0, 1);
    griglia->addWidget(txtW, 0, 2);
    griglia->addWidget(cmdPlusW, 0, 3);
    griglia->addWidget(new QLabel(QStringLiteral("Lunghezza"), this), 1, 0);
    griglia->addWidget(cmdMinusH, 1, 1);
    griglia->addWidget(txtH, 1, 2);
    griglia->addWidget(cmdPlusH, 1, 3);
    sinistra->addLayout(griglia);
    lblNota = new QLabel(QStringLiteral("Questa finestra serve per personalizzare le\n"
                                        "dimensioni della area stampabile.\n"
                                        "Le impostazioni standard sono 100% di larghezza e\n"
                                        "100% di lunghezza.\n"
                                        "Solo se si riscontrano problemi di stampa (salti pagina\n"
                                        "non regolari o pagine vuote) provare a ridurre\n"
                                        "gradatamente  il valore della  lunghezza"),
                         this);
    lblNota->setObjectName(QStringLiteral("lblNota"));
    sinistra->addWidget(lblNota);
    auto* bottoni = new QHBoxLayout;
    bottoni->addStretch();
    Command1 = new QPushButton(QStringLiteral("OK"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);
    Command2 = new QPushButton(QStringLiteral("Annulla"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    bottoni->addWidget(Command1);
    bottoni->addWidget(Command2);
    sinistra->addLayout(bottoni);
    lay->addLayout(sinistra);

    // The paper (picFull) and the share of it the report uses (picPage), in proportion.
    picFull = new QFrame(this);
    picFull->setObjectName(QStringLiteral("picFull"));
    picFull->setFixedSize(150, 212);  // A4's proportions
    picFull->setFrameShape(QFrame::Box);
    picFull->setStyleSheet(QStringLiteral("QFrame#picFull { background: #d8d8d8; }"));
    picPage = new QFrame(picFull);
    picPage->setObjectName(QStringLiteral("picPage"));
    picPage->setStyleSheet(QStringLiteral("QFrame#picPage { background: white; border: 1px solid #404040; }"));
    lay->addWidget(picFull, 0, Qt::AlignTop);

    connect(cmdPlusW, &QPushButton::clicked, this, [this] { ImpostaW(x_ + 1); });
    connect(cmdMinusW, &QPushButton::clicked, this, [this] { ImpostaW(x_ - 1); });
    connect(cmdPlusH, &QPushButton::clicked, this, [this] { ImpostaH(y_ + 1); });
    connect(cmdMinusH, &QPushButton::clicked, this, [this] { ImpostaH(y_ - 1); });
    // A typed value is taken when the box loses focus.
    connect(txtW, &QLineEdit::editingFinished, this,
            [this] { ImpostaW(static_cast<int>(LeggiNumero(S(txtW->text())))); });
    connect(txtH, &QLineEdit::editingFinished, this,
            [this] { ImpostaH(static_cast<int>(LeggiNumero(S(txtH->text())))); });
    connect(Command1, &QPushButton::clicked, this, &frmPagina::Conferma);
    connect(Command2, &QPushButton::clicked, this, &QDialog::reject);
    Mostra();
}

void frmPagina::ImpostaW(int v) {
    x_ = std::clamp(v, kMin, kMax);
    Mostra();
}

void frmPagina::ImpostaH(int v) {
    y_ = std::clamp(v, kMin, kMax);
    Mostra();
}

void frmPagina::Mostra() {
    txtW->setText(Q(FormattaNumero(x_, "###")) + QLatin1Char('%'));
    txtH->setText(Q(FormattaNumero(y_, "###")) + QLatin1Char('%'));
    const int w = static_cast<int>(picFull->width() * x_ / 100.0 * 0.9);
    const int h = static_cast<int>(picFull->height() * y_ / 100.0 * 0.9);
    picPage->setGeometry((picFull->width() - w) / 2, (picFull->height() - h) / 2, w, h);
}

void frmPagina::Conferma() {
    imp_.Scrivi("Stampa", "X-percent", std::to_string(x_));
    imp_.Scrivi("Stampa", "Y-percent", std::to_string(y_));
    accept();
}

}  // namespace fornax::ui
