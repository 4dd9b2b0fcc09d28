#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quillon::xdr {

/// The data types of the language.
enum class Type : quint8 {
    String,
    Id,
    Idref,
    Idrefs,
    Nmtoken,
    Nmtokens,
    Entity,
    Entities,
    Notation,
    Enumeration,
    BinBase64,
    BinHex,
    Boolean,
    Char,
    Date,
    DateTime,
    DateTimeTz,
    Time,
    TimeTz,
    Fixed14_4,
    Float,
    Number,
    R4,
    Int,
    I1,
    I2,
    I4,
    I8,
    Ui1,
    Ui2,
    Ui4,
    Ui8,
    Uri,
    Uuid,
};

/// The type with a name as schemas write it, e.g. "dateTime.tz"; nothing for any other text.
std::optional<Type> typeByName(const QString &name);
/// The name of a type.
QString nameOf(Type type);

/// A type with what limits its values.
struct Datatype {
    Type type = Type::String;
    /// The values of an enumeration.
    QStringList values = {};
    /// In characters, for the two binary types in bytes.
    std::optional<qint64> minLength = {};
    std::optional<qint64> maxLength = {};
};

/// The value has the lexical form of the type and is in its range. White space around it does not
/// count. That a name is declared or unique in a document is not looked at.
bool isValue(const Datatype &datatype, const QString &value);
/// The length of the value is within the limits of the type.
bool isLengthAllowed(const Datatype &datatype, const QString &value);

} // namespace quillon::xdr
