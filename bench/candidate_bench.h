#pragma once

namespace quillon::app {
class frmMain;
} // namespace quillon::app

namespace quillon::bench {

class Table;

/// What may stand at a node, and its panel, with a schema of 1 MB.
void measureCandidates(Table &table, app::frmMain &form);

} // namespace quillon::bench
