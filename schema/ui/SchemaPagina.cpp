#include "schema/ui/SchemaPagina.h"

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>
#include <cmath>
#include <exception>

#include "core/Servizi.h"
#include "editing/Modifiche.h"
#include "editing/ui/frmDelete.h"
#include "schema/ui/SchemaQt.h"
#include "sessione/Sessione.h"

namespace fornax::schema::ui {

// The walk's messages go to the user, but a full region table is told once per walk: a large
// network asks for a region at every section, and one message is enough to say it.
class MessaggiDelWalk final : public Messaggi {
public:
    explicit MessaggiDelWalk(Messaggi& m) : m_(m) {}
    void NuovoWalk() { regioniDette_ = false; }
    int Mostra(const std::string& testo, int flags, const std::string& titolo) override {
        if (testo == "Esaurito spazio per regioni attive") {
            if (regioniDette_) return Risposta::OK;
            regioniDette_ = true;
        }
        return m_.Mostra(testo, flags, titolo);
    }
    int ScegliSostituto(const std::string& nome, int tipo, const std::vector<std::string>& elenco) override {
        return m_.ScegliSostituto(nome, tipo, elenco);
    }

private:
    Messaggi& m_;
    bool regioniDette_ = false;
};

namespace {

Qt::CursorShape Cursore(int puntatore) {
    switch (puntatore) {
        case Puntatore::SPOSTA:
            return Qt::SizeAllCursor;
        case Puntatore::NE_SO:
            return Qt::SizeBDiagCursor;
        case Puntatore::N_S:
            return Qt::SizeVerCursor;
        case Puntatore::NO_SE:
            return Qt::SizeFDiagCursor;
        case Puntatore::O_E:
            return Qt::SizeHorCursor;
        case Puntatore::VIETATO:
            return Qt::ForbiddenCursor;
        default:
            return Qt::ArrowCursor;
    }
}

std::string TagDa(const QMimeData* m) {
    if (m == nullptr || !m->hasFormat(QLatin1String(MIME_PALETTE))) return {};
    return m->data(QLatin1String(MIME_PALETTE)).toStdString();
}

// One element of the palette: its picture, dragged onto the schema with its tag.
class ElementoPalette final : public QLabel {
public:
    ElementoPalette(const QString& nome, const QString& tag, const QString& suggerimento, QWidget* padre)
        : QLabel(padre), nome_(nome), tag_(tag) {
        setObjectName(nome);
        setPixmap(PixmapImmagine(nome, QSize(44, 46), palette().color(QPalette::WindowText)));
        setToolTip(suggerimento);
        setFrameShape(QFrame::StyledPanel);
        setAlignment(Qt::AlignCenter);
        setFixedSize(52, 54);
        setCursor(Qt::OpenHandCursor);
    }
    const QString& Tag() const { return tag_; }

protected:
    void mousePressEvent(QMouseEvent* e) override {
        if (e->button() == Qt::LeftButton) inizio_ = e->position().toPoint();
    }
    void mouseMoveEvent(QMouseEvent* e) override {
        if (!(e->buttons() & Qt::LeftButton)) return;
        if ((e->position().toPoint() - inizio_).manhattanLength() < QApplication::startDragDistance()) return;
        auto* dati = new QMimeData;
        dati->setData(QLatin1String(MIME_PALETTE), tag_.toLatin1());
        auto* drag = new QDrag(this);
        drag->setMimeData(dati);
        drag->setPixmap(pixmap());
        drag->setHotSpot(QPoint(22, 23));
        drag->exec(Qt::CopyAction);
    }

private:
    QString nome_, tag_;
    QPoint inizio_;
};

}  // namespace

// The double click and the drop run under a trap: a failure is told, and the program goes on.
template <class F>
void SchemaPagina::Protetto(F&& f) {
    try {
        f();
    } catch (const std::exception& e) {
        msg_.Mostra(std::string("Numero di errore: \nDescrizione dell'errore: ") + e.what());
        Ridisegna();
    }
}

// picDisplay: shows the buffer and hands its events to the page.
class AreaSchema final : public QWidget {
public:
    explicit AreaSchema(SchemaPagina& p) : QWidget(&p), p_(p) {
        setObjectName(QStringLiteral("picDisplay"));
        setAcceptDrops(true);
        setMouseTracking(true);
        setFocusPolicy(Qt::StrongFocus);
        setMinimumSize(200, 150);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.fillRect(rect(), SfondoSchermo());
        p.drawImage(0, 0, p_.buffer_);
    }
    void resizeEvent(QResizeEvent*) override { p_.Adatta(); }
    void mousePressEvent(QMouseEvent* e) override {
        setFocus();
        p_.Premuto(e->position(), e->button());
    }
    void mouseReleaseEvent(QMouseEvent* e) override { p_.Rilasciato(e->position(), e->button()); }
    void mouseMoveEvent(QMouseEvent* e) override { p_.Mosso(e->position()); }
    void mouseDoubleClickEvent(QMouseEvent* e) override {
        if (e->button() == Qt::LeftButton) p_.Protetto([&] { p_.DoppioClick(e->position()); });
    }
    void keyPressEvent(QKeyEvent* e) override {
        if (e->key() == Qt::Key_Delete) {
            p_.CancellaSelezionato();
            return;
        }
        QWidget::keyPressEvent(e);
    }
    void dragEnterEvent(QDragEnterEvent* e) override {
        const std::string tag = TagDa(e->mimeData());
        if (tag.empty()) return;
        e->acceptProposedAction();
        p_.DragEntra(tag);
    }
    void dragMoveEvent(QDragMoveEvent* e) override {
        if (!TagDa(e->mimeData()).empty()) e->acceptProposedAction();
    }
    void dragLeaveEvent(QDragLeaveEvent*) override { p_.DragEsce(); }
    void dropEvent(QDropEvent* e) override {
        const std::string tag = TagDa(e->mimeData());
        if (tag.empty()) return;
        e->acceptProposedAction();
        p_.Protetto([&] { p_.Rilascia(e->position(), tag); });
    }

private:
    SchemaPagina& p_;
};

SchemaPagina::SchemaPagina(Sessione& s, Messaggi& msg, QWidget* padre)
    : PaginaDocumento(padre),
      s_(s),
      msg_(msg),
      msgWalk_(std::make_unique<MessaggiDelWalk>(msg)),
      stato_(std::make_unique<StatoSchema>(*msgWalk_)) {
    auto* palette = new QVBoxLayout;
    palette->setSpacing(4);
    const struct {
        const char* nome;
        const std::string& tag;
        const char* suggerimento;
    } elementi[] = {
        {"picTronco", TagPalette::TRONCO, "Tronco"},
        {"picCaldaia", TagPalette::CALDAIA, "Caldaia"},
        {"picBruciatore", TagPalette::BRUCIATORE, "Bruciatore"},
        {"picConvettore", TagPalette::CONVETTORE, "Convettore"},
        {"picFornello", TagPalette::FORNELLO, "Fornello"},
    };
    for (const auto& e : elementi)
        palette->addWidget(new ElementoPalette(QString::fromLatin1(e.nome), QString::fromStdString(e.tag),
                                               QString::fromLatin1(e.suggerimento), this));
    palette->addStretch();

    picDisplay_ = new AreaSchema(*this);
    VScroll_ = new QScrollBar(Qt::Vertical, this);
    HScroll_ = new QScrollBar(Qt::Horizontal, this);
    VScroll_->setObjectName(QStringLiteral("VScroll"));
    HScroll_->setObjectName(QStringLiteral("HScroll"));
    auto* area = new QGridLayout;
    area->setSpacing(0);
    area->addWidget(picDisplay_, 0, 0);
    area->addWidget(VScroll_, 0, 1);
    area->addWidget(HScroll_, 1, 0);
    auto* l = new QHBoxLayout(this);
    l->setContentsMargins(2, 2, 2, 2);
    l->addLayout(palette);
    l->addLayout(area, 1);
    connect(VScroll_, &QScrollBar::valueChanged, this, [this] { Ridisegna(); });
    connect(HScroll_, &QScrollBar::valueChanged, this, [this] { Ridisegna(); });

    ChiediTipoCancellazione = [this] {
        fornax::ui::frmDelete f(this);
        f.ShowUnlink();
        f.exec();
        return f.Fatto ? f.TipoCancellazione : 0;
    };
    stato_->Zoom = LimitaZoom(s_.Zoom);
    const ScalaVista v = schema::Rescale(stato_->Zoom);
    scala_ = v.scala;
    VScroll_->setRange(0, v.maxVerticale);
    HScroll_->setRange(0, v.maxOrizzontale);
}

SchemaPagina::~SchemaPagina() = default;

QWidget* SchemaPagina::Palette(const QString& tag) const {
    for (auto* e : findChildren<ElementoPalette*>())
        if (e->Tag() == tag) return e;
    return nullptr;
}

double SchemaPagina::TwipPerPixel() const {
    const int dpi = picDisplay_->logicalDpiX();
    return dpi > 0 ? 1440.0 / dpi : 15.0;
}

QPointF SchemaPagina::ATwip(QPointF px) const {
    const double k = TwipPerPixel() * scala_;
    return {px.x() * k + HScroll_->value() * 10.0, px.y() * k + VScroll_->value() * 10.0};
}

QPointF SchemaPagina::APixel(double x, double y) const {
    const double k = TwipPerPixel() * scala_;
    return {(x - HScroll_->value() * 10.0) / k, (y - VScroll_->value() * 10.0) / k};
}

template <class F>
void SchemaPagina::SuBuffer(F&& f) {
    if (buffer_.size() != picDisplay_->size()) {
        buffer_ = QImage(picDisplay_->size().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
        buffer_.fill(SfondoSchermo());
    }
    const double tpp = TwipPerPixel();
    const double larghezza = buffer_.width() * tpp, altezza = buffer_.height() * tpp;
    QPainter p(&buffer_);
    SchemaQt t(p, larghezza, altezza, 1.0 / (tpp * scala_), Aspetto::Schermo);
    const QPointF o = ATwip(QPointF(0, 0));
    t.ImpostaOrigine(o.x(), o.y());
    t.ImpostaAreaPulita(o.x(), o.y(), larghezza * scala_, altezza * scala_);
    f(t);
    picDisplay_->update();
}

void SchemaPagina::Ridisegna() {
    msgWalk_->NuovoWalk();
    stato_->Zoom = LimitaZoom(s_.Zoom);
    ChiamataSchema c;
    c.modo = 2;
    c.superficie = Superficie::Display;
    c.nomeFont = "Arial";
    c.dimensioneFont = 7;
    SuBuffer([&](SchemaQt& t) { DisegnaSchema(*stato_, s_.d, s_.a, t, c); });
    DopoWalk();
}

void SchemaPagina::DopoWalk() { s_.TroncoSelezionato = stato_->TroncoSelezionato; }

void SchemaPagina::Aggiorna() { Ridisegna(); }

void SchemaPagina::Adatta() {
    if (!isVisible() && buffer_.isNull()) return;
    Ridisegna();
}

void SchemaPagina::ImpostaZoom(int livello) {
    fornax::ImpostaZoom(s_, livello);
    Rescale();
}

void SchemaPagina::Rescale() {
    fornax::ImpostaZoom(s_, s_.Zoom);
    stato_->Zoom = LimitaZoom(s_.Zoom);
    const ScalaVista v = schema::Rescale(stato_->Zoom);
    scala_ = v.scala;
    // Each bar keeps its position as a share of its old length.
    auto imposta = [](QScrollBar* b, int max, int grande, int piccolo) {
        const double quota = b->maximum() > 0 ? static_cast<double>(b->value()) / b->maximum() : 0.0;
        const QSignalBlocker blocco(b);
        b->setRange(0, max);
        b->setPageStep(std::max(1, grande));
        b->setSingleStep(std::max(1, piccolo));
        b->setValue(static_cast<int>(std::lround(quota * max)));
    };
    imposta(VScroll_, v.maxVerticale, v.grandeVerticale, v.piccoloVerticale);
    imposta(HScroll_, v.maxOrizzontale, v.grandeOrizzontale, v.piccoloOrizzontale);
    Ridisegna();
    emit zoomCambiato(stato_->Zoom, QString::fromStdString(v.percentuale));
}

void SchemaPagina::CancellaSelezionato() {
    const int tronco = stato_->TroncoSelezionato;
    if (tronco < 1 || tronco > s_.d.NumTronchi()) return;
    const int tipo = ChiediTipoCancellazione ? ChiediTipoCancellazione() : 0;
    if (tipo == 0) return;
    Rinfresco r{[this] { emit richiestaElaborazione(); }, [this] { emit richiestaElaborazione(); }};
    {
        PassoModifica passo(s_.Storia, s_.d, modifica::NomeCancellazione(tipo, tronco, tronco));
        modifica::CancellaTroncoSchema(s_.d, tronco, tipo, msg_, r);
    }
    stato_->TroncoSelezionato = 0;
    s_.TroncoSelezionato = 0;
    Ridisegna();
}

// ---- Mouse ----

void SchemaPagina::Premuto(QPointF p, Qt::MouseButton b) {
    const QPointF t = ATwip(p);
    MouseX = t.x();
    MouseY = t.y();
    clickSuManiglia_ = false;
    if (b == Qt::LeftButton && ManigliaSottoMouse > 0) {
        ManigliaTrascinata = ManigliaSottoMouse;
        clickSuManiglia_ = true;
    }
}

void SchemaPagina::Mosso(QPointF p) {
    const QPointF t = ATwip(p);
    MouseX = t.x();
    MouseY = t.y();
    if (ManigliaTrascinata == 0) {
        const Maniglia m = CercaManiglia(*stato_, t.x(), t.y());
        ManigliaSottoMouse = m.tronco;
        TagManiglia = m.tag;
        picDisplay_->setCursor(Cursore(m.puntatore));
        return;
    }
    const QPointF o = ATwip(QPointF(0, 0));
    const double tpp = TwipPerPixel();
    const PuntoTrascinato q = TieniNellArea(t.x(), t.y(), o.x(), o.y(), picDisplay_->width() * tpp * scala_,
                                            picDisplay_->height() * tpp * scala_);
    picDisplay_->setCursor(Cursore(q.puntatore));
    SuBuffer([&](SchemaQt& s) { TrascinaLunghezza(*stato_, s_.d, s, ManigliaTrascinata, q.x, q.y, TagManiglia); });
}

void SchemaPagina::Rilasciato(QPointF p, Qt::MouseButton b) {
    if (b != Qt::LeftButton) return;
    const QPointF t = ATwip(p);
    MouseX = t.x();
    MouseY = t.y();
    if (ManigliaTrascinata > 0) {
        const int16_t tronco = ManigliaTrascinata;
        ManigliaTrascinata = 0;
        stato_->Elastico = ElasticoTronco{};
        picDisplay_->setCursor(Qt::ArrowCursor);
        bool allungato = false;
        {
            PassoModifica passo(s_.Storia, s_.d, "lunghezza disegnata del tronco " + std::to_string(tronco));
            allungato = modifica::AllungaTronco(s_.d, *stato_, tronco, t.x(), t.y(), TagManiglia);
        }
        if (allungato)
            emit richiestaElaborazione();
        else
            Ridisegna();
        return;
    }
    if (clickSuManiglia_) return;
    // A click: a section is selected; a consumer or the source selects nothing.
    const int16_t tronco = TroncoCliccato(*stato_, t.x(), t.y());
    if (tronco > 0) {
        SuBuffer([&](SchemaQt& s) { SelezionaTronco(*stato_, s_.d, s, tronco); });
        s_.TroncoSelezionato = stato_->TroncoSelezionato;
    }
}

void SchemaPagina::DoppioClick(QPointF p) {
    const QPointF t = ATwip(p);
    const AzioneDoppioClick a = schema::DoppioClick(*stato_, s_.d, t.x(), t.y());
    switch (a.tipo) {
        case AzioneDoppioClick::Tipo::Utenza:
            richiesta_ = {a.tronco, a.dialogo, false};
            if (!ApriUtenza) return;
            ApriUtenza(a.tronco);
            emit richiestaElaborazione();
            return;
        case AzioneDoppioClick::Tipo::Tronco:
            if (!ApriParametriTronco) return;
            ApriParametriTronco(a.tronco);
            emit richiestaElaborazione();
            return;
        case AzioneDoppioClick::Tipo::Sorgente: {
            PassoModifica passo(s_.Storia, s_.d, "rotazione della sorgente");
            modifica::RuotaSorgente(s_.d);
        }
            emit richiestaElaborazione();
            return;
        case AzioneDoppioClick::Tipo::Nessuna:
            return;
    }
}

// ---- Dragging from the palette ----

void SchemaPagina::DragEntra(const std::string& tag) {
    const FrecceDrag f = FrecceDaTag(tag);
    if (f == FrecceDrag::Nessuna) return;
    SuBuffer([&](SchemaQt& t) {
        if (f == FrecceDrag::Tronco)
            DisegnaFrecceTronco(*stato_, s_.d, t);
        else
            DisegnaFrecceUtenza(*stato_, s_.d, t);
    });
}

void SchemaPagina::DragEsce() { Ridisegna(); }

void SchemaPagina::Rilascia(QPointF p, const std::string& tag) {
    const QPointF t = ATwip(p);
    const AzioneDrop a = CercaDrop(*stato_, s_.d, t.x(), t.y(), tag, msg_);
    switch (a.tipo) {
        case AzioneDrop::Tipo::Rifiutato:
        case AzioneDrop::Tipo::Ridisegna:
        case AzioneDrop::Tipo::Nessuna:
            Ridisegna();
            return;
        case AzioneDrop::Tipo::NuovoTronco: {
            PassoModifica passo(s_.Storia, s_.d, modifica::NomeNuovoTronco(s_.d.NumTronchi() + 1));
            modifica::AggiungiTroncoDaSchema(s_.d, s_.a, a, msg_);
        }
            emit richiestaElaborazione();
            return;
        case AzioneDrop::Tipo::Utenza: {
            // The kind set by the drop and the values of its dialog are one step.
            PassoModifica passo(s_.Storia, s_.d, "utenza del tronco " + std::to_string(a.tronco));
            modifica::ImpostaUtenzaDaSchema(s_.d, a);
            richiesta_ = {a.tronco, a.dialogo, true};
            if (ApriUtenza) ApriUtenza(a.tronco);
        }
            emit richiestaElaborazione();
            return;
    }
}

}  // namespace fornax::schema::ui
