#pragma once

#include "platform/xml/engine/memory_pool.h"
#include "platform/xml/storage/arena.h"

#include <QByteArray>

#include <libxml/tree.h>
#include <string_view>
#include <unordered_map>

namespace quillon::xml {

/// A copy of a document as libxml2 knows documents. To be read only: all of it is laid out in a
/// few large blocks and goes with this object, which is why none of its nodes may be given to a
/// function of libxml2 that frees, adds or changes nodes.
///
/// It has what XPath can see. Left out are the XML declaration and the document type. An entity
/// reference is a text that says what the reference stands for. Namespaces are those that xmlns
/// attributes declare; a prefix that is not declared is part of the name. An xmlns attribute is a
/// declaration and no attribute.
class LibxmlTree final {
public:
    /// Place of a node in document order, from 1 (the document). Attributes, xmlns attributes
    /// among them, come after their element in source order.
    using Ordinal = std::uint32_t;

    explicit LibxmlTree(const Arena &arena);
    ~LibxmlTree();
    LibxmlTree(const LibxmlTree &) = delete;
    LibxmlTree &operator=(const LibxmlTree &) = delete;

    xmlDoc *document() { return &document_; }
    const xmlDoc *document() const { return &document_; }
    /// Lets id() find elements by their identifiers: the values of xml:id and of what
    /// `documentType`, the markup of a document type or nothing, declares as ID in its internal
    /// subset. Of elements with the same one the first is found. Takes a walk over the document.
    void indexIdentifiers(const QByteArray &documentType);
    /// The copy of a node; null for a node that XPath cannot see or that does not stand in the
    /// document. Takes a search through the document.
    xmlNode *find(Number number);
    /// The first declaration of a prefix in document order that gives it a namespace; null for a
    /// prefix that is declared nowhere.
    const xmlNs *firstDeclarationOf(std::string_view prefix) const;
    /// The place of a node of this copy. For a namespace node, that of the declaration; 0 for one
    /// that no attribute declares.
    static Ordinal ordinalOf(const xmlNode *node);
    /// The last place.
    Ordinal lastOrdinal() const { return static_cast<Ordinal>(numbers_.size()); }
    /// The number of the node in that place.
    Number numberAt(Ordinal ordinal) const { return numbers_[ordinal - 1]; }

private:
    class Writer;

    xmlDoc document_ = {};
    xmlNs xmlNamespace_ = {};
    /// The copies of names point into it.
    Ref<NameTable> names_;
    MemoryPool nodes_;
    MemoryPool texts_;
    std::vector<Number> numbers_;
    /// By prefix.
    std::unordered_map<std::string_view, const xmlNs *> firstDeclarations_;
};

} // namespace quillon::xml
