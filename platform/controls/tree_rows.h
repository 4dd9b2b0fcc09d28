#pragma once

#include "platform/controls/tree_store.h"

#include <vector>

namespace quillon::controls {

/// The items of a tree that a view shows, from top to bottom: those whose ancestors are all
/// expanded. Rows are 0-based.
///
/// The list is made anew at the first question after invalidate(). One pass over what is shown
/// takes a few milliseconds for a million rows, and any number of changes in between cost nothing.
class TreeRows {
public:
    using Slot = TreeStore::Slot;

    explicit TreeRows(const TreeStore &store) : store_(store) {}

    /// To be called whenever an item has come, gone, expanded or collapsed.
    void invalidate() { isValid_ = false; }

    int count() const { return static_cast<int>(rows().size()); }
    /// The slot at a row, or 0 outside 0..count() - 1.
    Slot at(int row) const;
    /// The row of an item, or -1 when it is not shown. Searches from the latest answer on.
    int rowOf(Slot slot) const;
    bool isShown(Slot slot) const;

private:
    const std::vector<Slot> &rows() const;

    const TreeStore &store_;
    mutable std::vector<Slot> rows_;
    mutable bool isValid_ = false;
    mutable size_t latest_ = 0;
};

} // namespace quillon::controls
