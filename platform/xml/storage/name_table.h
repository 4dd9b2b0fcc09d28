#pragma once

#include "platform/xml/storage/ref.h"

#include <QString>

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::xml {

/// The qualified names of a document and of its copies, each stored once. Grows only.
class NameTable final : public RefCounted {
public:
    NameTable();

    /// The number of a name; the same for the same name.
    std::uint32_t intern(std::string_view utf8);
    /// The number of a name that is there already, or 0.
    std::uint32_t find(std::string_view utf8) const;
    /// The numbers of the names are below this one. 0 is the empty name.
    std::uint32_t size() const { return static_cast<std::uint32_t>(entries_.size()); }
    std::string_view utf8(std::uint32_t name) const { return entries_[name].utf8; }
    const QString &string(std::uint32_t name) const;

private:
    struct Entry {
        std::string utf8;
        mutable QString string;
    };

    std::size_t slotOf(std::string_view utf8) const;
    void grow();

    std::deque<Entry> entries_;
    std::vector<std::uint32_t> hashes_;
    /// Open addressing, a power of two in size; 0 marks a free slot (name 0 is the empty name).
    std::vector<std::uint32_t> slots_;
};

} // namespace quillon::xml
