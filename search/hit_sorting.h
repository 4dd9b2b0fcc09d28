#pragma once

#include "platform/runtime/progress.h"
#include "search/hit_rows.h"

#include <functional>
#include <vector>

namespace quillon::search {

/// The places of all hits of a list in an order; equal ones in the order of the list. Empty for
/// the order of the list itself. `nodeAt` gives the node of the hit at a place. Raises Cancelled
/// when the progress function says so.
std::vector<quint32> sortedHits(const Hits &list,
                                const std::function<xml::Node(std::size_t)> &nodeAt,
                                const HitRowReader &reader, HitOrder by, Qt::SortOrder direction,
                                const runtime::Progress &progress);

} // namespace quillon::search
