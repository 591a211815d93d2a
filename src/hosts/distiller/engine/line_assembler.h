#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace foliant::hosts::distiller::engine {

/// Puts the pieces of a text stream together to lines.
class LineAssembler {
  public:
    /// `on_line` is told every line without its end (LF, CR LF).
    explicit LineAssembler(std::function<void(std::string_view)> on_line) : on_line_(std::move(on_line)) {}

    void add(std::string_view piece);
    /// Passes on what came after the last line end.
    void finish();

  private:
    void pass_on();

    std::function<void(std::string_view)> on_line_;
    std::string line_;
};

}  // namespace foliant::hosts::distiller::engine
