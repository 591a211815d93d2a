#include "hosts/distiller/postscript_string.h"

namespace foliant::hosts::distiller {

std::string postscript_string(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "<";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text + ">";
}

}  // namespace foliant::hosts::distiller
