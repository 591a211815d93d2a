#include "cli/call_log.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <iostream>
#include <system_error>
#include <unistd.h>

#include "automation/error.h"
#include "cli/file_kind.h"
#include "cli/visible_text.h"

namespace foliant::cli {

using automation::Error;
using automation::RuntimeError;

namespace {

std::string now() {
    std::array<char, 32> text{};
    const std::time_t time = std::time(nullptr);
    std::tm local{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", localtime_r(&time, &local));
    return text.data();
}

}  // namespace

CallLog::CallLog(const Request& request) : verbose_(request.options.verbose), secrets_(secrets_of(request)) {
    if (!request.options.log_file.empty()) open(request.options.log_file);
    if (is_wanted()) line(std::string(request.member->name) + ", " + now());
}

void CallLog::open(const std::string& path) {
    const FileKind kind = file_kind(path);
    if (kind != FileKind::none && kind != FileKind::text) {
        throw Error(RuntimeError::path_file_access,
                    "--log: " + path + " is no text, and would be spoilt. Name another file.");
    }
    file_ = posix::FileDescriptor(
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666));
    if (!file_) {
        throw Error(RuntimeError::path_file_access, "--log: " + path + " cannot be written (" +
                                                        std::generic_category().message(errno) + ").");
    }
}

std::string CallLog::stamped(const std::string& text) const {
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begun_;
    std::array<char, 32> time{};
    std::snprintf(time.data(), time.size(), "%8.3f  ", passed.count());
    return time.data() + visible_line(secrets_.masked(text)) + "\n";
}

void CallLog::line(const std::string& text) {
    if (!is_wanted()) return;
    if (verbose_) std::cerr << stamped(text) << std::flush;
    file_line(text);
}

void CallLog::file_line(const std::string& text) {
    if (!file_) return;
    const std::string stamped_text = stamped(text);
    // What cannot be logged is no reason to fail the call.
    [[maybe_unused]] const ssize_t written = ::write(file_.get(), stamped_text.data(), stamped_text.size());
}

void CallLog::engine_lines(int descriptor) {
    constexpr std::size_t most = 65536;
    std::string text(most, '\0');
    const ssize_t got = ::pread(descriptor, text.data(), text.size(), 0);
    text.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        line("engine: " + text.substr(begin, end - begin));
        begin = end + 1;
    }
}

}  // namespace foliant::cli
