#include <fstream>
#include <sstream>
#include <stdlib.h>

#include "hosts/containment/containment.h"
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
    EXPECT_EQ(attempt("(/etc/passwd) .libfile { closefile } if"), "DENIED");
    EXPECT_EQ(attempt("(passwd) runlibfile"), "DENIED");
    EXPECT_EQ(attempt("<< /GenericResourceDir (/etc/) >> setsystemparams /passwd /ProcSet findresource"),
              "DENIED");
    EXPECT_EQ(attempt("(/../../../../etc/passwd) cvn /CIDFont findresource"), "DENIED");
    EXPECT_EQ(attempt("[ {Catalog} << /x (/etc/passwd) (r) file >> /PUT pdfmark"), "DENIED");
}

TEST_F(Sandbox, KeepsFilesFromBeingFound) {
    attempt("(/etc/*) { = } 200 string filenameforall (" + folder.string() +
            "/*) { = } 200 string filenameforall");
    EXPECT_EQ(journal.messages, std::vector<std::string>{"ALLOWED"}) << "the search runs and finds nothing";
    attempt("(in/*) { = } 200 string filenameforall (%os%/etc/*) { = } 200 string filenameforall");
    EXPECT_EQ(journal.messages, std::vector<std::string>{"ALLOWED"});
    attempt("(/etc/passwd) status { pop pop pop pop (there) = } if");
    EXPECT_EQ(journal.messages, std::vector<std::string>{"ALLOWED"});
}

TEST_F(Sandbox, KeepsProgramsFromBeingStarted) {
    const auto proof = folder / "proof";
    EXPECT_EQ(attempt("(%pipe%touch " + proof.string() + ") (w) file"), "DENIED");
    EXPECT_EQ(attempt("(%pipe%touch " + proof.string() + ") (r) file"), "DENIED");
    attempt("<< /OutputFile (%pipe%touch " + proof.string() + ") >> setpagedevice showpage");
    attempt("<< /OutputFile (|touch " + proof.string() + ") >> setpagedevice showpage");
    attempt("<< /OutputDevice /ijs /IjsServer (touch " + proof.string() + ") >> setpagedevice showpage");
    EXPECT_EQ(attempt("(touch " + proof.string() + ") (%pipe%) (r) file"), "DENIED");
    EXPECT_FALSE(std::filesystem::exists(proof));
}

TEST_F(Sandbox, KeepsOtherFilesFromBeingWritten) {
    const auto proof = folder / "proof";
    EXPECT_EQ(attempt("(" + proof.string() + ") (w) file"), "DENIED");
    EXPECT_EQ(attempt("(in/0) (w) file"), "DENIED");
    EXPECT_EQ(attempt("(./in/0) (a) file"), "DENIED");
    EXPECT_EQ(attempt("(in/setup) (w) file"), "DENIED");
    EXPECT_EQ(attempt("(scratch/../in/0) (w) file"), "DENIED");
    for (const char* name : {"", "%d", "%03d.pdf"})
        attempt("<< /OutputFile (" + proof.string() + name + ") >> setpagedevice showpage");
    attempt("<< /OutputDevice /png16m /OutputFile (" + proof.string() + ") >> setpagedevice showpage");
    attempt("(png16m) selectdevice << /OutputFile (" + proof.string() + ") >> setpagedevice showpage");
    for (const std::string& name : tests::names_in(folder))
        EXPECT_FALSE(name.starts_with("proof")) << name;
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

/// What holds when the interpreter's own refusals do not.
class Containment : public DistillerTest {
  protected:
    /// Runs a document that prints "ready" and then runs `postscript` as long as that prints "not yet". When
    /// it is ready, `act` is told the working folder and the engine's process. The last line that was
    /// printed.
    std::string while_running(
        const std::string& postscript,
        const std::function<void(const std::filesystem::path&, const std::string&)>& act) {
        bool acted = false;
        journal.cancel_when = [&] {
            if (!acted && !journal.messages.empty()) {
                acted = true;
                act(scratch / tests::names_in(scratch).at(0), engine());
            }
            return false;
        };
        const auto result = distill_text("%!\nshowpage (ready) = flush\n{ " + postscript + " } loop\n");
        return journal.messages.empty() ? result.error : journal.messages.back();
    }

    /// Waits until a file that is told in this way is there.
    static std::string wait_for(const std::string& name) {
        return "(" + name + ") status { pop pop pop pop exit } if";
    }

  private:
    std::string engine() const {
        for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
            std::error_code ignored;
            const auto place = std::filesystem::read_symlink(entry.path() / "cwd", ignored);
            if (place.string().starts_with(scratch.string())) return entry.path().string();
        }
        return {};
    }
};

std::string content_of(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

TEST_F(Containment, ReadsNoFileThatWasNotNamedBeforeTheDocumentRan) {
    if (containment::offered().landlock == 0) GTEST_SKIP() << "this kernel has no Landlock";
    const auto secret = write("secret.ps", "(secret told) = flush\n");
    // The interpreter permits itself what lies in this folder.
    const std::string last = while_running(
        wait_for("in/late") + " } loop { (in/late) run } stopped { (DENIED) = flush quit } if quit {",
        [&](const std::filesystem::path& workspace, const std::string&) {
            std::filesystem::create_symlink(secret, workspace / "in/late");
        });
    EXPECT_EQ(last, "DENIED");
}

TEST_F(Containment, IsInForceWithAllItsLimits) {
    std::string status;
    std::string limits;
    while_running(wait_for("in/go") + " } loop quit {",
                  [&](const std::filesystem::path& workspace, const std::string& process) {
                      status = content_of(process + "/status");
                      limits = content_of(process + "/limits");
                      std::ofstream(workspace / "in/go") << "go";
                  });
    EXPECT_NE(status.find("NoNewPrivs:\t1\n"), std::string::npos) << status;
    const std::string calls = containment::offered().calls ? "Seccomp:\t2\n" : "Seccomp:\t0\n";
    EXPECT_NE(status.find(calls), std::string::npos) << status;
    EXPECT_NE(limits.find("Max core file size        0 "), std::string::npos) << limits;
#ifndef __SANITIZE_ADDRESS__
    EXPECT_NE(limits.find("Max data size             2147483648 "), std::string::npos) << limits;
#endif
    EXPECT_NE(limits.find("Max file size             17179869184 "), std::string::npos) << limits;
}

}  // namespace
}  // namespace foliant::hosts::distiller
