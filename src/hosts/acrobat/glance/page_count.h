#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace foliant::hosts::acrobat::glance {

class PlainFile;

/// The number of pages of a PDF, as its page tree claims it: read from the table of objects and three or four of the
/// objects, whatever the number. Nothing for a file that leaves any doubt about it (see syntax.h), or that claims what
/// is not plausible.
std::optional<std::int32_t> page_count(std::string_view bytes);

/// The same, of a file whose tables were read. Throws Doubt.
std::int32_t page_count(PlainFile& file);

}  // namespace foliant::hosts::acrobat::glance
