#pragma once

#include <QtGlobal>

namespace quillon::xml {

/// The languages that schemas are written in. Unknown: none of the others, or not known yet.
enum class SchemaKind : quint8 { Unknown, Dtd, Xsd, Xdr, RelaxNg, Schematron };

} // namespace quillon::xml
