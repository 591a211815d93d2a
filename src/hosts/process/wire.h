#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "posix/file_descriptor.h"

namespace foliant::hosts::process {

/// What the other side sent is no message: it is out of order, or somebody else speaks for it now.
struct Garbled : std::runtime_error {
    Garbled() : std::runtime_error("it sent what is no message") {}
};

/// A message in the making: numbers as the machine has them (both sides are one program), texts with their
/// length in front, open files beside them.
class Writer {
  public:
    template <typename Number>
    requires std::is_arithmetic_v<Number> || std::is_enum_v<Number> Writer& put(Number number) {
        bytes_.append(reinterpret_cast<const char*>(&number), sizeof number);
        return *this;
    }
    Writer& put(std::string_view text);
    /// The numbers and texts of another message.
    Writer& put(const Writer& other);
    Writer& attach(posix::FileDescriptor file);

    const std::string& bytes() const noexcept { return bytes_; }
    const std::vector<posix::FileDescriptor>& files() const noexcept { return files_; }

  private:
    std::string bytes_;
    std::vector<posix::FileDescriptor> files_;
};

/// A message that arrived, read in the order in which it was written. It may come from somebody hostile:
/// everything throws Garbled where the message does not have what is asked for.
class Reader {
  public:
    Reader() = default;
    Reader(std::string bytes, std::vector<posix::FileDescriptor> descriptors)
        : bytes_(std::move(bytes)), descriptors_(std::move(descriptors)) {}

    template <typename Number>
    requires std::is_arithmetic_v<Number> Number number() {
        Number value;
        take(&value, sizeof value);
        return value;
    }
    bool truth();
    std::string text();
    /// A number of things that follow, each of which takes a byte at least.
    std::uint32_t count();
    posix::FileDescriptor descriptor();

  private:
    void take(void* target, std::size_t size);

    std::string bytes_;
    std::vector<posix::FileDescriptor> descriptors_;
    std::size_t position_ = 0;
    std::size_t next_descriptor_ = 0;
};

}  // namespace foliant::hosts::process
