#include "platform/xml/schema/xdr/xdr_datatype.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace quillon::xdr {

namespace {

constexpr std::array Names{
    QLatin1String("string"),      QLatin1String("id"),          QLatin1String("idref"),
    QLatin1String("idrefs"),      QLatin1String("nmtoken"),     QLatin1String("nmtokens"),
    QLatin1String("entity"),      QLatin1String("entities"),    QLatin1String("notation"),
    QLatin1String("enumeration"), QLatin1String("bin.base64"),  QLatin1String("bin.hex"),
    QLatin1String("boolean"),     QLatin1String("char"),        QLatin1String("date"),
    QLatin1String("dateTime"),    QLatin1String("dateTime.tz"), QLatin1String("time"),
    QLatin1String("time.tz"),     QLatin1String("fixed.14.4"),  QLatin1String("float"),
    QLatin1String("number"),      QLatin1String("r4"),          QLatin1String("int"),
    QLatin1String("i1"),          QLatin1String("i2"),          QLatin1String("i4"),
    QLatin1String("i8"),          QLatin1String("ui1"),         QLatin1String("ui2"),
    QLatin1String("ui4"),         QLatin1String("ui8"),         QLatin1String("uri"),
    QLatin1String("uuid"),
};
static_assert(Names.size() == static_cast<std::size_t>(Type::Uuid) + 1);

bool isBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

QStringView trimmed(QStringView text) {
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool isHexDigit(QChar c) {
    return isDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

/// Takes a text apart from its start.
class Scanner {
public:
    explicit Scanner(QStringView text) : rest_(text) {}

    bool atEnd() const { return rest_.isEmpty(); }
    bool take(QChar c) {
        if (atEnd() || rest_.front() != c)
            return false;
        rest_ = rest_.sliced(1);
        return true;
    }
    bool takeSign() { return take(u'-') || take(u'+'); }
    /// All digits that follow.
    QStringView digits() {
        const auto end = std::find_if_not(rest_.begin(), rest_.end(), isDigit);
        const QStringView found = rest_.first(end - rest_.begin());
        rest_ = rest_.sliced(found.size());
        return found;
    }
    /// A number of exactly `count` digits from `low` to `high`.
    bool number(int count, int low, int high) {
        if (rest_.size() < count)
            return false;
        const QStringView text = rest_.first(count);
        if (!std::all_of(text.begin(), text.end(), isDigit))
            return false;
        rest_ = rest_.sliced(count);
        const int value = text.toInt();
        return value >= low && value <= high;
    }

private:
    QStringView rest_;
};

bool takeDate(Scanner &scan) {
    // The calendar is not looked at: day 31 passes in any month.
    return scan.number(4, 0, 9999) && scan.take(u'-') && scan.number(2, 1, 12) && scan.take(u'-') &&
           scan.number(2, 1, 31);
}

bool takeTime(Scanner &scan) {
    return scan.number(2, 0, 23) && scan.take(u':') && scan.number(2, 0, 59) && scan.take(u':') &&
           scan.number(2, 0, 59) && (!scan.take(u'.') || !scan.digits().isEmpty());
}

bool takeZone(Scanner &scan) {
    if (scan.atEnd() || scan.take(u'Z'))
        return true;
    return scan.takeSign() && scan.number(2, 0, 23) && scan.take(u':') && scan.number(2, 0, 59);
}

bool isMoment(QStringView text, Type type) {
    Scanner scan(text);
    const bool hasDate = type != Type::Time && type != Type::TimeTz;
    if (hasDate && !takeDate(scan))
        return false;
    if (type != Type::Date && (!hasDate || scan.take(u'T')) && !takeTime(scan))
        return false;
    const bool hasZone = type == Type::DateTimeTz || type == Type::TimeTz;
    return (!hasZone || takeZone(scan)) && scan.atEnd();
}

bool isFixed(QStringView text) {
    Scanner scan(text);
    scan.takeSign();
    const qsizetype whole = scan.digits().size();
    const qsizetype fraction = scan.take(u'.') ? scan.digits().size() : 0;
    return whole <= 14 && fraction <= 4 && whole + fraction > 0 && scan.atEnd();
}

/// A decimal number with an optional exponent whose size lies between the bounds, or zero.
bool isReal(QStringView text, double smallest, double largest) {
    Scanner scan(text);
    scan.takeSign();
    const QStringView whole = scan.digits();
    const QStringView fraction = scan.take(u'.') ? scan.digits() : QStringView();
    if (whole.isEmpty() && fraction.isEmpty())
        return false;
    if (scan.take(u'e') || scan.take(u'E')) {
        scan.takeSign();
        if (scan.digits().isEmpty())
            return false;
    }
    if (!scan.atEnd())
        return false;
    const auto isZero = [](QChar c) { return c == u'0'; };
    if (std::all_of(whole.begin(), whole.end(), isZero) &&
        std::all_of(fraction.begin(), fraction.end(), isZero))
        return true;
    const double size = std::abs(text.toDouble());
    return size >= smallest && size <= largest;
}

/// A whole number from `-lowest` to `highest`.
bool isInteger(QStringView text, quint64 lowest, quint64 highest) {
    Scanner scan(text);
    const bool negative = scan.take(u'-');
    if (!negative)
        scan.take(u'+');
    const QStringView digits = scan.digits();
    if (digits.isEmpty() || !scan.atEnd())
        return false;
    const quint64 limit = negative ? lowest : highest;
    quint64 value = 0;
    for (const QChar c : digits) {
        const auto digit = static_cast<quint64>(c.unicode() - u'0');
        if (value > (limit - std::min(digit, limit)) / 10 || value * 10 + digit > limit)
            return false;
        value = value * 10 + digit;
    }
    return true;
}

bool isSigned(QStringView text, int bits) {
    const quint64 half = quint64{1} << (bits - 1);
    return isInteger(text, half, half - 1);
}

bool isUnsigned(QStringView text, int bits) {
    return isInteger(text, 0, std::numeric_limits<quint64>::max() >> (64 - bits));
}

/// The number of bytes that base64 stands for; nothing when it is no base64.
std::optional<qint64> base64Length(QStringView text) {
    qint64 characters = 0;
    qint64 padding = 0;
    for (const QChar c : text) {
        if (isBlank(c))
            continue;
        const bool letter = (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || isDigit(c) ||
                            c == u'+' || c == u'/';
        if (c == u'=')
            ++padding;
        else if (!letter || padding > 0)
            return {};
        ++characters;
    }
    if (characters % 4 != 0 || padding > 2)
        return {};
    return characters / 4 * 3 - padding;
}

bool isHex(QStringView text) {
    return text.size() % 2 == 0 && !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), isHexDigit);
}

bool isUuid(QStringView text) {
    const auto hyphens = std::count(text.begin(), text.end(), u'-');
    return text.size() - hyphens == 32 && std::all_of(text.begin(), text.end(), [](QChar c) {
               return c == u'-' || isHexDigit(c);
           });
}

bool isNameStart(QChar c) {
    return c.isLetter() || c.isSurrogate() || c == u'_' || c == u':';
}

bool isNameCharacter(QChar c) {
    return isNameStart(c) || isDigit(c) || c == u'-' || c == u'.' || c.isMark() || c.isDigit() ||
           c == u'\u00b7';
}

bool isToken(QStringView text) {
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), isNameCharacter);
}

