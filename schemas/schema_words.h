#pragma once

#include "schemas/schema_link.h"

#include <QString>

#include <vector>

namespace quillon::schemas {

/// What is said of schemas to the user.

/// The name of a schema's file, or what else it is known by.
QString nameOf(const SchemaLink &link);
/// How it was found, and where its file comes from, e.g. "DOCTYPE、カタログ".
QString foundByWords(const SchemaLink &link);
/// The language of a schema.
QString languageName(SchemaKind kind);
/// Both, e.g. "order.xsd（xsi:schemaLocation）".
QString linkWords(const SchemaLink &link);
/// Whether it is in force, or why not; in a word, and as a sentence.
QString stateWord(const SchemaLink &link);
QString stateWords(const SchemaLink &link);

/// One line on those in force, or why there is none: "order.xsd（xsi:schemaLocation）".
QString summary(const std::vector<SchemaLink> &links);
/// The same for a narrow place, without the reasons: "order.xsd（使用不可）".
QString shortSummary(const std::vector<SchemaLink> &links);

} // namespace quillon::schemas
