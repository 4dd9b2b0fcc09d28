#pragma once

#include "platform/xml/schema/xerces/declarations.h"
#include "platform/xml/schema/xerces/xerces_library.h"

namespace quillon::xml {

/// A value as it is shown: long ones are cut.
QString shortened(const QString &value);

/// What a value would have to be instead, where a facet of its type says it: a sentence, or
/// nothing. `type` may be null.
QString facetDetail(const Report &report, const grammar::Grammar *grammar,
                    const grammar::SimpleType *type);

} // namespace quillon::xml
