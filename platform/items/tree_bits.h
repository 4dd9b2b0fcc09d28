#pragma once

#include <QtGlobal>

#include <algorithm>
#include <bit>
#include <vector>

namespace quillon::items {

/// A growing row of bits that knows how many are set before any place, where the n-th set one is,
/// and which are set, without looking at them one by one. All positions are 0-based.
class BitRow {
public:
    /// Makes room for positions below size; the new bits are not set.
    void grow(quint32 size);

    bool test(quint32 position) const { return (words_[position / 64] & mask(position)) != 0; }
    void set(quint32 position);
    void reset(quint32 position);
    /// The same where the row may end ahead of the position: what it does not have is not set.
    bool testIfAny(quint32 position) const {
        return position / 64 < words_.size() && test(position);
    }
    void resetIfAny(quint32 position) {
        if (testIfAny(position))
            reset(position);
    }

    /// How many bits are set.
    quint32 count() const { return count_; }
    /// How many bits are set before position.
    quint32 rank(quint32 position) const;
    /// The position of the set bit that has n set ones before it; n is less than count().
    quint32 select(quint32 n) const;

    /// Calls f(position) for every set bit in ascending order. f must not set or reset any.
    template <typename F>
    void forEach(F &&f) const {
        for (quint32 group = 0; group < groups_.size(); ++group) {
            if (groups_[group] == 0)
                continue;
            constexpr quint32 WordsPerGroup = WordsPerBlock * BlocksPerGroup;
            const auto end = std::min<std::size_t>((group + 1) * WordsPerGroup, words_.size());
            for (quint32 word = group * WordsPerGroup; word < end; ++word) {
                for (quint64 rest = words_[word]; rest != 0; rest &= rest - 1)
                    f(word * 64 + static_cast<quint32>(std::countr_zero(rest)));
            }
        }
    }

private:
    // Set bits are counted per block of words and per group of blocks, so that rank() and select()
    // read a few hundred numbers at most for millions of bits.
    static constexpr quint32 WordsPerBlock = 8;
    static constexpr quint32 BitsPerBlock = 64 * WordsPerBlock;
    static constexpr quint32 BlocksPerGroup = 64;

    static constexpr quint64 mask(quint32 position) { return quint64{1} << (position % 64); }

    std::vector<quint64> words_;
    std::vector<quint32> blocks_;
    std::vector<quint32> groups_;
    quint32 count_ = 0;
};

} // namespace quillon::items
