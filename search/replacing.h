#pragma once

#include "platform/items/tree.h"
#include "platform/runtime/progress.h"
#include "search/hit.h"
#include "state/document_state.h"
#include "state/view_options.h"
#include "tree/tree_builder.h"

#include <QObject>

namespace quillon::search {

/// What has become of changes that were to be made.
struct Replaced {
    std::size_t made = 0;
    std::size_t leftOut = 0;
    /// Why the first of these was left out.
    QString obstacle;
};

/// Puts other texts in the places of hits, in the document and in the tree. Nothing else changes:
/// nodes keep their numbers and places, items their expansion and the selection.
class Replacing : public QObject {
    Q_OBJECT

public:
    Replacing(state::DocumentState &state, const state::ViewOptions &options,
              tree::TreeBuilder &builder, items::Tree &tree);

    /// Fills in what speaks against changes, one for each hit, should all of them be made. Raises
    /// Cancelled when the progress function says so.
    void findObstacles(const std::vector<Hit> &hits, std::vector<Change> &changes,
                       const runtime::Progress &progress) const;

    /// Makes those changes against which nothing speaks when these are all there are, and fills in
    /// what speaks against the others. A document that is read-only does not change. Raises
    /// Cancelled as long as nothing has changed.
    Replaced replace(const std::vector<Hit> &hits, std::vector<Change> &changes,
                     const runtime::Progress &progress);

Q_SIGNALS:
    void documentModified();

private:
    void change(const std::vector<Hit> &hits, const std::vector<Change> &changes);

    state::DocumentState &state_;
    const state::ViewOptions &options_;
    tree::TreeBuilder &builder_;
    items::Tree &tree_;
};

} // namespace quillon::search
