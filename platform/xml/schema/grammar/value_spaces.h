#pragma once

#include <QString>

#include <optional>

/// The values of the types that XML Schema has built in, as texts whose white space has been dealt
/// with. A type is given by its name, e.g. "integer".
namespace quillon::grammar {

/// The characters of names in XML, as the inside of a class in a regular expression.
inline constexpr QStringView NameStartCharacters =
    u":A-Z_a-z\\x{C0}-\\x{D6}\\x{D8}-\\x{F6}\\x{F8}-\\x{2FF}\\x{370}-\\x{37D}\\x{37F}-\\x{1FFF}"
    u"\\x{200C}\\x{200D}\\x{2070}-\\x{218F}\\x{2C00}-\\x{2FEF}\\x{3001}-\\x{D7FF}"
    u"\\x{F900}-\\x{FDCF}\\x{FDF0}-\\x{FFFD}\\x{10000}-\\x{EFFFF}";
/// Those that names may have besides these, from the second one on.
inline constexpr QStringView FurtherNameCharacters =
    u"\\-.0-9\\x{B7}\\x{300}-\\x{36F}\\x{203F}\\x{2040}";

/// A text is a value of a type; nothing for a type that is not known here.
std::optional<bool> isValueOf(QStringView type, const QString &text);

/// Less than 0, 0 or greater than 0, as two values of a type come before, are the same or come
/// after one another; nothing where that cannot be told, or they do not compare.
std::optional<int> compared(QStringView type, const QString &a, const QString &b);

/// Two values of a type are the same value, e.g. "1" and "true".
bool areSame(QStringView type, const QString &a, const QString &b);

/// How long a value is in what the length of its type counts: bytes for the two binary ones, else
/// characters.
qsizetype lengthOf(QStringView type, const QString &text);

/// The digits of a decimal number, and those behind its point, without zeros that say nothing.
struct DigitCount {
    qsizetype total = 0;
    qsizetype fraction = 0;
};
DigitCount digitsOf(const QString &number);

} // namespace quillon::grammar
