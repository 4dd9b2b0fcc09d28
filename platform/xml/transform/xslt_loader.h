#pragma once

#include "platform/xml/transform/xslt_handles.h"

#include <QByteArray>
#include <QStringList>

namespace quillon::xml {

class XsltLog;

/// The URL against which names are resolved that are relative to a folder; for an empty path one
/// that leads nowhere.
QByteArray folderUrl(const QString &folder);

/// Makes libxml2 and libxslt of this process read only what stands in these folders, links
/// followed, and write nothing. A name that is relative to one of the folders and not there is
/// looked up in the others. Reports to log, which must outlive every use of the libraries.
void restrictToFolders(const QStringList &folders, XsltLog &log);

/// Parses a stylesheet, in UTF-8, and prepares it for libxslt (xslt_stylesheet.h); null with the
/// reason in the log when that fails. restrictToFolders() comes first. Entities are expanded as far
/// as the parser finds their size reasonable; nothing external is read.
XmlDocument parseStylesheet(const QByteArray &text, const QByteArray &url, XsltLog &log);

/// document(), but also for names with characters that may not stand in a URL.
void documentFunction(xmlXPathParserContextPtr context, int count);

} // namespace quillon::xml
