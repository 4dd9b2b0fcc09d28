#include "platform/xml/schema/grammar/grammar_bytes.h"

#include <algorithm>
#include <cstring>

namespace quillon::grammar {

namespace {

/// Changes with the form of the data.
constexpr quint32 Format = 0x51470002;

void append(QByteArray &bytes, const void *from, std::size_t size) {
    bytes.append(static_cast<const char *>(from), static_cast<qsizetype>(size));
}
void appendNumber(QByteArray &bytes, quint32 number) {
    append(bytes, &number, sizeof number);
}

/// Takes bytes apart from their start; once something is missing, all that follows is.
class Input {
public:
    explicit Input(const QByteArray &bytes) : rest_(bytes) {}

    bool isGood() const { return good_; }
    bool isAtEnd() const { return rest_.isEmpty(); }

    bool take(void *to, std::size_t size) {
        good_ = good_ && size <= static_cast<std::size_t>(rest_.size());
        if (good_ && size > 0) {
            std::memcpy(to, rest_.data(), size);
            rest_ = rest_.sliced(static_cast<qsizetype>(size));
        }
        return good_;
    }
    quint32 number() {
        quint32 value = 0;
        take(&value, sizeof value);
        return value;
    }
    /// So many things of a size may still follow.
    bool holds(quint32 count, std::size_t size) {
        good_ = good_ && count <= static_cast<std::size_t>(rest_.size()) / size;
        return good_;
    }

private:
    QByteArrayView rest_;
    bool good_ = true;
};

/// Looks at every reference of a grammar.
class Check {
public:
    explicit Check(const Data &data) : data_(data) {}

    bool isSound() {
        return strings() && elements() && types() && attributes() && particles() && wildcards() &&
               simpleTypes() && lists();
    }

private:
    template <typename List>
    static bool isIn(Index index, const List &list) {
        return index < list.size();
    }
    template <typename List>
    static bool isIn(const Range &range, const List &list) {
        return range.first <= list.size() && range.count <= list.size() - range.first;
    }
    template <typename List>
    static bool isNoneOrIn(Index index, const List &list) {
        return index == None || isIn(index, list);
    }
    template <typename Enum>
    static bool isOneOf(Enum value, Enum last) {
        return static_cast<quint32>(value) <= static_cast<quint32>(last);
    }
    template <typename List, typename Test>
    static bool all(const List &list, Test &&test) {
        return std::all_of(list.begin(), list.end(), test);
    }

    bool isText(Index index) const { return isIn(index, data_.strings.ends); }
    bool isName(const Name &name) const { return isText(name.space) && isText(name.local); }

    bool strings() const {
        const std::vector<quint32> &ends = data_.strings.ends;
        return !ends.empty() && ends.front() == 0 && std::ranges::is_sorted(ends) &&
               ends.back() == static_cast<quint32>(data_.strings.characters.size()) &&
               isOneOf(data_.language, Language::RelaxNg);
    }
    bool elements() const {
        return all(data_.elements, [this](const Element &element) {
            return isName(element.name) && isIn(element.type, data_.types) &&
                   isOneOf(element.valueRule, ValueRule::Fixed) && isText(element.value) &&
                   isText(element.documentation) && isIn(element.substitutes, data_.elementLists) &&
                   isText(element.place.file);
        });
    }
    bool types() const {
        const auto isType = [this](const Type &type) {
            return isName(type.name) && isOneOf(type.content, Content::Any) &&
                   isNoneOrIn(type.text, data_.simpleTypes) &&
                   isNoneOrIn(type.particle, data_.particles) &&
                   isIn(type.attributes, data_.attributes) &&
                   isNoneOrIn(type.anyAttribute, data_.wildcards) &&
                   isNoneOrIn(type.base, data_.types) &&
                   isOneOf(type.derivation, Derivation::Restriction) &&
                   isText(type.documentation) && isText(type.place.file);
        };
        return all(data_.types, isType) && hasNoCircle(data_.types);
    }
    bool attributes() const {
        return isIn(data_.globalAttributes, data_.attributes) &&
               all(data_.attributes, [this](const Attribute &attribute) {
                   return isName(attribute.name) && isNoneOrIn(attribute.type, data_.simpleTypes) &&
                          isOneOf(attribute.valueRule, ValueRule::Fixed) &&
                          isText(attribute.value) && isText(attribute.documentation) &&
                          isText(attribute.place.file);
               });
    }
    bool particles() const {
        std::vector<int> depths;
        for (Index at = 0; at < data_.particles.size(); ++at) {
            const Particle &particle = data_.particles[at];
            if (!isOneOf(particle.kind, ParticleKind::Interleave) ||
                particle.minimum > particle.maximum || particle.minimum == Unbounded ||
                !isIn(particle.parts, data_.particleLists))
                return false;
            if ((particle.kind == ParticleKind::Element &&
                 !isIn(particle.target, data_.elements)) ||
                (particle.kind == ParticleKind::Wildcard &&
                 !isIn(particle.target, data_.wildcards)))
                return false;
            int depth = 0;
            for (Index i = 0; i < particle.parts.count; ++i) {
                const Index part = data_.particleLists[particle.parts.first + i];
                if (part >= at)
                    return false;
                depth = std::max(depth, depths[part] + 1);
            }
            if (depth > MaxParticleDepth)
                return false;
            depths.push_back(depth);
        }
        return true;
    }
    bool wildcards() const {
        return all(data_.wildcards, [this](const Wildcard &wildcard) {
            return isOneOf(wildcard.rule, NamespaceRule::NotListed) &&
                   isIn(wildcard.namespaces, data_.stringLists) &&
                   isIn(wildcard.except, data_.names) && isOneOf(wildcard.process, Process::Skip);
        });
    }
    bool simpleTypes() const {
        const auto isSimpleType = [this](const SimpleType &type) {
            return isName(type.name) && isOneOf(type.variety, Variety::Union) &&
                   isText(type.builtIn) && isOneOf(type.whiteSpace, WhiteSpace::Collapse) &&
                   isIn(type.members, data_.simpleTypeLists) &&
                   isIn(type.enumeration, data_.enumerations) &&
                   isIn(type.patterns, data_.patterns) && isIn(type.facets, data_.facets) &&
                   isNoneOrIn(type.base, data_.simpleTypes) && isText(type.documentation) &&
                   isText(type.place.file);
        };
        return all(data_.simpleTypes, isSimpleType) && hasNoCircle(data_.simpleTypes) &&
               hasNoCircleOfMembers();
    }
    bool lists() const {
        const auto isTextIndex = [this](Index text) { return isText(text); };
        return all(data_.enumerations,
                   [this](const EnumerationValue &value) {
                       return isText(value.text) && isText(value.documentation);
                   }) &&
               all(data_.patterns,
                   [this](const Pattern &pattern) { return isText(pattern.text); }) &&
               all(data_.facets,
                   [this](const FacetValue &facet) {
                       return isOneOf(facet.facet, Facet::FractionDigits) && isText(facet.value);
                   }) &&
               all(data_.names, [this](const Name &name) { return isName(name); }) &&
               all(data_.elementLists, [this](Index at) { return isIn(at, data_.elements); }) &&
               all(data_.particleLists, [this](Index at) { return isIn(at, data_.particles); }) &&
               all(data_.simpleTypeLists,
                   [this](Index at) { return isIn(at, data_.simpleTypes); }) &&
               all(data_.stringLists, isTextIndex) && all(data_.files, isTextIndex) &&
               all(data_.missing, isTextIndex) && all(data_.undeclared, isTextIndex);
    }

