#include "platform/xml/schema/grammar/xsd_reader.h"

#include "platform/runtime/error.h"
#include "platform/xml/schema/grammar/grammar_from_xsd.h"
#include "platform/xml/schema/schema_error.h"
#include "resources/validation_texts.h"

#include <algorithm>
#include <map>

namespace quillon::grammar {

using xml::Node;

namespace {

constexpr int MaxDepth = 400;

quint32 occurrences(const QString &text) {
    if (text.isEmpty())
        return 1;
    if (text == QLatin1String("unbounded"))
        return Unbounded;
    bool isNumber = false;
    const qulonglong number = text.toULongLong(&isNumber);
    return isNumber ? static_cast<quint32>(std::min<qulonglong>(number, Unbounded - 1))
                    : Unbounded - 1;
}

} // namespace

XsdReader::Depth::Depth(XsdReader &reader) : reader_(reader) {
    if (reader_.depth_ >= MaxDepth)
        throw runtime::Error(runtime::error_number::Fail,
                             resources::validation_texts::XdrTooDeep.toString());
    ++reader_.depth_;
}

Data XsdReader::read(const QStringList &paths) {
    components_.load(paths);
    addAnyType();
    std::vector<Attribute> attributes;
    for (int i = 0; i < static_cast<int>(components_.all().size()); ++i) {
        const XsdComponent &declared = component(i);
        if (components_.find(declared.kind, declared.name) != i)
            continue; // redefined
        if (declared.kind == ComponentKind::Element)
            globalElement(i);
        else if (declared.kind == ComponentKind::Attribute)
            attributes.push_back(globalAttribute(i));
        else if (declared.kind == ComponentKind::Type)
            componentType(i);
    }
    builder_.data.globalAttributes = builder_.attributes(attributes);
    // The list grows while types are built.
    for (Index type = 0; type < work_.size(); ++type)
        complete(type);
    collectSubstitutes();
    return std::move(builder_.data);
}

QString XsdReader::value(const Node &node, const char *attribute) const {
    return node.getAttribute(QString::fromLatin1(attribute)).value_or(QString()).trimmed();
}

ValueRule XsdReader::valueRule(const Node &node, Index &value) {
    for (const auto &[name, rule] :
         {std::pair("fixed", ValueRule::Fixed), std::pair("default", ValueRule::Default)}) {
        if (const auto given = node.getAttribute(QString::fromLatin1(name))) {
            value = builder_.string(*given);
            return rule;
        }
    }
    return ValueRule::Free;
}

/// The texts in the language of the user; else those in none; else the first.
Index XsdReader::documentation(const Spot &spot) {
    QStringList japanese, plain, others;
    components_.forEachPart(spot.node, [&](const Node &annotation, const QString &kind) {
        if (kind != QLatin1String("annotation"))
            return;
        components_.forEachPart(annotation, [&](const Node &text, const QString &part) {
            if (part != QLatin1String("documentation"))
                return;
            const QString language = value(text, "xml:lang");
            const QString words = text.text().trimmed();
            if (words.isEmpty())
                return;
            (language.startsWith(QLatin1String("ja"))                         ? japanese
             : language.isEmpty() || language.startsWith(QLatin1String("en")) ? plain
                                                                              : others)
                .append(words);
        });
    });
    const QStringList &chosen = !japanese.isEmpty() ? japanese : !plain.isEmpty() ? plain : others;
    return builder_.string(chosen.join(QLatin1String("\n\n")));
}

int XsdReader::referred(ComponentKind kind, const Spot &at, const QString &qualifiedName,
                        int original) {
    const ExpandedName name = components_.expanded(at.node, qualifiedName, at.document);
    if (original >= 0) {
        const XsdComponent &redefined = component(original);
        if (redefined.kind == kind && redefined.name.local == name.local &&
            redefined.name.space == name.space)
            return original;
    }
    const int found = components_.find(kind, name);
    if (found < 0)
        builder_.noteUndeclared(qualifiedName);
    return found;
}

/// What the component that a node stands in redefines; -1 when it redefines nothing.
int XsdReader::originalAround(ComponentKind kind, const Spot &spot) const {
    Node top = spot.node;
    while (top.parentNode() && components_.kindOf(top.parentNode()) != QLatin1String("redefine") &&
           components_.kindOf(top.parentNode()) != QLatin1String("schema"))
        top = top.parentNode();
    if (components_.kindOf(top.parentNode()) != QLatin1String("redefine"))
        return -1;
    const int redefining =
        components_.find(kind, {documentOf(spot).targetNamespace, value(top, "name")});
    return redefining >= 0 && component(redefining).node == top ? component(redefining).original
                                                                : -1;
}

Index XsdReader::globalElement(int place) {
    if (const auto known = elements_.constFind(place); known != elements_.constEnd())
        return *known;
    const auto index = static_cast<Index>(builder_.data.elements.size());
    elements_.insert(place, index);
    Element element;
    element.name = nameOf(component(place).name);
    element.isGlobal = 1;
    // Until it is known, for those whose types go round in a circle.
    element.type = anyType_;
    builder_.data.elements.push_back(element);
    fillElement(index, spotOf(place));
    return index;
}

Index XsdReader::localElement(const Spot &spot) {
    const QString form = value(spot.node, "form");
    const bool isQualified =
        form.isEmpty() ? documentOf(spot).qualifiesElements : form == QLatin1String("qualified");
    Element element;
    element.name = builder_.name(isQualified ? documentOf(spot).targetNamespace : QString(),
                                 value(spot.node, "name"));
    element.type = anyType_;
    builder_.data.elements.push_back(element);
    const auto index = static_cast<Index>(builder_.data.elements.size()) - 1;
    fillElement(index, spot);
    return index;
}

void XsdReader::fillElement(Index index, const Spot &spot) {
    const Depth depth(*this);
    Index given = 0;
    const ValueRule rule = valueRule(spot.node, given);
    const Index type = typeOfElement(spot);
    const Index words = documentation(spot);
    const Place place = placeOf(spot);
    const auto isTrue = [&](const char *name) {
        const QString text = value(spot.node, name);
        return text == QLatin1String("true") || text == QLatin1String("1");
    };
    Element &element = builder_.data.elements[index];
    element.type = type;
    element.valueRule = rule;
    element.value = given;
    element.documentation = words;
    element.isAbstract = element.isGlobal && isTrue("abstract");
    element.isNillable = isTrue("nillable");
    element.blocked = blockedWays(spot);
    element.place = place;
}

Index XsdReader::typeOfElement(const Spot &spot) {
    if (const QString name = value(spot.node, "type"); !name.isEmpty())
        return namedType(spot, name);
    Index type = None;
    components_.forEachPart(spot.node, [&](const Node &child, const QString &kind) {
        if (kind == QLatin1String("complexType"))
            type = complexType({child, spot.document}, -1);
        else if (kind == QLatin1String("simpleType"))
            type = textType(simpleType({child, spot.document}, {}, -1));
    });
    if (type != None)
        return type;
    const QString head = value(spot.node, "substitutionGroup");
    const int place = head.isEmpty()
                          ? -1
                          : components_.find(ComponentKind::Element,
                                             components_.expanded(spot.node, head, spot.document));
    return place < 0 ? anyType_ : builder_.data.elements[globalElement(place)].type;
}

Index XsdReader::elementParticle(const Spot &spot, quint32 minimum, quint32 maximum) {
    const QString reference = value(spot.node, "ref");
    if (reference.isEmpty())
        return builder_.particle(ParticleKind::Element, localElement(spot), minimum, maximum);
    const int place = referred(ComponentKind::Element, spot, reference, -1);
    return place < 0
               ? None
               : builder_.particle(ParticleKind::Element, globalElement(place), minimum, maximum);
}

/// None for what may not occur, and for what is no particle.
Index XsdReader::particle(const Spot &spot, const QString &kind) {
    const Depth depth(*this);
    const quint32 maximum = occurrences(value(spot.node, "maxOccurs"));
    const quint32 minimum =
        std::min({occurrences(value(spot.node, "minOccurs")), maximum, Unbounded - 1});
    if (maximum == 0)
        return None;
    if (kind == QLatin1String("element"))
        return elementParticle(spot, minimum, maximum);
    if (kind == QLatin1String("any"))
        return builder_.particle(ParticleKind::Wildcard, wildcard(spot), minimum, maximum);
    if (kind == QLatin1String("group")) {
        const Index group = groupParticle(spot);
        return group == None || (minimum == 1 && maximum == 1)
                   ? group
                   : builder_.group(ParticleKind::Sequence, {group}, minimum, maximum);
    }
    const bool isChoice = kind == QLatin1String("choice");
    const bool isAll = kind == QLatin1String("all");
    if (!isChoice && !isAll && kind != QLatin1String("sequence"))
        return None;
    std::vector<Index> parts;
    components_.forEachPart(spot.node, [&](const Node &child, const QString &childKind) {
        if (const Index part = particle({child, spot.document}, childKind); part != None)
            parts.push_back(part);
    });
    return builder_.group(isChoice ? ParticleKind::Choice
                          : isAll  ? ParticleKind::Interleave
                                   : ParticleKind::Sequence,
                          parts, minimum, maximum);
}

Index XsdReader::groupParticle(const Spot &spot) {
    const int place = referred(ComponentKind::Group, spot, value(spot.node, "ref"),
                               originalAround(ComponentKind::Group, spot));
    if (place < 0)
        return None;
    if (const auto known = groups_.constFind(place); known != groups_.constEnd())
        return *known;
    if (building_.contains(place)) {
        builder_.noteUndeclared(value(spot.node, "ref"));
        return None;
    }
    building_.insert(place);
    const Index whole = contentParticle(spotOf(place));
    building_.remove(place);
    groups_.insert(place, whole);
    return whole;
}

/// The particle that stands right in a type, a derivation or a group.
Index XsdReader::contentParticle(const Spot &spot) {
    Index whole = None;
    components_.forEachPart(spot.node, [&](const Node &child, const QString &kind) {
        if (whole == None && kind != QLatin1String("element") && kind != QLatin1String("any"))
            whole = particle({child, spot.document}, kind);
    });
    return whole;
}

Index XsdReader::wildcard(const Spot &spot) {
    const QString target = documentOf(spot).targetNamespace;
    const QString namespaces = value(spot.node, "namespace");
    Wildcard wildcard;
    QStringList listed;
    if (namespaces == QLatin1String("##other")) {
        wildcard.rule = NamespaceRule::NotListed;
        listed = {target, QString()};
    } else if (!namespaces.isEmpty() && namespaces != QLatin1String("##any")) {
        wildcard.rule = NamespaceRule::Listed;
        for (const QString &name : namespaces.simplified().split(u' '))
            listed.append(name == QLatin1String("##targetNamespace") ? target
                          : name == QLatin1String("##local")         ? QString()
                                                                     : name);
    }
    wildcard.namespaces = builder_.stringList(listed);
    const QString process = value(spot.node, "processContents");
    wildcard.process = process == QLatin1String("lax")    ? Process::Lax
                       : process == QLatin1String("skip") ? Process::Skip
                                                          : Process::Strict;
    builder_.data.wildcards.push_back(wildcard);
    return static_cast<Index>(builder_.data.wildcards.size()) - 1;
}

QString XsdReader::blockedAt(const Spot &spot) const {
    return spot.node.getAttribute(QStringLiteral("block"))
        .value_or(value(documentOf(spot).root, "blockDefault"));
}

Blocked XsdReader::blockedWays(const Spot &spot) const {
    const QString blocked = blockedAt(spot);
    const bool all = blocked.contains(QLatin1String("#all"));
    return (all || blocked.contains(QLatin1String("extension")) ? BlocksExtension : 0) |
           (all || blocked.contains(QLatin1String("restriction")) ? BlocksRestriction : 0);
}

bool XsdReader::maySubstitute(const Element &member, int head) const {
    const QString blocked = blockedAt(spotOf(head));
    if (blocked.isEmpty())
        return true;
    if (blocked.contains(QLatin1String("#all")) || blocked.contains(QLatin1String("substitution")))
        return false;
    const std::vector<Type> &types = builder_.data.types;
    const Index base = builder_.data.elements[elements_.value(head)].type;
    for (Index at = member.type; at != None && at != base; at = types[at].base) {
        if (blocked.contains(types[at].derivation == Derivation::Extension
                                 ? QLatin1String("extension")
                                 : QLatin1String("restriction")))
            return false;
    }
    return true;
}

void XsdReader::collectSubstitutes() {
    // By the components that are their heads.
    std::map<int, std::vector<int>> members;
    for (auto at = elements_.cbegin(); at != elements_.cend(); ++at) {
        const QString head = value(component(at.key()).node, "substitutionGroup");
        const int found =
            head.isEmpty() ? -1 : referred(ComponentKind::Element, spotOf(at.key()), head, -1);
        if (found >= 0)
            members[found].push_back(at.key());
    }
    for (auto &[head, list] : members)
        std::ranges::sort(list);
    for (const auto &[head, direct] : members) {
        std::vector<Index> all;
        QSet<int> seen{head};
        std::vector<int> pending(direct.rbegin(), direct.rend());
        while (!pending.empty()) {
            const int member = pending.back();
            pending.pop_back();
            if (seen.contains(member))
                continue;
            seen.insert(member);
            const Index element = elements_.value(member);
            if (!builder_.data.elements[element].isAbstract &&
                maySubstitute(builder_.data.elements[element], head))
                all.push_back(element);
            if (const auto further = members.find(member); further != members.end())
                pending.insert(pending.end(), further->second.rbegin(), further->second.rend());
        }
        builder_.data.elements[elements_.value(head)].substitutes = builder_.elementList(all);
    }
}

Place XsdReader::placeOf(const Spot &spot) {
    const XsdDocument &document = documentOf(spot);
    return {builder_.string(document.path), document.lines.value(spot.node.number())};
}

Data grammarFromXsd(const QStringList &paths, SchemaFiles &files) {
    return XsdReader(files).read(paths);
}

} // namespace quillon::grammar
