#include "platform/xml/schema/grammar/value_spaces.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace quillon::grammar {

namespace {

enum class Order { None, Boolean, Decimal, Float, Moment, Duration };

/// What values of a type look like, and how they compare.
struct Space {
    /// Null for any text.
    const char16_t *form = nullptr;
    Order order = Order::None;
};

/// What forms have in common, by what stands for it in them.
struct Abbreviation {
    QLatin1String name;
    QStringView meaning;
};
constexpr Abbreviation Abbreviations[] = {
    {QLatin1String("%A"), NameStartCharacters},
    {QLatin1String("%N"), FurtherNameCharacters},
    {QLatin1String("%B"), u"[A-Za-z0-9+/] ?"},
    {QLatin1String("%Y"), u"(?<year>-?(?:[1-9][0-9]{3,10}|0[0-9]{3}))"},
    {QLatin1String("%M"), u"(?<month>0[1-9]|1[0-2])"},
    {QLatin1String("%D"), u"(?<day>0[1-9]|[12][0-9]|3[01])"},
    {QLatin1String("%T"), u"(?<hour>[01][0-9]|2[0-4]):(?<minute>[0-5][0-9]):(?<second>[0-5][0-9])"
                          u"(?:\\.(?<part>[0-9]+))?"},
    {QLatin1String("%Z"), u"(?<zone>Z|[+-](?:0[0-9]|1[0-3]):[0-5][0-9]|[+-]14:00)?"},
};

constexpr Space Integer{u"[+-]?[0-9]+", Order::Decimal};
constexpr Space Real{u"[+-]?(?:[0-9]+(?:\\.[0-9]*)?|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?|-?INF|NaN",
                     Order::Float};
constexpr Space NameWithoutColon{u"(?!:)[%A](?:(?!:)[%A%N])*+"};
constexpr Space QualifiedName{u"(?!:)[%A](?:(?!:)[%A%N])*+(?::(?!:)[%A](?:(?!:)[%A%N])*+)?"};

const QHash<QString, Space> &spaces() {
    static const QHash<QString, Space> table{
        {"anySimpleType", {}},
        {"string", {}},
        {"normalizedString", {}},
        {"token", {}},
        {"anyURI", {}},
        {"language", {u"[a-zA-Z]{1,8}(?:-[a-zA-Z0-9]{1,8})*"}},
        {"NMTOKEN", {u"[%A%N]++"}},
        {"Name", {u"[%A][%A%N]*+"}},
        {"NCName", NameWithoutColon},
        {"ID", NameWithoutColon},
        {"IDREF", NameWithoutColon},
        {"ENTITY", NameWithoutColon},
        {"QName", QualifiedName},
        {"NOTATION", QualifiedName},
        {"boolean", {u"true|false|1|0", Order::Boolean}},
        {"decimal", {u"[+-]?(?:[0-9]+(?:\\.[0-9]*)?|\\.[0-9]+)", Order::Decimal}},
        {"float", Real},
        {"double", Real},
        {"hexBinary", {u"(?:[0-9a-fA-F]{2})*+"}},
        {"base64Binary", {u"(?:(?:%B){4})*+(?:(?:%B){2}[AEIMQUYcgkosw048] ?=|%B[AQgw] ?= ?=)?"}},
        {"duration",
         {u"(?<sign>-?)P(?=[0-9T])(?:(?<years>[0-9]{1,9})Y)?(?:(?<months>[0-9]{1,9})M)?"
          u"(?:(?<days>[0-9]{1,9})D)?(?:T(?=[0-9.])(?:(?<hours>[0-9]{1,9})H)?"
          u"(?:(?<minutes>[0-9]{1,9})M)?(?:(?<seconds>[0-9]{1,9})(?:\\.(?<part>[0-9]*))?S)?)?",
          Order::Duration}},
        {"dateTime", {u"%Y-%M-%DT%T%Z", Order::Moment}},
        {"date", {u"%Y-%M-%D%Z", Order::Moment}},
        {"time", {u"%T%Z", Order::Moment}},
        {"gYearMonth", {u"%Y-%M%Z", Order::Moment}},
        {"gYear", {u"%Y%Z", Order::Moment}},
        {"gMonthDay", {u"--%M-%D%Z", Order::Moment}},
        {"gDay", {u"---%D%Z", Order::Moment}},
        {"gMonth", {u"--%M%Z", Order::Moment}},
        {"integer", Integer},
        {"nonPositiveInteger", Integer},
        {"negativeInteger", Integer},
        {"long", Integer},
        {"int", Integer},
        {"short", Integer},
        {"byte", Integer},
        {"nonNegativeInteger", Integer},
        {"unsignedLong", Integer},
        {"unsignedInt", Integer},
        {"unsignedShort", Integer},
        {"unsignedByte", Integer},
        {"positiveInteger", Integer},
    };
    return table;
}

QRegularExpressionMatch matched(const char16_t *form, const QString &text) {
    static QHash<const char16_t *, QRegularExpression> compiled;
    auto known = compiled.find(form);
    if (known == compiled.end()) {
        QString pattern = QString::fromUtf16(form);
        for (const Abbreviation &abbreviation : Abbreviations)
            pattern.replace(abbreviation.name, abbreviation.meaning.toString());
        known =
            compiled.insert(form, QRegularExpression(QRegularExpression::anchoredPattern(pattern)));
    }
    return known->match(text);
}

/// A number in the parts by which it compares.
struct Decimal {
    explicit Decimal(const QString &text) {
        QString digits = text;
        isNegative = digits.startsWith(u'-');
        if (isNegative || digits.startsWith(u'+'))
            digits.remove(0, 1);
        const qsizetype point = digits.indexOf(u'.');
        whole = point < 0 ? digits : digits.first(point);
        fraction = point < 0 ? QString() : digits.sliced(point + 1);
        whole.remove(0, std::find_if(whole.begin(), whole.end(), notZero) - whole.begin());
        while (fraction.endsWith(u'0'))
            fraction.chop(1);
        isNegative = isNegative && !(whole.isEmpty() && fraction.isEmpty());
    }
    static bool notZero(QChar digit) { return digit != u'0'; }

