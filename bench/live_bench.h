#pragma once

namespace quillon::app {
class frmMain;
} // namespace quillon::app

namespace quillon::bench {

class Table;

/// What is marked while a document of order records is edited, and what that costs.
void measureLive(Table &table, app::frmMain &form);

} // namespace quillon::bench
