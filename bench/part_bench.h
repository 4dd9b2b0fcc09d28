#pragma once

#include <QString>

namespace quillon::bench {

class Table;

/// Opens a file step by step, as the program does, and prints a line for each: its time, the memory
/// that it keeps, and what it needs only meanwhile. To be called in a process that has nothing but
/// its application object. False when one of them could not be done; its line and those behind it
/// are missing then.
bool measureParts(Table &table, const QString &path);

} // namespace quillon::bench
