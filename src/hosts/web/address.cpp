#include "hosts/web/address.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <string_view>

#include "hosts/web/capture_error.h"

namespace foliant::hosts::web {
namespace {

/// The bytes of a path that mean something else in an address are written out.
std::string escaped(const std::string& path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const char byte : path) {
        const auto code = static_cast<unsigned char>(byte);
        const bool is_plain =
            std::isalnum(code) != 0 || std::string_view("/-._~").find(byte) != std::string::npos;
        if (is_plain)
            text += byte;
        else
            (text += '%') += {digits[code / 16], digits[code % 16]};
    }
    return text;
}

std::string scheme_of(const std::string& address) {
    const std::size_t end = address.find("://");
    std::string scheme = end == std::string::npos ? "" : address.substr(0, end);
    std::ranges::transform(scheme, scheme.begin(), [](unsigned char letter) { return std::tolower(letter); });
    return scheme;
}

}  // namespace

std::string full_address(const std::string& typed) {
    constexpr std::array<std::string_view, 3> known{"http", "https", "file"};
    const std::size_t first = typed.find_first_not_of(" \t");
    if (first == std::string::npos) throw CaptureError("there is no address");
    std::string address = typed.substr(first, typed.find_last_not_of(" \t") + 1 - first);
    const std::string scheme = scheme_of(address);
    if (std::ranges::find(known, scheme) != known.end()) return address;
    if (!scheme.empty())
        throw CaptureError("only http, https and file addresses are captured, not " + scheme);
    const std::filesystem::path path = address;
    if (std::error_code ignored; path.is_absolute() || std::filesystem::exists(path, ignored))
        return "file://" + escaped(std::filesystem::absolute(path).string());
    // A word before a colon is a scheme (mailto:, data:) unless a port follows it.
    const std::size_t colon = address.find(':');
    const bool has_port = colon != std::string::npos && colon + 1 < address.size() &&
                          std::isdigit(static_cast<unsigned char>(address[colon + 1])) != 0;
    if (colon < address.find('/') && !has_port)
        throw CaptureError("only http, https and file addresses are captured, not " +
                           address.substr(0, colon));
    return "http://" + address;
}

}  // namespace foliant::hosts::web
