#include "platform/xml/engine/memory_pool.h"

#include <algorithm>
#include <new>
#include <sys/mman.h>

namespace quillon::xml {

namespace {

constexpr std::size_t SmallestBlock = 16 * 1024;
constexpr std::size_t LargestBlock = 4 * 1024 * 1024;

} // namespace

MemoryPool::~MemoryPool() {
    for (const Block &block : blocks_)
        ::munmap(block.start, block.size);
}

void *MemoryPool::allocateInNewBlock(std::size_t size) {
    const std::size_t usual =
        blocks_.empty() ? SmallestBlock : std::min(2 * blocks_.back().size, LargestBlock);
    const std::size_t whole =
        std::max(usual, (size + SmallestBlock - 1) / SmallestBlock * SmallestBlock);
    blocks_.reserve(blocks_.size() + 1);
    // All pages at once take the system less time than one by one, when each is first written to.
    void *start = ::mmap(nullptr, whole, PROT_READ | PROT_WRITE,
                         MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
    if (start == MAP_FAILED)
        throw std::bad_alloc();
    blocks_.push_back({start, whole});
    next_ = reinterpret_cast<std::uintptr_t>(start) + size;
    end_ = reinterpret_cast<std::uintptr_t>(start) + whole;
    return start;
}

} // namespace quillon::xml
