#pragma once

#include "platform/items/tree_item.h"
#include "platform/items/tree_store.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QSet>

namespace quillon::items {

/// Says what the items of a tree look like. Asked again and again, whenever something is shown.
class CaptionSource {
public:
    virtual ~CaptionSource() = default;

    virtual QString caption(const TreeItem &item) const = 0;
    /// 0-based place in the view's image list; -1 for no image.
    virtual int image(const TreeItem &item) const = 0;
    /// What the image means, in words for those who cannot see it; empty for nothing.
    virtual QString kind(const TreeItem &) const { return {}; }
};

/// A sign that something is wrong with what an item shows.
enum class Mark : quint8 {
    None,
    /// It does not keep to its rules.
    Invalid,
    /// It cannot even be read.
    Broken,
};

/// Says which items are marked, and why. Asked for what is shown only.
class MarkSource {
public:
    virtual ~MarkSource() = default;

    virtual Mark mark(const TreeItem &item) const = 0;
    /// The gravest mark of all items below.
    virtual Mark markBelow(const TreeItem &item) const = 0;
    /// Why an item is marked itself, a line for each reason; empty for one that is not.
    virtual QString reasons(const TreeItem &item) const = 0;
};

/// How a new item stands to the one it is added to.
enum class Relationship {
    /// Its last child.
    Child,
    /// The sibling before it.
    Previous,
};

/// The items of a tree: a collection by number, a tree, and the model that Qt's views show.
/// Fit for millions of items: captions and images are not kept but asked from a CaptionSource, and
/// Qt's row numbers exist only where a view has looked.
class Nodes : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit Nodes(QObject *parent = nullptr);

    /// The source must outlive the items; without one, captions are empty unless set.
    void setCaptionSource(const CaptionSource *source) { source_ = source; }

    /// The source must outlive the items; without one, nothing is marked. To be told of a change by
    /// renewMarks().
    void setMarkSource(const MarkSource *source) { markSource_ = source; }
    void renewMarks() { Q_EMIT marksChanged(); }

    /// Adds an item and returns it. Nothing as the relative makes a top-level item of a Child. The
    /// sequence number, which makes the item's key, must be positive and greater than that of all
    /// items added since the collection was last cleared. Raises InvalidProcedureCall for a number
    /// that is not, and for Previous to Nothing.
    TreeItem Add(const TreeItem &relative, Relationship relationship, quint32 sequence);
    /// Removes an item with all items below it. Not between beginBuild() and endBuild().
    void Remove(const TreeItem &item);
    /// Removes everything; ends a build that an error has left open.
    void Clear() { reset({}); }
    /// The same, with other items in place of all these: one reset of the model, whatever their
    /// number. All of them are collapsed.
    void reset(std::shared_ptr<const BaseItems> base);

    int Count() const { return static_cast<int>(store_.count()); }
    /// The item at a 1-based index, see TreeItem::Index(); Nothing outside 1..Count().
    TreeItem Item(int index) const;

    /// From here to endBuild() many items are added; nobody is told of each. Each new item below an
    /// old one is announced together with all that comes below it, which must be added right after
    /// it.
    void beginBuild() { isBuilding_ = true; }
    void endBuild();

    /// Expands the item and everything below it that has children, or collapses them all.
    void setExpandedSubtree(const TreeItem &item, bool expanded);
    /// Calls f(TreeItem) for all expanded items, in the order of their slots. f must not expand or
    /// collapse any.
    template <typename F>
    void forEachExpanded(F &&f) {
        store_.expanded().forEach([&](TreeStore::Slot slot) { f(item(slot)); });
    }
    /// Expands all items above this one.
    void expandAncestors(const TreeItem &item);
    /// Has the captions of items asked for anew: those for which f(TreeItem) is true.
    template <typename F>
    void renewCaptions(F &&f) {
        captions_.removeIf([&](const auto &own) { return f(item(own.key())); });
        Q_EMIT appearanceChanged();
    }
    /// Whether any item is bold; and all that are, in no order.
    bool hasBold() const { return !bold_.isEmpty(); }
    std::vector<TreeItem> boldItems() const;
    /// Makes these items bold and no others.
    void setBoldItems(const std::vector<TreeItem> &items);

    const TreeStore &store() const { return store_; }
    TreeStore::Slot slotOf(const TreeItem &item) const {
        return item.nodes_ == this && item.generation_ == generation_ && store_.isLive(item.slot_)
                   ? item.slot_
                   : 0;
    }
    /// The item in a slot; Nothing for slot 0.
    TreeItem item(TreeStore::Slot slot) const;
    /// Conversions between items and the model's indexes; Nothing is the invalid index.
    TreeItem itemAt(const QModelIndex &index) const { return item(slotAt(index)); }
    QModelIndex indexOf(const TreeItem &item) const { return indexOf(slotOf(item)); }
    static TreeStore::Slot slotAt(const QModelIndex &index) {
        return static_cast<TreeStore::Slot>(index.internalId());
    }
    QModelIndex indexOf(TreeStore::Slot slot) const;

    /// What the caption source says about the item's image; -1 for Nothing and without a source.
    int image(const TreeItem &item) const;
    /// What it says about the item's kind; empty for Nothing and without a source.
    QString kind(const TreeItem &item) const;
    /// How an item is marked, what is marked below it, and why it is itself; None and empty for
    /// Nothing.
    Mark mark(const TreeItem &item) const;
    Mark markBelow(const TreeItem &item) const;
    QString markReasons(const TreeItem &item) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    using QAbstractItemModel::parent;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &) const override { return 1; }
    bool hasChildren(const QModelIndex &parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// The caption. Images and weight, which are of no type that this library knows, a view gets
    /// from image() and TreeItem::Bold(); dataChanged() names Qt::FontRole for the latter.
    QVariant data(const QModelIndex &index, int role) const override;

Q_SIGNALS:
    /// An item, or with it everything below, has been expanded or collapsed.
    void expansionChanged(const quillon::items::TreeItem &item, bool expanded);
    /// The weight, or the captions, of many items have changed.
    void appearanceChanged();
    /// Other items are marked, or for other reasons.
    void marksChanged();
    /// A view should scroll to this item; its ancestors are expanded.
    void revealRequested(const quillon::items::TreeItem &item);

private:
    friend class TreeItem;

    QString caption(TreeStore::Slot slot) const;
    void setCaption(TreeStore::Slot slot, const QString &text);
    void setExpanded(TreeStore::Slot slot, bool expanded);
    void setBold(TreeStore::Slot slot, bool bold);

    /// Whether the next item under parent has to be announced.
    bool isAnnounced(TreeStore::Slot parent) const;
    void beginAnnounce(TreeStore::Slot parent, TreeStore::Slot before);
    void endAnnounce();
    void emitDataChanged(TreeStore::Slot slot, const QList<int> &roles);

    TreeStore store_;
    quint32 generation_ = 0;
    const CaptionSource *source_ = nullptr;
    const MarkSource *markSource_ = nullptr;
    QHash<TreeStore::Slot, QString> captions_;
    QSet<TreeStore::Slot> bold_;

    bool isBuilding_ = false;
    /// The item whose rowsInserted is outstanding in a build, or 0.
    TreeStore::Slot announced_ = 0;
};

} // namespace quillon::items
