#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/storage/arena.h"

namespace quillon::xml {

/// The way from handles to the storage behind them, and back. For the parser service alone.
struct HandleAccess {
    static Arena &arena(const Node &node) { return static_cast<Arena &>(*node.arena_); }
    static Arena &arena(const DOMDocument40 &document) {
        return static_cast<Arena &>(*document.arena_);
    }
    static bool sameArena(const Node &a, const Node &b) { return a.arena_ == b.arena_; }
    static Node node(const Node &sibling, Number n) {
        return n == 0 ? Node() : Node(sibling.arena_, n);
    }
    static Node node(const DOMDocument40 &document, Number n) {
        return n == 0 ? Node() : Node(document.arena_, n);
    }
    static DOMDocument40 document(Ref<ArenaBase> arena) { return DOMDocument40(std::move(arena)); }
    static Ref<ArenaBase> arenaRef(const Node &node) { return node.arena_; }
};

} // namespace quillon::xml
