#pragma once

#include "platform/items/tree.h"
#include "tree/selection.h"

namespace quillon::search {

/// The node that is selected, as queries find it. (An attribute that was added has an item for a
/// copy of it.) Empty for none.
xml::Node selectedNode(const tree::Selection &selection, const items::Tree &tree);

} // namespace quillon::search
