#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include "posix/file_descriptor.h"

namespace foliant::cli {

/// A line on the terminal that moves as long as there is nothing better to show: what is going on, and for
/// how long. It has a thread of its own, since the one that works is inside an engine.
class StatusLine {
  public:
    /// Shows nothing when `terminal` is -1. The descriptor is copied.
    StatusLine(int terminal, std::string text);
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;
    ~StatusLine() { stop(); }

    /// What is told behind the text from now on: "Opening 12 %".
    void tell(std::string progress);

    /// Takes the line away until it moves again, so that something else can be written.
    void hide();
    /// Takes it away for good. Harmless when called again.
    void stop();

  private:
    void run();
    void draw(int step);
    void erase();

    posix::FileDescriptor terminal_;
    std::string text_;
    std::string progress_;
    std::mutex mutex_;
    std::condition_variable stopping_;
    bool stopped_ = false;
    bool shown_ = false;
    std::thread thread_;
};

}  // namespace foliant::cli
