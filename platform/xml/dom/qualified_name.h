#pragma once

#include "platform/xml/dom/dom.h"

namespace quillon::xml {

/// The part of a qualified name before its colon, and the part after it.
QString prefixOf(const QString &qualifiedName);
QString localNameOf(const QString &qualifiedName);

/// The namespace that a prefix (empty for the default one) stands for at an element; null when it
/// is not declared.
QString namespaceAt(const Node &element, const QString &prefix);

} // namespace quillon::xml
