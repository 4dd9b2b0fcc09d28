#pragma once

#include "platform/items/tree.h"
#include "platform/ui/long_work.h"
#include "state/document_state.h"
#include "tools/tree_pages.h"

#include <QPageLayout>

#include <functional>

class QPrinter;
class QWidget;

namespace quillon::tools {

/// The commands that print the whole tree, and show what would be printed.
class TreePrinting {
public:
    TreePrinting(const state::DocumentState &state, items::Tree &tree, ui::LongWork &longWork)
        : state_(state), tree_(tree), longWork_(longWork) {}

    /// Asked each time the tree is printed: how it is drawn, without what stands in the foot, and
    /// on what.
    std::function<PrintLook()> look = [] { return PrintLook(); };
    std::function<QPageLayout()> paper = [] { return QPageLayout(); };
    /// Told what paper has been chosen in the preview.
    std::function<void(const QPageLayout &)> keepPaper = [](const QPageLayout &) {};

    /// Asks for a printer and prints. Nothing happens when the user cancels and for an empty tree.
    /// Raises Overflow for a tree of more than 32767 levels.
    void mnuFilePrintTree_Click();
    /// Shows the pages over a window, and prints them when the user wants it. Raises the same.
    void mnuFilePrintTreePreview_Click(QWidget *window);
    /// Prints onto a printer that has been chosen. The user can have it stopped: a file is then
    /// removed, while a printer may put out the pages so far.
    void print(QPrinter &printer);

private:
    /// False when it was stopped.
    bool printPages(QPrinter &printer, TreePages &pages, const runtime::Progress &progress) const;
    TreePages makePages() const;

    const state::DocumentState &state_;
    items::Tree &tree_;
    ui::LongWork &longWork_;
};

} // namespace quillon::tools
