#include "platform/xml/dom/layout.h"

#include "platform/xml/storage/values.h"

namespace quillon::xml {

namespace {

/// The indent step of a document that shows none.
constexpr std::string_view DefaultStep = "  ";

bool hasLineBreak(std::string_view layout) {
    return layout.find_first_of("\r\n") != layout.npos;
}

/// The last line break of a layout and the indent after it, with an LF; empty without a break.
std::string ownLine(std::string_view layout) {
    const std::size_t lineBreak = layout.find_last_of("\r\n");
    if (lineBreak == layout.npos)
        return {};
    return "\n" + std::string(layout.substr(lineBreak + 1));
}

std::string indentOf(const Arena &arena, Number node) {
    const std::string line = ownLine(arena.layout(node));
    return line.empty() ? line : line.substr(1);
}

bool isCharacterData(NodeType kind) {
    return kind == NodeType::Text || kind == NodeType::CDATASection ||
           kind == NodeType::EntityReference;
}

Number rootOf(const Arena &arena) {
    Number n = arena.part(arena.documentNumber()).firstChild;
    while (n != 0 && arena.record(n).kind != NodeType::Element)
        n = arena.record(n).next;
    return n;
}

/// What one level adds to the indent, as the document shows it.
std::string indentStep(const Arena &arena, Number parent) {
    // The parent's own step is the best witness, then the root's.
    const Number above = arena.record(parent).parent;
    if (above != 0 && above != arena.documentNumber()) {
        const std::string outer = indentOf(arena, above);
        const std::string inner = indentOf(arena, parent);
        if (inner.size() > outer.size() && inner.compare(0, outer.size(), outer) == 0)
            return inner.substr(outer.size());
    }
    const Number root = rootOf(arena);
    if (root != 0 && root != parent) {
        for (Number n = arena.part(root).firstChild; n != 0; n = arena.record(n).next) {
            const std::string indent = indentOf(arena, n);
            if (!indent.empty())
                return indent;
        }
    }
    return std::string(DefaultStep);
}

bool standsOnOwnLine(const Arena &arena, Number node) {
    return arena.record(node).parent == arena.documentNumber() || hasLineBreak(arena.layout(node));
}

void layOutInEmptyElement(Arena &arena, Number parent, Number node) {
    if (isCharacterData(arena.record(node).kind) || !standsOnOwnLine(arena, parent)) {
        arena.setLayout(node, {});
        return;
    }
    const std::string indent = indentOf(arena, parent);
    arena.setLayout(node, "\n" + indent + indentStep(arena, parent));
    arena.setEndLayout(parent, "\n" + indent);
}

void layOutAtTopLevel(Arena &arena, Number node, Number next) {
    if (next != 0) {
        const std::string layout(arena.layout(next));
        arena.setLayout(node, normalizeLineEnds(layout));
        arena.setLayout(next, "\n");
    } else {
        const bool alone = arena.part(arena.documentNumber()).lastChild == 0;
        arena.setLayout(node, alone ? "" : "\n");
    }
}

/// Drops the layout ahead of a child, or of the end tag. Text in front of layout would take the
/// layout in as text when it is read again.
void dropLayoutAhead(Arena &arena, Number parent, Number next) {
    if (next != 0)
        arena.setLayout(next, {});
    else
        arena.setEndLayout(parent, {});
}

} // namespace

void linkWithLayout(Arena &arena, Number parent, Number node, Number next) {
    const NodeType kind = arena.record(node).kind;
    const ElementPart part = arena.part(parent);
    if (parent == arena.documentNumber()) {
        layOutAtTopLevel(arena, node, next);
    } else if (arena.record(parent).has(record_flag::PreserveSpace) ||
               arena.properties.preserveWhiteSpace) {
        arena.setLayout(node, {});
    } else if (kind == NodeType::Text) {
        arena.setLayout(node, {});
        dropLayoutAhead(arena, parent, next);
    } else if (part.firstChild == 0) {
        layOutInEmptyElement(arena, parent, node);
    } else if (next != 0) {
        // The node takes the place of the next one, blank lines above it included, so that
        // putting it there and removing the next one replaces that one exactly.
        const std::string layout = normalizeLineEnds(arena.layout(next));
        arena.setLayout(node, layout);
        arena.setLayout(next, ownLine(layout));
    } else {
        // Character data has no layout, so nothing is added behind it.
        arena.setLayout(node, ownLine(arena.layout(part.lastChild)));
    }
    arena.link(parent, node, next);
    arena.markContentChanged(parent);
}

bool isInDocument(const Arena &arena, Number node) {
    while (arena.record(node).parent != 0)
        node = arena.record(node).parent;
    return node == arena.documentNumber();
}

void linkKeepingLayout(Arena &arena, Number parent, Number node, Number next,
                       const std::string &oldEndLayout) {
    const Number previous = next != 0 ? arena.previousSibling(next) : arena.part(parent).lastChild;
    const bool text = arena.record(node).kind == NodeType::Text;
    const bool afterText = previous != 0 && arena.record(previous).kind == NodeType::Text;
    if (text || afterText)
        arena.setLayout(node, {});
    if (text)
        dropLayoutAhead(arena, parent, next);
    else if (arena.part(parent).firstChild == 0)
        arena.setEndLayout(parent, oldEndLayout);
    arena.link(parent, node, next);
    arena.markContentChanged(parent);
}

void unlinkWithLayout(Arena &arena, Number node) {
    const Record old = arena.record(node);
    const Number parent = old.parent;
    const Number previous = arena.previousSibling(node);
    arena.unlink(node);
    if (parent == 0)
        return;
    arena.markContentChanged(parent);
    if (previous != 0 && arena.record(previous).kind == NodeType::Text)
        dropLayoutAhead(arena, parent, old.next);
    if (arena.record(parent).kind == NodeType::Element && arena.part(parent).firstChild == 0)
        arena.setEndLayout(parent, {});
}

void linkInPlaceOf(Arena &arena, Number parent, Number node, Number old) {
    const Number next = arena.record(old).next;
    std::string layout = normalizeLineEnds(arena.layout(old));
    arena.unlink(old);
    arena.link(parent, node, next);
    if (arena.record(node).kind == NodeType::Text) {
        layout.clear();
        dropLayoutAhead(arena, parent, next);
    }
    arena.setLayout(node, std::move(layout));
    arena.markContentChanged(parent);
}

void linkAttributeWithLayout(Arena &arena, Number element, Number attribute) {
    const Number last = arena.lastAttribute(element);
    const std::string layout = last == 0 ? std::string() : ownLine(arena.layout(last));
    arena.setLayout(attribute, layout.empty() ? " " : layout);
    arena.link(element, attribute, 0);
}

} // namespace quillon::xml