    int sizeComparedWith(const Decimal &other) const {
        if (whole.size() != other.whole.size())
            return whole.size() < other.whole.size() ? -1 : 1;
        const int byWhole = whole.compare(other.whole);
        return byWhole != 0 ? byWhole : fraction.compare(other.fraction);
    }

    bool isNegative = false;
    QString whole;
    QString fraction;
};

int compared(const Decimal &a, const Decimal &b) {
    if (a.isNegative != b.isNegative)
        return a.isNegative ? -1 : 1;
    return a.isNegative ? b.sizeComparedWith(a) : a.sizeComparedWith(b);
}

double floatOf(const QString &text) {
    const QString number = text.endsWith(QLatin1String("INF")) ? text.toLower() : text;
    return number.toDouble();
}

qint64 given(const QRegularExpressionMatch &match, const char *group, qint64 otherwise) {
    const QString text = match.captured(QLatin1String(group));
    return text.isEmpty() ? otherwise : text.toLongLong();
}

bool isLeap(qint64 year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

qint64 daysIn(qint64 month, qint64 year) {
    constexpr std::array<int, 12> Days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return Days[static_cast<std::size_t>(month - 1)] + (month == 2 && isLeap(year) ? 1 : 0);
}

/// Days from a fixed one on, by the calendar of today carried back.
qint64 dayNumber(qint64 year, qint64 month, qint64 day) {
    year -= month <= 2 ? 1 : 0;
    const qint64 era = (year >= 0 ? year : year - 399) / 400;
    const qint64 ofEra = year - era * 400;
    const qint64 ofYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146097 + ofEra * 365 + ofEra / 4 - ofEra / 100 + ofYear;
}

/// A point in time; what a type leaves out is that of a fixed, leap year.
struct Moment {
    explicit Moment(const QRegularExpressionMatch &match) {
        constexpr qint64 SomeLeapYear = 1972;
        const qint64 year = given(match, "year", SomeLeapYear);
        const qint64 month = given(match, "month", 1);
        const qint64 day = given(match, "day", 1);
        const qint64 hour = given(match, "hour", 0);
        const qint64 ofHour = given(match, "minute", 0) * 60 + given(match, "second", 0);
        part = match.captured(QStringLiteral("part"));
        while (part.endsWith(u'0'))
            part.chop(1);
        const bool isMidnight = hour < 24 || (ofHour == 0 && part.isEmpty());
        isThere = match.hasMatch() && isMidnight && day <= daysIn(month, year);
        seconds = isThere ? dayNumber(year, month, day) * 86400 + hour * 3600 + ofHour : 0;
        const QString zone = match.captured(QStringLiteral("zone"));
        hasZone = !zone.isEmpty();
        if (zone.size() > 1) {
            const qint64 shift =
                zone.sliced(1, 2).toLongLong() * 3600 + zone.sliced(4, 2).toLongLong() * 60;
            seconds += zone.startsWith(u'-') ? shift : -shift;
        }
    }

    bool isThere = false;
    bool hasZone = false;
    qint64 seconds = 0;
    /// The digits of the part of a second.
    QString part;
};

std::optional<int> compared(const Moment &a, const Moment &b) {
    constexpr qint64 LargestShift = 14 * 3600;
    const qint64 apart = a.seconds - b.seconds;
    if (a.hasZone != b.hasZone && std::abs(apart) <= LargestShift)
        return {};
    return apart != 0 ? (apart < 0 ? -1 : 1) : a.part.compare(b.part);
}

std::optional<int> comparedDurations(const QRegularExpressionMatch &a,
                                     const QRegularExpressionMatch &b) {
    const auto sign = [](const QRegularExpressionMatch &match) {
        return match.captured(QStringLiteral("sign")).isEmpty() ? 1 : -1;
    };
    const auto months = [&](const QRegularExpressionMatch &match) {
        return sign(match) * (given(match, "years", 0) * 12 + given(match, "months", 0));
    };
    const auto seconds = [&](const QRegularExpressionMatch &match) {
        return sign(match) * (given(match, "days", 0) * 86400 + given(match, "hours", 0) * 3600 +
                              given(match, "minutes", 0) * 60 + given(match, "seconds", 0));
    };
    const qint64 byMonths = months(a) - months(b);
    const qint64 bySeconds = seconds(a) - seconds(b);
    // Months are of different lengths.
    if ((byMonths < 0 && bySeconds > 0) || (byMonths > 0 && bySeconds < 0))
        return {};
    if (byMonths != 0 || bySeconds != 0)
        return byMonths + bySeconds < 0 ? -1 : 1;
    const QString part = QStringLiteral("part");
    if (a.captured(part) != b.captured(part))
        return {};
    return 0;
}

} // namespace

std::optional<bool> isValueOf(QStringView type, const QString &text) {
    const auto space = spaces().constFind(type.toString());
    if (space == spaces().constEnd())
        return {};
    if (!space->form)
        return true;
    const QRegularExpressionMatch match = matched(space->form, text);
    // One that is too long to be matched.
    if (!match.isValid())
        return {};
    return match.hasMatch() && (space->order != Order::Moment || Moment(match).isThere);
}

std::optional<int> compared(QStringView type, const QString &a, const QString &b) {
    const Space space = spaces().value(type.toString());
    switch (space.order) {
    case Order::None:
        return {};
    case Order::Boolean: {
        const auto isTrue = [](const QString &text) { return text == u"1" || text == u"true"; };
        return int(isTrue(a)) - int(isTrue(b));
    }
    case Order::Decimal:
        return compared(Decimal(a), Decimal(b));
    case Order::Float: {
        const double first = floatOf(a);
        const double second = floatOf(b);
        if (first != first || second != second)
            return {};
        return first < second ? -1 : (first > second ? 1 : 0);
    }
    case Order::Moment:
        return compared(Moment(matched(space.form, a)), Moment(matched(space.form, b)));
    case Order::Duration:
        return comparedDurations(matched(space.form, a), matched(space.form, b));
    }
    return {};
}

bool areSame(QStringView type, const QString &a, const QString &b) {
    if (a == b)
        return true;
    return isValueOf(type, a).value_or(false) && isValueOf(type, b).value_or(false) &&
           compared(type, a, b) == 0;
}

qsizetype lengthOf(QStringView type, const QString &text) {
    if (type == u"hexBinary")
        return text.size() / 2;
    if (type == u"base64Binary") {
        const qsizetype letters = text.size() - text.count(u' ') - text.count(u'=');
        return letters * 3 / 4;
    }
    return text.size() - std::ranges::count_if(text, [](QChar c) { return c.isLowSurrogate(); });
}

DigitCount digitsOf(const QString &number) {
    const Decimal decimal(number);
    return {decimal.whole.size() + decimal.fraction.size(), decimal.fraction.size()};
}

} // namespace quillon::grammar
