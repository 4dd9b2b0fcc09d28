#pragma once

#include <QtGlobal>

namespace quillon::search {

/// A piece of a text: 0-based, in UTF-16 units.
struct Span {
    qsizetype at = 0;
    qsizetype length = 0;

    bool operator==(const Span &) const = default;
};

} // namespace quillon::search
