#pragma once

#include "candidates/entry.h"
#include "platform/xml/schema/grammar/attribute_choices.h"
#include "platform/xml/schema/grammar/content_matcher.h"
#include "platform/xml/schema/grammar/skeleton.h"

namespace quillon::candidates {

/// What the matcher has found, as entries in its order: what fits; what a wildcard lets in; what
/// the type has, but not at this place. `maker` is one for the grammar that was asked.
EntryList elementEntries(const grammar::SkeletonMaker &maker, const grammar::Candidates &found,
                         const grammar::NameScope &scope);
/// The elements that may be the root of a document; the one of that name, if any, comes first.
EntryList rootEntries(const grammar::SkeletonMaker &maker, const QString &firstName);
/// The attributes of an element of a type that has those named already, which are not allowed any
/// more: what is mandatory and missing first, what is there last.
EntryList attributeEntries(const grammar::SkeletonMaker &maker, grammar::Index type,
                           const std::vector<grammar::Symbol> &present,
                           const grammar::NameScope &scope);

} // namespace quillon::candidates
