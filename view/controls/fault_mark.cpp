#include "view/controls/fault_mark.h"

#include <QPainter>
#include <QPainterPath>

namespace quillon::controls {

using items::Mark;

namespace {

QPainterPath triangleIn(const QRectF &place) {
    QPainterPath path;
    path.moveTo(place.center().x(), place.top());
    path.lineTo(place.bottomRight());
    path.lineTo(place.bottomLeft());
    path.closeSubpath();
    return path;
}

QPainterPath discIn(const QRectF &place) {
    QPainterPath path;
    path.addEllipse(place);
    return path;
}

/// What stands in the shape: an exclamation mark, or a cross.
void paintSign(QPainter &painter, const QRectF &place, Mark mark, qreal width) {
    painter.setPen(QPen(Qt::white, width, Qt::SolidLine, Qt::RoundCap));
    const QPointF centre = place.center();
    const qreal side = place.width();
    if (mark == Mark::Broken) {
        const qreal arm = side * 0.2;
        painter.drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
        painter.drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
        return;
    }
    const qreal top = place.top();
    painter.drawLine(QPointF(centre.x(), top + side * 0.4), QPointF(centre.x(), top + side * 0.62));
    painter.drawPoint(QPointF(centre.x(), top + side * 0.83));
}

} // namespace

void paintFaultMark(QPainter &painter, const QRectF &place, Mark mark, bool isBelow) {
    if (mark == Mark::None)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor colour(mark == Mark::Broken ? BrokenColour : InvalidColour);
    const qreal line = place.width() / 8;
    const QRectF inside = place.adjusted(line, line, -line, -line);
    const QPainterPath shape = mark == Mark::Broken ? discIn(inside) : triangleIn(inside);
    // A white edge keeps it apart from what it is drawn on.
    painter.strokePath(shape,
                       QPen(Qt::white, line * 3.6, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    if (isBelow) {
        painter.fillPath(shape, Qt::white);
        painter.strokePath(shape, QPen(colour, line, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    } else {
        painter.strokePath(shape, QPen(colour, line, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
        painter.fillPath(shape, colour);
        paintSign(painter, inside, mark, line * 1.1);
    }
    painter.restore();
}

QImage faultImage(Mark mark, int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintFaultMark(painter, QRectF(0, 0, size, size), mark, false);
    return image;
}

QIcon faultIcon(Mark mark) {
    QIcon icon;
    for (const int size : {16, 24, 32, 48}) {
        const QPixmap picture = QPixmap::fromImage(faultImage(mark, size));
        icon.addPixmap(picture);
        // It is a sign, and not something to press.
        icon.addPixmap(picture, QIcon::Disabled);
        icon.addPixmap(picture, QIcon::Selected);
    }
    return icon;
}

} // namespace quillon::controls
