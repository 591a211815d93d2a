#include "hosts/office/engine/system_paper.h"

#include <algorithm>
#include <cctype>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <langinfo.h>
#include <string>

namespace foliant::hosts::office {

namespace {

/// The first word that is no comment, in lower case.
std::string named_in(const char* file) {
    std::ifstream lines(file);
    for (std::string word; lines >> word; std::getline(lines, word)) {
        if (word.front() == '#') continue;
        std::ranges::transform(word, word.begin(), [](unsigned char c) { return std::tolower(c); });
        return word;
    }
    return {};
}

std::string named_paper() {
    const char* variable = std::getenv("PAPERSIZE");
    return variable != nullptr ? variable : named_in("/etc/papersize");
}

/// The width in millimetres.
std::intptr_t usual_width() {
    const locale_t locale = ::newlocale(LC_PAPER_MASK, "", nullptr);
    if (locale == nullptr) return 0;
    // The library returns a number in the place of a text.
    const auto width = reinterpret_cast<std::intptr_t>(::nl_langinfo_l(_NL_PAPER_WIDTH, locale)) & 0xFFFF;
    ::freelocale(locale);
    return width;
}

}  // namespace

Paper paper_of_locale() {
    constexpr std::intptr_t letter_width = 216;
    return usual_width() == letter_width ? Paper::letter : Paper::a4;
}

Paper system_paper() {
    const std::string name = named_paper();
    if (name.empty()) return paper_of_locale();
    return name == "letter" ? Paper::letter : Paper::a4;
}

}  // namespace foliant::hosts::office
