#include "platform/xml/query/simple_path_parser.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillon::xml {

namespace {

/// The steps of all alternatives of a stage, with their ends, have a bit each.
constexpr std::size_t MostSteps = 60;
constexpr int MostParts = 200;
constexpr int MostDepth = 30;

constexpr std::array<std::pair<std::string_view, NodeTest::Kind>, 4> NodeTypes = {{
    {"node", NodeTest::Kind::Node},
    {"text", NodeTest::Kind::Text},
    {"comment", NodeTest::Kind::Comment},
    {"processing-instruction", NodeTest::Kind::Instruction},
}};

constexpr std::array<std::pair<std::string_view, PathStep::Axis>, 6> Axes = {{
    {"child", PathStep::Axis::Child},
    {"descendant", PathStep::Axis::Below},
    {"descendant-or-self", PathStep::Axis::BelowOrSelf},
    {"self", PathStep::Axis::Self},
    {"parent", PathStep::Axis::Parent},
    {"attribute", PathStep::Axis::Attribute},
}};

template <typename Table>
auto foundIn(const Table &table, std::string_view name) {
    return std::find_if(table.begin(), table.end(),
                        [name](const auto &entry) { return entry.first == name; });
}

bool isBare(const PathStep &step) {
    return step.test.kind == NodeTest::Kind::Node && step.predicates.empty();
}

} // namespace

std::optional<SimplePath> SimplePathParser::parse() {
    // The library has words for what must not be in an expression at all.
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
    };
    if (std::ranges::any_of(expression_.utf8(), isControl))
        return {};
    path_.isCount = text() == "count" && isFollowedBy("(");
    if (path_.isCount)
        token_ += 2;
    readUnion();
    if (path_.isCount)
        require(")");
    if (!isAtEnd())
        fail();
    return hasFailed_ ? std::nullopt : std::optional(std::move(path_));
}

bool SimplePathParser::is(std::string_view symbol) const {
    return token_->kind == XPathToken::Kind::Symbol && text() == symbol;
}

bool SimplePathParser::isFollowedBy(std::string_view symbol) const {
    return !isAtEnd() && token_[1].kind == XPathToken::Kind::Symbol &&
           expression_.text(token_[1]) == symbol;
}

bool SimplePathParser::isNodeType() const {
    return isName() && isFollowedBy("(") && foundIn(NodeTypes, text()) != NodeTypes.end();
}

bool SimplePathParser::take(std::string_view symbol) {
    if (!is(symbol))
        return false;
    ++token_;
    return true;
}

bool SimplePathParser::takeWord(std::string_view word) {
    if (!isName() || text() != word)
        return false;
    ++token_;
    return true;
}

void SimplePathParser::require(std::string_view symbol) {
    if (!take(symbol))
        fail();
}

void SimplePathParser::fail() {
    hasFailed_ = true;
    token_ = &expression_.tokens().back();
}

void SimplePathParser::countPart() {
    if (++parts_ > MostParts)
        fail();
}

void SimplePathParser::goDeeper() {
    if (++depth_ > MostDepth)
        fail();
}

void SimplePathParser::readUnion() {
    if (is("("))
        return readGroup();
    PathAlternative first = readAlternative();
    if (!is("|"))
        return addStages(std::move(first));
    PathStage stage;
    stage.alternatives.push_back(std::move(first));
    while (take("|"))
        stage.alternatives.push_back(readAlternative());
    std::size_t steps = 0;
    for (const PathAlternative &alternative : stage.alternatives) {
        requireWalk(alternative, false);
        steps += alternative.steps.size() + 1;
    }
    if (steps > MostSteps)
        fail();
    path_.stages.push_back(std::move(stage));
}

void SimplePathParser::readGroup() {
    goDeeper();
    require("(");
    readUnion();
    require(")");
    --depth_;
    bool isPositional = false;
    for (Operation &filter : readPredicates(isPositional)) {
        if (!hasFailed_)
            path_.stages.back().filters.push_back(std::move(filter));
    }
    const bool isBelow = is("//");
    if (!take("//") && !take("/"))
        return;
    PathAlternative rest;
    rest.steps = readSteps(isBelow);
    addStages(std::move(rest));
}

PathAlternative SimplePathParser::readAlternative() {
    PathAlternative alternative;
    if (is("/") || is("//")) {
        alternative.start = PathAlternative::Start::Document;
        const bool isBelow = is("//");
        ++token_;
        if (isBelow || isStepStart())
            alternative.steps = readSteps(isBelow);
    } else {
        alternative.steps = readSteps(false);
    }
    PathSteps &steps = alternative.steps;
    const auto isUp = [](const PathStep &step) {
        return step.axis == Axis::Parent && isBare(step);
    };
    const auto first = std::find_if_not(steps.begin(), steps.end(), isUp);
    alternative.parents = std::size_t(first - steps.begin());
    steps.erase(steps.begin(), first);
    return alternative;
}

void SimplePathParser::requireWalk(const PathAlternative &alternative, bool isFromNodesFound) {
    const PathSteps &steps = alternative.steps;
    if (steps.size() >= MostSteps)
        return fail();
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const Axis axis = steps[i].axis;
        const bool isAttribute = axis == Axis::Attribute || axis == Axis::AttributeBelow;
        // The walk does not come to attributes that have been found before.
        const bool mayStay = axis == Axis::Self || axis == Axis::BelowOrSelf;
        if (axis == Axis::Parent || (isAttribute && i + 1 < steps.size()) ||
            (i == 0 && isFromNodesFound && mayStay))
            fail();
    }
}

