#include "hosts/acrobat/structure/output.h"

#include <string_view>

namespace foliant::hosts::acrobat::structure {

namespace {

constexpr std::size_t piece_size = std::size_t{1} << 20U;

}  // namespace

Output::Output(OutputFile& file) : Pipeline("output", nullptr), file_(file) {
    piece_.reserve(piece_size);
}

void Output::write(unsigned char const* data, std::size_t size) {
    touched_ = true;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (piece_.size() + size > piece_size) finish();
    if (size > piece_size)
        file_.write(bytes);
    else
        piece_ += bytes;
}

void Output::finish() {
    file_.write(piece_);
    piece_.clear();
}

}  // namespace foliant::hosts::acrobat::structure
