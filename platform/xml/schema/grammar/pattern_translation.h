#pragma once

#include <QRegularExpression>
#include <QString>

#include <optional>

namespace quillon::grammar {

/// A pattern of XML Schema as a regular expression that a whole value has to match; nothing for one
/// that is wrong, or that cannot be put so. Matching takes a bounded number of steps: beyond them
/// the match is not valid, which is no answer.
std::optional<QRegularExpression> translatedPattern(QStringView pattern);

} // namespace quillon::grammar
