#pragma once

#include "platform/items/tree_item.h"
#include "platform/xml/dom/dom.h"

#include <vector>

namespace quillon::tree {

/// The way from a tree item to its DOM node (`m_dicNode`). All nodes belong to one document, the
/// one that the tree was built from.
class NodeRegistry {
public:
    /// Forgets everything. From now on the nodes belong to `document`; entries have keys of
    /// firstSequence and above.
    void reset(const xml::DOMDocument40 &document, quint32 firstSequence);
    void reserve(std::size_t items) { numbers_.reserve(items); }

    /// Registers, or registers anew, the node an item shows.
    void set(quint32 sequence, const xml::Node &node) { setNumber(sequence, node.number()); }
    void setNumber(quint32 sequence, quint32 number);
    void Remove(quint32 sequence);

    /// The node registered for an item; empty when there is none.
    xml::Node Item(quint32 sequence) const;
    xml::Node Item(const items::TreeItem &item) const { return Item(item.sequence()); }
    /// The number of that node, 0 for none.
    quint32 number(quint32 sequence) const;

    /// Calls f(sequence, number of the node) for every entry.
    template <typename F>
    void forEach(F &&f) const {
        for (std::size_t at = 0; at < numbers_.size(); ++at) {
            if (numbers_[at] != 0)
                f(firstSequence_ + static_cast<quint32>(at), numbers_[at]);
        }
    }

    const xml::DOMDocument40 &document() const { return document_; }
    /// True before the first tree is built and after the document was closed.
    bool isEmpty() const { return document_.isNull(); }

private:
    xml::DOMDocument40 document_;
    quint32 firstSequence_ = 1;
    std::vector<quint32> numbers_;
};

} // namespace quillon::tree
