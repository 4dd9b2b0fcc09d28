#pragma once

#include "platform/xml/schema/grammar/content_matcher.h"
#include "platform/xml/schema/grammar/value_check.h"
#include "platform/xml/schema/schema_error.h"

namespace quillon::xml {

/// Finds what is wrong with a document by a grammar that a RELAX NG schema has become. The grammar
/// lets in more than the schema, as it does not know which attributes go with which content: what
/// is found is wrong, and something may be wrong that is not found. Where a name may be several
/// elements, each is taken for the one that it comes closest to.
class RelaxNgFaults {
public:
    explicit RelaxNgFaults(const grammar::Grammar &grammar)
        : grammar_(grammar), matcher_(grammar), values_(grammar) {}

    /// In document order, at most one more than MaxSchemaErrors.
    std::vector<SchemaError> find(const DOMDocument40 &document);

private:
    using Index = grammar::Index;

    /// An element of the document, and the elements of the grammar that it may be.
    struct Pending {
        Node node;
        std::vector<Index> elements;
    };
    /// What an element has against it if it is one of the grammar's.
    struct Reading {
        std::vector<SchemaError> faults;
        /// Last first.
        std::vector<Pending> children;
    };

    std::vector<Index> rootElements(const Node &root) const;
    Reading read(const Node &node, Index element);
    void readContent(const Node &node, const grammar::Type &type, Index typeIndex, Reading &to);
    void readText(const Node &node, const grammar::Type &type, bool hasChildren, Reading &to);
    void readAttributes(const Node &node, Index type, Reading &to);
    SchemaError fault(const grammar::ContentFault &found, const Node &parent,
                      const std::vector<Node> &children) const;
    QStringList namesOf(const std::vector<Index> &elements) const;

    grammar::Grammar grammar_;
    grammar::ContentMatcher matcher_;
    grammar::ValueChecker values_;
};

} // namespace quillon::xml
