#include "cli/terminal.h"

#include <CLI/Error.hpp>
#include <csignal>
#include <fcntl.h>
#include <sys/signalfd.h>
#include <termios.h>
#include <unistd.h>

#include "posix/file_descriptor.h"

namespace foliant::cli {

using posix::FileDescriptor;

namespace {

/// Keeps a terminal from showing what is typed, as long as it lives.
class NoEcho {
  public:
    explicit NoEcho(int terminal) : terminal_(terminal) {
        if (tcgetattr(terminal_, &former_) != 0) return;
        termios silent = former_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        changed_ = tcsetattr(terminal_, TCSAFLUSH, &silent) == 0;
    }
    NoEcho(const NoEcho&) = delete;
    NoEcho& operator=(const NoEcho&) = delete;
    ~NoEcho() {
        if (changed_) tcsetattr(terminal_, TCSAFLUSH, &former_);
    }

  private:
    int terminal_;
    termios former_{};
    bool changed_ = false;
};

/// Signals that would end the command wait, and can be seen, as long as this lives; then they end it.
class WaitingSignals {
  public:
    WaitingSignals() {
        sigset_t ending;
        sigemptyset(&ending);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT})
            sigaddset(&ending, signal);
        sigprocmask(SIG_BLOCK, &ending, &former_);
        seen_ = FileDescriptor(signalfd(-1, &ending, SFD_CLOEXEC));
    }
    WaitingSignals(const WaitingSignals&) = delete;
    WaitingSignals& operator=(const WaitingSignals&) = delete;
    ~WaitingSignals() { sigprocmask(SIG_SETMASK, &former_, nullptr); }

    int descriptor() const { return seen_.get(); }

  private:
    sigset_t former_{};
    FileDescriptor seen_;
};

void show(int terminal, const std::string& text) {
    [[maybe_unused]] const ssize_t written = write(terminal, text.data(), text.size());
}

}  // namespace

std::string ask_on_terminal(const std::string& prompt, const Deadline& deadline) {
    const FileDescriptor terminal(open("/dev/tty", O_RDWR | O_CLOEXEC));
    if (!terminal) {
        throw CLI::ValidationError("there is no terminal to ask for a password; pass it in a file instead");
    }
    const WaitingSignals signals;
    const NoEcho silence(terminal.get());
    show(terminal.get(), prompt);
    std::string typed = read_secret(terminal.get(), "the password", deadline, signals.descriptor());
    show(terminal.get(), "\n");
    return typed;
}

}  // namespace foliant::cli
