#include "cli/terminal.h"

#include <CLI/Error.hpp>
#include <cstdio>
#include <memory>
#include <termios.h>
#include <unistd.h>

namespace foliant::cli {
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

}  // namespace

std::string ask_on_terminal(const std::string& prompt) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> terminal(std::fopen("/dev/tty", "r+"), std::fclose);
    if (!terminal) {
        throw CLI::ValidationError("there is no terminal to ask for a password; pass it in a file instead");
    }
    const NoEcho silence(fileno(terminal.get()));
    std::fputs(prompt.c_str(), terminal.get());
    std::fflush(terminal.get());
    std::string typed;
    for (int c = std::fgetc(terminal.get()); c != EOF && c != '\n'; c = std::fgetc(terminal.get())) {
        typed.push_back(static_cast<char>(c));
    }
    std::fputc('\n', terminal.get());
    return typed;
}

}  // namespace foliant::cli
