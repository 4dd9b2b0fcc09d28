#pragma once

#include "platform/xml/schema/schema_message.h"

namespace quillon::xml {

/// What libxml2 says of a RELAX NG schema, in Japanese: what is wrong, and at which of its
/// elements.
QString relaxNgSchemaFault(const xmlError &error);

/// What libxml2 says of an element of a document, in Japanese. It says less than there is to say:
/// for what nobody else has found.
SchemaMessage relaxNgMessage(const xmlError &error);

} // namespace quillon::xml
