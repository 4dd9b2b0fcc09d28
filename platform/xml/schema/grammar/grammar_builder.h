#pragma once

#include "platform/xml/schema/grammar/grammar_data.h"

#include <QHash>
#include <QStringList>

namespace quillon::grammar {

/// Puts a grammar together.
class GrammarBuilder {
public:
    explicit GrammarBuilder(Language language) { data.language = language; }

    /// The place of a text, the same for equal texts.
    Index string(const QString &text);
    Name name(const QString &namespaceName, const QString &localName) {
        return {string(namespaceName), string(localName)};
    }

    /// A particle of other particles, all of them made before. Raises Fail when they nest too
    /// deeply.
    Index group(ParticleKind kind, const std::vector<Index> &parts, quint32 minimum = 1,
                quint32 maximum = 1);
    /// A particle for an element or a wildcard.
    Index particle(ParticleKind kind, Index target, quint32 minimum = 1, quint32 maximum = 1);

    Range attributes(const std::vector<Attribute> &list) { return appended(data.attributes, list); }
    Range elementList(const std::vector<Index> &list) { return appended(data.elementLists, list); }
    Range simpleTypeList(const std::vector<Index> &list) {
        return appended(data.simpleTypeLists, list);
    }
    Range nameList(const std::vector<Name> &list) { return appended(data.names, list); }
    Range stringList(const QStringList &texts);
    Range enumeration(const QStringList &values);
    Range facets(const std::vector<FacetValue> &list) { return appended(data.facets, list); }
    Range patterns(const std::vector<Pattern> &list) { return appended(data.patterns, list); }
    Range enumeration(const std::vector<EnumerationValue> &list) {
        return appended(data.enumerations, list);
    }

    /// A simple type that XML Schema has built in, by its name, e.g. "integer"; made once. None
    /// when there is none of that name.
    Index builtInType(const QString &name);

    void noteMissing(const QString &address) { note(data.missing, address); }
    void noteUndeclared(const QString &what) { note(data.undeclared, what); }

    Data data;

private:
    template <typename Record>
    static Range appended(std::vector<Record> &to, const std::vector<Record> &list) {
        checkSize(to.size() + list.size());
        const Range range{static_cast<Index>(to.size()), static_cast<quint32>(list.size())};
        to.insert(to.end(), list.begin(), list.end());
        return range;
    }
    /// Raises Fail for a list that no schema needs: what is short as it is written may be long when
    /// all of it is spelled out, as attributes are in each derived type.
    static void checkSize(std::size_t size);
    void note(std::vector<Index> &list, const QString &text);

    QHash<QString, Index> strings_{{QString(), 0}};
    QHash<QString, Index> builtIns_;
    std::vector<int> depths_;
};

/// The namespace of XML Schema, in which its built-in types are.
inline const QString SchemaNamespace = QStringLiteral("http://www.w3.org/2001/XMLSchema");
/// The namespace of xml:lang and its like.
inline const QString XmlNamespace = QStringLiteral("http://www.w3.org/XML/1998/namespace");

} // namespace quillon::grammar
