#include "reports/ui/DispositivoQPrinter.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPrinter>
#include <cmath>
#include <stdexcept>

#include "schema/ui/SchemaQt.h"

namespace fornax::ui {

DispositivoQPrinter::DispositivoQPrinter(QPrinter& p) : p_(p), dpi_(p.resolution()) {
    // Twips from the corner of the paper: the report keeps its own margins.
    p_.setFullPage(true);
    font_ = QFont(QStringLiteral("Arial"));
    font_.setPointSizeF(9);
}

DispositivoQPrinter::~DispositivoQPrinter() {
    if (painter_.isActive()) painter_.end();
}

int DispositivoQPrinter::Larghezza() const {
    return static_cast<int>(std::lround(p_.pageLayout().fullRect(QPageLayout::Point).width() * 20.0));
}

int DispositivoQPrinter::Altezza() const {
    return static_cast<int>(std::lround(p_.pageLayout().fullRect(QPageLayout::Point).height() * 20.0));
}

bool DispositivoQPrinter::FontEquivalente(const QString& nome, const QString& risolto) {
    if (risolto.compare(nome, Qt::CaseInsensitive) == 0) return true;
    // Fonts drawn to Arial's widths: a page measured for Arial stays the same.
    if (nome.compare(QStringLiteral("Arial"), Qt::CaseInsensitive) == 0)
        return risolto == QStringLiteral("Liberation Sans") || risolto == QStringLiteral("Arimo");
    return false;
}

bool DispositivoQPrinter::ImpostaFont(const Carattere& c) {
    QFont f(QString::fromStdString(c.nome));
    f.setPointSizeF(c.dimensione);
    f.setBold(c.grassetto);
    f.setItalic(c.corsivo);
    f.setKerning(false);  // widths add up as the report measures them, text by text
    font_ = f;
    if (painter_.isActive()) {
        painter_.setFont(font_);
        // The schema's painting leaves its own pen and brush behind.
        painter_.setPen(penna_);
        painter_.setBrush(Qt::NoBrush);
    }
    return FontEquivalente(QString::fromStdString(c.nome), QFontInfo(f).family());
}

double DispositivoQPrinter::LarghezzaTesto(std::string_view testo) const {
    const QFontMetricsF fm(font_, &p_);
    return fm.horizontalAdvance(QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size()))) * 1440.0 / dpi_;
}

double DispositivoQPrinter::AltezzaTesto(std::string_view) const {
    const QFontMetricsF fm(font_, &p_);
    return fm.height() * 1440.0 / dpi_;
}

void DispositivoQPrinter::Inizia() {
    if (painter_.isActive()) {
        if (finito_ && !p_.newPage()) throw std::runtime_error("la stampante non accetta una pagina nuova");
        finito_ = false;
        return;
    }
    if (!painter_.begin(&p_)) throw std::runtime_error("la stampante non accetta il documento");
    painter_.setFont(font_);
    penna_ = QPen(Qt::black);
    penna_.setWidthF(dpi_ * 0.6 / 72.0);  // 0.6 pt
    painter_.setPen(penna_);
}

void DispositivoQPrinter::Testo(double x, double y, std::string_view testo) {
    Inizia();
    const QFontMetricsF fm(font_, &p_);
    painter_.drawText(QPointF(Px(x), Px(y) + fm.ascent()),
                      QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size())));
}

void DispositivoQPrinter::Linea(double x1, double y1, double x2, double y2) {
    Inizia();
    painter_.drawLine(QPointF(Px(x1), Px(y1)), QPointF(Px(x2), Px(y2)));
}

void DispositivoQPrinter::Immagine(double x, double y, double larghezza, double altezza, const std::string& file) {
    Inizia();
    const QImage img(QString::fromStdString(file));
    if (img.isNull()) return;  // a logo that cannot be read is left out
    painter_.drawImage(QRectF(Px(x), Px(y), Px(larghezza), Px(altezza)), img);
}

void DispositivoQPrinter::NuovaPagina() {
    Inizia();
    if (!p_.newPage()) throw std::runtime_error("la stampante non accetta una pagina nuova");
}

void DispositivoQPrinter::FineDocumento() {
    if (painter_.isActive()) finito_ = true;
}

bool DispositivoQPrinter::Chiudi() {
    finito_ = false;
    if (!painter_.isActive()) return true;
    return painter_.end() && p_.printerState() != QPrinter::Error;
}

schema::SchemaTarget& DispositivoQPrinter::SuperficieSchema() {
    Inizia();
    schema_ = std::make_unique<schema::ui::SchemaQt>(painter_, Larghezza(), Altezza(), dpi_ / 1440.0,
                                                     schema::ui::Aspetto::Carta);
    return *schema_;
}

bool DispositivoQPrinter::ImpostaOrientamento(int orientamento) {
    return p_.setPageOrientation(orientamento == 2 ? QPageLayout::Landscape : QPageLayout::Portrait);
}

}  // namespace fornax::ui
