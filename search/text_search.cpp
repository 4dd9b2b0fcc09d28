#include "search/text_search.h"

#include "platform/runtime/error.h"
#include "platform/runtime/strings.h"
#include "platform/xml/query/xpath.h"

#include <QStringDecoder>

namespace quillon::search {

using xml::Node;
using xml::NodePart;

namespace {

/// Tells how far a search is; which node it has come to says so well enough.
class Pace {
public:
    Pace(const Node &top, const runtime::Progress &progress)
        : progress_(progress), first_(top.documentNode().number()),
          count_(top.ownerDocument().isNull() ? 1 : top.ownerDocument().maxNodeCount()) {}

    void keep(quint32 node) {
        if (++parts_ % PartsBetween != 0 || !progress_)
            return;
        if (!progress_(double(node - first_) / count_))
            runtime::raise(runtime::error_number::Cancelled);
    }

private:
    /// A slow pattern may take a millisecond for each, and a quick one must not notice it.
    static constexpr unsigned PartsBetween = 128;

    const runtime::Progress &progress_;
    quint32 first_;
    double count_;
    unsigned parts_ = 0;
};

/// Holds the pattern against parts one after the other.
class Matcher {
public:
    explicit Matcher(const TextPattern &pattern) : pattern_(pattern) {}

    const std::vector<Span> &match(const NodePart &part) {
        if (part.isName())
            return matchName(part);
        spans_.clear();
        if (pattern_.mayBeIn(part.characters))
            pattern_.findAll(decoded(part.characters), spans_);
        return spans_;
    }

private:
    /// The same names come again and again.
    const std::vector<Span> &matchName(const NodePart &part) {
        if (names_.size() <= part.nameNumber)
            names_.resize(part.nameNumber + 1);
        std::optional<std::vector<Span>> &name = names_[part.nameNumber];
        if (!name) {
            name.emplace();
            pattern_.findAll(runtime::fromUtf8(part.characters), *name);
        }
        return *name;
    }

    QStringView decoded(std::string_view utf8) {
        const auto size = qsizetype(utf8.size());
        if (buffer_.size() < size)
            buffer_.resize(size + size / 2 + 64);
        const QChar *const end = decoder_.appendToBuffer(buffer_.data(), {utf8.data(), size});
        return {buffer_.constData(), end};
    }

    const TextPattern &pattern_;
    QStringDecoder decoder_{QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                      QStringDecoder::Flag::ConvertInitialBom};
    QString buffer_;
    std::vector<Span> spans_;
    std::vector<std::optional<std::vector<Span>>> names_;
};

Hit hitAt(const NodePart &part, const Span &span) {
    return {part.node, part.isName() ? Part::Name : Part::Value, quint32(span.at),
            quint32(span.length)};
}

/// Whether a place in a node is not ahead of the one to begin at.
bool isFrom(const NodePart &part, const Span &span, const Hit &from) {
    const Part now = part.isName() ? Part::Name : Part::Value;
    return now != from.part ? now > from.part : quint32(span.at) >= from.at;
}

Node containerOf(const Node &node) {
    return node.nodeType() == xml::NodeType::Attribute ? xml::ownerElement(node)
                                                       : node.parentNode();
}

bool isIn(const Node &node, const Node &top) {
    for (Node at = node; at; at = containerOf(at)) {
        if (at == top)
            return true;
    }
    return false;
}

} // namespace

std::vector<Hit> TextSearch::findAll(const std::vector<Node> &tops,
                                     const runtime::Progress &progress) const {
    std::vector<Hit> hits;
    if (tops.empty())
        return hits;
    Matcher matcher(pattern_);
    Pace pace(tops.front(), progress);
    for (const Node &top : tops) {
        xml::PartWalk walk(top, parts_);
        for (NodePart part; walk.next(part);) {
            pace.keep(part.node);
            for (const Span &span : matcher.match(part))
                hits.push_back(hitAt(part, span));
        }
    }
    return hits;
}

std::optional<Hit> TextSearch::findFrom(const std::vector<Node> &tops, const Node &start,
                                        const Hit &from, const runtime::Progress &progress) const {
    auto top = tops.begin();
    while (top != tops.end() && !isIn(start, *top))
        ++top;
    bool isInside = start && top != tops.end();
    if (!isInside)
        top = tops.begin();
    if (top == tops.end())
        return {};
    Matcher matcher(pattern_);
    Pace pace(*top, progress);
    for (; top != tops.end(); ++top) {
        xml::PartWalk walk(*top, parts_);
        if (std::exchange(isInside, false))
            walk.startAt(start);
        for (NodePart part; walk.next(part);) {
            pace.keep(part.node);
            for (const Span &span : matcher.match(part)) {
                if (part.node != start.number() || isFrom(part, span, from))
                    return hitAt(part, span);
            }
        }
    }
    return {};
}

std::vector<Hit> TextSearch::findIn(const Node &node, Part part) const {
    const QString text = part == Part::Name ? node.nodeName() : node.nodeValue();
    std::vector<Span> spans;
    pattern_.findAll(text, spans);
    std::vector<Hit> hits;
    for (const Span &span : spans)
        hits.push_back({node.number(), part, quint32(span.at), quint32(span.length)});
    return hits;
}

} // namespace quillon::search