bool isName(QStringView text) {
    return isToken(text) && isNameStart(text.front());
}

bool isList(QStringView text, bool (*isItem)(QStringView)) {
    const QStringList items = text.toString().simplified().split(u' ');
    return std::ranges::all_of(items, [&](const QString &item) { return isItem(item); });
}

/// False also for a type whose values are no names.
bool isNameOf(Type type, QStringView text) {
    switch (type) {
    case Type::Id:
    case Type::Idref:
    case Type::Entity:
    case Type::Notation:
        return isName(text);
    case Type::Idrefs:
    case Type::Entities:
        return isList(text, isName);
    case Type::Nmtoken:
        return isToken(text);
    case Type::Nmtokens:
        return isList(text, isToken);
    default:
        return false;
    }
}

/// False also for a type whose values are no numbers.
bool isNumberOf(Type type, QStringView text) {
    constexpr double LargestR4 = 3.40282347E+38;
    constexpr double SmallestR4 = 1.17549435E-38;
    using Double = std::numeric_limits<double>;
    switch (type) {
    case Type::Fixed14_4:
        return isFixed(text);
    case Type::Float:
    case Type::Number:
        return isReal(text, Double::min(), Double::max());
    case Type::R4:
        return isReal(text, SmallestR4, LargestR4);
    case Type::I1:
        return isSigned(text, 8);
    case Type::I2:
        return isSigned(text, 16);
    case Type::Int:
    case Type::I4:
        return isSigned(text, 32);
    case Type::I8:
        return isSigned(text, 64);
    case Type::Ui1:
        return isUnsigned(text, 8);
    case Type::Ui2:
        return isUnsigned(text, 16);
    case Type::Ui4:
        return isUnsigned(text, 32);
    case Type::Ui8:
        return isUnsigned(text, 64);
    default:
        return false;
    }
}

bool isOneCharacter(const QString &value) {
    // A blank is a character, too.
    return value.size() == 1 || trimmed(value).toString().toUcs4().size() == 1;
}

} // namespace

std::optional<Type> typeByName(const QString &name) {
    // Two names stand for one type each.
    if (name == QLatin1String("r8"))
        return Type::Float;
    const auto found = std::ranges::find(Names, name);
    if (found == Names.end())
        return {};
    return static_cast<Type>(found - Names.begin());
}

QString nameOf(Type type) {
    return Names[static_cast<std::size_t>(type)];
}

bool isValue(const Datatype &datatype, const QString &value) {
    const QStringView text = trimmed(value);
    switch (datatype.type) {
    case Type::String:
    case Type::Uri:
        return true;
    case Type::Enumeration:
        return datatype.values.contains(text);
    case Type::BinBase64:
        return base64Length(text).value_or(0) > 0;
    case Type::BinHex:
        return isHex(text);
    case Type::Boolean:
        return text == u"0" || text == u"1";
    case Type::Char:
        return isOneCharacter(value);
    case Type::Date:
    case Type::DateTime:
    case Type::DateTimeTz:
    case Type::Time:
    case Type::TimeTz:
        return isMoment(text, datatype.type);
    case Type::Uuid:
        return isUuid(text);
    default:
        return isNameOf(datatype.type, text) || isNumberOf(datatype.type, text);
    }
}

bool isLengthAllowed(const Datatype &datatype, const QString &value) {
    if (!datatype.minLength && !datatype.maxLength)
        return true;
    qint64 length = 0;
    if (datatype.type == Type::BinHex)
        length = trimmed(value).size() / 2;
    else if (datatype.type == Type::BinBase64)
        length = base64Length(value).value_or(0);
    else
        length = value.toUcs4().size();
    return length >= datatype.minLength.value_or(0) &&
           length <= datatype.maxLength.value_or(std::numeric_limits<qint64>::max());
}

} // namespace quillon::xdr
