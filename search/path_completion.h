#pragma once

#include "platform/ui/path_box.h"
#include "state/document_state.h"

namespace quillon::search {

/// What the path box proposes while a path is typed.
class PathCompletion {
public:
    PathCompletion(const state::DocumentState &state, const ui::PathBox &cboPath)
        : state_(state), cboPath_(cboPath) {}

    /// Texts to go on with from the one typed, at most 20: the entries of the list that start with
    /// it, the latest first, and the text with its last name made one of the document's.
    QStringList proposals(const QString &typed) const;

private:
    const state::DocumentState &state_;
    const ui::PathBox &cboPath_;
};

} // namespace quillon::search
