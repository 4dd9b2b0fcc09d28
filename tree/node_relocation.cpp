#include "tree/node_relocation.h"

#include "platform/xml/dom/arrangement.h"
#include "tree/node_transfer.h"

namespace quillon::tree {

using items::TreeItem;
using items::TreeStore;
using xml::Node;

namespace {

/// What a node has had at the place that it leaves.
class Departure {
public:
    explicit Departure(const Node &node)
        : node_(node), indent_(xml::lineIndentOf(node)),
          scope_(isElement() ? namespacesAt(node.parentNode()) : Namespaces()) {}

    /// Makes up for it at the new place.
    void adapt() const {
        if (!isElement())
            return;
        if (const Namespaces now = namespacesAt(node_.parentNode()); now != scope_)
            declareAnew(node_, scope_, now);
        xml::reindentBelow(node_, indent_);
    }

private:
    bool isElement() const { return node_.nodeType() == xml::NodeType::Element; }

    Node node_;
    std::optional<std::string> indent_;
    Namespaces scope_;
};

} // namespace

Place NodeRelocation::ahead(const TreeItem &item) const {
    return {item.Parent(), item, builder_.registry().Item(item)};
}

Place NodeRelocation::behind(const TreeItem &item) const {
    return {item.Parent(), item.Next(), builder_.registry().Item(item).nextSibling()};
}

Place NodeRelocation::lastIn(const TreeItem &parent) const {
    return {parent, {}, {}};
}

TreeItem NodeRelocation::move(const TreeItem &item, const Place &place) {
    const Node node = builder_.registry().Item(item);
    const Node newParent = builder_.registry().Item(place.parent);
    if (newParent == node.parentNode()) {
        newParent.insertBefore(node, place.ref);
    } else {
        const Departure departure(node);
        newParent.insertBefore(node, place.ref);
        departure.adapt();
    }
    return follow(item, place);
}

TreeItem NodeRelocation::moveInPlaceOf(const TreeItem &item, const TreeItem &old) {
    const Node node = builder_.registry().Item(item);
    const Node oldNode = builder_.registry().Item(old);
    const Departure departure(node);
    oldNode.parentNode().replaceChild(node, oldNode);
    departure.adapt();
    return follow(item, ahead(old));
}

TreeItem NodeRelocation::insert(const Node &node, const Place &place) {
    return show(builder_.registry().Item(place.parent).insertBefore(node, place.ref), place);
}

std::unordered_set<quint32> NodeRelocation::expandedBelow(const TreeItem &item) const {
    const items::Nodes &nodes = tree_.nodes();
    const TreeStore &store = nodes.store();
    std::unordered_set<quint32> numbers;
    const TreeStore::Slot top = nodes.slotOf(item);
    for (TreeStore::Slot at = top; at != 0; at = store.nextInSubtree(at, top)) {
        if (store.isExpanded(at))
            numbers.insert(builder_.registry().number(nodes.item(at)));
    }
    return numbers;
}

void NodeRelocation::expandBelow(const TreeItem &item, const std::unordered_set<quint32> &numbers) {
    const items::Nodes &nodes = tree_.nodes();
    const TreeStore &store = nodes.store();
    const TreeStore::Slot top = nodes.slotOf(item);
    for (TreeStore::Slot at = numbers.empty() ? 0 : top; at != 0;
         at = store.nextInSubtree(at, top)) {
        if (numbers.contains(builder_.registry().number(nodes.item(at))))
            nodes.item(at).setExpanded(true);
    }
}

TreeItem NodeRelocation::follow(const TreeItem &item, const Place &place) {
    const Node node = builder_.registry().Item(item);
    const auto expanded = expandedBelow(item);
    removal_.removeItem(item);
    const TreeItem moved = show(node, place);
    expandBelow(moved, expanded);
    return moved;
}

void NodeRelocation::showChildrenAnew(const TreeItem &parent) {
    const NodeRegistry &registry = builder_.registry();
    const auto expanded = expandedBelow(parent);
    std::vector<TreeItem> old;
    for (TreeItem child = parent.Child(); child; child = child.Next()) {
        if (registry.Item(child).nodeType() != xml::NodeType::Attribute)
            old.push_back(child);
    }
    // From the last one on, so that none has to move up in the list of siblings.
    for (auto item = old.rbegin(); item != old.rend(); ++item)
        removal_.removeItem(*item);
    for (Node child = registry.Item(parent).firstChild(); child; child = child.nextSibling())
        show(child, lastIn(parent));
    expandBelow(parent, expanded);
}

TreeItem NodeRelocation::show(const Node &node, const Place &place) {
    TreeItem relItem = place.before ? place.before : place.parent;
    items::Relationship relationship =
        place.before ? items::Relationship::Previous : items::Relationship::Child;
    Node shown = node;
    return builder_.AddNodeToTree(relItem, shown, true, relationship);
}

} // namespace quillon::tree
