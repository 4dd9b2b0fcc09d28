#include "candidates/type_words.h"

#include "resources/candidate_texts.h"

#include <QStringList>

#include <algorithm>

namespace quillon::candidates {

using namespace grammar;
namespace texts = resources::candidate_texts;

namespace {

/// So many values are named.
constexpr quint32 MaxValues = 20;
/// How deep unions and lists are looked into; a stranger's data may hold themselves.
constexpr int MaxDepth = 4;

QString wordFor(Facet facet) {
    switch (facet) {
    case Facet::Length:
        return texts::HasLength.toString();
    case Facet::MinLength:
        return texts::HasMinLength.toString();
    case Facet::MaxLength:
        return texts::HasMaxLength.toString();
    case Facet::MinInclusive:
        return texts::AtLeast.toString();
    case Facet::MinExclusive:
        return texts::MoreThan.toString();
    case Facet::MaxInclusive:
        return texts::AtMost.toString();
    case Facet::MaxExclusive:
        return texts::LessThan.toString();
    case Facet::TotalDigits:
        return texts::HasTotalDigits.toString();
    case Facet::FractionDigits:
        return texts::HasFractionDigits.toString();
    }
    return {};
}

QString nameOf(const Grammar &grammar, const SimpleType &type, int depth) {
    if (type.name.local != 0)
        return grammar.text(type.name.local).toString();
    if (type.variety == Variety::Atomic || type.members.count == 0 || depth == MaxDepth)
        return grammar.text(type.builtIn).toString();
    const Data &data = grammar.data();
    QStringList members;
    for (Index i = 0; i < type.members.count; ++i) {
        const Index member = data.simpleTypeLists[type.members.first + i];
        members.append(nameOf(grammar, data.simpleTypes[member], depth + 1));
    }
    const QString all = members.join(texts::Or);
    return type.variety == Variety::List ? texts::ListOf.toString().arg(all) : all;
}

/// The type of XML Schema's own that a type is or is derived from; null when there is none. What it
/// says of itself everybody knows by its name.
const SimpleType *builtInBaseOf(const Grammar &grammar, Index simpleType) {
    const Data &data = grammar.data();
    for (std::size_t steps = 0; simpleType != None && steps < data.simpleTypes.size(); ++steps) {
        const SimpleType &type = data.simpleTypes[simpleType];
        if (grammar.text(type.name.space) == QLatin1String("http://www.w3.org/2001/XMLSchema"))
            return &type;
        simpleType = type.base;
    }
    return nullptr;
}

bool has(const Data &data, const SimpleType &type, const FacetValue &facet) {
    for (Index i = 0; i < type.facets.count; ++i) {
        const FacetValue &other = data.facets[type.facets.first + i];
        if (other.facet == facet.facet && other.value == facet.value)
            return true;
    }
    return false;
}

QString withType(const QString &content, const Grammar &grammar, const Type &type) {
    return type.name.local == 0 ? content
                                : texts::ContentOfType.toString().arg(
                                      content, grammar.text(type.name.local).toString());
}

QString ruleFor(const Grammar &grammar, ValueRule rule, Index value) {
    const QStringView words = rule == ValueRule::Fixed ? texts::FixedValue : texts::DefaultValue;
    return rule == ValueRule::Free ? QString()
                                   : words.toString().arg(grammar.text(value).toString());
}

QString joined(const QStringList &words) {
    QStringList some = words;
    some.removeAll(QString());
    return some.join(texts::Between);
}

} // namespace

QString wordsForSimpleType(const Grammar &grammar, Index simpleType) {
    if (simpleType == None)
        return {};
    const Data &data = grammar.data();
    const SimpleType &type = data.simpleTypes[simpleType];
    QStringList words{nameOf(grammar, type, 0)};
    QStringList values;
    for (Index i = 0; i < std::min(type.enumeration.count, MaxValues); ++i)
        values.append(grammar.text(data.enumerations[type.enumeration.first + i].text).toString());
    if (!values.isEmpty()) {
        const QStringView more = type.enumeration.count > MaxValues ? texts::MoreValues : u"";
        words.append(texts::OneOf.toString().arg(values.join(u" | ")) + more.toString());
    }
    const SimpleType *const builtIn = builtInBaseOf(grammar, simpleType);
    for (Index i = 0; i < type.facets.count; ++i) {
        const FacetValue &facet = data.facets[type.facets.first + i];
        if (builtIn && has(data, *builtIn, facet))
            continue;
        words.append(wordFor(facet.facet).arg(grammar.text(facet.value).toString()));
    }
    for (Index i = 0; i < type.patterns.count && builtIn != &type; ++i)
        words.append(texts::MatchesPattern.toString().arg(
            grammar.text(data.patterns[type.patterns.first + i].text).toString()));
    return joined(words);
}

QString wordsForElement(const Grammar &grammar, Index element) {
    const Element &declared = grammar.element(element);
    if (declared.type == None)
        return {};
    const Type &type = grammar.type(declared.type);
    const QString rule = ruleFor(grammar, declared.valueRule, declared.value);
    switch (type.content) {
    case Content::Empty:
        return withType(texts::EmptyContent.toString(), grammar, type);
    case Content::Text:
        return type.text == None
                   ? joined({withType(texts::TextContent.toString(), grammar, type), rule})
                   : joined({wordsForSimpleType(grammar, type.text), rule});
    case Content::Elements:
        return withType(texts::ElementContent.toString(), grammar, type);
    case Content::Mixed:
        return withType(texts::MixedContent.toString(), grammar, type);
    case Content::Any:
        return texts::AnyContent.toString();
    }
    return {};
}

QString wordsForAttribute(const Grammar &grammar, const Attribute &attribute) {
    return joined({attribute.isRequired ? texts::Mandatory.toString() : QString(),
                   wordsForSimpleType(grammar, attribute.type),
                   ruleFor(grammar, attribute.valueRule, attribute.value)});
}

QString documentationOf(const Grammar &grammar, Index element) {
    const Element &declared = grammar.element(element);
    const Index own = declared.documentation;
    return grammar
        .text(own == 0 && declared.type != None ? grammar.type(declared.type).documentation : own)
        .toString();
}

QString documentationOf(const Grammar &grammar, const Attribute &attribute) {
    const Index own = attribute.documentation;
    return grammar
        .text(own == 0 && attribute.type != None
                  ? grammar.data().simpleTypes[attribute.type].documentation
                  : own)
        .toString();
}

} // namespace quillon::candidates
