#pragma once

#include "platform/runtime/progress.h"
#include "platform/xml/query/xpath_expression.h"
#include "platform/xml/storage/arena.h"

#include <optional>
#include <span>
#include <vector>

namespace quillon::xml {

/// Whether names without a prefix that find nothing are those of a default namespace, as
/// evaluateXPath() has it.
enum class DefaultNamespaces { NotTried, Tried };

struct SimpleAnswer {
    /// In document order, each once.
    std::vector<Number> nodes;
    /// How many there are, where that was the question.
    std::optional<std::size_t> count;
    bool inDefaultNamespace = false;
};

/// Evaluates an expression on the document itself, without a copy of it. Nothing for one that is no
/// SimplePath, that takes too many steps, or that only the library can judge: then that is to be
/// asked, whose answer would be the same. Raises Cancelled when the progress function says so.
std::optional<SimpleAnswer> simplyEvaluated(const Arena &arena, Number context,
                                            const XPathExpression &expression,
                                            DefaultNamespaces defaults,
                                            const runtime::Progress &progress);

/// The same from each of several contexts, with default namespaces tried. Of the nodes found only
/// the first ones are given.
std::optional<std::vector<SimpleAnswer>> simplyEvaluatedAt(const Arena &arena,
                                                           std::span<const Number> contexts,
                                                           const XPathExpression &expression,
                                                           const runtime::Progress &progress);

} // namespace quillon::xml
