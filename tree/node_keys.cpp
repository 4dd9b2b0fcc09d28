#include "tree/node_keys.h"

#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"

#include <limits>

namespace quillon::tree {

namespace {

/// Counts the keys of the whole process and is never reset.
qint32 g_lNodeSeq = 0;

} // namespace

QString NewNodeKey() {
    return QString::number(takeNodeSequences(1)) + QStringLiteral("Node");
}

quint32 takeNodeSequences(quint32 count) {
    if (count > quint32(std::numeric_limits<qint32>::max()))
        runtime::raise(runtime::error_number::Overflow);
    const qint32 last = runtime::checkedAdd32(g_lNodeSeq, qint32(count));
    const auto first = quint32(g_lNodeSeq) + 1;
    g_lNodeSeq = last;
    return first;
}

} // namespace quillon::tree
