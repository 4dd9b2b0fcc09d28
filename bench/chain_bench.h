#pragma once

#include "bench/report.h"

namespace quillon::app {
class frmMain;
}

namespace quillon::bench {

/// Measures edits at the end of a chain of nested elements that is open: what one keystroke takes,
/// and the longest that the window then keeps the user waiting while everything follows that goes
/// by the document: undo history, marks, candidates, preview, backup.
void measureChain(Table &table, app::frmMain &form);

} // namespace quillon::bench
