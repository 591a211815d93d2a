#pragma once

#include <unistd.h>
#include <utility>

namespace foliant::posix {

/// Owns an open file descriptor, or none (-1).
class FileDescriptor {
  public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) noexcept : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor() { reset(); }

    explicit operator bool() const noexcept { return number_ >= 0; }
    int get() const noexcept { return number_; }
    /// Gives the descriptor away: the caller closes it.
    int release() noexcept { return std::exchange(number_, -1); }
    void reset() noexcept {
        if (number_ >= 0) ::close(std::exchange(number_, -1));
    }

  private:
    int number_ = -1;
};

}  // namespace foliant::posix
