#pragma once

#include "platform/xml/schema/grammar/grammar.h"

namespace quillon::grammar {

/// An attribute that an element of a type may have.
struct AttributeChoice {
    const Attribute *attribute = nullptr;
    /// Its 0-based place among the attributes of the element; -1 when it is not there.
    int present = -1;

    bool isMissing() const { return present < 0 && attribute->isRequired; }
};

struct AttributeChoices {
    /// Those of the type in the order of the schema; then those, declared on their own, that a
    /// wildcard lets in.
    std::vector<AttributeChoice> attributes;
    /// The 0-based places of those that the element has and may not have.
    std::vector<int> unexpected;
};

/// What the attributes of an element may be, and what is wrong with those that it has. `present`:
/// their names in order, without declarations of namespaces and what belongs to the namespace of
/// xsi:type. What is returned points into the grammar.
AttributeChoices attributeChoices(const Grammar &grammar, Index type,
                                  const std::vector<Symbol> &present);

} // namespace quillon::grammar
