#pragma once

#include "platform/xml/dom/dom.h"

namespace quillon::tree {

/// What decides which entities may be referred to: the document type and, ahead of it, the XML
/// declaration. Empty without a document type.
QByteArray entityDeclarationsOf(const xml::DOMDocument40 &document);

/// Parses the markup of one element, as the pane shows it or the clipboard holds it. It may refer
/// to the entities that `document` declares, and to no others, also where the text brings a
/// document type of its own: the element is to stand in that document. The result has no root
/// element when the text does not parse.
xml::DOMDocument40 parsedFragment(const xml::DOMDocument40 &document, const QByteArray &utf8);

} // namespace quillon::tree
