#pragma once

namespace quillon::app {
class frmMain;
} // namespace quillon::app

namespace quillon::bench {

class Table;

/// The list of hits and its panel, with up to a million rows.
void measureHits(Table &table, app::frmMain &form);

} // namespace quillon::bench
