#include "platform/xml/schema/xerces/declarations.h"

#include "platform/runtime/error.h"
#include "platform/xml/dom/qualified_name.h"
#include "resources/xml_texts.h"

#include <algorithm>

namespace quillon::xml {

using grammar::Index;
using grammar::None;
using grammar::Particle;
using grammar::ParticleKind;

namespace {

/// Xerces takes time in proportion to the square of this number.
constexpr quint64 MaxLeaves = 2'000;

/// How many leaves the model that a particle stands for has when groups are written out as often
/// as they repeat; capped. Parts stand ahead of what they are parts of.
std::vector<quint64> leavesOf(const grammar::Grammar &grammar) {
    const grammar::Data &data = grammar.data();
    std::vector<quint64> leaves(data.particles.size(), 1);
    for (std::size_t i = 0; i < data.particles.size(); ++i) {
        const Particle &particle = data.particles[i];
        if (particle.kind == ParticleKind::Element || particle.kind == ParticleKind::Wildcard)
            continue;
        quint64 sum = 0;
        for (const Index part : grammar.partsOf(particle))
            sum += leaves[part];
        const quint32 times = particle.maximum == grammar::Unbounded
                                  ? std::max(particle.minimum, 1U)
                                  : std::max(particle.maximum, 1U);
        leaves[i] = std::min(sum * times, MaxLeaves + 1);
    }
    return leaves;
}

} // namespace

grammar::ContentMatcher *Declarations::matcher() {
    if (!isRead_) {
        isRead_ = true;
        try {
            matcher_.emplace(grammar::Grammar(grammar::readGrammar(schemas_)));
        } catch (const runtime::Error &error) {
            // What else is wrong with them, Xerces says.
            expandsTooMuch_ = error.description().contains(resources::xml_texts::EntityLimit);
        }
    }
    return matcher_ ? &*matcher_ : nullptr;
}

Declarations::Declared Declarations::of(const Node &element) {
    grammar::ContentMatcher *const known = matcher();
    return known ? Declared{known, knownElement(known->grammar(), element)} : Declared();
}

const grammar::SimpleType *Declarations::typeOfText(const Declared &declared) const {
    if (!declared)
        return nullptr;
    const Index text = declared.grammar().type(declared.known.type).text;
    return text == None ? nullptr : &declared.grammar().data().simpleTypes[text];
}

const grammar::SimpleType *Declarations::typeOfAttribute(const Declared &declared,
                                                         const Node &element,
                                                         const QString &name) const {
    if (!declared)
        return nullptr;
    const grammar::Grammar &grammar = declared.grammar();
    const QString prefix = prefixOf(name);
    const grammar::Symbol symbol =
        grammar.data().language == grammar::Language::Dtd
            ? grammar.symbol({}, name)
            : grammar.symbol(prefix.isEmpty() ? QString() : namespaceAt(element, prefix),
                             localNameOf(name));
    const grammar::Attribute *found = nullptr;
    for (const grammar::Attribute &attribute :
         grammar.attributesOf(grammar.type(declared.known.type))) {
        if (attribute.name.space == symbol.space && attribute.name.local == symbol.local)
            found = &attribute;
    }
    if (!found)
        found = grammar.globalAttribute(symbol);
    return !found || found->type == None ? nullptr : &grammar.data().simpleTypes[found->type];
}

bool Declarations::expandsTooMuch() {
    matcher();
    return expandsTooMuch_;
}

bool Declarations::hasLargeGroups() {
    return matcher() && std::ranges::any_of(leavesOf(matcher()->grammar()),
                                            [](quint64 count) { return count > MaxLeaves; });
}

} // namespace quillon::xml
