#pragma once

#include "view/controls/theme.h"

namespace quillon::controls {

/// A colour of the theme as the text control takes it, with red in the lowest byte.
inline long scintillaColour(Colour use) {
    const QColor colour = theme().colour(use);
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

} // namespace quillon::controls
