#include "platform/xml/schema/schema_imports.h"

#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/schema/schema_error.h"

#include <QUrl>

namespace quillon::xml {

namespace {

const QString Location = QStringLiteral("schemaLocation");

} // namespace

SchemaImports::SchemaImports(SchemaSession &session) : session_(session) {
    session_.prepare = [this](const QByteArray &text, const QString &address) {
        return resolved(text, address);
    };
}

QByteArray SchemaImports::resolved(const QByteArray &schema, const QString &address) {
    // Most schemas are spared the work.
    if (!schema.contains("import"))
        return schema;
    DOMDocument40 document = DOMDocument40::create();
    // One that does not parse is reported by the one who reads it.
    if (!document.loadXML(schema))
        return schema;
    const QByteArray before = document.xml();
    for (Node child = document.documentElement().firstChild(); child; child = child.nextSibling()) {
        const QString name = child.nodeName();
        if (child.nodeType() == NodeType::Element && localNameOf(name) == QLatin1String("import") &&
            namespaceAt(child, prefixOf(name)) == XsdNamespace)
            resolve(child, address);
    }
    // The text stays as it is where nothing changes: the one read is free of the other's line ends.
    const QByteArray after = document.xml();
    return after == before ? schema : after;
}

void SchemaImports::resolve(const Node &import, const QString &address) {
    const std::optional<QString> location = import.getAttribute(Location);
    if (location && session_.finds(QUrl(address).resolved(QUrl(*location)).toString()))
        return;
    const QString imported = import.getAttribute(QStringLiteral("namespace")).value_or(QString());
    if (const QString builtIn = builtInSchemaFor(imported); !builtIn.isEmpty())
        return import.setAttribute(Location, builtIn);
    if (location)
        import.removeAttribute(Location);
    if (const QString wanted = location.value_or(imported); !missing_.contains(wanted))
        missing_.append(wanted);
}

} // namespace quillon::xml
