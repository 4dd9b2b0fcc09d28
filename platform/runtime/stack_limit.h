#pragma once

namespace quillon::runtime {

/// Lets the main thread's stack grow as far as several hundred thousand nested levels need: some
/// libraries follow a document recursively. To be called where little of it is in use.
void raiseStackLimit();

} // namespace quillon::runtime
