#include "hosts/office/word/text_encoding.h"

#include <algorithm>
#include <cstdlib>

namespace foliant::hosts::office {

namespace {

struct Encoding {
    std::string_view locale;  ///< the beginning of its name
    std::string_view name;
};

// The longer names first: which Chinese it is depends on the country.
constexpr Encoding encodings[]{
    {"zh_TW", "MS_950"}, {"zh_HK", "MS_950"}, {"zh_MO", "MS_950"}, {"zh", "MS_936"},  {"ja", "MS_932"},
    {"ko", "MS_949"},    {"th", "MS_874"},    {"vi", "MS_1258"},   {"ar", "MS_1256"}, {"fa", "MS_1256"},
    {"ur", "MS_1256"},   {"he", "MS_1255"},   {"yi", "MS_1255"},   {"tr", "MS_1254"}, {"az", "MS_1254"},
    {"el", "MS_1253"},   {"et", "MS_1257"},   {"lv", "MS_1257"},   {"lt", "MS_1257"}, {"ru", "MS_1251"},
    {"uk", "MS_1251"},   {"be", "MS_1251"},   {"bg", "MS_1251"},   {"mk", "MS_1251"}, {"kk", "MS_1251"},
    {"ky", "MS_1251"},   {"mn", "MS_1251"},   {"tt", "MS_1251"},   {"pl", "MS_1250"}, {"cs", "MS_1250"},
    {"sk", "MS_1250"},   {"hu", "MS_1250"},   {"ro", "MS_1250"},   {"hr", "MS_1250"}, {"sl", "MS_1250"},
    {"sq", "MS_1250"},   {"bs", "MS_1250"},
};

/// Whether a locale's name begins with that language, or language and country, and does not go on in it.
bool is_of(std::string_view locale, std::string_view beginning) {
    if (!locale.starts_with(beginning)) return false;
    const std::string_view rest = locale.substr(beginning.size());
    return rest.empty() || std::string_view("_.@").find(rest.front()) != std::string_view::npos;
}

}  // namespace

std::string_view text_encoding(std::string_view locale) {
    if (is_of(locale, "sr")) return locale.ends_with("@latin") ? "MS_1250" : "MS_1251";
    const auto* const found = std::ranges::find_if(
        encodings, [&](const Encoding& encoding) { return is_of(locale, encoding.locale); });
    return found == std::end(encodings) ? "ANSI" : found->name;
}

std::string_view character_locale() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* name = std::getenv(variable);
        if (name != nullptr && *name != '\0') return name;
    }
    return {};
}

}  // namespace foliant::hosts::office
