#include "hosts/office/word/text_lines.h"

#include <cstddef>

namespace foliant::hosts::office {

namespace {

// Longer paragraphs cost time again.
constexpr int most_lines = 16;
constexpr std::size_t most_bytes = 1200;

class LineJoiner {
  public:
    LineJoiner(std::string_view text, LineForm form)
        : text_(text), form_(form), width_(form.unit == LineForm::Unit::byte ? 1 : 2) {
        joined_.reserve(text.size());
    }

    std::string join() {
        std::size_t paragraph = 0;
        copy_line();
        for (int lines = 1; place_ < text_.size(); ++lines) {
            // A form feed ends a paragraph by itself, which must not have an empty line left.
            const bool ends_paragraph =
                lines == most_lines || joined_.size() - paragraph >= most_bytes || is_at(place_, '\f');
            append(ends_paragraph ? '\r' : '\n');
            if (ends_paragraph) {
                lines = 0;
                paragraph = joined_.size();
            }
            copy_line();
        }
        return std::move(joined_);
    }

  private:
    /// Whether that character, one of ASCII, is there.
    bool is_at(std::size_t place, char character) const {
        if (place + width_ > text_.size()) return false;
        switch (form_.unit) {
            case LineForm::Unit::byte:
                return text_[place] == character;
            case LineForm::Unit::utf16_little_endian:
                return text_[place] == character && text_[place + 1] == '\0';
            case LineForm::Unit::utf16_big_endian:
                break;
        }
        return text_[place] == '\0' && text_[place + 1] == character;
    }

    /// Copies what is left of the line, and goes behind its end.
    void copy_line() {
        for (; place_ < text_.size() && !is_at(place_, form_.end); place_ += width_)
            if (!is_at(place_, '\r')) joined_ += text_.substr(place_, width_);
        place_ += width_;
    }

    void append(char character) {
        if (form_.unit == LineForm::Unit::utf16_big_endian) joined_ += '\0';
        joined_ += character;
        if (form_.unit == LineForm::Unit::utf16_little_endian) joined_ += '\0';
    }

    std::string_view text_;
    LineForm form_;
    std::size_t width_;
    std::size_t place_ = 0;
    std::string joined_;
};

}  // namespace

std::string with_lines_joined(std::string_view text, LineForm form) {
    return LineJoiner(text, form).join();
}

}  // namespace foliant::hosts::office
