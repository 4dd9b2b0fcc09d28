#pragma once

#include <QByteArray>

#include <libxml/tree.h>

namespace quillon::xml {

class XsltLog;

/// URL syntax for a name that may hold any characters; what is a URL already stays as it is.
QByteArray escapedReference(const xmlChar *reference);

/// Makes of a parsed stylesheet, or a part of one, what libxslt understands: the names of what it
/// includes become proper URLs, and expressions, patterns and attribute value templates are put as
/// XPathExpression::forLibxml2() puts them. False, with the failure in the log, for a stylesheet
/// with a script or with an instruction that XSLT 1.0 does not know and for which it gives neither
/// a fallback nor a later version.
bool prepareStylesheet(xmlDocPtr stylesheet, const QByteArray &url, XsltLog &log);

} // namespace quillon::xml
