#pragma once

#include "platform/xml/dom/dom.h"

#include <cstdint>

namespace quillon::xml {

/// Counts lines and columns in the text that nodes were read from, on from where it stopped last:
/// it costs least to ask in document order.
class LineCounter {
public:
    /// Both 1-based, a column being a character; 0 when unknown.
    struct Place {
        int line = 0;
        int column = 0;
    };

    /// Where a node that was read starts, or a position so many bytes behind that; nowhere for any
    /// other node. Whether it has been changed since does not matter.
    Place placeOf(const Node &node, std::uint32_t offset = 0);

private:
    Place placeAt(const SourceText &source, std::uint32_t position);

    const SourceText *source_ = nullptr;
    std::uint32_t position_ = 0;
    Place place_;
};

} // namespace quillon::xml
