#include "core/ui/Icone.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace fornax::ui {

namespace {

constexpr int LATO = 32;

const QColor BLU_SCURO(30, 70, 140);
const QColor GRIGIO(70, 70, 70);

void Lucchetto(QPainter& p, const QRectF& r, const QColor& colore) {
    const double w = r.width();
    const double h = r.height();
    QPen pen(colore, w * 0.14);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(r.left() + w * 0.22, r.top(), w * 0.56, h * 0.6), 0, 180 * 16);
    p.drawLine(QPointF(r.left() + w * 0.22, r.top() + h * 0.3), QPointF(r.left() + w * 0.22, r.top() + h * 0.45));
    p.drawLine(QPointF(r.left() + w * 0.78, r.top() + h * 0.3), QPointF(r.left() + w * 0.78, r.top() + h * 0.45));
    p.setPen(Qt::NoPen);
    p.setBrush(colore);
    p.drawRoundedRect(QRectF(r.left() + w * 0.08, r.top() + h * 0.42, w * 0.84, h * 0.58), 2, 2);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(r.center().x(), r.top() + h * 0.68), w * 0.08, w * 0.08);
}

void Lente(QPainter& p, bool piu) {
    p.setPen(QPen(GRIGIO, 3, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(QColor(235, 244, 255));
    p.drawEllipse(QRectF(4, 4, 18, 18));
    p.drawLine(QPointF(20, 20), QPointF(28, 28));
    p.setPen(QPen(BLU_SCURO, 2.6, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(8.5, 13), QPointF(17.5, 13));
    if (piu) p.drawLine(QPointF(13, 8.5), QPointF(13, 17.5));
}

void Disegna(QPainter& p, Icona i) {
    p.setRenderHint(QPainter::Antialiasing);
    switch (i) {
        case Icona::Nuovo: {
            QPainterPath foglio;
            foglio.moveTo(7, 3);
            foglio.lineTo(19, 3);
            foglio.lineTo(26, 10);
            foglio.lineTo(26, 29);
            foglio.lineTo(7, 29);
            foglio.closeSubpath();
            p.setPen(QPen(GRIGIO, 1.6));
            p.setBrush(Qt::white);
            p.drawPath(foglio);
            p.drawPolyline(QPolygonF({QPointF(19, 3), QPointF(19, 10), QPointF(26, 10)}));
            p.setPen(QPen(QColor(240, 170, 0), 2.4, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(QPointF(11, 17), QPointF(21, 17));
            p.drawLine(QPointF(16, 12), QPointF(16, 22));
            break;
        }
        case Icona::Apri: {
            p.setPen(QPen(QColor(150, 110, 20), 1.6));
            p.setBrush(QColor(250, 205, 90));
            p.drawRoundedRect(QRectF(3, 7, 24, 19), 2, 2);
            p.setBrush(QColor(255, 225, 130));
            QPolygonF aletta({QPointF(6, 13), QPointF(30, 13), QPointF(26, 27), QPointF(3, 27)});
            p.drawPolygon(aletta);
            break;
        }
        case Icona::Salva: {
            p.setPen(QPen(QColor(20, 50, 110), 1.6));
            p.setBrush(QColor(60, 110, 190));
            p.drawRoundedRect(QRectF(4, 4, 24, 24), 2, 2);
            p.setBrush(Qt::white);
            p.drawRect(QRectF(9, 4, 14, 9));
            p.setBrush(QColor(210, 220, 235));
            p.drawRect(QRectF(8, 18, 16, 10));
            break;
        }
        case Icona::Parametri: {
            p.setPen(QPen(GRIGIO, 2.2, Qt::SolidLine, Qt::RoundCap));
            const double y[3] = {8, 16, 24};
            const double x[3] = {20, 11, 17};
            for (int k = 0; k < 3; ++k) p.drawLine(QPointF(5, y[k]), QPointF(27, y[k]));
            p.setPen(QPen(BLU_SCURO, 1.5));
            p.setBrush(QColor(120, 170, 230));
            for (int k = 0; k < 3; ++k) p.drawEllipse(QPointF(x[k], y[k]), 3.6, 3.6);
            break;
        }
        case Icona::Esci: {
            p.setPen(QPen(GRIGIO, 1.6));
            p.setBrush(QColor(200, 160, 110));
            p.drawRect(QRectF(5, 3, 14, 26));
            p.setPen(QPen(QColor(190, 30, 30), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            p.drawLine(QPointF(14, 16), QPointF(28, 16));
            p.drawPolyline(QPolygonF({QPointF(23, 11), QPointF(28, 16), QPointF(23, 21)}));
            break;
        }
        case Icona::Guida: {
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(40, 110, 200));
            p.drawEllipse(QRectF(3, 3, 26, 26));
            QFont f(QStringLiteral("DejaVu Sans"));
            f.setBold(true);
            f.setPixelSize(20);
            p.setFont(f);
            p.setPen(Qt::white);
            p.drawText(QRectF(3, 3, 26, 26), Qt::AlignCenter, QStringLiteral("?"));
            break;
        }
        case Icona::Calcola: {
            p.setPen(QPen(QColor(20, 100, 40), 1.6));
            p.setBrush(QColor(70, 170, 90));
            p.drawRoundedRect(QRectF(3, 3, 26, 26), 4, 4);
            QFont f(QStringLiteral("DejaVu Sans"));
            f.setBold(true);
            f.setPixelSize(21);
            p.setFont(f);
            p.setPen(Qt::white);
            p.drawText(QRectF(3, 2, 26, 26), Qt::AlignCenter, QString(QChar(0x03A3)));
            break;
        }
        case Icona::RicalcoloAutomatico: {
            p.setPen(QPen(QColor(20, 120, 60), 3, Qt::SolidLine, Qt::RoundCap));
            p.setBrush(Qt::NoBrush);
            p.drawArc(QRectF(5, 5, 22, 22), 40 * 16, 280 * 16);
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(20, 120, 60));
            p.drawPolygon(QPolygonF({QPointF(21, 2), QPointF(29, 9), QPointF(20, 12)}));
            QFont f(QStringLiteral("DejaVu Sans"));
            f.setBold(true);
            f.setPixelSize(12);
            p.setFont(f);
            p.setPen(GRIGIO);
            p.drawText(QRectF(5, 5, 22, 22), Qt::AlignCenter, QStringLiteral("A"));
            break;
        }
        case Icona::CursoreBloccato: {
            p.setPen(QPen(GRIGIO, 1.4));
            p.setBrush(Qt::white);
            p.drawRect(QRectF(2, 6, 18, 14));
            p.drawLine(QPointF(2, 13), QPointF(20, 13));
            p.drawLine(QPointF(11, 6), QPointF(11, 20));
            p.setBrush(QColor(120, 170, 230));
            p.drawRect(QRectF(11, 13, 9, 7));
            Lucchetto(p, QRectF(17, 14, 13, 16), QColor(180, 120, 0));
            break;
        }
        case Icona::DiametriBloccati: {
            QFont f(QStringLiteral("DejaVu Sans"));
            f.setBold(true);
            f.setPixelSize(22);
            p.setFont(f);
            p.setPen(QColor(192, 0, 0));
            p.drawText(QRectF(0, 0, 22, 26), Qt::AlignCenter, QString(QChar(0x00D8)));
            Lucchetto(p, QRectF(17, 14, 13, 16), QColor(180, 120, 0));
            break;
        }
        case Icona::ZoomPiu:
            Lente(p, true);
            break;
        case Icona::ZoomMeno:
            Lente(p, false);
            break;
        case Icona::Gas: {
            QPainterPath fiamma;
            fiamma.moveTo(16, 2);
            fiamma.cubicTo(26, 12, 27, 18, 24, 24);
            fiamma.cubicTo(21, 30, 11, 30, 8, 24);
            fiamma.cubicTo(5, 18, 10, 12, 12, 8);
            fiamma.cubicTo(13, 13, 15, 14, 16, 2);
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(40, 100, 220));
            p.drawPath(fiamma);
            p.setBrush(QColor(140, 200, 255));
            p.drawEllipse(QRectF(12, 18, 8, 9));
            break;
        }
    }
}

}  // namespace

QIcon CreaIcona(Icona i) {
    QIcon icona;
    for (int scala : {1, 2}) {
        QPixmap pm(LATO * scala, LATO * scala);
        pm.setDevicePixelRatio(scala);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        Disegna(p, i);
        p.end();
        icona.addPixmap(pm);
    }
    return icona;
}

}  // namespace fornax::ui
