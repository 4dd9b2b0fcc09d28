#pragma once

namespace quillon::app {
class frmMain;
}

namespace quillon::bench {

class Table;

/// Measures searching and replacing in order records that are open in a window, and prints a line
/// for each.
void measureSearching(Table &table, app::frmMain &form);

} // namespace quillon::bench
