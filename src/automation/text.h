#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace foliant::automation {

// Text is UTF-8; positions and lengths that callers can see count UTF-16 units, as automation strings do.
// Bytes that are no UTF-8 (a file name may hold such) count as one unit each and pass through unchanged.

/// The text without blanks (U+0020 only) at both ends. The result points into `text`.
std::string_view trim_blanks(std::string_view text) noexcept;

/// Length in UTF-16 units.
std::size_t text_length(std::string_view text) noexcept;

/// The text without its last `units` UTF-16 units. Raises 5 when it has fewer.
std::string without_last(std::string_view text, std::size_t units);

/// Lower case for the Latin, Greek and Cyrillic letters; everything else stays.
std::string to_lower(std::string_view text);

/// Whether two texts are the same when case is ignored.
bool equal_ignoring_case(std::string_view a, std::string_view b);

/// Below 0 when the first comes first, above 0 when the second does: the order of the bytes of to_lower().
int compare_ignoring_case(std::string_view a, std::string_view b);

/// The part after the last separator, the whole path when there is none.
std::string_view file_name_part(std::string_view path, char separator) noexcept;

/// A folder as names of files can follow it: with a separator at its end, where it has none yet. An empty text
/// becomes the separator alone.
std::string with_separator(std::string folder, char separator);

}  // namespace foliant::automation
