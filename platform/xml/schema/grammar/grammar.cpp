#include "platform/xml/schema/grammar/grammar.h"

#include <algorithm>
#include <unordered_set>

namespace quillon::grammar {

namespace {

template <typename Record>
std::span<const Record> part(const std::vector<Record> &list, const Range &range) {
    return std::span(list).subspan(range.first, range.count);
}

} // namespace

Grammar::Grammar(Data data) {
    const auto content = std::make_shared<Shared>();
    content->data = std::move(data);
    const Data &known = content->data;
    content->strings.reserve(known.strings.count());
    // The first of equal texts, which only a stranger's data have, is the one that is found.
    for (Index i = known.strings.count(); i-- > 0;)
        content->strings.insert(known.strings.at(i), i);
    for (Index i = 0; i < known.elements.size(); ++i) {
        const quint64 name = key(symbolOf(known.elements[i].name));
        if (!known.elements[i].isGlobal || content->elements.contains(name))
            continue;
        content->elements.insert(name, i);
        content->globals.push_back(i);
    }
    for (Index i = 0; i < known.types.size(); ++i) {
        const quint64 name = key(symbolOf(known.types[i].name));
        if (known.types[i].name.local != 0 && !content->types.contains(name))
            content->types.insert(name, i);
    }
    content_ = content;
}

std::span<const Attribute> Grammar::attributesOf(const Type &type) const {
    return part(data().attributes, type.attributes);
}

std::span<const Index> Grammar::substitutesOf(const Element &element) const {
    return part(data().elementLists, element.substitutes);
}

std::span<const Index> Grammar::partsOf(const Particle &particle) const {
    return part(data().particleLists, particle.parts);
}

Symbol Grammar::symbol(QStringView namespaceName, QStringView localName) const {
    return {content_->strings.value(namespaceName, None), content_->strings.value(localName, None)};
}

Index Grammar::globalElement(const Symbol &name) const {
    return content_->elements.value(key(name), None);
}

Index Grammar::childElement(Index type, const Symbol &name) const {
    const Type &declared = data().types[type];
    if (declared.content == Content::Any)
        return globalElement(name);
    if (declared.particle == None)
        return None;
    Index byWildcard = None;
    std::vector<Index> pending{declared.particle};
    // Groups are shared, so that a model may have far more ways through it than pieces.
    std::unordered_set<Index> seen;
    while (!pending.empty()) {
        const Index at = pending.back();
        pending.pop_back();
        if (!seen.insert(at).second)
            continue;
        const Particle &piece = data().particles[at];
        if (piece.kind == ParticleKind::Element) {
            if (const Index element = matched(piece.target, name); element != None)
                return element;
        } else if (piece.kind == ParticleKind::Wildcard) {
            if (matches(data().wildcards[piece.target], name))
                byWildcard = globalElement(name);
        } else {
            const auto parts = partsOf(piece);
            pending.insert(pending.end(), parts.rbegin(), parts.rend());
        }
    }
    return byWildcard;
}

Index Grammar::namedType(const Symbol &name) const {
    return content_->types.value(key(name), None);
}

bool Grammar::isDerived(Index type, Index from) const {
    while (type != None && type != from)
        type = data().types[type].base;
    return type != None;
}

bool Grammar::mayStandFor(Index type, Index from, Blocked blocked) const {
    for (Index at = type; at != from; at = data().types[at].base) {
        if (at == None)
            return false;
        const Derivation way = data().types[at].derivation;
        if ((way == Derivation::Extension && (blocked & BlocksExtension) != 0) ||
            (way == Derivation::Restriction && (blocked & BlocksRestriction) != 0))
            return false;
    }
    return true;
}

std::vector<Index> Grammar::typesFor(Index type, Index element) const {
    const Blocked blocked =
        data().types[type].blocked | (element == None ? 0 : data().elements[element].blocked);
    std::vector<Index> found;
    for (Index i = 0; i < data().types.size(); ++i) {
        const Type &candidate = data().types[i];
        if (candidate.name.local != 0 && !candidate.isAbstract && mayStandFor(i, type, blocked))
            found.push_back(i);
    }
    return found;
}

bool Grammar::matches(const Element &element, const Symbol &name) const {
    if (!element.isAbstract && symbolOf(element.name) == name)
        return true;
    return std::ranges::any_of(substitutesOf(element), [&](Index substitute) {
        return symbolOf(data().elements[substitute].name) == name;
    });
}

Index Grammar::matched(Index element, const Symbol &name) const {
    for (const Index candidate : standingFor(element)) {
        if (symbolOf(data().elements[candidate].name) == name)
            return candidate;
    }
    return None;
}

bool Grammar::matches(const Wildcard &wildcard, const Symbol &name) const {
    if (wildcard.rule != NamespaceRule::Any) {
        const auto listed = part(data().stringLists, wildcard.namespaces);
        const bool isListed = std::ranges::find(listed, name.space) != listed.end();
        if (isListed != (wildcard.rule == NamespaceRule::Listed))
            return false;
    }
    return std::ranges::none_of(part(data().names, wildcard.except),
                                [&](const Name &excepted) { return symbolOf(excepted) == name; });
}

std::vector<Index> Grammar::standingFor(Index element) const {
    const Element &declared = data().elements[element];
    std::vector<Index> found;
    if (!declared.isAbstract)
        found.push_back(element);
    for (const Index substitute : substitutesOf(declared))
        found.push_back(substitute);
    return found;
}

std::vector<Index> Grammar::standingForWildcard(Index wildcard) const {
    std::vector<Index> found;
    for (const Index element : globalElements()) {
        const Element &declared = data().elements[element];
        if (!declared.isAbstract && matches(data().wildcards[wildcard], symbolOf(declared.name)))
            found.push_back(element);
    }
    return found;
}

const Attribute *Grammar::globalAttribute(const Symbol &name) const {
    for (const Attribute &attribute : part(data().attributes, data().globalAttributes)) {
        if (symbolOf(attribute.name) == name)
            return &attribute;
    }
    return nullptr;
}

} // namespace quillon::grammar
