#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace foliant::hosts::office {

/// The size of a page, in points.
struct PageSize {
    double width;
    double height;
};

/// The sizes of the pages of a Visio drawing (the bytes of its file, of any kind), in the order in which LibreOffice
/// has them, none for one that holds only shapes for others; nothing for what is no Visio drawing, or cannot be read.
std::optional<std::vector<PageSize>> visio_page_sizes(std::string_view drawing);

/// A PDF (its bytes) whose pages have these sizes, each with what lay in its upper left corner before. It stays as it
/// is where there are as many sizes as pages and they are those; also where their number is another one. Throws
/// std::exception when it cannot be read.
std::string with_page_sizes(std::string pdf, const std::vector<PageSize>& sizes);

}  // namespace foliant::hosts::office
