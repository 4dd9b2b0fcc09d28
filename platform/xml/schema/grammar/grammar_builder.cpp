#include "platform/xml/schema/grammar/grammar_builder.h"

#include "platform/runtime/error.h"
#include "resources/validation_texts.h"

#include <algorithm>

namespace quillon::grammar {

namespace {

constexpr std::size_t MaxListSize = 5'000'000;

struct BuiltIn {
    const char *base;
    WhiteSpace whiteSpace = WhiteSpace::Collapse;
    /// Of a list's items.
    const char *item = nullptr;
    const char *minimum = nullptr;
    const char *maximum = nullptr;
};

const QHash<QString, BuiltIn> &builtIns() {
    static const QHash<QString, BuiltIn> table{
        {"anySimpleType", {nullptr, WhiteSpace::Preserve}},
        {"string", {"anySimpleType", WhiteSpace::Preserve}},
        {"normalizedString", {"string", WhiteSpace::Replace}},
        {"token", {"normalizedString"}},
        {"language", {"token"}},
        {"NMTOKEN", {"token"}},
        {"Name", {"token"}},
        {"NCName", {"Name"}},
        {"ID", {"NCName"}},
        {"IDREF", {"NCName"}},
        {"ENTITY", {"NCName"}},
        {"NMTOKENS", {"anySimpleType", WhiteSpace::Collapse, "NMTOKEN"}},
        {"IDREFS", {"anySimpleType", WhiteSpace::Collapse, "IDREF"}},
        {"ENTITIES", {"anySimpleType", WhiteSpace::Collapse, "ENTITY"}},
        {"boolean", {"anySimpleType"}},
        {"decimal", {"anySimpleType"}},
        {"float", {"anySimpleType"}},
        {"double", {"anySimpleType"}},
        {"duration", {"anySimpleType"}},
        {"dateTime", {"anySimpleType"}},
        {"time", {"anySimpleType"}},
        {"date", {"anySimpleType"}},
        {"gYearMonth", {"anySimpleType"}},
        {"gYear", {"anySimpleType"}},
        {"gMonthDay", {"anySimpleType"}},
        {"gDay", {"anySimpleType"}},
        {"gMonth", {"anySimpleType"}},
        {"hexBinary", {"anySimpleType"}},
        {"base64Binary", {"anySimpleType"}},
        {"anyURI", {"anySimpleType"}},
        {"QName", {"anySimpleType"}},
        {"NOTATION", {"anySimpleType"}},
        {"integer", {"decimal"}},
        {"nonPositiveInteger", {"integer", WhiteSpace::Collapse, nullptr, nullptr, "0"}},
        {"negativeInteger", {"nonPositiveInteger", WhiteSpace::Collapse, nullptr, nullptr, "-1"}},
        {"long",
         {"integer", WhiteSpace::Collapse, nullptr, "-9223372036854775808", "9223372036854775807"}},
        {"int", {"long", WhiteSpace::Collapse, nullptr, "-2147483648", "2147483647"}},
        {"short", {"int", WhiteSpace::Collapse, nullptr, "-32768", "32767"}},
        {"byte", {"short", WhiteSpace::Collapse, nullptr, "-128", "127"}},
        {"nonNegativeInteger", {"integer", WhiteSpace::Collapse, nullptr, "0"}},
        {"unsignedLong",
         {"nonNegativeInteger", WhiteSpace::Collapse, nullptr, "0", "18446744073709551615"}},
        {"unsignedInt", {"unsignedLong", WhiteSpace::Collapse, nullptr, "0", "4294967295"}},
        {"unsignedShort", {"unsignedInt", WhiteSpace::Collapse, nullptr, "0", "65535"}},
        {"unsignedByte", {"unsignedShort", WhiteSpace::Collapse, nullptr, "0", "255"}},
        {"positiveInteger", {"nonNegativeInteger", WhiteSpace::Collapse, nullptr, "1"}},
    };
    return table;
}

} // namespace

Index GrammarBuilder::string(const QString &text) {
    const auto known = strings_.constFind(text);
    if (known != strings_.constEnd())
        return *known;
    const Index place = data.strings.count();
    data.strings.characters.append(text);
    data.strings.ends.push_back(static_cast<quint32>(data.strings.characters.size()));
    strings_.insert(text, place);
    return place;
}

Index GrammarBuilder::group(ParticleKind kind, const std::vector<Index> &parts, quint32 minimum,
                            quint32 maximum) {
    const Particle particle{kind, minimum, maximum, None, appended(data.particleLists, parts)};
    int depth = 0;
    for (const Index part : parts)
        depth = std::max(depth, depths_[part] + 1);
    if (depth > MaxParticleDepth)
        throw runtime::Error(runtime::error_number::Fail,
                             resources::validation_texts::XdrTooDeep.toString());
    data.particles.push_back(particle);
    depths_.push_back(depth);
    return static_cast<Index>(data.particles.size()) - 1;
}

Index GrammarBuilder::particle(ParticleKind kind, Index target, quint32 minimum, quint32 maximum) {
    data.particles.push_back({kind, minimum, maximum, target, {}});
    depths_.push_back(0);
    return static_cast<Index>(data.particles.size()) - 1;
}

Range GrammarBuilder::stringList(const QStringList &texts) {
    std::vector<Index> places;
    for (const QString &text : texts)
        places.push_back(string(text));
    return appended(data.stringLists, places);
}

Range GrammarBuilder::enumeration(const QStringList &values) {
    std::vector<EnumerationValue> list;
    for (const QString &value : values)
        list.push_back({string(value), 0});
    return appended(data.enumerations, list);
}

Index GrammarBuilder::builtInType(const QString &name) {
    if (const auto known = builtIns_.constFind(name); known != builtIns_.constEnd())
        return *known;
    const auto found = builtIns().constFind(name);
    if (found == builtIns().constEnd())
        return None;
    SimpleType type;
    type.name = {string(SchemaNamespace), string(name)};
    type.builtIn = string(name);
    type.whiteSpace = found->whiteSpace;
    if (found->base)
        type.base = builtInType(QString::fromLatin1(found->base));
    if (found->item) {
        type.variety = Variety::List;
        type.members = simpleTypeList({builtInType(QString::fromLatin1(found->item))});
    }
    std::vector<FacetValue> bounds;
    if (found->minimum)
        bounds.push_back({Facet::MinInclusive, string(QString::fromLatin1(found->minimum))});
    if (found->maximum)
        bounds.push_back({Facet::MaxInclusive, string(QString::fromLatin1(found->maximum))});
    // What the base says stands in the type, too.
    if (type.base != None && bounds.size() < 2) {
        const Range inherited = data.simpleTypes[type.base].facets;
        for (Index i = 0; i < inherited.count; ++i) {
            const FacetValue facet = data.facets[inherited.first + i];
            if (std::ranges::none_of(
                    bounds, [&](const FacetValue &own) { return own.facet == facet.facet; }))
                bounds.push_back(facet);
        }
    }
    type.facets = facets(bounds);
    data.simpleTypes.push_back(type);
    const auto place = static_cast<Index>(data.simpleTypes.size()) - 1;
    builtIns_.insert(name, place);
    return place;
}

void GrammarBuilder::checkSize(std::size_t size) {
    if (size > MaxListSize)
        throw runtime::Error(runtime::error_number::Fail,
                             resources::validation_texts::ExpansionLimit.toString());
}

void GrammarBuilder::note(std::vector<Index> &list, const QString &text) {
    const Index place = string(text);
    if (std::ranges::find(list, place) == list.end())
        list.push_back(place);
}

} // namespace quillon::grammar
