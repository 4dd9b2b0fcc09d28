#pragma once

#include <QString>

namespace quillon::tree {

/// A key that no tree item of this run of the program has had: a number counted up by one,
/// followed by "Node". Raises Overflow past 2147483647.
QString NewNodeKey();

/// The numbers of as many such keys, one after the other; returns the first. Raises Overflow as
/// NewNodeKey() does, and then takes none.
quint32 takeNodeSequences(quint32 count);

} // namespace quillon::tree
