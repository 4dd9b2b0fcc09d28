#include "platform/runtime/strings.h"

#include "platform/runtime/error.h"

#include <algorithm>

namespace quillon::runtime {

QString LFtoCRLF(QString text) {
    return text.replace(u'\n', QLatin1String("\r\n"));
}

QString fromUtf8(QByteArrayView utf8) {
    QString text = QString::fromUtf8(utf8);
    if (utf8.startsWith("\xEF\xBB\xBF"))
        text.prepend(QChar(QChar::ByteOrderMark));
    return text;
}

QString CRLFtoLF(QString text) {
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

qsizetype instr(QStringView text, QStringView sought) {
    return text.isEmpty() ? 0 : text.indexOf(sought) + 1;
}

QStringView left(QStringView text, qsizetype length) {
    if (length < 0)
        raise(error_number::InvalidProcedureCall);
    return text.first(std::min(length, text.size()));
}

QStringView mid(QStringView text, qsizetype start) {
    if (start < 1)
        raise(error_number::InvalidProcedureCall);
    return text.sliced(std::min(start - 1, text.size()));
}

QStringView mid(QStringView text, qsizetype start, qsizetype length) {
    return left(mid(text, start), length);
}

} // namespace quillon::runtime
