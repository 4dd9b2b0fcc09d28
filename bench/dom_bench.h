#pragma once

#include <string>

namespace quillon::bench {

class Table;

/// Measures the DOM on one file, side by side with the bare parser and another library's tree.
/// `limited`: the figures have limits for this kind of file.
void measureDom(Table &table, const std::string &path, bool limited);

} // namespace quillon::bench
