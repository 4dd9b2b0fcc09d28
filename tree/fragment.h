#pragma once

#include "platform/xml/dom.h"

namespace quillon::tree {

/// Parses the markup of one element, as the pane shows it or the clipboard holds it. It may refer
/// to the entities that `document` declares, and to no others, also where the text brings a
/// document type of its own: the element is to stand in that document. The result has no root
/// element when the text does not parse.
xml::DOMDocument40 parsedFragment(const xml::DOMDocument40 &document, const QByteArray &utf8);

} // namespace quillon::tree
