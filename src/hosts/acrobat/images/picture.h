#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/acrobat/images/content.h"

namespace foliant::hosts::acrobat::images {

/// Dots an inch, in both directions; 0 where the image does not say.
struct Resolution {
    double across = 0;
    double down = 0;
};

/// Of dots a metre, which formats keep as whole numbers: a resolution of whole dots an inch comes out as such.
Resolution dots_a_metre(std::uint32_t across, std::uint32_t down);

/// How the stored rows and columns are to be seen, by the numbers that EXIF and TIFF have for it: 1 as they
/// are, 3, 6 and 8 turned by 180, 90 and 270 degrees clockwise; 2, 4, 7 and 5 the same with left and right
/// exchanged before.
using Orientation = int;

/// What the numbers of a pixel mean.
struct Colours {
    int components = 3;       ///< 1 grey, 3 red, green and blue, 4 inks
    std::string palette;      ///< red, green and blue of each index; empty when pixels hold colours
    std::string icc_profile;  ///< empty when the image has none, or one that does not fit
};

/// Pixels as a PDF holds them.
struct Pixels {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    int bits = 8;  ///< of a component
    Colours colours;
    std::string filter;      ///< "/FlateDecode"
    std::string parameters;  ///< of the filter: "<< /Predictor 15 >>", or empty
    std::string decode;      ///< "[1 0]" for a negative; empty as usual
    std::string colour_key;  ///< the colour that is seen through: "[3 3]"; empty when there is none
    std::string matte;       ///< of a mask whose colours were mixed with this one: "[0 0 0]", or empty
    Content content;         ///< keeps what the pieces lie in
    std::vector<std::string_view> pieces;  ///< the compressed data, in order
};

/// The screen that a picture is a part of, in its pixels; what is not covered stays blank.
struct Screen {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t left = 0;  ///< of the picture on it
    std::uint32_t top = 0;
};

/// What becomes one page.
struct Picture {
    Pixels pixels;
    std::optional<Screen> screen;   ///< nothing for a picture that covers all of it
    std::optional<Pixels> opacity;  ///< grey: black is seen through
    Resolution resolution;
    Orientation orientation = 1;
};

/// Raises ImageError for an image without pixels, or with more than a page can be made of. `kind` is what it
/// claims to be.
void require_reasonable_size(std::uint64_t width, std::uint64_t height, const char* kind);

/// The components that an ICC profile describes: 1, 3, 4, or 0 for one that pages cannot have.
int components_of_profile(std::string_view profile);

}  // namespace foliant::hosts::acrobat::images
