#pragma once

#include "platform/xml/transform/xslt_handles.h"

#include <QByteArray>

namespace quillon::xml {

/// The text of a result in UTF-8, by the output method of the stylesheet and as transformNode()
/// describes it; adds the META element to the result. Raises Fail when it is longer than limit.
QByteArray serializeResult(xmlDoc &result, xsltStylesheet &stylesheet, qint64 limit);

} // namespace quillon::xml
