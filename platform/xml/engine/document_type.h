#pragma once

#include "platform/xml/engine/libxml_handles.h"

#include <QByteArray>

#include <set>
#include <string>
#include <utility>

namespace quillon::xml {

class DOMDocument40;

/// The markup of a document's document type, in UTF-8; empty when it has none.
QByteArray documentTypeOf(const DOMDocument40 &document);

/// Parses UTF-8 content with a document type in front, expanding what its internal subset declares
/// as far as libxml2 finds the size reasonable, and without reading anything external. Null for
/// what is not well-formed.
XmlDocument parseWithSubset(const QByteArray &documentType, const QByteArray &content);

/// Names of elements, each with the name of an attribute of them that is an identifier.
using IdentifierNames = std::set<std::pair<std::string, std::string>>;

/// What an internal subset declares as being of the type ID.
IdentifierNames identifierNames(const QByteArray &documentType);

} // namespace quillon::xml
