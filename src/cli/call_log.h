#pragma once

#include <chrono>
#include <string>

#include "cli/request.h"
#include "cli/secrets.h"
#include "posix/file_descriptor.h"

namespace foliant::cli {

/// What --verbose shows and --log keeps: what a call does outside, line by line, with the time since its
/// begin. Passwords show as "***", and nothing in a line acts on a terminal. May be written to by a process
/// and the one it forked.
class CallLog {
  public:
    /// Nothing is written unless the request asks for it. Raises an automation error, naming the file, when
    /// it cannot be written, and when it is no text, since it would be spoilt.
    explicit CallLog(const Request& request);

    bool is_wanted() const { return verbose_ || file_; }
    void line(const std::string& text);
    /// One that a terminal shows anyway, in other words.
    void file_line(const std::string& text);
    /// What engines have written to a file, up to some kilobytes, a line each.
    void engine_lines(int descriptor);

  private:
    void open(const std::string& path);
    std::string stamped(const std::string& text) const;

    const std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
    bool verbose_;
    Secrets secrets_;
    posix::FileDescriptor file_;
};

}  // namespace foliant::cli
