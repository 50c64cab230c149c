#include "leaktest/ui/PaginaTenuta.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QDate>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QTime>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidgetAction>

#include "core/ui/Controlli.h"
#include "editing/Modifiche.h"
#include "leaktest/AperturaTenuta.h"
#include "leaktest/RegoleTenuta.h"

namespace fornax::ui {

namespace {

const QColor kGialloPallido(255, 255, 192);  // an unanswered pair of options
const QColor kRosso(Qt::red);

// The keys a numeric field of the page takes: digits, and the decimal comma where the number
// may have decimals. Keys without a printable character (moving, deleting, shortcuts) pass.
class FiltroTasti : public QObject {
public:
    FiltroTasti(bool decimali, QObject* padre) : QObject(padre), decimali_(decimali) {}

protected:
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() == QEvent::KeyPress) {
            const QString t = static_cast<QKeyEvent*>(e)->text();
            if (t.size() == 1 && t[0].isPrint() && !t[0].isDigit() && !(decimali_ && t[0] == QLatin1Char(',')))
                return true;
        }
        return QObject::eventFilter(o, e);
    }

private:
    bool decimali_;
};

// The colours a control takes from the rules: a background (an unanswered pair) and a text
// colour (a description or a verdict in red); without them, those of its window.
void Colora(QWidget* w, const QColor* sfondo, const QColor* testo) {
    QPalette p = w->parentWidget() ? w->parentWidget()->palette() : QPalette();
    if (sfondo) p.setColor(w->backgroundRole(), *sfondo);  // an option fills with its button colour
    if (testo) p.setColor(QPalette::WindowText, *testo);
    w->setPalette(p);
    w->setAutoFillBackground(sfondo != nullptr);
}

void Spunta(QAbstractButton* b, bool spuntato) {
    const QSignalBlocker blocco(b);
    b->setChecked(spuntato);
}

QLabel* Etichetta(const QString& testo, QWidget* padre) {
    auto* l = new QLabel(testo, padre);
    l->setWordWrap(false);
    return l;
}

QLabel* Errore(const char* nome, QWidget* padre) {
    auto* l = new QLabel(padre);
    l->setObjectName(QLatin1String(nome));
    l->setWordWrap(true);
    Colora(l, nullptr, &kRosso);
    return l;
}

}  // namespace

PaginaTenuta::PaginaTenuta(Sessione& s, Messaggi& msg, QWidget* padre) : PaginaDocumento(padre), s_(s), msg_(msg) {
    setObjectName(QStringLiteral("PaginaTenuta"));
    auto* lay = new QVBoxLayout(this);

    // The head of the page stays in view and enabled: it says why the page can't be used.
    auto* testa = new QHBoxLayout;
    descrizione_ = new QLabel(this);
    descrizione_->setObjectName(QStringLiteral("lblTenutaImpiantoDescrizioneProva"));
    descrizione_->setWordWrap(true);
    QFont f = descrizione_->font();
    f.setBold(true);
    f.setPointSizeF(f.pointSizeF() * 1.15);
    descrizione_->setFont(f);
    testa->addWidget(descrizione_, 1);
    ricalcola_ = new QPushButton(QStringLiteral("Ricalcola"), this);
    ricalcola_->setObjectName(QStringLiteral("btnTenutaImpiantoRicalcola"));
    ricalcola_->setToolTip(QStringLiteral("Ricalcola l'esito della verifica"));
    connect(ricalcola_, &QPushButton::clicked, this, [this] { TenutaImpiantoRefresh(); });
    testa->addWidget(ricalcola_);
    lay->addLayout(testa);

    scorrimento_ = new QScrollArea(this);
    scorrimento_->setWidgetResizable(true);
    scorrimento_->setFrameShape(QFrame::NoFrame);
    corpo_ = CostruisciCorpo();
    scorrimento_->setWidget(corpo_);
    lay->addWidget(scorrimento_, 1);

    // A page the session hasn't filled (a new project) loads now, as the product's page does.
    if (!s_.PaginaTenuta.inizializzata) ApriPaginaTenuta(s_.d, s_.a, s_.PaginaTenuta, msg_);
    Mostra();
}

