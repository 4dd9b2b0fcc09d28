#include "platform/xml/dom/qualified_name.h"
#include "platform/xml/schema/grammar/relaxng_reader.h"

#include <algorithm>
#include <map>

namespace quillon::grammar {

using xml::Node;

namespace {

const QString AnnotationNamespace =
    QStringLiteral("http://relaxng.org/ns/compatibility/annotations/1.0");
/// Of classes of names in classes of names.
constexpr int MaxDepth = 100;

bool isDocumentation(const Node &node) {
    const QString name = node.nodeName();
    return node.nodeType() == xml::NodeType::Element &&
           xml::localNameOf(name) == QLatin1String("documentation") &&
           xml::namespaceAt(node, xml::prefixOf(name)) == AnnotationNamespace;
}

} // namespace

Place RelaxNgReader::placeOf(const RelaxNgSpot &spot) {
    const RelaxNgFile &file = definitions_.file(spot.file);
    return {builder_.string(file.path), file.lines.value(spot.node.number())};
}

QString RelaxNgReader::spaceAt(const Node &node) const {
    for (Node at = node; at.nodeType() == xml::NodeType::Element; at = at.parentNode()) {
        if (const auto space = at.getAttribute(QStringLiteral("ns")))
            return *space;
    }
    return {};
}

Index RelaxNgReader::documentation(const Node &node) {
    QStringList texts;
    for (Node child = node.firstChild(); child; child = child.nextSibling()) {
        if (isDocumentation(child))
            texts.append(child.text().trimmed());
    }
    return builder_.string(texts.join(QLatin1String("\n\n")));
}

Index RelaxNgReader::documentationBehind(const Node &value) {
    QStringList texts;
    for (Node at = value.nextSibling(); at && relaxNgKind(at).isEmpty(); at = at.nextSibling()) {
        if (isDocumentation(at))
            texts.append(at.text().trimmed());
    }
    return builder_.string(texts.join(QLatin1String("\n\n")));
}

RelaxNgReader::Names RelaxNgReader::namesOf(const RelaxNgSpot &spot) {
    Names names;
    if (const auto given = spot.node.getAttribute(QStringLiteral("name"))) {
        const QString name = given->trimmed();
        const QString prefix = xml::prefixOf(name);
        // An attribute's name without a prefix is in no namespace, unless that is said at it.
        const bool isOwn = relaxNgKind(spot.node) == QLatin1String("attribute") &&
                           !spot.node.getAttribute(QStringLiteral("ns"));
        names.names.push_back(builder_.name(!prefix.isEmpty() ? xml::namespaceAt(spot.node, prefix)
                                            : isOwn           ? QString()
                                                              : spaceAt(spot.node),
                                            xml::localNameOf(name)));
        return names;
    }
    names.isChild = true;
    bool isFirst = true;
    forEachPattern(spot.node, [&](const Node &child, const QString &kind) {
        if (isFirst)
            collectNames(child, kind, names, 0);
        isFirst = false;
    });
    return names;
}

void RelaxNgReader::collectNames(const Node &node, const QString &kind, Names &to, int depth) {
    if (depth > MaxDepth)
        return; // no name is meant so
    if (kind == QLatin1String("name")) {
        const QString name = node.text().trimmed();
        const QString prefix = xml::prefixOf(name);
        to.names.push_back(
            builder_.name(prefix.isEmpty() ? spaceAt(node) : xml::namespaceAt(node, prefix),
                          xml::localNameOf(name)));
    } else if (kind == QLatin1String("choice")) {
        forEachPattern(node, [&](const Node &child, const QString &childKind) {
            collectNames(child, childKind, to, depth + 1);
        });
    } else if (kind == QLatin1String("anyName") || kind == QLatin1String("nsName")) {
        Wildcard any;
        any.process = Process::Lax;
        if (kind == QLatin1String("nsName")) {
            any.rule = NamespaceRule::Listed;
            any.namespaces = builder_.stringList({spaceAt(node)});
        }
        Names except;
        QStringList spaces;
        std::vector<Node> pending;
        forEachPattern(node, [&](const Node &child, const QString &) { pending.push_back(child); });
        while (!pending.empty()) {
            const Node at = pending.back();
            pending.pop_back();
            const QString atKind = relaxNgKind(at);
            if (atKind == QLatin1String("nsName"))
                spaces.append(spaceAt(at));
            else if (atKind == QLatin1String("name"))
                collectNames(at, atKind, except, depth + 1);
            else
                forEachPattern(
                    at, [&](const Node &child, const QString &) { pending.push_back(child); });
        }
        if (any.rule == NamespaceRule::Any && !spaces.isEmpty()) {
            any.rule = NamespaceRule::NotListed;
            any.namespaces = builder_.stringList(spaces);
        }
        any.except = builder_.nameList(except.names);
        builder_.data.wildcards.push_back(any);
        to.wildcard = static_cast<Index>(builder_.data.wildcards.size()) - 1;
    }
}

RelaxNgPattern RelaxNgReader::element(const RelaxNgSpot &spot) {
    const Names names = namesOf(spot);
    std::vector<Index> particles;
    const QString key =
        QStringLiteral("%1 %2 %3").arg(spot.file).arg(spot.node.number()).arg(spot.scope);
    if (!elements_.contains(key)) {
        std::vector<Index> made;
        Index words = documentation(spot.node);
        if (words == 0)
            words = documentation(spot.node.parentNode());
        const Place place = placeOf(spot);
        Type type;
        type.documentation = words;
        type.place = place;
        const auto typeIndex = static_cast<Index>(builder_.data.types.size());
        builder_.data.types.push_back(type);
        for (const Name &name : names.names) {
            Element element;
            element.name = name;
            element.type = typeIndex;
            element.documentation = words;
            element.place = place;
            made.push_back(static_cast<Index>(builder_.data.elements.size()));
            builder_.data.elements.push_back(element);
        }
        elements_.insert(key, made);
        work_.emplace_back(typeIndex, spot);
    }
    for (const Index at : elements_.value(key))
        particles.push_back(builder_.particle(ParticleKind::Element, at));
    if (names.wildcard != None)
        particles.push_back(builder_.particle(ParticleKind::Wildcard, names.wildcard));
    RelaxNgPattern result;
    result.isImpossible = particles.empty();
    if (particles.size() == 1)
        result.particle = particles.front();
    else if (!particles.empty())
        result.particle = builder_.group(ParticleKind::Choice, particles);
    return result;
}

RelaxNgPattern RelaxNgReader::attribute(const RelaxNgSpot &spot) {
    const Names names = namesOf(spot);
    std::vector<RelaxNgPattern> parts;
    bool isName = names.isChild;
    forEachPattern(spot.node, [&](const Node &child, const QString &kind) {
        if (!isName)
            parts.push_back(pattern({child, spot.file, spot.scope}, kind));
        isName = false;
    });
    const RelaxNgPattern content = joined(std::move(parts), ParticleKind::Sequence);
    RelaxNgPattern result;
    result.isImpossible = content.isImpossible;
    result.anyAttribute = names.wildcard;
    Attribute attribute;
    attribute.type = valueType(content);
    attribute.isRequired = names.names.size() == 1;
    attribute.documentation = documentation(spot.node);
    attribute.place = placeOf(spot);
    for (int i = 0; const Node other = spot.node.attributes().item(i); ++i) {
        const QString name = other.nodeName();
        if (name.contains(u':') && xml::localNameOf(name) == QLatin1String("defaultValue")) {
            attribute.valueRule = ValueRule::Default;
            attribute.value = builder_.string(other.nodeValue());
        }
    }
    for (const Name &name : names.names) {
        attribute.name = name;
        result.attributes.push_back(attribute);
    }
    return result;
}

RelaxNgPattern RelaxNgReader::data(const RelaxNgSpot &spot) {
    RelaxNgPattern result;
    result.hasText = true;
    const QString kind = relaxNgKind(spot.node);
    if (kind == QLatin1String("value")) {
        result.values.push_back(
            {builder_.string(spot.node.text().simplified()), documentationBehind(spot.node)});
        return result;
    }
    const QString name =
        spot.node.getAttribute(QStringLiteral("type")).value_or(QString()).trimmed();
    const Index base =
        builder_.builtInType(kind == QLatin1String("data") ? name : QStringLiteral("string"));
    if (base == None)
        return result;
    static const std::map<QString, Facet> facetNames{
        {"length", Facet::Length},
        {"minLength", Facet::MinLength},
        {"maxLength", Facet::MaxLength},
        {"minInclusive", Facet::MinInclusive},
        {"minExclusive", Facet::MinExclusive},
        {"maxInclusive", Facet::MaxInclusive},
        {"maxExclusive", Facet::MaxExclusive},
        {"totalDigits", Facet::TotalDigits},
        {"fractionDigits", Facet::FractionDigits},
    };
    SimpleType type = builder_.data.simpleTypes[base];
    std::vector<FacetValue> facets;
    std::vector<Pattern> patterns;
    forEachPattern(spot.node, [&](const Node &child, const QString &childKind) {
        const QString parameter =
            child.getAttribute(QStringLiteral("name")).value_or(QString()).trimmed();
        if (childKind != QLatin1String("param"))
            return;
        if (const auto facet = facetNames.find(parameter); facet != facetNames.end())
            facets.push_back({facet->second, builder_.string(child.text().trimmed())});
        else if (parameter == QLatin1String("pattern"))
            patterns.push_back({builder_.string(child.text()), quint32(patterns.size())});
    });
    result.type = base;
    if (facets.empty() && patterns.empty())
        return result;
    const auto own = static_cast<std::ptrdiff_t>(facets.size());
    for (Index i = 0; i < type.facets.count; ++i) {
        const FacetValue facet = builder_.data.facets[type.facets.first + i];
        if (std::none_of(facets.begin(), facets.begin() + own,
                         [&](const FacetValue &known) { return known.facet == facet.facet; }))
            facets.push_back(facet);
    }
    type.base = base;
    type.name = {};
    type.facets = builder_.facets(facets);
    type.patterns = builder_.patterns(patterns);
    builder_.data.simpleTypes.push_back(type);
    result.type = static_cast<Index>(builder_.data.simpleTypes.size()) - 1;
    return result;
}

Index RelaxNgReader::eitherType(Index a, Index b) {
    if (a == None || b == None || a == b)
        return a == b ? a : None;
    const std::vector<SimpleType> &types = builder_.data.simpleTypes;
    const auto isListOfValues = [](const SimpleType &type) {
        return type.variety == Variety::Atomic && type.enumeration.count > 0 &&
               type.facets.count == 0 && type.patterns.count == 0;
    };
    if (isListOfValues(types[a]) && isListOfValues(types[b]) && types[a].base == types[b].base) {
        SimpleType both = types[a];
        std::vector<EnumerationValue> values;
        for (const Range &range : {types[a].enumeration, types[b].enumeration}) {
            for (Index i = range.first; i < range.first + range.count; ++i) {
                const EnumerationValue value = builder_.data.enumerations[i];
                if (std::ranges::find(values, value.text, &EnumerationValue::text) == values.end())
                    values.push_back(value);
            }
        }
        // Of the same values nothing new is made.
        if (values.size() == types[a].enumeration.count)
            return a;
        both.enumeration = builder_.enumeration(values);
        builder_.data.simpleTypes.push_back(both);
    } else {
        SimpleType either;
        either.variety = Variety::Union;
        either.builtIn = builder_.string(QStringLiteral("anySimpleType"));
        either.members = builder_.simpleTypeList({a, b});
        builder_.data.simpleTypes.push_back(either);
    }
    return static_cast<Index>(types.size()) - 1;
}

Index RelaxNgReader::valueType(const RelaxNgPattern &content) {
    if (content.values.empty())
        return content.type;
    SimpleType type;
    type.base = builder_.builtInType(QStringLiteral("token"));
    type.builtIn = builder_.string(QStringLiteral("token"));
    type.whiteSpace = WhiteSpace::Collapse;
    type.enumeration = builder_.enumeration(content.values);
    builder_.data.simpleTypes.push_back(type);
    const Index values = static_cast<Index>(builder_.data.simpleTypes.size()) - 1;
    if (content.type == None)
        return values;
    // Some values by name, and others of a type.
    return eitherType(values, content.type);
}

void RelaxNgReader::build(Index type, const RelaxNgSpot &spot) {
    bool isName = !spot.node.getAttribute(QStringLiteral("name"));
    std::vector<RelaxNgPattern> parts;
    forEachPattern(spot.node, [&](const Node &child, const QString &kind) {
        if (!isName)
            parts.push_back(pattern({child, spot.file, spot.scope}, kind));
        isName = false;
    });
    const RelaxNgPattern whole = joined(std::move(parts), ParticleKind::Sequence);
    const Range attributes = builder_.attributes(whole.attributes);
    const Index text = whole.particle == None ? valueType(whole) : None;
    Type &built = builder_.data.types[type];
    built.particle = whole.particle;
    built.attributes = attributes;
    built.anyAttribute = whole.anyAttribute;
    built.text = text;
    built.content = whole.particle != None ? (whole.hasText ? Content::Mixed : Content::Elements)
                    : whole.hasText        ? Content::Text
                                           : Content::Empty;
}

} // namespace quillon::grammar
