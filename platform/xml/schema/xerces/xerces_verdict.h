#pragma once

#include "platform/xml/schema/schema_error.h"
#include "platform/xml/schema/schema_source.h"

namespace quillon::xml {

/// What Xerces says of a document, whose text, in UTF-8, is given along. These raise Fail for
/// schemas that cannot be used, and throw TooMuch (document_reader.h) or std::bad_alloc for what is
/// beyond Xerces. To be called once in a process, which must be a child made for it: Xerces is not
/// bounded by itself in time.
std::vector<SchemaError> xercesVerdictByDtd(const DOMDocument40 &document, const QByteArray &text,
                                            const QString &schemaPath, const PartPlaces &places);

/// `followsHints`: schemas that the document names are read, too.
std::vector<SchemaError> xercesVerdictByXsd(const DOMDocument40 &document, const QByteArray &text,
                                            const std::vector<XsdSource> &schemas,
                                            const PartPlaces &places, bool followsHints);

} // namespace quillon::xml
