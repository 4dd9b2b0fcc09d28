#pragma once

#include "platform/xml/storage/arena.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillon::xml {

/// Which namespaces the names in a document are in, found by looking upward from them. They are in
/// those that LibxmlTree says. The document must not change meanwhile.
class NamespacesInForce {
public:
    explicit NamespacesInForce(const Arena &arena);

    /// Whether an attribute of that name declares something.
    bool isDeclaration(std::uint32_t name) { return use(name).isDeclaration; }
    /// A name without its prefix, as long as that is bound.
    std::string_view localPart(std::uint32_t name) const;
    /// The namespace of a node with that name at an element: the element itself, or an attribute of
    /// it. Empty for none. Good until the next question.
    std::string_view namespaceOf(Number element, std::uint32_t name, bool isAttribute);
    /// The default namespace in force at an element or the document; empty for none.
    std::string_view defaultAt(Number element);
    /// What a prefix means to an expression that is evaluated from there: what it means at the
    /// element, else what its first declaration in the document says. Nothing for an unknown one.
    std::optional<std::string> forExpression(std::string_view prefix, Number element);

private:
    /// The name of the attribute that declares the prefix of a name.
    struct Use {
        bool isKnown = false;
        bool isDeclaration = false;
        bool hasPrefix = false;
        bool isXml = false;
        /// 0: nobody declares it.
        std::uint32_t declaredBy = 0;
    };

    const Use &use(std::uint32_t name);
    /// The attribute of that name of the nearest element upward that has one; 0 for none.
    Number nearest(Number element, std::uint32_t attributeName);
    Number attributeOf(Number element, std::uint32_t name) const;
    std::string_view valueOf(Number attribute);

    const Arena &arena_;
    /// By number of a name.
    std::vector<Use> uses_;
    /// What was found on long ways upward, by element and name.
    std::unordered_map<std::uint64_t, Number> found_;
    std::string buffer_;
};

} // namespace quillon::xml
