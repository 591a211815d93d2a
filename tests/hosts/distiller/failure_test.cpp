#include <algorithm>
#include <sys/mount.h>
#include <sys/resource.h>

#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

using Lines = std::vector<std::string>;

class FailedJob : public DistillerTest {
  protected:
    /// The job failed with this text, which is its last message, and left nothing under the output's name.
    void expect_failure(const DistillResult& result, const std::string& error) {
        EXPECT_FALSE(result.succeeded);
        EXPECT_EQ(result.error, error);
        ASSERT_GE(journal.lines.size(), 3U);
        EXPECT_EQ(journal.lines.front(), "started");
        EXPECT_EQ(journal.lines[journal.lines.size() - 2], "message " + error);
        EXPECT_EQ(journal.lines.back(), "failed");
        EXPECT_EQ(std::count(journal.percents.begin(), journal.percents.end(), 100), 0);
        EXPECT_FALSE(std::filesystem::exists(output));
    }
    std::string in_ps() const { return (folder / "in.ps").string(); }
};

TEST_F(FailedJob, CarriesTheInterpretersError) {
    const auto result = distill_text("%!\nshowpage showpage 1 true (some text) /name foo\nshowpage\n");
    expect_failure(result, "Cannot turn " + in_ps() +
                               " into a PDF: PostScript error undefined in foo, after page 2. "
                               "Correct the file, or print the document to it again.");
    EXPECT_EQ(result.pages, 2);
    EXPECT_EQ(journal.lines_with("message "),
              (Lines{"message %%[ Error: undefined; OffendingCommand: foo ]%%", "message Operand: /name",
                     "message Operand: (some text)", "message Operand: true", "message Operand: 1",
                     "message " + result.error}));
}

TEST_F(FailedJob, CarriesTheErrorWhateverTheDocumentHasRedefined) {
    const auto result = distill_text(
        "%!\nerrordict /handleerror { showpage } put\n"
        "/print { pop } def /= { pop } def /flush { } def /exec { pop } def /stopped { pop false } def /type "
        "{ } def\n"
        "1 0 div\n");
    EXPECT_NE(result.error.find("undefinedresult in div"), std::string::npos) << result.error;
}

TEST_F(FailedJob, ForWantOfTheEnginesLibraryIsNotTheDocuments) {
    const auto engine = write("ghostscript-engine", "#!/bin/sh\nexit 127\n");  // as the loader ends
    std::filesystem::permissions(engine, std::filesystem::perms::owner_all);
    DistillJob job;
    job.input_ps = write("in.ps", "%!\nshowpage\n");
    job.output_pdf = output;
    const DistillResult result = Distiller(folder).distill(job, journal);
    EXPECT_TRUE(result.engine_missing);
    expect_failure(
        result,
        "Ghostscript cannot be used: its library could not be loaded. Install or reinstall the package "
        "libgs10.");
}

TEST_F(FailedJob, WritesControlCharactersOutInItsTexts) {
    const auto input = write("a\nb\x1b[2J.ps", "%!\n(x\\033]0;y\\007\\n) (x\\033[2J\\233) cvn cvx exec\n");
    const auto result = distill(input);
    const std::string visible_path = (folder / "a\\nb\\033[2J.ps").string();
    EXPECT_EQ(result.error,
              "Cannot turn " + visible_path +
                  " into a PDF: PostScript error undefined in x\\033[2J\\233, before the first page was "
                  "finished. Correct the file, or print the document to it again.");
    EXPECT_EQ(journal.lines_with("message "),
              (Lines{"message %%[ Error: undefined; OffendingCommand: x\\033[2J\\233 ]%%",
                     "message Operand: (x\\033]0;y\\007\\012)", "message " + result.error}));
}

TEST_F(FailedJob, ShortensHugeOperandsToALine) {
    distill_text("%!\n1 1 50 { } for (" + std::string(500, 'x') + "\n\n) 1000 array << >> { pop } foo\n");
    const auto operands = journal.lines_with("message Operand: ");
    EXPECT_EQ(operands,
              (Lines{"message Operand: arraytype", "message Operand: dicttype", "message Operand: arraytype",
                     "message Operand: (" + std::string(60, 'x') + ")", "message Operand: 50"}));
}

TEST_F(FailedJob, NeedsAPage) {
    expect_failure(distill_text("%!\n72 72 moveto 100 100 lineto stroke\n"),
                   "Cannot turn " + in_ps() +
                       " into a PDF: it has no pages. A PostScript file shows each page with showpage.");
}

TEST_F(FailedJob, NeedsAnInput) {
    expect_failure(distill(folder / "missing.ps"),
                   "Cannot read the PostScript file " + (folder / "missing.ps").string() +
                       ": No such file or directory. Check the name and the file.");
    journal = {};
    expect_failure(distill_text(""), "Cannot read the PostScript file " + in_ps() +
                                         ": it is empty. Check the name and the file.");
}

TEST_F(FailedJob, SaysThatAPdfIsNoPostScript) {
    expect_failure(distill_text("%PDF-1.4\n1 0 obj\n"),
                   "The file " + in_ps() +
                       " is a PDF already, not PostScript. Give the PostScript file it was made from.");
}

