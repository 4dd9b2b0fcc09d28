#pragma once

#include <QString>

#include <type_traits>
#include <vector>

/// What a schema says, whatever language it is written in, as plain data: records that refer to
/// each other by their places in lists, and to texts by their places in one table.
namespace quillon::grammar {

/// A 0-based place in one of the lists of Data; which one the comment at the member says.
using Index = quint32;
/// Refers to nothing.
inline constexpr Index None = 0xFFFFFFFFU;
/// The largest number of occurrences: no limit.
inline constexpr quint32 Unbounded = 0xFFFFFFFFU;

/// Consecutive places of a list.
struct Range {
    Index first = 0;
    quint32 count = 0;
};

/// An expanded name, as places in `strings`. The namespace is the empty text when there is none.
struct Name {
    Index space = 0;
    Index local = 0;

    bool operator==(const Name &) const = default;
};

/// Where a declaration stands.
struct Place {
    /// Of `strings`: the path of the file; the empty text when unknown.
    Index file = 0;
    /// 1-based; 0 when unknown.
    quint32 line = 0;
};

enum class Language : quint32 { Dtd, Xsd, Xdr, RelaxNg };
enum class ValueRule : quint32 { Free, Default, Fixed };
enum class Derivation : quint32 { Original, Extension, Restriction };

/// By which ways of derivation xsi:type may not choose a type; none when it is 0.
using Blocked = quint32;
inline constexpr Blocked BlocksExtension = 1;
inline constexpr Blocked BlocksRestriction = 2;

struct Element {
    Name name;
    /// Of `types`.
    Index type = None;
    ValueRule valueRule = ValueRule::Free;
    /// Of `strings`.
    Index value = 0;
    /// Of `strings`, as all documentation is.
    Index documentation = 0;
    /// Of `elementLists`: what may stand in its place, at however many removes, without what is
    /// abstract.
    Range substitutes;
    /// May be the root of a document.
    quint32 isGlobal = 0;
    quint32 isAbstract = 0;
    quint32 isNillable = 0;
    Blocked blocked = 0;
    Place place;
};

enum class Content : quint32 {
    Empty,
    /// Text of the simple type `text`.
    Text,
    /// Elements by `particle`, and nothing else.
    Elements,
    /// The same with text anywhere.
    Mixed,
    /// Any elements that are declared, and text.
    Any
};

/// What stands in an element.
struct Type {
    /// Empty for one without a name.
    Name name;
    Content content = Content::Empty;
    /// Of `simpleTypes`; None when text is not typed.
    Index text = None;
    /// Of `particles`; None when there are no elements.
    Index particle = None;
    /// Of `attributes`.
    Range attributes;
    /// Of `wildcards`; None when there are no further attributes.
    Index anyAttribute = None;
    /// Of `types`: what it is derived from.
    Index base = None;
    Derivation derivation = Derivation::Original;
    quint32 isAbstract = 0;
    /// Of elements that are declared with it.
    Blocked blocked = 0;
    Index documentation = 0;
    Place place;
};

struct Attribute {
    Name name;
    /// Of `simpleTypes`; None for any text.
    Index type = None;
    quint32 isRequired = 0;
    ValueRule valueRule = ValueRule::Free;
    /// Of `strings`.
    Index value = 0;
    Index documentation = 0;
    Place place;
};

enum class ParticleKind : quint32 {
    /// `target` is one of `elements`.
    Element,
    /// `target` is one of `wildcards`.
    Wildcard,
    Sequence,
    /// Exactly one of them; without any of them nothing fits.
    Choice,
    /// All of them, in any order and intermingled.
    Interleave
};

/// A piece of a content model.
struct Particle {
    ParticleKind kind = ParticleKind::Sequence;
    quint32 minimum = 1;
    quint32 maximum = 1;
    Index target = None;
    /// Of `particleLists`. All of them stand ahead of this one in `particles`.
    Range parts;
};

enum class NamespaceRule : quint32 { Any, Listed, NotListed };
enum class Process : quint32 { Strict, Lax, Skip };

/// Elements or attributes of some namespaces.
struct Wildcard {
    NamespaceRule rule = NamespaceRule::Any;
    /// Of `stringLists`.
    Range namespaces;
    /// Of `names`: those that are not meant.
    Range except;
    Process process = Process::Strict;
};

enum class Variety : quint32 { Atomic, List, Union };
enum class WhiteSpace : quint32 { Preserve, Replace, Collapse };

/// What limits the values of a simple type, one bound each.
enum class Facet : quint32 {
    Length,
    MinLength,
    MaxLength,
    MinInclusive,
    MinExclusive,
    MaxInclusive,
    MaxExclusive,
    TotalDigits,
    FractionDigits
};

struct FacetValue {
    Facet facet = Facet::Length;
    /// Of `strings`.
    Index value = 0;
};

/// All patterns of the same step are alternatives; a value keeps to one of each step.
struct Pattern {
    Index text = 0;
    quint32 step = 0;
};

struct EnumerationValue {
    Index text = 0;
    Index documentation = 0;
};

/// A type of texts and attribute values. Everything that its bases say stands in it, too.
struct SimpleType {
    /// Empty for one without a name.
    Name name;
    Variety variety = Variety::Atomic;
    /// Of `strings`: the name of the nearest type that XML Schema has built in, e.g. "integer".
    Index builtIn = 0;
    WhiteSpace whiteSpace = WhiteSpace::Preserve;
    /// Of `simpleTypeLists`: the type of a list's items; the members of a union.
    Range members;
    /// Of `enumerations`; any value when it is empty.
    Range enumeration;
    /// Of `patterns`.
    Range patterns;
    /// Of `facets`.
    Range facets;
    /// Of `simpleTypes`.
    Index base = None;
    Index documentation = 0;
    Place place;
};

/// Many texts in one, each known by its place. The text at place 0 is empty.
struct Strings {
    QString characters;
    /// Where each of them ends.
    std::vector<quint32> ends{0};

