#include "platform/xml/dom/qualified_name.h"

#include <algorithm>

namespace quillon::xml {

QString prefixOf(const QString &qualifiedName) {
    return qualifiedName.left(std::max<qsizetype>(qualifiedName.indexOf(u':'), 0));
}

QString localNameOf(const QString &qualifiedName) {
    return qualifiedName.mid(qualifiedName.indexOf(u':') + 1);
}

QString namespaceAt(const Node &element, const QString &prefix) {
    if (prefix == QLatin1String("xml"))
        return QStringLiteral("http://www.w3.org/XML/1998/namespace");
    const QString attribute =
        prefix.isEmpty() ? QStringLiteral("xmlns") : QStringLiteral("xmlns:") + prefix;
    for (Node at = element; at.nodeType() == NodeType::Element; at = at.parentNode()) {
        if (const std::optional<QString> declared = at.getAttribute(attribute))
            return declared->isEmpty() ? QString() : *declared;
    }
    return {};
}

} // namespace quillon::xml
