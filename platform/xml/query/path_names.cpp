#include "platform/xml/query/path_nodes.h"

#include <algorithm>
#include <libxml/tree.h>

namespace quillon::xml {

namespace {

/// Whether the library takes it for a name, too.
bool isName(const std::string &local) {
    return xmlValidateNCName(reinterpret_cast<const xmlChar *>(local.c_str()), 0) == 0;
}

} // namespace

bool PathNames::bind(const std::vector<PathName> &names, Number element,
                     std::string_view defaultNamespace) {
    bound_.clear();
    for (const PathName &name : names) {
        Bound bound;
        bound.isOfAttribute = name.isOfAttribute;
        bound.only = arena_.names->find(name.local);
        // A name that starts with a colon has an empty prefix, which nobody expects.
        if ((!name.local.empty() && bound.only == 0 && !isName(name.local)) ||
            arena_.names->find(":" + name.local) != 0)
            return false;
        if (!name.prefix.empty()) {
            const std::optional<std::string> uri = namespaces_.forExpression(name.prefix, element);
            if (!uri || uri->empty() || !isName(name.prefix))
                return false;
            bound.uri = *uri;
        } else if (!name.isOfAttribute) {
            bound.uri = defaultNamespace;
        }
        if (!bound.uri.empty() && !name.local.empty()) {
            bound.fitting.resize(arena_.names->size());
            for (std::uint32_t n = 0; n < arena_.names->size(); ++n)
                bound.fitting[n] = namespaces_.localPart(n) == name.local;
        }
        bound_.push_back(std::move(bound));
    }
    return true;
}

bool PathNames::matches(std::size_t name, Number node) const {
    const Bound &bound = bound_[name];
    const Record &r = arena_.record(node);
    const bool isAttribute = r.kind == NodeType::Attribute;
    if (isAttribute != bound.isOfAttribute || (!isAttribute && r.kind != NodeType::Element))
        return false;
    if (bound.uri.empty())
        return r.name == bound.only &&
               (isAttribute || namespaces_.namespaceOf(node, r.name, false).empty());
    if (!bound.fitting.empty() && !bound.fitting[r.name])
        return false;
    return namespaces_.namespaceOf(isAttribute ? r.parent : node, r.name, isAttribute) == bound.uri;
}

} // namespace quillon::xml
