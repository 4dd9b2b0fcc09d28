#pragma once

#include "platform/xml/schema/xerces/identity_constraint.h"

#include <functional>
#include <xercesc/util/XercesDefs.hpp>

XERCES_CPP_NAMESPACE_BEGIN
class SchemaElementDecl;
XERCES_CPP_NAMESPACE_END

namespace quillon::xml {

/// The keys that the declaration of an element has, as plain data. `uriText` gives the namespace
/// that Xerces knows by a number.
std::vector<IdentityConstraint>
identityConstraints(const xercesc::SchemaElementDecl &element,
                    const std::function<QString(unsigned)> &uriText);

} // namespace quillon::xml
