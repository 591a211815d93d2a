#include "hosts/office/print/output.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "hosts/office/noting_machine.h"
#include "hosts/office/support.h"
#include "hosts/office/word/word_error.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

using tests::ScratchFolder;

test::NotingMachine machine;

automation::Error failure(const std::filesystem::path& target) {
    return tests::error_of(
        [&] { write_output(target, machine, microsoft_word, [] { return std::string("content"); }); });
}

TEST(Output, AppearsWhenItsContentIsComplete) {
    const ScratchFolder folder;
    write_output(folder / "out.pdf", machine, microsoft_word, [&] {
        EXPECT_EQ(tests::names_in(folder.path()), tests::Names());
        return std::string("content");
    });
    EXPECT_EQ(tests::read_file(folder / "out.pdf"), "content");
    EXPECT_EQ(tests::names_in(folder.path()), tests::Names{"out.pdf"});
}

TEST(Output, LeavesNothingWhenItsContentCannotBeMade) {
    const ScratchFolder folder;
    EXPECT_THROW(write_output(folder / "out.pdf", machine, microsoft_word,
                              []() -> std::string { throw std::runtime_error("no"); }),
                 std::runtime_error);
    EXPECT_EQ(tests::names_in(folder.path()), tests::Names());
}

TEST(Output, IsTriedBeforeItsContentIsMade) {
    bool made = false;
    tests::error_of([&] {
        write_output("/nowhere/out.pdf", machine, microsoft_word, [&] { return made = true, std::string(); });
    });
    EXPECT_FALSE(made);
}

TEST(Output, NamesAMissingFolder) {
    const ScratchFolder folder;
    const auto error = failure(folder / "missing/out.pdf");
    EXPECT_EQ(error.number(), 76);
    EXPECT_EQ(error.description(), "Cannot write " + (folder / "missing/out.pdf").string() + ": the folder " +
                                       (folder / "missing").string() +
                                       " does not exist. Create it, or choose another one.");
    EXPECT_EQ(error.source(), "Microsoft Word");
}

TEST(Output, IsNeitherAFolderNorAPipe) {
    const ScratchFolder folder;
    EXPECT_EQ(failure(folder.path()).number(), 75);
    const auto pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(failure(pipe).number(), 75);
    EXPECT_EQ(failure(pipe).description(),
              "Cannot write " + pipe.string() + ": it is a device or a pipe. Give the name of a file.");
}

}  // namespace
}  // namespace foliant::hosts::office
