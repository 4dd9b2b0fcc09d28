#include "view/controls/mark_delegate.h"

#include "view/controls/row_table.h"
#include "view/controls/theme.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace quillon::controls {

namespace {

constexpr int Margin = 3;
/// What is left ahead of a mark when the text is shifted for it, in parts of the room.
constexpr double RoomAhead = 0.25;

} // namespace

void MarkDelegate::paint(QPainter *painter, const QStyleOptionViewItem &given,
                         const QModelIndex &index) const {
    const QPoint mark = index.data(row_role::Mark).toPoint();
    if (mark.y() == 0) {
        QStyledItemDelegate::paint(painter, given, index);
        return;
    }
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const QStyle &style = *(option.widget ? option.widget->style() : QApplication::style());
    const QRect place = style.subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget);
    const QString text = std::exchange(option.text, QString());
    style.drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    option.text = text;
    paintText(*painter, option, place.adjusted(Margin, 0, -Margin, 0), mark);
}

void MarkDelegate::paintText(QPainter &painter, const QStyleOptionViewItem &option,
                             const QRect &place, const QPoint &mark) const {
    QTextLayout::FormatRange marked;
    marked.start = mark.x();
    marked.length = mark.y();
    marked.format.setBackground(theme().colour(Colour::HitPaper));
    marked.format.setForeground(theme().colour(Colour::HitInk));
    QTextLayout layout(option.text, option.font);
    layout.setFormats({marked});
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(1e6);
    layout.endLayout();

    const double start = line.cursorToX(mark.x());
    const double end = line.cursorToX(mark.x() + mark.y());
    const double room = place.width();
    double shift = 0;
    if (end > room)
        shift = std::min(start, std::max(end - room, start - room * RoomAhead));
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const auto group =
        option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    painter.save();
    painter.setClipRect(place);
    painter.setPen(
        option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
    layout.draw(&painter,
                QPointF(place.left() - shift, place.top() + (place.height() - line.height()) / 2));
    painter.restore();
}

} // namespace quillon::controls
