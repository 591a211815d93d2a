#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// The text of PDF files: words in reading order, searching, addresses. Knows no automation.
namespace foliant::hosts::acrobat::text {

/// A rectangle in the coordinates of a page's own content: points, y upwards.
struct Rectangle {
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;

    bool operator==(const Rectangle&) const = default;
};

/// The smallest rectangle around both.
Rectangle around(const Rectangle& one, const Rectangle& other);

/// What stands between letters and those that are read next.
enum class Gap : std::uint8_t {
    none,
    blank,
    line_end,
    broken_word,  ///< a line end in the middle of a word, whose last letter so far is the hyphen of the break
};

/// Letters beside each other on one baseline, in reading order.
struct Run {
    std::uint32_t first = 0;  ///< index of its first letter in PageText::letters
    std::uint32_t length = 0;
    float low = 0;  ///< extent across the direction of writing
    float high = 0;
    bool is_vertical = false;  ///< the letters follow each other up or down the sheet
    Gap gap = Gap::none;       ///< behind the last letter
};

/// The text of one page in reading order, with the place of each letter.
struct PageText {
    std::u32string letters;  ///< without blanks and line ends
    std::vector<Run> runs;   ///< together all letters, in order
    /// Where letters begin and end along the direction of writing: those of run r from Run::first + r on, one
    /// more than it has letters.
    std::vector<float> edges;
    /// From the sheet as it is seen (turned, y downwards), in which edges and extents are, to the page's own
    /// coordinates: x' = m[0]x + m[2]y + m[4], y' = m[1]x + m[3]y + m[5].
    std::array<double, 6> to_page{1, 0, 0, 1, 0, 0};

    /// Around letters of one run, `first` and `end` counted within it.
    Rectangle place(std::size_t run, std::size_t first, std::size_t end) const;
    /// Around letters `first` to `end` (exclusive), a rectangle for each line that they stand in.
    std::vector<Rectangle> places(std::size_t first, std::size_t end) const;
    /// The run that has a letter.
    std::size_t run_of(std::size_t letter) const;
    /// The runs of the line that a run stands in: the first, and the one behind the last.
    std::pair<std::size_t, std::size_t> line_of(std::size_t run) const;
    /// What it takes in memory, in bytes.
    std::size_t size_in_memory() const noexcept;
};

/// Whether a line ends with that gap.
constexpr bool ends_line(Gap gap) {
    return gap == Gap::line_end || gap == Gap::broken_word;
}

}  // namespace foliant::hosts::acrobat::text
