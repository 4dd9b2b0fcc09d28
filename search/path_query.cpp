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

/// The nodes found, one after the other, and whether an item shows the next one.
class Matches {
public:
    Matches(const std::vector<Node> &all, const TreeStore &store,
            const tree::NodeRegistry &registry)
        : next_(all.begin()), end_(all.end()), store_(store), registry_(registry) {
        lookAtNext();
    }

    bool take(TreeStore::Slot slot) {
        if (next_ == end_ || !isShownBy(slot))
            return false;
        ++next_;
        lookAtNext();
        return true;
    }

private:
    quint32 numberAt(TreeStore::Slot slot) const {
        return registry_.number(store_.sequenceOf(slot));
    }

    /// An attribute that was added has an item for a copy of it, below its element.
    bool isShownBy(TreeStore::Slot slot) const {
        if (numberAt(slot) == next_->number())
            return true;
        if (element_ == 0 || store_.parent(slot) == TreeStore::Root ||
            numberAt(store_.parent(slot)) != element_)
            return false;
        const Node shown = registry_.Item(store_.sequenceOf(slot));
        return shown.nodeType() == NodeType::Attribute && shown.nodeName() == next_->nodeName();
    }

    void lookAtNext() { element_ = next_ != end_ ? xml::ownerElement(*next_).number() : 0; }

    std::vector<Node>::const_iterator next_;
    std::vector<Node>::const_iterator end_;
    const TreeStore &store_;
    const tree::NodeRegistry &registry_;
    /// The number of the next node's element; 0 when that node is no attribute.
    quint32 element_ = 0;
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
    const TreeStore &store = nodes.store();
    nodes.clearBold();
    AncestorExpansion ancestors(nodes);
    TreeItem first;
    // A single merge, for the sake of speed: a match that has no item, or an item out of document
    // order, keeps all later matches from being marked.
    Matches next(matches, store, registry_);
    store.live().forEach([&](TreeStore::Slot slot) {
        if (!next.take(slot))
            return;
        TreeItem item = nodes.item(slot);
        item.setBold(true);
        ancestors.expandAbove(slot);
        if (!first)
            first = item;
    });
    return first;
}

void PathQuery::remember(const QString &query) {
    if (!cboPath_.List().contains(query))
        cboPath_.AddItem(query);
    Q_EMIT remembered(query);
}

} // namespace quillon::search
