#pragma once

#include "search/hit_list.h"
#include "tree/selection.h"
#include "tree/tree_builder.h"

#include <QObject>

namespace quillon::search {

/// Leads from the list of hits to the nodes.
class HitNavigation : public QObject {
    Q_OBJECT

public:
    HitNavigation(HitList &hits, const tree::TreeBuilder &builder, tree::Selection &selection,
                  items::Tree &tree, const tree::PaneContent &pane);

    /// Makes a row the current one, selects the node's item, or the nearest above it that there
    /// is, and selects the hit in the pane where the pane shows the text that it stands in. Nothing
    /// happens when the user keeps text in the pane that does not parse. True when the hit is
    /// selected in the pane.
    bool goTo(int row);
    /// The same with a hit of the present document that need not be in the list.
    bool show(const Hit &hit);
    /// The same as goTo() with the row after (before) the current one. At the end of the list it is
    /// told in the status bar that there are no more.
    void mnuViewNextHit_Click();
    void mnuViewPreviousHit_Click();
    /// Makes the first hit in the selected node the current one: a search has led there already.
    void startFromSelected();

Q_SIGNALS:
    void statusText(const QString &text);

private:
    bool isOfFaults() const { return hits_.source() == HitSource::Faults; }
    void goOn(int row, QStringView atTheEnd);
    items::TreeItem itemOf(const xml::Node &node) const;
    /// Selects an item; false when the user keeps text in the pane that does not parse.
    bool showItem(const items::TreeItem &item);
    /// Whether the pane shows what the document has of the node.
    bool isInPane(const xml::Node &node) const;
    bool selectInPane(const xml::Node &node, const Hit &hit);

    HitList &hits_;
    const tree::TreeBuilder &builder_;
    tree::Selection &selection_;
    items::Tree &tree_;
    const tree::PaneContent &pane_;
};

} // namespace quillon::search
