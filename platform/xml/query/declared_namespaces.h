#pragma once

#include "platform/xml/storage/arena.h"

#include <string>
#include <unordered_map>

namespace quillon::xml {

/// Namespaces by the prefixes that stand for them; the empty prefix for the default one. An empty
/// namespace is none.
using NamespaceScope = std::unordered_map<std::string, std::string>;

/// A qualified name in its two parts.
struct NameParts {
    explicit NameParts(std::string_view name);

    std::string prefix;
    std::string local;
};

/// What a document declares.
class DeclaredNamespaces {
public:
    /// Takes a walk over the document if it may declare anything.
    explicit DeclaredNamespaces(const Arena &arena);

    /// Whether an attribute of that name declares something.
    bool isDeclaration(std::uint32_t name) const { return declarations_[name]; }
    /// Whether the document declares that prefix for that namespace and never for another one.
    bool isTheOnly(const std::string &prefix, const std::string &uri) const;
    /// Puts what an element declares into a scope.
    void add(Number element, NamespaceScope &scope) const;

private:
    void note(Number element);

    const Arena &arena_;
    /// By number of a name.
    std::vector<bool> declarations_;
    struct Use {
        std::string uri;
        bool hasOthers = false;
    };
    std::unordered_map<std::string, Use> uses_;
};

/// The prefix that an attribute `xmlns` or `xmlns:...` declares.
std::string declaredPrefix(std::string_view attributeName);

} // namespace quillon::xml
