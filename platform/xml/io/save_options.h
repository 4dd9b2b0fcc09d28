#pragma once

#include <functional>
#include <string_view>

namespace quillon::xml {

/// What a save does with a file whose owner may not write it.
enum class ReadOnlyFile { Keep, Replace };

/// How a file is written.
struct SaveOptions {
    ReadOnlyFile readOnly = ReadOnlyFile::Keep;
    /// A file that is made is for its owner alone.
    bool ownerOnly = false;
    /// Called with the bytes to be written before a file is overwritten in its place, as the only
    /// way to write it: it is to put them where they survive a crash half-way, or to raise. Empty:
    /// no file is written in this way.
    std::function<void(std::string_view)> beforeOverwriting = {};
};

} // namespace quillon::xml
