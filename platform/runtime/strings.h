#pragma once

#include <QByteArrayView>
#include <QString>

namespace quillon::runtime {

/// The text of UTF-8. Every character counts, also a U+FEFF at the start, which QString takes for a
/// byte order mark and leaves out.
QString fromUtf8(QByteArrayView utf8);
/// Every LF becomes CR LF, also one that already follows a CR.
QString LFtoCRLF(QString text);
/// Every CR LF becomes LF; a CR that stands alone stays.
QString CRLFtoLF(QString text);

// Positions are 1-based and count UTF-16 code units. The views returned look into text.

/// The position of the first occurrence of sought, exactly as written; 0 when there is none, and
/// in an empty text always.
qsizetype instr(QStringView text, QStringView sought);
/// The first length characters, or all when there are fewer. Raises InvalidProcedureCall for a
/// negative length.
QStringView left(QStringView text, qsizetype length);
/// What stands from position start on; empty beyond the end. Raises InvalidProcedureCall for a
/// start below 1.
QStringView mid(QStringView text, qsizetype start);
/// As above, but at most length characters. Raises InvalidProcedureCall for a negative length.
QStringView mid(QStringView text, qsizetype start, qsizetype length);

} // namespace quillon::runtime
