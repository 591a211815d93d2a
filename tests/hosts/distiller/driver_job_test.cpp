#include <algorithm>
#include <fstream>

#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

using Lines = std::vector<std::string>;

class DriverJob : public DistillerTest {
  protected:
    /// The driver as a file, as another program or a user could have made it.
    std::filesystem::path write_driver(const Lines& paths) const {
        std::string text;
        for (const std::string& line : driver_lines(paths))
            text += line + "\r\n";
        return write("out.ps", text);
    }
};

TEST_F(DriverJob, MakesOnePdfOfAllFilesInOrder) {
    const auto a = write("a.ps", plain_pages(2));
    const auto b =
        write("b.ps", "%!\n/Times-Roman findfont 12 scalefont setfont 72 72 moveto (last) show showpage\n");
    const auto result = distill_driver({a.string(), b.string()});
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
    ASSERT_TRUE(distill_driver({a.string(), b.string()}).succeeded);
    EXPECT_EQ(journal.percents, (std::vector<int>{0, 25, 50, 75, 99, 100}));
}

TEST_F(DriverJob, CountsPercentByThePlaceInAllFiles) {
    const auto big = write("big.ps", plain_pages(1000));
    ASSERT_TRUE(distill_driver({big.string(), big.string()}).succeeded) << "the same file twice";
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
    ASSERT_TRUE(distill_driver({a.string(), b.string()}).succeeded);
    EXPECT_EQ(journal.messages, (Lines{a.string(), b.string()}));
}

TEST_F(DriverJob, RunsPathsWithBlanksAccentsAndParentheses) {
    const auto a = write("two words (2).ps", plain_pages(1));
    const auto b = write("\xC3\xA9t\xC3\xA9.ps", plain_pages(1));
    const auto result = distill_driver({a.string(), b.string()});
    EXPECT_TRUE(result.succeeded) << result.error;
    EXPECT_EQ(journal.messages, (Lines{a.string(), b.string()}));
}

TEST_F(DriverJob, RunsRelativePathsFromTheCurrentFolder) {
    const auto before = std::filesystem::current_path();
    write("a.ps", plain_pages(1));
    std::filesystem::current_path(folder);
    const auto result = distill_driver({"a.ps"});
    std::filesystem::current_path(before);
    EXPECT_TRUE(result.succeeded) << result.error;
}

TEST_F(DriverJob, RunsAThousandFiles) {
    const auto a = write("a.ps", "%!\nshowpage\n");
    const auto result = distill_driver(Lines(1000, a.string()));
    EXPECT_TRUE(result.succeeded) << result.error;
    EXPECT_EQ(result.pages, 1000);
}

TEST_F(DriverJob, FailsWithoutFiles) {
    const auto result = distill_driver({});
    EXPECT_FALSE(result.succeeded);
    EXPECT_EQ(result.error,
              "There is nothing to convert: none of the PostScript files exists. Check their names.");
}

TEST_F(DriverJob, NamesTheFileThatFailed) {
    const auto a = write("a.ps", plain_pages(2));
    const auto b = write("b.ps", "%!\nfoo\n");
    EXPECT_EQ(distill_driver({a.string(), b.string()}).error,
              "Cannot turn " + b.string() +
                  " into a PDF: PostScript error undefined in foo, after page 2. "
                  "Correct the file, or print the document to it again.");
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(DriverJob, NamesAFileThatIsMissing) {
    EXPECT_EQ(distill_driver({"/nowhere/a.ps"}).error,
              "Cannot read the PostScript file /nowhere/a.ps: No such file or directory. Check the name and "
              "the file.");
}

TEST_F(DriverJob, RunsFilesOfAnyName) {
    Lines names;
    for (const char* name : {"a)b.ps", "((.ps", "new\nline.ps", "cr\r\n) prun.ps", "back\\141slash.ps",
                             "100%d.ps", "%pipe%true.ps", "<2f>.ps", "\x1b[31m.ps", "*", "-dNOSAFER"}) {
        names.push_back(write(name, plain_pages(1)).string());
    }
    const auto result = distill_driver(names);
    EXPECT_TRUE(result.succeeded) << result.error;
    EXPECT_EQ(result.pages, static_cast<int>(names.size()));
}

TEST_F(DriverJob, TakesNoFileFromInsideOfAName) {
    const auto secret = write("secret.ps", "%!\n(secret told) = flush showpage\n");
    const std::string sly = "a.ps) prun\r\n(" + secret.string();
    const auto result = distill_driver({sly});
    EXPECT_FALSE(result.succeeded);
    EXPECT_NE(result.error.find("No such file or directory"), std::string::npos) << result.error;
    EXPECT_EQ(std::count(journal.messages.begin(), journal.messages.end(), "secret told"), 0);
}

TEST_F(DriverJob, ReadsNothingUnderTheDriversOwnName) {
    const auto a = write("a.ps", plain_pages(1));
    write("out.ps", "%!\n(a stranger's file) = showpage showpage\n");
    const auto result = distill_driver({a.string()});
    EXPECT_EQ(result.pages, 1) << result.error;
    EXPECT_EQ(journal.messages, Lines{a.string()});
}

/// A file that looks like a driver, to the letter, is a document like any other.
TEST_F(DriverJob, TrustsNoFileThatLooksLikeADriver) {
    const auto a = write("a.ps", "secret_word showpage\n");
    const auto driver = write_driver({a.string()});
    const auto result = distill(driver);
    EXPECT_FALSE(result.succeeded);
    EXPECT_EQ(result.error,
              "Cannot turn " + driver.string() +
                  " into a PDF: PostScript error invalidfileaccess in RunFile, before the first page "
                  "was finished. A document may not use other files of this machine. To put several "
                  "PostScript files into one PDF, name them to CreatePDFfromMultiPS.");
    for (const std::string& line : journal.lines)
        EXPECT_EQ(line.find("secret_word"), std::string::npos) << line;
}

TEST_F(DriverJob, LetsADocumentRunNoMoreThanTheDriverNames) {
    const auto secret = write("secret.ps", "(secret told) = flush\n");
    const auto a =
        write("a.ps", "%!\n{ (" + secret.string() + ") RunFile } stopped { (DENIED) = flush } if showpage\n");
    EXPECT_TRUE(distill_driver({a.string()}).succeeded);
    EXPECT_EQ(journal.messages, (Lines{a.string(), "DENIED"}));
}

}  // namespace
}  // namespace foliant::hosts::distiller
