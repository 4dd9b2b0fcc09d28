#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/schema/grammar/grammar.h"

#include <vector>

namespace quillon::grammar {

/// The namespace of xsi:type and its like.
inline const QString InstanceNamespace =
    QStringLiteral("http://www.w3.org/2001/XMLSchema-instance");

/// An element of a document as a grammar sees it.
struct KnownElement {
    /// Of `elements`; None for what the grammar does not know there.
    Index element = None;
    /// Of `types`: what xsi:type says, else that of the element; None when there is none.
    Index type = None;
};

/// The name of an element as a grammar has it: the whole qualified name for a DTD, else with its
/// namespace.
Symbol symbolOf(const Grammar &grammar, const xml::Node &element);

/// What an element is, found from the root down by the names alone: what is wrong around it does
/// not matter. Types that xsi:type names are followed where they are derived from the declared one.
KnownElement knownElement(const Grammar &grammar, const xml::Node &element);

/// The same for an element of which the parent is known already, and its own name. `parent` is
/// null for the root.
KnownElement knownElement(const Grammar &grammar, const KnownElement *parent,
                          const xml::Node &element, const Symbol &name);

/// Whether an element says by xsi:nil that it has no content, where its declaration allows that.
bool isNil(const Grammar &grammar, const KnownElement &known, const xml::Node &element);

/// The children of an element that are elements themselves, and their names, for ContentMatcher.
struct NamedChildren {
    std::vector<xml::Node> nodes;
    std::vector<Symbol> names;
};
NamedChildren namedChildren(const Grammar &grammar, const xml::Node &parent);

/// The names of the attributes of an element for attributeChoices(), and their nodes: without
/// declarations of namespaces and xsi:type and its like, of which no schema speaks. For a DTD,
/// which does, all of them.
struct NamedAttributes {
    std::vector<xml::Node> nodes;
    std::vector<Symbol> names;
};
NamedAttributes namedAttributes(const Grammar &grammar, const xml::Node &element);

} // namespace quillon::grammar
