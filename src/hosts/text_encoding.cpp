#include "hosts/text_encoding.h"

#include <algorithm>
#include <cstdlib>

namespace foliant::hosts {

namespace {

constexpr int western_european = 1252;

struct Language {
    std::string_view locale;  ///< the beginning of its name
    int code_page;
};

// The longer names first: which Chinese it is depends on the country.
constexpr Language languages[]{
    {"zh_TW", 950}, {"zh_HK", 950}, {"zh_MO", 950}, {"zh", 936},  {"ja", 932},  {"ko", 949},  {"th", 874},
    {"vi", 1258},   {"ar", 1256},   {"fa", 1256},   {"ur", 1256}, {"he", 1255}, {"yi", 1255}, {"tr", 1254},
    {"az", 1254},   {"el", 1253},   {"et", 1257},   {"lv", 1257}, {"lt", 1257}, {"ru", 1251}, {"uk", 1251},
    {"be", 1251},   {"bg", 1251},   {"mk", 1251},   {"kk", 1251}, {"ky", 1251}, {"mn", 1251}, {"tt", 1251},
    {"pl", 1250},   {"cs", 1250},   {"sk", 1250},   {"hu", 1250}, {"ro", 1250}, {"hr", 1250}, {"sl", 1250},
    {"sq", 1250},   {"bs", 1250},
};

/// Whether a locale's name begins with that language, or language and country, and does not go on in it.
bool is_of(std::string_view locale, std::string_view beginning) {
    if (!locale.starts_with(beginning)) return false;
    const std::string_view rest = locale.substr(beginning.size());
    return rest.empty() || std::string_view("_.@").find(rest.front()) != std::string_view::npos;
}

}  // namespace

int text_code_page(std::string_view locale) {
    if (is_of(locale, "sr")) return locale.ends_with("@latin") ? 1250 : 1251;
    const auto* const found = std::ranges::find_if(
        languages, [&](const Language& language) { return is_of(locale, language.locale); });
    return found == std::end(languages) ? western_european : found->code_page;
}

std::string_view character_locale() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* name = std::getenv(variable);
        if (name != nullptr && *name != '\0') return name;
    }
    return {};
}

bool is_utf8(std::string_view text, bool breaks_off) {
    std::size_t following = 0;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (following > 0) {
            if ((byte & 0xC0U) != 0x80U) return false;
            --following;
        } else if (byte >= 0xC2 && byte <= 0xF4) {
            following = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
        } else if (byte >= 0x80) {
            return false;
        }
    }
    return following == 0 || breaks_off;
}

}  // namespace foliant::hosts
