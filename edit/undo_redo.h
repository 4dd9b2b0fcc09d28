#pragma once

#include "edit/undo_info.h"

#include <memory>
#include <vector>

namespace quillon::edit {

/// The states behind and ahead of the one on screen. At most ten can be undone.
class clsUndoRedo {
public:
    using Info = std::shared_ptr<const clsUndoInfo>;

    clsUndoRedo() { Clear(); }

    /// Empties both stacks. The current state stays.
    void Clear();
    /// The document has just reached the state `info`: what was current can be undone to, and
    /// nothing can be redone any more.
    void Action(Info info);
    /// Goes one state forward (back) and returns it, or none when there is none.
    Info Redo();
    Info Undo();
    /// The state on screen, or none.
    const Info &current() const { return current_; }
    bool CanUndo() const { return !undo_.empty(); }
    bool CanRedo() const { return !redo_.empty(); }

private:
    Info move(std::vector<Info> &from, std::vector<Info> &to);

    std::vector<Info> undo_;
    Info current_;
    std::vector<Info> redo_;
    qint32 maximum_ = 10;
};

} // namespace quillon::edit
