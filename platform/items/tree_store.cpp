#include "platform/items/tree_store.h"

#include "platform/runtime/error.h"

#include <algorithm>
#include <utility>

namespace quillon::items {

namespace {

/// Where a slot stands in a list whose slots ascend. Among those that do not, any place.
std::size_t placeIfAscending(const std::vector<TreeStore::Slot> &slots, TreeStore::Slot slot) {
    std::size_t first = 0;
    for (std::size_t count = slots.size(); count > 0;) {
        const std::size_t half = count / 2;
        const bool isBehind = slots[first + half] < slot;
        first += isBehind ? half + 1 : 0;
        count = isBehind ? count - half - 1 : half;
    }
    return first;
}

} // namespace

void TreeStore::reset(std::shared_ptr<const BaseItems> base) {
    const TreeStore before = std::exchange(*this, TreeStore());
    base_ = std::move(base);
    if (!base_)
        return;
    firstAdded_ = std::max<Slot>(base_->slotEnd(), 1);
    root_.firstChild = base_->firstChild(Root);
    if (!before.base_)
        return;
    // Shorter ones are made as quickly when they are asked for, and most are not.
    constexpr std::size_t Long = 1000;
    for (const auto &[parent, list] : before.children_) {
        const bool isKept = list.slots.size() >= Long && isItem(parent) &&
                            base_->comparableFrom(*before.base_, parent) != 0;
        if (isKept)
            children_[parent] = {childrenFrom(before, list.slots, parent), list.latest};
    }
}

std::vector<TreeStore::Slot> TreeStore::childrenFrom(const TreeStore &before,
                                                     const std::vector<Slot> &known,
                                                     Slot parent) const {
    std::vector<Slot> slots;
    slots.reserve(known.size());
    const Slot comparableFrom = base_->comparableFrom(*before.base_, parent);
    bool isComparable = false;
    // Where the child is, or would be, among those known.
    std::size_t at = 0;
    for (Slot child = base_->firstChild(parent); child != 0;) {
        slots.push_back(child);
        isComparable = isComparable || child == comparableFrom;
        if (at >= known.size() || known[at] != child)
            at = placeIfAscending(known, child);
        const bool isKnown = at < known.size() && known[at] == child;
        at += isKnown ? 1 : 0;
        // What is as it was in the base before has the sibling there that it has in the list.
        if (isComparable && isKnown && before.isAsInBase(child) &&
            base_->isSurelyUnchanged(*before.base_, child))
            child = at < known.size() ? known[at] : 0;
        else
            child = base_->next(child);
    }
    return slots;
}

void TreeStore::checkSequence(quint32 sequence) const {
    if (sequence == 0 || (!added_.empty() && sequence <= added_.back().sequence))
        runtime::raise(runtime::error_number::InvalidProcedureCall);
}

TreeStore::Slot TreeStore::insert(quint32 sequence, Slot parent, Slot before) {
    checkSequence(sequence);
    const Slot slot = slotCount();
    added_.push_back({{}, sequence});
    if (live_) {
        const quint32 place = placeOf(slot);
        live_->grow(place + 1);
        live_->set(place);
    }
    link(slot, parent, before);
    return slot;
}

TreeStore::Links &TreeStore::writeLinks(Slot slot) {
    if (isAsInBase(slot)) {
        changed_.grow(firstAdded_);
        changed_.set(slot);
        return changedLinks_[slot] = {base_->parent(slot), base_->next(slot),
                                      base_->previousInCircle(slot), base_->firstChild(slot)};
    }
    return const_cast<Links &>(links(slot));
}

void TreeStore::link(Slot slot, Slot parent, Slot before) {
    if (const auto list = children_.find(parent); list != children_.end()) {
        auto &slots = list->second.slots;
        const quint32 at = before != 0 ? row(before) : static_cast<quint32>(slots.size());
        slots.insert(slots.begin() + at, slot);
    }
    Links &own = writeLinks(slot);
    Slot &first = writeLinks(parent).firstChild;
    own.parent = parent;
    own.next = before;
    if (first == 0) {
        first = own.previous = slot;
        return;
    }
    // In the circle the place after the last child is the place before the first.
    Links &successor = writeLinks(before != 0 ? before : first);
    own.previous = successor.previous;
    successor.previous = slot;
    if (before == first)
        first = slot;
    else
        writeLinks(own.previous).next = slot;
}

void TreeStore::unlink(Slot slot) {
    const Links own = writeLinks(slot);
    if (const auto list = children_.find(own.parent); list != children_.end())
        list->second.slots.erase(list->second.slots.begin() + row(slot));
    Slot &first = writeLinks(own.parent).firstChild;
    if (first == slot)
        first = own.next;
    else
        writeLinks(own.previous).next = own.next;
    if (const Slot successor = own.next != 0 ? own.next : first; successor != 0)
        writeLinks(successor).previous = own.previous;
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

const TreeStore::ChildList &TreeStore::childList(Slot parent) const {
    const auto [list, isNew] = children_.try_emplace(parent);
    if (isNew) {
        for (Slot child = firstChild(parent); child != 0; child = next(child))
            list->second.slots.push_back(child);
    }
    return list->second;
}

quint32 TreeStore::childCount(Slot parent) const {
    if (const auto list = children_.find(parent); list != children_.end())
        return static_cast<quint32>(list->second.slots.size());
    quint32 count = 0;
    for (Slot child = firstChild(parent); child != 0; child = next(child))
        ++count;
    return count;
}

quint32 TreeStore::row(Slot slot) const {
    const Slot above = parent(slot);
    // Spares long chains an array for each of their items.
    if (firstChild(above) == slot)
        return 0;
    const ChildList &list = childList(above);
    const std::vector<Slot> &slots = list.slots;
    // Questions come in clusters, so the answer is mostly close to the one before.
    constexpr std::size_t Near = 256;
    const std::size_t low = std::min(list.latest - std::min(list.latest, Near), slots.size());
    const std::size_t high = std::min(list.latest + Near, slots.size());
    auto found =
        std::find(slots.begin() + std::ptrdiff_t(low), slots.begin() + std::ptrdiff_t(high), slot);
    if (found == slots.begin() + std::ptrdiff_t(high)) {
        const std::size_t guess = placeIfAscending(slots, slot);
        found = guess < slots.size() && slots[guess] == slot
                    ? slots.begin() + std::ptrdiff_t(guess)
                    : std::find(slots.begin(), slots.end(), slot);
    }
    list.latest = static_cast<std::size_t>(found - slots.begin());
    return static_cast<quint32>(list.latest);
}

quint32 TreeStore::count() const {
    return baseCount() + static_cast<quint32>(added_.size()) - gone_.count();
}

const BitRow &TreeStore::livePlaces() const {
    if (!live_) {
        const quint32 places = baseCount() + static_cast<quint32>(added_.size());
        live_.emplace();
        live_->grow(std::max(places, 1U));
        for (quint32 place = 0; place < places; ++place)
            live_->set(place);
        gone_.forEach([&](Slot slot) { live_->reset(placeOf(slot)); });
    }
    return *live_;
}

quint32 TreeStore::indexOf(Slot slot) const {
    return livePlaces().rank(placeOf(slot));
}

TreeStore::Slot TreeStore::at(quint32 index) const {
    // The first item is asked for all the time.
    if (index == 0 && base_ && isLive(base_->firstChild(Root)))
        return base_->firstChild(Root);
    const quint32 place = livePlaces().select(index);
    return place < baseCount() ? base_->at(place) : firstAdded_ + place - baseCount();
}

void TreeStore::setExpanded(Slot slot, bool on) {
    if (!on) {
        expanded_.resetIfAny(slot);
        return;
    }
    expanded_.grow(slot + 1);
    expanded_.set(slot);
}

} // namespace quillon::items
