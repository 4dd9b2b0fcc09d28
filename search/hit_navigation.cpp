#include "search/hit_navigation.h"

#include "platform/xml/query/xpath.h"
#include "resources/hit_texts.h"

namespace quillon::search {

namespace texts = resources::hit_texts;
using items::TreeItem;
using xml::Node;
using xml::NodeType;

HitNavigation::HitNavigation(HitList &hits, const tree::TreeBuilder &builder,
                             tree::Selection &selection, items::Tree &tree,
                             const tree::PaneContent &pane)
    : hits_(hits), builder_(builder), selection_(selection), tree_(tree), pane_(pane) {}

bool HitNavigation::goTo(int row) {
    const Hit hit = hits_.hit(row);
    const Node node = hits_.node(row);
    if (!showItem(itemOf(node)))
        return false;
    hits_.setCurrentRow(row);
    Q_EMIT statusText((isOfFaults() ? texts::PlaceInFaults : texts::PlaceInList)
                          .toString()
                          .arg(row + 1)
                          .arg(hits_.rowCount()));
    return selectInPane(node, hit);
}

bool HitNavigation::show(const Hit &hit) {
    const Node node = builder_.registry().document().nodeByNumber(hit.node);
    return showItem(itemOf(node)) && selectInPane(node, hit);
}

bool HitNavigation::showItem(const TreeItem &item) {
    selection_.ShowNode(item, true);
    if (!item || pane_.shownItem != item)
        return false;
    TreeItem(item).EnsureVisible();
    return true;
}

void HitNavigation::mnuViewNextHit_Click() {
    hits_.sweepAll();
    goOn(hits_.rowAfter(), isOfFaults() ? texts::LastFault : texts::LastHit);
}

void HitNavigation::mnuViewPreviousHit_Click() {
    hits_.sweepAll();
    goOn(hits_.rowBefore(), isOfFaults() ? texts::FirstFault : texts::FirstHit);
}

void HitNavigation::startFromSelected() {
    const quint32 selected = selection_.GetSelectedDOMNode().number();
    for (int row = 0; row < hits_.rowCount(); ++row) {
        if (hits_.hit(row).node == selected)
            return hits_.setCurrentRow(row);
    }
}

void HitNavigation::goOn(int row, QStringView atTheEnd) {
    if (hits_.isEmpty())
        Q_EMIT statusText((isOfFaults() ? texts::NoFaults : texts::NoHits).toString());
    else if (row < 0)
        Q_EMIT statusText(atTheEnd.toString());
    else
        goTo(row);
}

TreeItem HitNavigation::itemOf(const Node &node) const {
    for (Node at = node; at;) {
        if (const TreeItem item = builder_.itemOf(at))
            return item;
        if (at.nodeType() != NodeType::Attribute) {
            at = at.parentNode();
            continue;
        }
        // The item of an attribute that was added shows a copy of it.
        const Node element = xml::ownerElement(at);
        for (TreeItem child = builder_.itemOf(element).Child(); child; child = child.Next()) {
            const Node shown = selection_.GetDOMNode(child);
            if (shown.nodeType() == NodeType::Attribute && shown.nodeName() == at.nodeName())
                return child;
        }
        at = element;
    }
    return {};
}

bool HitNavigation::isInPane(const Node &node) const {
    if (selection_.hasUnparsedText())
        return false;
    const Node shown = selection_.GetSelectedDOMNode();
    // The item of an attribute that was added shows a copy of it.
    return shown == node ||
           (shown.nodeType() == NodeType::Attribute && node.nodeType() == NodeType::Attribute);
}

bool HitNavigation::selectInPane(const Node &node, const Hit &hit) {
    if (!isInPane(node))
        return false;
    ui::TextBox &pane = pane_.textBox();
    const bool isElement = node.nodeType() == NodeType::Element;
    if (hit.part == Part::Name && isElement) {
        // Its source starts with "<" and the name.
        pane.select(hit.at + 1, hit.length);
        return true;
    }
    if (hit.part != Part::Value)
        return false;
    // A line end counts two in the pane.
    const QString value = node.nodeValue();
    const auto lines = [&](qsizetype at, qsizetype length) {
        return value.mid(at, length).count(u'\n');
    };
    pane.select(hit.at + lines(0, hit.at), hit.length + lines(hit.at, hit.length));
    return true;
}

} // namespace quillon::search
