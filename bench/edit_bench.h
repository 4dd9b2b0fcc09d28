#pragma once

#include <QString>

namespace quillon::app {
class frmMain;
}

namespace quillon::bench {

class Table;

/// Measures the commands on a document that is open in a window, and prints a line for each. What
/// is saved goes beside its file, `path`.
void measureEditing(Table &table, app::frmMain &form, const QString &path);

} // namespace quillon::bench
