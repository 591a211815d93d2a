#include "cli/own_streams.h"

#include <cerrno>
#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace foliant::cli {

void fill_closed_streams() noexcept {
    // A file gets the lowest number that is free.
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(standard, F_GETFD) == -1)
            ::open("/dev/null", standard == STDOUT_FILENO ? O_RDONLY : O_WRONLY);
}

OwnStreams::Buffer::Buffer(int standard, std::function<void()> before)
    : target_(fcntl(standard, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)), before_(std::move(before)) {}

std::streambuf::int_type OwnStreams::Buffer::overflow(int_type c) {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    const char single = traits_type::to_char_type(c);
    return xsputn(&single, 1) == 1 ? c : traits_type::eof();
}

std::streamsize OwnStreams::Buffer::xsputn(const char* text, std::streamsize length) {
    if (before_) before_();
    std::streamsize done = 0;
    while (done < length) {
        const ssize_t written = ::write(target_.get(), text + done, static_cast<std::size_t>(length - done));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) break;
        done += written;
    }
    return done;
}

OwnStreams::OwnStreams(int elsewhere, std::function<void()> before_message)
    : output_(STDOUT_FILENO, {}), errors_(STDERR_FILENO, std::move(before_message)) {
    std::cout.flush();
    std::cerr.flush();
    std::cout.rdbuf(&output_);
    std::cerr.rdbuf(&errors_);
    const posix::FileDescriptor nowhere(::open("/dev/null", O_WRONLY | O_CLOEXEC));
    const int target = elsewhere >= 0 ? elsewhere : nowhere.get();
    dup2(target, STDOUT_FILENO);
    dup2(target, STDERR_FILENO);
}

}  // namespace foliant::cli
