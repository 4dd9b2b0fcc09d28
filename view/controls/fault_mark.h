#pragma once

#include "platform/items/tree_nodes.h"

#include <QIcon>

class QPainter;

namespace quillon::controls {

/// Colours of the two kinds of fault, wherever they are told apart by colour as well.
inline constexpr QRgb InvalidColour = qRgb(0x0b, 0x3f, 0xb8);
inline constexpr QRgb BrokenColour = qRgb(0xd1, 0x24, 0x2f);

/// Draws a mark into a square: a blue triangle for what breaks a rule, a red disc with a cross for
/// what cannot be read. That something below is marked is said by the mere outline.
void paintFaultMark(QPainter &painter, const QRectF &place, items::Mark mark, bool isBelow);

/// The same as an icon.
QIcon faultIcon(items::Mark mark);
/// And as a picture of some pixels.
QImage faultImage(items::Mark mark, int size);

} // namespace quillon::controls
