#pragma once

#include <array>
#include <hb.h>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/pages/glyphs.h"
#include "hosts/pages/page_writer.h"
#include "hosts/pages/paper.h"
#include "hosts/pages/postscript_font.h"

namespace foliant::hosts::pages {

/// Writes pages of text as PostScript level 2 that follows the document structuring conventions, in as few words as an
/// interpreter can do with: a line is a string and a place. Distilled, its text can be searched. Memory holds all of it.
class PostScriptPages : public Canvas {
  public:
    /// `language` is a tag such as "en-US".
    PostScriptPages(const Paper& paper, const About& about, std::string_view language);

    void start_page() override;
    void set_color(std::uint32_t color) override;
    /// Shows nothing any more after a font that PostScript does not know.
    void show(const GlyphRun& run, double left, double baseline) override;
    void fill(double left, double top, double width, double height) override;

    /// Whether all that was shown is there. Where it is not, there is another way: by a PDF.
    bool is_complete() const noexcept { return is_complete_; }

    /// The file, once all pages are drawn. The shapers of what was shown are still there.
    std::string finished();

  private:
    /// A font as text is shown with it.
    struct Style {
        const PostScriptFont* font = nullptr;
        double points = 0;
        bool operator==(const Style& other) const { return font == other.font && points == other.points; }
    };
    /// A file of letters, and the fonts that are made of it: one after the other becomes full.
    struct Source {
        PangoFont* font = nullptr;  ///< in any size
        std::string name{};
        std::vector<std::unique_ptr<PostScriptFont>> fonts{};
        /// For each letter of ASCII its glyph and the font in which that has the letter's code.
        struct Known {
            unsigned glyph = 0;
            const PostScriptFont* font = nullptr;
        };
        std::array<Known, 128> ascii{};
    };
    /// A file in a size.
    struct Font {
        Source* source = nullptr;  ///< null for one that PostScript does not know
        double points = 0;
        hb_font_t* measures = nullptr;
        std::vector<double> advances{};  ///< of its glyphs, as far as they were asked for
    };
    struct Code {
        const PostScriptFont* font;
        unsigned char character;
    };

    Font& font_of(PangoFont* font);
    Font made(PangoFont* font);
    Code code_of(Source& source, unsigned glyph, std::string_view text);
    void add_character(Font& font, const Glyph& glyph, std::string_view text);
    void end_string();
    void write_style();

    Paper paper_;
    std::string head_;
    std::string pages_;
    int page_ = 0;
    bool is_complete_ = true;
    std::unordered_map<PangoFont*, Font> fonts_{};
    /// By the file, or by the font where that is not all.
    std::unordered_map<const void*, std::unique_ptr<Source>> sources_{};
    std::size_t made_fonts_ = 0;

    std::string characters_;  ///< of the string that is being put together
    std::vector<double> advances_{};
    bool is_natural_ = true;
    double length_ = 0;  ///< the sum of the advances
    double left_ = 0;
    double baseline_ = 0;
    Style style_{};
    Style written_{};
};

}  // namespace foliant::hosts::pages
