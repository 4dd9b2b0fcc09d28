#pragma once

#include "resources/translation.h"

#include <QString>

#include <optional>
#include <span>

namespace quillon::xml {

/// What a library has said, in Japanese; nothing when no pattern of the table fits.
std::optional<QString> translated(const QString &said,
                                  std::span<const resources::Translation> table);

} // namespace quillon::xml
