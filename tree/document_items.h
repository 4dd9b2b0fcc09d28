#pragma once

#include "platform/items/base_items.h"
#include "platform/items/tree_bits.h"
#include "platform/xml/dom/document_links.h"

#include <QHash>

#include <vector>

namespace quillon::tree {

/// The items of a tree that shows a whole document, derived from the document's own links: below an
/// element its attributes, then its children. Nothing is kept for an item, so a tree of any size is
/// there at once. The slot of an item is the number of its node, counted from the document on as 1.
class DocumentItems final : public items::BaseItems {
public:
    /// How items come by the numbers in their keys.
    enum class Keys {
        /// All at once, one after the other in the order of the items.
        Taken,
        /// Each when it is asked for: a tree that is built anew takes none.
        WhenAsked,
    };

    /// Keeps a copy of the document as it is now. Raises Overflow where it is to take keys and
    /// there are not as many left.
    DocumentItems(const xml::DOMDocument40 &document, Keys keys);

    Slot slotEnd() const override { return links_.numberEnd() - offset_; }
    bool isItem(Slot slot) const override;
    Slot parent(Slot slot) const override { return slotOf(links_.parent(slot + offset_)); }
    Slot next(Slot slot) const override { return slotOf(links_.next(slot + offset_)); }
    Slot previousInCircle(Slot slot) const override;
    Slot firstChild(Slot slot) const override {
        return slot == 0 ? DocumentSlot : slotOf(links_.firstBelow(slot + offset_));
    }
    quint32 count() const override;
    quint32 indexOf(Slot slot) const override;
    Slot at(quint32 index) const override;
    bool isEarlier(Slot one, Slot other) const override;
    quint32 sequence(Slot slot) const override;
    Slot comparableFrom(const BaseItems &before, Slot parent) const override;
    bool isSurelyUnchanged(const BaseItems &before, Slot slot) const override {
        return links_.isSurelySame(static_cast<const DocumentItems &>(before).links_,
                                   slot + offset_);
    }

    /// Whether there is an item for a reference to an entity.
    bool hasReference() const;

private:
    static constexpr Slot DocumentSlot = 1;

    Slot slotOf(xml::Number n) const { return n == 0 ? 0 : n - offset_; }
    /// The item behind another one in their order; 0 behind the last one.
    Slot following(Slot slot) const;
    void makePlaces() const;

    const xml::DocumentLinks links_;
    /// The number of the node in slot 0, if there were one.
    const xml::Number offset_;
    const bool isAsRead_;
    /// The number in the key of the first item; 0 where they are given when asked for.
    quint32 firstSequence_ = 0;
    mutable QHash<Slot, quint32> sequences_;

    // The rest is for documents that have been changed, and made when first asked for.

    /// Slots that are known to be items.
    mutable items::BitRow standing_;
    /// By slot, the place of an item.
    mutable std::vector<quint32> places_;
    mutable std::vector<Slot> order_;
    mutable quint32 count_ = 0;
};

} // namespace quillon::tree
