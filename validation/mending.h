#pragma once

#include "candidates/candidate_insertion.h"
#include "search/replacing.h"
#include "state/view_options.h"
#include "validation/fault_mends.h"

namespace quillon::validation {

/// Mends faults in the document, each as one step that can be undone.
class Mending : public QObject {
    Q_OBJECT

public:
    Mending(const state::DocumentState &state, const state::ViewOptions &options,
            candidates::CandidateFinder &finder, candidates::CandidateInsertion &insertion,
            search::Replacing &replacing, tree::NodeRemoval &removal, tree::TreeBuilder &builder,
            tree::Selection &selection);

    /// What may be done about what is wrong at a node of the present document; nothing in a
    /// document that is read-only.
    std::vector<Mend> mendsAt(const xml::Node &node);
    /// Does it. Where the document has changed so that there is nothing to be mended any more, or
    /// only in another way, nothing happens, which is told in the status bar. Nothing happens,
    /// either, when the user keeps text in the pane that does not parse.
    void mend(const Mend &mend);

Q_SIGNALS:
    void statusText(const QString &text);

private:
    bool carryOut(const Mend &mend, const xml::Node &node);
    bool replace(const search::Hit &hit, const QString &text);

    const state::DocumentState &state_;
    const state::ViewOptions &options_;
    FaultMends mends_;
    candidates::CandidateInsertion &insertion_;
    search::Replacing &replacing_;
    tree::NodeRemoval &removal_;
    tree::TreeBuilder &builder_;
    tree::Selection &selection_;
};

} // namespace quillon::validation
