#pragma once

#include "platform/xml/dom/dom.h"
#include "platform/xml/schema/xerces/identity_constraint.h"

#include <vector>

namespace quillon::xml {

/// An element that breaks a key.
struct KeyFault {
    Node element;
    QString reason;
};

/// Which elements below one with keys break them: Xerces tells only that there are some. Values
/// are compared as they are written, so that not all of them need be found.
std::vector<KeyFault> keyFaults(const Node &scope,
                                const std::vector<IdentityConstraint> &constraints);

} // namespace quillon::xml
