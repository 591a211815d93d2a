#include "hosts/process/wire.h"

#include <cstring>
#include <utility>

namespace foliant::hosts::process {

Writer& Writer::put(std::string_view text) {
    put(static_cast<std::uint32_t>(text.size()));
    bytes_.append(text);
    return *this;
}

Writer& Writer::put(const Writer& other) {
    bytes_ += other.bytes_;
    return *this;
}

Writer& Writer::attach(posix::FileDescriptor file) {
    files_.push_back(std::move(file));
    return *this;
}

void Reader::take(void* target, std::size_t size) {
    if (bytes_.size() - position_ < size) throw Garbled();
    std::memcpy(target, bytes_.data() + position_, size);
    position_ += size;
}

bool Reader::truth() {
    const auto value = number<std::uint8_t>();
    if (value > 1) throw Garbled();
    return value == 1;
}

std::uint32_t Reader::count() {
    const auto value = number<std::uint32_t>();
    if (bytes_.size() - position_ < value) throw Garbled();
    return value;
}

std::string Reader::text() {
    std::string value(count(), '\0');
    take(value.data(), value.size());
    return value;
}

posix::FileDescriptor Reader::descriptor() {
    if (next_descriptor_ >= descriptors_.size()) throw Garbled();
    return std::move(descriptors_[next_descriptor_++]);
}

}  // namespace foliant::hosts::process
