#include "hosts/acrobat/splice/information.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <ctime>
#include <string_view>
#include <utility>

#include "hosts/acrobat/splice/strings.h"
#include "hosts/acrobat/splice/xmp.h"

namespace foliant::hosts::acrobat::splice {

using glance::require;
using glance::Value;

namespace {

constexpr std::array<std::string_view, 8> properties{"Title",   "Author",   "Subject",      "Keywords",
                                                     "Creator", "Producer", "CreationDate", "ModDate"};

void append_utf8(std::string& text, std::uint32_t letter) {
    const auto tail = [&](unsigned shift) { text += static_cast<char>(0x80U | ((letter >> shift) & 0x3FU)); };
    if (letter < 0x80) {
        text += static_cast<char>(letter);
    } else if (letter < 0x800) {
        text += static_cast<char>(0xC0U | letter >> 6U);
        tail(0);
    } else if (letter < 0x10000) {
        text += static_cast<char>(0xE0U | letter >> 12U);
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0U | letter >> 18U);
        tail(12);
        tail(6);
        tail(0);
    }
}

/// From UTF-16, the high byte first.
std::string utf8(std::string_view bytes) {
    require(bytes.size() % 2 == 0);
    std::string text;
    const auto unit = [&](std::size_t at) -> std::uint32_t {
        return static_cast<unsigned char>(bytes[at]) * 256U + static_cast<unsigned char>(bytes[at + 1]);
    };
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        std::uint32_t letter = unit(at);
        require(letter < 0xDC00 || letter > 0xDFFF);
        if (letter >= 0xD800 && letter < 0xDC00) {
            at += 2;
            require(at < bytes.size() && unit(at) >= 0xDC00 && unit(at) <= 0xDFFF);
            letter = 0x10000 + ((letter - 0xD800) << 10U) + (unit(at) - 0xDC00);
        }
        append_utf8(text, letter);
    }
    return text;
}

bool is_ascii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return (c >= ' ' && c <= '~') || c == '\n' || c == '\t'; });
}

}  // namespace

std::string date_now() {
    const std::time_t seconds = std::time(nullptr);
    std::tm time{};
    ::gmtime_r(&seconds, &time);
    char text[32];
    std::strftime(text, sizeof text, "D:%Y%m%d%H%M%SZ", &time);
    return text;
}

std::string text_of(const Value& string) {
    require(string.kind == glance::Kind::other);
    std::string bytes = string_bytes(string.text);
    if (bytes.starts_with("\xFE\xFF")) return utf8(std::string_view(bytes).substr(2));
    require(is_ascii(bytes));
    return bytes;
}

Information Information::of_new_document() {
    Information information;
    const std::string time = date_now();
    information.entries_ = {{"/Producer", "(Foliant)"}, {"/CreationDate", "(" + time + ")"}};
    information.properties_ = {{"Producer", "Foliant"}, {"CreationDate", time}};
    return information;
}

void Information::add(const std::string& key, std::string text, const Value& value) {
    entries_[key] = std::move(text);
    const std::string name = key.substr(1);
    if (name == "ModDate" || std::find(properties.begin(), properties.end(), name) == properties.end())
        return;
    if (std::string said = text_of(value); !said.empty()) properties_[name] = std::move(said);
}

Information::Written Information::written() const {
    auto entries = entries_;
    auto said = properties_;
    const std::string time = date_now();
    entries["/ModDate"] = "(" + time + ")";
    said["ModDate"] = time;
    Written written{"<< ", with_properties(packet_, said)};
    for (const auto& [key, text] : entries)
        written.dictionary.append(key).append(" ").append(text).append(" ");
    written.dictionary += ">>";
    return written;
}

}  // namespace foliant::hosts::acrobat::splice
