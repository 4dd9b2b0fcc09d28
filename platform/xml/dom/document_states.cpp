#include "platform/xml/dom/document_states.h"

#include "platform/xml/dom/handle_access.h"

namespace quillon::xml {

bool haveCommonOrigin(const DOMDocument40 &one, const DOMDocument40 &other) {
    if (!one || !other)
        return false;
    // Copies share the table of names, and it is made anew for all other content.
    return HandleAccess::arena(one).names == HandleAccess::arena(other).names;
}

bool isSurelyUnchanged(const DOMDocument40 &one, const DOMDocument40 &other, quint32 number) {
    const Arena &first = HandleAccess::arena(one);
    const Arena &second = HandleAccess::arena(other);
    // Copies share what neither has changed.
    return first.isAlive(number) && second.isAlive(number) &&
           &first.record(number) == &second.record(number);
}

StandingNodes::StandingNodes(const DOMDocument40 &document) : document_(document) {
    if (document_)
        known_.resize(HandleAccess::arena(document_).slotCount());
}

bool StandingNodes::contains(quint32 number) {
    if (!document_)
        return false;
    const Arena &arena = HandleAccess::arena(document_);
    const Number top = arena.documentNumber();
    const auto known = [&](Number n) -> Known & { return known_[n - top]; };
    if (!arena.isAlive(number))
        return false;
    known(top) = Known::Standing;
    Number above = number;
    while (above != 0 && known(above) == Known::Nothing)
        above = arena.record(above).parent;
    const Known found = above == 0 ? Known::Gone : known(above);
    for (Number n = number; n != above; n = arena.record(n).parent)
        known(n) = found;
    return found == Known::Standing;
}

} // namespace quillon::xml
