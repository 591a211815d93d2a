#include "hosts/acrobat/text/uri.h"

#include <algorithm>
#include <glib.h>
#include <memory>

#include "hosts/acrobat/text/words.h"

namespace foliant::hosts::acrobat::text {
namespace {

bool is_ascii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

std::string percent_encoded(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string result;
    for (const char byte : text) {
        if (static_cast<signed char>(byte) > ' ' && byte != '\x7f') {
            result += byte;
            continue;
        }
        const auto value = static_cast<unsigned char>(byte);
        result += '%';
        result += digits[value >> 4U];
        result += digits[value & 0xFU];
    }
    return result;
}

}  // namespace

std::string uri(std::u32string_view address) {
    const std::string text = utf8(address);
    const std::size_t scheme = text.find("://");
    if (is_ascii(text) || scheme == std::string::npos) return percent_encoded(text);

    const std::size_t host = scheme + 3;
    const std::size_t path = std::min(text.find_first_of("/?#:", host), text.size());
    const std::unique_ptr<gchar, decltype(&g_free)> name(
        g_hostname_to_ascii(text.substr(host, path - host).c_str()), g_free);
    if (!name) return {};
    return text.substr(0, host) + name.get() + percent_encoded(std::string_view(text).substr(path));
}

}  // namespace foliant::hosts::acrobat::text
