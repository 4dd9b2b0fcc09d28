#include "platform/xml/dom/arrangement.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/handle_access.h"
#include "platform/xml/storage/values.h"

#include <unordered_set>

namespace quillon::xml {

namespace {

std::optional<std::string> indentIn(std::string_view layout) {
    const std::size_t lineBreak = layout.find_last_of("\r\n");
    return lineBreak == layout.npos ? std::nullopt
                                    : std::optional(std::string(layout.substr(lineBreak + 1)));
}

/// The layout with another indent in its last line; nothing when that line begins otherwise.
std::optional<std::string> reindented(std::string_view layout, const std::string &before,
                                      const std::string &now) {
    const auto indent = indentIn(layout);
    if (!indent || !indent->starts_with(before))
        return std::nullopt;
    const auto lines = layout.substr(0, layout.size() - indent->size());
    return normalizeLineEnds(lines) + now + indent->substr(before.size());
}

void reindent(Arena &arena, Number n, bool withOwnLine, const std::string &before,
              const std::string &now) {
    if (withOwnLine) {
        if (auto layout = reindented(arena.layout(n), before, now))
            arena.setLayout(n, *std::move(layout));
    }
    if (arena.record(n).kind != NodeType::Element)
        return;
    if (auto layout = reindented(arena.endLayout(n), before, now))
        arena.setEndLayout(n, *std::move(layout));
    arena.markContentChanged(n);
}

} // namespace

std::optional<std::string> lineIndentOf(const Node &node) {
    if (node.isNull() || node.nodeType() == NodeType::Document)
        return std::nullopt;
    const Arena &arena = HandleAccess::arena(node);
    const std::string_view layout = arena.layout(node.number());
    // What is first in the file begins its first line.
    const bool isFirst = layout.empty() && !node.previousSibling() &&
                         node.parentNode().nodeType() == NodeType::Document;
    return isFirst ? std::string() : indentIn(layout);
}

void reindentBelow(const Node &element, const std::optional<std::string> &before) {
    const auto now = lineIndentOf(element);
    if (element.nodeType() != NodeType::Element || !before || !now || *before == *now)
        return;
    Arena &arena = HandleAccess::arena(element);
    const Number top = element.number();
    reindent(arena, top, false, *before, *now);
    for (Number n = arena.nextInSubtree(top, top); n != 0; n = arena.nextInSubtree(n, top))
        reindent(arena, n, true, *before, *now);
}

Node insertLaidOut(const Node &parent, const Node &element, const Node &ref) {
    const Node top = parent.insertBefore(element.cloneNode(false), ref);
    Node from = element;
    Node to = top;
    while (true) {
        Node next = from.firstChild();
        Node under = to;
        for (; !next && !(from == element); from = from.parentNode()) {
            next = from.nextSibling();
            under = under.parentNode();
        }
        if (!next)
            return top;
        from = next;
        to = under.appendChild(from.cloneNode(false));
    }
}

void reorderChildren(const Node &parent, const std::vector<std::vector<Node>> &groups) {
    std::unordered_set<Number> all;
    std::unordered_set<Number> heads;
    for (const std::vector<Node> &group : groups) {
        for (const Node &node : group) {
            if (!(node.parentNode() == parent) || !all.insert(node.number()).second)
                runtime::raise(runtime::error_number::InvalidArgument);
        }
        if (!group.empty())
            heads.insert(group.front().number());
    }
    Arena &arena = HandleAccess::arena(parent);
    std::vector<Number> children;
    std::vector<std::string> layouts;
    for (Number n = arena.part(parent.number()).firstChild; n != 0; n = arena.record(n).next) {
        children.push_back(n);
        if (heads.contains(n))
            layouts.push_back(normalizeLineEnds(arena.layout(n)));
    }
    if (children.size() != all.size())
        runtime::raise(runtime::error_number::InvalidArgument);
    for (const Number n : children)
        arena.unlink(n);
    auto layout = layouts.begin();
    for (const std::vector<Node> &group : groups) {
        for (const Node &node : group) {
            if (heads.contains(node.number()))
                arena.setLayout(node.number(), *layout++);
            arena.link(parent.number(), node.number(), 0);
        }
    }
    arena.markContentChanged(parent.number());
}

} // namespace quillon::xml
