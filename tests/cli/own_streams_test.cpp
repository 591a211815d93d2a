#include "cli/own_streams.h"

#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace foliant::cli {
namespace {

std::string content_of(const std::string& path) {
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

TEST(OwnStreams, OurWordsGoOnAndThoseOfLibrariesGoElsewhere) {
    const std::string base = testing::TempDir() + "foliant-streams-" + std::to_string(getpid());
    const auto file = [&](const char* name) { return open((base + name).c_str(), O_RDWR | O_CREAT, 0600); };
    const pid_t child = fork();
    if (child == 0) {
        dup2(file("out"), STDOUT_FILENO);
        dup2(file("err"), STDERR_FILENO);
        int messages = 0;
        const OwnStreams streams(file("else"), [&] { ++messages; });
        std::cout << "result\n" << std::flush;
        std::cerr << "message\n";
        const std::string noise = "noise\n";
        const bool written = write(STDOUT_FILENO, noise.data(), noise.size()) > 0 &&
                             write(STDERR_FILENO, noise.data(), noise.size()) > 0;
        _exit(written && messages == 1 && std::cout.good() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(content_of(base + "out"), "result\n");
    EXPECT_EQ(content_of(base + "err"), "message\n");
    EXPECT_EQ(content_of(base + "else"), "noise\nnoise\n");
    for (const char* name : {"out", "err", "else"})
        unlink((base + name).c_str());
}

}  // namespace
}  // namespace foliant::cli
