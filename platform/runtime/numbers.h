#pragma once

#include <QStringView>

namespace quillon::runtime {

/// The 16-bit integer that a text stands for: blanks around it, a sign, decimal digits with an
/// optional fraction and exponent. A fraction is rounded to the nearest integer, a half to the
/// even one. Raises TypeMismatch when the text is not a number (also when it is empty), Overflow
/// when the rounded number is outside -32768..32767.
qint16 toInteger(QStringView text);

/// The same number in 16 bits. Raises Overflow when it does not fit.
qint16 toInteger(qint64 number);

/// The sum in the width of its operands. Raises Overflow when it does not fit.
qint16 checkedAdd16(qint16 left, qint16 right);
qint32 checkedAdd32(qint32 left, qint32 right);

} // namespace quillon::runtime
