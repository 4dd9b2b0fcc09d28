#pragma once

#include "completion/text_context.h"
#include "platform/xml/dom/dom.h"

#include <optional>

namespace quillon::completion {

/// The place of a caret as a small document: the elements around it, and nothing else of what they
/// hold. So that what is known of places in documents is known of places in texts, whether or not
/// these can be parsed.
struct PlaceDocument {
    xml::DOMDocument40 document;
    /// What the caret is in, or the element that it is in the start tag of; the document, if that
    /// is it.
    xml::Node parent;
    /// The element that it is in the start tag of, without the attribute that it is at; empty where
    /// it is in none.
    xml::Node element;
    /// How many elements of the parent stand ahead of the caret.
    std::size_t place = 0;
};

/// `around`: the element of the document that the text stands in; the document itself or the empty
/// handle where it is none. Nothing where what is around the caret cannot be made out.
std::optional<PlaceDocument> placeDocument(const xml::Node &around, QByteArrayView text,
                                           const TextContext &context);

} // namespace quillon::completion
