#include <algorithm>
#include <fstream>

#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

using Lines = std::vector<std::string>;

class DriverJob : public DistillerTest {
  protected:
    std::filesystem::path write_driver(const Lines& paths) const {
        std::string text =
            "/prun { /mysave save def\r\ndup = flush\r\nRunFile\r\nclear cleardictstack\r\nmysave "
            "restore\r\n} def\r\n\r\n";
        for (const std::string& path : paths)
            text += "(" + path + ") prun\r\n";
        return write("out.ps", text);
    }
};

TEST_F(DriverJob, MakesOnePdfOfAllFilesInOrder) {
    const auto a = write("a.ps", plain_pages(2));
    const auto b =
        write("b.ps", "%!\n/Times-Roman findfont 12 scalefont setfont 72 72 moveto (last) show showpage\n");
    const auto result = distill(write_driver({a.string(), b.string()}));
    ASSERT_TRUE(result.succeeded) << result.error;
    EXPECT_EQ(facts_of(output).pages, 3);
    const std::string text = text_of_output();
    EXPECT_LT(text.find("page 1"), text.find("page 2"));
    EXPECT_LT(text.find("page 2"), text.find("last"));
    EXPECT_EQ(journal.messages, (Lines{a.string(), b.string()})) << "prun echoes every name";
    EXPECT_EQ(journal.lines_with("page "), (Lines{"page 1", "page 2", "page 3"}));
}

TEST_F(DriverJob, CountsPercentOverAllFiles) {
    const auto a = write("a.ps", "%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\nshowpage\n");
    const auto b = write("b.ps", "%!PS-Adobe-3.0\n%%Pages: 3\n%%EndComments\nshowpage showpage showpage\n");
    ASSERT_TRUE(distill(write_driver({a.string(), b.string()})).succeeded);
    EXPECT_EQ(journal.percents, (std::vector<int>{0, 25, 50, 75, 99, 100}));
}

TEST_F(DriverJob, CountsPercentByThePlaceInAllFiles) {
    const auto big = write("big.ps", plain_pages(1000));
    ASSERT_TRUE(distill(write_driver({big.string(), big.string()})).succeeded) << "the same file twice";
    EXPECT_TRUE(std::is_sorted(journal.percents.begin(), journal.percents.end()));
    const auto end_of_first = std::find(journal.lines.begin(), journal.lines.end(), "page 1000");
    const auto percent = std::find_if(std::make_reverse_iterator(end_of_first), journal.lines.rend(),
                                      [](const std::string& line) { return line.ends_with(" %"); });
    EXPECT_NEAR(std::stoi(*percent), 50, 4);
}

TEST_F(DriverJob, StartsEachFileClean) {
    const auto a = write("a.ps", "%!\n/showpage2 { } def 1 2 3 10 dict begin /x 1 def showpage\n");
    const auto b =
        write("b.ps",
              "%!\ncount 0 ne { (operands left) = } if\n"
              "/x where { pop (x left) = } if /showpage2 where { pop (definition left) = } if showpage\n");
    ASSERT_TRUE(distill(write_driver({a.string(), b.string()})).succeeded);
    EXPECT_EQ(journal.messages, (Lines{a.string(), b.string()}));
}

TEST_F(DriverJob, RunsPathsWithBlanksAccentsAndParentheses) {
    const auto a = write("two words (2).ps", plain_pages(1));
    const auto b = write("\xC3\xA9t\xC3\xA9.ps", plain_pages(1));
    const auto result = distill(write_driver({a.string(), b.string()}));
    EXPECT_TRUE(result.succeeded) << result.error;
    EXPECT_EQ(journal.messages, (Lines{a.string(), b.string()}));
}

TEST_F(DriverJob, RunsRelativePathsFromTheCurrentFolder) {
    const auto before = std::filesystem::current_path();
    write("a.ps", plain_pages(1));
    const auto driver = write_driver({"a.ps"});
    std::filesystem::current_path(folder);
    const auto result = distill(driver);
    std::filesystem::current_path(before);
    EXPECT_TRUE(result.succeeded) << result.error;
}

TEST_F(DriverJob, RunsAThousandFiles) {
    const auto a = write("a.ps", "%!\nshowpage\n");
    const auto result = distill(write_driver(Lines(1000, a.string())));
    EXPECT_TRUE(result.succeeded) << result.error;
    EXPECT_EQ(result.pages, 1000);
}

TEST_F(DriverJob, FailsWithoutFilesForItHasNoPages) {
    const auto result = distill(write_driver({}));
    EXPECT_FALSE(result.succeeded);
    EXPECT_NE(result.error.find("it has no pages"), std::string::npos);
}

TEST_F(DriverJob, NamesTheFileThatFailed) {
    const auto a = write("a.ps", plain_pages(2));
    const auto b = write("b.ps", "%!\nfoo\n");
    const auto driver = write_driver({a.string(), b.string()});
    EXPECT_EQ(distill(driver).error, "Cannot turn " + b.string() + " (named by " + driver.string() +
                                         ") into a PDF: PostScript error undefined in foo, after page 2. "
                                         "Correct the file, or print the document to it again.");
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(DriverJob, NamesAFileThatIsMissing) {
    EXPECT_EQ(distill(write_driver({"/nowhere/a.ps"})).error,
              "Cannot read the PostScript file /nowhere/a.ps: No such file or directory. Check the name and "
              "the file.");
}

TEST_F(DriverJob, GrantsNothingWhenTheFileIsNotExactlyADriver) {
    const auto a = write("a.ps", plain_pages(1));
    auto driver = write_driver({a.string()});
    EXPECT_TRUE(distill(driver).succeeded);
    journal = {};
    std::ofstream(driver, std::ios::app) << "% one more line\r\n";
    const auto result = distill(driver);
    EXPECT_FALSE(result.succeeded);
    EXPECT_NE(result.error.find("invalidfileaccess in"), std::string::npos) << result.error;
}

}  // namespace
}  // namespace foliant::hosts::distiller
