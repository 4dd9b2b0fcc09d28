#pragma once

#include "tree/node_transfer.h"
#include "tree/tree_builder.h"

namespace quillon::tree {

/// Turns XML text, as it comes from the clipboard or a drop, into a node under an item.
class NodeInsertion {
public:
    NodeInsertion(const state::DocumentState &state, TreeBuilder &builder, items::Tree &tree)
        : state_(state), builder_(builder), tree_(tree) {}

    /// Inserts the node that `text` stands for and returns its item, or none when nothing was
    /// inserted. An attribute that is there already gets the value, and its item is returned if it
    /// is another value than before. What `text` stands for: the root element of a document; else a
    /// comment, an attribute (name="value"), a CDATA section or, for anything else, a text node,
    /// recognised in this order. The caller marks the document modified. Raises what the DOM
    /// raises, e.g. for an invalid attribute name.
    items::TreeItem InsertNodeFromText(const items::TreeItem &target, const QString &text);

    /// Inserts a node that has come from this program, as what it was. It may stand where the same
    /// node made from text may; instructions and the document type are not inserted. Where it
    /// needs them, what it brings along declares its namespaces anew. Else as above.
    items::TreeItem insertArrivedNode(const items::TreeItem &target, const ArrivedNode &node);

private:
    xml::Node nodeFromText(const QString &text) const;
    items::TreeItem insertAt(const items::TreeItem &target, xml::Node node);
    items::TreeItem insertAttribute(const items::TreeItem &target, xml::Node attribute);
    /// Declares the prefix of an attribute on its new element, unless it is declared there
    /// already.
    void declareAt(const items::TreeItem &target, const QString &name, const Namespaces &scope,
                   const Namespaces &here);

    const state::DocumentState &state_;
    TreeBuilder &builder_;
    items::Tree &tree_;
};

} // namespace quillon::tree
