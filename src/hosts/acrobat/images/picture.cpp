#include "hosts/acrobat/images/picture.h"

#include <cmath>

#include "hosts/acrobat/images/image_error.h"

namespace foliant::hosts::acrobat::images {
namespace {

/// What a scanner for maps makes is a tenth of it.
constexpr std::uint64_t most_pixels = std::uint64_t{1} << 30U;

double whole_where_close(double dots) {
    constexpr double rounding = 0.02;
    return std::abs(dots - std::round(dots)) < rounding ? std::round(dots) : dots;
}

}  // namespace

Resolution dots_a_metre(std::uint32_t across, std::uint32_t down) {
    constexpr double metres_an_inch = 0.0254;
    return {whole_where_close(across * metres_an_inch), whole_where_close(down * metres_an_inch)};
}

void require_reasonable_size(std::uint64_t width, std::uint64_t height, const char* kind) {
    if (width == 0 || height == 0) throw ImageError(std::string("the ") + kind + " has no pixels");
    if (width <= most_pixels && height <= most_pixels / width) return;
    throw ImageError(std::string("the ") + kind + " claims " + std::to_string(width) + " x " +
                     std::to_string(height) + " pixels; " + std::to_string(most_pixels >> 20U) +
                     " million are the most that become a page");
}

int components_of_profile(std::string_view profile) {
    constexpr std::size_t header = 128;
    constexpr std::size_t colour_space_at = 16;
    if (profile.size() < header) return 0;
    const std::string_view space = profile.substr(colour_space_at, 4);
    if (space == "GRAY") return 1;
    if (space == "RGB ") return 3;
    return space == "CMYK" ? 4 : 0;
}

}  // namespace foliant::hosts::acrobat::images
