#pragma once

#include "platform/xml/query/xpath_expression.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillon::xml {

/// A name that a path asks for: `local` is empty for any name in the prefix's namespace.
struct PathName {
    std::string prefix;
    std::string local;
    bool isOfAttribute = false;

    bool operator==(const PathName &) const = default;
};

/// What a step asks of a node.
struct NodeTest {
    enum class Kind {
        Node,
        /// "*": an element, or an attribute on their axis.
        Principal,
        Name,
        Text,
        Comment,
        Instruction,
    };

    Kind kind = Kind::Node;
    /// For a name: its place in SimplePath::names.
    std::size_t name = 0;
    /// For an instruction: its target; empty for any.
    std::string target;
};

struct PathOperation;

/// A step of a path.
struct PathStep {
    enum class Axis {
        Child,
        /// What "//x" finds: the children of the node and of all that is below it. Where positions
        /// do not matter, the descendant axis, too.
        Below,
        BelowOrSelf,
        Self,
        Parent,
        Attribute,
        /// What "//@x" finds: attributes of the node and of all that is below it.
        AttributeBelow,
    };

    Axis axis = Axis::Child;
    NodeTest test;
    std::vector<PathOperation> predicates;
    /// Whether a predicate asks which of the nodes it is, or how many there are.
    bool isPositional = false;
};
using PathSteps = std::vector<PathStep>;

/// An operation in a predicate, with its operands.
struct PathOperation {
    enum class Kind {
        /// The nodes that `steps` lead to.
        Path,
        Literal,
        Constant,
        Position,
        Last,
        Count,
        StringLength,
        NormalizeSpace,
        Name,
        LocalName,
        ToString,
        ToNumber,
        Concat,
        Contains,
        StartsWith,
        Not,
        And,
        Or,
        Equal,
        NotEqual,
        Less,
        LessOrEqual,
        Greater,
        GreaterOrEqual,
        Add,
        Subtract,
        Multiply,
        Divide,
        Modulo,
    };
    enum class Type { Nodes, Numeric, String, Boolean };

    Kind kind = Kind::Path;
    std::vector<PathOperation> operands;
    PathSteps steps;
    std::string literal;
    double number = 0;

    Type type() const;
};

/// One of the alternatives of a union.
struct PathAlternative {
    enum class Start { Context, Document };

    Start start = Start::Context;
    /// How often ".." comes first.
    std::size_t parents = 0;
    PathSteps steps;
};

/// What one walk over the document finds, from each of the nodes that the stage before has found.
struct PathStage {
    /// A step to the parent that is taken ahead of the walk.
    std::optional<PathStep> parent;
    /// More than one, or one that does not start from the context, only in the first stage.
    std::vector<PathAlternative> alternatives;
    /// The predicates of "( ... )[ ]", for which the nodes found count as one list.
    std::vector<PathOperation> filters;
};

/// An expression of those that people type: paths along the axes of PathStep, with predicates that
/// compare and count what stands near. It means what XPath 1.0 says.
struct SimplePath {
    std::vector<PathStage> stages;
    /// The number of nodes is asked for: "count( ... )" around it all.
    bool isCount = false;
    std::vector<PathName> names;
};

/// Reads an expression; nothing when it is none of these, or no XPath at all. What is returned is
/// short: it may be evaluated by recursion over its parts.
std::optional<SimplePath> simplePathOf(const XPathExpression &expression);

} // namespace quillon::xml
