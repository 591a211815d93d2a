#pragma once

#include <array>
#include <hb.h>
#include <map>
#include <optional>
#include <pango/pango.h>
#include <string>
#include <string_view>
#include <utility>

namespace foliant::hosts::pages {

/// Whether what is drawn with a font is what stands in its file, and that are TrueType outlines, which PostScript knows:
/// nothing of it is made bold or slanted for want of a file, and nothing is in colours.
bool is_plain_truetype(PangoFont* font);

/// The name under which PostScript knows a font: "LiberationMono-Bold".
std::string postscript_name(PangoFont* font);

/// Up to 255 letters of a TrueType file, as a font of PostScript whose characters have a byte each.
class Type42Font {
  public:
    /// `face` outlives this.
    Type42Font(hb_face_t* face, std::string name) : face_(face), name_(std::move(name)) {}

    const std::string& name() const noexcept { return name_; }
    hb_face_t* face() const noexcept { return face_; }

    /// The byte that stands for a glyph which stands for that text, UTF-8; none when the font is full. That of a letter
    /// of ASCII is the letter's, where it is free: who looks into the file can read it.
    std::optional<unsigned char> code_of(unsigned glyph, std::string_view text);

    /// The definition of the font. It says what its characters mean, so that a distiller's output can be searched.
    std::string definition() const;

  private:
    struct Character {
        unsigned glyph = 0;
        std::string text{};
        bool is_used = false;
    };

    bool is_free(unsigned code) const { return code > 0 && !characters_.at(code).is_used; }

    hb_face_t* face_;
    std::string name_;
    std::array<Character, 256> characters_{};
    std::map<std::pair<unsigned, std::string>, unsigned char, std::less<>> codes_{};
    unsigned next_ = 128;  ///< where to look for a free code
};

}  // namespace foliant::hosts::pages
