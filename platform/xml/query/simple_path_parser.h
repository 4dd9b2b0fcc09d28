#pragma once

#include "platform/xml/query/simple_path.h"

#include <string_view>

namespace quillon::xml {

/// Reads an expression by recursive descent. Whatever it does not know makes it fail: then the end
/// is all that is left to read, and what has been made so far is good for nothing.
class SimplePathParser {
public:
    explicit SimplePathParser(const XPathExpression &expression)
        : expression_(expression), token_(expression.tokens().data()) {}

    std::optional<SimplePath> parse();

private:
    using Operation = PathOperation;
    using Kind = PathOperation::Kind;
    using Type = PathOperation::Type;
    using Axis = PathStep::Axis;

    // Tokens.
    std::string_view text() const { return expression_.text(*token_); }
    bool isAtEnd() const { return token_->kind == XPathToken::Kind::End; }
    bool isName() const { return token_->kind == XPathToken::Kind::Name; }
    bool is(std::string_view symbol) const;
    bool isFollowedBy(std::string_view symbol) const;
    bool isNodeType() const;
    bool take(std::string_view symbol);
    /// Takes an operator that is spelled as a name.
    bool takeWord(std::string_view word);
    void require(std::string_view symbol);
    void fail();
    /// Counts a part of the expression, and fails when there are too many.
    void countPart();
    /// What is read from here on, until `--depth_`, stands inside; fails when that is too deep.
    void goDeeper();

    // Paths.
    void readUnion();
    void readGroup();
    PathAlternative readAlternative();
    /// Appends steps as stages, cut at those to the parent.
    void addStages(PathAlternative alternative);
    /// Fails unless a walk can take these steps.
    void requireWalk(const PathAlternative &alternative, bool isFromNodesFound);
    bool isStepStart() const;
    PathSteps readSteps(bool isBelow);
    void readStep(bool isBelow, PathSteps &steps);
    Axis readAxis();
    static std::optional<Axis> below(Axis axis);
    NodeTest readTest(bool isOfAttribute);
    NodeTest readNodeType();
    std::string readLiteral();
    std::size_t numberOf(PathName name);
    std::vector<Operation> readPredicates(bool &isPositional);

    // Predicates.
    Operation readOr();
    Operation readAnd();
    Operation readEquality();
    Operation readRelation();
    Operation readSum();
    Operation readProduct();
    Operation readOperand();
    Operation readNumber();
    Operation readCall();
    Operation readCallWithStrings(Kind kind, std::size_t least, std::size_t most);
    Operation readCallOnNode(Kind kind);
    Operation joined(Kind kind, Operation left, Operation right);
    void requireComparable(const Operation &left, const Operation &right, bool isOrder);
    /// Fails unless the operand has a text: that of the first node, for nodes.
    void requireText(const Operation &operand);

    const XPathExpression &expression_;
    const XPathToken *token_;
    SimplePath path_;
    bool hasFailed_ = false;
    /// The predicate that is being read asks for position() or last().
    bool asksForPosition_ = false;
    int parts_ = 0;
    int depth_ = 0;
};

} // namespace quillon::xml
