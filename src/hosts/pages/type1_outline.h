#pragma once

#include <hb.h>
#include <memory>
#include <string>

namespace foliant::hosts::pages {

/// The outlines of a font's letters as a Type 1 font of PostScript has them.
class Type1Outlines {
  public:
    /// `font` may be of any size and variation.
    explicit Type1Outlines(hb_font_t* font);

    unsigned units_an_em() const noexcept { return units_; }

    /// Width and outline of a glyph: the digits of an encrypted string.
    std::string outline(unsigned glyph) const;

  private:
    struct Destroy {
        void operator()(hb_font_t* font) const { hb_font_destroy(font); }
        void operator()(hb_draw_funcs_t* functions) const { hb_draw_funcs_destroy(functions); }
    };

    unsigned units_;
    std::unique_ptr<hb_font_t, Destroy> font_;
    std::unique_ptr<hb_draw_funcs_t, Destroy> functions_;
};

}  // namespace foliant::hosts::pages
