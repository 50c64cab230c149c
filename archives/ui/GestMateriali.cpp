#include "archives/ui/GestMateriali.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "core/ui/Controlli.h"

namespace fornax::ui {

namespace {

constexpr int COLONNE = 5;

}  // namespace

GestMateriali::GestMateriali(Archivi& a, Messaggi& msg, QWidget* padre) : QDialog(padre), editor_(a), a_(a), msg_(msg) {
    setObjectName(QStringLiteral("GestMateriali"));
    setWindowTitle(QStringLiteral("Gestione tubazioni"));
    ChiediTesto = [this](const QString& titolo, const QString& domanda) {
        return TestoInserito(this, titolo, domanda);
    };

    auto* lay = new QVBoxLayout(this);
    auto* testa = new QGridLayout;
    auto* etTubo = new QLabel(QStringLiteral("Tubazione"), this);
    cmbMateriali = new QComboBox(this);
    cmbMateriali->setObjectName(QStringLiteral("cmbMateriali"));
    cmbMateriali->setMinimumWidth(160);
    etTubo->setBuddy(cmbMateriali);
    testa->addWidget(etTubo, 0, 0);
    testa->addWidget(cmbMateriali, 0, 1);

    auto* rugosita = new QGroupBox(QStringLiteral("Tipo rugosita' :"), this);
    auto* opzioni = new QHBoxLayout(rugosita);
    Option3D1 = new QRadioButton(QStringLiteral("Acciaio"), rugosita);
    Option3D1->setObjectName(QStringLiteral("Option3D1"));
    Option3D2 = new QRadioButton(QStringLiteral("Rame"), rugosita);
    Option3D2->setObjectName(QStringLiteral("Option3D2"));
    Option3D3 = new QRadioButton(QStringLiteral("Plastica"), rugosita);
    Option3D3->setObjectName(QStringLiteral("Option3D3"));
    for (QRadioButton* o : {Option3D1, Option3D2, Option3D3}) opzioni->addWidget(o);
    testa->addWidget(rugosita, 0, 2, 2, 1);

    auto* etMassa = new QLabel(QStringLiteral("Massa Volumica:"), this);
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setValidator(FiltroNumerico(Text1));
    Text1->setAlignment(Qt::AlignRight);
    Text1->setMaximumWidth(100);
    etMassa->setBuddy(Text1);
    auto* massa = new QHBoxLayout;
    massa->addWidget(Text1);
    massa->addWidget(new QLabel(QStringLiteral("kg/m^3"), this));
    massa->addStretch(1);
    testa->addWidget(etMassa, 1, 0);
    testa->addLayout(massa, 1, 1);

    auto* etDesc = new QLabel(QStringLiteral("Descrizione"), this);
    Text2 = new QLineEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    etDesc->setBuddy(Text2);
    testa->addWidget(etDesc, 2, 0);
    testa->addWidget(Text2, 2, 1, 1, 2);
    testa->setColumnStretch(2, 1);
    lay->addLayout(testa);

    Grid = new QTableWidget(0, COLONNE, this);
    Grid->setObjectName(QStringLiteral("Grid"));
    Grid->setHorizontalHeaderLabels({QStringLiteral("Rif.Diam."), QStringLiteral("Diam. ext\nmm"),
                                     QStringLiteral("Spessore\nmm"), QStringLiteral("Diam. int\nmm"),
                                     QStringLiteral("Massa lineica\nKg/m")});
    Grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid->setSelectionMode(QAbstractItemView::SingleSelection);
    Grid->setSelectionBehavior(QAbstractItemView::SelectItems);
    Grid->verticalHeader()->setDefaultSectionSize(Grid->fontMetrics().height() + 8);
    const int larghezze[COLONNE] = {110, 90, 90, 90, 110};
    for (int c = 0; c < COLONNE; ++c) Grid->setColumnWidth(c, larghezze[c]);
    // Extra width goes to the size's name; the numbers keep columns of their own width.
    Grid->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    Grid->setMinimumSize(560, 320);
    Grid->installEventFilter(this);
    Grid->viewport()->installEventFilter(this);
    lay->addWidget(Grid, 1);

    txtEdit = new QLineEdit(Grid->viewport());
    txtEdit->setObjectName(QStringLiteral("txtEdit"));
    txtEdit->setFrame(false);
    txtEdit->setStyleSheet(QStringLiteral("QLineEdit { border: 2px solid #3c78c8; background: white; }"));
    txtEdit->hide();
    txtEdit->installEventFilter(this);

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
    auto* nuovo = bottone(QStringLiteral("Nuovo"), QStringLiteral("CmdNuovo"),
                          QStringLiteral("Crea una nuova serie di tubazioni"));
    auto* cancella = bottone(QStringLiteral("Cancella"), QStringLiteral("cmdCancella"),
                             QStringLiteral("Cancella la serie corrente"));
    auto* salva = bottone(QStringLiteral("Salva"), QStringLiteral("CmdSalva"),
                          QStringLiteral("Salva le modifiche alla serie corrente"));
    bottoni->addStretch(1);
    auto* esci = bottone(QStringLiteral("Annulla"), QStringLiteral("CmdEsci"), QString());
    lay->addLayout(bottoni);

    connect(cmbMateriali, &QComboBox::activated, this, &GestMateriali::cmbMaterialiScelto);
    connect(Option3D1, &QRadioButton::clicked, this, [this] { editor_.ImpostaTipoFormula(1); });
    connect(Option3D2, &QRadioButton::clicked, this, [this] { editor_.ImpostaTipoFormula(2); });
    connect(Option3D3, &QRadioButton::clicked, this, [this] { editor_.ImpostaTipoFormula(3); });
    connect(Text1, &QLineEdit::textEdited, this, [this](const QString& t) {
        editor_.ImpostaPesoSpecifico(S(t));
        for (int r = 1; r <= editor_.RigheInUso(); ++r) ScriviRiga(r);
    });
    connect(Text2, &QLineEdit::textEdited, this, [this](const QString& t) { editor_.ImpostaDescrizione(S(t)); });
    connect(nuovo, &QPushButton::clicked, this, &GestMateriali::CmdNuovo);
    connect(cancella, &QPushButton::clicked, this, &GestMateriali::cmdCancella);
    connect(salva, &QPushButton::clicked, this, &GestMateriali::CmdSalva);
    connect(esci, &QPushButton::clicked, this, &GestMateriali::reject);

    CaricaLista();
    MostraMateriale();
    resize(660, 520);
}

void GestMateriali::CaricaLista() {
    QSignalBlocker b(cmbMateriali);
    cmbMateriali->clear();
    for (int m = 1; m <= a_.NumMateriali(); ++m) cmbMateriali->addItem(Q(a_.Materiali[static_cast<size_t>(m)].Nome));
    cmbMateriali->setCurrentIndex(editor_.Indice() - 1);
}

void GestMateriali::MostraMateriale() {
    ChiudiEditor();
    const bool presente = editor_.Indice() > 0;
    // An option outside 1..3 (a damaged file) selects none.
    for (QRadioButton* o : {Option3D1, Option3D2, Option3D3}) o->setAutoExclusive(false);
    Option3D1->setChecked(editor_.TipoFormula() == 1);
    Option3D2->setChecked(editor_.TipoFormula() == 2);
    Option3D3->setChecked(editor_.TipoFormula() == 3);
    for (QRadioButton* o : {Option3D1, Option3D2, Option3D3}) {
        o->setAutoExclusive(true);
        o->setEnabled(presente);
    }
    Text1->setText(presente ? TestoNumero(editor_.PesoSpecifico()) : QString());
    Text2->setText(Q(editor_.Descrizione()));
    Text2->setCursorPosition(0);
    Text1->setEnabled(presente);
    Text2->setEnabled(presente);
    Grid->setEnabled(presente);
    ScriviGriglia();
}

void GestMateriali::ScriviGriglia() {
    Grid->setRowCount(editor_.RigheGriglia());
    for (int r = 1; r <= Grid->rowCount(); ++r) ScriviRiga(r);
}

void GestMateriali::ScriviRiga(int r) {
    if (r < 1 || r > Grid->rowCount()) return;
    for (int c = 1; c <= COLONNE; ++c) {
        QTableWidgetItem* it = Grid->item(r - 1, c - 1);
        if (it == nullptr) {
            it = new QTableWidgetItem;
            it->setTextAlignment(c == ColonnaMateriale::DN ? (Qt::AlignLeft | Qt::AlignVCenter)
                                                           : (Qt::AlignRight | Qt::AlignVCenter));
            if (!EditorMateriali::Modificabile(c)) it->setBackground(QColor(0xee, 0xf1, 0xf5));
            Grid->setItem(r - 1, c - 1, it);
        }
        it->setText(Q(editor_.TestoCella(r, c)));
    }
}

void GestMateriali::cmbMaterialiScelto(int indice) {
    const int scelto = indice + 1;
    if (scelto == editor_.Indice()) return;
    ChiudiEditor();
    if (!CheckBeforeChange()) {
        QSignalBlocker b(cmbMateriali);
        cmbMateriali->setCurrentIndex(editor_.Indice() - 1);
        return;
    }
    editor_.Mostra(scelto);
    MostraMateriale();
}

bool GestMateriali::CheckBeforeChange() {
    if (txtEdit->isVisible()) ConfermaEditor(false);
    const bool ok = editor_.CheckBeforeChange(msg_);
    if (ok && editor_.Salvato()) emit materialeSalvato();
    return ok;
}

void GestMateriali::CmdNuovo() {
    if (!CheckBeforeChange()) return;
    const QString risposta =
        ChiediTesto ? ChiediTesto(QStringLiteral("Nuovo Materiale"), QStringLiteral("Nome del file del materiale"))
                    : QString();
    if (editor_.Nuovo(S(risposta), msg_) == 0) {
        MostraMateriale();
        return;
    }
    CaricaLista();
    MostraMateriale();
    Grid->setCurrentCell(0, 0);
    Grid->setFocus();
}

void GestMateriali::cmdCancella() {
    ChiudiEditor();
    editor_.Cancella(msg_);
}

void GestMateriali::CmdSalva() {
    if (txtEdit->isVisible()) ConfermaEditor(false);
    if (!editor_.Salva(msg_)) return;
    MostraMateriale();
    emit materialeSalvato();
}

void GestMateriali::reject() {
    if (!CheckBeforeChange()) return;
    editor_.Chiudi();
    QDialog::reject();
}

// ---- The text box over the cell ----

void GestMateriali::ApriEditor(const QString& tasto) {
    const int r = Grid->currentRow() + 1;
    const int c = Grid->currentColumn() + 1;
    if (r < 1 || c < 1 || !EditorMateriali::Modificabile(c) || editor_.Indice() == 0) return;
    rigaEdit_ = r;
    colonnaEdit_ = c;
    txtEdit->setValidator(c == ColonnaMateriale::DN ? nullptr : FiltroNumerico(txtEdit));
    const QRect cella = Grid->visualRect(Grid->model()->index(r - 1, c - 1));
    txtEdit->setGeometry(cella);
    if (!tasto.isEmpty()) {
        txtEdit->setText(tasto);
        txtEdit->setCursorPosition(static_cast<int>(tasto.size()));
    } else {
        txtEdit->setText(Q(editor_.TestoCella(r, c)));
        txtEdit->selectAll();
    }
    txtEdit->setModified(!tasto.isEmpty());
    txtEdit->show();
    txtEdit->setFocus();
}

void GestMateriali::ChiudiEditor() {
    rigaEdit_ = 0;
    colonnaEdit_ = 0;
    if (txtEdit->isVisible()) {
        txtEdit->hide();
        Grid->setFocus();
    }
}

void GestMateriali::ConfermaEditor(bool avanza) {
    if (inConferma_ || rigaEdit_ == 0) return;
    inConferma_ = true;
    const int r = rigaEdit_;
    const int c = colonnaEdit_;
    const QString testo = txtEdit->text();
    const bool cambiato = txtEdit->isModified();
    ChiudiEditor();
    if (cambiato) {
        const int righe = Grid->rowCount();
        editor_.ImpostaCella(r, c, S(testo), msg_);
        if (editor_.RigheGriglia() != righe) {
            ScriviGriglia();
        } else {
            ScriviRiga(r);
        }
    }
    if (avanza) {
        // On to the next cell that can be typed: the next column of the row, else the first
        // cell of the next row.
        if (c < ColonnaMateriale::SPESSORE) {
            Grid->setCurrentCell(r - 1, c);
        } else if (r < Grid->rowCount()) {
            Grid->setCurrentCell(r, 0);
        }
    }
    Grid->setFocus();
    inConferma_ = false;
}

bool GestMateriali::eventFilter(QObject* o, QEvent* e) {
    if (o == txtEdit) {
        if (e->type() == QEvent::KeyPress) {
            auto* k = static_cast<QKeyEvent*>(e);
            if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) {
                ConfermaEditor(true);
                return true;
            }
            if (k->key() == Qt::Key_Escape) {
                ChiudiEditor();
                return true;
            }
        } else if (e->type() == QEvent::FocusOut && txtEdit->isVisible() && !inConferma_) {
            // Leaving the box for another control keeps what was typed.
            ConfermaEditor(false);
        }
        return false;
    }
    if (o == Grid && e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        if (k->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
        if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter || k->key() == Qt::Key_F2) {
            ApriEditor(QString());
            return true;
        }
        const QString t = k->text();
        if (!t.isEmpty() && t.at(0).isPrint()) {
            ApriEditor(t);
            return true;
        }
        return false;
    }
    if (o == Grid->viewport() && e->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(e)->button() == Qt::LeftButton) {
        // A click on a cell that can be typed opens the box over it, as in the network grid.
        ApriEditor(QString());
        return false;
    }
    return QDialog::eventFilter(o, e);
}

}  // namespace fornax::ui
