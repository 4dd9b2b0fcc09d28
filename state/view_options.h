#pragma once

namespace quillon::state {

/// What the View and Edit menus switch for the tree and the edit pane.
struct ViewOptions {
    /// Captions show the text of attributes, text, comments and CDATA sections (`mnuViewText`).
    bool viewText = true;
    /// Names of elements and attributes are locked (`mnuViewLock`).
    bool viewLock = false;
};

} // namespace quillon::state
