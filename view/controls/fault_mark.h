#pragma once

#include "platform/items/tree_nodes.h"

#include <QIcon>

class QPainter;

namespace quillon::controls {

/// Draws a mark into a square, in the theme's colours: a blue triangle for what breaks a rule, a
/// red disc with a cross for what cannot be read. That something below is marked is said by the
/// mere outline.
void paintFaultMark(QPainter &painter, const QRectF &place, items::Mark mark, bool isBelow);

/// The same as an icon, in the colours of the theme in force when it is drawn.
QIcon faultIcon(items::Mark mark);
/// And as a picture of some pixels.
QImage faultImage(items::Mark mark, int size);

} // namespace quillon::controls
