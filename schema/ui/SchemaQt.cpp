#include "schema/ui/SchemaQt.h"

#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QHash>
#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

#include "schema/Schema.h"

// The pictures live in a resource of this static library: registered once, on first use.
static void InizializzaRisorse() {
    static const bool fatto = [] {
        Q_INIT_RESOURCE(immagini_schema);
        return true;
    }();
    (void)fatto;
}

namespace fornax::schema::ui {

namespace {

constexpr double TWIP_PER_POLLICE = 1440.0;

QString DaUtf8(const std::string& s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

// Renderers of the pictures by name and ink, parsed once: the artwork is drawn in black and
// takes the ink by a change of its one colour. Used from the GUI thread only.
QSvgRenderer* Renderer(const QString& nome, const QColor& inchiostro) {
    static QHash<QString, std::shared_ptr<QSvgRenderer>> cache;
    const QString chiave = nome + QLatin1Char('|') + inchiostro.name();
    auto it = cache.find(chiave);
    if (it != cache.end()) return it.value().get();
    QByteArray svg = SorgenteImmagine(nome);
    std::shared_ptr<QSvgRenderer> r;
    if (!svg.isEmpty()) {
        svg.replace("#000000", inchiostro.name().toLatin1());
        r = std::make_shared<QSvgRenderer>(svg);
        if (!r->isValid()) r.reset();
    }
    cache.insert(chiave, r);
    return r.get();
}

// Rasters of the pictures at one size, for the screen and picture files: one render of the SVG
// per size and ink, then a plain copy for every consumer of that kind.
const QImage* Raster(const QString& nome, const QColor& inchiostro, QSize dim) {
    static QHash<QString, QImage> cache;
    const QString chiave = nome + QLatin1Char('|') + inchiostro.name() + QLatin1Char('|') +
                           QString::number(dim.width()) + QLatin1Char('x') + QString::number(dim.height());
    auto it = cache.find(chiave);
    if (it != cache.end()) return &it.value();
    QSvgRenderer* r = Renderer(nome, inchiostro);
    if (r == nullptr) return nullptr;
    if (cache.size() > 400) cache.clear();
    QImage img(dim, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    {
        QPainter p(&img);
        p.setRenderHint(QPainter::Antialiasing);
        r->render(&p, QRectF(0, 0, dim.width(), dim.height()));
    }
    return &cache.insert(chiave, img).value();
}

bool Raster(const QPaintDevice* d) {
    if (d == nullptr) return true;
    const int t = d->devType();
    return t == QInternal::Image || t == QInternal::Widget || t == QInternal::Pixmap;
}

}  // namespace

QColor SfondoSchermo() { return QColor(28, 36, 46); }

QColor ColoreQt(int32_t colore) { return QColor(colore & 0xFF, (colore >> 8) & 0xFF, (colore >> 16) & 0xFF); }

QByteArray SorgenteImmagine(const QString& nome) {
    InizializzaRisorse();
    QFile f(QStringLiteral(":/fornax/schema/") + nome + QStringLiteral(".svg"));
    if (!f.open(QIODevice::ReadOnly)) return {};
    return f.readAll();
}

QPixmap PixmapImmagine(const QString& nome, QSize dimensione, const QColor& inchiostro, const QColor& sfondo) {
    QPixmap pm(dimensione);
    pm.fill(sfondo);
    if (QSvgRenderer* r = Renderer(nome, inchiostro)) {
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        r->render(&p, QRectF(0, 0, dimensione.width(), dimensione.height()));
    }
    return pm;
}

SchemaQt::SchemaQt(QPainter& painter, double larghezza, double altezza, double scala, Aspetto aspetto)
    : p_(painter),
      larghezza_(larghezza),
      altezza_(altezza),
      scala_(scala > 0 ? scala : 1.0),
      aspetto_(aspetto),
      raster_(Raster(painter.device())) {
    font_ = QFont(QStringLiteral("Arial"));
    font_.setPixelSize(140);
    font_.setStyleStrategy(QFont::PreferOutline);
}

SchemaQt::~SchemaQt() = default;

void SchemaQt::ImpostaOrigine(double x, double y) {
    ox_ = x;
    oy_ = y;
}

void SchemaQt::ImpostaAreaPulita(double x, double y, double larghezza, double altezza) {
    areaImpostata_ = true;
    ax_ = x;
    ay_ = y;
    al_ = larghezza;
    aa_ = altezza;
}

QPointF SchemaQt::ADispositivo(double x, double y) const { return {(x - ox_) * scala_, (y - oy_) * scala_}; }

QPointF SchemaQt::ATwip(QPointF d) const { return {d.x() / scala_ + ox_, d.y() / scala_ + oy_}; }

QColor SchemaQt::Colore(int32_t colore) const {
    if (aspetto_ == Aspetto::Carta && (colore & 0xFFFFFF) == Colore::BIANCO) return Qt::black;
    return ColoreQt(colore);
}

// One screen pixel (15 twips) wide on every device, never thinner than one device unit.
double SchemaQt::SpessoreTratto() const { return std::max(1.0, 15.0 * scala_); }

void SchemaQt::ImpostaFont(const std::string& nome, double dimensione) {
    font_ = QFont(DaUtf8(nome));
    // A point is 20 twips; the font is measured at one unit per twip.
    font_.setPixelSize(std::max(1, static_cast<int>(std::lround(dimensione * 20.0))));
    font_.setStyleStrategy(QFont::PreferOutline);
}

double SchemaQt::LarghezzaTesto(const std::string& testo) const {
    return QFontMetricsF(font_).horizontalAdvance(DaUtf8(testo));
}

double SchemaQt::AltezzaTesto(const std::string& /*testo*/) const { return QFontMetricsF(font_).height(); }

void SchemaQt::Testo(const std::string& testo, int32_t colore) {
    const QString t = DaUtf8(testo);
    const QFontMetricsF fm(font_);
    if (!t.isEmpty()) {
        p_.save();
        p_.setRenderHint(QPainter::TextAntialiasing);
        p_.translate(ADispositivo(x_, y_));
        p_.scale(scala_, scala_);
        p_.setFont(font_);
        p_.setPen(Colore(colore));
        p_.drawText(QPointF(0, fm.ascent()), t);
        p_.restore();
    }
    x_ += fm.horizontalAdvance(t);
}

void SchemaQt::Linea(double x1, double y1, double x2, double y2, int32_t colore) {
    p_.save();
    const bool diritta = x1 == x2 || y1 == y2;
    p_.setRenderHint(QPainter::Antialiasing, !diritta || !raster_);
    QPen pen(Colore(colore));
    pen.setWidthF(SpessoreTratto());
    pen.setCapStyle(Qt::FlatCap);
    p_.setPen(pen);
    p_.drawLine(ADispositivo(x1, y1), ADispositivo(x2, y2));
    p_.restore();
    x_ = x2;
    y_ = y2;
}

void SchemaQt::Rettangolo(double x, double y, double larghezza, double altezza, int32_t colore) {
    const QPointF a = ADispositivo(x, y), b = ADispositivo(x + larghezza, y + altezza);
    QRectF r = QRectF(a, b).normalized();
    // A bar a few twips thick is still one stroke wide, as on the product's pictures.
    const double minimo = SpessoreTratto();
    if (r.width() < minimo) r.setWidth(minimo);
    if (r.height() < minimo) r.setHeight(minimo);
    if (raster_)
        r = QRectF(std::floor(r.left()), std::floor(r.top()), std::max(1.0, std::round(r.width())),
                   std::max(1.0, std::round(r.height())));
    p_.fillRect(r, Colore(colore));
    x_ = x + larghezza;
    y_ = y + altezza;
}

void SchemaQt::Cerchio(double x, double y, double raggio, int32_t colore, bool pieno) {
    p_.save();
    p_.setRenderHint(QPainter::Antialiasing);
    const QPointF c = ADispositivo(x, y);
    const QColor col = Colore(colore);
    double r = raggio * scala_;
    if (raggio <= 0) {
        // A single dot: the node of a junction, kept visible at every zoom.
        r = SpessoreTratto() * 1.2;
        pieno = true;
    }
    if (pieno) {
        p_.setPen(Qt::NoPen);
        p_.setBrush(col);
    } else {
        QPen pen(col);
        pen.setWidthF(SpessoreTratto());
        p_.setPen(pen);
        p_.setBrush(Qt::NoBrush);
    }
    p_.drawEllipse(c, r, r);
    p_.restore();
}

void SchemaQt::Immagine(const std::string& nome, double x, double y, double larghezza, double altezza) {
    const QRectF r = QRectF(ADispositivo(x, y), ADispositivo(x + larghezza, y + altezza)).normalized();
    if (r.width() < 0.5 || r.height() < 0.5) return;
    const QString n = DaUtf8(nome);
    const QColor inchiostro = aspetto_ == Aspetto::Carta ? QColor(Qt::black) : QColor(Qt::white);
    if (raster_) {
        const QRect ri(QPoint(static_cast<int>(std::lround(r.left())), static_cast<int>(std::lround(r.top()))),
                       QSize(std::max(1, static_cast<int>(std::lround(r.width()))),
                             std::max(1, static_cast<int>(std::lround(r.height())))));
        if (ri.width() > 4000 || ri.height() > 4000) return;
        if (const QImage* img = Raster(n, inchiostro, ri.size())) p_.drawImage(ri.topLeft(), *img);
        return;
    }
    if (QSvgRenderer* rs = Renderer(n, inchiostro)) rs->render(&p_, r);
}

void SchemaQt::Pulisci() {
    const QColor sfondo = aspetto_ == Aspetto::Carta ? QColor(Qt::white) : SfondoSchermo();
    const QRectF r = areaImpostata_ ? QRectF(ADispositivo(ax_, ay_), ADispositivo(ax_ + al_, ay_ + aa_))
                                    : QRectF(QPointF(0, 0), QSizeF(larghezza_ * scala_, altezza_ * scala_));
    p_.fillRect(r.normalized(), sfondo);
    x_ = y_ = 0;
}

bool SalvaImmagineSchema(const QString& percorso, double larghezzaTwip, double altezzaTwip, double dpi, Aspetto aspetto,
                         const std::function<void(SchemaTarget&)>& disegna) {
    if (larghezzaTwip <= 0 || altezzaTwip <= 0 || dpi <= 0) return false;
    const QString est = QFileInfo(percorso).suffix().toLower();
    const double scala = dpi / TWIP_PER_POLLICE;
    const QColor sfondo = aspetto == Aspetto::Carta ? QColor(Qt::white) : SfondoSchermo();
    if (est == QLatin1String("svg")) {
        QSaveFile file(percorso);
        if (!file.open(QIODevice::WriteOnly)) return false;
        QSvgGenerator gen;
        gen.setOutputDevice(&file);
        const QSize dim(static_cast<int>(std::lround(larghezzaTwip * scala)),
                        static_cast<int>(std::lround(altezzaTwip * scala)));
        gen.setSize(dim);
        gen.setViewBox(QRect(QPoint(0, 0), dim));
        gen.setResolution(static_cast<int>(std::lround(dpi)));
        gen.setTitle(QStringLiteral("Schema"));
        {
            QPainter p(&gen);
            p.fillRect(QRect(QPoint(0, 0), dim), sfondo);
            SchemaQt t(p, larghezzaTwip, altezzaTwip, scala, aspetto);
            disegna(t);
        }
        return file.commit();
    }
    const char* formato = est == QLatin1String("png") ? "PNG" : est == QLatin1String("bmp") ? "BMP" : nullptr;
    if (formato == nullptr) return false;
    const int w = static_cast<int>(std::lround(larghezzaTwip * scala));
    const int h = static_cast<int>(std::lround(altezzaTwip * scala));
    if (w < 1 || h < 1 || static_cast<qint64>(w) * h > 200'000'000) return false;
    QImage img(w, h, QImage::Format_RGB32);
    if (img.isNull()) return false;
    img.fill(sfondo);
    const int dpm = static_cast<int>(std::lround(dpi / 0.0254));
    img.setDotsPerMeterX(dpm);
    img.setDotsPerMeterY(dpm);
    {
        QPainter p(&img);
        SchemaQt t(p, larghezzaTwip, altezzaTwip, scala, aspetto);
        disegna(t);
    }
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly)) return false;
    if (!img.save(&file, formato)) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

bool SalvaImmagineSchema(const QString& percorso, StatoSchema& s, Documento& d, const Archivi& a,
                         const ChiamataSchema& chiamata, double larghezzaTwip, double altezzaTwip, double dpi,
                         Aspetto aspetto) {
    return SalvaImmagineSchema(percorso, larghezzaTwip, altezzaTwip, dpi, aspetto,
                               [&](SchemaTarget& t) { DisegnaSchema(s, d, a, t, chiamata); });
}

}  // namespace fornax::schema::ui
