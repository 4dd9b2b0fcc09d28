#pragma once

namespace quillon::app {
class frmMain;
}

namespace quillon::bench {

/// Measures the commands on a document that is open in a window, and prints a line for each.
void measureEditing(app::frmMain &form);

} // namespace quillon::bench
