#pragma once

#include <QString>

namespace quillon::controls {

/// The family in which source text is shown: the one asked for where it is installed, else one that
/// has Japanese characters twice as wide as Western ones, else any with characters of one width.
QString installedFamily(const QString &family);

} // namespace quillon::controls
