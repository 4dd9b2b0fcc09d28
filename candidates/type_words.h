#pragma once

#include "platform/xml/schema/grammar/grammar.h"

namespace quillon::candidates {

/// What values of a simple type are, in words: its name, the values it enumerates, its bounds and
/// patterns. Empty for None.
QString wordsForSimpleType(const grammar::Grammar &grammar, grammar::Index simpleType);
/// What stands in an element, in words.
QString wordsForElement(const grammar::Grammar &grammar, grammar::Index element);
/// The same for an attribute, with whether it is mandatory and what it is by default.
QString wordsForAttribute(const grammar::Grammar &grammar, const grammar::Attribute &attribute);
/// The documentation of an element, else that of its type.
QString documentationOf(const grammar::Grammar &grammar, grammar::Index element);
QString documentationOf(const grammar::Grammar &grammar, const grammar::Attribute &attribute);

} // namespace quillon::candidates
