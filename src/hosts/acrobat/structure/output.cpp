#include "hosts/acrobat/structure/output.h"

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
        pass_on(bytes);
    else
        piece_ += bytes;
}

void Output::finish() {
    pass_on(piece_);
    piece_.clear();
}

void Output::pass_on(std::string_view bytes) noexcept {
    if (failure_) return;
    try {
        file_.write(bytes);
    } catch (...) {
        failure_ = std::current_exception();
    }
}

void Output::require_success() const {
    if (failure_) std::rethrow_exception(failure_);
}

}  // namespace foliant::hosts::acrobat::structure
