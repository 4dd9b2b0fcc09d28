#pragma once

#include "resources/text.h"

#include <QStringView>

namespace quillon::resources {

/// What a library says, as a pattern that fits the whole of it, and the same for the user; %1 to %3
/// are the pattern's groups. In a table the first pattern that fits counts.
struct Translation {
    QStringView pattern;
    Text text;
};

} // namespace quillon::resources
