#include "hosts/pages/type1_outline.h"

#include <cmath>
#include <cstdint>
#include <initializer_list>

#include "hosts/pages/postscript_syntax.h"

namespace foliant::hosts::pages {

namespace {

enum class Command : unsigned char {
    rlineto = 5,
    rrcurveto = 8,
    closepath = 9,
    hsbw = 13,
    endchar = 14,
    rmoveto = 21,
};

/// A string of numbers and commands, each path from where the one before it ends.
class Path {
  public:
    void append(Command command, std::initializer_list<float> points) {
        bool is_x = true;
        for (const float coordinate : points) {
            int& last = is_x ? x_ : y_;
            const int now = static_cast<int>(std::lround(coordinate));
            append_number(now - last);
            last = now;
            is_x = !is_x;
        }
        bytes_ += static_cast<char>(command);
    }
    /// The beginning: the first outline begins at 0.
    void append_width(int width) {
        append_number(0);
        append_number(width);
        append(Command::hsbw, {});
    }
    const std::string& bytes() const noexcept { return bytes_; }

  private:
    void append_number(int number) {
        constexpr int short_range = 107;
        constexpr int middle_range = 1131;
        const auto append_byte = [&](int byte) { bytes_ += static_cast<char>(byte); };
        if (number >= -short_range && number <= short_range) {
            append_byte(number + 139);
        } else if (number > 0 && number <= middle_range) {
            append_byte((number - 108) / 256 + 247);
            append_byte((number - 108) % 256);
        } else if (number < 0 && number >= -middle_range) {
            append_byte((-number - 108) / 256 + 251);
            append_byte((-number - 108) % 256);
        } else {
            append_byte(255);
            for (const unsigned shift : {24U, 16U, 8U, 0U})
                append_byte(static_cast<int>(static_cast<unsigned>(number) >> shift & 0xFFU));
        }
    }

    std::string bytes_;
    int x_ = 0;
    int y_ = 0;
};

Path& path_of(void* data) {
    return *static_cast<Path*>(data);
}

void move_to(hb_draw_funcs_t* /*functions*/, void* path, hb_draw_state_t* /*state*/, float x, float y,
             void* /*data*/) {
    path_of(path).append(Command::rmoveto, {x, y});
}

void line_to(hb_draw_funcs_t* /*functions*/, void* path, hb_draw_state_t* /*state*/, float x, float y,
             void* /*data*/) {
    path_of(path).append(Command::rlineto, {x, y});
}

void curve_to(hb_draw_funcs_t* /*functions*/, void* path, hb_draw_state_t* /*state*/, float x1, float y1,
              float x2, float y2, float x3, float y3, void* /*data*/) {
    path_of(path).append(Command::rrcurveto, {x1, y1, x2, y2, x3, y3});
}

void close_path(hb_draw_funcs_t* /*functions*/, void* path, hb_draw_state_t* /*state*/, void* /*data*/) {
    path_of(path).append(Command::closepath, {});
}

/// As every string of such a font is, behind four bytes that mean nothing.
std::string encrypted(const std::string& bytes) {
    std::uint16_t key = 4330;
    std::string result;
    for (const char byte : std::string(4, '\0') + bytes) {
        const auto cipher = static_cast<std::uint8_t>(static_cast<unsigned char>(byte) ^ key >> 8U);
        key = static_cast<std::uint16_t>((cipher + key) * 52845U + 22719U);
        result += static_cast<char>(cipher);
    }
    return result;
}

}  // namespace

Type1Outlines::Type1Outlines(hb_font_t* font)
    : units_(hb_face_get_upem(hb_font_get_face(font))),
      font_(hb_font_create(hb_font_get_face(font))),
      functions_(hb_draw_funcs_create()) {
    hb_font_set_scale(font_.get(), static_cast<int>(units_), static_cast<int>(units_));
    unsigned count = 0;
    const int* variation = hb_font_get_var_coords_normalized(font, &count);
    hb_font_set_var_coords_normalized(font_.get(), variation, count);
    hb_draw_funcs_set_move_to_func(functions_.get(), move_to, nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(functions_.get(), line_to, nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(functions_.get(), curve_to, nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(functions_.get(), close_path, nullptr, nullptr);
}

std::string Type1Outlines::outline(unsigned glyph) const {
    Path path;
    path.append_width(hb_font_get_glyph_h_advance(font_.get(), glyph));
    hb_font_get_glyph_shape(font_.get(), glyph, functions_.get(), &path);
    path.append(Command::endchar, {});
    std::string digits;
    append_digits(digits, encrypted(path.bytes()));
    return digits;
}

}  // namespace foliant::hosts::pages
