#include "tree/node_registry.h"

namespace quillon::tree {

using items::TreeItem;
using items::TreeStore;

void NodeRegistry::reset(const xml::DOMDocument40 &document) {
    document_ = document;
    offset_ = document_ ? document_.node().number() - 1 : 0;
    added_.clear();
    changed_.clear();
    slots_.clear();
}

quint32 NodeRegistry::numberAt(Slot slot) const {
    const Slot firstAdded = nodes_.store().firstAdded();
    if (slot >= firstAdded)
        return slot - firstAdded < added_.size() ? added_[slot - firstAdded] : 0;
    if (slot == TreeStore::Root)
        return 0;
    return changed_.isEmpty() ? slot + offset_ : changed_.value(slot, slot + offset_);
}

void NodeRegistry::setNumber(const TreeItem &item, quint32 number) {
    const Slot slot = nodes_.slotOf(item);
    if (slot == TreeStore::Root || numberAt(slot) == number)
        return;
    const Slot firstAdded = nodes_.store().firstAdded();
    if (slot < firstAdded) {
        changed_[slot] = number;
    } else {
        if (slot - firstAdded >= added_.size())
            added_.resize(slot - firstAdded + 1);
        added_[slot - firstAdded] = number;
    }
    // Where several items show a node, it is the first one's.
    Slot &known = slots_[number];
    if (!shows(known, number))
        known = slot;
}

void NodeRegistry::Remove(const TreeItem &item) {
    const TreeStore &store = nodes_.store();
    const Slot top = nodes_.slotOf(item);
    for (Slot slot = slots_.isEmpty() ? 0 : top; slot != 0; slot = store.nextInSubtree(slot, top)) {
        if (const auto known = slots_.constFind(numberAt(slot));
            known != slots_.constEnd() && *known == slot)
            slots_.erase(known);
        changed_.remove(slot);
    }
}

xml::Node NodeRegistry::Item(const TreeItem &item) const {
    const quint32 n = number(item);
    return n == 0 || isEmpty() ? xml::Node() : document_.nodeByNumber(n);
}

TreeItem NodeRegistry::itemOf(quint32 number) const {
    const TreeStore &store = nodes_.store();
    if (const Slot slot = number - offset_; number > offset_ && slot < store.firstAdded() &&
                                            numberAt(slot) == number && store.isItem(slot))
        return nodes_.item(slot);
    const auto known = slots_.constFind(number);
    return known != slots_.constEnd() && shows(*known, number) ? nodes_.item(*known) : TreeItem();
}

} // namespace quillon::tree
