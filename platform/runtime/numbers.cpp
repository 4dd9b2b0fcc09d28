#include "platform/runtime/numbers.h"

#include "platform/runtime/error.h"

#include <QRegularExpression>
#include <QString>

#include <cmath>
#include <limits>

namespace quillon::runtime {

namespace {

template <typename Narrow>
Narrow narrow(qint64 number) {
    using Limits = std::numeric_limits<Narrow>;
    if (number < Limits::min() || number > Limits::max())
        raise(error_number::Overflow);
    return static_cast<Narrow>(number);
}

} // namespace

qint16 toInteger(QStringView text) {
    static const QRegularExpression decimal(QStringLiteral(
        R"(\A[ \t]*([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?)[ \t]*\z)"));
    const QRegularExpressionMatch match = decimal.match(text.toString());
    if (!match.hasMatch())
        raise(error_number::TypeMismatch);
    // What is too large for a double comes out as infinity and what is too small as zero: the
    // conversion's own verdict adds nothing.
    const double rounded = std::nearbyint(match.capturedView(1).toDouble());
    using Limits = std::numeric_limits<qint16>;
    if (rounded < Limits::min() || rounded > Limits::max())
        raise(error_number::Overflow);
    return static_cast<qint16>(rounded);
}

qint16 toInteger(qint64 number) {
    return narrow<qint16>(number);
}

qint16 checkedAdd16(qint16 left, qint16 right) {
    return narrow<qint16>(qint64{left} + right);
}

qint32 checkedAdd32(qint32 left, qint32 right) {
    return narrow<qint32>(qint64{left} + right);
}

} // namespace quillon::runtime
