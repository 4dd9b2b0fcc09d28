#pragma once

#include "completion/text_context.h"
#include "platform/ui/text_structure.h"

#include <vector>

namespace quillon::source {

using completion::Stretch;

/// The names in the tags of the element that a caret is in the tag of, else in the content of: the
/// start tag's, then the end tag's. One for an empty element. None where there is no element, or
/// where its end tag is missing or more than 2 MB away.
std::vector<Stretch> tagNamesAt(completion::TextContexts &contexts, QByteArrayView text,
                                qsizetype caret);

/// The tags around a caret as a pair; none for an empty element.
std::optional<ui::TextPair> tagPairAt(completion::TextContexts &contexts, QByteArrayView text,
                                      qsizetype caret);

/// The bracket right ahead of a caret, else the one right behind it, and its partner, which is at
/// most 64 KB away. Japanese brackets are some, too; those of tags are not.
std::optional<ui::TextPair> bracketPairAt(QByteArrayView text, qsizetype caret);

/// What makes a whole end tag of a "</" that ends at a caret: the name of the innermost element
/// that is open there, and ">" unless that follows. Empty where no end tag can be meant.
QByteArray closingAt(completion::TextContexts &contexts, QByteArrayView text, qsizetype caret);

} // namespace quillon::source
