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

/// How many elements break the keys of one, by what Xerces has told.
struct KeyReports {
    int unmatched = 0;
    int duplicate = 0;
    int incomplete = 0;
};

/// Which elements below one with keys break them: Xerces tells only how many. Values are compared
/// as they are written, so that not all of them need be found.
std::vector<KeyFault> keyFaults(const Node &scope,
                                const std::vector<IdentityConstraint> &constraints,
                                const KeyReports &reports);

} // namespace quillon::xml
