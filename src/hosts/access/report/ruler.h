#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>

#include "hosts/access/report/table_plan.h"
#include "hosts/pages/page_writer.h"

namespace foliant::hosts::access {

/// The font of reports, as Pango describes it; the size in points.
std::string report_font(double size, bool is_bold);

/// Sums up the widths of letters, each measured once. Setting a text can make it narrower, by kerning, but hardly wider.
class Ruler {
  public:
    Ruler(const pages::PageWriter& writer, bool is_bold);

    /// The widest line and the widest word, at a font size of one point.
    ColumnNeed need(std::string_view text);

  private:
    double width(std::string_view letter);
    double measure(std::string_view letter);

    pages::LayoutPtr layout_;
    std::array<double, 128> ascii_{};
    std::unordered_map<std::string, double> others_;
};

}  // namespace foliant::hosts::access
