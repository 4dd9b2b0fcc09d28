#include "platform/items/tree_nodes.h"

#include "platform/runtime/error.h"

namespace quillon::items {

using Slot = TreeStore::Slot;

Nodes::Nodes(QObject *parent) : QAbstractItemModel(parent) {}

TreeItem Nodes::Add(const TreeItem &relative, Relationship relationship, quint32 sequence) {
    const Slot to = slotOf(relative);
    const bool asChild = relationship == Relationship::Child;
    if (to == 0 && !asChild)
        runtime::raise(runtime::error_number::InvalidProcedureCall);
    const Slot parent = asChild ? to : store_.parent(to);
    const Slot before = asChild ? 0 : to;

    if (!isAnnounced(parent))
        return item(store_.insert(sequence, parent, before));
    store_.checkSequence(sequence);
    endAnnounce();
    beginAnnounce(parent, before);
    const Slot slot = store_.insert(sequence, parent, before);
    announced_ = slot;
    if (!isBuilding_)
        endAnnounce();
    return item(slot);
}

bool Nodes::isAnnounced(Slot parent) const {
    // Slots ascend: everything below the announced item comes after it.
    return !isBuilding_ || announced_ == 0 || parent < announced_;
}

void Nodes::beginAnnounce(Slot parent, Slot before) {
    const quint32 row =
        before != 0 ? store_.row(before) : static_cast<quint32>(store_.children(parent).size());
    beginInsertRows(indexOf(parent), static_cast<int>(row), static_cast<int>(row));
}

void Nodes::endAnnounce() {
    if (announced_ == 0)
        return;
    announced_ = 0;
    endInsertRows();
}

void Nodes::Remove(const TreeItem &item) {
    const Slot top = slotOf(item);
    if (top == 0)
        return;
    const auto row = static_cast<int>(store_.row(top));
    beginRemoveRows(indexOf(store_.parent(top)), row, row);
    store_.remove(top, [this](Slot slot) {
        captions_.remove(slot);
        bold_.remove(slot);
    });
    endRemoveRows();
}

void Nodes::reset(std::shared_ptr<const BaseItems> base) {
    endBuild();
    beginResetModel();
    store_.reset(std::move(base));
    captions_.clear();
    bold_.clear();
    ++generation_;
    endResetModel();
}

TreeItem Nodes::Item(int index) const {
    // The first item is asked for all the time, the number of all may have to be counted.
    if (index < 1 || store_.isEmpty() || (index > 1 && index > Count()))
        return {};
    return item(store_.at(static_cast<quint32>(index) - 1));
}

TreeItem Nodes::item(Slot slot) const {
    if (slot == 0)
        return {};
    // A handle changes its item through the collection whether or not that was found const.
    return {const_cast<Nodes *>(this), slot, generation_};
}

void Nodes::endBuild() {
    isBuilding_ = false;
    endAnnounce();
}

QString Nodes::caption(Slot slot) const {
    if (const auto own = captions_.constFind(slot); own != captions_.constEnd())
        return *own;
    return source_ != nullptr ? source_->caption(item(slot)) : QString();
}

void Nodes::setCaption(Slot slot, const QString &text) {
    captions_.remove(slot);
    if (caption(slot) != text)
        captions_.insert(slot, text);
    emitDataChanged(slot, {});
}

void Nodes::setExpanded(Slot slot, bool expanded) {
    if (store_.isExpanded(slot) == expanded)
        return;
    store_.setExpanded(slot, expanded);
    if (!isBuilding_)
        Q_EMIT expansionChanged(item(slot), expanded);
}

void Nodes::setExpandedSubtree(const TreeItem &item, bool expanded) {
    const Slot top = slotOf(item);
    if (top == 0)
        return;
    for (Slot slot = top; slot != 0; slot = store_.nextInSubtree(slot, top)) {
        if (!expanded || store_.firstChild(slot) != 0)
            store_.setExpanded(slot, expanded);
    }
    if (!isBuilding_)
        Q_EMIT expansionChanged(item, expanded);
}

void Nodes::expandAncestors(const TreeItem &item) {
    const Slot slot = slotOf(item);
    if (slot == 0)
        return;
    for (Slot at = store_.parent(slot); at != TreeStore::Root; at = store_.parent(at))
        setExpanded(at, true);
}

void Nodes::setBold(Slot slot, bool bold) {
    if (bold_.contains(slot) == bold)
        return;
    if (bold)
        bold_.insert(slot);
    else
        bold_.remove(slot);
    emitDataChanged(slot, {Qt::FontRole});
}

std::vector<TreeItem> Nodes::boldItems() const {
    std::vector<TreeItem> items;
    items.reserve(static_cast<std::size_t>(bold_.size()));
    for (const Slot slot : bold_)
        items.push_back(item(slot));
    return items;
}

void Nodes::setBoldItems(const std::vector<TreeItem> &items) {
    if (bold_.isEmpty() && items.empty())
        return;
    bold_.clear();
    for (const TreeItem &item : items) {
        if (const Slot slot = slotOf(item))
            bold_.insert(slot);
    }
    Q_EMIT appearanceChanged();
}

void Nodes::emitDataChanged(Slot slot, const QList<int> &roles) {
    if (isBuilding_)
        return;
    const QModelIndex index = indexOf(slot);
    Q_EMIT dataChanged(index, index, roles);
}

QModelIndex Nodes::indexOf(Slot slot) const {
    return slot == 0 ? QModelIndex() : createIndex(static_cast<int>(store_.row(slot)), 0, slot);
}

QModelIndex Nodes::index(int row, int column, const QModelIndex &parent) const {
    if (row < 0 || column != 0)
        return {};
    const auto &children = store_.children(slotAt(parent));
    if (static_cast<size_t>(row) >= children.size())
        return {};
    return createIndex(row, 0, children[static_cast<size_t>(row)]);
}

QModelIndex Nodes::parent(const QModelIndex &child) const {
    return child.isValid() ? indexOf(store_.parent(slotAt(child))) : QModelIndex();
}

int Nodes::rowCount(const QModelIndex &parent) const {
    return static_cast<int>(store_.children(slotAt(parent)).size());
}

bool Nodes::hasChildren(const QModelIndex &parent) const {
    return store_.firstChild(slotAt(parent)) != 0;
}

Qt::ItemFlags Nodes::flags(const QModelIndex &index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
}

int Nodes::image(const TreeItem &item) const {
    return item && source_ != nullptr ? source_->image(item) : -1;
}

QString Nodes::kind(const TreeItem &item) const {
    return item && source_ != nullptr ? source_->kind(item) : QString();
}

Mark Nodes::mark(const TreeItem &item) const {
    return item && markSource_ != nullptr ? markSource_->mark(item) : Mark::None;
}

Mark Nodes::markBelow(const TreeItem &item) const {
    return item && markSource_ != nullptr ? markSource_->markBelow(item) : Mark::None;
}

QString Nodes::markReasons(const TreeItem &item) const {
    return item && markSource_ != nullptr ? markSource_->reasons(item) : QString();
}

QVariant Nodes::data(const QModelIndex &index, int role) const {
    const Slot slot = slotAt(index);
    const bool isCaption = role == Qt::DisplayRole || role == Qt::EditRole;
    return slot != 0 && isCaption ? QVariant(caption(slot)) : QVariant();
}

} // namespace quillon::items
