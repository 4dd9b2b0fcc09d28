#pragma once

#include "platform/items/tree.h"
#include "platform/ui/long_work.h"
#include "state/document_state.h"

#include <QFont>
#include <QIcon>
#include <QPrinter>

#include <functional>
#include <memory>
#include <vector>

class QPainter;

namespace quillon::tools {

/// A page after another to print text and pictures on, line by line. Lengths are in twips.
class PrintSurface {
public:
    explicit PrintSurface(QPrinter &printer, const QFont &font);
    ~PrintSurface();

    double TextHeight() const;
    double CurrentX = 0;
    double CurrentY = 0;
    void PaintPicture(const QIcon &icon, double x, double y, double size);
    /// Prints text at the current position and moves to its right.
    void print(const QString &text);
    /// Goes on to a new page when what is to come, so high, has no room on this one.
    void needRoom(double height);
    /// The same as print(), then goes to the start of the next line.
    void printLine(const QString &text);

private:
    double toDevice(double twips) const;

    QPrinter &printer_;
    std::unique_ptr<QPainter> painter_;
    double pageHeight_;
};

/// How a tree is drawn.
struct PrintLook {
    QFont font;
    /// The images that the items' numbers mean.
    QList<QIcon> images;
};

/// Prints the whole tree, expanded or not, as an indented drawing: a line an item, with its icon,
/// its caption and the branches that lead to it.
class TreePrinting {
public:
    TreePrinting(const state::DocumentState &state, items::Tree &tree, ui::LongWork &longWork)
        : state_(state), tree_(tree), longWork_(longWork) {}

    /// Asked each time the tree is printed.
    std::function<PrintLook()> look = [] { return PrintLook(); };

    /// Asks for a printer and prints. Nothing happens when the user cancels and for an empty tree.
    /// Raises Overflow for a tree of more than 32767 levels.
    void mnuFilePrintTree_Click();
    /// Prints onto a printer that has been chosen. The user can have it stopped: a file is then
    /// removed, while a printer may put out the pages so far.
    void print(QPrinter &printer);

    /// What stands ahead of the icon of an item at a depth, whose ancestors' flags are known: for
    /// each level from the outermost in whether a sibling follows.
    static QString connector(const std::vector<bool> &siblingFollows, qint16 depth);

private:
    /// False when it was stopped.
    bool printItems(QPrinter &printer, const items::TreeItem &first,
                    const runtime::Progress &progress);
    void PrintTreeNode(PrintSurface &surface, const QList<QIcon> &images,
                       const items::TreeItem &item, qint16 depth);

    const state::DocumentState &state_;
    items::Tree &tree_;
    ui::LongWork &longWork_;
    std::vector<bool> levelFlags_;
};

} // namespace quillon::tools
