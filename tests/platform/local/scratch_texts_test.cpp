#include "platform/local/scratch_texts.h"

#include <gtest/gtest.h>

#include "platform/local/local_files.h"
#include "support/scratch_folder.h"

namespace foliant::platform::local::test {
namespace {

namespace fs = std::filesystem;
using Lines = ScratchTexts::Lines;

class ScratchTextsTest : public testing::Test {
  protected:
    void write_scratch(const std::string& path, const Lines& lines) {
        const auto text = files.create_text(path, TextPurpose::scratch);
        for (const std::string& line : lines)
            text->write_line(line);
        text->close();
    }

    tests::ScratchFolder folder;
    LocalFiles files;
};

TEST_F(ScratchTextsTest, AreKnownByTheirPathAndTouchNothingThere) {
    const std::string path = folder / "none/book.ps";
    write_scratch(path, {"a", "", "b\r\nc"});
    ASSERT_NE(files.scratch_text(path), nullptr);
    EXPECT_EQ(*files.scratch_text(path), (Lines{"a", "", "b\r\nc"})) << "a line is a line whatever it holds";
    EXPECT_EQ(files.length(path), 11);
    files.remove(path);
    EXPECT_EQ(files.scratch_text(path), nullptr);
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(ScratchTextsTest, HideAFileOfTheSameNameAndLeaveItAlone) {
    const std::string path = folder / "book.ps";
    tests::write_file(path, "mine");
    write_scratch(path, {"driver"});
    EXPECT_EQ(files.length(path), 8);
    files.remove(path);
    EXPECT_EQ(files.length(path), 4);
    EXPECT_EQ(tests::read_file(path), "mine");
}

TEST_F(ScratchTextsTest, AreOnesOwnOnly) {
    tests::write_file(folder / "book.ps", "mine");
    files.create_text(folder / "result.txt", TextPurpose::result)->write_line("for the user");
    EXPECT_EQ(files.scratch_text(folder / "book.ps"), nullptr);
    EXPECT_EQ(files.scratch_text(folder / "result.txt"), nullptr);
}

TEST_F(ScratchTextsTest, OfACallWithinACallComeAndGoBeforeItsOwn) {
    const std::string path = folder / "book.ps";
    write_scratch(path, {"outer"});
    write_scratch(path, {"inner"});
    EXPECT_EQ(*files.scratch_text(path), Lines{"inner"});
    files.remove(path);
    EXPECT_EQ(*files.scratch_text(path), Lines{"outer"});
}

TEST_F(ScratchTextsTest, MayBeRemovedWhileTheyAreWritten) {
    const std::string path = folder / "book.ps";
    const auto text = files.create_text(path, TextPurpose::scratch);
    files.remove(path);
    EXPECT_NO_THROW(text->write_line("to nobody"));
    EXPECT_NO_THROW(text->close());
}

}  // namespace
}  // namespace foliant::platform::local::test
