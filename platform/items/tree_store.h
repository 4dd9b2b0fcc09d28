#pragma once

#include "platform/items/tree_bits.h"

#include <unordered_map>
#include <vector>

namespace quillon::items {

/// How the items of a tree hang together, and nothing else: flat arrays, 20 bytes and two bits an
/// item. Every operation is a loop, whatever the depth.
///
/// A slot is an item's place in the arrays. Slot 0 is the invisible root above all top-level items,
/// which makes 0 free to mean "none" wherever a sibling, a child or a place to insert is named.
/// Slots ascend in the order in which items were added and are not used again before clear().
class TreeStore {
public:
    using Slot = quint32;
    static constexpr Slot Root = 0;

    TreeStore() { clear(); }

    void clear();
    void reserve(quint32 items);

    /// Slot of the live item with that sequence number, or 0.
    Slot slotOf(quint32 sequence) const {
        const Slot slot = sequence - base_;
        return isLive(slot) ? slot : 0;
    }
    bool isLive(Slot slot) const { return slot < links_.size() && live_.test(slot); }
    /// All slots are below this number.
    quint32 slotCount() const { return static_cast<quint32>(links_.size()); }
    quint32 sequenceOf(Slot slot) const { return slot + base_; }

    /// Raises InvalidProcedureCall unless the number is positive and greater than that of every
    /// item added since clear().
    void checkSequence(quint32 sequence) const;
    /// Adds an item under parent, before the child `before` (0: as the last one). Raises as
    /// checkSequence() does. Numbers left out cost as much memory as items.
    Slot insert(quint32 sequence, Slot parent, Slot before);
    /// Removes an item with everything below it; calls removed(slot) for each.
    template <typename F>
    void remove(Slot top, F &&removed) {
        unlink(top);
        for (Slot slot = top; slot != 0; slot = nextInSubtree(slot, top)) {
            live_.reset(slot);
            expanded_.reset(slot);
            children_.erase(slot);
            removed(slot);
        }
    }

    Slot parent(Slot slot) const { return links_[slot].parent; }
    Slot next(Slot slot) const { return links_[slot].next; }
    Slot firstChild(Slot slot) const { return links_[slot].firstChild; }
    Slot previous(Slot slot) const {
        return firstChild(parent(slot)) == slot ? 0 : links_[slot].previous;
    }
    /// The item after slot in document order, within the subtree of top; 0 at its end.
    Slot nextInSubtree(Slot slot, Slot top) const {
        return firstChild(slot) != 0 ? firstChild(slot) : nextOutside(slot, top);
    }
    /// The same, leaving out what is below slot.
    Slot nextOutside(Slot slot, Slot top) const {
        while (slot != top && next(slot) == 0)
            slot = parent(slot);
        return slot == top ? 0 : next(slot);
    }
    /// The number of ancestors; 0 for a top-level item.
    int level(Slot slot) const;
    bool isAncestor(Slot ancestor, Slot slot) const;

    /// The children of an item as an array. It is made when first asked for and kept right from
    /// then on; it ends with the item or with clear().
    const std::vector<Slot> &children(Slot parent) const;
    /// Counts without making that array.
    quint32 childCount(Slot parent) const;
    /// 0-based position among the siblings.
    quint32 row(Slot slot) const;

    /// The items there are, and those among them that are expanded.
    const BitRow &live() const { return live_; }
    const BitRow &expanded() const { return expanded_; }
    void setExpanded(Slot slot, bool on) { on ? expanded_.set(slot) : expanded_.reset(slot); }

private:
    struct Links {
        Slot parent = 0;
        Slot next = 0;
        /// Circular: the first child has the last one here, which makes appending cheap.
        Slot previous = 0;
        Slot firstChild = 0;
        /// Where the item was last seen in the array of its siblings. Insertions and removals
        /// leave it as it is; row() searches from there and puts it right.
        mutable quint32 rowHint = 0;
    };

    Slot lastSlot() const { return static_cast<Slot>(links_.size() - 1); }
    void link(Slot slot, Slot parent, Slot before);
    void unlink(Slot slot);

    std::vector<Links> links_;
    BitRow live_;
    BitRow expanded_;
    /// Sequence number of slot 0.
    quint32 base_ = 0;
    mutable std::unordered_map<Slot, std::vector<Slot>> children_;
};

} // namespace quillon::items
