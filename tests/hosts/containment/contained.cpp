#include "hosts/containment/contained.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace foliant::hosts::containment::test {

namespace fs = std::filesystem;

std::string in_a_process(const std::function<std::string()>& attempt) {
    int ends[2];
    if (pipe(ends) != 0) return "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        std::string text;
        try {
            text = attempt();
        } catch (const std::exception& problem) {
            text = problem.what();
        }
        const bool told = write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
        _exit(told ? 0 : 1);
    }
    close(ends[1]);
    std::string text;
    char buffer[4096];
    for (ssize_t got = 0; (got = read(ends[0], buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(got));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status)) : text;
}

std::string contained(const Policy& policy, const std::function<std::string()>& attempt) {
    return in_a_process([&] {
        apply(policy);
        return attempt();
    });
}

std::string outcome(long result) {
    return result >= 0 ? "done" : strerrorname_np(errno);
}

std::string opening(const fs::path& path, int flags) {
    const int file = open(path.c_str(), flags | O_CLOEXEC, 0600);
    const std::string result = outcome(file);
    if (file >= 0) close(file);
    return result;
}

Ground::Ground() {
    for (const char* inner : {"open", "work"}) {
        fs::create_directory(folder_ / inner);
        folder_.write(fs::path(inner) / "file", inner);
    }
    folder_.write("secret", "secret");
    folder_.write("document", "document");
}

}  // namespace foliant::hosts::containment::test
