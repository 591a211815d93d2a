#include "hosts/module_part.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace foliant::hosts {
namespace {

constexpr char inside = 0;

TEST(ModuleParts, LieBesideWhatNeedsThem) {
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_TRUE(std::filesystem::equivalent(ModuleParts(&inside).file(program.filename().string()), program));
}

TEST(ModuleParts, ThatAreNotThereAreNamed) {
    try {
        ModuleParts(&inside).load<int()>("absent.so");
        FAIL() << "it was loaded";
    } catch (const std::runtime_error& reason) {
        EXPECT_NE(std::string(reason.what()).find("absent.so"), std::string::npos) << reason.what();
    }
}

}  // namespace
}  // namespace foliant::hosts
