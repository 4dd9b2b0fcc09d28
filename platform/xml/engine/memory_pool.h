#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillon::xml {

/// Memory for millions of small things that go all at once.
class MemoryPool {
public:
    MemoryPool() = default;
    ~MemoryPool();
    MemoryPool(const MemoryPool &) = delete;
    MemoryPool &operator=(const MemoryPool &) = delete;

    /// Room for so many bytes. `alignment` is a power of two, and no more than 16.
    void *allocate(std::size_t size, std::size_t alignment) {
        const std::uintptr_t start = (next_ + alignment - 1) & ~(alignment - 1);
        if (start + size > end_)
            return allocateInNewBlock(size);
        next_ = start + size;
        return reinterpret_cast<void *>(start);
    }

private:
    struct Block {
        void *start;
        std::size_t size;
    };

    void *allocateInNewBlock(std::size_t size);

    std::uintptr_t next_ = 0;
    std::uintptr_t end_ = 0;
    std::vector<Block> blocks_;
};

} // namespace quillon::xml
