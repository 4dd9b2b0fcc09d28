#pragma once

#include "platform/items/tree_store.h"

#include <vector>

namespace quillon::items {

/// The items of a tree that a view shows, from top to bottom: those whose ancestors are all
/// expanded. Rows are 0-based.
///
/// Single items that come or go are put into the list and taken out of it. After invalidate(), or
/// many of them, the list is made anew at the next question.
class TreeRows {
public:
    using Slot = TreeStore::Slot;

    explicit TreeRows(const TreeStore &store) : store_(store) {}

    /// To be called when a collapsed item has come.
    void inserted(Slot slot);
    /// To be called when items have gone.
    void removed();
    /// To be called after any other change, of what is expanded above all.
    void invalidate() { isValid_ = false; }

    int count() const { return static_cast<int>(rows().size()); }
    /// The slot at a row, or 0 outside 0..count() - 1.
    Slot at(int row) const;
    /// The row of an item, or -1 when it is not shown. Searches from the latest answer on.
    int rowOf(Slot slot) const;
    bool isShown(Slot slot) const;

private:
    const std::vector<Slot> &rows() const;
    /// Whether the list can follow one more change.
    bool follows();

    const TreeStore &store_;
    mutable std::vector<Slot> rows_;
    mutable bool isValid_ = false;
    /// Changes that the list has followed since it was last asked for a row.
    mutable int followed_ = 0;
    mutable size_t latest_ = 0;
};

} // namespace quillon::items
