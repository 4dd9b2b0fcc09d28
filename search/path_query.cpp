#include "search/path_query.h"

#include "platform/runtime/error.h"
#include "platform/ui/error_boundary.h"
#include "platform/xml/query/xpath.h"
#include "resources/query_texts.h"
#include "resources/texts.h"
#include "search/selected_node.h"

namespace quillon::search {

using items::TreeItem;
using items::TreeStore;
using xml::Node;
using xml::NodeType;
namespace texts = resources::texts;
namespace query_texts = resources::query_texts;

namespace {

/// Expands what is above many items, looking at each item above them once however many there are.
class AncestorExpansion {
public:
    explicit AncestorExpansion(items::Nodes &nodes) : nodes_(nodes) {}

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

    items::Nodes &nodes_;
    std::vector<bool> done_;
};

/// Finds the items of nodes one after the other, each behind the one before it in the order in
/// which items were added.
class MatchItems {
public:
    MatchItems(const items::Nodes &nodes, const tree::NodeRegistry &registry)
        : nodes_(nodes), registry_(registry) {}

    /// Nothing where there is none behind the one before.
    TreeItem next(const Node &match) {
        TreeItem item = registry_.itemOf(match.number());
        if (!isBehind(item))
            item = attributeItem(match);
        latest_ = nodes_.slotOf(item);
        return item;
    }

private:
    bool isBehind(const TreeItem &item) const {
        const TreeStore::Slot slot = nodes_.slotOf(item);
        return slot != TreeStore::Root &&
               (latest_ == TreeStore::Root || nodes_.store().isEarlier(latest_, slot));
    }

    /// An attribute that was added has an item for a copy of it, below its element.
    TreeItem attributeItem(const Node &match) const {
        const Node element = xml::ownerElement(match);
        TreeItem child = element ? registry_.itemOf(element.number()).Child() : TreeItem();
        for (; child; child = child.Next()) {
            const Node shown = registry_.Item(child);
            if (shown.nodeType() != NodeType::Attribute)
                continue;
            if (shown.nodeName() == match.nodeName() && isBehind(child))
                break;
        }
        return child;
    }

    const items::Nodes &nodes_;
    const tree::NodeRegistry &registry_;
    TreeStore::Slot latest_ = TreeStore::Root;
};

/// A result that is no nodes, as the status bar has room for it.
QString told(const xml::XPathAnswer &answer) {
    constexpr qsizetype MostShown = 1000;
    QString value = answer.value->left(MostShown);
    for (QChar &c : value) {
        if (c.isSpace() || c.category() == QChar::Other_Control)
            c = QLatin1Char(' ');
    }
    if (value.isEmpty())
        value = query_texts::EmptyResult.toString();
    else if (answer.value->size() > MostShown)
        value += QChar(u'…');
    return (answer.inDefaultNamespace ? query_texts::ResultInDefaultNamespace : query_texts::Result)
        .toString()
        .arg(value);
}

} // namespace

PathQuery::PathQuery(items::Tree &tree, ui::PathBox &cboPath, tree::Selection &selection,
                     const tree::NodeRegistry &registry, ui::LongWork &longWork)
    : tree_(tree), cboPath_(cboPath), selection_(selection), registry_(registry),
      longWork_(longWork) {}

void PathQuery::SelectByPath() {
    const Node context = contextNode();
    if (!context)
        return;
    xml::XPathAnswer answer;
    try {
        longWork_.run(texts::Querying.toString(), ui::LongWork::Stop::Offered,
                      [&](const runtime::Progress &progress) {
                          answer = xml::evaluateXPath(context, cboPath_.Text(),
                                                      selectedNode(selection_, tree_), progress);
                      });
    } catch (const runtime::Error &error) {
        Q_EMIT statusText(error.description());
        return;
    }
    // Below the box comes to show the path of what the pane shows.
    const QString query = cboPath_.Text();
    if (answer.value) {
        Q_EMIT statusText(told(answer));
        remember(query);
        return;
    }
    const std::vector<Node> &matches = answer.nodes;
    if (matches.empty()) {
        Q_EMIT statusText(texts::NothingFound.toString());
        return;
    }
    if (!selection_.mayLeavePane())
        return;
    tree_.setTreeVisible(false);
    // From here on nothing stops the query, so that the tree comes back.
    TreeItem first;
    ui::ignoringErrors([&] { first = mark(matches); });
    ui::ignoringErrors([&] {
        selection_.ShowNode(first, true);
        first.EnsureVisible();
    });
    tree_.setTreeVisible(true);
    tree_.setFocus();
    const QString count = QString::number(matches.size());
    Q_EMIT statusText(answer.inDefaultNamespace
                          ? query_texts::MatchesInDefaultNamespace.toString().arg(count)
                          : count + texts::MatchesFound.toString());
    remember(query);
    Q_EMIT found(query, matches);
}

Node PathQuery::contextNode() const {
    const Node selected = selection_.GetSelectedDOMNode();
    const NodeType kind = selected.nodeType();
    if (!selected || kind == NodeType::Element || kind == NodeType::Document)
        return selected;
    return selection_.GetDOMNode(tree_.SelectedItem().Parent());
}

TreeItem PathQuery::mark(const std::vector<Node> &matches) {
    items::Nodes &nodes = tree_.nodes();
    AncestorExpansion ancestors(nodes);
    MatchItems next(nodes, registry_);
    std::vector<TreeItem> marked;
    for (const Node &match : matches) {
        const TreeItem item = next.next(match);
        // As in a single merge of items and matches: a match that has no item, or an item out of
        // document order, keeps all later matches from being marked.
        if (!item)
            break;
        marked.push_back(item);
        ancestors.expandAbove(nodes.slotOf(item));
    }
    nodes.setBoldItems(marked);
    return marked.empty() ? TreeItem() : marked.front();
}

void PathQuery::remember(const QString &query) {
    if (!cboPath_.List().contains(query))
        cboPath_.AddItem(query);
    Q_EMIT remembered(query);
}

} // namespace quillon::search
