#include "cli/status_line.h"

#include <fcntl.h>
#include <unistd.h>

namespace foliant::cli {
namespace {

constexpr std::chrono::milliseconds step_time{120};
constexpr int steps_a_second = 8;

void write_all(int descriptor, const std::string& text) {
    [[maybe_unused]] const ssize_t written = ::write(descriptor, text.data(), text.size());
}

}  // namespace

StatusLine::StatusLine(int terminal, std::string text) : text_(std::move(text)) {
    if (terminal < 0) return;
    terminal_ = posix::FileDescriptor(::fcntl(terminal, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    thread_ = std::thread([this] { run(); });
}

void StatusLine::run() {
    std::unique_lock lock(mutex_);
    // Short calls end before anything is drawn.
    for (int step = 0; !stopping_.wait_for(lock, step_time, [this] { return stopped_; }); ++step)
        draw(step);
}

void StatusLine::draw(int step) {
    constexpr std::string_view frames = "|/-\\";
    const int seconds = step / steps_a_second;
    const std::string line = std::string(1, frames[static_cast<std::size_t>(step) % frames.size()]) + " " +
                             text_ + (progress_.empty() ? "" : "  " + progress_) +
                             (seconds > 0 ? "  " + std::to_string(seconds) + " s" : "");
    // What was longer before would show behind the line.
    write_all(terminal_.get(), "\r" + line + "\x1B[K");
    shown_ = true;
}

void StatusLine::tell(std::string progress) {
    const std::lock_guard lock(mutex_);
    progress_ = std::move(progress);
}

void StatusLine::erase() {
    if (shown_) write_all(terminal_.get(), "\r\x1B[K");
    shown_ = false;
}

void StatusLine::hide() {
    const std::lock_guard lock(mutex_);
    erase();
}

void StatusLine::stop() {
    {
        const std::lock_guard lock(mutex_);
        stopped_ = true;
        erase();
    }
    stopping_.notify_all();
    if (thread_.joinable()) thread_.join();
}

}  // namespace foliant::cli
