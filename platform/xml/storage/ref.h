#pragma once

#include <cstdint>
#include <utility>

namespace quillon::xml {

/// Base of what Ref counts. The count is not atomic: documents belong to one thread.
class RefCounted {
public:
    RefCounted() = default;
    RefCounted(const RefCounted &) {}
    RefCounted &operator=(const RefCounted &) { return *this; }

    void retain() const { ++count_; }
    /// True when the last reference has gone.
    bool release() const { return --count_ == 0; }
    bool isShared() const { return count_ > 1; }

private:
    mutable std::uint32_t count_ = 0;
};

/// Owning pointer to a RefCounted object: one machine word, as cheap as a plain increment.
template <typename T>
class Ref {
public:
    Ref() = default;
    explicit Ref(T *object) : object_(object) {
        if (object_)
            object_->retain();
    }
    Ref(const Ref &other) : Ref(other.object_) {}
    Ref(Ref &&other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ref &operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() {
        if (object_ && object_->release())
            delete object_;
    }

    T *get() const { return object_; }
    T *operator->() const { return object_; }
    T &operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }
    bool operator==(const Ref &other) const { return object_ == other.object_; }

private:
    T *object_ = nullptr;
};

/// What a handle knows of the storage behind a document.
class ArenaBase : public RefCounted {
public:
    virtual ~ArenaBase() = default;
};

} // namespace quillon::xml