    quint32 count() const { return static_cast<quint32>(ends.size()); }
    QStringView at(Index place) const {
        const quint32 start = place == 0 ? 0 : ends[place - 1];
        return QStringView(characters).sliced(start, ends[place] - start);
    }
};

struct Data {
    Language language = Language::Dtd;
    Strings strings;
    std::vector<Element> elements;
    std::vector<Type> types;
    std::vector<Attribute> attributes;
    std::vector<Particle> particles;
    std::vector<Wildcard> wildcards;
    std::vector<SimpleType> simpleTypes;
    std::vector<EnumerationValue> enumerations;
    std::vector<Pattern> patterns;
    std::vector<FacetValue> facets;
    std::vector<Name> names;
    /// Of `attributes`: those that are declared on their own, which wildcards let in.
    Range globalAttributes;
    std::vector<Index> elementLists;
    std::vector<Index> particleLists;
    std::vector<Index> simpleTypeLists;
    std::vector<Index> stringLists;
    /// Of `strings`: the paths of all files that were read, the schema itself first.
    std::vector<Index> files;
    /// Of `strings`: what was wanted and could not be read, as the schema names it.
    std::vector<Index> missing;
    /// Of `strings`: what is referred to and declared nowhere.
    std::vector<Index> undeclared;
};

/// Calls a function with every list of records in turn.
template <typename SomeData, typename Function>
void forEachList(SomeData &data, Function &&function) {
    function(data.strings.ends);
    function(data.elements);
    function(data.types);
    function(data.attributes);
    function(data.particles);
    function(data.wildcards);
    function(data.simpleTypes);
    function(data.enumerations);
    function(data.patterns);
    function(data.facets);
    function(data.names);
    function(data.elementLists);
    function(data.particleLists);
    function(data.simpleTypeLists);
    function(data.stringLists);
    function(data.files);
    function(data.missing);
    function(data.undeclared);
}

/// How deeply the particles of a content model may nest.
inline constexpr int MaxParticleDepth = 1000;

} // namespace quillon::grammar
