#pragma once

#include "platform/xml/dom/dom.h"

#include <memory>

namespace quillon::xml {

/// What stands ahead of a node in the markup of a node above it, as Node::readXml() has that: so
/// many bytes, with so many line ends. It is counted piece by piece, as it may be most of a large
/// document; what has been asked about may be changed meanwhile.
class MarkupAhead {
public:
    /// The node stands below the other one, or is it. Neither is an attribute.
    MarkupAhead(const Node &above, const Node &node);
    ~MarkupAhead();
    MarkupAhead(MarkupAhead &&) noexcept;
    MarkupAhead &operator=(MarkupAhead &&) noexcept;

    /// Goes on with so many bytes; true when all is counted.
    bool count(std::size_t most);
    qint64 bytes() const;
    qint64 lineEnds() const;

private:
    class Stretches;
    std::unique_ptr<Stretches> stretches_;
};

/// The place of a node in the markup of a node above it, in bytes of Node::readXml().
qint64 placeInMarkup(const Node &above, const Node &node);

/// The child whose markup a byte of the markup of a node is in; of a text, also the byte behind
/// it. None for what is no child's.
Node childAtPlace(const Node &node, qint64 at);

} // namespace quillon::xml
