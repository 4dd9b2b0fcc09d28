#pragma once

#include "platform/items/tree.h"
#include "platform/ui/clipboard.h"
#include "tree/selection.h"

#include <QObject>

namespace quillon::search {

/// Puts the path of the selected node on the clipboard.
class PathCopy : public QObject {
    Q_OBJECT

public:
    PathCopy(const items::Tree &tree, const tree::Selection &selection, ui::Clipboard &clipboard)
        : tree_(tree), selection_(selection), clipboard_(clipboard) {}

    /// Copies a path by which the path box finds the selected node and no other, and tells it in
    /// the status bar; for a node that no path finds, that is told. Nothing happens when nothing is
    /// selected.
    void mnuEditCopyXPath_Click();

Q_SIGNALS:
    void statusText(const QString &text);

private:
    const items::Tree &tree_;
    const tree::Selection &selection_;
    ui::Clipboard &clipboard_;
};

} // namespace quillon::search
