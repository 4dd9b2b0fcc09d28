#pragma once

#include <QStyledItemDelegate>

namespace quillon::controls {

/// Paints cells of one line, with the piece of it marked that row_role::Mark names. Where there is
/// not room for all of the text, that piece is what is to be seen.
class MarkDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    void paintText(QPainter &painter, const QStyleOptionViewItem &option, const QRect &place,
                   const QPoint &mark) const;
};

} // namespace quillon::controls
