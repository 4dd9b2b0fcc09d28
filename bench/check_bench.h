#pragma once

#include <QString>

namespace quillon::app {
class frmMain;
}

namespace quillon::bench {

class Table;

/// A schema that order records keep to.
extern const char *const OrderXsd;

/// Measures the preview and the validations of the order records that are open in a window, the
/// latter side by side with libxml2 alone, and prints a line for each. `path` is the open file.
void measureChecking(Table &table, app::frmMain &form, const QString &path);

} // namespace quillon::bench
