#pragma once

#include "platform/items/base_items.h"
#include "platform/items/tree_bits.h"

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace quillon::items {

/// How the items of a tree hang together, and nothing else. Every operation is a loop, whatever the
/// depth.
///
/// What a tree begins with may be kept by somebody else, as BaseItems; of these only what differs
/// is held here. What is added takes 20 bytes and two bits an item.
///
/// A slot is what an item is known by. Slot 0 is the invisible root above all top-level items,
/// which makes 0 free to mean "none" wherever a sibling, a child or a place to insert is named.
/// Slots of added items come behind those of the base, ascend in the order in which items were
/// added and are not used again before reset().
class TreeStore {
public:
    using Slot = BaseItems::Slot;
    static constexpr Slot Root = 0;

    /// Forgets everything and begins with other items, or with none. Long lists of children are
    /// made from what was known of them, as far as it is still right.
    void reset(std::shared_ptr<const BaseItems> base = {});

    /// Whether a slot that has been an item's since reset() is one still.
    bool isLive(Slot slot) const {
        return slot != Root && slot < slotCount() && !gone_.testIfAny(slot);
    }
    /// Whether a number, whatever it is, is the slot of an item.
    bool isItem(Slot slot) const { return isLive(slot) && (!isBase(slot) || base_->isItem(slot)); }
    /// All slots are below this number.
    Slot slotCount() const { return firstAdded_ + static_cast<Slot>(added_.size()); }
    /// The slots of added items begin here.
    Slot firstAdded() const { return firstAdded_; }
    /// The number in the key of an item.
    quint32 sequenceOf(Slot slot) const {
        return isBase(slot) ? base_->sequence(slot) : added_[slot - firstAdded_].sequence;
    }

    /// Raises InvalidProcedureCall unless the number is positive and greater than that of every
    /// item added since reset().
    void checkSequence(quint32 sequence) const;
    /// Adds an item under parent, before the child `before` (0: as the last one). Raises as
    /// checkSequence() does.
    Slot insert(quint32 sequence, Slot parent, Slot before);
    /// Removes an item with everything below it; calls removed(slot) for each.
    template <typename F>
    void remove(Slot top, F &&removed) {
        unlink(top);
        live_.reset();
        gone_.grow(slotCount());
        for (Slot slot = top; slot != 0; slot = nextInSubtree(slot, top)) {
            gone_.set(slot);
            expanded_.resetIfAny(slot);
            children_.erase(slot);
            removed(slot);
        }
    }

    Slot parent(Slot slot) const {
        return isAsInBase(slot) ? base_->parent(slot) : links(slot).parent;
    }
    Slot next(Slot slot) const { return isAsInBase(slot) ? base_->next(slot) : links(slot).next; }
    Slot firstChild(Slot slot) const {
        return isAsInBase(slot) ? base_->firstChild(slot) : links(slot).firstChild;
    }
    Slot previous(Slot slot) const {
        if (firstChild(parent(slot)) == slot)
            return 0;
        return isAsInBase(slot) ? base_->previousInCircle(slot) : links(slot).previous;
    }
    /// The item after slot in document order, within the subtree of top; 0 at its end.
    Slot nextInSubtree(Slot slot, Slot top) const {
        const Slot child = firstChild(slot);
        return child != 0 ? child : nextOutside(slot, top);
    }
    /// The same, leaving out what is below slot.
    Slot nextOutside(Slot slot, Slot top) const {
        for (; slot != top; slot = parent(slot)) {
            if (const Slot sibling = next(slot); sibling != 0)
                return sibling;
        }
        return 0;
    }
    /// The number of ancestors; 0 for a top-level item.
    int level(Slot slot) const;
    bool isAncestor(Slot ancestor, Slot slot) const;

    /// The children of an item as an array. It is made when first asked for and kept right from
    /// then on; it ends with the item or with reset().
    const std::vector<Slot> &children(Slot parent) const { return childList(parent).slots; }
    /// That array if it is there, else null.
    const std::vector<Slot> *knownChildren(Slot parent) const {
        const auto list = children_.find(parent);
        return list != children_.end() ? &list->second.slots : nullptr;
    }
    /// Counts without making that array.
    quint32 childCount(Slot parent) const;
    /// 0-based position among the siblings.
    quint32 row(Slot slot) const;

    /// How many items there are.
    quint32 count() const;
    bool isEmpty() const { return firstChild(Root) == 0; }
    /// The 0-based place of an item among all, in the order in which they were added; and the item
    /// at a place below count().
    quint32 indexOf(Slot slot) const;
    Slot at(quint32 index) const;
    /// Whether one item has a smaller place than another one. Much faster than to compare two.
    bool isEarlier(Slot one, Slot other) const {
        return isBase(one) && isBase(other) ? base_->isEarlier(one, other) : one < other;
    }

    bool isExpanded(Slot slot) const { return expanded_.testIfAny(slot); }
    void setExpanded(Slot slot, bool on);
    /// The items that are expanded.
    const BitRow &expanded() const { return expanded_; }

private:
    struct Links {
        Slot parent = 0;
        Slot next = 0;
        /// Circular: the first child has the last one here, which makes appending cheap.
        Slot previous = 0;
        Slot firstChild = 0;
    };
    struct Added {
        Links links;
        quint32 sequence;
    };
    struct ChildList {
        std::vector<Slot> slots;
        /// The row that was asked for last.
        mutable std::size_t latest = 0;
    };

    bool isBase(Slot slot) const { return slot < firstAdded_ && slot != Root; }
    bool isAsInBase(Slot slot) const { return isBase(slot) && !changed_.testIfAny(slot); }
    /// Those of any item that are not as in the base; for writing, of any item.
    const Links &links(Slot slot) const {
        if (slot >= firstAdded_)
            return added_[slot - firstAdded_].links;
        return slot == Root ? root_ : changedLinks_.find(slot)->second;
    }
    Links &writeLinks(Slot slot);
    void link(Slot slot, Slot parent, Slot before);
    void unlink(Slot slot);
    const ChildList &childList(Slot parent) const;
    /// The children of an item, of which `known` were some before, in another tree.
    std::vector<Slot> childrenFrom(const TreeStore &before, const std::vector<Slot> &known,
                                   Slot parent) const;
    quint32 baseCount() const { return base_ ? base_->count() : 0; }
    /// The place that an item would have if none had been removed.
    quint32 placeOf(Slot slot) const {
        return isBase(slot) ? base_->indexOf(slot) : baseCount() + slot - firstAdded_;
    }
    /// These places, with a bit set for each item that is there still.
    const BitRow &livePlaces() const;

    std::shared_ptr<const BaseItems> base_;
    Slot firstAdded_ = 1;
    Links root_;
    std::vector<Added> added_;
    /// Of the base's items those that have other links now, and these. The bits spare most
    /// questions a look into the table.
    BitRow changed_;
    std::unordered_map<Slot, Links> changedLinks_;
    BitRow gone_;
    BitRow expanded_;
    mutable std::unordered_map<Slot, ChildList> children_;
    /// Made when first asked for, as hardly anybody does in a large tree; kept until an item goes.
    mutable std::optional<BitRow> live_;
};

} // namespace quillon::items