PaginaTenuta::~PaginaTenuta() {
    // The fields are destroyed after the page: none of them may call it while it goes.
    for (QObject* o : findChildren<QObject*>()) o->disconnect(this);
}

QLineEdit* PaginaTenuta::Campo(int campo, bool numerico) {
    auto* e = new QLineEdit(this);
    e->setObjectName(
        QString::fromLatin1(NomeCampoTenuta(campo).data(), static_cast<qsizetype>(NomeCampoTenuta(campo).size())));
    campi_[static_cast<size_t>(campo)] = e;
    connect(e, &QLineEdit::textEdited, this, [this, campo] { digitato_[static_cast<size_t>(campo)] = true; });
    connect(e, &QLineEdit::editingFinished, this, [this, campo] { CampoLasciato(campo); });
    if (CampoTenutaNumerico(campo)) {
        e->installEventFilter(new FiltroTasti(true, e));
        connect(e, &QLineEdit::returnPressed, this, [this, campo] { InvioInCampoNumerico(campo); });
    } else if (numerico) {
        e->installEventFilter(new FiltroTasti(false, e));  // a count of appliances
        e->setMaximumWidth(60);
    }
    return e;
}

QLineEdit* PaginaTenuta::Calcolato(int campo) {
    auto* e = new QLineEdit(this);
    e->setObjectName(
        QString::fromLatin1(NomeCampoTenuta(campo).data(), static_cast<qsizetype>(NomeCampoTenuta(campo).size())));
    e->setReadOnly(true);
    e->setFocusPolicy(Qt::ClickFocus);
    QPalette p = e->palette();
    p.setColor(QPalette::Base, p.color(QPalette::Window));
    e->setPalette(p);
    campi_[static_cast<size_t>(campo)] = e;
    return e;
}

QRadioButton* PaginaTenuta::Opzione(const char* nome, const QString& testo) {
    auto* o = new QRadioButton(testo, this);
    o->setObjectName(QLatin1String(nome));
    // The page sets every option from the record after each click: a click is a request.
    o->setAutoExclusive(false);
    return o;
}

