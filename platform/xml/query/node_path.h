#pragma once

#include "platform/xml/dom/dom.h"

namespace quillon::xml {

/// A short absolute path by which evaluateXPath() finds this node and no other, from whatever
/// context: with attributes that tell an element from its siblings, else positions where there are
/// several. Names stand as in the document; where such a name would mean something else in another
/// context, the path compares it as a text. Empty for what no path finds: the XML declaration, the
/// document type, an attribute that takes a namespace back, a node that stands nowhere.
///
/// Looks once at every sibling of the node and of what is above it and, in a document that declares
/// namespaces, at every element.
QString pathTo(const Node &node);

} // namespace quillon::xml
