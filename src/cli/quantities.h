#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace foliant::cli {

/// A time as people write it, in seconds: "30", "2.5s", "500ms", "2m", "1h"; 0 for "none". Nothing for
/// anything else, among it what is negative or no number.
std::optional<double> seconds_in(std::string_view text);

/// A size as people write it, in bytes: "2G", "1.5 GiB", "512M", "4096"; 0 for "none". K, M, G and T are
/// powers of 1024.
std::optional<std::uint64_t> bytes_in(std::string_view text);

/// "512 bytes", "12 KiB", "2.4 MiB", "2 GiB".
std::string readable_size(std::uint64_t bytes);

}  // namespace foliant::cli
