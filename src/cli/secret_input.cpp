#include "cli/secret_input.h"

#include <CLI/Error.hpp>
#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <string_view>
#include <system_error>
#include <unistd.h>

#include "posix/file_descriptor.h"

namespace foliant::cli {
namespace {

constexpr std::size_t longest_secret = 4096;

int milliseconds_until(const Deadline& deadline) {
    if (!deadline) return -1;
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(*deadline - std::chrono::steady_clock::now());
    return static_cast<int>(std::clamp<std::int64_t>(left.count(), 0, 86'400'000));
}

/// Waits for something to read; false when the other descriptor had something first.
bool wait_for_input(int descriptor, const std::string& what, const Deadline& deadline, int interrupted) {
    while (true) {
        std::array<pollfd, 2> watched{pollfd{descriptor, POLLIN, 0}, pollfd{interrupted, POLLIN, 0}};
        const int ready = ::poll(watched.data(), watched.size(), milliseconds_until(deadline));
        if (ready > 0) return watched[1].revents == 0;
        if (deadline && std::chrono::steady_clock::now() >= *deadline) {
            throw TimeLimitReached("The time limit was over while " + what + " was read.");
        }
        if (ready < 0 && errno != EINTR) return true;
    }
}

/// Some editors begin every file with the mark of UTF-8.
std::string without_mark(std::string text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (text.starts_with(mark)) text.erase(0, mark.size());
    return text;
}

}  // namespace

std::string read_secret(int descriptor, const std::string& what, const Deadline& deadline, int interrupted) {
    std::string line;
    while (wait_for_input(descriptor, what, deadline, interrupted)) {
        char c = 0;
        const ssize_t got = ::read(descriptor, &c, 1);
        if (got < 0 && (errno == EINTR || errno == EAGAIN)) continue;
        if (got < 0) {
            throw CLI::ValidationError("cannot read " + what + " (" + std::generic_category().message(errno) +
                                       ")");
        }
        if (got == 0 || c == '\n') break;
        line.push_back(c);
        if (line.size() > longest_secret) {
            throw CLI::ValidationError(what + " has no end of line within its first " +
                                       std::to_string(longest_secret) +
                                       " bytes, so that it holds no password; is it the right file?");
        }
    }
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

std::string read_secret_file(const std::string& path, const Deadline& deadline) {
    if (path == "-")
        return without_mark(read_secret(STDIN_FILENO, "the password from standard input", deadline));
    const std::string what = "the password file '" + path + "'";
    // Opening a pipe would wait for its writer; reading waits, and knows for how long.
    const posix::FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file) {
        throw CLI::ValidationError("cannot read " + what + " (" + std::generic_category().message(errno) +
                                   ")");
    }
    return without_mark(read_secret(file.get(), what, deadline));
}

}  // namespace foliant::cli
