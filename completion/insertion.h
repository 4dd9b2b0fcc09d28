#pragma once

#include "completion/text_context.h"
#include "platform/ui/proposals.h"

namespace quillon::completion {

// What becomes of a markup text when something is chosen for a place in it. The caret ends up where
// one goes on typing: in the first empty attribute, in the content, else behind all of it.

/// An element at a place for one. `markup` is all of it, on one line; laid out like what stands
/// around it when there are elements in it. Where the place is in a tag that stands already, that
/// one and its end tag get the name.
ui::Insertion insertedElement(QByteArrayView text, const TextContext &context,
                              const QByteArray &markup);

/// An attribute in a start tag. `declaration` is written behind it, as it is.
ui::Insertion insertedAttribute(QByteArrayView text, const TextContext &context,
                                const QByteArray &name, const QString &value,
                                const QByteArray &declaration);

/// A value between the quotes of an attribute, which are closed, and opened if need be. `word` is
/// what it takes the place of.
ui::Insertion insertedValue(QByteArrayView text, const TextContext &context, const Stretch &word,
                            const QString &value);

/// The text of an element.
ui::Insertion insertedText(const Stretch &word, const QString &value);

ui::Insertion insertedEndTag(const TextContext &context, const QByteArray &name);

/// The piece between blanks that a caret is in.
Stretch itemAt(QByteArrayView text, const Stretch &list, qsizetype caret);

} // namespace quillon::completion
