#include "hosts/office/output.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <system_error>

#include "hosts/office/support.h"

namespace foliant::hosts::office {
namespace {

using test::Scratch;

automation::Error failure(const std::filesystem::path& target) {
    return test::error_of([&] { write_output(target, [] { return std::string("content"); }); });
}

/// What is said of a file that fails while its content is being made.
automation::Error failure(std::errc reason) {
    const Scratch folder;
    return test::error_of([&] {
        write_output(folder / "out.pdf", [&]() -> std::string {
            throw std::filesystem::filesystem_error("", "/there/out.pdf", std::make_error_code(reason));
        });
    });
}

TEST(Output, AppearsWhenItsContentIsComplete) {
    const Scratch folder;
    write_output(folder / "out.pdf", [&] {
        EXPECT_EQ(folder.content(), "");
        return std::string("content");
    });
    EXPECT_EQ(test::read_file(folder / "out.pdf"), "content");
    EXPECT_EQ(folder.content(), "out.pdf");
}

TEST(Output, LeavesNothingWhenItsContentCannotBeMade) {
    const Scratch folder;
    EXPECT_THROW(write_output(folder / "out.pdf", []() -> std::string { throw std::runtime_error("no"); }),
                 std::runtime_error);
    EXPECT_EQ(folder.content(), "");
}

TEST(Output, IsTriedBeforeItsContentIsMade) {
    bool made = false;
    test::error_of([&] { write_output("/nowhere/out.pdf", [&] { return made = true, std::string(); }); });
    EXPECT_FALSE(made);
}

TEST(Output, NamesAMissingFolder) {
    const Scratch folder;
    const auto error = failure(folder / "missing/out.pdf");
    EXPECT_EQ(error.number(), 76);
    EXPECT_EQ(error.description(),
              "Cannot write " + (folder / "missing/out.pdf").string() +
                  ": its folder does not exist. Create the folder or choose another one.");
}

TEST(Output, IsNeitherAFolderNorAPipe) {
    const Scratch folder;
    EXPECT_EQ(failure(folder.path()).number(), 75);
    const auto pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(failure(pipe).number(), 75);
    EXPECT_EQ(failure(pipe).description(),
              "Cannot write " + pipe.string() + ": it is a device or a pipe. Give the name of a file.");
}

TEST(Output, HasTheClassicNumbersOfItsFailures) {
    EXPECT_EQ(failure(std::errc::permission_denied).number(), 70);
    EXPECT_EQ(failure(std::errc::read_only_file_system).number(), 70);
    EXPECT_EQ(failure(std::errc::no_space_on_device).number(), 61);
    EXPECT_EQ(failure(std::errc::no_space_on_device).description(),
              "Cannot write /there/out.pdf: the disk is full or a quota is reached. Free some space.");
    EXPECT_EQ(failure(std::errc::io_error).number(), 75);
}

}  // namespace
}  // namespace foliant::hosts::office
