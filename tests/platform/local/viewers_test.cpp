#include "platform/local/viewers.h"

#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sstream>
#include <system_error>
#include <thread>
#include <unistd.h>

#include "support/scratch_folder.h"

namespace foliant::platform::local {
namespace {

using Words = std::vector<std::string>;

/// Programs that are found by PATH, and no others.
class Viewers : public testing::Test {
  protected:
    Viewers() { ::setenv("PATH", folder.path().c_str(), 1); }
    ~Viewers() override { ::setenv("PATH", path_.c_str(), 1); }

    std::string install(const std::string& name, const std::string& script = "") const {
        const auto program = folder.write(name, "#!/bin/sh\n" + script);
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        return program.string();
    }

    /// What a file holds, as soon as it holds anything.
    std::string read_soon(const std::string& name) const {
        for (int i = 0; i < 500 && tests::read_file(folder / name).empty(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return tests::read_file(folder / name);
    }

    const tests::ScratchFolder folder;

  private:
    const std::string path_ = std::getenv("PATH");
};

TEST_F(Viewers, ThePageIsToldAsEachOfThemTakesIt) {
    const auto call = [&](const std::string& name) {
        const std::string program = install(name);
        const auto found = find_viewer("/some/where.pdf", 3);
        std::filesystem::remove(program);
        EXPECT_EQ(found ? found->program.string() : "", program);
        return found ? found->arguments : Words{};
    };
    EXPECT_EQ(call("okular"), (Words{"--page", "3", "/some/where.pdf"}));
    EXPECT_EQ(call("evince"), (Words{"--page-index=3", "/some/where.pdf"}));
    EXPECT_EQ(call("qpdfview"), (Words{"--unique", "/some/where.pdf#3"}));
    EXPECT_EQ(call("xpdf"), (Words{"/some/where.pdf", "3"}));
    EXPECT_EQ(call("xdg-open"), (Words{"/some/where.pdf"}));
    EXPECT_FALSE(find_viewer("/some/where.pdf", 3).has_value());
}

TEST_F(Viewers, AViewerComesBeforeWhateverTheDesktopOpens) {
    install("xdg-open");
    install("xpdf");
    EXPECT_EQ(find_viewer("a.pdf", 1)->program, folder / "xpdf");
    EXPECT_EQ(find_viewer("a.pdf", 1)->arguments.front(),
              (std::filesystem::current_path() / "a.pdf").string());
}

TEST_F(Viewers, ProgramsOfTheCurrentFolderAreNotFound) {
    install("okular");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    ::setenv("PATH", ":.:", 1);
    EXPECT_FALSE(find_program("okular").has_value());
    std::filesystem::current_path(before);
}

TEST_F(Viewers, ATextIsReadAloudFromStandardInput) {
    EXPECT_FALSE(find_reader("/text").has_value());
    install("espeak-ng");
    EXPECT_EQ(find_reader("/text")->arguments, Words{"--stdin"});
    install("spd-say");
    EXPECT_EQ(find_reader("/text")->arguments, Words{"--pipe-mode"});
    EXPECT_EQ(find_reader("/text")->input, "/text");
}

TEST_F(Viewers, AProgramOutlivesWhoeverStartsIt) {
    const std::string program = install(
        "okular", "read line; echo \"$1 $line $(/bin/ps -o sid= -p $$) $$\" > " + (folder / "said").string());
    start_to_outlive({program, {"one"}, folder.write("input", "two\n")});
    std::istringstream said(read_soon("said"));
    std::string argument;
    std::string line;
    pid_t group = 0;
    pid_t self = 0;
    said >> argument >> line >> group >> self;
    EXPECT_EQ(argument + " " + line, "one two");
    EXPECT_NE(group, ::getsid(0));
    EXPECT_NE(self, 0);
}

TEST_F(Viewers, AProgramThatCannotBeStartedIsTold) {
    EXPECT_THROW(start_to_outlive({folder / "none", {}, {}}), std::system_error);
    EXPECT_THROW(start_to_outlive({folder.write("text", "no program"), {}, {}}), std::system_error);
}

}  // namespace
}  // namespace foliant::platform::local
