#pragma once

#include <QtGlobal>

namespace quillon::items {

/// The items that a tree begins with, as somebody else keeps them; a TreeStore holds what differs
/// from them since. They never change, and all are collapsed.
///
/// Their slots are numbers from 1 on, not each of which need be one. 0 stands for the invisible
/// root above the top-level items, and for "none" otherwise. Apart from isItem(), what is asked
/// about a number that is no item's slot has no meaning.
class BaseItems {
public:
    using Slot = quint32;

    virtual ~BaseItems() = default;

    /// All slots are below this number.
    virtual Slot slotEnd() const = 0;
    /// Whether a number, whatever it is, is the slot of an item.
    virtual bool isItem(Slot slot) const = 0;

    virtual Slot parent(Slot slot) const = 0;
    virtual Slot next(Slot slot) const = 0;
    /// The sibling ahead of an item; of the first one the last.
    virtual Slot previousInCircle(Slot slot) const = 0;
    virtual Slot firstChild(Slot slot) const = 0;

    /// How many items there are.
    virtual quint32 count() const = 0;
    /// The 0-based place of an item among all, in the order in which they count as added: each
    /// ahead of what is below it, and that ahead of the next sibling.
    virtual quint32 indexOf(Slot slot) const = 0;
    /// The item at a place below count().
    virtual Slot at(quint32 index) const = 0;
    /// Whether one item has a smaller place than another one. Much faster than to compare two.
    virtual bool isEarlier(Slot one, Slot other) const = 0;
    /// The number in the item's key.
    virtual quint32 sequence(Slot slot) const = 0;

    /// The first of an item's children about which, and those behind it, isSurelyUnchanged() may be
    /// asked; 0 where that may not be, as these other items are no state of the same.
    virtual Slot comparableFrom(const BaseItems &before, Slot parent) const = 0;
    /// True when a child that is an item in both has the same next sibling in both. False says
    /// nothing: to find out must cost less than to ask for the sibling.
    virtual bool isSurelyUnchanged(const BaseItems &before, Slot slot) const = 0;
};

} // namespace quillon::items
