#include "tree/node_registry.h"

namespace quillon::tree {

void NodeRegistry::reset(const xml::DOMDocument40 &document, quint32 firstSequence) {
    document_ = document;
    firstSequence_ = firstSequence;
    numbers_ = {};
}

void NodeRegistry::setNumber(quint32 sequence, quint32 number) {
    const std::size_t at = sequence - firstSequence_;
    if (at >= numbers_.size())
        numbers_.resize(at + 1);
    numbers_[at] = number;
}

void NodeRegistry::Remove(quint32 sequence) {
    if (sequence - firstSequence_ < numbers_.size())
        numbers_[sequence - firstSequence_] = 0;
}

quint32 NodeRegistry::number(quint32 sequence) const {
    const std::size_t at = sequence - firstSequence_;
    return at < numbers_.size() ? numbers_[at] : 0;
}

xml::Node NodeRegistry::Item(quint32 sequence) const {
    const quint32 n = number(sequence);
    return n == 0 ? xml::Node() : document_.nodeByNumber(n);
}

} // namespace quillon::tree
