#pragma once

#include "platform/xml/query/xpath_expression.h"

#include <QString>

namespace quillon::xml {

/// What libxml2 found wrong with an expression.
struct XPathFailure {
    /// A number of xmlXPathError; 0 for nothing.
    int code = 0;
    /// Byte position at which reading stopped; 0 for a failure in evaluation.
    std::size_t position = 0;
    /// The function called last.
    std::string function;
    /// The variable asked for last.
    std::string variable;
};

/// Raises Fail: what is wrong and the expression, with the part that is between "-->" and "<--".
[[noreturn]] void raiseXPathError(const XPathExpression &expression, const XPathFailure &failure);
[[noreturn]] void raiseUndeclaredPrefix(const XPathExpression &expression,
                                        const XPathToken &prefix);
[[noreturn]] void raiseNotNodes(const XPathExpression &expression);

} // namespace quillon::xml
