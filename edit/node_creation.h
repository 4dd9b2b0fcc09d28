#pragma once

#include "state/document_state.h"
#include "tree/selection.h"
#include "tree/tree_builder.h"

#include <QObject>

namespace quillon::edit {

/// The commands that make nodes: each puts a new node with a generated name or text under or
/// ahead of the selected one, selects it and opens its label for editing.
class NodeCreation : public QObject {
    Q_OBJECT

public:
    NodeCreation(const state::DocumentState &state, tree::TreeBuilder &builder,
                 tree::Selection &selection, items::Tree &tree);

    /// The first of baseText1, baseText2, ... that no child item of parentItem shows. Captions
    /// count up to their first "=". Raises Overflow past 32767.
    QString MakeUniqueName(const items::TreeItem &parentItem, const QString &baseText) const;

    // A command that does not apply to the selected node does nothing.
    void mnuNodeAddElement_Click();
    void mnuNodeAddAttribute_Click();
    void mnuNodeAddText_Click();
    void mnuNodeAddComment_Click();
    void mnuNodeAddCDATA_Click();
    void mnuNodeInsElement_Click();
    void mnuNodeInsText_Click();
    void mnuNodeInsComment_Click();
    void mnuNodeInsCDATA_Click();

    /// Selects the parent of the selected item, then adds an attribute there.
    void AddAttributeToParent();
    /// Whether that applies: a child of an element is selected, and not an element itself.
    bool canAddAttributeToParent() const;

Q_SIGNALS:
    void documentModified();
    void previewRequested(const quillon::xml::Node &node);

private:
    /// Makes a node of the document from its generated name or text.
    using Create = xml::Node (xml::DOMDocument40::*)(const QString &) const;

    /// False when nothing was added.
    bool addChild(bool documentToo, Create create, const QString &baseText);
    void insert(Create create, const QString &baseText);
    xml::NodeType selectedKind() const;

    const state::DocumentState &state_;
    tree::TreeBuilder &builder_;
    tree::Selection &selection_;
    items::Tree &tree_;
};

} // namespace quillon::edit
