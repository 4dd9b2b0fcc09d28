#pragma once

#include <QByteArray>
#include <QString>

namespace quillon::grammar {

/// Whether a text, in UTF-8, can be a RELAX NG schema in the compact syntax: it is no XML.
bool mayBeCompactRelaxNg(QByteArrayView text);

/// Such a schema in the XML syntax, in UTF-8, every pattern on the line on which it stands. Raises
/// Fail, with the line and the name of the file that is given, for what is none.
QByteArray relaxNgFromCompact(const QByteArray &text, const QString &fileName);

} // namespace quillon::grammar
