#include "hosts/acrobat/unknown_content.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "automation/text.h"

namespace foliant::hosts::acrobat {

using namespace std::string_view_literals;

namespace {

struct Signature {
    std::size_t place;
    std::string_view bytes;
    const char* kind;
};

constexpr std::array signatures{
    Signature{8, "WEBP", "a WebP image"},
    Signature{4, "ftypavif", "an AVIF image"},
    Signature{4, "ftyp", "a HEIF image or a video"},
    Signature{0, "\0\0\0\x0CjP  "sv, "a JPEG 2000 image"},
    Signature{0, "\xFF\x4F\xFF\x51"sv, "a JPEG 2000 image"},
    Signature{0, "\x97JB2"sv, "a JBIG2 image"},
    Signature{0, "8BPS", "a Photoshop image"},
    Signature{0, "\0\0\1\0"sv, "an icon"},
    Signature{0, "%!PS", "PostScript"},
    Signature{0, "\xC5\xD0\xD3\xC6"sv, "PostScript"},
    Signature{0, "PK\3\4"sv, "a ZIP archive, or a document that is packed as one"},
    Signature{0, "\xD0\xCF\x11\xE0"sv, "an Office document"},
    Signature{0, "{\\rtf", "an RTF document"},
    Signature{0, "\x1F\x8B"sv, "compressed by gzip"},
};

bool has_no_content(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char byte) { return byte == '\0'; });
}

/// Text in any encoding that writes ASCII as such.
bool is_text(std::string_view bytes) {
    return std::ranges::none_of(bytes, [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return (code < 0x20 && "\t\n\v\f\r\x1B"sv.find(byte) == std::string_view::npos) || code == 0x7F;
    });
}

const char* what_text_is(std::string_view text) {
    const std::string start = automation::to_lower(text);
    if (start.find("<svg") != std::string::npos) return "an SVG drawing";
    if (start.find("<html") != std::string::npos || start.find("<!doctype html") != std::string::npos)
        return "a web page";
    return "text";
}

const char* what_it_is(std::string_view bytes) {
    constexpr std::size_t enough = 1024;
    const std::string_view start = bytes.substr(0, enough);
    for (const Signature& signature : signatures) {
        if (start.size() >= signature.place && start.substr(signature.place).starts_with(signature.bytes))
            return signature.kind;
    }
    if (is_text(start)) return what_text_is(start);
    return has_no_content(bytes) ? "nothing but zeros" : "of another kind";
}

bool is_image_ending(std::string_view ending) {
    constexpr std::array<std::string_view, 16> endings{".jpg", ".jpeg", ".jpe", ".jfif", ".png", ".apng",
                                                       ".tif", ".tiff", ".bmp", ".dib",  ".gif", ".webp",
                                                       ".jp2", ".jpx",  ".ico", ".heic"};
    return std::ranges::find(endings, ending) != endings.end();
}

}  // namespace

std::string why_unknown(std::string_view path, std::string_view bytes) {
    const std::string ending = automation::to_lower(std::filesystem::path(path).extension().string());
    if (ending == ".pdf") return "cannot be opened: it is no PDF file";
    const std::string what = std::string("it is ") + what_it_is(bytes);
    if (is_image_ending(ending)) return "is no image that can be read: " + what;
    return "cannot be opened: it is neither a PDF nor an image of a kind that is known here (JPEG, PNG, TIFF, "
           "BMP, GIF); " +
           what;
}

}  // namespace foliant::hosts::acrobat
