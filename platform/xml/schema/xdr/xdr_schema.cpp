#include "platform/xml/schema/xdr/xdr_schema.h"

#include "platform/xml/schema/schema_error.h"
#include "platform/xml/schema/xdr/xdr_schema_reader.h"
#include "resources/validation_texts.h"

#include <QUrl>

namespace quillon::xdr {

namespace texts = resources::validation_texts;

void SchemaSet::add(const QString &namespaceName, const QString &displayName,
                    const xml::Node &schemaElement) {
    const auto schema = std::make_shared<Schema>(namespaceName, displayName);
    SchemaReader reader(*schema, *this);
    reader.declare(schemaElement);
    const auto before = schemas_;
    // Known from here on, as schemas may refer to each other.
    schemas_.insert(namespaceName, schema);
    try {
        reader.resolve();
    } catch (...) {
        schemas_ = before;
        throw;
    }
}

const Schema *SchemaSet::find(const QString &namespaceName) {
    if (const auto known = schemas_.constFind(namespaceName); known != schemas_.constEnd())
        return known->get();
    return namespaceName.startsWith(AddressPrefix) ? load(namespaceName) : nullptr;
}

const Schema *SchemaSet::load(const QString &namespaceName) {
    const QString name = namespaceName.mid(AddressPrefix.size());
    QString path = folders_.find(name);
    if (path.isEmpty())
        path = folders_.find(QUrl::fromPercentEncoding(name.toUtf8()));
    if (path.isEmpty())
        xml::raiseSchemaError(name, 0, texts::SchemaNotFound.toString());
    xml::DOMDocument40 document = xml::DOMDocument40::create();
    if (!document.load(path))
        xml::raiseSchemaError(name, document.parseError().line, document.parseError().reason);
    add(namespaceName, name, document.documentElement());
    return schemas_.value(namespaceName).get();
}

} // namespace quillon::xdr
