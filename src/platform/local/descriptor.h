#pragma once

#include <unistd.h>
#include <utility>

namespace foliant::platform::local {

/// An open file descriptor, closed with its owner; below 0 when there is none.
class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) noexcept : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }

    int get() const noexcept { return number_; }
    explicit operator bool() const noexcept { return number_ >= 0; }
    /// Gives the descriptor away; the caller closes it.
    int release() noexcept { return std::exchange(number_, -1); }

  private:
    int number_ = -1;
};

}  // namespace foliant::platform::local
