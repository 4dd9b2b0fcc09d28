#include "edit/child_sorting.h"

#include "platform/ui/message_box.h"
#include "platform/xml/dom/arrangement.h"
#include "platform/xml/query/xpath.h"
#include "resources/node_texts.h"

#include <QCollator>
#include <QRegularExpression>

#include <algorithm>

namespace quillon::edit {

namespace texts = resources::node_texts;
using xml::Node;
using xml::NodeType;

/// An element with what goes with it.
struct ChildSorting::Group {
    std::vector<Node> nodes;
    /// Empty for what is behind the last element.
    Node element;
    std::optional<QString> value;
    std::optional<double> number;
};

namespace {

bool isCharacterData(const Node &node) {
    const NodeType kind = node.nodeType();
    return kind == NodeType::Text || kind == NodeType::CDATASection ||
           kind == NodeType::EntityReference;
}

std::optional<double> numberIn(const QString &value) {
    static const QRegularExpression number(QStringLiteral("^[-+]?([0-9]+\\.?[0-9]*|\\.[0-9]+)$"));
    // Full-width digits count as well.
    const QString plain = value.normalized(QString::NormalizationForm_KC).trimmed();
    return number.match(plain).hasMatch() ? std::optional(plain.toDouble()) : std::nullopt;
}

} // namespace

ChildSorting::ChildSorting(const state::DocumentState &state, tree::TreeBuilder &builder,
                           tree::NodeRemoval &removal, tree::Selection &selection,
                           items::Tree &tree, ui::LongWork &longWork)
    : state_(state), builder_(builder), selection_(selection), tree_(tree),
      relocation_(builder, removal, tree), longWork_(longWork) {}

bool ChildSorting::maySort() const {
    const Node parent = selection_.GetSelectedDOMNode();
    if (state_.m_ReadOnly || parent.nodeType() != NodeType::Element)
        return false;
    int elements = 0;
    for (Node child = parent.firstChild(); child; child = child.nextSibling()) {
        elements += child.nodeType() == NodeType::Element;
        if (isCharacterData(child)) {
            ui::showMessage(texts::CannotSortMixed.toString().arg(parent.nodeName()),
                            ui::message_style::Exclamation);
            return false;
        }
    }
    if (elements < 2)
        ui::showMessage(texts::CannotSort.toString().arg(parent.nodeName()),
                        ui::message_style::Exclamation);
    return elements > 1;
}

std::vector<ChildSorting::Group> ChildSorting::groups(const Node &parent) const {
    std::vector<Group> groups(1);
    for (Node child = parent.firstChild(); child; child = child.nextSibling()) {
        const bool isElement = child.nodeType() == NodeType::Element;
        const bool isOnLineOfLast = !isElement && groups.size() > 1 &&
                                    groups.back().nodes.empty() && !xml::lineIndentOf(child) &&
                                    xml::lineIndentOf(groups[groups.size() - 2].element);
        Group &group = isOnLineOfLast ? groups[groups.size() - 2] : groups.back();
        group.nodes.push_back(child);
        if (isElement) {
            group.element = child;
            groups.emplace_back();
        }
    }
    return groups;
}

void ChildSorting::findKeys(std::vector<Group> &groups, const SortOrder &order) const {
    std::vector<Node> elements;
    for (const Group &group : groups) {
        if (group.element)
            elements.push_back(group.element);
    }
    std::vector<std::optional<QString>> values;
    if (order.by == SortOrder::By::Path) {
        longWork_.run(texts::Sorting.toString(), ui::LongWork::Stop::Offered,
                      [&](const runtime::Progress &progress) {
                          values = xml::valuesAt(elements, order.key, progress);
                      });
    } else {
        for (const Node &element : elements)
            values.push_back(order.by == SortOrder::By::Name ? element.nodeName()
                                                             : element.getAttribute(order.key));
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        groups[i].value = values[i];
        groups[i].number = values[i] ? numberIn(*values[i]) : std::nullopt;
    }
}

void ChildSorting::sort(const SortOrder &order) {
    if (!maySort())
        return;
    const Node parent = selection_.GetSelectedDOMNode();
    std::vector<Group> all = groups(parent);
    findKeys(all, order);
    QCollator collator(QLocale(QLocale::Japanese, QLocale::Japan));
    const auto rank = [](const Group &group) { return !group.value ? 2 : !group.number; };
    const auto comesFirst = [&](const Group &a, const Group &b) {
        if (rank(a) == 2 || rank(b) == 2)
            return rank(a) < rank(b);
        const Group &lower = order.isDescending ? b : a;
        const Group &higher = order.isDescending ? a : b;
        if (rank(a) != rank(b))
            return rank(lower) < rank(higher);
        return a.number ? *lower.number < *higher.number
                        : collator.compare(*lower.value, *higher.value) < 0;
    };
    // What is behind the last element stays there.
    const auto end = all.end() - 1;
    if (std::is_sorted(all.begin(), end, comesFirst)) {
        Q_EMIT statusText(texts::SortedAlready.toString());
        return;
    }
    std::stable_sort(all.begin(), end, comesFirst);
    std::vector<std::vector<Node>> sorted;
    for (Group &group : all)
        sorted.push_back(std::move(group.nodes));
    const tree::TreeBuilder::PreviewPause pause(builder_);
    const items::TreeItem item = tree_.SelectedItem();
    xml::reorderChildren(parent, sorted);
    relocation_.showChildrenAnew(item);
    tree_.setSelectedItem(item);
    Q_EMIT documentModified();
    selection_.ShowNode(item, true);
}

} // namespace quillon::edit
