#include "platform/xml/query/namespaces_in_force.h"

#include "platform/xml/storage/values.h"

namespace quillon::xml {

namespace {

constexpr std::string_view Declaration = "xmlns";
constexpr std::string_view XmlNamespace = "http://www.w3.org/XML/1998/namespace";

/// So far upward somebody may go without noting what was found.
constexpr unsigned NoteEvery = 32;

std::uint64_t keyOf(Number element, std::uint32_t attributeName) {
    return (std::uint64_t(element) << 32) | attributeName;
}

} // namespace

NamespacesInForce::NamespacesInForce(const Arena &arena)
    : arena_(arena), uses_(arena.names->size()) {}

const NamespacesInForce::Use &NamespacesInForce::use(std::uint32_t name) {
    Use &use = uses_[name];
    if (use.isKnown)
        return use;
    const std::string_view text = arena_.names->utf8(name);
    const std::size_t colon = text.find(':');
    std::string_view prefix = text.substr(0, colon == text.npos ? 0 : colon);
    use.isKnown = true;
    use.hasPrefix = colon != text.npos;
    use.isDeclaration = text == Declaration || prefix == Declaration;
    if (prefix == Declaration)
        prefix = text.substr(colon + 1);
    use.isXml = prefix == "xml";
    const std::string declaration = prefix.empty()
                                        ? std::string(Declaration)
                                        : std::string(Declaration).append(":").append(prefix);
    use.declaredBy = arena_.names->find(declaration);
    return use;
}

std::string_view NamespacesInForce::localPart(std::uint32_t name) const {
    const std::string_view text = arena_.names->utf8(name);
    const std::size_t colon = text.find(':');
    return colon == text.npos ? text : text.substr(colon + 1);
}

Number NamespacesInForce::attributeOf(Number element, std::uint32_t name) const {
    Number a = arena_.part(element).firstAttribute;
    while (a != 0 && arena_.record(a).name != name)
        a = arena_.record(a).next;
    return a;
}

Number NamespacesInForce::nearest(Number element, std::uint32_t attributeName) {
    Number result = 0;
    unsigned climbed = 0;
    std::vector<Number> toNote;
    for (Number e = element; e != 0 && result == 0; e = arena_.record(e).parent) {
        if (!found_.empty()) {
            const auto known = found_.find(keyOf(e, attributeName));
            if (known != found_.end()) {
                result = known->second;
                break;
            }
        }
        result = attributeOf(e, attributeName);
        if (++climbed % NoteEvery == 0)
            toNote.push_back(e);
    }
    for (const Number e : toNote)
        found_.emplace(keyOf(e, attributeName), result);
    return result;
}

std::string_view NamespacesInForce::valueOf(Number attribute) {
    return valueView(arena_, attribute, buffer_);
}

std::string_view NamespacesInForce::namespaceOf(Number element, std::uint32_t name,
                                                bool isAttribute) {
    const Use &own = use(name);
    if (isAttribute && !own.hasPrefix)
        return {};
    if (own.declaredBy != 0) {
        const Number declaration = nearest(element, own.declaredBy);
        if (declaration != 0)
            return valueOf(declaration);
    }
    return own.isXml ? XmlNamespace : std::string_view();
}

std::string_view NamespacesInForce::defaultAt(Number element) {
    const std::uint32_t name = arena_.names->find(Declaration);
    const Number declaration = name == 0 || element == 0 ? 0 : nearest(element, name);
    return declaration == 0 ? std::string_view() : valueOf(declaration);
}

std::optional<std::string> NamespacesInForce::forExpression(std::string_view prefix,
                                                            Number element) {
    if (prefix == "xml")
        return std::string(XmlNamespace);
    const std::uint32_t name =
        arena_.names->find(std::string(Declaration).append(":").append(prefix));
    if (name == 0)
        return {};
    Number declaration = element == 0 ? 0 : nearest(element, name);
    const Number top = arena_.documentNumber();
    for (Number n = top; declaration == 0 && n != 0; n = arena_.nextInSubtree(n, top)) {
        if (arena_.record(n).kind != NodeType::Element)
            continue;
        const Number here = attributeOf(n, name);
        if (here != 0 && !valueOf(here).empty())
            declaration = here;
    }
    if (declaration == 0)
        return {};
    return std::string(valueOf(declaration));
}

} // namespace quillon::xml