void SimplePathParser::addStages(PathAlternative alternative) {
    PathSteps steps = std::exchange(alternative.steps, {});
    PathStage stage;
    stage.alternatives.push_back(std::move(alternative));
    const auto add = [&] {
        const PathAlternative &only = stage.alternatives.front();
        const bool isFromNodesFound = !path_.stages.empty() && !stage.parent;
        requireWalk(only, isFromNodesFound);
        if (!isFromNodesFound || !only.steps.empty())
            path_.stages.push_back(std::move(stage));
    };
    for (PathStep &step : steps) {
        if (step.axis == Axis::Parent) {
            add();
            stage = PathStage();
            stage.parent = std::move(step);
            stage.alternatives.emplace_back();
        } else {
            stage.alternatives.front().steps.push_back(std::move(step));
        }
    }
    add();
}

bool SimplePathParser::isStepStart() const {
    return isName() || is("*") || is("@") || is(".") || is("..");
}

PathSteps SimplePathParser::readSteps(bool isBelow) {
    PathSteps steps;
    while (true) {
        readStep(isBelow, steps);
        isBelow = is("//");
        if (!take("//") && !take("/"))
            return steps;
    }
}

void SimplePathParser::readStep(bool isBelow, PathSteps &steps) {
    countPart();
    PathStep step;
    const bool isShort = is(".") || is("..");
    if (isShort) {
        step.axis = is(".") ? Axis::Self : Axis::Parent;
        ++token_;
    } else {
        const bool saysAxis = isName() && isFollowedBy("::");
        step.axis = readAxis();
        step.test = readTest(step.axis == Axis::Attribute);
        step.predicates = readPredicates(step.isPositional);
        // From each node anew, however many of them stand above one another.
        if (saysAxis && step.isPositional &&
            (step.axis == Axis::Below || step.axis == Axis::BelowOrSelf))
            fail();
    }
    if (isBelow) {
        const std::optional<Axis> axis = below(step.axis);
        if (!axis || (step.axis == Axis::Self && !isBare(step)))
            return fail();
        step.axis = *axis;
    }
    if (step.axis != Axis::Self || !isBare(step))
        steps.push_back(std::move(step));
}

std::optional<PathStep::Axis> SimplePathParser::below(Axis axis) {
    switch (axis) {
    case Axis::Child:
        return Axis::Below;
    case Axis::Attribute:
        return Axis::AttributeBelow;
    case Axis::Self:
        return Axis::BelowOrSelf;
    default:
        return {};
    }
}

PathStep::Axis SimplePathParser::readAxis() {
    if (take("@"))
        return Axis::Attribute;
    if (!isName() || !isFollowedBy("::"))
        return Axis::Child;
    const auto found = foundIn(Axes, text());
    if (found == Axes.end()) {
        fail();
        return Axis::Child;
    }
    token_ += 2;
    return found->second;
}

NodeTest SimplePathParser::readTest(bool isOfAttribute) {
    if (take("*"))
        return {NodeTest::Kind::Principal, 0, {}};
    if (isNodeType())
        return readNodeType();
    PathName name{{}, std::string(text()), isOfAttribute};
    if (!isName() || isFollowedBy("(") || isFollowedBy("::")) {
        fail();
        return {};
    }
    ++token_;
    const auto isAdjacent = [this] { return token_->start == token_[-1].end; };
    if (is(":")) {
        name.prefix = std::exchange(name.local, {});
        bool isWhole = isAdjacent();
        ++token_;
        isWhole = isWhole && isAdjacent();
        if (isName())
            name.local = text();
        if (!isWhole || !(isName() || is("*"))) {
            fail();
            return {};
        }
        ++token_;
    }
    return {NodeTest::Kind::Name, numberOf(std::move(name)), {}};
}

NodeTest SimplePathParser::readNodeType() {
    NodeTest test{foundIn(NodeTypes, text())->second, 0, {}};
    token_ += 2;
    if (test.kind == NodeTest::Kind::Instruction && !is(")")) {
        test.target = readLiteral();
        if (test.target.empty())
            fail();
    }
    require(")");
    return test;
}

std::string SimplePathParser::readLiteral() {
    const std::string_view quoted = text();
    if (token_->kind != XPathToken::Kind::Literal || quoted.size() < 2 ||
        quoted.front() != quoted.back()) {
        fail();
        return {};
    }
    ++token_;
    return std::string(quoted.substr(1, quoted.size() - 2));
}

std::size_t SimplePathParser::numberOf(PathName name) {
    const auto found = std::ranges::find(path_.names, name);
    if (found != path_.names.end())
        return std::size_t(found - path_.names.begin());
    path_.names.push_back(std::move(name));
    return path_.names.size() - 1;
}

std::vector<PathOperation> SimplePathParser::readPredicates(bool &isPositional) {
    std::vector<Operation> predicates;
    goDeeper();
    while (take("[")) {
        const bool asked = std::exchange(asksForPosition_, false);
        predicates.push_back(readOr());
        require("]");
        isPositional =
            isPositional || asksForPosition_ || predicates.back().type() == Type::Numeric;
        asksForPosition_ = asked;
    }
    --depth_;
    return predicates;
}

} // namespace quillon::xml
