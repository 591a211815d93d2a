#pragma once

#include <array>
#include <cstdint>

namespace foliant::hosts::autocad {

/// Red, green and blue, each from 0 to 1.
struct Colour {
    double red = 0;
    double green = 0;
    double blue = 0;

    friend bool operator==(const Colour&, const Colour&) = default;

    static constexpr Colour of_bytes(std::uint32_t rgb) noexcept {
        constexpr double most = 255;
        return {(rgb >> 16U & 0xFFU) / most, (rgb >> 8U & 0xFFU) / most, (rgb & 0xFFU) / most};
    }
};

inline constexpr int colour_by_block = 0;
inline constexpr int colour_by_layer = 256;

/// The colour of AutoCAD's index from 1 to 255 on white paper; black for any other number. 7 is what stands out
/// from the paper: black.
constexpr Colour colour_of_index(int index) noexcept {
    constexpr std::array<std::uint32_t, 10> first{0x000000, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                                  0x0000FF, 0xFF00FF, 0x000000, 0x808080, 0xC0C0C0};
    constexpr std::array<std::uint32_t, 6> greys{0x333333, 0x5B5B5B, 0x848484, 0xADADAD, 0xD6D6D6, 0x000000};
    if (index < 0 || index > 255) return {};
    const auto place = static_cast<std::size_t>(index);
    if (index < 10) return Colour::of_bytes(first[place]);
    if (index >= 250) return Colour::of_bytes(greys[place - 250]);
    // 24 hues, of which each has five shades; the odd ones are half as strong.
    constexpr std::array<double, 5> shades{1, 0.8, 0.6, 0.5, 0.3};
    const double strongest = shades[place % 10 / 2];
    const double weakest = index % 2 == 1 ? strongest / 2 : 0;
    const int step = index / 10 - 1;  // from 0 to 23
    const double hue = step / 4.0;    // from 0 to 6
    const auto part = [&](double centre) {
        double distance = hue > centre ? hue - centre : centre - hue;
        if (distance > 3) distance = 6 - distance;
        const double share = distance <= 1 ? 1 : (distance >= 2 ? 0 : 2 - distance);
        return weakest + (strongest - weakest) * share;
    };
    return {part(0), part(2), part(4)};
}

}  // namespace foliant::hosts::autocad
