#include "platform/runtime/common_stretches.h"

#include <algorithm>

namespace quillon::runtime {

namespace {

constexpr std::string_view PieceEnds = "\n>";
using Pieces = std::vector<std::string_view>;

/// So many pieces may have come or gone; what is kept for finding the way back grows with the
/// square of it.
constexpr int MostDifferences = 4096;

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The length of the beginning that two texts have in common, in whole characters.
std::size_t commonBeginning(std::string_view before, std::string_view after) {
    const auto [end, other] = std::ranges::mismatch(before, after);
    auto length = std::size_t(end - before.begin());
    const auto isWithinCharacter = [&](std::string_view text) {
        return length < text.size() && continuesCharacter(text[length]);
    };
    while (length > 0 && (isWithinCharacter(before) || isWithinCharacter(after)))
        --length;
    return length;
}

/// The same of the end.
std::size_t commonEnd(std::string_view before, std::string_view after) {
    const auto [end, other] =
        std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend());
    auto length = std::size_t(end - before.rbegin());
    while (length > 0 && continuesCharacter(before[before.size() - length]))
        --length;
    return length;
}

Pieces piecesOf(std::string_view text) {
    Pieces pieces;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find_first_of(PieceEnds, at);
        const std::size_t next = end == text.npos ? text.size() : end + 1;
        pieces.push_back(text.substr(at, next - at));
        at = next;
    }
    return pieces;
}

/// How far one gets with each number of differences: the place in the pieces before, by the
/// difference between it and that in the pieces after. One row for each number.
class FarthestPlaces {
public:
    FarthestPlaces(const Pieces &before, const Pieces &after)
        : before_(before), after_(after), beforeSize_(int(before.size())),
          afterSize_(int(after.size())) {}

    /// The pairs of equal pieces on the way with the fewest differences, in order; empty where that
    /// has too many.
    std::vector<std::pair<int, int>> pairs() {
        for (int count = 0; count <= MostDifferences; ++count) {
            if (takeStep(count))
                return wayBack(count);
        }
        return {};
    }

private:
    int at(int count, int diagonal) const {
        return rows_[std::size_t(count)][std::size_t((diagonal + count) / 2)];
    }
    /// Whether a place is best reached by passing over a piece that has come, and not over one that
    /// has gone.
    bool comesFromAbove(int count, int diagonal) const {
        return diagonal == -count ||
               (diagonal != count && at(count - 1, diagonal - 1) < at(count - 1, diagonal + 1));
    }
    /// Where a diagonal is entered with a number of differences.
    int entry(int count, int diagonal) const {
        if (count == 0)
            return 0;
        return comesFromAbove(count, diagonal) ? at(count - 1, diagonal + 1)
                                               : at(count - 1, diagonal - 1) + 1;
    }
    /// True when the end of both is reached.
    bool takeStep(int count) {
        std::vector<int> row;
        row.reserve(std::size_t(count) + 1);
        bool isAtEnd = false;
        for (int diagonal = -count; diagonal <= count && !isAtEnd; diagonal += 2) {
            int x = entry(count, diagonal);
            while (x < beforeSize_ && x - diagonal < afterSize_ && x - diagonal >= 0 &&
                   before_[std::size_t(x)] == after_[std::size_t(x - diagonal)])
                ++x;
            row.push_back(x);
            isAtEnd = x >= beforeSize_ && x - diagonal >= afterSize_;
        }
        // The rest of the row is never asked for.
        row.resize(std::size_t(count) + 1);
        rows_.push_back(std::move(row));
        return isAtEnd;
    }
    std::vector<std::pair<int, int>> wayBack(int count) const {
        std::vector<std::pair<int, int>> pairs;
        int x = beforeSize_;
        int diagonal = beforeSize_ - afterSize_;
        for (;; --count) {
            for (const int start = entry(count, diagonal); x > start; --x)
                pairs.emplace_back(x - 1, x - 1 - diagonal);
            if (count == 0)
                break;
            const bool isFromAbove = comesFromAbove(count, diagonal);
            diagonal += isFromAbove ? 1 : -1;
            x = at(count - 1, diagonal);
        }
        std::ranges::reverse(pairs);
        return pairs;
    }

    const Pieces &before_;
    const Pieces &after_;
    int beforeSize_;
    int afterSize_;
    std::vector<std::vector<int>> rows_;
};

/// Puts stretches together, and between them what differing pieces have in common at their ends.
class StretchList {
public:
    StretchList(std::string_view before, std::string_view after) : before_(before), after_(after) {}

    void add(std::size_t before, std::size_t after, std::size_t length) {
        const std::string_view gone = before_.substr(beforeEnd_, before - beforeEnd_);
        const std::string_view come = after_.substr(afterEnd_, after - afterEnd_);
        const std::size_t beginning = commonBeginning(gone, come);
        const std::size_t end = commonEnd(gone.substr(beginning), come.substr(beginning));
        append(beforeEnd_, afterEnd_, beginning);
        append(before - end, after - end, end + length);
        beforeEnd_ = before + length;
        afterEnd_ = after + length;
    }
    std::vector<CommonStretch> take() {
        add(before_.size(), after_.size(), 0);
        return std::move(stretches_);
    }

private:
    void append(std::size_t before, std::size_t after, std::size_t length) {
        if (length == 0)
            return;
        CommonStretch *const last = stretches_.empty() ? nullptr : &stretches_.back();
        if (last && last->before + last->length == before && last->after + last->length == after)
            last->length += length;
        else
            stretches_.push_back({before, after, length});
    }

    std::string_view before_;
    std::string_view after_;
    std::size_t beforeEnd_ = 0;
    std::size_t afterEnd_ = 0;
    std::vector<CommonStretch> stretches_;
};

} // namespace

std::vector<CommonStretch> commonStretches(std::string_view before, std::string_view after) {
    // Cut between pieces, so that those of both texts begin alike.
    std::size_t beginning = commonBeginning(before, after);
    const std::size_t cut = before.substr(0, beginning).find_last_of(PieceEnds);
    beginning = cut == before.npos ? 0 : cut + 1;
    std::size_t end = commonEnd(before.substr(beginning), after.substr(beginning));
    const std::size_t later = before.find_first_of(PieceEnds, before.size() - end);
    end = later == before.npos ? 0 : before.size() - later - 1;
    const std::string_view gone = before.substr(beginning, before.size() - beginning - end);
    const std::string_view come = after.substr(beginning, after.size() - beginning - end);
    StretchList list(before, after);
    list.add(0, 0, beginning);
    if (!gone.empty() && !come.empty()) {
        const Pieces piecesBefore = piecesOf(gone);
        const Pieces piecesAfter = piecesOf(come);
        for (const auto &[x, y] : FarthestPlaces(piecesBefore, piecesAfter).pairs()) {
            const std::string_view piece = piecesBefore[std::size_t(x)];
            list.add(std::size_t(piece.data() - before.data()),
                     std::size_t(piecesAfter[std::size_t(y)].data() - after.data()), piece.size());
        }
    }
    list.add(before.size() - end, after.size() - end, end);
    return list.take();
}

} // namespace quillon::runtime
