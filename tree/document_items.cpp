#include "tree/document_items.h"

#include "platform/xml/dom/document_states.h"
#include "tree/node_keys.h"

namespace quillon::tree {

DocumentItems::DocumentItems(const xml::DOMDocument40 &document, Keys keys)
    : links_(document.clone()), offset_(links_.documentNumber() - DocumentSlot),
      isAsRead_(links_.isAsRead()) {
    if (keys == Keys::Taken)
        firstSequence_ = takeNodeSequences(count());
}

bool DocumentItems::isItem(Slot slot) const {
    if (slot == 0 || slot >= slotEnd() || !links_.isNode(slot + offset_))
        return false;
    if (isAsRead_)
        return true;
    // Up to the first one that is known, so that a chain of items that are asked about one by one
    // is not climbed anew for each.
    Slot above = slot;
    while (above > DocumentSlot && !standing_.testIfAny(above))
        above = parent(above);
    if (above == 0)
        return false;
    for (Slot at = slot; at != above; at = parent(at)) {
        standing_.grow(at + 1);
        standing_.set(at);
    }
    return true;
}

DocumentItems::Slot DocumentItems::previousInCircle(Slot slot) const {
    if (slot == DocumentSlot)
        return slot;
    const xml::Number previous = links_.previous(slot + offset_);
    return slotOf(previous != 0 ? previous : links_.lastBelow(links_.parent(slot + offset_)));
}

quint32 DocumentItems::count() const {
    if (isAsRead_)
        return links_.nodeCount();
    makePlaces();
    return count_;
}

quint32 DocumentItems::indexOf(Slot slot) const {
    if (isAsRead_)
        return links_.nodesBefore(slot + offset_);
    makePlaces();
    return places_[slot];
}

DocumentItems::Slot DocumentItems::at(quint32 index) const {
    if (isAsRead_)
        return slotOf(links_.nthNode(index));
    if (order_.empty()) {
        for (Slot slot = DocumentSlot; slot != 0; slot = following(slot))
            order_.push_back(slot);
    }
    return order_[index];
}

bool DocumentItems::isEarlier(Slot one, Slot other) const {
    if (isAsRead_)
        return one < other;
    makePlaces();
    return places_[one] < places_[other];
}

quint32 DocumentItems::sequence(Slot slot) const {
    if (firstSequence_ != 0)
        return firstSequence_ + indexOf(slot);
    quint32 &sequence = sequences_[slot];
    if (sequence == 0)
        sequence = takeNodeSequences(1);
    return sequence;
}

DocumentItems::Slot DocumentItems::comparableFrom(const BaseItems &before, Slot parent) const {
    const auto *other = dynamic_cast<const DocumentItems *>(&before);
    const bool isOfSame = other != nullptr && other->offset_ == offset_ &&
                          xml::haveCommonOrigin(links_.document(), other->links_.document());
    // What follows the last attribute, the element knows.
    return isOfSame && firstChild(parent) != 0 ? slotOf(links_.firstChild(parent + offset_)) : 0;
}

bool DocumentItems::hasReference() const {
    if (!links_.hasHadReference())
        return false;
    Slot slot = DocumentSlot;
    while (slot != 0 && links_.kind(slot + offset_) != xml::NodeType::EntityReference)
        slot = following(slot);
    return slot != 0;
}

DocumentItems::Slot DocumentItems::following(Slot slot) const {
    if (const Slot child = firstChild(slot); child != 0)
        return child;
    while (slot != 0 && next(slot) == 0)
        slot = parent(slot);
    return slot == 0 ? 0 : next(slot);
}

void DocumentItems::makePlaces() const {
    if (!places_.empty())
        return;
    places_.resize(slotEnd());
    for (Slot slot = DocumentSlot; slot != 0; slot = following(slot))
        places_[slot] = count_++;
}

} // namespace quillon::tree
