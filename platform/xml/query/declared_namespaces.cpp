#include "platform/xml/query/declared_namespaces.h"

#include "platform/xml/storage/values.h"

#include <algorithm>

namespace quillon::xml {

NameParts::NameParts(std::string_view name) : local(name) {
    const std::size_t colon = name.find(':');
    if (colon == name.npos)
        return;
    prefix = name.substr(0, colon);
    local = name.substr(colon + 1);
}

std::string declaredPrefix(std::string_view attributeName) {
    const NameParts parts(attributeName);
    return parts.prefix.empty() ? std::string() : parts.local;
}

DeclaredNamespaces::DeclaredNamespaces(const Arena &arena)
    : arena_(arena), declarations_(arena.names->size()) {
    for (std::uint32_t name = 0; name < arena.names->size(); ++name) {
        const std::string_view text = arena.names->utf8(name);
        declarations_[name] = text == "xmlns" || text.starts_with("xmlns:");
    }
    if (std::find(declarations_.begin(), declarations_.end(), true) == declarations_.end())
        return;
    const Number top = arena.documentNumber();
    for (Number n = top; n != 0; n = arena.nextInSubtree(n, top)) {
        if (arena.record(n).kind == NodeType::Element)
            note(n);
    }
}

void DeclaredNamespaces::note(Number element) {
    for (Number a = arena_.part(element).firstAttribute; a != 0; a = arena_.record(a).next) {
        const std::uint32_t name = arena_.record(a).name;
        if (!isDeclaration(name))
            continue;
        std::string uri = valueOf(arena_, a);
        const auto [use, isNew] = uses_.try_emplace(declaredPrefix(arena_.names->utf8(name)));
        if (isNew)
            use->second.uri = std::move(uri);
        else if (use->second.uri != uri)
            use->second.hasOthers = true;
    }
}

bool DeclaredNamespaces::isTheOnly(const std::string &prefix, const std::string &uri) const {
    const auto use = uses_.find(prefix);
    return use != uses_.end() && !use->second.hasOthers && use->second.uri == uri;
}

void DeclaredNamespaces::add(Number element, NamespaceScope &scope) const {
    for (Number a = arena_.part(element).firstAttribute; a != 0; a = arena_.record(a).next) {
        const std::uint32_t name = arena_.record(a).name;
        if (isDeclaration(name))
            scope[declaredPrefix(arena_.names->utf8(name))] = valueOf(arena_, a);
    }
}

} // namespace quillon::xml
