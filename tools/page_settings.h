#pragma once

#include "settings/settings_table.h"

#include <QPageLayout>

namespace quillon::tools {

/// Paper, orientation and margins as the settings have them; A4 where they name an unknown paper,
/// and narrower margins where they leave no room.
QPageLayout paperOf(const settings::Values &values);
void keepPaper(const QPageLayout &paper, settings::Values &values);

} // namespace quillon::tools
