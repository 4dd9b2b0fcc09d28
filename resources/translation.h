#pragma once

#include <QStringView>

namespace quillon::resources {

/// What a library says, as a pattern that fits the whole of it, and the same in Japanese; %1 to %3
/// are the pattern's groups. In a table the first pattern that fits counts.
struct Translation {
    QStringView pattern;
    QStringView text;
};

} // namespace quillon::resources
