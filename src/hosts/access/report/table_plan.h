#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace foliant::hosts::access {

/// What a column needs, in points at a font size of one point.
struct ColumnNeed {
    double natural = 0;  ///< on one line each
    double least = 0;    ///< with lines broken where they may be
};

/// How a table lies on pages. Lengths are in points.
struct TablePlan {
    bool is_landscape = false;
    double font_size = 0;
    std::vector<double> widths;  ///< of the columns, without the gaps between them
    /// The first column of each page across, and the number of columns at the end: a table that fits has {0, n}.
    std::vector<std::size_t> pages_across;
};

/// Chooses the first of these that fits: upright, sideways, in smaller letters, with broken lines; and what fits in no
/// way goes on to further pages across. `upright` and `sideways` are how wide pages are between their margins, `gap` is
/// what lies between two columns.
TablePlan plan_table(std::span<const ColumnNeed> needs, double upright, double sideways, double gap);

/// Some lines of a record, which stand on one page.
struct Slice {
    std::size_t record;
    std::size_t first;
    std::size_t count;
};
using Page = std::vector<Slice>;

/// How high the lines of a record are, and what they take besides.
struct Heights {
    double line;
    double padding;
};

/// Divides records, given as their numbers of lines, into pages: the first has less room than the others, for the title. A
/// record that fits on a page is not divided. There is one page at least.
std::vector<Page> divide(std::span<const std::size_t> lines, double room_on_first, double room_on_others,
                         const Heights& heights);

}  // namespace foliant::hosts::access
