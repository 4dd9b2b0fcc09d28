#pragma once

#include "platform/items/tree.h"
#include "tree/node_registry.h"
#include "validation/live_validation.h"

namespace quillon::validation {

/// The marks of the tree's items: one on each node that has a fault, and for those above it that
/// something below is marked. Looked up by the nodes' numbers, so a tree that is built anew needs
/// nothing.
class FaultMarks final : public items::MarkSource {
public:
    FaultMarks(const LiveValidation &live, const tree::NodeRegistry &registry, items::Tree &tree);

    /// To be called when there are other faults.
    void faultsChanged();

    items::Mark mark(const items::TreeItem &item) const override;
    items::Mark markBelow(const items::TreeItem &item) const override;
    QString reasons(const items::TreeItem &item) const override;

private:
    /// The number of the node that an item shows; of an attribute that was added, of which the item
    /// shows a copy, that of the attribute itself.
    quint32 nodeOf(const items::TreeItem &item) const;

    const LiveValidation &live_;
    const tree::NodeRegistry &registry_;
    items::Tree &tree_;
    /// The numbers of the nodes that have something marked below.
    std::unordered_map<quint32, items::Mark> below_;
};

} // namespace quillon::validation
