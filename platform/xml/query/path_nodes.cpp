#include "platform/xml/query/path_nodes.h"

namespace quillon::xml {

Number PathNodes::undeclaring(Number attribute) {
    while (attribute != 0 && namespaces_.isDeclaration(arena_.record(attribute).name))
        attribute = arena_.record(attribute).next;
    return attribute;
}

bool PathNodes::isOnAxis(Number node) {
    const Record &r = arena_.record(node);
    return r.kind != NodeType::Attribute || !namespaces_.isDeclaration(r.name);
}

Number PathNodes::firstAttribute(Number element) {
    return arena_.record(element).kind == NodeType::Element
               ? undeclaring(arena_.part(element).firstAttribute)
               : 0;
}

bool PathNodes::matches(const NodeTest &test, Number node) const {
    const Record &r = arena_.record(node);
    switch (test.kind) {
    case NodeTest::Kind::Name:
        return names_.matches(test.name, node);
    case NodeTest::Kind::Principal:
        // Attributes are looked at on their axis alone.
        return r.kind == NodeType::Element || r.kind == NodeType::Attribute;
    case NodeTest::Kind::Text:
        return r.kind == NodeType::Text || r.kind == NodeType::CDATASection ||
               r.kind == NodeType::EntityReference;
    case NodeTest::Kind::Comment:
        return r.kind == NodeType::Comment;
    case NodeTest::Kind::Instruction:
    case NodeTest::Kind::Node:
        break;
    }
    // XPath knows neither the declaration nor the document type.
    if (r.kind != NodeType::ProcessingInstruction)
        return test.kind == NodeTest::Kind::Node && r.kind != NodeType::DocumentType;
    const std::string_view target = arena_.names->utf8(r.name);
    return target != "xml" && (test.target.empty() || test.target == target);
}

bool PathNodes::finds(const PathStep &step, Number node) {
    return matches(step.test, node) && passes(step.predicates, {node, 1, 1});
}

Number PathNodes::firstOn(PathStep::Axis axis, Number node) const {
    if (!arena_.hasPart(node))
        return 0;
    const ElementPart &part = arena_.part(node);
    return axis == PathStep::Axis::Child || axis == PathStep::Axis::Below ? part.firstChild
                                                                          : part.firstAttribute;
}

std::vector<Number> PathNodes::found(const PathStep &step, Number from) {
    std::vector<Number> nodes;
    const PathOperation &first = step.predicates.front();
    const double most =
        first.kind == Kind::Constant ? first.number : std::numeric_limits<double>::infinity();
    for (Number n = firstOn(step.axis, from); n != 0 && double(nodes.size()) < most;
         n = arena_.record(n).next) {
        work_.spend();
        if (isOnAxis(n) && matches(step.test, n))
            nodes.push_back(n);
    }
    filter(nodes, step.predicates);
    return nodes;
}

void PathNodes::filter(std::vector<Number> &nodes, const std::vector<PathOperation> &predicates) {
    for (const PathOperation &predicate : predicates) {
        std::size_t kept = 0;
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            work_.spend();
            if (passes(predicate, {nodes[i], i + 1, nodes.size()}))
                nodes[kept++] = nodes[i];
        }
        nodes.resize(kept);
    }
}

Number PathNodes::firstOf(const PathSteps &steps, Number from) {
    Number first = 0;
    const auto take = [&first](Number n) {
        first = n;
        return true;
    };
    visit(steps, 0, from, take);
    return first;
}

bool PathNodes::visit(const PathSteps &steps, std::size_t at, Number from, const Taker &take) {
    if (at == steps.size())
        return take(from);
    const PathStep &step = steps[at];
    switch (step.axis) {
    case PathStep::Axis::Self:
        return finds(step, from) && visit(steps, at + 1, from, take);
    case PathStep::Axis::Parent: {
        const Number parent = arena_.record(from).parent;
        return parent != 0 && finds(step, parent) && visit(steps, at + 1, parent, take);
    }
    case PathStep::Axis::Child:
    case PathStep::Axis::Attribute:
        return visitList(steps, at, from, take);
    default:
        return visitBelow(steps, at, from, take);
    }
}

bool PathNodes::visitList(const PathSteps &steps, std::size_t at, Number from, const Taker &take) {
    const PathStep &step = steps[at];
    if (step.isPositional) {
        for (const Number n : found(step, from)) {
            if (visit(steps, at + 1, n, take))
                return true;
        }
        return false;
    }
    const std::uint32_t onlyName = names_.onlyName(step.test);
    for (Number n = firstOn(step.axis, from); n != 0; n = arena_.record(n).next) {
        work_.spend();
        if ((onlyName == PathNames::AnyName || onlyName == arena_.record(n).name) && isOnAxis(n) &&
            finds(step, n) && visit(steps, at + 1, n, take))
            return true;
    }
    return false;
}

bool PathNodes::visitBelow(const PathSteps &steps, std::size_t at, Number from, const Taker &take) {
    const PathStep &step = steps[at];
    const bool isList = step.isPositional || step.axis == PathStep::Axis::AttributeBelow;
    for (Number n = from; n != 0; n = arena_.nextInSubtree(n, from)) {
        work_.spend();
        if (isList ? visitList(steps, at, n, take)
                   : (n != from || step.axis == PathStep::Axis::BelowOrSelf) && finds(step, n) &&
                         visit(steps, at + 1, n, take))
            return true;
    }
    return false;
}

} // namespace quillon::xml