QWidget* PaginaTenuta::CostruisciCorpo() {
    using namespace CampoTenuta;
    auto* corpo = new QWidget;
    corpo->setObjectName(QStringLiteral("corpoTenuta"));
    auto* colonne = new QHBoxLayout(corpo);
    auto* sinistra = new QVBoxLayout;
    auto* destra = new QVBoxLayout;
    colonne->addLayout(sinistra, 1);
    colonne->addLayout(destra, 1);

    auto gruppo = [&](const QString& titolo, QVBoxLayout* colonna) {
        auto* g = new QGroupBox(titolo, corpo);
        colonna->addWidget(g);
        return g;
    };
    auto modulo = [](QGroupBox* g) {
        auto* f = new QFormLayout(g);
        f->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
        return f;
    };
    // A row of several fields with their captions: caption, field, stretch of the field.
    struct Pezzo {
        QString etichetta;
        QWidget* campo;
        int peso;
    };
    auto riga = [corpo](std::initializer_list<Pezzo> pezzi) {
        auto* r = new QHBoxLayout;
        r->setContentsMargins(0, 0, 0, 0);
        bool primo = true;
        for (const Pezzo& p : pezzi) {
            if (!primo && !p.etichetta.isEmpty()) r->addWidget(Etichetta(p.etichetta, corpo));
            r->addWidget(p.campo, p.peso);
            primo = false;
        }
        return r;
    };

    // ---- Who: the firm, the occupant, the owner, who was there ----
    {
        auto* f =
            modulo(gruppo(QStringLiteral("Dati dell'impresa e/o del tecnico che ha effettuato la verifica"), sinistra));
        f->addRow(QStringLiteral("Ragione sociale"), Campo(1));
        f->addRow(QStringLiteral("Indirizzo"), Campo(2));
        f->addRow(QStringLiteral("Telefono"), riga({{"", Campo(3), 1}, {QStringLiteral("Tecnico"), Campo(4), 2}}));
    }
    {
        auto* f = modulo(gruppo(QStringLiteral("Dati dell'utente e/o proprietario"), sinistra));
        f->addRow(QStringLiteral("Occupante"), riga({{"", Campo(5), 3}, {QStringLiteral("Telefono"), Campo(6), 2}}));
        f->addRow(
            QStringLiteral("Comune"),
            riga({{"", Campo(7), 4}, {QStringLiteral("Prov."), Campo(8), 1}, {QStringLiteral("CAP"), Campo(9), 1}}));
        f->addRow(
            QStringLiteral("Via"),
            riga({{"", Campo(10), 4}, {QStringLiteral("n°"), Campo(11), 1}, {QStringLiteral("Scala"), Campo(12), 1}}));
    }
    {
        auto* f = modulo(gruppo(QStringLiteral("Proprietario (se diverso dall'occupante)"), sinistra));
        f->addRow(QStringLiteral("Nome"), Campo(13));
        f->addRow(QStringLiteral("Comune di residenza"), Campo(14));
        f->addRow(QStringLiteral("Via"), riga({{"", Campo(15), 4}, {QStringLiteral("n°"), Campo(16), 1}}));
    }
    {
        auto* g = gruppo(QStringLiteral("Intervento"), sinistra);
        auto* f = modulo(g);
        f->addRow(QStringLiteral("Durante l'intervento era presente il/la sig."), Campo(17));

        // The date and the time are texts of the record, typed or picked.
        auto* data = Campo(DATA);
        data->setPlaceholderText(QStringLiteral("gg/mm/aaaa"));
        auto* calendario = new QToolButton(g);
        calendario->setObjectName(QStringLiteral("btnTenutaImpiantoCalendario"));
        calendario->setText(QStringLiteral("Calendario"));
        calendario->setToolTip(QStringLiteral("Scegli la data dal calendario"));
        calendario->setPopupMode(QToolButton::InstantPopup);
        auto* menu = new QMenu(calendario);
        auto* cal = new QCalendarWidget(menu);
        cal->setObjectName(QStringLiteral("calTenutaImpiantoDataEsecuzione"));
        cal->setGridVisible(true);
        auto* azione = new QWidgetAction(menu);
        azione->setDefaultWidget(cal);
        menu->addAction(azione);
        calendario->setMenu(menu);
        connect(menu, &QMenu::aboutToShow, this, [cal, data] {
            QDate d = QDate::fromString(data->text().trimmed(), QStringLiteral("d/M/yyyy"));
            if (!d.isValid()) d = QDate::currentDate();
            cal->setSelectedDate(d);
        });
        connect(cal, &QCalendarWidget::clicked, this, [this, menu](const QDate& d) {
            menu->close();
            DataScelta(d.toString(QStringLiteral("dd/MM/yyyy")));
        });
        connect(cal, &QCalendarWidget::activated, this, [this, menu](const QDate& d) {
            menu->close();
            DataScelta(d.toString(QStringLiteral("dd/MM/yyyy")));
        });

        auto* ora = Campo(ORA);
        ora->setPlaceholderText(QStringLiteral("hh:mm"));
        auto* adesso = new QToolButton(g);
        adesso->setObjectName(QStringLiteral("btnTenutaImpiantoOraAttuale"));
        adesso->setText(QStringLiteral("Adesso"));
        adesso->setToolTip(QStringLiteral("Scrivi l'ora attuale"));
        connect(adesso, &QToolButton::clicked, this, [this, ora] {
            ora->setText(QTime::currentTime().toString(QStringLiteral("HH:mm")));
            digitato_[ORA] = true;
            Conferma(ORA);
        });
        // Wide enough for a whole date and time, hint included.
        const QFontMetrics fm(data->font());
        data->setMinimumWidth(fm.horizontalAdvance(QStringLiteral("gg/mm/aaaa")) + 24);
        ora->setMinimumWidth(fm.horizontalAdvance(QStringLiteral("hh:mm")) + 24);
        auto* quando = new QHBoxLayout;
        quando->addWidget(data, 2);
        quando->addWidget(calendario);
        quando->addSpacing(12);
        quando->addWidget(Etichetta(QStringLiteral("alle ore"), g));
        quando->addWidget(ora, 1);
        quando->addWidget(adesso);
        f->addRow(QStringLiteral("Eseguito il"), quando);
    }
    {
        auto* g = gruppo(QStringLiteral("Causa dell'intervento"), sinistra);
        auto* grid = new QGridLayout(g);
        static const char* const nomi[NUM_CAUSE] = {
            "ckTenutaImpiantoCausaSostApp",      "ckTenutaImpiantoCausaSostGas",
            "ckTenutaImpiantoCausaRiattImp",     "ckTenutaImpiantoCausaOdoreGas",
            "ckTenutaImpiantoCausaEsitoIncerto", "ckTenutaImpiantoCausaVerificaPeriodica",
            "ckTenutaImpiantoCausaAltro",
        };
        static const char* const testi[NUM_CAUSE] = {
            "Sostituzione apparecchio",
            "Sostituzione tipo di gas",
            "Riattivazione impianto",
            "Persistente odore di gas",
            "Esito incerto secondo UNI 10738",
            "Verifica periodica decennale",
            "Altro:",
        };
        for (int i = 0; i < NUM_CAUSE; ++i) {
            auto* c = new QCheckBox(QString::fromUtf8(testi[i]), g);
            c->setObjectName(QLatin1String(nomi[i]));
            cause_[static_cast<size_t>(i)] = c;
            connect(c, &QCheckBox::clicked, this, [this, i](bool segnata) {
                PassoModifica passo(s_.Storia, s_.d, "causa dell'intervento nella verifica di tenuta");
                modifica::SegnaCausaIntervento(s_.d, i + 1, segnata);
                Mostra();
            });
            if (i < 6) grid->addWidget(c, i / 2, i % 2);
        }
        auto* altro = new QHBoxLayout;
        altro->addWidget(cause_[6]);
        altro->addWidget(Campo(25), 1);
        grid->addLayout(altro, 3, 0, 1, 2);
    }
    {
        auto* g = gruppo(QStringLiteral("Apparecchi alimentati dall'impianto"), sinistra);
        auto* grid = new QGridLayout(g);
        auto* totale = new QHBoxLayout;
        totale->addWidget(Etichetta(QStringLiteral("Numero complessivo apparecchi"), g));
        totale->addWidget(Campo(APP_COMPLESSIVO, true));
        totale->addStretch(1);
        grid->addLayout(totale, 0, 0, 1, 4);
        static const char* const testi[] = {
            "per il riscaldamento",
            "per la produzione di acqua sanitaria",
            "combinati (riscaldamento/sanitario)",
            "per cottura cibi",
            "di altro tipo:",
        };
        for (int i = 0; i < 5; ++i) {
            grid->addWidget(Etichetta(QStringLiteral("n°"), g), i + 1, 0);
            grid->addWidget(Campo(27 + i, true), i + 1, 1);
            grid->addWidget(Etichetta(QString::fromUtf8(testi[i]), g), i + 1, 2);
        }
        grid->addWidget(Campo(32), 5, 3);
        grid->setColumnStretch(3, 1);
    }
    sinistra->addStretch(1);

    // ---- How: capacities, method, the test's figures, the device, the verdict ----
    {
        auto* g = gruppo(QStringLiteral("Tipo di gas e capacità dell'impianto"), destra);
        auto* f = modulo(g);
        auto* fam = new QHBoxLayout;
        static const char* const nomi[] = {"optTenutaImpianto1afam", "optTenutaImpianto2afam",
                                           "optTenutaImpianto3afam"};
        static const char* const testi[] = {"I famiglia", "II famiglia", "III famiglia"};
        for (int i = 1; i <= 3; ++i) {
            auto* o = Opzione(nomi[i - 1], QString::fromUtf8(testi[i - 1]));
            // The family is the current gas's: shown, never chosen here.
            o->setAttribute(Qt::WA_TransparentForMouseEvents);
            o->setFocusPolicy(Qt::NoFocus);
            famiglia_[static_cast<size_t>(i)] = o;
            fam->addWidget(o);
        }
        nomeGas_ = new QLabel(g);
        nomeGas_->setObjectName(QStringLiteral("lblTenutaImpiantoGas"));
        fam->addSpacing(12);
        fam->addWidget(nomeGas_, 1);
        f->addRow(QStringLiteral("Tipo di gas"), fam);
        f->addRow(QStringLiteral("Capacità delle tubazioni (litri)"), Calcolato(CAPACITA_IMPIANTO));
        auto* contatore = Campo(CAPACITA_CONTATORE);
        contatore->setToolTip(QStringLiteral("Al massimo 3 litri"));
        f->addRow(QStringLiteral("Capacità del contatore (litri)"), contatore);
        f->addRow(QStringLiteral("Capacità totale (litri)"), Calcolato(CAPACITA_TOTALE));
    }
    {
        frameMetodologia_ = gruppo(QStringLiteral("Metodologia di verifica applicata"), destra);
        frameMetodologia_->setObjectName(QStringLiteral("FrameTenutaImpiantoMetodologia"));
        auto* v = new QVBoxLayout(frameMetodologia_);
        metodo_[1] = Opzione("optTenutaImpiantoMetodoContatore", QStringLiteral("Prova preliminare con contatore"));
        metodo_[2] =
            Opzione("optTenutaImpiantoMetodoCDP",
                    QStringLiteral("Prova preliminare mediante rilevazione C.D.P. (capacità fino a 25 litri)"));
        for (int m = 1; m <= 2; ++m) {
            v->addWidget(metodo_[static_cast<size_t>(m)]);
            connect(metodo_[static_cast<size_t>(m)], &QRadioButton::clicked, this, [this, m] {
                TenutaImpiantoUpdateInternalData();
                PassoModifica passo(s_.Storia, s_.d, "metodo della prova di tenuta");
                modifica::ScegliMetodoProva(s_.d, m);
                TenutaImpiantoRefresh();
            });
        }
    }
    {
        frameContatore_ = gruppo(QStringLiteral("Prova preliminare con contatore"), destra);
        frameContatore_->setObjectName(QStringLiteral("FrameTenutaImpiantoProvaContatore"));
        auto* f = modulo(frameContatore_);
        f->addRow(QStringLiteral("Modello"), riga({{"", Campo(34), 1}, {QStringLiteral("Calibro"), Campo(35), 1}}));
        f->addRow(QStringLiteral("Marca"), riga({{"", Campo(36), 1}, {QStringLiteral("Matricola"), Campo(37), 1}}));
        f->addRow(QStringLiteral("Portata nominale minima (l/h)"), Campo(CONT_QN));
        f->addRow(QStringLiteral("Pressione di prova (Pa)"), Campo(CONT_PPROVA));
        f->addRow(QStringLiteral("Valore di dispersione rilevato (l/h)"), Campo(CONT_DISP_RIL));
        f->addRow(QStringLiteral("Pressione di riferimento (Pa)"), Calcolato(CONT_PRIF));
        f->addRow(QStringLiteral("Dispersione di riferimento (l/h)"), Calcolato(CONT_DISP_RIF));
        erroreContatore_ = Errore("lblTenutaImpiantoProvaContErrore", frameContatore_);
        f->addRow(erroreContatore_);
    }
    {
        frameCdp_ = gruppo(QStringLiteral("Prova preliminare mediante rilevazione C.D.P."), destra);
        frameCdp_->setObjectName(QStringLiteral("FrameTenutaImpiantoProvaCDP"));
        auto* f = modulo(frameCdp_);
        f->addRow(QStringLiteral("Strumento tipo"), Campo(43));
        f->addRow(QStringLiteral("Marca"), riga({{"", Campo(44), 1}, {QStringLiteral("Matricola"), Campo(45), 1}}));
        f->addRow(QStringLiteral("Pressione di prova con gas di rete (Pa)"), Campo(CDP_PPROVA));
        f->addRow(QStringLiteral("Caduta di pressione rilevata in un minuto (Pa)"), Campo(CDP_CDP));
        f->addRow(QStringLiteral("Pressione di riferimento (Pa)"), Calcolato(CDP_PRIFER));
        f->addRow(QStringLiteral("Caduta di pressione massima in un minuto (Pa)"), Calcolato(CDP_CDPMAX));
        erroreCdp_ = Errore("lblTenutaImpiantoProvaCDPErrore", frameCdp_);
        f->addRow(erroreCdp_);
    }
    {
        auto* g = gruppo(QStringLiteral("Controllo dispositivo di intercettazione"), destra);
        auto* h = new QHBoxLayout(g);
        dispositivo_[1] = Opzione("optTenutaImpiantoDisposIntercettATenuta",
                                  QStringLiteral("Dispositivo di intercettazione a tenuta"));
        dispositivo_[2] = Opzione("optTenutaImpiantoDisposIntercettNonATenuta",
                                  QStringLiteral("Dispositivo di intercettazione NON a tenuta"));
        for (int k = 1; k <= 2; ++k) {
            h->addWidget(dispositivo_[static_cast<size_t>(k)]);
            connect(dispositivo_[static_cast<size_t>(k)], &QRadioButton::clicked, this, [this, k] {
                TenutaImpiantoUpdateInternalData();
                PassoModifica passo(s_.Storia, s_.d, "dispositivo di intercettazione");
                modifica::ScegliDispositivoIntercettazione(s_.d, k);
                TenutaImpiantoRefresh();
            });
        }
        h->addStretch(1);
    }
    {
        auto* g = gruppo(QStringLiteral("Risultato della verifica"), destra);
        auto* v = new QVBoxLayout(g);
        esito_[1] = Opzione("optTenutaImpiantoIdoneo", QStringLiteral("Tenuta idonea al funzionamento"));
        esito_[2] = Opzione("optTenutaImpiantoTemporaneo", QStringLiteral("Tenuta idonea al funzionamento temporaneo"));
        esito_[3] = Opzione("optTenutaImpiantoNonIdoneo", QStringLiteral("Tenuta non idonea al funzionamento"));
        for (int k = 1; k <= 3; ++k) {
            v->addWidget(esito_[static_cast<size_t>(k)]);
            // The verdict is the rules': a click only judges the test again.
            connect(esito_[static_cast<size_t>(k)], &QRadioButton::clicked, this, [this] { TenutaImpiantoRefresh(); });
        }
    }
    {
        auto* g = gruppo(QStringLiteral("Note"), destra);
        auto* v = new QVBoxLayout(g);
        v->addWidget(Campo(NOTE));
    }
    destra->addStretch(1);
    return corpo;
}

