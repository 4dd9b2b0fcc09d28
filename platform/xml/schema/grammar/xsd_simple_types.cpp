#include "platform/xml/schema/grammar/xsd_reader.h"

#include <algorithm>
#include <array>

namespace quillon::grammar {

using xml::Node;

namespace {

constexpr std::array FacetNames{
    QLatin1String("length"),       QLatin1String("minLength"),    QLatin1String("maxLength"),
    QLatin1String("minInclusive"), QLatin1String("minExclusive"), QLatin1String("maxInclusive"),
    QLatin1String("maxExclusive"), QLatin1String("totalDigits"),  QLatin1String("fractionDigits"),
};
static_assert(FacetNames.size() == static_cast<std::size_t>(Facet::FractionDigits) + 1);

/// A bound replaces one on the same side, whether that is inclusive or not.
bool isReplacedBy(Facet known, Facet added) {
    const auto side = [](Facet facet) {
        return facet == Facet::MinExclusive   ? Facet::MinInclusive
               : facet == Facet::MaxExclusive ? Facet::MaxInclusive
                                              : facet;
    };
    return side(known) == side(added);
}

template <typename Record>
std::vector<Record> listed(const std::vector<Record> &from, const Range &range) {
    const auto start = from.begin() + range.first;
    return {start, start + range.count};
}

} // namespace

Index XsdReader::namedSimpleType(const Spot &at, const QString &qualifiedName, int original) {
    const ExpandedName name = components_.expanded(at.node, qualifiedName, at.document);
    if (name.space == SchemaNamespace && components_.find(ComponentKind::Type, name) < 0) {
        const Index builtIn = builder_.builtInType(name.local);
        if (builtIn == None)
            builder_.noteUndeclared(qualifiedName);
        return builtIn;
    }
    const int place = referred(ComponentKind::Type, at, qualifiedName, original);
    return place < 0 || components_.kindOf(component(place).node) != QLatin1String("simpleType")
               ? None
               : simpleTypeOf(place);
}

Index XsdReader::simpleTypeOf(int place) {
    if (const auto known = simpleTypes_.constFind(place); known != simpleTypes_.constEnd())
        return *known;
    if (building_.contains(place)) {
        builder_.noteUndeclared(component(place).name.local);
        return builder_.builtInType(QStringLiteral("anySimpleType"));
    }
    building_.insert(place);
    const bool isCurrent = components_.find(ComponentKind::Type, component(place).name) == place;
    const Index type = simpleType(spotOf(place), isCurrent ? nameOf(component(place).name) : Name(),
                                  component(place).original);
    building_.remove(place);
    simpleTypes_.insert(place, type);
    return type;
}

Index XsdReader::simpleTypeIn(const Spot &spot) {
    Index type = None;
    components_.forEachPart(spot.node, [&](const Node &child, const QString &kind) {
        if (kind == QLatin1String("simpleType"))
            type = simpleType({child, spot.document}, {}, -1);
    });
    return type;
}

Index XsdReader::simpleType(const Spot &spot, const Name &name, int original) {
    const Depth depth(*this);
    SimpleType type;
    type.name = name;
    type.builtIn = builder_.string(QStringLiteral("anySimpleType"));
    type.whiteSpace = WhiteSpace::Collapse;
    type.base = builder_.builtInType(QStringLiteral("anySimpleType"));
    std::vector<Index> members;
    Spot restriction{Node(), spot.document};
    components_.forEachPart(spot.node, [&](const Node &child, const QString &kind) {
        const Spot at{child, spot.document};
        if (kind == QLatin1String("restriction")) {
            restriction = at;
        } else if (kind == QLatin1String("list")) {
            type.variety = Variety::List;
            const QString item = value(child, "itemType");
            members = {item.isEmpty() ? simpleTypeIn(at) : namedSimpleType(at, item)};
        } else if (kind == QLatin1String("union")) {
            type.variety = Variety::Union;
            const QString names = value(child, "memberTypes").simplified();
            for (const QString &member : names.split(u' ', Qt::SkipEmptyParts))
                members.push_back(namedSimpleType(at, member, original));
            components_.forEachPart(child, [&](const Node &inner, const QString &innerKind) {
                if (innerKind == QLatin1String("simpleType"))
                    members.push_back(simpleType({inner, spot.document}, {}, -1));
            });
        }
    });
    if (restriction.node) {
        const QString base = value(restriction.node, "base");
        const Index from = base.isEmpty() ? None : namedSimpleType(restriction, base, original);
        return restricted(restriction, from, name);
    }
    std::erase(members, None);
    type.members = builder_.simpleTypeList(members);
    type.documentation = documentation(spot);
    type.place = placeOf(spot);
    builder_.data.simpleTypes.push_back(type);
    return static_cast<Index>(builder_.data.simpleTypes.size()) - 1;
}

Index XsdReader::restricted(const Spot &restriction, Index base, const Name &name) {
    // What stands in it goes ahead of the base that a type with simple content has.
    if (const Index inner = simpleTypeIn(restriction); inner != None)
        base = inner;
    if (base == None)
        base = builder_.builtInType(QStringLiteral("anySimpleType"));
    const Data &data = builder_.data;
    SimpleType type = data.simpleTypes[base];
    type.base = base;
    type.name = name;
    std::vector<FacetValue> facets = listed(data.facets, type.facets);
    std::vector<Pattern> patterns = listed(data.patterns, type.patterns);
    std::vector<EnumerationValue> values;
    components_.forEachPart(restriction.node, [&](const Node &child, const QString &kind) {
        readFacet({child, restriction.document}, kind, facets, values, patterns, type);
    });
    // All patterns of one restriction are one step.
    const quint32 step =
        type.patterns.count == 0
            ? 0
            : data.patterns[type.patterns.first + type.patterns.count - 1].step + 1;
    for (std::size_t i = type.patterns.count; i < patterns.size(); ++i)
        patterns[i].step = step;
    const Spot definition{restriction.node.parentNode(), restriction.document};
    type.documentation = documentation(definition);
    type.place = placeOf(definition);
    if (!values.empty())
        type.enumeration = builder_.enumeration(values);
    type.facets = builder_.facets(facets);
    type.patterns = builder_.patterns(patterns);
    builder_.data.simpleTypes.push_back(type);
    return static_cast<Index>(data.simpleTypes.size()) - 1;
}

void XsdReader::readFacet(const Spot &spot, const QString &kind, std::vector<FacetValue> &facets,
                          std::vector<EnumerationValue> &values, std::vector<Pattern> &patterns,
                          SimpleType &type) {
    const QString text = spot.node.getAttribute(QStringLiteral("value")).value_or(QString());
    if (kind == QLatin1String("enumeration")) {
        values.push_back({builder_.string(text), documentation(spot)});
    } else if (kind == QLatin1String("pattern")) {
        patterns.push_back({builder_.string(text), 0});
    } else if (kind == QLatin1String("whiteSpace")) {
        type.whiteSpace = text == QLatin1String("preserve")  ? WhiteSpace::Preserve
                          : text == QLatin1String("replace") ? WhiteSpace::Replace
                                                             : WhiteSpace::Collapse;
    } else if (const auto facet = std::ranges::find(FacetNames, kind); facet != FacetNames.end()) {
        const auto added = static_cast<Facet>(facet - FacetNames.begin());
        std::erase_if(facets,
                      [&](const FacetValue &known) { return isReplacedBy(known.facet, added); });
        facets.push_back({added, builder_.string(text.trimmed())});
    }
}

} // namespace quillon::grammar
