#include "platform/controls/tree_rows.h"

#include <algorithm>

namespace quillon::controls {

const std::vector<TreeRows::Slot> &TreeRows::rows() const {
    if (isValid_)
        return rows_;
    rows_.clear();
    Slot slot = store_.firstChild(TreeStore::Root);
    while (slot != 0) {
        rows_.push_back(slot);
        slot = store_.expanded().test(slot) ? store_.nextInSubtree(slot, TreeStore::Root)
                                            : store_.nextOutside(slot, TreeStore::Root);
    }
    isValid_ = true;
    return rows_;
}

TreeRows::Slot TreeRows::at(int row) const {
    return row >= 0 && row < count() ? rows()[static_cast<size_t>(row)] : 0;
}

bool TreeRows::isShown(Slot slot) const {
    if (!store_.isLive(slot))
        return false;
    do
        slot = store_.parent(slot);
    while (slot != TreeStore::Root && store_.expanded().test(slot));
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

} // namespace quillon::controls