void PaginaTenuta::hideEvent(QHideEvent* e) {
    TenutaImpiantoUpdateInternalData();
    PaginaDocumento::hideEvent(e);
}

void PaginaTenuta::DataScelta(const QString& data) {
    QLineEdit* e = campi_[CampoTenuta::DATA];
    e->setText(data);
    digitato_[CampoTenuta::DATA] = true;
    Conferma(CampoTenuta::DATA);
}

bool PaginaTenuta::Conferma(int campo) {
    const size_t c = static_cast<size_t>(campo);
    if (!digitato_[c] || !campi_[c]) return false;
    digitato_[c] = false;
    bool cambiato = false;
    {
        PassoModifica passo(s_.Storia, s_.d, "campo della verifica di tenuta");
        cambiato = modifica::ScriviCampoTenuta(s_.d, campo, S(campi_[c]->text()));
    }
    // A count shows the number it was read as.
    if (CampoTenutaIntero(campo)) {
        const QString t = Q(TestoCampoTenuta(s_.d.Tenuta, campo));
        if (campi_[c]->text() != t) campi_[c]->setText(t);
    }
    return cambiato;
}

bool PaginaTenuta::TenutaImpiantoUpdateInternalData() {
    bool cambiato = false;
    for (int c = 1; c <= NUM_CAMPI_TENUTA; ++c) cambiato = Conferma(c) || cambiato;
    return cambiato;
}

