#include "platform/items/tree_rows.h"

#include <algorithm>

namespace quillon::items {

namespace {

/// More changes than these at a stretch are left for the list to be made anew.
constexpr int MaxFollowed = 16;

} // namespace

const std::vector<TreeRows::Slot> &TreeRows::rows() const {
    if (isValid_)
        return rows_;
    rows_.clear();
    // An item whose children are being listed. Where there is an array of them it is much faster
    // than to go from one to the next.
    struct Open {
        const std::vector<Slot> *known;
        std::size_t place;
        Slot child;
    };
    std::vector<Open> open;
    const auto enter = [&](Slot parent) {
        open.push_back({store_.knownChildren(parent), 0, store_.firstChild(parent)});
    };
    enter(TreeStore::Root);
    while (!open.empty()) {
        auto &[known, place, child] = open.back();
        const Slot slot = child;
        if (slot == 0) {
            open.pop_back();
            continue;
        }
        rows_.push_back(slot);
        if (known == nullptr)
            child = store_.next(slot);
        else
            child = ++place < known->size() ? (*known)[place] : 0;
        if (store_.isExpanded(slot))
            enter(slot);
    }
    isValid_ = true;
    return rows_;
}

bool TreeRows::follows() {
    // Following takes a pass over the list, as making it does, only a shorter one.
    if (isValid_ && ++followed_ > MaxFollowed)
        invalidate();
    return isValid_;
}

void TreeRows::inserted(Slot slot) {
    if (!isShown(slot) || !follows())
        return;
    const Slot below = store_.nextOutside(slot, TreeStore::Root);
    const auto at = below != 0 ? rows_.begin() + rowOf(below) : rows_.end();
    rows_.insert(at, slot);
}

void TreeRows::removed() {
    if (follows())
        std::erase_if(rows_, [this](Slot slot) { return !store_.isLive(slot); });
}

TreeRows::Slot TreeRows::at(int row) const {
    followed_ = 0;
    return row >= 0 && row < count() ? rows()[static_cast<size_t>(row)] : 0;
}

bool TreeRows::isShown(Slot slot) const {
    if (!store_.isLive(slot))
        return false;
    do
        slot = store_.parent(slot);
    while (slot != TreeStore::Root && store_.isExpanded(slot));
    return slot == TreeStore::Root;
}

int TreeRows::rowOf(Slot slot) const {
    if (!isShown(slot))
        return -1;
    // Questions come in clusters, so the answer is mostly close to the one before.
    constexpr size_t Near = 256;
    const auto &all = rows();
    const size_t low = std::min(latest_ - std::min(latest_, Near), all.size());
    const size_t high = std::min(latest_ + Near, all.size());
    auto found = std::find(all.begin() + low, all.begin() + high, slot);
    if (found == all.begin() + high)
        found = std::find(all.begin(), all.end(), slot);
    latest_ = static_cast<size_t>(found - all.begin());
    return static_cast<int>(latest_);
}

} // namespace quillon::items
