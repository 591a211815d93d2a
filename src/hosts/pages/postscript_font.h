#pragma once

#include <array>
#include <map>
#include <optional>
#include <pango/pango.h>
#include <string>
#include <string_view>
#include <utility>

namespace foliant::hosts::pages {

/// How PostScript is told what the letters of a font look like.
enum class LetterForm {
    truetype,  ///< by a part of its file, as it stands
    drawn,     ///< by their outlines: those of other files, and letters that are slanted for want of a file
    unknown,   ///< not at all: letters in colours, and what is made bold for want of a file
};

LetterForm letter_form(PangoFont* font);

/// The name under which PostScript knows a font: "LiberationMono-Bold".
std::string postscript_name(PangoFont* font);

/// Up to 255 letters of a font, as one of PostScript whose characters have a byte each.
class PostScriptFont {
  public:
    /// `font`, whose form is known, outlives this.
    PostScriptFont(PangoFont* font, std::string name);

    const std::string& name() const noexcept { return name_; }

    /// The byte that stands for a glyph which stands for that text, UTF-8; none when the font is full. That of a letter
    /// of ASCII is the letter's, where it is free: who looks into the file can read it.
    std::optional<unsigned char> code_of(unsigned glyph, std::string_view text);

    /// The definition of the font. It says what its characters mean, so that a distiller's output can be searched.
    /// Throws std::runtime_error with a reason.
    std::string definition() const;

  private:
    struct Character {
        unsigned glyph = 0;
        std::string text{};
        bool is_used = false;
    };

    bool is_told_by_name(const Character& character) const;
    std::string name_of(unsigned code) const;
    bool is_free(unsigned code) const { return code > 0 && !characters_.at(code).is_used; }
    template <class Outline>
    std::string outlines(const std::string& none, Outline outline) const;
    std::string truetype_body() const;
    std::string drawn_body() const;

    PangoFont* font_;
    LetterForm form_;
    std::string name_;
    std::array<Character, 256> characters_{};
    std::map<std::pair<unsigned, std::string>, unsigned char, std::less<>> codes_{};
    unsigned next_ = 128;  ///< where to look for a free code
};

}  // namespace foliant::hosts::pages
