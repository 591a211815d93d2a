#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

namespace foliant::cli {

/// When a call has to be over; nothing for no limit.
using Deadline = std::optional<std::chrono::steady_clock::time_point>;

/// Raised when a deadline has passed before a call could begin.
class TimeLimitReached : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Shows a prompt where a person is, and returns what was typed.
using AskPassword = std::function<std::string(const std::string& prompt, const Deadline& deadline)>;

/// The first line that can be read from a descriptor, without its end. Reads no byte behind it.
///
/// Raises CLI::ValidationError, naming `what`, when there is no end of line within some kilobytes, and
/// TimeLimitReached. Stops with what there is when `interrupted` (-1 for none) becomes readable.
std::string read_secret(int descriptor, const std::string& what, const Deadline& deadline,
                        int interrupted = -1);

/// The first line of a file, "-" for standard input, without a mark of UTF-8 in front of it. A pipe is waited
/// for, but not beyond the deadline. Raises CLI::ValidationError that names the file when it cannot be read
/// or holds no password.
std::string read_secret_file(const std::string& path, const Deadline& deadline);

}  // namespace foliant::cli
