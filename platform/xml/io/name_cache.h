#pragma once

#include "platform/xml/io/character_scan.h"
#include "platform/xml/storage/name_table.h"

#include <array>
#include <bit>

namespace quillon::xml {

/// The numbers of names that were looked up lately. The names stand in the text, which stays.
class NameCache {
public:
    NameCache(NameTable &names, const char *textEnd) : names_(names), textEnd_(textEnd) {}

    std::uint32_t number(const char *name, std::uint32_t length) {
        Entry wanted{beginning(name, length), 0, name, length, 0};
        if (length > 8)
            wanted.last = scan::eightBytes(name + length - 8);
        const std::uint64_t hash =
            (wanted.first ^ (std::rotl(wanted.last, 7))) * 0x9E37'79B9'7F4A'7C15;
        Entry &entry = entries_[hash >> (64 - IndexBits)];
        if (entry.first != wanted.first || entry.last != wanted.last || entry.length != length ||
            (length > 16 && std::memcmp(entry.name, name, length) != 0)) {
            wanted.number = names_.intern({name, length});
            entry = wanted;
        }
        return entry.number;
    }

private:
    struct Entry {
        /// The first and the last eight bytes; zeros behind a name that has fewer.
        std::uint64_t first = 0;
        std::uint64_t last = 0;
        const char *name = nullptr;
        std::uint32_t length = 0;
        std::uint32_t number = 0;
    };
    static constexpr int IndexBits = 8;

    std::uint64_t beginning(const char *name, std::uint32_t length) const {
        if (textEnd_ - name >= 8) {
            const std::uint64_t bytes = scan::eightBytes(name);
            return length >= 8 ? bytes : bytes & ((std::uint64_t(1) << (8 * length)) - 1);
        }
        char bytes[8] = {};
        std::memcpy(bytes, name, length);
        return scan::eightBytes(bytes);
    }

    NameTable &names_;
    const char *textEnd_;
    std::array<Entry, 1 << IndexBits> entries_;
};

} // namespace quillon::xml
