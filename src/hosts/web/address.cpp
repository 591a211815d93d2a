#include "hosts/web/address.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
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

int value_of(char digit) {
    if (std::isdigit(static_cast<unsigned char>(digit)) != 0) return digit - '0';
    return std::tolower(static_cast<unsigned char>(digit)) - 'a' + 10;
}

/// With the bytes that were written out as what they are.
std::string unescaped(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto is_digit = [&](std::size_t at) {
            return at < text.size() && std::isxdigit(static_cast<unsigned char>(text[at])) != 0;
        };
        if (text[i] == '%' && is_digit(i + 1) && is_digit(i + 2)) {
            bytes += static_cast<char>(value_of(text[i + 1]) * 16 + value_of(text[i + 2]));
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

bool is_below(const std::filesystem::path& path, const std::filesystem::path& folder) {
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

}  // namespace

std::vector<std::filesystem::path> files_of(const std::string& address) {
    constexpr std::size_t scheme_length = 7;  // of "file://"
    if (scheme_of(address) != "file") return {};
    const std::size_t begin = address.find('/', scheme_length);  // behind the name of a machine
    if (begin == std::string::npos) return {};
    const std::string path =
        unescaped(std::string_view(address).substr(begin, address.find_first_of("?#", begin) - begin));
    std::error_code ignored;
    const std::filesystem::path file = std::filesystem::weakly_canonical(path, ignored);
    if (file.empty()) return {};
    const std::filesystem::path folder = file.parent_path();
    const char* const home = std::getenv("HOME");
    if (home != nullptr && !is_below(std::filesystem::weakly_canonical(home, ignored), folder))
        return {file, folder};
    return {file, folder / (file.stem().string() + "_files")};
}

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
