#include "platform/xml/query/known_names.h"

#include "platform/xml/dom/handle_access.h"

#include <algorithm>

namespace quillon::xml {

QStringList namesStartingWith(const DOMDocument40 &document, QStringView start, qsizetype most) {
    constexpr std::uint32_t MostLookedAt = 20'000;
    QStringList found;
    if (!document)
        return found;
    const NameTable &names = *HandleAccess::arena(document).names;
    for (std::uint32_t n = 1; n < std::min(names.size(), MostLookedAt); ++n) {
        const QString &name = names.string(n);
        if (name.startsWith(start, Qt::CaseInsensitive) && !name.startsWith(u"xmlns"))
            found.append(name);
    }
    found.sort();
    return found.first(std::min(found.size(), most));
}

} // namespace quillon::xml
