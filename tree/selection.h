#pragma once

#include "platform/items/tree.h"
#include "platform/ui/clipboard.h"
#include "platform/ui/path_box.h"
#include "state/document_state.h"
#include "state/view_options.h"
#include "tree/node_registry.h"
#include "tree/pane_content.h"

#include <QObject>

namespace quillon::tree {

/// Makes a tree item the current one: its path in the path box, its content in the edit pane.
class Selection : public QObject {
    Q_OBJECT

public:
    Selection(const state::DocumentState &state, const state::ViewOptions &options,
              const NodeRegistry &registry, items::Tree &tree, PaneContent &pane,
              ui::PathBox &cboPath, const ui::Clipboard &clipboard);

    /// Shows an item, and selects it if selectIt says so. Nothing happens for no item or an item
    /// without a node, nor where mayLeavePane() says no. The item that the pane shows already keeps
    /// its text there if that does not parse.
    void ShowNode(const items::TreeItem &item, bool selectIt);
    /// Shows an item's path and content anew, without touching buttons, selection or status bar.
    void refillPane(const items::TreeItem &item);

    /// Selects an item of which the pane has the content already, which the user has typed there:
    /// caret, marks and focus stay. Where the pane shows something else, it is filled.
    void takePaneAs(const items::TreeItem &item);

    /// Empties the path box: there is no document any more.
    void showNothing();
    /// Whether the pane holds text for the item it shows that does not parse, so that the document
    /// does not hold it.
    bool hasUnparsedText() const;
    /// To be asked before such text would go. True when there is none, or when the user gives it
    /// up: the pane then shows its node again. Else the user goes back to it: its item is selected
    /// and the pane has the focus.
    bool mayLeavePane();

    /// The node of an item; empty for no item.
    xml::Node GetDOMNode(const items::TreeItem &item) const;
    xml::Node GetSelectedDOMNode() const;

    /// Whether the clipboard holds text that may be inserted at the selected node.
    bool canPasteFromClipboard() const;

Q_SIGNALS:
    void statusText(const QString &text);
    /// An item has been shown, and selected where that was asked for.
    void nodeShown();
    /// The user has given up text in the pane that does not parse.
    void unparsedTextGivenUp();

private:
    /// What the window shows of an item beside its markup: the path, and whether it is locked.
    void showPlaceOfMarkup(const items::TreeItem &item);
    void fillPane(const items::TreeItem &item, const xml::Node &node);

    const state::DocumentState &state_;
    const state::ViewOptions &options_;
    const NodeRegistry &registry_;
    items::Tree &tree_;
    PaneContent &pane_;
    ui::PathBox &cboPath_;
    const ui::Clipboard &clipboard_;
};

} // namespace quillon::tree
