#include "hosts/distiller/pending_file.h"

#include <fstream>
#include <sstream>
#include <unistd.h>

#include "hosts/distiller/distill_error.h"
#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

class PendingFileTest : public DistillerTest {
  protected:
    static void fill(const PendingFile& file, std::string_view text) {
        ASSERT_EQ(::write(file.descriptor(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    std::string content(const std::filesystem::path& path) {
        std::ostringstream text;
        text << std::ifstream(path).rdbuf();
        return text.str();
    }
    std::string failure(const std::filesystem::path& target) {
        try {
            PendingFile file(target);
        } catch (const DistillError& error) {
            return error.what();
        }
        return "no failure";
    }
};

TEST_F(PendingFileTest, HasNoNameUntilItIsCommitted) {
    PendingFile file(output);
    fill(file, "new");
    EXPECT_FALSE(std::filesystem::exists(output));
    file.commit();
    EXPECT_EQ(content(output), "new");
    EXPECT_EQ(files_in(folder), (std::vector<std::string>{"out.pdf", "scratch"}));
}

TEST_F(PendingFileTest, IsGoneWhenItIsNotCommitted) {
    {
        PendingFile file(output);
        fill(file, "half");
    }
    EXPECT_EQ(files_in(folder), std::vector<std::string>{"scratch"});
}

TEST_F(PendingFileTest, HasAHiddenNameWhereItNeedsOne) {
    {
        PendingFile file(output, PendingFile::Name::hidden);
        fill(file, "half");
        EXPECT_EQ(files_in(folder).size(), 2U);
        EXPECT_TRUE(files_in(folder).front().starts_with(".foliant-"));
    }
    EXPECT_EQ(files_in(folder), std::vector<std::string>{"scratch"});
    PendingFile file(output, PendingFile::Name::hidden);
    fill(file, "new");
    file.commit();
    EXPECT_EQ(content(output), "new");
    EXPECT_EQ(files_in(folder), (std::vector<std::string>{"out.pdf", "scratch"}));
}

TEST_F(PendingFileTest, ReplacesWhatHadTheName) {
    write("out.pdf", "old");
    PendingFile file(output);
    fill(file, "new");
    EXPECT_EQ(content(output), "old");
    file.commit();
    EXPECT_EQ(content(output), "new");
}

TEST_F(PendingFileTest, HasTheRightsOfANewFile) {
    PendingFile file(output);
    file.commit();
    const auto rights = std::filesystem::status(output).permissions();
    const auto expected = std::filesystem::status(write("other", "")).permissions();
    EXPECT_EQ(rights, expected);
}

TEST_F(PendingFileTest, SaysWhichFolderIsMissing) {
    EXPECT_EQ(failure("/nowhere/deep/x.pdf"),
              "Cannot write the PDF /nowhere/deep/x.pdf: No such file or directory. "
              "Create the folder /nowhere/deep first.");
}

TEST_F(PendingFileTest, RefusesAFolderAsItsName) {
    EXPECT_EQ(failure(scratch), "Cannot write the PDF " + scratch.string() +
                                    ": Is a directory. Choose another name or folder.");
}

TEST_F(PendingFileTest, RefusesAFolderThatCannotBeWritten) {
    EXPECT_NE(failure("/proc/x.pdf").find("Cannot write the PDF /proc/x.pdf: "), std::string::npos);
}

}  // namespace
}  // namespace foliant::hosts::distiller
