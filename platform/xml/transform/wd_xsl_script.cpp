#include "platform/xml/transform/wd_xsl_script.h"

#include <QHash>
#include <QRegularExpression>

namespace quillon::xml {

namespace {

/// An expression on `this`, without formatting.
QString plainExpression(const QString &script) {
    static const QHash<QString, QString> table = {
        {"this.nodeName", "name()"},
        {"this.text", "string()"},
        {"this.nodeTypedValue", "string()"},
        {"uniqueID(this)", "generate-id()"},
        {"absoluteChildNumber(this)", "count(preceding-sibling::node())+1"},
        {"depth(this)", "count(ancestor::node())"},
    };
    return table.value(script);
}

} // namespace

std::optional<WdScript> translateWdScript(const QString &script) {
    static const QRegularExpression formatIndex(
        QStringLiteral(R"(^formatIndex\(childNumber\(this\),["']([1aAiI]|0+1)["']\)$)"));
    static const QRegularExpression formatNumber(
        QStringLiteral(R"(^formatNumber\((this\.\w+),["']([#0,.%]+)["']\)$)"));
    QString compact = script.trimmed();
    while (compact.endsWith(u';'))
        compact.chop(1);
    static const QRegularExpression space(QStringLiteral("\\s+"));
    compact.remove(space);
    if (compact == u"childNumber(this)")
        return WdScript{QString(), QStringLiteral("1")};
    if (const auto match = formatIndex.match(compact); match.hasMatch())
        return WdScript{QString(), match.captured(1)};
    if (const auto match = formatNumber.match(compact); match.hasMatch()) {
        const QString value = plainExpression(match.captured(1));
        if (!value.isEmpty())
            return WdScript{
                QStringLiteral("format-number(number(%1),'%2')").arg(value, match.captured(2)),
                QString()};
    }
    const QString plain = plainExpression(compact);
    return plain.isEmpty() ? std::nullopt : std::optional(WdScript{plain, QString()});
}

} // namespace quillon::xml
