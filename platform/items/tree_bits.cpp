#include "platform/items/tree_bits.h"

#include <numeric>

namespace quillon::items {

namespace {

constexpr size_t divideUp(size_t value, size_t by) {
    return (value + by - 1) / by;
}

} // namespace

void BitRow::grow(quint32 size) {
    if (size <= words_.size() * 64)
        return;
    // Whole blocks, so that rank() and select() meet no half one.
    blocks_.resize(divideUp(size, BitsPerBlock));
    words_.resize(blocks_.size() * WordsPerBlock);
    groups_.resize(divideUp(blocks_.size(), BlocksPerGroup));
}

void BitRow::set(quint32 position) {
    if (test(position))
        return;
    words_[position / 64] |= mask(position);
    ++blocks_[position / BitsPerBlock];
    ++groups_[position / (BitsPerBlock * BlocksPerGroup)];
    ++count_;
}

void BitRow::reset(quint32 position) {
    if (!test(position))
        return;
    words_[position / 64] &= ~mask(position);
    --blocks_[position / BitsPerBlock];
    --groups_[position / (BitsPerBlock * BlocksPerGroup)];
    --count_;
}

quint32 BitRow::rank(quint32 position) const {
    const quint32 block = position / BitsPerBlock;
    const quint32 group = block / BlocksPerGroup;
    quint32 result = std::accumulate(groups_.begin(), groups_.begin() + group, 0U);
    result =
        std::accumulate(blocks_.begin() + group * BlocksPerGroup, blocks_.begin() + block, result);
    const quint32 lastWord = position / 64;
    for (quint32 word = block * WordsPerBlock; word < lastWord; ++word)
        result += static_cast<quint32>(std::popcount(words_[word]));
    return result + static_cast<quint32>(std::popcount(words_[lastWord] & (mask(position) - 1)));
}

quint32 BitRow::select(quint32 n) const {
    quint32 group = 0;
    while (n >= groups_[group])
        n -= groups_[group++];
    quint32 block = group * BlocksPerGroup;
    while (n >= blocks_[block])
        n -= blocks_[block++];
    quint32 word = block * WordsPerBlock;
    for (;; ++word) {
        const auto inWord = static_cast<quint32>(std::popcount(words_[word]));
        if (n < inWord)
            break;
        n -= inWord;
    }
    quint64 rest = words_[word];
    for (; n > 0; --n)
        rest &= rest - 1;
    return word * 64 + static_cast<quint32>(std::countr_zero(rest));
}

} // namespace quillon::items
