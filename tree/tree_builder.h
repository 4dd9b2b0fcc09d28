#pragma once

#include "platform/items/tree.h"
#include "state/document_state.h"
#include "state/view_options.h"
#include "tree/counterparts.h"
#include "tree/node_captions.h"
#include "tree/node_registry.h"

#include <QObject>

#include <utility>

namespace quillon::tree {

/// Builds the tree from the document and grows it. No other class adds tree items, so the tree
/// and the DOM have the same structure, with three exceptions: an attribute that
/// was added has an item for a copy of it, a node that cannot be deleted loses its item, and below
/// a renamed element the items keep the order that the nodes had. Owns the registry of the nodes
/// the items show.
class TreeBuilder : public QObject {
    Q_OBJECT

public:
    using Relationship = items::Relationship;
    using TreeItem = items::TreeItem;

    TreeBuilder(state::DocumentState &state, const state::ViewOptions &options, items::Tree &tree);

    const NodeRegistry &registry() const { return m_dicNode; }
    NodeRegistry &registry() { return m_dicNode; }

    /// Whether a tree is built because a document was opened, or made anew because it has changed.
    /// Only for the former all items get their keys at once.
    enum class Reason { Opened, Changed };

    /// Empties the tree and builds it from `document`, every item collapsed; nothing happens for
    /// no document. With visibleAfter false the tree stays hidden for the caller to show it. Takes
    /// no longer for a large document than for a small one.
    void BuildTree(const xml::DOMDocument40 &document, bool visibleAfter,
                   Reason reason = Reason::Opened);

    /// The same for the current document, after which the items of the nodes that were expanded are
    /// so again, and the item of the node that was selected, or the nearest one above it, is
    /// selected.
    void rebuildTree();

    /// The nodes whose items are expanded; and expands the items of nodes, as far as they have any.
    NodeNumbers expandedNodes() const;
    void expandNodes(const NodeNumbers &numbers);

    /// Adds an item for `node`, as the last child of relItem or ahead of it. With treeOnly the
    /// DOM is left alone; else a deep copy of the node is put into the DOM at the same place and
    /// `node` becomes that copy. An attribute goes after the element's other attributes, for
    /// which relItem and relationship may be changed. Returns the item, or none where the kind may
    /// not stand. An entity reference, and any other kind without a place in the tree, is added all
    /// the same, and a message box says so: once for each document that is opened. That is meant
    /// so.
    TreeItem AddNodeToTree(TreeItem &relItem, xml::Node &node, bool treeOnly,
                           Relationship &relationship);

    /// Adds an item for an attribute of the element that elemItem shows. Without treeOnly the
    /// attribute is first set on the element, or its value given to the one of the same name.
    /// Returns none when an item with that caption is there already. `attr` becomes the node that
    /// the item shows: in insertion that is a copy, not the attribute on the element.
    TreeItem AddAttributeToTree(const TreeItem &elemItem, xml::Node &attr, bool treeOnly);

    /// Has the items of the attributes of elements, known by their numbers, show what is set on
    /// these, and no copies.
    void showOwnAttributes(const std::vector<quint32> &elements);

    /// The item that shows a node; Nothing when none does.
    TreeItem itemOf(const xml::Node &node) const;

    /// Whether a child item of the document item shows an element.
    bool HasRootElement() const;

    /// Expands (collapses) everything from an item down.
    void ExpandSubtree(const TreeItem &item);
    void CollapseSubtree(const TreeItem &item);

    /// Asks for a fresh preview after the tree has changed, unless m_bNoSync is set.
    void SyncPreview();

    /// While it lives no preview is asked for; when it goes, one is.
    class PreviewPause {
    public:
        explicit PreviewPause(TreeBuilder &builder)
            : builder_(builder), before_(std::exchange(builder.m_bNoSync, true)) {}
        PreviewPause(const PreviewPause &) = delete;
        PreviewPause &operator=(const PreviewPause &) = delete;
        ~PreviewPause() {
            builder_.m_bNoSync = before_;
            builder_.SyncPreview();
        }

    private:
        TreeBuilder &builder_;
        const bool before_;
    };

    /// Set while the edit pane replaces an element, so that the insertion asks for no preview.
    /// After the root has been replaced it stays set, and the preview waits to be asked for.
    bool m_bNoSync = false;

Q_SIGNALS:
    /// A text for the status bar.
    void statusText(const QString &text);
    void syncPreviewRequested();

private:
    bool insertIntoDom(TreeItem &relItem, xml::Node &node, Relationship &relationship);
    bool refuseUnderDocument(const xml::Node &copy);
    /// Tells, once for each document, that an entity reference has an item.
    void reportReference();
    TreeItem mirror(const TreeItem &relItem, const xml::Node &node, Relationship relationship);

    state::DocumentState &state_;
    items::Tree &tree_;
    NodeRegistry m_dicNode;
    NodeCaptions captions_;
    /// Nobody has been told yet that the open document has kinds without a place in the tree.
    bool reportsStrangers_ = false;
};

} // namespace quillon::tree
