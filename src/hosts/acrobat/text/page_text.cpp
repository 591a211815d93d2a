#include "hosts/acrobat/text/page_text.h"

#include <algorithm>

namespace foliant::hosts::acrobat::text {

Rectangle around(const Rectangle& one, const Rectangle& other) {
    return {std::min(one.left, other.left), std::min(one.bottom, other.bottom),
            std::max(one.right, other.right), std::max(one.top, other.top)};
}

Rectangle PageText::place(std::size_t run, std::size_t first, std::size_t end) const {
    const Run& letters_of = runs[run];
    const std::size_t edge = letters_of.first + run;
    std::array<double, 2> x{edges[edge + first], edges[edge + end]};
    std::array<double, 2> y{letters_of.low, letters_of.high};
    if (letters_of.is_vertical) std::swap(x, y);
    const auto corner = [&](std::size_t i) {
        const double across = to_page[0] * x.at(i) + to_page[2] * y.at(i) + to_page[4];
        const double up = to_page[1] * x.at(i) + to_page[3] * y.at(i) + to_page[5];
        return Rectangle{across, up, across, up};
    };
    return around(corner(0), corner(1));
}

std::vector<Rectangle> PageText::places(std::size_t first, std::size_t end) const {
    std::vector<Rectangle> found;
    bool new_line = true;
    for (std::size_t run = run_of(first); run < runs.size() && runs[run].first < end; ++run) {
        const std::size_t start = std::max<std::size_t>(first, runs[run].first) - runs[run].first;
        const std::size_t stop = std::min<std::size_t>(end - runs[run].first, runs[run].length);
        if (start < stop) {
            const Rectangle part = place(run, start, stop);
            if (new_line)
                found.push_back(part);
            else
                found.back() = around(found.back(), part);
            new_line = false;
        }
        new_line = new_line || ends_line(runs[run].gap);
    }
    return found;
}

std::size_t PageText::run_of(std::size_t letter) const {
    const auto behind = std::upper_bound(runs.begin(), runs.end(), letter,
                                         [](std::size_t value, const Run& run) { return value < run.first; });
    return behind == runs.begin() ? 0 : static_cast<std::size_t>(behind - runs.begin()) - 1;
}

std::pair<std::size_t, std::size_t> PageText::line_of(std::size_t run) const {
    std::size_t first = run;
    while (first > 0 && !ends_line(runs[first - 1].gap))
        --first;
    std::size_t end = run;
    while (end < runs.size() && !ends_line(runs[end].gap))
        ++end;
    return {first, std::min(end + 1, runs.size())};
}

std::size_t PageText::size_in_memory() const noexcept {
    return sizeof *this + letters.capacity() * sizeof(char32_t) + runs.capacity() * sizeof(Run) +
           edges.capacity() * sizeof(float);
}

}  // namespace foliant::hosts::acrobat::text
