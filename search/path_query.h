#pragma once

#include "platform/items/tree.h"
#include "platform/ui/long_work.h"
#include "platform/ui/path_box.h"
#include "tree/node_registry.h"
#include "tree/selection.h"

#include <QObject>

#include <vector>

namespace quillon::search {

/// Runs the text of the path box as an XPath query and shows in the tree what it selects.
class PathQuery : public QObject {
    Q_OBJECT

public:
    PathQuery(items::Tree &tree, ui::PathBox &cboPath, tree::Selection &selection,
              const tree::NodeRegistry &registry, ui::LongWork &longWork);

    /// Queries from the selected element or document, or from the parent of what else is selected.
    /// Shows all items found in bold and expands what is above them, selects the first one, tells
    /// the number of nodes in the status bar and adds the query to the list of the path box. An
    /// result that is no nodes is told and remembered, and changes nothing else. An error in the
    /// query, that nothing was found and that the user has had it stopped is told in
    /// the status bar and changes nothing. Nothing happens when nothing is selected.
    void SelectByPath();

Q_SIGNALS:
    void statusText(const QString &text);
    /// A query has been answered.
    void remembered(const QString &query);
    /// A query has found nodes, in document order; not all of them need be marked.
    void found(const QString &query, const std::vector<quillon::xml::Node> &nodes);

private:
    xml::Node contextNode() const;
    /// Makes the items of these nodes bold, and no others, and expands the items above them.
    /// Returns the first item marked, or Nothing.
    items::TreeItem mark(const std::vector<xml::Node> &matches);
    void remember(const QString &query);

    items::Tree &tree_;
    ui::PathBox &cboPath_;
    tree::Selection &selection_;
    const tree::NodeRegistry &registry_;
    ui::LongWork &longWork_;
};

} // namespace quillon::search
