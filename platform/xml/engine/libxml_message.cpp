#include "platform/xml/engine/libxml_message.h"

#include <QRegularExpression>

namespace quillon::xml {

std::optional<QString> translated(const QString &said,
                                  std::span<const resources::Translation> table) {
    for (const resources::Translation &known : table) {
        // What a message quotes may have several lines.
        const QRegularExpression pattern(
            QRegularExpression::anchoredPattern(known.pattern.toString()),
            QRegularExpression::DotMatchesEverythingOption);
        const QRegularExpressionMatch match = pattern.match(said);
        if (!match.hasMatch())
            continue;
        const QString text = known.text.toString();
        // All at once, so that what a group holds is not taken for the place of another.
        switch (pattern.captureCount()) {
        case 0:
            return text;
        case 1:
            return text.arg(match.captured(1));
        case 2:
            return text.arg(match.captured(1), match.captured(2));
        default:
            return text.arg(match.captured(1), match.captured(2), match.captured(3));
        }
    }
    return std::nullopt;
}

} // namespace quillon::xml
