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

}  // namespace

std::vector<std::string> words(const PageText& page) {
    std::vector<std::string> found;
    found.reserve(page.runs.size());
    std::string word;
    bool was_broken = false;
    const auto finish = [&](std::string_view behind) {
        word += behind;
        found.push_back(std::exchange(word, {}));
        was_broken = false;
    };
    for (const Run& run : page.runs) {
        const std::uint32_t shown = run.length - (run.gap == Gap::broken_word ? 1 : 0);
        for (std::uint32_t i = 0; i < shown; ++i)
            append_utf8(word, page.letters[run.first + i]);
        if (run.gap == Gap::broken_word)
            was_broken = true;
        else if (run.gap == Gap::line_end || (run.gap == Gap::blank && was_broken))
            finish(line_end);
        else if (run.gap == Gap::blank)
            finish(" ");
    }
    if (!word.empty()) finish(line_end);
    return found;
}

std::string utf8(std::u32string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char32_t letter : text)
        append_utf8(result, letter);
    return result;
}

}  // namespace foliant::hosts::acrobat::text
