#pragma once

#include "platform/xml/engine/libxml_tree.h"
#include "platform/xml/query/xpath_expression.h"

#include <optional>
#include <vector>

namespace quillon::xml {

/// An expression and what it starts from.
struct XPathQuestion {
    const XPathExpression &expression;
    xmlNode *context;
    /// What `$selection` is; null for nothing.
    xmlNode *selection = nullptr;
};

struct XPathOutcome {
    /// The nodes found, in document order, each once.
    std::vector<LibxmlTree::Ordinal> nodes;
    /// The text of a result that is not nodes, or the first 64 KB of it.
    std::optional<QByteArray> value;
    /// The names without a prefix are those of a default namespace.
    bool inDefaultNamespace = false;
};

/// Evaluates an expression. Raises as selectNodes() does. To be run in a child process.
XPathOutcome evaluated(LibxmlTree &tree, const XPathQuestion &question);

/// The same, once more with the names without a prefix in the default namespace of the context, and
/// then in that of the root element, as long as they find nothing.
XPathOutcome evaluatedWithDefaults(LibxmlTree &tree, const XPathQuestion &question);

} // namespace quillon::xml
