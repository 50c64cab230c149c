#include "editing/ui/frmCportata.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ui/Controlli.h"

namespace fornax::ui {

namespace {

const char* const NOMI_CHK[NUM_APPARECCHI] = {"chkAux",     "chkSemirapido", "chkRapido1",
                                              "chkRapido2", "chkPescera",    "chkForno"};
const char* const TESTI_CHK[NUM_APPARECCHI] = {"Fornello ausiliario",     "Fornello semirapido",
                                               "Fornello rapido (primo)", "Fornello rapido (secondo)",
                                               "Fornello ultrarapido",    "Forno a gas"};

QLineEdit* Casella(QWidget* padre, const QString& nome) {
    auto* e = new QLineEdit(padre);
    e->setObjectName(nome);
    e->setValidator(FiltroNumerico(e));
    e->setAlignment(Qt::AlignRight);
    e->setMinimumWidth(120);
    return e;
}

}  // namespace

frmCportata::frmCportata(const Documento& d, QWidget* padre) : QDialog(padre), d_(d) {
    setObjectName(QStringLiteral("frmCportata"));
    setWindowTitle(QStringLiteral("Calcolo portata"));
    auto* lay = new QHBoxLayout(this);
    lay->setSizeConstraint(QLayout::SetFixedSize);

    auto* sinistra = new QVBoxLayout;
    // pnlSelect: the consumer's group.
    auto* pnlSelect = new QHBoxLayout;
    pnlSelect->setSpacing(0);
    auto* gruppo = new QButtonGroup(this);
    const QString testi[2] = {QStringLiteral("Apparecchi di cottura"), QStringLiteral("Caldaie e simili")};
    for (int i = 0; i < 2; ++i) {
        ribSelect[i] = new QPushButton(testi[i], this);
        ribSelect[i]->setObjectName(QStringLiteral("ribSelect%1").arg(i));
        ribSelect[i]->setCheckable(true);
        ribSelect[i]->setAutoDefault(false);
        gruppo->addButton(ribSelect[i], i);
        pnlSelect->addWidget(ribSelect[i]);
    }
    connect(gruppo, &QButtonGroup::idClicked, this, &frmCportata::SceltaGruppo);
    sinistra->addLayout(pnlSelect);

    pnlCaratteristiche = new QGroupBox(QStringLiteral("Caratteristiche "), this);
    pnlCaratteristiche->setObjectName(QStringLiteral("pnlCaratteristiche"));
    auto* g = new QGridLayout(pnlCaratteristiche);
    txtWatt = Casella(pnlCaratteristiche, QStringLiteral("txtWatt"));
    txtKcal = Casella(pnlCaratteristiche, QStringLiteral("txtKcal"));
    txtNMC = Casella(pnlCaratteristiche, QStringLiteral("txtNMC"));
    txtRif = new QLineEdit(pnlCaratteristiche);
    txtRif->setObjectName(QStringLiteral("txtRif"));
    auto riga = [&](int r, QLineEdit* e, const QString& etichetta, const QString& unita) {
        auto* l = new QLabel(etichetta, pnlCaratteristiche);
        l->setBuddy(e);
        g->addWidget(l, r, 0);
        g->addWidget(e, r, 1);
        // The unit names the box that has no label of its own.
        auto* u = new QLabel(etichetta.isEmpty() ? QStringLiteral("&") + unita : unita, pnlCaratteristiche);
        u->setBuddy(e);
        g->addWidget(u, r, 2);
    };
    riga(0, txtWatt, QStringLiteral("&Potenza:"), QStringLiteral("W"));
    riga(1, txtKcal, QString(), QStringLiteral("kcal/h"));
    riga(2, txtNMC, QStringLiteral("Po&rtata:"), QStringLiteral("Nmc/h"));
    riga(3, txtRif, QStringLiteral("R&iferimento:"), QString());
    sinistra->addWidget(pnlCaratteristiche);
    sinistra->addStretch(1);
    cmdOK = BottoniOkAnnulla(this, sinistra, QStringLiteral("cmdOK"), QStringLiteral("Command2"));
    Command2 = findChild<QPushButton*>(QStringLiteral("Command2"));
    lay->addLayout(sinistra);

    pnlUtenze = new QGroupBox(QStringLiteral("Utenze di cottura tipiche"), this);
    pnlUtenze->setObjectName(QStringLiteral("pnlUtenze"));
    auto* lu = new QVBoxLayout(pnlUtenze);
    for (size_t i = 0; i < chk.size(); ++i) {
        chk[i] = new QCheckBox(QString::fromUtf8(TESTI_CHK[i]), pnlUtenze);
        chk[i]->setObjectName(QString::fromLatin1(NOMI_CHK[i]));
        connect(chk[i], &QCheckBox::clicked, this, [this, i](bool spuntato) { ClickApparecchio(i, spuntato); });
        lu->addWidget(chk[i]);
    }
    Command3 = new QPushButton(QStringLiteral("Cucina completa"), pnlUtenze);
    Command3->setObjectName(QStringLiteral("Command3"));
    Command3->setAutoDefault(false);
    connect(Command3, &QPushButton::clicked, this, &frmCportata::Command3Click);
    lu->addWidget(Command3);
    lu->addStretch(1);
    lay->addWidget(pnlUtenze);

    // A value typed replaces the sum of the appliances.
    connect(txtWatt, &QLineEdit::textEdited, this, [this](const QString& t) {
        if (!InModifica) return;
        Modificato = true;
        ResetChk();
        watt_ = LeggiPotenza(S(t));
        Ricalcola(Fonte::WATT);
    });
    connect(txtKcal, &QLineEdit::textEdited, this, [this](const QString& t) {
        if (!InModifica) return;
        Modificato = true;
        if (LeggiPotenza(S(t)) > MAX_KCAL) Scrivi(txtKcal, QString::fromLatin1(TESTO_MAX_KCAL));
        ResetChk();
        kcal_ = LeggiPotenza(S(txtKcal->text()));
        Ricalcola(Fonte::KCAL);
    });
    connect(txtNMC, &QLineEdit::textEdited, this, [this](const QString& t) {
        if (!InModifica) return;
        Modificato = true;
        if (LeggiPortata(S(t)) > MAX_PORTATA) Scrivi(txtNMC, QString::fromLatin1(TESTO_MAX_PORTATA));
        ResetChk();
        Portata = static_cast<float>(LeggiPortata(S(txtNMC->text())));
        Ricalcola(Fonte::PORTATA);
    });
    connect(txtRif, &QLineEdit::textEdited, this, [this] { Modificato = true; });
    for (QLineEdit* e : {txtWatt, txtKcal, txtNMC, txtRif})
        connect(e, &QLineEdit::editingFinished, this, [this, e] {
            if (e->isModified()) Modificato = true;
        });

    connect(cmdOK, &QPushButton::clicked, this, [this] {
        Done = true;
        Composizione = CodificaComposizione();
        accept();
    });

    setTabOrder(txtWatt, txtKcal);
    setTabOrder(txtKcal, txtNMC);
    setTabOrder(txtNMC, txtRif);
    setTabOrder(txtRif, cmdOK);
    setTabOrder(cmdOK, Command2);
    setTabOrder(Command2, ribSelect[0]);
    setTabOrder(ribSelect[0], ribSelect[1]);
    setTabOrder(ribSelect[1], chk[0]);
    for (size_t i = 1; i < chk.size(); ++i) setTabOrder(chk[i - 1], chk[i]);
    setTabOrder(chk[chk.size() - 1], Command3);
}

QString frmCportata::Riferimento() const { return txtRif->text(); }

void frmCportata::Scrivi(QLineEdit* e, const QString& testo) {
    const bool prima = InModifica;
    InModifica = false;
    e->setText(testo);
    InModifica = prima;
}

void frmCportata::SetDati(int tronco, float portata) {
    setWindowTitle(QStringLiteral("Calcolo portata  -  Tronco N. ") + QString::number(tronco));
    Done = false;
    Portata = portata;
    Scrivi(txtNMC, Q(TestoPortata(portata)));
    const bool valido = tronco >= 1 && tronco <= MAX_TRONCHI;
    Scrivi(txtRif, valido ? Q(d_.T(tronco).ID_RIF) : QString());
    Tipologia = valido ? d_.T(tronco).ID_TIPOUTENZA : 0;
    Composizione = valido ? d_.T(tronco).ID_NOMEUTENZA : std::string();
    ResetChk();
    if (Tipologia == 1) {
        DecodificaComposizione(Composizione);
        MostraScelta(0);
    } else {
        MostraScelta(1);
    }
    Ricalcola(Fonte::PORTATA);
    Modificato = false;
}

void frmCportata::MostraScelta(int scelta) {
    ribSelect[scelta]->setChecked(true);
    // The group chosen shows raised; the other takes the grey of the panel.
    ribSelect[scelta]->setStyleSheet(
        QStringLiteral("QPushButton { background-color: #F4F4F4; font-weight: bold; border: 2px outset #FFFFFF; "
                       "padding: 4px 8px; }"));
    ribSelect[1 - scelta]->setStyleSheet(
        QStringLiteral("QPushButton { background-color: #C0C0C0; border: 1px solid #808080; padding: 4px 8px; }"));
    ShowUtenze(scelta == 0);
}

void frmCportata::SceltaGruppo(int scelta) {
    if (scelta == 0) {
        MostraScelta(0);
        Tipologia = 1;
    } else {
        MostraScelta(1);
        ResetChk();
        Tipologia = 2;
    }
    // The power stays once the user has given it; otherwise the flow does.
    Ricalcola(Modificato ? Fonte::WATT : Fonte::PORTATA);
}

void frmCportata::ShowUtenze(bool visibile) {
    pnlUtenze->setVisible(visibile);
    adjustSize();
}

void frmCportata::ResetChk() {
    for (QCheckBox* c : chk) {
        QSignalBlocker b(c);
        c->setChecked(false);
    }
    Watt = 0;
}

std::string frmCportata::CodificaComposizione() const {
    fornax::Composizione c{};
    for (size_t i = 0; i < chk.size(); ++i) c[i] = chk[i]->isChecked();
    return fornax::CodificaComposizione(c);
}

void frmCportata::DecodificaComposizione(const std::string& testo) {
    fornax::Composizione c{};
    for (size_t i = 0; i < chk.size(); ++i) c[i] = chk[i]->isChecked();
    if (!fornax::DecodificaComposizione(testo, c)) return;
    for (size_t i = 0; i < chk.size(); ++i) {
        QSignalBlocker b(chk[i]);
        chk[i]->setChecked(c[i]);
    }
    Watt = WattDi(c);
}

void frmCportata::ClickApparecchio(size_t i, bool spuntato) {
    Watt += spuntato ? WATT_APPARECCHI[i] : -WATT_APPARECCHI[i];
    Modificato = true;
    Ricalcola(Fonte::APPARECCHI);
}

void frmCportata::Command3Click() {
    for (size_t i = 0; i < chk.size(); ++i) {
        if (chk[i]->isChecked()) continue;
        {
            QSignalBlocker b(chk[i]);
            chk[i]->setChecked(true);
        }
        Watt += WATT_APPARECCHI[i];
    }
    Modificato = true;
    Ricalcola(Fonte::APPARECCHI);
}

void frmCportata::Ricalcola(int fonte) {
    const double pc = PotereCalorifico(d_.GasCorrente, Tipologia);
    double valore = 0;
    switch (fonte) {
        case Fonte::APPARECCHI:
            valore = Watt;
            break;
        case Fonte::WATT:
            valore = watt_;
            break;
        case Fonte::KCAL:
            valore = kcal_;
            break;
        default:
            valore = Portata;
            break;
    }
    const ValoriPortata v = fornax::Ricalcola(fonte, valore, pc);
    watt_ = v.watt;
    kcal_ = v.kcal;
    Portata = v.portata;
    // The box the user types in keeps the text as typed.
    if (fonte != Fonte::WATT) Scrivi(txtWatt, Q(InsertTousendSeparator(v.watt)));
    if (fonte != Fonte::KCAL) Scrivi(txtKcal, Q(InsertTousendSeparator(v.kcal)));
    if (fonte != Fonte::PORTATA) Scrivi(txtNMC, Q(TestoPortata(v.portata)));
}

// ---- frmPortata ----

frmPortata::frmPortata(const Documento& d, QWidget* padre) : QDialog(padre), d_(d) {
    setObjectName(QStringLiteral("frmPortata"));
    setWindowTitle(QStringLiteral("Portata utenza"));
    auto* lay = new QVBoxLayout(this);
    lay->setSizeConstraint(QLayout::SetFixedSize);
    auto* g = new QGridLayout;
    txtNMC = Casella(this, QStringLiteral("txtNMC"));
    txtRif = new QLineEdit(this);
    txtRif->setObjectName(QStringLiteral("txtRif"));
    auto* l1 = new QLabel(QStringLiteral("&Portata  in condizioni normali (15°C , 1013 mbar)"), this);
    l1->setBuddy(txtNMC);
    g->addWidget(l1, 0, 0, 1, 2);
    g->addWidget(txtNMC, 1, 0);
    g->addWidget(new QLabel(QStringLiteral("Nmc/h"), this), 1, 1);
    auto* l2 = new QLabel(QStringLiteral("R&iferimento:"), this);
    l2->setBuddy(txtRif);
    g->addWidget(l2, 2, 0, 1, 2);
    g->addWidget(txtRif, 3, 0, 1, 2);
    lay->addLayout(g);
    cmdOK = BottoniOkAnnulla(this, lay, QStringLiteral("cmdOK"), QStringLiteral("Command2"));
    Command2 = findChild<QPushButton*>(QStringLiteral("Command2"));
    connect(txtNMC, &QLineEdit::textEdited, this, [this](const QString& t) {
        if (LeggiPortata(S(t)) > MAX_PORTATA) txtNMC->setText(QString::fromLatin1(TESTO_MAX_PORTATA));
        Portata = static_cast<float>(LeggiPortata(S(txtNMC->text())));
    });
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        Done = true;
        accept();
    });
}

QString frmPortata::Riferimento() const { return txtRif->text(); }

void frmPortata::SetDati(int tronco, float portata) {
    setWindowTitle(QStringLiteral("Portata utenza -  Tronco N. ") + QString::number(tronco));
    Done = false;
    Portata = portata;
    txtNMC->setText(Q(TestoPortata(portata)));
    txtRif->setText(tronco >= 1 && tronco <= MAX_TRONCHI ? Q(d_.T(tronco).ID_RIF) : QString());
}

}  // namespace fornax::ui
