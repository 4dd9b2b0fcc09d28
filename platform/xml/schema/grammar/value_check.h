#pragma once

#include "platform/xml/schema/grammar/grammar.h"

#include <QRegularExpression>

namespace quillon::grammar {

enum class ValueFit : quint8 {
    Fits,
    DoesNotFit,
    /// A pattern or a type is beyond what can be told here.
    Unknown
};

struct ValueVerdict {
    ValueFit fit = ValueFit::Fits;
    /// Where it does not fit: a Japanese sentence that says what is wanted; it does not name the
    /// value, nor where that stands.
    QString reason = {};
};

/// Tells whether values keep to the simple types of a grammar. That identifiers are unique, that
/// references lead somewhere and that prefixes are declared is not looked at. Keeps what it has
/// worked out, so that one object is best asked many times.
class ValueChecker {
public:
    explicit ValueChecker(const Grammar &grammar) : grammar_(grammar) {}

    /// Of a text as it stands in a document, white space around it included, and one of
    /// `simpleTypes`; any text fits None. Takes a bounded number of steps, whatever the type is.
    ValueVerdict check(Index simpleType, const QString &value);
    /// The same of the value that an attribute has, or the text of an element of a type; a fixed
    /// value is looked at, too.
    ValueVerdict check(const Attribute &attribute, const QString &value);
    ValueVerdict check(const Element &element, Index type, const QString &text);

    /// A value as the type sees it: its white space dealt with.
    QString normalized(Index simpleType, const QString &value) const;

private:
    ValueVerdict checked(const SimpleType &type, const QString &value, int depth);
    ValueVerdict checkedItems(const SimpleType &type, const QString &value, int depth);
    ValueVerdict checkedMembers(const SimpleType &type, const QString &value, int depth);
    ValueVerdict checkedXdr(const SimpleType &type, const QString &value) const;
    ValueVerdict checkedEnumeration(const SimpleType &type, const QString &value) const;
    ValueVerdict checkedFacets(const SimpleType &type, const QString &value) const;
    ValueVerdict checkedPatterns(const SimpleType &type, const QString &value);
    ValueVerdict checkedFixed(Index simpleType, ValueRule rule, Index fixed, const QString &value);
    bool isSame(const SimpleType &type, const QString &a, const QString &b) const;
    /// The values of its enumeration, and of those of its members, as a text.
    QString valuesOf(const SimpleType &type) const;

    Grammar grammar_;
    /// By their texts' places in the grammar's strings; nothing for one that cannot be told.
    QHash<Index, std::optional<QRegularExpression>> patterns_;
    /// How many simple types may still be looked at for this value.
    int budget_ = 0;
};

} // namespace quillon::grammar
