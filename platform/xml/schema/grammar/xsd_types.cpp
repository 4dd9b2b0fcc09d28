#include "platform/xml/schema/grammar/xsd_reader.h"

#include <algorithm>

namespace quillon::grammar {

using xml::Node;

Index XsdReader::addType(const Type &type, const Spot &spot, State state) {
    builder_.data.types.push_back(type);
    work_.emplace_back();
    work_.back().spot = spot;
    work_.back().state = state;
    return static_cast<Index>(builder_.data.types.size()) - 1;
}

/// The type of all that has none.
void XsdReader::addAnyType() {
    builder_.data.wildcards.push_back({NamespaceRule::Any, {}, {}, Process::Lax});
    Type type;
    type.name = builder_.name(SchemaNamespace, QStringLiteral("anyType"));
    type.content = Content::Mixed;
    type.particle = builder_.particle(ParticleKind::Wildcard, 0, 0, Unbounded);
    type.anyAttribute = 0;
    anyType_ = addType(type, {}, State::Done);
    work_[anyType_].attributes.any = 0;
}

Index XsdReader::namedType(const Spot &at, const QString &qualifiedName, int original) {
    const ExpandedName name = components_.expanded(at.node, qualifiedName, at.document);
    if (name.space == SchemaNamespace && components_.find(ComponentKind::Type, name) < 0) {
        if (name.local == QLatin1String("anyType"))
            return anyType_;
        const Index builtIn = builder_.builtInType(name.local);
        if (builtIn == None)
            builder_.noteUndeclared(qualifiedName);
        return builtIn == None ? anyType_ : textType(builtIn);
    }
    const int place = referred(ComponentKind::Type, at, qualifiedName, original);
    return place < 0 ? anyType_ : componentType(place);
}

Index XsdReader::componentType(int place) {
    return components_.kindOf(component(place).node) == QLatin1String("simpleType")
               ? textType(simpleTypeOf(place))
               : complexType(spotOf(place), place);
}

/// What stands in an element that has text of a simple type and no attributes.
Index XsdReader::textType(Index simpleType) {
    if (const Index known = textTypes_.value(simpleType, None); known != None)
        return known;
    const Depth depth(*this);
    const SimpleType simple = builder_.data.simpleTypes[simpleType];
    Type type;
    type.name = simple.name;
    type.content = Content::Text;
    type.text = simpleType;
    type.documentation = simple.documentation;
    type.place = simple.place;
    type.derivation = Derivation::Restriction;
    type.base = simple.base == None ? anyType_ : textType(simple.base);
    const Index index = addType(type, {}, State::Done);
    textTypes_.insert(simpleType, index);
    return index;
}

/// Only notes the type: it is built when its turn comes, or when another one is derived from it.
Index XsdReader::complexType(const Spot &spot, int place) {
    if (const Index known = complexTypes_.value(place, None); known != None)
        return known;
    Type type;
    // What has been redefined is not known by its name any more.
    if (place >= 0 && components_.find(ComponentKind::Type, component(place).name) == place)
        type.name = nameOf(component(place).name);
    type.base = anyType_;
    type.documentation = documentation(spot);
    type.place = placeOf(spot);
    const QString abstract = value(spot.node, "abstract");
    type.isAbstract = abstract == QLatin1String("true") || abstract == QLatin1String("1");
    type.blocked = blockedWays(spot);
    const Index index = addType(type, spot, State::Waiting);
    if (place >= 0)
        complexTypes_.insert(place, index);
    return index;
}

void XsdReader::complete(Index type) {
    if (work_[type].state == State::Building)
        builder_.noteUndeclared(
            builder_.data.strings.at(builder_.data.types[type].name.local).toString());
    if (work_[type].state != State::Waiting)
        return;
    const Depth depth(*this);
    work_[type].state = State::Building;
    build(type);
    work_[type].state = State::Done;
}

void XsdReader::build(Index type) {
    const Spot spot = work_[type].spot;
    const auto isTrue = [](const QString &text) {
        return text == QLatin1String("true") || text == QLatin1String("1");
    };
    bool isMixed = isTrue(value(spot.node, "mixed"));
    Spot content{Node(), spot.document};
    bool isSimple = false;
    components_.forEachPart(spot.node, [&](const Node &child, const QString &kind) {
        if (kind == QLatin1String("simpleContent") || kind == QLatin1String("complexContent")) {
            content.node = child;
            isSimple = kind == QLatin1String("simpleContent");
        }
    });
    if (isSimple)
        return buildSimpleContent(type, content);
    if (content.node) {
        if (const auto mixed = content.node.getAttribute(QStringLiteral("mixed")))
            isMixed = isTrue(mixed->trimmed());
        return buildComplexContent(type, content, isMixed);
    }
    setContent(type, contentParticle(spot), isMixed);
    takeAttributes(type, None, attributesIn(spot), false);
}

void XsdReader::setContent(Index type, Index particle, bool isMixed) {
    Type &built = builder_.data.types[type];
    built.particle = particle;
    built.content = isMixed            ? Content::Mixed
                    : particle == None ? Content::Empty
                                       : Content::Elements;
}

/// Completes and notes the base of a type; gives its place.
Index XsdReader::derivedFrom(Index type, const Spot &derivation) {
    const QString name = value(derivation.node, "base");
    const int original = originalAround(ComponentKind::Type, derivation);
    Index base = name.isEmpty() ? anyType_ : namedType(derivation, name, original);
    complete(base);
    // A type that is derived from itself has no base.
    for (Index at = base; at != None; at = builder_.data.types[at].base) {
        if (at == type)
            base = anyType_;
    }
    builder_.data.types[type].base = base;
    builder_.data.types[type].derivation =
        components_.kindOf(derivation.node) == QLatin1String("extension") ? Derivation::Extension
                                                                          : Derivation::Restriction;
    return base;
}

void XsdReader::buildSimpleContent(Index type, const Spot &content) {
    builder_.data.types[type].content = Content::Text;
    components_.forEachPart(content.node, [&](const Node &child, const QString &kind) {
        const bool extends = kind == QLatin1String("extension");
        if (!extends && kind != QLatin1String("restriction"))
            return;
        const Spot derivation{child, content.document};
        const Index base = derivedFrom(type, derivation);
        Index text = builder_.data.types[base].text;
        if (!extends)
            text = restricted(derivation, text, {});
        builder_.data.types[type].text = text;
        takeAttributes(type, base, attributesIn(derivation), extends);
    });
}

void XsdReader::buildComplexContent(Index type, const Spot &content, bool isMixed) {
    components_.forEachPart(content.node, [&](const Node &child, const QString &kind) {
        const bool extends = kind == QLatin1String("extension");
        if (!extends && kind != QLatin1String("restriction"))
            return;
        const Spot derivation{child, content.document};
        const Index base = derivedFrom(type, derivation);
        Index own = contentParticle(derivation);
        if (extends && base != anyType_) {
            const Type &basis = builder_.data.types[base];
            isMixed = isMixed || (own == None && basis.content == Content::Mixed);
            if (own == None)
                own = basis.particle;
            else if (basis.particle != None)
                own = builder_.group(ParticleKind::Sequence, {basis.particle, own});
        }
        setContent(type, own, isMixed);
        takeAttributes(type, base == anyType_ ? None : base, attributesIn(derivation), extends);
    });
}

/// Gives a type its attributes: those of its base, as its own ones change them.
void XsdReader::takeAttributes(Index type, Index base, AttributeSet own, bool extends) {
    AttributeSet all = base == None ? AttributeSet() : work_[base].attributes;
    const Index inherited = all.any;
    std::erase_if(all.list, [&](const Attribute &attribute) {
        return std::ranges::find(own.prohibited, attribute.name) != own.prohibited.end();
    });
    for (const Attribute &attribute : own.list) {
        const auto known = std::ranges::find(all.list, attribute.name, &Attribute::name);
        if (known != all.list.end())
            *known = attribute;
        else
            all.list.push_back(attribute);
    }
    // Two wildcards together let in what either does; in practice one of them takes anything.
    all.any = own.any;
    if (extends && inherited != None &&
        (own.any == None || builder_.data.wildcards[inherited].rule == NamespaceRule::Any))
        all.any = inherited;
    builder_.data.types[type].attributes = builder_.attributes(all.list);
    builder_.data.types[type].anyAttribute = all.any;
    work_[type].attributes = std::move(all);
}

XsdReader::AttributeSet XsdReader::attributesIn(const Spot &spot) {
    AttributeSet found;
    components_.forEachPart(spot.node, [&](const Node &child, const QString &kind) {
        const Spot at{child, spot.document};
        if (kind == QLatin1String("attribute")) {
            addAttribute(at, found);
        } else if (kind == QLatin1String("anyAttribute")) {
            found.any = wildcard(at);
        } else if (kind == QLatin1String("attributeGroup")) {
            const AttributeSet group = attributeGroup(at);
            for (const Attribute &attribute : group.list) {
                if (std::ranges::find(found.list, attribute.name, &Attribute::name) ==
                    found.list.end())
                    found.list.push_back(attribute);
            }
            if (found.any == None)
                found.any = group.any;
        }
    });
    return found;
}

void XsdReader::addAttribute(const Spot &spot, AttributeSet &to) {
    const QString reference = value(spot.node, "ref");
    Attribute attribute;
    if (reference.isEmpty()) {
        const QString form = value(spot.node, "form");
        const bool isQualified = form.isEmpty() ? documentOf(spot).qualifiesAttributes
                                                : form == QLatin1String("qualified");
        attribute.name = builder_.name(isQualified ? documentOf(spot).targetNamespace : QString(),
                                       value(spot.node, "name"));
        fillAttribute(spot, attribute);
    } else {
        const int place = referred(ComponentKind::Attribute, spot, reference, -1);
        if (place >= 0)
            attribute = globalAttribute(place);
        else
            attribute.name = nameOf(components_.expanded(spot.node, reference, spot.document));
        Index given = 0;
        if (const ValueRule rule = valueRule(spot.node, given); rule != ValueRule::Free) {
            attribute.valueRule = rule;
            attribute.value = given;
        }
    }
    const QString use = value(spot.node, "use");
    attribute.isRequired = use == QLatin1String("required");
    if (use == QLatin1String("prohibited"))
        to.prohibited.push_back(attribute.name);
    else if (std::ranges::find(to.list, attribute.name, &Attribute::name) == to.list.end())
        to.list.push_back(attribute);
}

XsdReader::AttributeSet XsdReader::attributeGroup(const Spot &reference) {
    const int place =
        referred(ComponentKind::AttributeGroup, reference, value(reference.node, "ref"),
                 originalAround(ComponentKind::AttributeGroup, reference));
    if (place < 0 || building_.contains(place))
        return {};
    if (const auto known = attributeGroups_.constFind(place); known != attributeGroups_.constEnd())
        return *known;
    const Depth depth(*this);
    building_.insert(place);
    const AttributeSet group = attributesIn(spotOf(place));
    building_.remove(place);
    attributeGroups_.insert(place, group);
    return group;
}

Attribute XsdReader::globalAttribute(int place) {
    if (const auto known = attributes_.constFind(place); known != attributes_.constEnd())
        return *known;
    Attribute attribute;
    attribute.name = nameOf(component(place).name);
    fillAttribute(spotOf(place), attribute);
    attributes_.insert(place, attribute);
    return attribute;
}

void XsdReader::fillAttribute(const Spot &spot, Attribute &attribute) {
    const QString type = value(spot.node, "type");
    attribute.type = type.isEmpty() ? simpleTypeIn(spot) : namedSimpleType(spot, type);
    attribute.valueRule = valueRule(spot.node, attribute.value);
    attribute.documentation = documentation(spot);
    attribute.place = placeOf(spot);
}

} // namespace quillon::grammar
