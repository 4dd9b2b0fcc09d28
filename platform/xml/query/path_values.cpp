#include "platform/xml/query/path_nodes.h"
#include "platform/xml/storage/values.h"

#include <algorithm>
#include <cmath>
#include <libxml/xpath.h>

namespace quillon::xml {

namespace {

/// So many bytes of text cost as much as a node.
constexpr std::size_t BytesPerStep = 16;

constexpr std::string_view Blanks = " \t\n\r";

bool isCharacters(NodeType kind) {
    return kind == NodeType::Text || kind == NodeType::CDATASection ||
           kind == NodeType::EntityReference;
}

std::size_t charactersIn(std::string_view utf8) {
    return std::size_t(std::count_if(utf8.begin(), utf8.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

/// With one blank for each run of them inside, and none at the ends.
std::string withoutExtraBlanks(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; (at = text.find_first_not_of(Blanks, at)) != text.npos;) {
        const std::size_t end = std::min(text.find_first_of(Blanks, at), text.size());
        if (!result.empty())
            result += ' ';
        result.append(text, at, end - at);
        at = end;
    }
    return result;
}

template <typename T>
bool holds(PathOperation::Kind comparison, const T &left, const T &right) {
    using Kind = PathOperation::Kind;
    switch (comparison) {
    case Kind::Equal:
        return left == right;
    case Kind::NotEqual:
        return left != right;
    case Kind::Less:
        return left < right;
    case Kind::LessOrEqual:
        return left <= right;
    case Kind::Greater:
        return left > right;
    default:
        return left >= right;
    }
}

PathOperation::Kind mirrored(PathOperation::Kind comparison) {
    using Kind = PathOperation::Kind;
    switch (comparison) {
    case Kind::Less:
        return Kind::Greater;
    case Kind::LessOrEqual:
        return Kind::GreaterOrEqual;
    case Kind::Greater:
        return Kind::Less;
    case Kind::GreaterOrEqual:
        return Kind::LessOrEqual;
    default:
        return comparison;
    }
}

double calculated(PathOperation::Kind kind, double left, double right) {
    using Kind = PathOperation::Kind;
    switch (kind) {
    case Kind::Add:
        return left + right;
    case Kind::Subtract:
        return left - right;
    case Kind::Multiply:
        return left * right;
    case Kind::Divide:
        return left / right;
    default:
        return std::fmod(left, right);
    }
}

} // namespace

std::string_view PathNodes::characters(Number node, std::string &buffer) {
    const Record &r = arena_.record(node);
    if (r.kind != NodeType::EntityReference)
        return valueView(arena_, node, buffer);
    buffer = entityText(arena_.names->utf8(r.name), *arena_.entities);
    return buffer;
}

std::string_view PathNodes::textOf(Number node, std::string &buffer) {
    std::string_view all;
    if (!arena_.hasPart(node)) {
        all = characters(node, buffer);
    } else {
        const Number child = arena_.part(node).firstChild;
        if (child == 0)
            return {};
        if (arena_.record(child).next == 0 && isCharacters(arena_.record(child).kind)) {
            all = characters(child, buffer);
        } else {
            buffer.clear();
            std::string part;
            for (Number n = child; n != 0; n = arena_.nextInSubtree(n, node)) {
                if (isCharacters(arena_.record(n).kind))
                    buffer += characters(n, part);
                work_.spend();
            }
            all = buffer;
        }
    }
    work_.spend(1 + all.size() / BytesPerStep);
    return all;
}

bool PathNodes::hasText(Number node, std::string_view text) {
    std::string buffer;
    if (!arena_.hasPart(node))
        return characters(node, buffer) == text;
    for (Number n = node; n != 0; n = arena_.nextInSubtree(n, node)) {
        work_.spend();
        if (!isCharacters(arena_.record(n).kind))
            continue;
        const std::string_view part = characters(n, buffer);
        if (!text.starts_with(part))
            return false;
        text.remove_prefix(part.size());
    }
    return text.empty();
}

double PathNodes::numberOf(std::string_view text) {
    // The library wants the end of the text marked.
    const std::string copy(text);
    return xmlXPathCastStringToNumber(reinterpret_cast<const xmlChar *>(copy.c_str()));
}

bool PathNodes::passes(const PathOperation &predicate, const Focus &focus) {
    if (predicate.type() == PathOperation::Type::Numeric)
        return number(predicate, focus) == double(focus.position);
    return truth(predicate, focus);
}

bool PathNodes::passes(const std::vector<PathOperation> &predicates, const Focus &focus) {
    return std::ranges::all_of(
        predicates, [&](const PathOperation &predicate) { return passes(predicate, focus); });
}

bool PathNodes::truth(const PathOperation &operation, const Focus &focus) {
    const auto isTrue = [&](const PathOperation &operand) { return truth(operand, focus); };
    switch (operation.kind) {
    case Kind::Path:
        return firstOf(operation.steps, focus.node) != 0;
    case Kind::Not:
        return !isTrue(operation.operands.front());
    case Kind::And:
        return std::ranges::all_of(operation.operands, isTrue);
    case Kind::Or:
        return std::ranges::any_of(operation.operands, isTrue);
    case Kind::Contains:
    case Kind::StartsWith: {
        std::string own;
        std::string sought;
        const std::string_view whole = text(operation.operands.front(), focus, own);
        const std::string_view part = text(operation.operands.back(), focus, sought);
        return operation.kind == Kind::Contains ? whole.find(part) != whole.npos
                                                : whole.starts_with(part);
    }
    default:
        break;
    }
    switch (operation.type()) {
    case PathOperation::Type::Numeric: {
        const double value = number(operation, focus);
        return value != 0 && !std::isnan(value);
    }
    case PathOperation::Type::String: {
        std::string buffer;
        return !text(operation, focus, buffer).empty();
    }
    default:
        return compare(operation, focus);
    }
}

double PathNodes::number(const PathOperation &operation, const Focus &focus) {
    switch (operation.kind) {
    case Kind::Constant:
        return operation.number;
    case Kind::Position:
        return double(focus.position);
    case Kind::Last:
        return double(focus.size);
    case Kind::Count: {
        std::size_t count = 0;
        const auto countOne = [&](Number) {
            ++count;
            return false;
        };
        visit(operation.operands.front().steps, 0, focus.node, countOne);
        return double(count);
    }
    case Kind::StringLength: {
        std::string buffer;
        return double(charactersIn(text(operation.operands.front(), focus, buffer)));
    }
    case Kind::ToNumber: {
        std::string buffer;
        return numberOf(text(operation.operands.front(), focus, buffer));
    }
    default:
        break;
    }
    if (operation.type() == PathOperation::Type::Numeric)
        return calculated(operation.kind, number(operation.operands.front(), focus),
                          number(operation.operands.back(), focus));
    if (operation.type() == PathOperation::Type::Boolean)
        return truth(operation, focus) ? 1 : 0;
    std::string buffer;
    return numberOf(text(operation, focus, buffer));
}

std::string_view PathNodes::text(const PathOperation &operation, const Focus &focus,
                                 std::string &buffer) {
    switch (operation.kind) {
    case Kind::Literal:
        return operation.literal;
    case Kind::Path: {
        const Number first = firstOf(operation.steps, focus.node);
        return first == 0 ? std::string_view() : textOf(first, buffer);
    }
    case Kind::ToString:
        return text(operation.operands.front(), focus, buffer);
    case Kind::NormalizeSpace: {
        std::string own;
        buffer = withoutExtraBlanks(text(operation.operands.front(), focus, own));
        return buffer;
    }
    case Kind::Concat: {
        std::string whole;
        for (const PathOperation &operand : operation.operands) {
            std::string own;
            whole += text(operand, focus, own);
        }
        buffer = std::move(whole);
        return buffer;
    }
    default:
        return nameOf(operation, focus);
    }
}

std::string_view PathNodes::nameOf(const PathOperation &operation, const Focus &focus) {
    const Number node = firstOf(operation.operands.front().steps, focus.node);
    if (node == 0)
        return {};
    const Record &r = arena_.record(node);
    const bool isAttribute = r.kind == NodeType::Attribute;
    if (r.kind == NodeType::EntityReference)
        return {};
    const std::string_view name = arena_.names->utf8(r.name);
    if (operation.kind == Kind::Name || (!isAttribute && r.kind != NodeType::Element))
        return name;
    const Number element = isAttribute ? r.parent : node;
    return namespaces_.namespaceOf(element, r.name, isAttribute).empty()
               ? name
               : namespaces_.localPart(r.name);
}

bool PathNodes::compare(const PathOperation &comparison, const Focus &focus) {
    using Type = PathOperation::Type;
    const PathOperation &left = comparison.operands.front();
    const PathOperation &right = comparison.operands.back();
    const auto isAny = [&](Type type) { return left.type() == type || right.type() == type; };
    if (isAny(Type::Boolean))
        return holds(comparison.kind, truth(left, focus), truth(right, focus));
    if (isAny(Type::Nodes))
        return compareNodes(comparison, focus);
    const bool isOfTexts = comparison.kind == Kind::Equal || comparison.kind == Kind::NotEqual;
    if (isAny(Type::Numeric) || !isOfTexts)
        return holds(comparison.kind, number(left, focus), number(right, focus));
    std::string ownLeft;
    std::string ownRight;
    return holds(comparison.kind, text(left, focus, ownLeft), text(right, focus, ownRight));
}

bool PathNodes::compareNodes(const PathOperation &comparison, const Focus &focus) {
    const bool isLeft = comparison.operands.front().type() == PathOperation::Type::Nodes;
    const PathOperation &nodes = isLeft ? comparison.operands.front() : comparison.operands.back();
    const PathOperation &value = isLeft ? comparison.operands.back() : comparison.operands.front();
    const Kind kind = isLeft ? comparison.kind : mirrored(comparison.kind);
    std::string buffer;
    if (value.type() == PathOperation::Type::String &&
        (kind == Kind::Equal || kind == Kind::NotEqual)) {
        const std::string_view wanted = text(value, focus, buffer);
        const auto take = [&](Number n) { return hasText(n, wanted) == (kind == Kind::Equal); };
        return visit(nodes.steps, 0, focus.node, take);
    }
    const double wanted = number(value, focus);
    const auto take = [&](Number n) { return holds(kind, numberOf(textOf(n, buffer)), wanted); };
    return visit(nodes.steps, 0, focus.node, take);
}

} // namespace quillon::xml
