#pragma once

#include <QString>

#include <libxml/xmlerror.h>

namespace quillon::xml {

/// What a report of libxml2 says, in the program's own words.
struct SchemaMessage {
    /// One of schema_error; 0 for a report that only repeats or explains another one.
    qint32 errorCode = 0;
    QString reason;
};

/// Of a document that does not keep to its DTD.
SchemaMessage dtdMessage(const xmlError &error);
/// Of a document that does not keep to its XML Schema.
SchemaMessage xsdMessage(const xmlError &error);

} // namespace quillon::xml
