#pragma once

#include <string_view>

namespace foliant::hosts::pages {

/// The size of a sheet, in points.
struct Paper {
    double width;
    double height;
};

/// What printers have in the country of a locale such as "de_AT.UTF-8": Letter or A4. Letter for a name without a
/// country, as the office has it.
Paper usual_paper(std::string_view locale);

/// The same for the locale that this process's user has chosen.
Paper usual_paper();

}  // namespace foliant::hosts::pages
