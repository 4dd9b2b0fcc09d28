#include "platform/xml/query/simple_path_parser.h"

#include <algorithm>
#include <array>
#include <libxml/xpath.h>
#include <limits>
#include <string>

namespace quillon::xml {

namespace {

using Kind = PathOperation::Kind;

/// More digits than these might be rounded otherwise than the library does.
constexpr std::size_t MostDigits = 15;

struct Function {
    std::string_view name;
    Kind kind;
};

constexpr std::array<Function, 6> OnNode = {{
    {"string-length", Kind::StringLength},
    {"normalize-space", Kind::NormalizeSpace},
    {"name", Kind::Name},
    {"local-name", Kind::LocalName},
    {"string", Kind::ToString},
    {"number", Kind::ToNumber},
}};

/// What is known of the nodes that steps from one node come to, one after the other.
struct Order {
    /// None is come to twice.
    bool isUnique = true;
    /// The first one is the first in the document.
    bool isSorted = true;
};

Order orderOf(const PathSteps &steps) {
    using Axis = PathStep::Axis;
    Order order;
    bool isOne = true;
    bool isNested = false;
    for (const PathStep &step : steps) {
        switch (step.axis) {
        case Axis::Self:
            break;
        case Axis::Parent:
            order.isUnique = order.isUnique && isOne;
            order.isSorted = order.isSorted && isOne;
            break;
        case Axis::Child:
            order.isSorted = order.isSorted && !isNested;
            isOne = false;
            break;
        case Axis::Attribute:
            isOne = false;
            break;
        case Axis::Below:
        case Axis::BelowOrSelf:
        case Axis::AttributeBelow:
            order.isUnique = order.isUnique && !isNested;
            // With positions, all children of a node come ahead of what is below them.
            order.isSorted = order.isSorted && !isNested && !step.isPositional;
            isOne = false;
            isNested = true;
            break;
        }
    }
    return order;
}

bool isNodes(const PathOperation &operation) {
    return operation.type() == PathOperation::Type::Nodes;
}

} // namespace

PathOperation SimplePathParser::joined(Kind kind, Operation left, Operation right) {
    countPart();
    // One after the other, and not inside one another, however many there are.
    if ((kind == Kind::And || kind == Kind::Or) && left.kind == kind) {
        left.operands.push_back(std::move(right));
        return left;
    }
    Operation operation;
    operation.kind = kind;
    operation.operands.push_back(std::move(left));
    operation.operands.push_back(std::move(right));
    return operation;
}

PathOperation SimplePathParser::readOr() {
    goDeeper();
    Operation left = readAnd();
    while (takeWord("or"))
        left = joined(Kind::Or, std::move(left), readAnd());
    --depth_;
    return left;
}

PathOperation SimplePathParser::readAnd() {
    Operation left = readEquality();
    while (takeWord("and"))
        left = joined(Kind::And, std::move(left), readEquality());
    return left;
}

void SimplePathParser::requireComparable(const Operation &left, const Operation &right,
                                         bool isOrder) {
    const bool hasBoolean = left.type() == Type::Boolean || right.type() == Type::Boolean;
    if ((isNodes(left) && isNodes(right)) || (isOrder && hasBoolean))
        fail();
}

PathOperation SimplePathParser::readEquality() {
    Operation left = readRelation();
    while (is("=") || is("!=")) {
        const Kind kind = is("=") ? Kind::Equal : Kind::NotEqual;
        ++token_;
        Operation right = readRelation();
        requireComparable(left, right, false);
        left = joined(kind, std::move(left), std::move(right));
    }
    return left;
}

PathOperation SimplePathParser::readRelation() {
    Operation left = readSum();
    while (is("<") || is("<=") || is(">") || is(">=")) {
        const Kind kind = is("<")    ? Kind::Less
                          : is("<=") ? Kind::LessOrEqual
                          : is(">")  ? Kind::Greater
                                     : Kind::GreaterOrEqual;
        ++token_;
        Operation right = readSum();
        requireComparable(left, right, true);
        left = joined(kind, std::move(left), std::move(right));
    }
    return left;
}

PathOperation SimplePathParser::readSum() {
    Operation left = readProduct();
    while (is("+") || is("-")) {
        const Kind kind = is("+") ? Kind::Add : Kind::Subtract;
        ++token_;
        Operation right = readProduct();
        if (left.type() != Type::Numeric || right.type() != Type::Numeric)
            fail();
        left = joined(kind, std::move(left), std::move(right));
    }
    return left;
}

PathOperation SimplePathParser::readProduct() {
    Operation left = readOperand();
    while (is("*") || (isName() && (text() == "div" || text() == "mod"))) {
        const Kind kind = is("*") ? Kind::Multiply : text() == "div" ? Kind::Divide : Kind::Modulo;
        ++token_;
        Operation right = readOperand();
        if (left.type() != Type::Numeric || right.type() != Type::Numeric)
            fail();
        left = joined(kind, std::move(left), std::move(right));
    }
    return left;
}

PathOperation SimplePathParser::readOperand() {
    countPart();
    Operation operation;
    if (token_->kind == XPathToken::Kind::Literal) {
        operation.kind = Kind::Literal;
        operation.literal = readLiteral();
    } else if (token_->kind == XPathToken::Kind::Digits) {
        return readNumber();
    } else if (take("(")) {
        operation = readOr();
        require(")");
    } else if (isName() && isFollowedBy("(") && !isNodeType()) {
        return readCall();
    } else if (isStepStart()) {
        operation.steps = readSteps(false);
    } else {
        fail();
    }
    return operation;
}

PathOperation SimplePathParser::readNumber() {
    const std::string digits(text());
    if (digits.size() > MostDigits || digits.ends_with('.') ||
        std::count(digits.begin(), digits.end(), '.') > 1)
        fail();
    else
        ++token_;
    Operation operation;
    operation.kind = Kind::Constant;
    operation.number =
        xmlXPathCastStringToNumber(reinterpret_cast<const xmlChar *>(digits.c_str()));
    return operation;
}

PathOperation SimplePathParser::readCall() {
    const std::string_view name = text();
    token_ += 2;
    const auto function = std::ranges::find(OnNode, name, &Function::name);
    if (function != OnNode.end())
        return readCallOnNode(function->kind);
    if (name == "contains")
        return readCallWithStrings(Kind::Contains, 2, 2);
    if (name == "starts-with")
        return readCallWithStrings(Kind::StartsWith, 2, 2);
    if (name == "concat")
        return readCallWithStrings(Kind::Concat, 2, std::numeric_limits<std::size_t>::max());
    Operation call;
    if (name == "position" || name == "last") {
        call.kind = name == "last" ? Kind::Last : Kind::Position;
        asksForPosition_ = true;
    } else if (name == "not" || name == "count") {
        call.kind = name == "not" ? Kind::Not : Kind::Count;
        call.operands.push_back(readOr());
        const Operation &operand = call.operands.front();
        if (name == "count" && (!isNodes(operand) || !orderOf(operand.steps).isUnique))
            fail();
    } else {
        fail();
    }
    require(")");
    return call;
}

void SimplePathParser::requireText(const Operation &operand) {
    const bool hasFirst = isNodes(operand) && orderOf(operand.steps).isSorted;
    if (!hasFirst && operand.type() != Type::String)
        fail();
}

PathOperation SimplePathParser::readCallOnNode(Kind kind) {
    Operation call;
    call.kind = kind;
    if (is(")"))
        // The node itself, which is what no step leads to.
        call.operands.emplace_back();
    else
        call.operands.push_back(readOr());
    require(")");
    const bool wantsNodes = kind == Kind::Name || kind == Kind::LocalName;
    if (wantsNodes && !isNodes(call.operands.front()))
        fail();
    requireText(call.operands.front());
    return call;
}

PathOperation SimplePathParser::readCallWithStrings(Kind kind, std::size_t least,
                                                    std::size_t most) {
    Operation call;
    call.kind = kind;
    do {
        call.operands.push_back(readOr());
        requireText(call.operands.back());
    } while (take(","));
    if (call.operands.size() < least || call.operands.size() > most)
        fail();
    require(")");
    return call;
}

} // namespace quillon::xml
