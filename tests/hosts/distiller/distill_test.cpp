#include <algorithm>
#include <clocale>
#include <fcntl.h>
#include <unistd.h>

#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

using testing::Test;
using Lines = std::vector<std::string>;

/// PostScript in the binary envelope of DOS: where it starts and how long it is, then no previews.
std::string dos_eps(const std::string& program) {
    std::string envelope("\xc5\xd0\xd3\xc6\x1e\0\0\0", 8);
    envelope += static_cast<char>(program.size());
    envelope.append(19, '\0');
    return envelope + "\xff\xff" + program;
}

class Distill : public DistillerTest {
  protected:
    /// The job succeeded and reported exactly these pages, once each, in order.
    void expect_pages(const DistillResult& result, int count) {
        EXPECT_TRUE(result.succeeded) << result.error;
        EXPECT_EQ(result.pages, count);
        EXPECT_EQ(facts_of(output).pages, count);
        Lines expected;
        for (int page = 1; page <= count; ++page)
            expected.push_back("page " + std::to_string(page));
        EXPECT_EQ(journal.lines_with("page "), expected);
    }
};

TEST_F(Distill, TellsAJobFromStartToEnd) {
    const auto result =
        distill_text("%!PS-Adobe-3.0\n%%Pages: 2\n%%EndComments\n(hello) = flush showpage showpage\n");
    EXPECT_TRUE(result.succeeded) << result.error;
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(journal.lines, (Lines{"started", "0 %", "message hello", "page 1", "50 %", "page 2", "99 %",
                                    "100 %", "done"}));
}

TEST_F(Distill, ReportsEveryPageInOrder) {
    expect_pages(distill_text(plain_pages(50)), 50);
    EXPECT_NE(text_of_output().find("This is page 50"), std::string::npos);
}

TEST_F(Distill, GoesByThePlaceInTheFileWhereNoPageCountIsDeclared) {
    distill_text(plain_pages(2000));
    ASSERT_GT(journal.percents.size(), 10U) << "a file of this size is read in many steps";
    EXPECT_TRUE(std::is_sorted(journal.percents.begin(), journal.percents.end()));
    EXPECT_EQ(journal.percents.front(), 0);
    EXPECT_EQ(journal.percents.back(), 100);
    const auto middle = std::find(journal.lines.begin(), journal.lines.end(), "page 1000");
    const auto next_percent = std::find_if(middle, journal.lines.end(),
                                           [](const std::string& line) { return line.ends_with(" %"); });
    ASSERT_NE(next_percent, journal.lines.end());
    EXPECT_NEAR(std::stoi(*next_percent), 50, 6);
}

TEST_F(Distill, StaysBelowAHundredWhenMorePagesComeThanDeclared) {
    expect_pages(distill_text("%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\nshowpage showpage showpage\n"), 3);
    EXPECT_EQ(journal.percents, (std::vector<int>{0, 99, 100}));
}

TEST_F(Distill, CountsPagesOfADocumentWithItsOwnEndPage) {
    // Two calls of showpage a sheet, the first of each pair held back.
    expect_pages(
        distill_text("%!\n/n 0 def\n"
                     "<< /EndPage { exch pop 2 eq { false } { /n n 1 add def n 2 mod 0 eq } ifelse } >> "
                     "setpagedevice\n"
                     "showpage showpage showpage showpage\n"),
        2);
}

TEST_F(Distill, CountsPagesAcrossChangesOfThePageDevice) {
    expect_pages(
        distill_text("%!\nshowpage << /PageSize [300 400] >> setpagedevice showpage\n"
                     "gsave << /PageSize [400 300] >> setpagedevice showpage grestore\n"
                     "save << /EndPage { pop pop true } >> setpagedevice showpage restore showpage\n"),
        6);
}

TEST_F(Distill, CountsPagesOfADocumentThatRedefinesShowpage) {
    expect_pages(distill_text("%!\n/showpage { (extra) = showpage } bind def showpage showpage\n"
                              "/copypage { } def copypage systemdict /copypage get exec\n"),
                 3);
}

TEST_F(Distill, TakesQuitAsTheEndOfTheFile) {
    expect_pages(distill_text("%!\nshowpage quit showpage\n"), 1);
}

TEST_F(Distill, TakesStopAsTheEndOfTheFile) {
    expect_pages(distill_text("%!\nshowpage stop showpage\n"), 1);
}

TEST_F(Distill, KeepsPagesThatWereMadeBeforeTheDeviceWasTakenAway) {
    expect_pages(distill_text("%!\nshowpage nulldevice\n"), 1);
}

