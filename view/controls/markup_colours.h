#pragma once

#include "view/controls/theme.h"

#include <QByteArrayView>

#include <vector>

namespace quillon::controls {

/// A stretch of markup that has a colour of its own, in bytes.
struct ColouredStretch {
    qsizetype at = 0;
    qsizetype length = 0;
    Colour colour = Colour::TagInk;

    bool operator==(const ColouredStretch &) const = default;
};

/// The colours of a piece of a longer text, from one place to another. What the first place stands
/// in is found out from what is ahead of it in `text`, which may begin anywhere: only for what
/// begins yet further ahead, as a very long comment, the colours may be wrong.
std::vector<ColouredStretch> markupColours(QByteArrayView text, qsizetype from, qsizetype to);

} // namespace quillon::controls
