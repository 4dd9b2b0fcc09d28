#include "platform/items/tree_item.h"

#include "platform/items/tree_nodes.h"

#include <QStringList>

namespace quillon::items {

quint32 TreeItem::slot() const {
    return nodes_ != nullptr ? nodes_->slotOf(*this) : 0;
}

bool TreeItem::isNothing() const {
    return slot() == 0;
}

bool TreeItem::operator==(const TreeItem &other) const {
    const quint32 own = slot();
    return own == other.slot() && (own == 0 || nodes_ == other.nodes_);
}

quint32 TreeItem::sequence() const {
    const quint32 own = slot();
    return own == 0 ? 0 : nodes_->store_.sequenceOf(own);
}

QString TreeItem::Key() const {
    const quint32 number = sequence();
    return number == 0 ? QString() : QString::number(number) + QStringLiteral("Node");
}

int TreeItem::Index() const {
    const quint32 own = slot();
    return own == 0 ? 0 : static_cast<int>(nodes_->store_.indexOf(own)) + 1;
}

QString TreeItem::Text() const {
    const quint32 own = slot();
    return own == 0 ? QString() : nodes_->caption(own);
}

void TreeItem::setText(const QString &text) {
    if (const quint32 own = slot())
        nodes_->setCaption(own, text);
}

void TreeItem::pinText() {
    if (const quint32 own = slot())
        nodes_->captions_.insert(own, nodes_->caption(own));
}

TreeItem TreeItem::Parent() const {
    const quint32 own = slot();
    return own == 0 ? TreeItem() : nodes_->item(nodes_->store_.parent(own));
}

TreeItem TreeItem::Child() const {
    const quint32 own = slot();
    return own == 0 ? TreeItem() : nodes_->item(nodes_->store_.firstChild(own));
}

TreeItem TreeItem::Next() const {
    const quint32 own = slot();
    return own == 0 ? TreeItem() : nodes_->item(nodes_->store_.next(own));
}

TreeItem TreeItem::Previous() const {
    const quint32 own = slot();
    return own == 0 ? TreeItem() : nodes_->item(nodes_->store_.previous(own));
}

int TreeItem::Children() const {
    const quint32 own = slot();
    return own == 0 ? 0 : static_cast<int>(nodes_->store_.childCount(own));
}

QString TreeItem::FullPath() const {
    QStringList captions;
    for (quint32 at = slot(); at != 0; at = nodes_->store_.parent(at))
        captions.prepend(nodes_->caption(at));
    return captions.join(u'/');
}

bool TreeItem::Expanded() const {
    const quint32 own = slot();
    return own != 0 && nodes_->store_.isExpanded(own);
}

void TreeItem::setExpanded(bool expanded) {
    if (const quint32 own = slot())
        nodes_->setExpanded(own, expanded);
}

bool TreeItem::Bold() const {
    const quint32 own = slot();
    return own != 0 && nodes_->bold_.contains(own);
}

void TreeItem::setBold(bool bold) {
    if (const quint32 own = slot())
        nodes_->setBold(own, bold);
}

void TreeItem::EnsureVisible() {
    if (isNothing())
        return;
    nodes_->expandAncestors(*this);
    Q_EMIT nodes_->revealRequested(*this);
}

} // namespace quillon::items
