#include <fstream>
#include <stdlib.h>

#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

/// What a document must not get away with. Each attempt prints ALLOWED or DENIED.
class Sandbox : public DistillerTest {
  protected:
    /// Runs a page with the attempt in it; "DENIED" or "ALLOWED", or what else happened.
    std::string attempt(const std::string& postscript) {
        journal = {};
        const auto result = distill_text("%!\n{ " + postscript +
                                         " } stopped { (DENIED) } { (ALLOWED) } ifelse = flush clear\n"
                                         "showpage\n");
        return journal.messages.empty() ? result.error : journal.messages.back();
    }
    std::string secret() const { return write("secret.txt", "secret").string(); }
};

TEST_F(Sandbox, LetsADocumentUseFonts) {
    EXPECT_EQ(attempt("/Times-Roman findfont pop"), "ALLOWED");
    EXPECT_EQ(attempt("(/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf) (r) file pop"), "ALLOWED");
}

TEST_F(Sandbox, KeepsOtherFilesFromBeingRead) {
    EXPECT_EQ(attempt("(/etc/passwd) (r) file"), "DENIED");
    EXPECT_EQ(attempt("(" + secret() + ") (r) file"), "DENIED");
    EXPECT_EQ(attempt("(in/../../../../../../../../etc/passwd) (r) file"), "DENIED");
    EXPECT_EQ(attempt("(%os%/etc/passwd) (r) file"), "DENIED");
    EXPECT_EQ(attempt("(/etc/passwd) run"), "DENIED");
    EXPECT_EQ(attempt("(/etc/passwd) RunFile"), "DENIED");
    EXPECT_EQ(attempt("(/proc/self/environ) (r) file"), "DENIED");
    EXPECT_EQ(attempt("(/proc/self/fd/3) (w) file"), "DENIED");
    EXPECT_EQ(attempt("(/etc/passwd) /SubFileDecode filter"), "DENIED");
    EXPECT_EQ(attempt("<< /PermitFileReading [(*)] >> setuserparams (/etc/passwd) (r) file"), "DENIED");
}

TEST_F(Sandbox, KeepsFilesFromBeingFound) {
    attempt("(/etc/*) { = } 200 string filenameforall (" + folder.string() +
            "/*) { = } 200 string filenameforall");
    EXPECT_EQ(journal.messages, std::vector<std::string>{"ALLOWED"}) << "the search runs and finds nothing";
}

TEST_F(Sandbox, KeepsProgramsFromBeingStarted) {
    const auto proof = folder / "proof";
    EXPECT_EQ(attempt("(%pipe%touch " + proof.string() + ") (w) file"), "DENIED");
    EXPECT_EQ(attempt("(%pipe%touch " + proof.string() + ") (r) file"), "DENIED");
    attempt("<< /OutputFile (%pipe%touch " + proof.string() + ") >> setpagedevice showpage");
    EXPECT_FALSE(std::filesystem::exists(proof));
}

TEST_F(Sandbox, KeepsOtherFilesFromBeingWritten) {
    const auto proof = folder / "proof";
    EXPECT_EQ(attempt("(" + proof.string() + ") (w) file"), "DENIED");
    EXPECT_EQ(attempt("(in/0) (w) file"), "DENIED");
    EXPECT_EQ(attempt("(./in/0) (a) file"), "DENIED");
    EXPECT_EQ(attempt("(in/setup) (w) file"), "DENIED");
    EXPECT_EQ(attempt("(scratch/../in/0) (w) file"), "DENIED");
    attempt("<< /OutputFile (" + proof.string() + ") >> setpagedevice showpage");
    EXPECT_FALSE(std::filesystem::exists(proof));
}

TEST_F(Sandbox, KeepsFilesFromBeingDeletedOrRenamed) {
    const std::string victim = secret();
    EXPECT_EQ(attempt("(" + victim + ") deletefile"), "DENIED");
    EXPECT_EQ(attempt("(in/0) deletefile"), "DENIED");
    EXPECT_EQ(attempt("(" + victim + ") (" + victim + "2) renamefile"), "DENIED");
    EXPECT_EQ(attempt("(" + victim + ") (out.pdf) renamefile"), "DENIED");
    EXPECT_TRUE(std::filesystem::exists(victim));
}

TEST_F(Sandbox, CannotBeOpenedByADocument) {
    EXPECT_EQ(attempt("<< /.LockSafetyParams false >> setpagedevice (/etc/passwd) (r) file"), "DENIED");
    EXPECT_EQ(attempt("systemdict /SAFER false put"), "DENIED");
    EXPECT_EQ(attempt("serverdict begin 0 exitserver (/etc/passwd) (r) file"), "DENIED");
    EXPECT_EQ(attempt("true 0 startjob pop (/etc/passwd) (r) file"), "DENIED");
    EXPECT_EQ(attempt("(HOME) getenv"), "DENIED");
}

TEST_F(Sandbox, HoldsForJobOptionsToo) {
    const auto options = write("x.joboptions", "(/etc/passwd) (r) file\n");
    EXPECT_NE(distill_text(plain_pages(1), options).error.find("failed: invalidfileaccess in file"),
              std::string::npos);
}

TEST_F(Sandbox, IsNotChangedByTheEnvironment) {
    const auto proof = folder / "proof";
    write("gs_init.ps", "(/etc/passwd) (r) file\n");
    ::setenv("GS_OPTIONS", ("-dNOSAFER -sOutputFile=" + proof.string()).c_str(), 1);
    ::setenv("GS_LIB", folder.c_str(), 1);
    ::setenv("GS_FONTPATH", "/etc", 1);
    EXPECT_EQ(attempt("(/etc/passwd) (r) file"), "DENIED");
    EXPECT_TRUE(std::filesystem::exists(output));
    EXPECT_FALSE(std::filesystem::exists(proof));
    ::unsetenv("GS_OPTIONS");
    ::unsetenv("GS_LIB");
    ::unsetenv("GS_FONTPATH");
}

TEST_F(Sandbox, IsNotWidenedByWildcardsInTheInputsName) {
    const auto star = write(
        "*", "%!\n{ (" + secret() + ") (r) file } stopped { (DENIED) } { (ALLOWED) } ifelse = showpage\n");
    distill(star);
    EXPECT_EQ(journal.messages.front(), "DENIED");
}

}  // namespace
}  // namespace foliant::hosts::distiller
