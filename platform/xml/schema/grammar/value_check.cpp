#include "platform/xml/schema/grammar/value_check.h"

#include "platform/xml/schema/grammar/pattern_translation.h"
#include "platform/xml/schema/grammar/value_spaces.h"
#include "platform/xml/schema/xdr/xdr_datatype.h"
#include "platform/xml/schema/xdr/xdr_schema.h"
#include "resources/validation_texts.h"

#include <array>

namespace quillon::grammar {

namespace texts = resources::validation_texts;

namespace {

/// Types in types: no schema needs more.
constexpr int MaxDepth = 50;
/// Of items of lists and members of unions, for one value.
constexpr int MaxLooks = 20'000;
/// No more values than these are named.
constexpr int MaxNamed = 20;

template <typename Record>
std::span<const Record> part(const std::vector<Record> &list, const Range &range) {
    return std::span(list).subspan(range.first, range.count);
}

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

QString normalizedBy(WhiteSpace rule, const QString &value) {
    if (rule == WhiteSpace::Preserve)
        return value;
    QString result;
    result.reserve(value.size());
    for (const QChar c : value) {
        if (!isBlank(c))
            result += c;
        else if (rule == WhiteSpace::Replace || (!result.isEmpty() && result.back() != u' '))
            result += u' ';
    }
    if (rule == WhiteSpace::Collapse && result.endsWith(u' '))
        result.chop(1);
    return result;
}

ValueVerdict misfit(const QString &reason) {
    return {ValueFit::DoesNotFit, reason};
}

/// The worse of two: what surely does not fit, then what cannot be told.
ValueVerdict worse(ValueVerdict a, ValueVerdict b) {
    if (a.fit == ValueFit::DoesNotFit || b.fit == ValueFit::Fits)
        return a;
    return b;
}

/// What each facet wants, in its order.
constexpr std::array FacetSentences{
    texts::FacetLength,       texts::FacetMinLength,    texts::FacetMaxLength,
    texts::FacetMinInclusive, texts::FacetMinExclusive, texts::FacetMaxInclusive,
    texts::FacetMaxExclusive, texts::FacetTotalDigits,  texts::FacetFractionDigits,
};
static_assert(FacetSentences.size() == static_cast<std::size_t>(Facet::FractionDigits) + 1);

bool isKept(Facet facet, qsizetype number, const QString &limit) {
    bool isNumber = false;
    const qlonglong bound = limit.toLongLong(&isNumber);
    if (!isNumber)
        return true;
    return facet == Facet::Length      ? number == bound
           : facet == Facet::MinLength ? number >= bound
                                       : number <= bound;
}

/// Whether a value keeps to a bound of its order; nothing where that cannot be told.
std::optional<bool> isWithin(QStringView builtIn, Facet facet, const QString &value,
                             const QString &limit) {
    if (!isValueOf(builtIn, limit).value_or(false))
        return {};
    const std::optional<int> order = compared(builtIn, value, limit);
    if (!order)
        return {};
    switch (facet) {
    case Facet::MinInclusive:
        return *order >= 0;
    case Facet::MinExclusive:
        return *order > 0;
    case Facet::MaxInclusive:
        return *order <= 0;
    default:
        return *order < 0;
    }
}

} // namespace

QString ValueChecker::normalized(Index simpleType, const QString &value) const {
    return simpleType == None
               ? value
               : normalizedBy(grammar_.data().simpleTypes[simpleType].whiteSpace, value);
}

ValueVerdict ValueChecker::check(Index simpleType, const QString &value) {
    if (simpleType == None)
        return {};
    budget_ = MaxLooks;
    return checked(grammar_.data().simpleTypes[simpleType], value, 0);
}

ValueVerdict ValueChecker::check(const Attribute &attribute, const QString &value) {
    return worse(check(attribute.type, value),
                 checkedFixed(attribute.type, attribute.valueRule, attribute.value, value));
}

ValueVerdict ValueChecker::check(const Element &element, Index type, const QString &text) {
    const Index simple = type == None ? None : grammar_.type(type).text;
    // An empty element has the value that is declared for it.
    if (text.isEmpty() && element.valueRule != ValueRule::Free)
        return {};
    return worse(check(simple, text), checkedFixed(simple, element.valueRule, element.value, text));
}

ValueVerdict ValueChecker::checkedFixed(Index simpleType, ValueRule rule, Index fixed,
                                        const QString &value) {
    if (rule != ValueRule::Fixed)
        return {};
    const QString wanted = grammar_.text(fixed).toString();
    const QString given = normalized(simpleType, value);
    const bool same = simpleType == None ? given == wanted
                                         : isSame(grammar_.data().simpleTypes[simpleType], given,
                                                  normalized(simpleType, wanted));
    return same ? ValueVerdict() : misfit(texts::FixedValue.toString().arg(wanted));
}

bool ValueChecker::isSame(const SimpleType &type, const QString &a, const QString &b) const {
    return type.variety == Variety::Atomic ? areSame(grammar_.text(type.builtIn), a, b) : a == b;
}

ValueVerdict ValueChecker::checked(const SimpleType &type, const QString &value, int depth) {
    if (depth > MaxDepth || --budget_ < 0)
        return {ValueFit::Unknown};
    if (grammar_.text(type.name.space) == xdr::DatatypeNamespace)
        return checkedXdr(type, value);
    const QString text = normalizedBy(type.whiteSpace, value);
    ValueVerdict verdict;
    if (type.variety == Variety::List) {
        verdict = checkedItems(type, text, depth);
    } else if (type.variety == Variety::Union) {
        verdict = checkedMembers(type, text, depth);
    } else {
        const QStringView builtIn = grammar_.text(type.builtIn);
        const std::optional<bool> isValue = isValueOf(builtIn, text);
        if (!isValue)
            verdict.fit = ValueFit::Unknown;
        else if (!*isValue)
            // What it may be tells more than what its type is called.
            return type.enumeration.count > 0 ? misfit(valuesOf(type))
                                              : misfit(texts::ExpectedType.toString().arg(builtIn));
    }
    for (const auto &next :
         {checkedEnumeration(type, text), checkedFacets(type, text), checkedPatterns(type, text)})
        verdict = worse(std::move(verdict), next);
    return verdict;
}

ValueVerdict ValueChecker::checkedXdr(const SimpleType &type, const QString &value) const {
    const std::optional<xdr::Type> known =
        xdr::typeByName(grammar_.text(type.name.local).toString());
    if (!known)
        return {ValueFit::Unknown};
    xdr::Datatype datatype{.type = *known};
    for (const EnumerationValue &allowed : part(grammar_.data().enumerations, type.enumeration))
        datatype.values.append(grammar_.text(allowed.text).toString());
    if (!xdr::isValue(datatype, value))
        return misfit(datatype.values.isEmpty()
                          ? texts::ExpectedType.toString().arg(xdr::nameOf(*known))
                          : valuesOf(type));
    for (const FacetValue &facet : part(grammar_.data().facets, type.facets)) {
        const qint64 limit = grammar_.text(facet.value).toLongLong();
        if (facet.facet == Facet::MinLength)
            datatype.minLength = limit;
        else if (facet.facet == Facet::MaxLength)
            datatype.maxLength = limit;
    }
    return xdr::isLengthAllowed(datatype, value) ? ValueVerdict() : checkedFacets(type, value);
}

ValueVerdict ValueChecker::checkedItems(const SimpleType &type, const QString &value, int depth) {
    ValueVerdict verdict;
    if (type.members.count == 0)
        return {ValueFit::Unknown};
    const SimpleType &item =
        grammar_.data().simpleTypes[grammar_.data().simpleTypeLists[type.members.first]];
    for (const QStringView one : QStringView(value).tokenize(u' ', Qt::SkipEmptyParts)) {
        verdict = worse(std::move(verdict), checked(item, one.toString(), depth + 1));
        if (verdict.fit == ValueFit::DoesNotFit || budget_ < 0)
            break;
    }
    return verdict;
}

ValueVerdict ValueChecker::checkedMembers(const SimpleType &type, const QString &value, int depth) {
    bool isUnknown = type.members.count == 0;
    QStringList names;
    for (const Index member : part(grammar_.data().simpleTypeLists, type.members)) {
        const SimpleType &one = grammar_.data().simpleTypes[member];
        const ValueVerdict verdict = checked(one, value, depth + 1);
        if (verdict.fit == ValueFit::Fits)
            return {};
        isUnknown = isUnknown || verdict.fit == ValueFit::Unknown;
        if (budget_ < 0)
            return {ValueFit::Unknown};
        if (!names.contains(verdict.reason))
            names.append(verdict.reason);
    }
    if (isUnknown)
        return {ValueFit::Unknown};
    return misfit(names.mid(0, MaxNamed).join(texts::Or));
}

ValueVerdict ValueChecker::checkedEnumeration(const SimpleType &type, const QString &value) const {
    if (type.enumeration.count == 0)
        return {};
    for (const EnumerationValue &allowed : part(grammar_.data().enumerations, type.enumeration)) {
        const QString text = grammar_.text(allowed.text).toString();
        if (text == value || isSame(type, normalizedBy(type.whiteSpace, text), value))
            return {};
    }
    return misfit(valuesOf(type));
}

QString ValueChecker::valuesOf(const SimpleType &type) const {
    QStringList values;
    for (const EnumerationValue &allowed : part(grammar_.data().enumerations, type.enumeration)) {
        if (values.size() == MaxNamed) {
            values.append(QStringLiteral("..."));
            break;
        }
        values.append(u'\'' + grammar_.text(allowed.text).toString() + u'\'');
    }
    return texts::FacetEnumeration.toString().arg(values.join(QStringLiteral(", ")));
}

ValueVerdict ValueChecker::checkedFacets(const SimpleType &type, const QString &value) const {
    const QStringView builtIn = grammar_.text(type.builtIn);
    ValueVerdict verdict;
    for (const FacetValue &facet : part(grammar_.data().facets, type.facets)) {
        const QString limit = grammar_.text(facet.value).toString();
        const QString sentence = FacetSentences[static_cast<std::size_t>(facet.facet)].toString();
        if (facet.facet <= Facet::MaxLength) {
            // The length of a qualified name says nothing.
            if (builtIn == u"QName" || builtIn == u"NOTATION")
                continue;
            const qsizetype length = type.variety == Variety::List
                                         ? (value.isEmpty() ? 0 : value.count(u' ') + 1)
                                         : lengthOf(builtIn, value);
            if (!isKept(facet.facet, length, limit))
                return misfit(sentence.arg(limit, QString::number(length)));
        } else if (facet.facet >= Facet::TotalDigits) {
            const DigitCount digits = digitsOf(value);
            const bool isTotal = facet.facet == Facet::TotalDigits;
            if (!isKept(facet.facet, isTotal ? digits.total : digits.fraction, limit))
                return misfit(sentence.arg(limit));
        } else {
            const std::optional<bool> within = isWithin(builtIn, facet.facet, value, limit);
            if (!within)
                verdict.fit = ValueFit::Unknown;
            else if (!*within)
                return misfit(sentence.arg(limit));
        }
    }
    return verdict;
}

ValueVerdict ValueChecker::checkedPatterns(const SimpleType &type, const QString &value) {
    const auto patterns = part(grammar_.data().patterns, type.patterns);
    ValueVerdict verdict;
    for (std::size_t first = 0; first < patterns.size();) {
        bool matches = false;
        bool isUnknown = false;
        QStringList alternatives;
        std::size_t at = first;
        for (; at < patterns.size() && patterns[at].step == patterns[first].step; ++at) {
            const Index text = patterns[at].text;
            auto known = patterns_.constFind(text);
            if (known == patterns_.constEnd())
                known = patterns_.insert(text, translatedPattern(grammar_.text(text)));
            const QRegularExpressionMatch match = known.value() && !matches && --budget_ >= 0
                                                      ? (*known)->match(value)
                                                      : QRegularExpressionMatch();
            matches = matches || match.hasMatch();
            isUnknown = isUnknown || !known.value() || !match.isValid();
            alternatives.append(grammar_.text(text).toString());
        }
        if (!matches && !isUnknown)
            return misfit(texts::FacetPattern.toString().arg(
                alternatives.mid(0, MaxNamed).join(QStringLiteral(" | "))));
        if (!matches)
            verdict.fit = ValueFit::Unknown;
        first = at;
    }
    return verdict;
}

} // namespace quillon::grammar
