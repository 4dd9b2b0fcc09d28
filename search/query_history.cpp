#include "search/query_history.h"

namespace quillon::search {

using settings::PathQueries;

QStringList QueryHistory::read() const {
    return PathQueries.read(store_);
}

void QueryHistory::add(const QString &query) const {
    // Other windows may have added some.
    PathQueries.change(store_, [&](QStringList &queries) {
        queries.removeAll(query);
        queries.append(query);
    });
}

} // namespace quillon::search
