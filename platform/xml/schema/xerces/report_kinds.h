#pragma once

#include "platform/xml/schema/xerces/xerces_library.h"

namespace quillon::xml {

/// A reference to an entity that is not defined.
bool isUndefinedEntity(const Report &report);
/// What is reported where text stands, between two tags.
bool isOfText(const Report &report);
/// The children of an element are not what its declaration wants.
bool isOfContent(const Report &report);
/// An element that the schema does not know at its place.
bool isUndeclared(const Report &report);
/// About a unique, key or keyref declaration of XML Schema.
bool isOfKeys(const Report &report);

/// The attribute that a report names; empty when it names none.
QString attributeNamedBy(const Report &report);

} // namespace quillon::xml
