#pragma once

#include "tree/node_transfer.h"
#include "tree/tree_builder.h"

namespace quillon::tree {

/// Turns XML text, as it comes from the clipboard or a drop, into a node under an item.
class NodeInsertion {
public:
    using Items = std::vector<items::TreeItem>;

    NodeInsertion(const state::DocumentState &state, TreeBuilder &builder, items::Tree &tree)
        : state_(state), builder_(builder), tree_(tree) {}

    /// Inserts the node that `text` stands for and returns its item, or none when nothing was
    /// inserted. An attribute that is there already gets the value, and its item is returned if it
    /// is another value than before. What `text` stands for: the root element of a document; else a
    /// comment, an attribute (name="value"), a CDATA section or, for anything else, a text node,
    /// recognised in this order. The caller marks the document modified. Raises what the DOM
    /// raises, e.g. for an invalid attribute name.
    items::TreeItem InsertNodeFromText(const items::TreeItem &target, const QString &text);
    /// The same for text that may be made of several elements, with or without comments and CDATA
    /// sections between them, and is no document: of these all are inserted.
    Items insertText(const items::TreeItem &target, const QString &text);

    /// Inserts nodes that have come from this program, as what they were: all of them, or none, and
    /// a message box says why where it is for what one of several is. They may stand where the same
    /// nodes made from text may; instructions and the document type are not inserted. Where it
    /// needs them, what they bring along declares its namespaces anew. Else as above.
    Items insertArrivedNodes(const items::TreeItem &target, const std::vector<ArrivedNode> &nodes);

private:
    xml::Node nodeFromText(const QString &text) const;
    /// The nodes of a text of several elements; none of any other text.
    std::vector<ArrivedNode> nodesFromText(const QString &text) const;
    items::TreeItem insertArrivedNode(const items::TreeItem &target, const ArrivedNode &node);
    /// What was text takes its namespaces from where it is put.
    enum class Origin { Text, Nodes };
    Items insertSeveral(const items::TreeItem &target, const std::vector<ArrivedNode> &nodes,
                        Origin origin);
    /// Inserts a node that text stands for.
    items::TreeItem insertTextNode(const items::TreeItem &target, const xml::Node &node);
    /// Why several nodes cannot all be inserted; empty when they can.
    QString refusal(const xml::Node &target, const std::vector<ArrivedNode> &nodes) const;
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