TEST_F(Distill, ReadsFilesOfPrinterDriversAndDosEps) {
    expect_pages(distill_text("\x04%!PS-Adobe-3.0\nshowpage\n\x04"), 1);
    journal = {};
    expect_pages(
        distill_text(
            "\x1b%-12345X@PJL JOB\r\n@PJL ENTER LANGUAGE = POSTSCRIPT\r\n%!PS-Adobe-3.0\r\nshowpage\r\n"
            "\x1b%-12345X@PJL EOJ\r\n\x1b%-12345X"),
        1);
    journal = {};
    expect_pages(distill_text(dos_eps("%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 100 100\nshowpage\n")), 1);
}

TEST_F(Distill, ReadsPathsWithBlanksAccentsAndSpecialCharacters) {
    for (const char* name :
         {"two words.ps", "\xC3\xA9t\xC3\xA9 \xE6\x97\xA5.ps", "100%d (a)*[1]\\.ps", "-dHELP.ps"}) {
        journal = {};
        DistillJob job;
        job.input_ps = write(name, plain_pages(1));
        job.output_pdf = folder / (std::string(name) + ".pdf");
        EXPECT_TRUE(distill(job).succeeded) << name;
        EXPECT_EQ(facts_of(job.output_pdf).pages, 1) << name;
    }
}

TEST_F(Distill, ReadsAndWritesRelativePaths) {
    const auto before = std::filesystem::current_path();
    write("in.ps", plain_pages(1));
    std::filesystem::current_path(folder);
    DistillJob job;
    job.input_ps = "in.ps";
    job.output_pdf = "relative.pdf";
    const auto result = distill(job);
    std::filesystem::current_path(before);
    EXPECT_TRUE(result.succeeded) << result.error;
    EXPECT_EQ(facts_of(folder / "relative.pdf").pages, 1);
}

TEST_F(Distill, ReplacesAnOlderOutput) {
    write("out.pdf", "old");
    expect_pages(distill_text(plain_pages(1)), 1);
}

TEST_F(Distill, RunsManyJobsOneAfterTheOther) {
    for (int run = 1; run <= 20; ++run) {
        journal = {};
        expect_pages(distill_text(plain_pages(run % 3 + 1)), run % 3 + 1);
    }
}

TEST_F(Distill, DeliversEveryLineThatTheDocumentPrints) {
    distill_text(
        "%!\n(one) print ( line) = flush (caf\\351) = flush (%stderr) (w) file dup (to stderr\\n) "
        "writestring "
        "flushfile\n"
        "(unfinished) print showpage\n");
    EXPECT_EQ(journal.messages, (Lines{"one line", "caf\xC3\xA9", "to stderr", "unfinished"}));
}

TEST_F(Distill, DeliversControlCharactersAsTheyArePrinted) {
    distill_text("%!\n(red \\033[31m bell \\007 back\\rnul \\000 del \\177 end) = flush showpage\n");
    EXPECT_EQ(journal.messages, Lines{std::string("red \x1b[31m bell \a back\rnul \0 del \x7f end", 37)});
}

TEST_F(Distill, SaysWhichFontIsSubstituted) {
    EXPECT_TRUE(distill_text("%!\n/NoSuchFontAnywhere findfont 12 scalefont setfont 10 10 moveto (x) show\n"
                             "/Times-Roman findfont 12 scalefont setfont (y) show showpage\n")
                    .succeeded);
    EXPECT_EQ(journal.messages, Lines{"Substituting font Courier for NoSuchFontAnywhere."});
}

TEST_F(Distill, WritesNothingToTheProcessesOwnOutputAndKeepsItsLocale) {
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    const auto captured = folder / "stdout";
    std::fflush(stdout);
    const int saved = ::dup(STDOUT_FILENO);
    const int file = ::open(captured.c_str(), O_CREAT | O_WRONLY, 0600);
    ::dup2(file, STDOUT_FILENO);
    distill_text("%!\n(noise) = flush showpage\n");
    std::fflush(stdout);
    ::dup2(saved, STDOUT_FILENO);
    ::close(saved);
    ::close(file);
    EXPECT_EQ(std::filesystem::file_size(captured), 0U);
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), locale);
}

TEST_F(Distill, KnowsItsEnginesVersion) {
    EXPECT_EQ(distiller.engine_version() + "\n", output_of("gs --version | sed 's/\\.0$/.0/'"));
}

}  // namespace
}  // namespace foliant::hosts::distiller
