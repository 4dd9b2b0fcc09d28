#pragma once

#include "platform/xml/dom/handle_access.h"

namespace quillon::xml {

/// How the nodes of a document hang together, by their numbers alone and as visitSubtree() has
/// them: what is below an element are its attributes, then its children. 0 is no node. For those
/// who ask about millions of nodes.
///
/// Keeps the document, which must not be changed: a clone of the one in use.
class DocumentLinks {
public:
    explicit DocumentLinks(const DOMDocument40 &document)
        : document_(document), arena_(HandleAccess::arena(document_)) {}
    DocumentLinks(const DocumentLinks &) = delete;
    DocumentLinks &operator=(const DocumentLinks &) = delete;

    Number documentNumber() const { return arena_.documentNumber(); }
    /// All numbers are below this one.
    Number numberEnd() const { return arena_.documentNumber() + arena_.slotCount(); }
    /// Whether a number, whatever it is, is that of a node, be it one that stands nowhere. The
    /// functions below are for such numbers.
    bool isNode(Number n) const { return arena_.isRecord(n); }

    /// What the node is below; 0 for the document, and for a node that stands nowhere.
    Number parent(Number n) const { return arena_.record(n).parent; }
    Number firstBelow(Number n) const {
        if (!arena_.hasPart(n))
            return 0;
        const ElementPart &part = arena_.part(n);
        return part.firstAttribute != 0 ? part.firstAttribute : part.firstChild;
    }
    Number lastBelow(Number n) const {
        const Number child = arena_.part(n).lastChild;
        return child != 0 ? child : arena_.lastAttribute(n);
    }
    Number next(Number n) const {
        const Record &record = arena_.record(n);
        return record.next != 0 || record.kind != NodeType::Attribute || record.parent == 0
                   ? record.next
                   : arena_.part(record.parent).firstChild;
    }
    Number previous(Number n) const {
        const Number sibling = arena_.previousSibling(n);
        const Record &record = arena_.record(n);
        return sibling != 0 || record.kind == NodeType::Attribute || record.parent == 0
                   ? sibling
                   : arena_.lastAttribute(record.parent);
    }

    /// Whether the document is as it was read. If so, all its nodes stand in it, and their numbers
    /// ascend in document order.
    bool isAsRead() const {
        return arena_.readEnd() == numberEnd() &&
               !arena_.record(documentNumber()).has(record_flag::ContentChanged);
    }
    /// True when nothing is different about a node of a copy, or of what both are copies of; false
    /// says nothing. Costs as much as comparing two pointers.
    bool isSurelySame(const DocumentLinks &other, Number n) const {
        return &arena_.record(n) == &other.arena_.record(n);
    }
    Number firstChild(Number parent) const { return arena_.part(parent).firstChild; }
    const DOMDocument40 &document() const { return document_; }
    /// Whether the document has, or may once have had, a reference to an entity.
    bool hasHadReference() const { return arena_.hasHadReference(); }
    NodeType kind(Number n) const { return arena_.record(n).kind; }
    /// Number of nodes; how many have smaller numbers than one; and the node that has so many.
    std::uint32_t nodeCount() const { return arena_.recordCount(); }
    std::uint32_t nodesBefore(Number n) const { return arena_.recordsBefore(n); }
    Number nthNode(std::uint32_t index) const { return arena_.nthRecord(index); }

private:
    DOMDocument40 document_;
    const Arena &arena_;
};

} // namespace quillon::xml