void PaginaTenuta::CampoLasciato(int campo) {
    if (!digitato_[static_cast<size_t>(campo)]) return;
    // A number the rules read judges the test again as soon as it is in the record.
    if (CampoTenutaNumerico(campo))
        TenutaImpiantoRefresh();
    else
        Conferma(campo);
}

void PaginaTenuta::InvioInCampoNumerico(int campo) {
    QLineEdit* e = campi_[static_cast<size_t>(campo)];
    const QString controllato = Q(ControllaCampoNumerico(campo, S(e->text())));
    if (controllato != e->text()) {
        e->setText(controllato);
        digitato_[static_cast<size_t>(campo)] = true;
    }
    TenutaImpiantoRefresh();
}

void PaginaTenuta::TenutaImpiantoRefresh() {
    // What is typed goes into the record first, then the rules judge the record, which so
    // holds at the end what the page shows.
    TenutaImpiantoUpdateInternalData();
    RinfrescaPaginaTenuta(s_.d, s_.a, s_.PaginaTenuta, msg_);
    Mostra();
}

void PaginaTenuta::Mostra() {
    const VerificaTenuta& r = s_.d.Tenuta;
    const StatoPaginaTenuta& st = s_.PaginaTenuta;

    for (int c = 1; c <= NUM_CAMPI_TENUTA; ++c) {
        QLineEdit* e = campi_[static_cast<size_t>(c)];
        if (!e || digitato_[static_cast<size_t>(c)]) continue;  // never over a text not yet taken
        const QString t = Q(TestoCampoTenuta(r, c));
        if (e->text() != t) {
            e->setText(t);
            e->setCursorPosition(0);
        }
    }
    const std::array<bool, NUM_CAUSE> cause = CauseSegnate(r.CauseIntervento);
    for (size_t i = 0; i < NUM_CAUSE; ++i) Spunta(cause_[i], cause[i]);
    for (int k = 1; k <= 2; ++k) {
        Spunta(metodo_[static_cast<size_t>(k)], r.MetodoProva == k);
        Spunta(dispositivo_[static_cast<size_t>(k)], r.DispositivoIntercettazione == k);
    }
    for (int k = 1; k <= 3; ++k) {
        Spunta(esito_[static_cast<size_t>(k)], r.EsitoProva == k);
        Spunta(famiglia_[static_cast<size_t>(k)], st.opzioneFamiglia == k);
    }
    nomeGas_->setText(Q(s_.d.GasCorrente.Nome));

    descrizione_->setText(Q(st.descrizione));
    Colora(descrizione_, nullptr, st.descrizioneRossa ? &kRosso : nullptr);
    erroreContatore_->setText(Q(st.erroreContatore));
    erroreContatore_->setVisible(!st.erroreContatore.empty());
    erroreCdp_->setText(Q(st.erroreCdp));
    erroreCdp_->setVisible(!st.erroreCdp.empty());

    corpo_->setEnabled(st.abilitata);
    // Above 25 litres the choice of the method is closed with the pressure-drop method, as the
    // rules of the record say; a method already recorded keeps its frame.
    frameMetodologia_->setEnabled(st.metodoCdpDisponibile);
    metodo_[2]->setEnabled(st.metodoCdpDisponibile);
    frameContatore_->setEnabled(MetodoAperto(r, 1));
    frameCdp_->setEnabled(MetodoAperto(r, 2));

    const bool metodoMancante = CoppiaSenzaRisposta(r.MetodoProva);
    const bool dispositivoMancante = CoppiaSenzaRisposta(r.DispositivoIntercettazione);
    for (int k = 1; k <= 2; ++k) {
        Colora(metodo_[static_cast<size_t>(k)], metodoMancante ? &kGialloPallido : nullptr, nullptr);
        Colora(dispositivo_[static_cast<size_t>(k)], dispositivoMancante ? &kGialloPallido : nullptr, nullptr);
    }
    Colora(esito_[3], nullptr, EsitoInRosso(r) ? &kRosso : nullptr);
}

}  // namespace fornax::ui
