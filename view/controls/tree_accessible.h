#pragma once

namespace quillon::controls {

/// Makes every TreeView known to assistive technology, as a QTreeView is: a tree whose children are
/// the rows it shows, named by their captions. To be called before the first view is asked for.
void installTreeAccessibility();

} // namespace quillon::controls
