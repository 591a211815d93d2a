#include "hosts/pages/paper.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace foliant::hosts::pages {

namespace {

constexpr Paper letter{612, 792};
constexpr Paper a4{595.276, 841.89};

constexpr std::array<std::string_view, 14> letter_countries{"BZ", "CA", "CL", "CO", "CR", "GT", "MX",
                                                            "NI", "PA", "PH", "PR", "SV", "US", "VE"};

std::string_view paper_locale() {
    for (const char* variable : {"LC_ALL", "LC_PAPER", "LANG"}) {
        const char* name = std::getenv(variable);
        if (name != nullptr && *name != '\0') return name;
    }
    return {};
}

}  // namespace

Paper usual_paper(std::string_view locale) {
    const std::size_t before = locale.find('_');
    if (before == std::string_view::npos) return letter;
    const std::string_view rest = locale.substr(before + 1);
    const std::string_view country = rest.substr(0, rest.find_first_of(".@"));
    return std::ranges::find(letter_countries, country) == letter_countries.end() ? a4 : letter;
}

Paper usual_paper() {
    return usual_paper(paper_locale());
}

}  // namespace foliant::hosts::pages
