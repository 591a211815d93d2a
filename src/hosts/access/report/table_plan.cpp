#include "hosts/access/report/table_plan.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace foliant::hosts::access {
namespace {

constexpr double usual_size = 9;
constexpr double small_size = 8;
constexpr double smallest_size = 7;
constexpr double longest_line = 260;  // points; what is longer is better read in several lines

struct Sizes {
    std::vector<double> natural;
    std::vector<double> least;
    double gaps;

    double natural_width() const { return std::reduce(natural.begin(), natural.end(), gaps); }
    double least_width() const { return std::reduce(least.begin(), least.end(), gaps); }
};

Sizes sizes_at(std::span<const ColumnNeed> needs, double font_size, double widest, double gap) {
    Sizes sizes{{}, {}, needs.empty() ? 0 : gap * static_cast<double>(needs.size() - 1)};
    for (const ColumnNeed& need : needs) {
        const double least = std::min(need.least * font_size, widest);
        sizes.least.push_back(least);
        sizes.natural.push_back(std::max(least, std::min(need.natural * font_size, longest_line)));
    }
    return sizes;
}

/// Each column gets what it needs at least, and of the rest in proportion to what it would take.
std::vector<double> squeezed(const Sizes& sizes, double available) {
    const double least = sizes.least_width();
    const double share = (available - least) / (sizes.natural_width() - least);
    std::vector<double> widths;
    widths.reserve(sizes.natural.size());
    for (std::size_t i = 0; i < sizes.natural.size(); ++i)
        widths.push_back(sizes.least[i] + (sizes.natural[i] - sizes.least[i]) * share);
    return widths;
}

std::vector<std::size_t> split_across(const std::vector<double>& widths, double available, double gap) {
    std::vector<std::size_t> firsts{0};
    double used = 0;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (i > firsts.back() && used + widths[i] > available) {
            firsts.push_back(i);
            used = 0;
        }
        used += widths[i] + gap;
    }
    firsts.push_back(widths.size());
    return firsts;
}

}  // namespace

TablePlan plan_table(std::span<const ColumnNeed> needs, double upright, double sideways, double gap) {
    const std::vector<std::size_t> all{0, needs.size()};
    const Sizes usual = sizes_at(needs, usual_size, upright, gap);
    if (usual.natural_width() <= upright) return {false, usual_size, usual.natural, all};
    for (const double size : {usual_size, small_size, smallest_size}) {
        const Sizes sizes = sizes_at(needs, size, sideways, gap);
        if (sizes.natural_width() <= sideways) return {true, size, sizes.natural, all};
    }
    for (const double size : {small_size, smallest_size}) {
        const Sizes sizes = sizes_at(needs, size, sideways, gap);
        if (sizes.least_width() <= sideways) return {true, size, squeezed(sizes, sideways), all};
    }
    const Sizes wide = sizes_at(needs, small_size, sideways, gap);
    return {true, small_size, wide.natural, split_across(wide.natural, sideways, gap)};
}

std::vector<Page> divide(std::span<const std::size_t> lines, double room_on_first, double room_on_others,
                         const Heights& heights) {
    std::vector<Page> pages(1);
    double left = room_on_first;
    const auto new_page = [&] {
        pages.emplace_back();
        left = room_on_others;
    };
    for (std::size_t record = 0; record < lines.size(); ++record) {
        std::size_t first = 0;
        while (first < lines[record]) {
            const std::size_t rest = lines[record] - first;
            const double height = static_cast<double>(rest) * heights.line + heights.padding;
            const bool would_fit_elsewhere = height <= room_on_others;
            if (height > left && would_fit_elsewhere && !pages.back().empty()) new_page();
            // A rounding error takes no line away.
            const auto fitting = static_cast<std::size_t>(
                std::max(0.0, std::floor((left - heights.padding) / heights.line + 1e-6)));
            if (fitting == 0) {
                new_page();
                continue;
            }
            const std::size_t count = std::min(rest, fitting);
            pages.back().push_back({record, first, count});
            left -= static_cast<double>(count) * heights.line + heights.padding;
            first += count;
        }
    }
    return pages;
}

}  // namespace foliant::hosts::access
