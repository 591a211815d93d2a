#include "hosts/acrobat/text/words.h"

#include <string_view>
#include <utility>

namespace foliant::hosts::acrobat::text {
namespace {

void append_utf8(std::string& text, char32_t letter) {
    constexpr char32_t replacement = 0xFFFD;
    if (letter > 0x10FFFF || (letter >= 0xD800 && letter <= 0xDFFF)) letter = replacement;
    const auto continuation = [&](unsigned shift) {
        text += static_cast<char>(0x80U | ((letter >> shift) & 0x3FU));
    };
    if (letter < 0x80) {
        text += static_cast<char>(letter);
    } else if (letter < 0x800) {
        text += static_cast<char>(0xC0U | (letter >> 6U));
        continuation(0);
    } else if (letter < 0x10000) {
        text += static_cast<char>(0xE0U | (letter >> 12U));
        continuation(6);
        continuation(0);
    } else {
        text += static_cast<char>(0xF0U | (letter >> 18U));
        continuation(12);
        continuation(6);
        continuation(0);
    }
}

constexpr std::string_view line_end = "\r\n";

bool lies_in(const Rectangle& word, const Rectangle& within) {
    const double x = (word.left + word.right) / 2;
    const double y = (word.bottom + word.top) / 2;
    return x >= within.left && x <= within.right && y >= within.bottom && y <= within.top;
}

/// Puts words together from runs of letters.
class WordCollector {
  public:
    WordCollector(const PageText& page, const Rectangle* within) : page_(page), within_(within) {
        found_.reserve(page.runs.size());
    }

    void add(std::size_t number) {
        const Run& run = page_.runs[number];
        if (within_ != nullptr) {
            const Rectangle place = page_.place(number, 0, run.length);
            place_ = word_.empty() ? place : around(place_, place);
        }
        const bool is_broken = run.gap == Gap::broken_word;
        const std::uint32_t shown = run.length - (is_broken ? 1 : 0);
        for (std::uint32_t i = 0; i < shown; ++i)
            append_utf8(word_, page_.letters[run.first + i]);
        was_broken_ = was_broken_ || is_broken;
        if (run.gap == Gap::line_end || (run.gap == Gap::blank && was_broken_))
            end_line();
        else if (run.gap == Gap::blank)
            end_word();
    }

    std::vector<std::string> take() {
        if (!word_.empty()) end_line();
        return std::move(found_);
    }

  private:
    void end_word() {
        if (within_ == nullptr || lies_in(place_, *within_)) found_.push_back(word_ + ' ');
        word_.clear();
    }

    /// The line end takes the place of the blank behind the last word that counts.
    void end_line() {
        end_word();
        was_broken_ = false;
        if (found_.size() == words_before_) return;
        found_.back().replace(found_.back().size() - 1, 1, line_end);
        words_before_ = found_.size();
    }

    const PageText& page_;
    const Rectangle* within_;
    std::vector<std::string> found_;
    std::size_t words_before_ = 0;  ///< of earlier lines
    std::string word_;              ///< so far
    Rectangle place_;
    bool was_broken_ = false;
};

}  // namespace

std::vector<std::string> words(const PageText& page, const Rectangle* within) {
    WordCollector collector(page, within);
    for (std::size_t run = 0; run < page.runs.size(); ++run)
        collector.add(run);
    return collector.take();
}

std::string utf8(std::u32string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char32_t letter : text)
        append_utf8(result, letter);
    return result;
}

}  // namespace foliant::hosts::acrobat::text
