#include "platform/xml/storage/name_table.h"

#include <functional>

namespace quillon::xml {

namespace {

std::uint32_t hashOf(std::string_view text) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>{}(text));
}

} // namespace

NameTable::NameTable() : entries_(1), hashes_(1), slots_(256) {}

std::size_t NameTable::slotOf(std::string_view utf8) const {
    const std::uint32_t hash = hashOf(utf8);
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = hash & mask;
    while (slots_[slot] != 0 &&
           (hashes_[slots_[slot]] != hash || entries_[slots_[slot]].utf8 != utf8))
        slot = (slot + 1) & mask;
    return slot;
}

std::uint32_t NameTable::find(std::string_view utf8) const {
    return slots_[slotOf(utf8)];
}

std::uint32_t NameTable::intern(std::string_view utf8) {
    if (utf8.empty())
        return 0;
    std::size_t slot = slotOf(utf8);
    if (slots_[slot] != 0)
        return slots_[slot];
    if (2 * entries_.size() >= slots_.size()) {
        grow();
        slot = slotOf(utf8);
    }
    slots_[slot] = static_cast<std::uint32_t>(entries_.size());
    entries_.push_back({std::string(utf8), QString()});
    hashes_.push_back(hashOf(utf8));
    return slots_[slot];
}

void NameTable::grow() {
    slots_.assign(slots_.size() * 2, 0);
    const std::size_t mask = slots_.size() - 1;
    for (std::uint32_t name = 1; name < entries_.size(); ++name) {
        std::size_t slot = hashes_[name] & mask;
        while (slots_[slot] != 0)
            slot = (slot + 1) & mask;
        slots_[slot] = name;
    }
}

const QString &NameTable::string(std::uint32_t name) const {
    const Entry &entry = entries_[name];
    if (entry.string.isNull())
        entry.string = QString::fromUtf8(entry.utf8.data(), qsizetype(entry.utf8.size()));
    return entry.string;
}

} // namespace quillon::xml
