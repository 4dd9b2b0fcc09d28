#include "validation/fault_marks.h"

#include "platform/xml/query/xpath.h"

#include <QStringList>

#include <algorithm>

namespace quillon::validation {

using items::Mark;
using xml::Node;
using xml::NodeType;

namespace {

Mark markOf(const Fault &fault) {
    return fault.kind == FaultKind::Syntax ? Mark::Broken : Mark::Invalid;
}

} // namespace

FaultMarks::FaultMarks(const LiveValidation &live, const tree::NodeRegistry &registry,
                       items::Tree &tree)
    : live_(live), registry_(registry), tree_(tree) {
    tree_.nodes().setMarkSource(this);
}

void FaultMarks::faultsChanged() {
    const bool hadMarks = !below_.empty();
    below_.clear();
    const xml::DOMDocument40 &document = registry_.document();
    for (const Fault &fault : live_.faults()) {
        const Mark mark = markOf(fault);
        const Node node = document ? document.nodeByNumber(fault.node) : Node();
        Node above =
            node.nodeType() == NodeType::Attribute ? xml::ownerElement(node) : node.parentNode();
        // Where a mark stands already it stands on everything above, too.
        for (; above; above = above.parentNode()) {
            Mark &known = below_[above.number()];
            if (known >= mark)
                break;
            known = mark;
        }
    }
    if (hadMarks || !live_.faults().empty())
        tree_.nodes().renewMarks();
}

quint32 FaultMarks::nodeOf(const items::TreeItem &item) const {
    const Node node = registry_.Item(item);
    if (node.nodeType() != NodeType::Attribute || xml::ownerElement(node))
        return node.number();
    const Node element = registry_.Item(item.Parent());
    return element.getAttributeNode(node.nodeName()).number();
}

Mark FaultMarks::mark(const items::TreeItem &item) const {
    Mark mark = Mark::None;
    for (const std::size_t at : live_.faultsAt(nodeOf(item)))
        mark = std::max(mark, markOf(live_.faults()[at]));
    return mark;
}

Mark FaultMarks::markBelow(const items::TreeItem &item) const {
    const auto found = below_.find(registry_.number(item));
    return found == below_.end() ? Mark::None : found->second;
}

QString FaultMarks::reasons(const items::TreeItem &item) const {
    QStringList sentences;
    for (const std::size_t at : live_.faultsAt(nodeOf(item)))
        sentences += live_.faults()[at].sentence;
    return sentences.join(u'\n');
}

} // namespace quillon::validation
