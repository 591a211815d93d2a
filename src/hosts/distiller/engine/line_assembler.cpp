#include "hosts/distiller/engine/line_assembler.h"

namespace foliant::hosts::distiller::engine {
namespace {

constexpr std::size_t longest_line = 4096;  // a document may print without ever ending a line

}  // namespace

void LineAssembler::add(std::string_view piece) {
    for (const char c : piece) {
        if (c == '\n' || line_.size() == longest_line) pass_on();
        if (c != '\n') line_ += c;
    }
}

void LineAssembler::finish() {
    if (!line_.empty()) pass_on();
}

void LineAssembler::pass_on() {
    std::string_view line = line_;
    if (line.ends_with('\r')) line.remove_suffix(1);
    on_line_(line);
    line_.clear();
}

}  // namespace foliant::hosts::distiller::engine
