#include "view/controls/fault_mark.h"

#include "view/controls/theme.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

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
    painter.setPen(QPen(theme().colour(Colour::MarkEdge), width, Qt::SolidLine, Qt::RoundCap));
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

/// It is a sign, and not something to press: it looks the same in every state.
class FaultIconEngine final : public QIconEngine {
public:
    explicit FaultIconEngine(Mark mark) : mark_(mark) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override {
        paintFaultMark(*painter, rect, mark_, false);
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode, QIcon::State) override {
        return QPixmap::fromImage(faultImage(mark_, std::min(size.width(), size.height())));
    }
    QIconEngine *clone() const override { return new FaultIconEngine(*this); }

private:
    const Mark mark_;
};

} // namespace

void paintFaultMark(QPainter &painter, const QRectF &place, Mark mark, bool isBelow) {
    if (mark == Mark::None)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor colour =
        theme().colour(mark == Mark::Broken ? Colour::BrokenMark : Colour::InvalidMark);
    const QColor edge = theme().colour(Colour::MarkEdge);
    const qreal line = place.width() / 8;
    const QRectF inside = place.adjusted(line, line, -line, -line);
    const QPainterPath shape = mark == Mark::Broken ? discIn(inside) : triangleIn(inside);
    // An edge keeps it apart from what it is drawn on.
    painter.strokePath(shape, QPen(edge, line * 3.6, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    if (isBelow) {
        painter.fillPath(shape, edge);
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
    return QIcon(new FaultIconEngine(mark));
}

} // namespace quillon::controls
