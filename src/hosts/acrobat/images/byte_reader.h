#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace foliant::hosts::acrobat::images {

/// Numbers in bytes, by position. Beyond the end there are zeroes.
class ByteReader {
  public:
    enum class Order { big_endian, little_endian };

    ByteReader(std::string_view bytes, Order order) : bytes_(bytes), order_(order) {}

    std::size_t size() const noexcept { return bytes_.size(); }
    std::uint8_t byte(std::size_t position) const noexcept {
        return position < bytes_.size() ? static_cast<std::uint8_t>(bytes_[position]) : std::uint8_t{0};
    }
    std::uint16_t word(std::size_t position) const noexcept {
        return static_cast<std::uint16_t>(number(position, 2));
    }
    std::uint32_t dword(std::size_t position) const noexcept { return number(position, 4); }
    std::int32_t signed_dword(std::size_t position) const noexcept {
        return static_cast<std::int32_t>(dword(position));
    }
    /// What is there of `length` bytes; may be less, or nothing.
    std::string_view slice(std::size_t position, std::size_t length) const noexcept {
        return position < bytes_.size() ? bytes_.substr(position, length) : std::string_view();
    }

  private:
    std::uint32_t number(std::size_t position, std::size_t length) const noexcept {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < length; ++i)
            value =
                value << 8U | byte(order_ == Order::big_endian ? position + i : position + length - 1 - i);
        return value;
    }

    std::string_view bytes_;
    Order order_;
};

}  // namespace foliant::hosts::acrobat::images
