#pragma once

#include "platform/xml/schema/schema_session.h"

#include <QStringList>

namespace quillon::xml {

inline const QString XsdNamespace = QStringLiteral("http://www.w3.org/2001/XMLSchema");

/// Finds what the schemas of a validation import: the namespaces of XML and of XLink are always at
/// hand, wherever a schema says that they are. An import of which nothing is found is left out, as
/// a schema may do without it.
class SchemaImports {
public:
    /// From now on the files that the session reads are looked through for imports.
    explicit SchemaImports(SchemaSession &session);

    /// What was not found, each once: the place as it stands in the schema, or the namespace.
    const QStringList &missing() const { return missing_; }

private:
    QByteArray resolved(const QByteArray &schema, const QString &address);
    void resolve(const Node &import, const QString &address);

    SchemaSession &session_;
    QStringList missing_;
};

} // namespace quillon::xml
