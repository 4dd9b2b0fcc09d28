#include "platform/xml/dom/document_states.h"

#include "platform/xml/dom/handle_access.h"

#include <algorithm>
#include <tuple>

namespace quillon::xml {

namespace {

/// All that a record says of the node itself: no layout, nor what there is to know for writing it.
auto contentOf(const Record &record) {
    constexpr RecordFlags Ignored = record_flag::TagChanged | record_flag::ContentChanged |
                                    record_flag::OwnLayout | record_flag::OwnEndLayout |
                                    tag_form::All;
    return std::tuple(record.kind, record.flags & ~Ignored, record.source, record.name,
                      record.parent, record.next, record.start);
}

bool isSameNode(const Arena &one, const Arena &other, Number n) {
    if (contentOf(one.record(n)) != contentOf(other.record(n)) ||
        one.previousSibling(n) != other.previousSibling(n))
        return false;
    if (one.hasPart(n)) {
        const ElementPart &a = one.part(n);
        const ElementPart &b = other.part(n);
        return a.firstChild == b.firstChild && a.lastChild == b.lastChild &&
               a.firstAttribute == b.firstAttribute &&
               one.lastAttribute(n) == other.lastAttribute(n);
    }
    // A value is set by giving the node another text.
    return one.ownText(n, OwnTextKind::Value).data() == other.ownText(n, OwnTextKind::Value).data();
}

std::vector<Number> pathTo(const Arena &arena, Number n) {
    std::vector<Number> path;
    for (; n != 0; n = arena.record(n).parent)
        path.push_back(n);
    std::ranges::reverse(path);
    return path;
}

/// The same of two siblings, from both on until one meets the other.
bool isEarlierSibling(const Arena &arena, Number one, Number other) {
    Number behindOne = arena.record(one).next;
    Number behindOther = arena.record(other).next;
    while (behindOne != 0 && behindOther != 0 && behindOne != other && behindOther != one) {
        behindOne = arena.record(behindOne).next;
        behindOther = arena.record(behindOther).next;
    }
    return behindOne == other || (behindOther == 0 && behindOne != 0);
}

} // namespace

std::vector<quint32> changedNodes(const DOMDocument40 &before, const DOMDocument40 &now,
                                  std::size_t limit) {
    const Arena &old = HandleAccess::arena(before);
    const Arena &arena = HandleAccess::arena(now);
    std::vector<quint32> changed;
    for (Number page = arena.documentNumber(); arena.isAlive(page); page = arena.pageEnd(page)) {
        if (isSurelyUnchanged(before, now, page))
            continue;
        const Number end = arena.pageEnd(page);
        for (Number n = page; n != end && arena.isAlive(n); ++n) {
            if (!arena.isRecord(n) || (old.isAlive(n) && isSameNode(old, arena, n)))
                continue;
            changed.push_back(n);
            if (changed.size() > limit)
                return changed;
        }
    }
    return changed;
}

bool isAhead(const Node &one, const Node &other) {
    const Arena &arena = HandleAccess::arena(one);
    const std::vector<Number> path = pathTo(arena, one.number());
    const std::vector<Number> otherPath = pathTo(arena, other.number());
    std::size_t shared = 0;
    while (shared < path.size() && shared < otherPath.size() && path[shared] == otherPath[shared])
        ++shared;
    if (shared == path.size() || shared == otherPath.size())
        return path.size() < otherPath.size();
    const Number first = path[shared];
    const Number second = otherPath[shared];
    const bool isAttribute = arena.record(first).kind == NodeType::Attribute;
    if (isAttribute != (arena.record(second).kind == NodeType::Attribute))
        return isAttribute;
    return isEarlierSibling(arena, first, second);
}

bool haveCommonOrigin(const DOMDocument40 &one, const DOMDocument40 &other) {
    if (!one || !other)
        return false;
    // Copies share the table of names, and it is made anew for all other content.
    return HandleAccess::arena(one).names == HandleAccess::arena(other).names;
}

bool isSurelyUnchanged(const DOMDocument40 &one, const DOMDocument40 &other, quint32 number) {
    const Arena &first = HandleAccess::arena(one);
    const Arena &second = HandleAccess::arena(other);
    // Copies share what neither has changed.
    return first.isAlive(number) && second.isAlive(number) &&
           &first.record(number) == &second.record(number);
}

StandingNodes::StandingNodes(const DOMDocument40 &document) : document_(document) {
    if (document_)
        known_.resize(HandleAccess::arena(document_).slotCount());
}

bool StandingNodes::contains(quint32 number) {
    if (!document_)
        return false;
    const Arena &arena = HandleAccess::arena(document_);
    const Number top = arena.documentNumber();
    const auto known = [&](Number n) -> Known & { return known_[n - top]; };
    if (!arena.isAlive(number))
        return false;
    known(top) = Known::Standing;
    Number above = number;
    while (above != 0 && known(above) == Known::Nothing)
        above = arena.record(above).parent;
    const Known found = above == 0 ? Known::Gone : known(above);
    for (Number n = number; n != above; n = arena.record(n).parent)
        known(n) = found;
    return found == Known::Standing;
}

} // namespace quillon::xml