TEST_F(FailedJob, SaysThatOtherBytesMayBeNoPostScript) {
    std::string bytes;
    unsigned state = 1;
    for (int i = 0; i < 3000; ++i)
        bytes += static_cast<char>((state = state * 1103515245 + 12345) >> 16);
    const auto result = distill_text(bytes);
    EXPECT_FALSE(result.succeeded);
    EXPECT_NE(result.error.find("does not begin with %! as PostScript does"), std::string::npos)
        << result.error;
    journal = {};
    EXPECT_FALSE(distill_text("Dear Sir,\n\nthis is a letter.\n").succeeded);
}

TEST_F(FailedJob, LeavesAnOlderOutputAlone) {
    write("out.pdf", "old");
    EXPECT_FALSE(distill_text("%!\nshowpage foo\n").succeeded);
    EXPECT_EQ(std::filesystem::file_size(output), 3U);
}

TEST_F(FailedJob, SaysWhichOutputFolderIsMissing) {
    DistillJob job;
    job.input_ps = write("in.ps", plain_pages(1));
    job.output_pdf = folder / "none" / "x.pdf";
    EXPECT_EQ(distill(job).error, "Cannot write the PDF " + job.output_pdf.string() + ": the folder " +
                                      (folder / "none").string() +
                                      " does not exist. Create it, or choose another one.");
}

TEST_F(FailedJob, NoticesThatNotAllCouldBeWritten) {
    // The limit is inherited by the engine, whose writes then fail as they do on a full disk.
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{20000, before.rlim_max};
    const auto input = write("in.ps", plain_pages(400));
    ::setrlimit(RLIMIT_FSIZE, &small);
    const auto result = distill(input);
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_FALSE(result.succeeded);
    EXPECT_NE(result.error.find("PostScript error ioerror in showpage, after page "), std::string::npos)
        << result.error;
    EXPECT_NE(result.error.find("Check that the file is complete, and that the disks of " + output.string()),
              std::string::npos)
        << result.error;
    EXPECT_FALSE(std::filesystem::exists(output));
}

/// A full disk of 200 kB; needs the right to mount one.
class FullDisk : public FailedJob {
  protected:
    void SetUp() override {
        std::filesystem::create_directory(disk);
        if (::mount("none", disk.c_str(), "tmpfs", 0, "size=200k") != 0)
            GTEST_SKIP() << "no right to mount a disk";
        mounted_ = true;
    }
    void TearDown() override {
        if (mounted_) ::umount2(disk.c_str(), MNT_DETACH);
    }
    const std::filesystem::path disk = folder / "disk";

  private:
    bool mounted_ = false;
};

TEST_F(FullDisk, FailsTheJobAndIsLeftAsItWas) {
    DistillJob job;
    job.input_ps = write("in.ps", plain_pages(3000));
    job.output_pdf = disk / "x.pdf";
    const std::string error = "Cannot write the PDF " + job.output_pdf.string() +
                              ": the disk is full. Free some space there, or choose another folder.";
    EXPECT_EQ(distill(job).error, error);
    EXPECT_TRUE(tests::names_in(disk).empty());
    job.input_ps = write("in.ps", plain_pages(800));  // fits, but the protected copy does not
    job.security = Security{};
    write("disk/filler", std::string(80000, 'x'));
    EXPECT_FALSE(distill(job).succeeded);
    EXPECT_EQ(tests::names_in(disk), Lines{"filler"});
}

TEST_F(FailedJob, SurvivesStackOverflows) {
    EXPECT_NE(distill_text("%!\n/f { f 1 } def f\n").error.find("execstackoverflow"), std::string::npos);
    EXPECT_NE(distill_text("%!\n{ 1 } loop\n").error.find("stackoverflow"), std::string::npos);
    EXPECT_NE(distill_text("%!\n{ 1 dict begin } loop\n").error.find("dictstackoverflow"), std::string::npos);
}

#ifndef __SANITIZE_ADDRESS__
TEST_F(FailedJob, SurvivesADocumentThatEatsMemory) {
    DistillJob job;
    job.input_ps = write("in.ps", "%!\n[ { 65000 string } loop\n");
    job.memory_bytes = std::uint64_t{300} << 20U;
    const auto result = distill(job);
    EXPECT_TRUE(result.out_of_memory);
    EXPECT_NE(result.error.find("VMerror in"), std::string::npos) << result.error;
    EXPECT_NE(result.error.find("It needs more memory than 300 MiB, which is what a job may take."),
              std::string::npos)
        << result.error;
}
#endif

TEST_F(FailedJob, NamesAMissingEngine) {
    DistillJob job;
    job.input_ps = write("in.ps", plain_pages(1));
    job.output_pdf = output;
    job.private_folder = scratch;
    const auto result = Distiller("/nowhere").distill(job, journal);
    expect_failure(result,
                   "Cannot start /nowhere/ghostscript-engine: No such file or directory. "
                   "Install Foliant again.");
}

}  // namespace
}  // namespace foliant::hosts::distiller
