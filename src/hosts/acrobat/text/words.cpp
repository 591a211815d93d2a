#include "hosts/acrobat/text/words.h"

#include <algorithm>
#include <ranges>
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

void append_utf8(std::string& text, std::u32string_view letters) {
    const auto other = std::ranges::find_if(letters, [](char32_t letter) { return letter >= 0x80; });
    text.append(letters.begin(), other);  // most words end here
    for (const char32_t letter : std::ranges::subrange(other, letters.end()))
        append_utf8(text, letter);
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
        found_.letters.reserve(page.letters.size() + 2 * page.runs.size());
        found_.ends.reserve(page.runs.size());
    }

    void add(std::size_t number) {
        const Run& run = page_.runs[number];
        if (within_ != nullptr) {
            const Rectangle place = page_.place(number, 0, run.length);
            place_ = has_word() ? around(place_, place) : place;
        }
        const bool is_broken = run.gap == Gap::broken_word;
        const std::uint32_t shown = run.length - (is_broken ? 1 : 0);
        append_utf8(found_.letters, std::u32string_view(page_.letters).substr(run.first, shown));
        was_broken_ = was_broken_ || is_broken;
        if (run.gap == Gap::line_end || (run.gap == Gap::blank && was_broken_))
            end_line();
        else if (run.gap == Gap::blank)
            end_word();
    }

    Words take() {
        if (has_word()) end_line();
        return std::move(found_);
    }

  private:
    bool has_word() const noexcept { return found_.letters.size() > word_; }

    void end_word() {
        if (within_ == nullptr || lies_in(place_, *within_)) {
            found_.letters += ' ';
            word_ = found_.letters.size();
            found_.ends.push_back(static_cast<std::uint32_t>(word_));
        } else {
            found_.letters.resize(word_);
        }
    }

    /// The line end takes the place of the blank behind the last word that counts.
    void end_line() {
        end_word();
        was_broken_ = false;
        if (found_.ends.size() == words_before_) return;
        found_.letters.replace(word_ - 1, 1, line_end);
        word_ = found_.letters.size();
        found_.ends.back() = static_cast<std::uint32_t>(word_);
        words_before_ = found_.ends.size();
    }

    const PageText& page_;
    const Rectangle* within_;
    Words found_;
    std::size_t words_before_ = 0;  ///< of earlier lines
    std::size_t word_ = 0;          ///< where the one begins that is being put together
    Rectangle place_;
    bool was_broken_ = false;
};

}  // namespace

Words words(const PageText& page, const Rectangle* within) {
    WordCollector collector(page, within);
    for (std::size_t run = 0; run < page.runs.size(); ++run)
        collector.add(run);
    return collector.take();
}

std::string utf8(std::u32string_view text) {
    std::string result;
    append_utf8(result, text);
    return result;
}

}  // namespace foliant::hosts::acrobat::text
