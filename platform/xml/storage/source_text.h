#pragma once

#include "platform/xml/storage/ref.h"

#include <QtGlobal>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::xml {

/// The most bytes that a file to be loaded may have.
inline constexpr qint64 MaxFileSize = std::numeric_limits<int>::max();

/// A stretch of source text whose bytes in the file are not the ones our encoder would write for
/// it, because the encoding has several forms for a character or for the way to it.
struct OriginalBytes {
    std::uint32_t start;
    std::uint32_t end;
    std::string bytes;
    /// The escape sequences that lead from the encoding's initial state to where the bytes start.
    std::string lead;
};

/// The text a document, or a part of one, was parsed from: UTF-8, never changed. Nodes point into
/// it for as long as they stand as they were read.
struct SourceText final : RefCounted {
    std::string utf8;
    /// The text came from a file and keeps that file's line ends. Otherwise every line end is an
    /// LF and is written as the saving document's own.
    bool keepsLineEnds = false;
    bool hasCarriageReturn = false;
    /// The codec the text was decoded with; empty when it was not.
    std::string codec;
    /// Ascending, not overlapping.
    std::vector<OriginalBytes> originals;

    std::string_view slice(std::uint32_t start, std::uint32_t end) const {
        return std::string_view(utf8).substr(start, end - start);
    }
};

/// A stretch of a value made here that still stands in its node's source: where in the value, and
/// where in the source.
struct KeptStretch {
    std::uint32_t at;
    std::uint32_t length;
    std::uint32_t start;
    std::uint32_t end;
};

/// A text made here: the value of a changed node, or the layout of an inserted one.
struct OwnText final : RefCounted {
    explicit OwnText(std::string text, std::vector<KeptStretch> keptStretches)
        : utf8(std::move(text)), kept(std::move(keptStretches)) {}
    const std::string utf8;
    /// For a value that was changed in places: what is written as it was read. Ascending, not
    /// overlapping.
    const std::vector<KeptStretch> kept;
};

} // namespace quillon::xml
