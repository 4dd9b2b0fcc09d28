#include "platform/items/tree_store.h"

#include "platform/runtime/error.h"

#include <algorithm>

namespace quillon::items {

void TreeStore::clear() {
    links_ = std::vector<Links>(1);
    live_.clear();
    expanded_.clear();
    live_.grow(1);
    expanded_.grow(1);
    children_.clear();
}

void TreeStore::reserve(quint32 items) {
    const size_t size = links_.size() + items;
    if (size <= links_.capacity())
        return;
    // Room for later insertions too, so that the first one does not copy everything. Memory that
    // is not written to costs address space only.
    const size_t roomy = size + size / 4;
    links_.reserve(roomy);
    live_.reserve(static_cast<quint32>(roomy));
    expanded_.reserve(static_cast<quint32>(roomy));
}

void TreeStore::checkSequence(quint32 sequence) const {
    if (sequence == 0 || (links_.size() > 1 && sequence <= sequenceOf(lastSlot())))
        runtime::raise(runtime::error_number::InvalidProcedureCall);
}

TreeStore::Slot TreeStore::insert(quint32 sequence, Slot parent, Slot before) {
    checkSequence(sequence);
    if (links_.size() == 1)
        base_ = sequence - 1;
    const Slot slot = sequence - base_;
    links_.resize(size_t{slot} + 1);
    live_.grow(slot + 1);
    expanded_.grow(slot + 1);
    live_.set(slot);
    link(slot, parent, before);
    return slot;
}

void TreeStore::link(Slot slot, Slot parent, Slot before) {
    if (!children_.empty()) {
        if (const auto list = children_.find(parent); list != children_.end()) {
            auto &slots = list->second;
            const quint32 at = before != 0 ? row(before) : static_cast<quint32>(slots.size());
            slots.insert(slots.begin() + at, slot);
            links_[slot].rowHint = at;
        }
    }
    Links &own = links_[slot];
    Slot &first = links_[parent].firstChild;
    own.parent = parent;
    own.next = before;
    if (first == 0) {
        first = own.previous = slot;
        return;
    }
    // In the circle the place after the last child is the place before the first.
    Links &successor = links_[before != 0 ? before : first];
    own.previous = successor.previous;
    successor.previous = slot;
    if (before == first)
        first = slot;
    else
        links_[own.previous].next = slot;
}

void TreeStore::unlink(Slot slot) {
    const Links own = links_[slot];
    if (const auto list = children_.find(own.parent); list != children_.end())
        list->second.erase(list->second.begin() + row(slot));
    Slot &first = links_[own.parent].firstChild;
    if (first == slot)
        first = own.next;
    else
        links_[own.previous].next = own.next;
    if (const Slot successor = own.next != 0 ? own.next : first; successor != 0)
        links_[successor].previous = own.previous;
}

int TreeStore::level(Slot slot) const {
    int level = 0;
    while ((slot = parent(slot)) != Root)
        ++level;
    return level;
}

bool TreeStore::isAncestor(Slot ancestor, Slot slot) const {
    while (slot != Root) {
        slot = parent(slot);
        if (slot == ancestor)
            return true;
    }
    return false;
}

const std::vector<TreeStore::Slot> &TreeStore::children(Slot parent) const {
    const auto [list, isNew] = children_.try_emplace(parent);
    if (isNew) {
        for (Slot child = firstChild(parent); child != 0; child = next(child)) {
            links_[child].rowHint = static_cast<quint32>(list->second.size());
            list->second.push_back(child);
        }
    }
    return list->second;
}

quint32 TreeStore::childCount(Slot parent) const {
    if (const auto list = children_.find(parent); list != children_.end())
        return static_cast<quint32>(list->second.size());
    quint32 count = 0;
    for (Slot child = firstChild(parent); child != 0; child = next(child))
        ++count;
    return count;
}

quint32 TreeStore::row(Slot slot) const {
    const Links &own = links_[slot];
    // Spares long chains an array for each of their items.
    if (firstChild(own.parent) == slot)
        return 0;
    const auto &siblings = children(own.parent);
    const auto size = static_cast<quint32>(siblings.size());
    const quint32 hint = std::min(own.rowHint, size - 1);
    for (quint32 distance = 0;; ++distance) {
        if (hint + distance < size && siblings[hint + distance] == slot)
            return own.rowHint = hint + distance;
        if (distance <= hint && siblings[hint - distance] == slot)
            return own.rowHint = hint - distance;
    }
}

} // namespace quillon::items
