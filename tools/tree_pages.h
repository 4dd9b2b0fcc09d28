#pragma once

#include "platform/items/tree_nodes.h"
#include "platform/runtime/progress.h"

#include <QFont>
#include <QFontMetricsF>
#include <QIcon>
#include <QPixmap>
#include <QSizeF>
#include <QStringList>

#include <vector>

class QPainter;

namespace quillon::tools {

inline constexpr double TwipsPerInch = 1440;

/// How a tree is drawn.
struct PrintLook {
    QFont font;
    /// The images that the items' numbers mean.
    QList<QIcon> images;
    /// Both stand in the foot of every page.
    QString title;
    QString date;
};

/// A whole tree on paper, expanded or not, as an indented drawing: for each item its icon, its
/// caption and the branches that lead to it. Of the pages only the places where they begin are
/// kept, so that a tree of any size can be looked at and printed page by page.
///
/// All lengths are in twips, on whatever the pages are painted: they look the same on the screen
/// and on every printer.
class TreePages {
public:
    /// The items must outlive the pages, and must not change while they live.
    TreePages(const items::Nodes &nodes, PrintLook look);

    /// Finds out what stands on which page of this size, without its margins. False when it was
    /// stopped; there are no pages then, nor in an empty tree. Raises Overflow for a tree of more
    /// than 32767 levels.
    bool layOut(const QSizeF &page, const runtime::Progress &progress);
    int count() const { return int(starts_.size()); }
    /// Paints a page, counted from 0, with its upper left corner at the painter's origin. A twip
    /// is to be one unit of the painter.
    void paint(QPainter &painter, int page);

    /// What stands ahead of the icon of an item at a depth, whose ancestors' flags are known: for
    /// each level from the outermost in whether a sibling follows.
    static QString connector(const std::vector<bool> &siblingFollows, qint16 depth);

private:
    struct Start {
        items::TreeItem item;
        qint16 depth;
    };
    /// Where an item stands on its page.
    struct Row {
        double x;
        QStringList lines;
        double height;
    };

    Row rowOf(const items::TreeItem &item, qint16 depth) const;
    QStringList linesOf(const items::TreeItem &item, double width) const;
    /// Goes on to the item that is printed next; Nothing behind the last one.
    static void advance(items::TreeItem &item, qint16 &depth);
    void takeFlag(const items::TreeItem &item, qint16 depth);
    /// The level from which on the branches are drawn.
    qint16 firstColumn(qint16 depth) const;
    void PrintTreeNode(QPainter &painter, const items::TreeItem &item, qint16 depth, double y);
    void printBranches(QPainter &painter, const items::TreeItem &item, qint16 depth, const Row &row,
                       double y) const;
    void makePictures(const QPainter &painter);
    void printFoot(QPainter &painter, int page) const;

    const items::Nodes &nodes_;
    PrintLook look_;
    QFont font_;
    QFont footFont_;
    QFontMetricsF metrics_;
    QFontMetricsF footMetrics_;
    /// The images, so large as they are painted last; a side in pixels.
    std::vector<QPixmap> pictures_;
    int pictureSide_ = 0;
    /// The width of three characters of a branch; blanks, bars and hyphens get the same.
    double columnWidth_ = 0;
    /// More columns than these would leave captions no room.
    int mostColumns_ = 0;
    int levelColumns_ = 0;
    QSizeF page_;
    std::vector<Start> starts_;
    std::vector<bool> levelFlags_;
};

} // namespace quillon::tools
