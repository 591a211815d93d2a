#include "platform/local/outliving_program.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

#include "posix/file_descriptor.h"

namespace foliant::platform::local {

using posix::FileDescriptor;

namespace {

/// Everything that the new process needs, made before it exists: it may only make system calls.
class Start {
  public:
    explicit Start(const ProgramCall& call)
        : program_(call.program.string()),
          texts_(call.arguments),
          input_(::open(call.input.empty() ? "/dev/null" : call.input.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (!input_) throw std::system_error(errno, std::generic_category(), call.input.string());
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category(), program_);
        report_in_ = FileDescriptor(ends[0]);
        report_out_ = FileDescriptor(ends[1]);
        words_.push_back(program_.data());
        for (std::string& text : texts_)
            words_.push_back(text.data());
        words_.push_back(nullptr);
    }

    /// In a process that nobody has started: its own maker is gone at once.
    [[noreturn]] void run_orphaned() noexcept {
        ::setsid();
        if (const pid_t orphan = ::fork(); orphan != 0) ::_exit(orphan < 0 ? report(errno) : 0);
        sigset_t none;
        sigemptyset(&none);
        ::sigprocmask(SIG_SETMASK, &none, nullptr);
        for (int number = 1; number < NSIG; ++number)
            std::signal(number, SIG_DFL);
        ::dup2(input_.get(), STDIN_FILENO);
        ::execv(program_.c_str(), words_.data());
        ::_exit(report(errno));
    }

    /// The error of the start; 0 for none. Waits until the program runs.
    int wait_for_report() {
        report_out_.reset();
        int error = 0;
        ssize_t got = 0;
        while ((got = ::read(report_in_.get(), &error, sizeof error)) < 0 && errno == EINTR) {
        }
        return got == sizeof error ? error : 0;
    }

  private:
    int report(int error) noexcept { return ::write(report_out_.get(), &error, sizeof error) < 0 ? 2 : 1; }

    std::string program_;
    std::vector<std::string> texts_;
    std::vector<char*> words_;
    FileDescriptor input_;
    FileDescriptor report_in_;
    FileDescriptor report_out_;
};

}  // namespace

std::optional<std::filesystem::path> find_program(std::string_view name) {
    const char* path = std::getenv("PATH");
    std::string_view folders = path == nullptr ? "/usr/local/bin:/usr/bin:/bin" : path;
    while (!folders.empty()) {
        const std::filesystem::path folder = folders.substr(0, folders.find(':'));
        folders.remove_prefix(std::min(folders.size(), folder.native().size() + 1));
        // An empty or relative entry is whatever folder the user happens to be in.
        std::filesystem::path program = folder / name;
        if (program.is_absolute() && ::access(program.c_str(), X_OK) == 0) return program;
    }
    return std::nullopt;
}

void start_to_outlive(const ProgramCall& call) {
    Start start(call);
    const pid_t maker = ::fork();
    if (maker < 0) throw std::system_error(errno, std::generic_category(), call.program.string());
    if (maker == 0) start.run_orphaned();
    const int error = start.wait_for_report();
    while (::waitpid(maker, nullptr, 0) < 0 && errno == EINTR) {
    }
    if (error != 0) throw std::system_error(error, std::generic_category(), call.program.string());
}

}  // namespace foliant::platform::local
