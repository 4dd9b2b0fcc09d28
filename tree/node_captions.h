#pragma once

#include "platform/items/tree_nodes.h"
#include "state/view_options.h"
#include "tree/node_registry.h"

#include <QStringList>

namespace quillon::tree {

/// The caption of a node: its name, or, where text is shown, what it holds.
QString captionOf(const xml::Node &node, bool viewText);

/// The caption of an attribute with its text shown: the name, "=" and the value in double
/// quotation marks. Nothing in the value is escaped.
QString attributeCaption(const QString &name, const QString &value);

/// What a kind of node is called; empty for no node.
QString kindText(xml::NodeType kind);

/// The key of the tree image for a kind of node. CDATA sections, the document type and every
/// other kind share the comment's image.
QString imageKeyOf(const xml::Node &node);

/// The image keys in the order in which the tree control numbers them.
const QStringList &imageKeys();

/// Makes the captions and images of the tree from the DOM when the control asks for them.
class NodeCaptions final : public items::CaptionSource {
public:
    NodeCaptions(const NodeRegistry &registry, const state::ViewOptions &options)
        : registry_(registry), options_(options) {}

    QString caption(const items::TreeItem &item) const override;
    int image(const items::TreeItem &item) const override;
    QString kind(const items::TreeItem &item) const override;

private:
    const NodeRegistry &registry_;
    const state::ViewOptions &options_;
};

} // namespace quillon::tree
