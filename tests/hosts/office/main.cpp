#include <cstdio>
#include <gtest/gtest.h>
#include <unistd.h>

/// Ends without destroying static objects, as a program that has started LibreOffice has to.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    std::fflush(nullptr);
    _exit(result);
}
