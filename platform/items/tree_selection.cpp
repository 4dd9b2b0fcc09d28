#include "platform/items/tree.h"

#include <algorithm>

namespace quillon::items {

// Several selected items. The selection model holds the current one alone: it keeps ranges of
// siblings, which take quadratic time for thousands of items spread over the tree.

bool Tree::isSelected(const TreeItem &item) const {
    const Slot slot = nodes_.slotOf(item);
    return slot != 0 && (others_.testIfAny(slot) || item == SelectedItem());
}

int Tree::selectedCount() const {
    return static_cast<int>(others_.count()) + (SelectedItem() ? 1 : 0);
}

std::vector<TreeItem> Tree::selectedItems() const {
    std::vector<TreeItem> items;
    const TreeItem current = SelectedItem();
    if (!current)
        return items;
    const Slot currentSlot = nodes_.slotOf(current);
    if (others_.count() == 0)
        return {current};
    // All of them are in sight.
    const auto count = static_cast<std::size_t>(selectedCount());
    items.reserve(count);
    for (int row = 0; items.size() < count && row < rows_.count(); ++row) {
        if (const Slot slot = rows_.at(row); slot == currentSlot || others_.testIfAny(slot))
            items.push_back(nodes_.item(slot));
    }
    return items;
}

std::vector<TreeItem> Tree::topmostSelectedItems() const {
    const TreeStore &store = nodes_.store();
    std::vector<TreeItem> all = selectedItems();
    if (all.size() < 2)
        return all;
    std::vector<TreeItem> topmost;
    // The row behind what is below the last one taken: everything ahead of it goes with that one.
    auto next = all.begin();
    for (int row = 0; next != all.end() && row < rows_.count(); ++row) {
        const Slot slot = rows_.at(row);
        if (slot != nodes_.slotOf(*next))
            continue;
        topmost.push_back(*next++);
        const Slot behind = store.nextOutside(slot, TreeStore::Root);
        while (row + 1 < rows_.count() && rows_.at(row + 1) != behind) {
            ++row;
            if (next != all.end() && rows_.at(row) == nodes_.slotOf(*next))
                ++next;
        }
    }
    return topmost;
}

BitRow Tree::noOthers() const {
    BitRow none;
    none.grow(nodes_.store().slotCount());
    return none;
}

void Tree::select(BitRow others, Slot current) {
    others.grow(nodes_.store().slotCount());
    others.reset(current);
    others_ = std::move(others);
    isSelectingSeveral_ = true;
    selection_.setCurrentIndex(nodes_.indexOf(current), QItemSelectionModel::ClearAndSelect);
    isSelectingSeveral_ = false;
    Q_EMIT otherSelectedItemsChanged();
}

void Tree::selectItems(const std::vector<TreeItem> &items, const TreeItem &current) {
    if (!current)
        return;
    expandAbove(items);
    nodes_.expandAncestors(current);
    BitRow others = noOthers();
    for (const TreeItem &item : items) {
        if (const Slot slot = nodes_.slotOf(item))
            others.set(slot);
    }
    anchor_ = current;
    select(std::move(others), nodes_.slotOf(current));
    Q_EMIT nodes_.revealRequested(current);
}

void Tree::expandAbove(const std::vector<TreeItem> &items) {
    // Each item above them is looked at once, however many there are below it.
    const TreeStore &store = nodes_.store();
    BitRow done = noOthers();
    for (const TreeItem &item : items) {
        const Slot slot = nodes_.slotOf(item);
        if (slot == 0)
            continue;
        for (Slot at = store.parent(slot); at != TreeStore::Root && !done.test(at);
             at = store.parent(at)) {
            done.set(at);
            nodes_.item(at).setExpanded(true);
        }
    }
}

void Tree::bringBack(const Selected &before) {
    const Slot current = nodes_.slotOf(before.current);
    if (current == 0)
        return;
    BitRow others = noOthers();
    before.others.forEach([&](Slot slot) {
        if (rows_.isShown(slot))
            others.set(slot);
    });
    anchor_ = before.current;
    isSelectingInPlace_ = true;
    select(std::move(others), current);
    isSelectingInPlace_ = false;
}

void Tree::toggleSelected(const TreeItem &item) {
    const Slot slot = nodes_.slotOf(item);
    const Slot current = nodes_.slotOf(SelectedItem());
    if (slot == 0)
        return;
    anchor_ = item;
    BitRow others = others_;
    others.grow(nodes_.store().slotCount());
    if (slot != current) {
        const bool wasSelected = others.test(slot);
        wasSelected ? others.reset(slot) : others.set(slot);
        if (!wasSelected && current != 0)
            others.set(current);
        select(std::move(others), wasSelected ? current : slot);
        return;
    }
    if (others.count() == 0)
        return;
    // The nearest of the others takes its place.
    const std::vector<TreeItem> all = selectedItems();
    const auto at = std::find(all.begin(), all.end(), item);
    select(std::move(others), nodes_.slotOf(at + 1 != all.end() ? *(at + 1) : *(at - 1)));
}

void Tree::extendSelection(const TreeItem &to, const Selected &before) {
    const bool hasAnchor = rows_.isShown(nodes_.slotOf(anchor_));
    selectRange(hasAnchor ? anchor_ : SelectedItem() ? SelectedItem() : to, to, before);
}

void Tree::selectRange(const TreeItem &from, const TreeItem &to, const Selected &before) {
    const int first = rows_.rowOf(nodes_.slotOf(from));
    const int last = rows_.rowOf(nodes_.slotOf(to));
    if (first < 0 || last < 0)
        return;
    anchor_ = from;
    BitRow others = before.others;
    others.grow(nodes_.store().slotCount());
    if (const Slot slot = nodes_.slotOf(before.current))
        others.set(slot);
    for (int row = std::min(first, last); row <= std::max(first, last); ++row)
        others.set(rows_.at(row));
    select(std::move(others), nodes_.slotOf(to));
}

void Tree::makeCurrent(const TreeItem &item) {
    if (!isSelected(item) || item == SelectedItem())
        return;
    BitRow others = others_;
    others.set(nodes_.slotOf(SelectedItem()));
    anchor_ = item;
    select(std::move(others), nodes_.slotOf(item));
}

void Tree::selectOnlyCurrent() {
    anchor_ = SelectedItem();
    if (others_.count() == 0)
        return;
    others_ = BitRow();
    Q_EMIT otherSelectedItemsChanged();
}

void Tree::followCurrent() {
    if (!isSelectingSeveral_)
        selectOnlyCurrent();
}

void Tree::dropOthersFrom(Slot top) {
    const TreeStore &store = nodes_.store();
    const quint32 before = others_.count();
    for (Slot slot = top; slot != 0 && others_.count() != 0; slot = store.nextInSubtree(slot, top))
        others_.resetIfAny(slot);
    if (others_.count() != before)
        Q_EMIT otherSelectedItemsChanged();
}

void Tree::dropHiddenOthers() {
    BitRow shown = noOthers();
    others_.forEach([&](Slot slot) {
        if (rows_.isShown(slot))
            shown.set(slot);
    });
    if (shown.count() == others_.count())
        return;
    others_ = std::move(shown);
    Q_EMIT otherSelectedItemsChanged();
}

} // namespace quillon::items
