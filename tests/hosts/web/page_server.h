#pragma once

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "support/scratch_folder.h"

namespace foliant::hosts::web {

/// Pages on a port of this machine.
class PageServer {
  public:
    /// By https where a certificate is given, a file with its key.
    explicit PageServer(const std::string& certificate = "") : is_secure_(!certificate.empty()) {
        int ends[2];
        if (::pipe(ends) != 0) std::abort();
        process_ = ::fork();
        if (process_ == 0) {
            ::dup2(ends[1], STDOUT_FILENO);
            const int asked = ::open((folder_ / "asked").c_str(), O_WRONLY | O_CREAT, 0600);
            ::dup2(asked, STDERR_FILENO);
            ::execl("/usr/bin/python3", "python3", "-B", PAGE_SERVER,
                    certificate.empty() ? nullptr : certificate.c_str(), nullptr);
            ::_exit(127);
        }
        ::close(ends[1]);
        char letter = 0;
        while (::read(ends[0], &letter, 1) == 1 && letter != '\n')
            port_ += letter;
        ::close(ends[0]);
    }
    PageServer(const PageServer&) = delete;
    PageServer& operator=(const PageServer&) = delete;
    ~PageServer() {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }

    std::string address(const std::string& page) const {
        return (is_secure_ ? "https" : "http") + ("://127.0.0.1:" + port_ + page);
    }

    /// The pages that somebody has asked for, sorted.
    tests::Names asked_for() const {
        std::istringstream lines(tests::read_file(folder_ / "asked"));
        tests::Names names;
        for (std::string name; std::getline(lines, name);)
            names.push_back(name);
        std::ranges::sort(names);
        return names;
    }

  private:
    tests::ScratchFolder folder_;
    bool is_secure_;
    pid_t process_ = 0;
    std::string port_;
};

}  // namespace foliant::hosts::web
