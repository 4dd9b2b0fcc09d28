#include "search/path_query.h"

#include "platform/controls/error_boundary.h"
#include "platform/runtime/error.h"
#include "platform/xml/xpath.h"
#include "resources/texts.h"

namespace quillon::search {

using controls::TreeItem;
using controls::TreeStore;
using xml::Node;
using xml::NodeType;
namespace texts = resources::texts;

namespace {

/// Expands what is above many items, looking at each item above them once however many there are.
class AncestorExpansion {
public:
    explicit AncestorExpansion(controls::Nodes &nodes) : nodes_(nodes) {}

    void expandAbove(TreeStore::Slot slot) {
        const TreeStore &store = nodes_.store();
        for (TreeStore::Slot at = store.parent(slot); at != TreeStore::Root && !isDone(at);
             at = store.parent(at)) {
            done_[at] = true;
            nodes_.item(at).setExpanded(true);
        }
    }

private:
    bool isDone(TreeStore::Slot slot) {
        if (done_.size() <= slot)
            done_.resize(slot + 1);
        return done_[slot];
    }

    controls::Nodes &nodes_;
    std::vector<bool> done_;
};

} // namespace

PathQuery::PathQuery(controls::TreeView &tvw, controls::PathBox &cboPath,
                     tree::Selection &selection, const tree::NodeRegistry &registry,
                     controls::LongWork &longWork)
    : tvw_(tvw), cboPath_(cboPath), selection_(selection), registry_(registry),
      longWork_(longWork) {}

void PathQuery::SelectByPath() {
    const Node context = contextNode();
    if (!context)
        return;
    std::vector<Node> matches;
    try {
        longWork_.run(texts::Querying.toString(), controls::LongWork::Stop::Offered,
                      [&](const runtime::Progress &progress) {
                          matches = xml::selectNodes(context, cboPath_.Text(), progress);
                      });
    } catch (const runtime::Error &error) {
        Q_EMIT statusText(error.description());
        return;
    }
    if (matches.empty()) {
        Q_EMIT statusText(texts::NothingFound.toString());
        return;
    }
    tvw_.setTreeVisible(false);
    // From here on nothing stops the query, so that the tree comes back.
    TreeItem first;
    controls::ignoringErrors([&] { first = mark(matches); });
    const QString query = cboPath_.Text();
    controls::ignoringErrors([&] {
        selection_.ShowNode(first, true);
        first.EnsureVisible();
    });
    tvw_.setTreeVisible(true);
    tvw_.setFocus();
    Q_EMIT statusText(QString::number(matches.size()) + texts::MatchesFound.toString());
    remember(query);
}

Node PathQuery::contextNode() const {
    const Node selected = selection_.GetSelectedDOMNode();
    const NodeType kind = selected.nodeType();
    if (!selected || kind == NodeType::Element || kind == NodeType::Document)
        return selected;
    return selection_.GetDOMNode(tvw_.SelectedItem().Parent());
}

TreeItem PathQuery::mark(const std::vector<Node> &matches) {
    controls::Nodes &nodes = tvw_.nodes();
    const TreeStore &store = nodes.store();
    nodes.clearBold();
    AncestorExpansion ancestors(nodes);
    TreeItem first;
    // A single merge: a match that has no item, or an item out of document order, keeps all later
    // matches from being marked. That is meant so.
    auto match = matches.begin();
    store.live().forEach([&](TreeStore::Slot slot) {
        if (match == matches.end() || registry_.number(store.sequenceOf(slot)) != match->number())
            return;
        TreeItem item = nodes.item(slot);
        item.setBold(true);
        ancestors.expandAbove(slot);
        if (!first)
            first = item;
        ++match;
    });
    return first;
}

void PathQuery::remember(const QString &query) {
    if (!cboPath_.List().contains(query))
        cboPath_.AddItem(query);
}

} // namespace quillon::search
