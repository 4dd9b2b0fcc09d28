#pragma once

#include "platform/xml/schema/grammar/relaxng_definitions.h"

namespace quillon::grammar {

/// Where a pattern stands.
struct RelaxNgSpot {
    xml::Node node;
    int file;
    int scope;
};

/// What a pattern says, taken apart.
struct RelaxNgPattern {
    /// Nothing keeps to it.
    bool isImpossible = false;
    /// Of the elements; None when it has none.
    Index particle = None;
    std::vector<Attribute> attributes;
    /// Of `wildcards`: further attributes; None for none.
    Index anyAttribute = None;
    bool hasText = false;
    /// Of text that is no more than one value; None for any.
    Index type = None;
    std::vector<EnumerationValue> values;
};

/// Fills a grammar from a RELAX NG schema.
class RelaxNgReader {
public:
    explicit RelaxNgReader(SchemaFiles &files)
        : builder_(Language::RelaxNg), definitions_(files, builder_) {}

    Data read(const QString &path);

private:
    RelaxNgPattern pattern(const RelaxNgSpot &spot, const QString &kind);
    RelaxNgPattern all(const RelaxNgSpot &spot, ParticleKind kind);
    RelaxNgPattern joined(std::vector<RelaxNgPattern> parts, ParticleKind kind);
    RelaxNgPattern eitherOf(std::vector<RelaxNgPattern> parts);
    /// Takes what a part says besides its elements.
    void addTo(RelaxNgPattern &whole, const RelaxNgPattern &part);
    /// What is a value of one of two types, None for any text.
    Index eitherType(Index a, Index b);
    Index eitherWildcard(Index a, Index b);
    RelaxNgPattern repeated(RelaxNgPattern inner, quint32 minimum, quint32 maximum);
    RelaxNgPattern reference(const RelaxNgSpot &spot, int scope);
    RelaxNgPattern definition(const QString &name, int scope);
    RelaxNgPattern nested(const RelaxNgSpot &spot);
    RelaxNgPattern element(const RelaxNgSpot &spot);
    RelaxNgPattern attribute(const RelaxNgSpot &spot);
    RelaxNgPattern data(const RelaxNgSpot &spot);
    Index valueType(const RelaxNgPattern &content);
    void build(Index type, const RelaxNgSpot &spot);

    /// Names, and what a class of names stands for.
    struct Names {
        std::vector<Name> names;
        Index wildcard = None;
        /// The name class is a child of its own, which is no pattern.
        bool isChild = false;
    };
    Names namesOf(const RelaxNgSpot &spot);
    void collectNames(const xml::Node &node, const QString &kind, Names &to, int depth);
    Place placeOf(const RelaxNgSpot &spot);
    QString spaceAt(const xml::Node &node) const;
    Index documentation(const xml::Node &node);
    /// A value cannot hold what is said of it: that stands behind it.
    Index documentationBehind(const xml::Node &value);

    GrammarBuilder builder_;
    RelaxNgDefinitions definitions_;
    QHash<QString, RelaxNgPattern> known_;
    QSet<QString> building_;
    QHash<QString, std::vector<Index>> elements_;
    std::vector<std::pair<Index, RelaxNgSpot>> work_;
    int depth_ = 0;
};

} // namespace quillon::grammar