    /// No record is its own base, at however many removes.
    template <typename Record>
    static bool hasNoCircle(const std::vector<Record> &records) {
        // The walk that has come by, or 0.
        std::vector<quint32> walks(records.size(), 0);
        for (quint32 start = 0; start < records.size(); ++start) {
            Index at = start;
            for (; at != None && walks[at] == 0; at = records[at].base)
                walks[at] = start + 1;
            if (at != None && walks[at] == start + 1)
                return false;
        }
        return true;
    }
    /// Members stand ahead of what they are members of, as the places of members are written
    /// before.
    bool hasNoCircleOfMembers() const {
        for (Index at = 0; at < data_.simpleTypes.size(); ++at) {
            const Range &members = data_.simpleTypes[at].members;
            for (Index i = 0; i < members.count; ++i) {
                if (data_.simpleTypeLists[members.first + i] >= at)
                    return false;
            }
        }
        return true;
    }

    const Data &data_;
};

} // namespace

QByteArray toBytes(const Data &data) {
    QByteArray bytes;
    appendNumber(bytes, Format);
    appendNumber(bytes, static_cast<quint32>(data.language));
    appendNumber(bytes, data.globalAttributes.first);
    appendNumber(bytes, data.globalAttributes.count);
    appendNumber(bytes, static_cast<quint32>(data.strings.characters.size()));
    append(bytes, data.strings.characters.constData(),
           static_cast<std::size_t>(data.strings.characters.size()) * sizeof(QChar));
    forEachList(data, [&](const auto &list) {
        appendNumber(bytes, static_cast<quint32>(list.size()));
        append(bytes, list.data(), list.size() * sizeof list[0]);
    });
    return bytes;
}

std::optional<Data> fromBytes(const QByteArray &bytes) {
    Input input(bytes);
    Data data;
    if (input.number() != Format)
        return {};
    data.language = static_cast<Language>(input.number());
    data.globalAttributes.first = input.number();
    data.globalAttributes.count = input.number();
    const quint32 length = input.number();
    if (!input.holds(length, sizeof(QChar)))
        return {};
    data.strings.characters.resize(length);
    input.take(data.strings.characters.data(), length * sizeof(QChar));
    forEachList(data, [&](auto &list) {
        using Record = typename std::decay_t<decltype(list)>::value_type;
        // Nothing but numbers of 32 bits, so that any bytes make a record.
        static_assert(std::is_trivially_copyable_v<Record> && alignof(Record) == sizeof(quint32));
        const quint32 count = input.number();
        if (!input.holds(count, sizeof(Record)))
            return;
        list.resize(count);
        input.take(list.data(), count * sizeof(Record));
    });
    if (!input.isGood() || !input.isAtEnd() || !Check(data).isSound())
        return {};
    return data;
}

} // namespace quillon::grammar
