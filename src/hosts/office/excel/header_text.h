#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace foliant::hosts::office {

/// How a piece of a header or footer looks; what is not said is as the workbook's usual text.
struct PieceStyle {
    std::optional<std::string> font{};
    std::optional<double> size{};  ///< in points
    std::optional<std::uint32_t> color{};
    bool bold = false;
    bool italic = false;
    bool underlined = false;
    bool double_underlined = false;
    bool struck = false;
    bool superscript = false;
    bool subscript = false;

    bool operator==(const PieceStyle&) const = default;
};

/// A piece of a header or footer: text, or what is put in for each page.
struct HeaderPiece {
    enum class Kind { text, page, pages, date, time, sheet, file, folder };

    Kind kind = Kind::text;
    std::string text;  ///< of a text; lines end in a line feed
    PieceStyle style;

    bool operator==(const HeaderPiece&) const = default;
};

/// Reads a header or footer with Excel's codes: &P page, &N number of pages, &D date, &T time, &A sheet, &F
/// file, &Z folder, && an ampersand; &B bold, &I italic, &U and &E underlined once and twice, &S struck, &X and
/// &Y super- and subscript, each until its next; &"font,style", &12 size in points, &Krrggbb colour. Codes for
/// what is not printed here (&G picture, &O outline, &H shadow) are passed over. Raises 1004 for a
/// page number that is counted from elsewhere ("&P+1").
std::vector<HeaderPiece> parse_header(std::string_view text);

/// A part of a header or footer.
struct HeaderSection {
    char place = 0;  ///< 'l', 'c' or 'r', where a code says so; 0 for the place that the text was given to
    std::string text;

    bool operator==(const HeaderSection&) const = default;
};

/// Divides a text where &L, &C and &R say that what follows stands at the left, in the middle or at the right.
std::vector<HeaderSection> sections_of(std::string_view text);

/// How much room the pieces take from top to bottom, in points, where unstyled text has that size.
double height_of(const std::vector<HeaderPiece>& pieces, double usual_size);

}  // namespace foliant::hosts::office
