#include "platform/xml/query/simple_path.h"

#include "platform/xml/query/simple_path_parser.h"

namespace quillon::xml {

PathOperation::Type PathOperation::type() const {
    switch (kind) {
    case Kind::Path:
        return Type::Nodes;
    case Kind::Literal:
    case Kind::NormalizeSpace:
    case Kind::Name:
    case Kind::LocalName:
    case Kind::ToString:
    case Kind::Concat:
        return Type::String;
    case Kind::Constant:
    case Kind::Position:
    case Kind::Last:
    case Kind::Count:
    case Kind::StringLength:
    case Kind::ToNumber:
    case Kind::Add:
    case Kind::Subtract:
    case Kind::Multiply:
    case Kind::Divide:
    case Kind::Modulo:
        return Type::Numeric;
    default:
        return Type::Boolean;
    }
}

std::optional<SimplePath> simplePathOf(const XPathExpression &expression) {
    return SimplePathParser(expression).parse();
}

} // namespace quillon::xml
