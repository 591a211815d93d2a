#include "hosts/module_part.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace foliant::hosts {
namespace {

constexpr char inside = 0;

TEST(ModuleParts, OfAProgramLieAmongItsModules) {
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_EQ(ModuleParts(&inside).file("part.so"), program.parent_path() / "hosts/part.so");
}

TEST(ModuleParts, OfALibraryLieBesideIt) {
    const void* const in_the_c_library = ::dlsym(RTLD_DEFAULT, "environ");
    const auto file = ModuleParts(in_the_c_library).file("libm.so.6");
    EXPECT_TRUE(std::filesystem::exists(file)) << file;
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
