#pragma once

#include <guiddef.h>
#include <string_view>

namespace foliant::platform::win32 {

/// A class identifier from its text, "{" and "}" included. A text that is none does not compile.
consteval CLSID class_identifier(std::string_view text) {
    // Where each byte of the identifier stands in the text, as two digits.
    constexpr std::size_t places[]{1, 3, 5, 7, 10, 12, 15, 17, 20, 22, 25, 27, 29, 31, 33, 35};
    if (text.size() != 38 || text[9] != '-' || text[14] != '-' || text[19] != '-' || text[24] != '-')
        throw "not a class identifier";
    unsigned char bytes[16]{};
    for (std::size_t i = 0; i < 16; ++i) {
        for (const char digit : text.substr(places[i], 2)) {
            const bool is_number = digit >= '0' && digit <= '9';
            if (!is_number && (digit < 'A' || digit > 'F')) throw "not a hexadecimal digit";
            bytes[i] =
                static_cast<unsigned char>(bytes[i] * 16 + (is_number ? digit - '0' : digit - 'A' + 10));
        }
    }
    const auto number = [&](std::size_t begin, std::size_t count) {
        unsigned long value = 0;
        for (std::size_t i = begin; i < begin + count; ++i)
            value = value * 256 + bytes[i];
        return value;
    };
    CLSID id{number(0, 4),
             static_cast<unsigned short>(number(4, 2)),
             static_cast<unsigned short>(number(6, 2)),
             {}};
    for (std::size_t i = 0; i < 8; ++i)
        id.Data4[i] = bytes[8 + i];
    return id;
}

}  // namespace foliant::platform::win32
