#pragma once

#include <QString>

#include <optional>

namespace quillon::xml {

/// What takes the place of an xsl:eval: an XPath expression, or else the format of an xsl:number.
struct WdScript {
    QString select;
    QString numberFormat;
};

/// Translates the script expressions that have an equivalent: the dialect's helper functions
/// formatIndex(), formatNumber(), childNumber(), absoluteChildNumber(), depth() and uniqueID() and
/// the properties nodeName, text and nodeTypedValue, all on `this`. Nothing for any other script.
std::optional<WdScript> translateWdScript(const QString &script);

} // namespace quillon::xml
