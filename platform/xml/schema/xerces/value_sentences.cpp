#include "platform/xml/schema/xerces/value_sentences.h"

#include "resources/validation_texts.h"

#include <algorithm>
#include <xercesc/util/XMLExceptMsgs.hpp>

namespace quillon::xml {

using xercesc::XMLExcepts;
namespace texts = resources::validation_texts;

namespace {

/// Longer values are cut.
constexpr qsizetype LongestValue = 80;
/// Of an enumeration no more are listed.
constexpr quint32 MostValues = 30;

/// A pattern of the schema's: types that are built in have some of their own in Xerces.
bool isOwnPattern(const QString &pattern, const grammar::Grammar *grammar,
                  const grammar::SimpleType *type) {
    if (!grammar || !type)
        return true;
    const auto &patterns = grammar->data().patterns;
    for (quint32 i = 0; i < type->patterns.count; ++i) {
        // Alternatives are one pattern for Xerces.
        if (pattern.contains(grammar->text(patterns[type->patterns.first + i].text)))
            return true;
    }
    return false;
}

QString enumerationOf(const grammar::Grammar *grammar, const grammar::SimpleType *type) {
    if (!grammar || !type || type->enumeration.count == 0)
        return {};
    QStringList values;
    for (quint32 i = 0; i < std::min(type->enumeration.count, MostValues); ++i)
        values.append(QStringLiteral("'%1'").arg(
            grammar->text(grammar->data().enumerations[type->enumeration.first + i].text)));
    if (type->enumeration.count > MostValues)
        values.append(QStringLiteral("…"));
    return texts::FacetEnumeration.toString().arg(values.join(QStringLiteral(", ")));
}

} // namespace

QString shortened(const QString &value) {
    return value.size() <= LongestValue ? value : value.left(LongestValue) + u'…';
}

QString facetDetail(const Report &report, const grammar::Grammar *grammar,
                    const grammar::SimpleType *type) {
    if (report.domain != ReportDomain::Value)
        return {};
    const QString second = shortened(report.argument(1));
    const QString third = shortened(report.argument(2));
    switch (report.code) {
    case XMLExcepts::VALUE_NE_Len:
        return texts::FacetLength.toString().arg(third, second);
    case XMLExcepts::VALUE_LT_minLen:
        return texts::FacetMinLength.toString().arg(third, second);
    case XMLExcepts::VALUE_GT_maxLen:
        return texts::FacetMaxLength.toString().arg(third, second);
    case XMLExcepts::VALUE_exceed_minIncl:
        return texts::FacetMinInclusive.toString().arg(second);
    case XMLExcepts::VALUE_exceed_maxIncl:
        return texts::FacetMaxInclusive.toString().arg(second);
    case XMLExcepts::VALUE_exceed_minExcl:
        return texts::FacetMinExclusive.toString().arg(second);
    case XMLExcepts::VALUE_exceed_maxExcl:
        return texts::FacetMaxExclusive.toString().arg(second);
    case XMLExcepts::VALUE_exceed_totalDigit:
        return texts::FacetTotalDigits.toString().arg(third);
    case XMLExcepts::VALUE_exceed_fractDigit:
        return texts::FacetFractionDigits.toString().arg(third);
    case XMLExcepts::VALUE_NotMatch_Pattern:
        return isOwnPattern(report.argument(1), grammar, type)
                   ? texts::FacetPattern.toString().arg(second)
                   : QString();
    case XMLExcepts::VALUE_NotIn_Enumeration:
        return enumerationOf(grammar, type);
    default:
        return {};
    }
}

} // namespace quillon::xml
