#pragma once

#include <QString>

namespace quillon::items {

class Nodes;

/// Handle of one item of a tree: a small value, cheap to copy. It does not keep the item alive; the
/// Nodes must outlive it.
///
/// The empty handle is "Nothing", and so is every handle whose item has been removed or cleared:
/// it equals the empty one, answers with empty texts, zeros and Nothing, and setting anything
/// through it does nothing.
class TreeItem {
public:
    TreeItem() = default;

    bool isNothing() const;
    explicit operator bool() const { return !isNothing(); }
    bool operator==(const TreeItem &other) const;

    /// The number handed to Nodes::Add(), or given by the base; 0 for Nothing.
    quint32 sequence() const;
    /// The sequence number followed by "Node", e.g. "12Node".
    QString Key() const;
    /// 1-based place in the collection, by the order in which its items were added.
    int Index() const;

    /// The caption: the one set, else what the caption source says.
    QString Text() const;
    /// Sets a caption that stands until the collection is cleared.
    void setText(const QString &text);
    /// Sets the present caption: the caption source is not asked again.
    void pinText();

    TreeItem Parent() const;
    /// The first child.
    TreeItem Child() const;
    TreeItem Next() const;
    TreeItem Previous() const;
    /// The number of children.
    int Children() const;
    /// The captions from the top-level item down to this one, joined by "/".
    QString FullPath() const;

    /// Whether the children are to be seen as soon as the item itself is. Kept for every item,
    /// with or without children, shown or not.
    bool Expanded() const;
    void setExpanded(bool expanded);
    bool Bold() const;
    void setBold(bool bold);

    /// Expands all ancestors and scrolls to the item.
    void EnsureVisible();

private:
    friend class Nodes;

    TreeItem(Nodes *nodes, quint32 slot, quint32 generation)
        : nodes_(nodes), slot_(slot), generation_(generation) {}

    /// The item's slot, or 0 for Nothing.
    quint32 slot() const;

    Nodes *nodes_ = nullptr;
    quint32 slot_ = 0;
    /// Which content of the collection the slot belongs to: the next one uses it for another item.
    quint32 generation_ = 0;
};

} // namespace quillon::items
