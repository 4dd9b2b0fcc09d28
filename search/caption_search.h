#pragma once

#include "platform/items/tree.h"
#include "search/hit.h"
#include "tree/selection.h"

#include <QObject>

namespace quillon::search {

/// Finds tree items by their captions, in the order in which the items were added to the tree.
/// Neither direction wraps. In a tree of more than 32,767 items searching raises Overflow: larger
/// ones are searched by path.
class CaptionSearch : public QObject {
    Q_OBJECT

public:
    CaptionSearch(items::Tree &tree, tree::Selection &selection);

    /// Asks for a pattern (see runtime::LikePattern) and finds the next item. No entry, which is
    /// also what cancelling gives, forgets the pattern that was there.
    void mnuEditFind_Click();
    /// Selects the next item whose caption matches; asks for a pattern when there is none. With
    /// nothing selected the search starts after item 1, the document, which is never found that
    /// way. Nothing happens in an empty tree.
    void mnuEditFindNext_Click();

    /// Selects the first item after `start` (before it) whose whole caption matches, or says in
    /// the status bar that there is none. True when one was found. Raises InvalidPattern.
    bool SearchForward(const items::TreeItem &start, const QString &pattern);
    /// Nothing happens for no start item.
    bool SearchBackward(const items::TreeItem &start, const QString &pattern);

    /// The pattern of this window; empty for none.
    const QString &pattern() const { return m_strFind; }

Q_SIGNALS:
    void statusText(const QString &text);
    /// A pattern has been entered, and these are all the captions that it matches, before and
    /// after the item that the search started from.
    void found(const quillon::search::Hits &hits);

private:
    /// Selects the first match after `start` in steps of +1 or -1, and tells whether there was one.
    bool search(const items::TreeItem &start, int step, const QString &pattern);
    Hits allMatches() const;
    Hit hitAt(const items::TreeItem &item, const QString &caption) const;

    items::Tree &tree_;
    tree::Selection &selection_;
    QString m_strFind;
};

} // namespace quillon::search
