#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "hosts/office/scratch.h"

/// Ends without destroying static objects, as a program that has started LibreOffice has to. The engine's
/// folder is removed by a shell in place of this process: LibreOffice's threads write to it as long as they
/// live.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const std::string result = std::to_string(RUN_ALL_TESTS());
    std::fflush(nullptr);
    execl("/bin/sh", "sh", "-c", "rm -rf -- \"$0\"; exit $1",
          foliant::hosts::office::test::engine_folder().c_str(), result.c_str(), nullptr);
    _exit(1);
}
