#include "edit/undo_redo.h"

namespace quillon::edit {

void clsUndoRedo::Clear() {
    undo_.clear();
    redo_.clear();
}

void clsUndoRedo::Action(Info info) {
    if (undo_.size() == static_cast<std::size_t>(maximum_))
        undo_.erase(undo_.begin());
    if (current_)
        undo_.push_back(std::move(current_));
    current_ = std::move(info);
    redo_.clear();
}

clsUndoRedo::Info clsUndoRedo::move(std::vector<Info> &from, std::vector<Info> &to) {
    if (from.empty())
        return {};
    to.push_back(std::move(current_));
    current_ = std::move(from.back());
    from.pop_back();
    return current_;
}

clsUndoRedo::Info clsUndoRedo::Redo() {
    return move(redo_, undo_);
}

clsUndoRedo::Info clsUndoRedo::Undo() {
    return move(undo_, redo_);
}

} // namespace quillon::edit
