#pragma once

#include <ole2.h>
#include <utility>

namespace foliant::platform::win32 {

/// Owns one reference to a COM object.
template <class Interface>
class ComPointer {
  public:
    ComPointer() = default;
    /// Takes over a reference that the caller owns.
    static ComPointer adopt(Interface* owned) noexcept { return ComPointer(owned); }
    /// Adds a reference to one that stays the caller's.
    static ComPointer share(Interface* borrowed) noexcept {
        if (borrowed != nullptr) borrowed->AddRef();
        return ComPointer(borrowed);
    }
    ComPointer(const ComPointer& other) noexcept : ComPointer(share(other.pointer_)) {}
    ComPointer(ComPointer&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPointer& operator=(ComPointer other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPointer() { reset(); }

    /// Lets go of the reference; the pointer is empty before the object hears of it.
    void reset() noexcept {
        if (Interface* held = std::exchange(pointer_, nullptr)) held->Release();
    }
    Interface* get() const noexcept { return pointer_; }
    Interface* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }
    /// Hands the reference to the caller.
    Interface* release() noexcept { return std::exchange(pointer_, nullptr); }

    /// Where a function puts a reference that it gives away; lets go of the former one.
    Interface** put() noexcept {
        reset();
        return &pointer_;
    }
    void** put_void() noexcept { return reinterpret_cast<void**>(put()); }

    /// The object's other interface; empty when it has none of that kind.
    template <class Other>
    ComPointer<Other> as(const IID& id) const noexcept {
        ComPointer<Other> other;
        if (pointer_ != nullptr) pointer_->QueryInterface(id, other.put_void());
        return other;
    }

  private:
    explicit ComPointer(Interface* owned) noexcept : pointer_(owned) {}

    Interface* pointer_ = nullptr;
};

}  // namespace foliant::platform::win32
