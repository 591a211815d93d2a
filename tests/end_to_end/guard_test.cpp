#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

const std::string old_pdf = "%PDF-1.4\nthe only copy";
const std::string page = "%!PS\nshowpage\n";
const std::string endless = "%!PS\nshowpage {} loop\n";

/// Calls that do not come to a good end, over a PDF of the user's.
class OldOutput : public testing::Test {
  protected:
    void SetUp() override {
        REQUIRE_HOST("Acrobat Distiller");
        shop.write("out.pdf", old_pdf);
        shop.write("loop.ps", endless);
    }

    /// Starts a job that never ends, and returns when the old PDF has lost its name.
    pid_t start_replacing() {
        const pid_t job = shop.start({"CreatePDFfromPS", "out.pdf", "loop.ps"});
        for (int i = 0; i < 500 && std::filesystem::exists(shop.path("out.pdf")); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        EXPECT_FALSE(std::filesystem::exists(shop.path("out.pdf")));
        return job;
    }

    void expect_as_before() {
        EXPECT_TRUE(shop.is_clean_soon()) << shop.survivors() << " processes\n" << shop.leftovers();
        EXPECT_EQ(shop.read("out.pdf"), old_pdf);
        EXPECT_EQ(shop.files(), (std::set<std::string>{"loop.ps", "out.pdf"}));
    }

    Workshop shop;
};

TEST_F(OldOutput, ComesBackWhenTheJobFails) {
    shop.write("loop.ps", "%!PS\nnonsense\n");
    EXPECT_EQ(shop.foliant({"CreatePDFfromPS", "out.pdf", "loop.ps"}).exit_code, 5);
    expect_as_before();
}

TEST_F(OldOutput, ComesBackAtTheTimeLimit) {
    EXPECT_EQ(shop.foliant({"CreatePDFfromPS", "out.pdf", "loop.ps", "--timeout", "0.7"}).exit_code, 124);
    expect_as_before();
}

TEST_F(OldOutput, ComesBackWhenTheCallIsEndedFromOutside) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const pid_t job = start_replacing();
        kill(job, signal);
        kill(job, signal);
        EXPECT_EQ(shop.finish(job).exit_code, signal == SIGINT ? 130 : 143);
        expect_as_before();
    }
}

TEST_F(OldOutput, ComesBackWhenTheCommandIsKilled) {
    const pid_t job = start_replacing();
    kill(job, SIGKILL);
    EXPECT_EQ(shop.finish(job).exit_code, 128 + SIGKILL);
    expect_as_before();
}

TEST_F(OldOutput, ComesBackWhenTheWorkerIsKilled) {
    const pid_t job = start_replacing();
    const Finished found = shop.run({"pgrep", "-P", std::to_string(job)});
    ASSERT_EQ(found.exit_code, 0);
    kill(std::stoi(found.output), SIGKILL);
    const Finished call = shop.finish(job);
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_EQ(
        call.errors,
        "foliant: CreatePDFfromPS was killed from outside (signal 9), as the system does when its memory "
        "is used up.\n");
    expect_as_before();
}

TEST_F(OldOutput, GivesWayToTheNewOne) {
    shop.write("loop.ps", page);
    EXPECT_EQ(shop.foliant({"CreatePDFfromPS", "out.pdf", "loop.ps"}).exit_code, 0);
    EXPECT_EQ(shop.pages("out.pdf"), 1);
    EXPECT_EQ(shop.files(), (std::set<std::string>{"loop.ps", "out.pdf"}));
}

/// Calls over files with rights and names of their own.
class Standing : public testing::Test {
  protected:
    void SetUp() override {
        REQUIRE_HOST("Acrobat");
        REQUIRE_HOST("Acrobat Distiller");
        shop.write("page.ps",
                   "%!PS\n/Helvetica findfont 20 scalefont setfont 72 700 moveto "
                   "(needle) show showpage\n");
        EXPECT_EQ(shop.foliant({"CreatePDFfromPS", "a.pdf", "page.ps"}).exit_code, 0);
    }

    std::filesystem::perms rights(const std::string& name) const {
        return std::filesystem::status(shop.path(name)).permissions();
    }
    void expect_success(const std::vector<std::string>& words) const {
        const Finished call = shop.foliant(words);
        EXPECT_EQ(call.exit_code, 0) << call.errors;
    }

    Workshop shop;
};

TEST_F(Standing, RightsAreThoseOfTheFileThatIsReplaced) {
    for (const auto wanted : {std::filesystem::perms(0600), std::filesystem::perms(0664)}) {
        for (const char* name : {"bookmark.pdf", "merged.pdf", "made.pdf", "text.txt"}) {
            if (std::string(name).ends_with("pdf"))
                std::filesystem::copy(shop.path("a.pdf"), shop.path(name));
            else
                shop.write(name, "old");
            std::filesystem::permissions(shop.path(name), wanted);
        }
        expect_success({"CreateBookmarkInPDF", "bookmark.pdf", "needle"});
        expect_success({"CreatePDFfromMultiPDF", "merged.pdf", "a.pdf", "a.pdf"});
        expect_success({"CreatePDFfromPS", "made.pdf", "page.ps"});
        expect_success({"CreateTextfileFromPDF", "a.pdf", "text.txt"});
        for (const char* name : {"bookmark.pdf", "merged.pdf", "made.pdf", "text.txt"}) {
            EXPECT_EQ(rights(name), wanted) << name;
            std::filesystem::remove(shop.path(name));
        }
    }
}

TEST_F(Standing, ALinkLeadsToWhatIsChangedInPlace) {
    std::filesystem::create_symlink("a.pdf", shop.path("link.pdf"));
    expect_success({"SetOpenPassword", "link.pdf", "x"});
    EXPECT_TRUE(std::filesystem::is_symlink(shop.path("link.pdf")));
    EXPECT_NE(shop.read("a.pdf").find("/Encrypt"), std::string::npos);
    EXPECT_EQ(shop.files(), (std::set<std::string>{"a.pdf", "link.pdf", "page.ps"}));
}

TEST_F(Standing, ATextIsWrittenToWhatALinkLeadsTo) {
    shop.write("text.txt", "old");
    std::filesystem::create_symlink("text.txt", shop.path("link.txt"));
    expect_success({"CreateTextfileFromPDF", "a.pdf", "link.txt"});
    EXPECT_TRUE(std::filesystem::is_symlink(shop.path("link.txt")));
    EXPECT_NE(shop.read("text.txt").find("needle"), std::string::npos);
    EXPECT_EQ(shop.files(), (std::set<std::string>{"a.pdf", "link.txt", "page.ps", "text.txt"}));
}

TEST_F(Standing, AnOutputTakesThePlaceOfALinkWhoseFileStays) {
    std::filesystem::create_symlink("a.pdf", shop.path("link.pdf"));
    const std::string before = shop.read("a.pdf");
    expect_success({"CreatePDFfromPS", "link.pdf", "page.ps"});
    EXPECT_FALSE(std::filesystem::is_symlink(shop.path("link.pdf")));
    EXPECT_EQ(shop.read("a.pdf"), before);
    EXPECT_EQ(shop.files(), (std::set<std::string>{"a.pdf", "link.pdf", "page.ps"}));
}

TEST_F(Standing, OfTwoCallsThatChangeAFileInPlaceOneIsRefused) {
    const int file = open(shop.path("a.pdf").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(file, LOCK_EX), 0) << "as a call holds it";
    const std::string before = shop.read("a.pdf");
    for (const std::vector<std::string>& words : {std::vector<std::string>{"SetOpenPassword", "a.pdf", "x"},
                                                  {"CreateBookmarkInPDF", "a.pdf", "needle"},
                                                  {"CreateBookmarksInPDF", "a.pdf", "needle"},
                                                  {"CreateLinksInPDF", "a.pdf"}}) {
        const Finished call = shop.foliant(words);
        EXPECT_EQ(call.exit_code, 2);
        EXPECT_EQ(call.errors,
                  "foliant: a.pdf is being replaced by another call at this moment. Wait for it.\n");
    }
    EXPECT_EQ(shop.read("a.pdf"), before);
    close(file);
    expect_success({"SetOpenPassword", "a.pdf", "x"});
}

/// Mistakes that cost a file before there was a guard.
class Mistake : public testing::Test {
  protected:
    Mistake() {
        shop.write("a.ps", page);
        shop.write("b.ps", page + "% second\n");
        shop.write("a.docx", "PK\x03\x04 first");
        shop.write("b.docx", "PK\x03\x04 second");
    }

    void expect_refused(const std::vector<std::string>& words, const std::string& reason) {
        const auto before = contents();
        const Finished call = shop.foliant(words);
        EXPECT_EQ(call.exit_code, 2);
        EXPECT_NE(call.errors.find(reason), std::string::npos) << call.errors;
        EXPECT_EQ(contents(), before);
    }

    std::string contents() const {
        std::string all;
        for (const std::string& name : shop.files())
            all += name + ": " + shop.read(name) + "\n";
        return all;
    }

    Workshop shop;
};

TEST_F(Mistake, APatternInPlaceOfOutputAndInputs) {
    expect_refused({"CreatePDFfromMultiPS", "a.ps", "b.ps"},
                   "The order is: foliant CreatePDFfromMultiPS PDF_FILE PS_FILES ...\n"
                   "With a pattern such as *.ps, the first file");
    expect_refused({"CreatePDFfromWord", "a.docx", "b.docx"}, "With a pattern such as *.docx");
}

TEST_F(Mistake, TheOutputIsTheInput) {
    expect_refused({"CreatePDFfromPS", "./a.ps", "a.ps"}, "are the same file");
}

TEST_F(Mistake, OutputAndInputAreSwapped) {
    shop.write("new.pdf", "%PDF-1.4");
    expect_refused({"CreatePDFfromWord", "a.docx", "new.pdf"},
                   "The order is: foliant CreatePDFfromWord PDF_FILE WORD_DOCUMENT");
}

TEST_F(Mistake, TheOutputIsADevice) {
    const bool was_a_link = std::filesystem::is_symlink("/dev/stdout");
    expect_refused({"CreatePDFfromPS", "/dev/stdout", "a.ps"}, "/dev is no place for files");
    EXPECT_EQ(std::filesystem::is_symlink("/dev/stdout"), was_a_link);
}

TEST_F(Mistake, IsToldInJsonToo) {
    const Finished call = shop.foliant({"CreatePDFfromPS", "", "a.ps", "--json"});
    EXPECT_EQ(call.exit_code, 2);
    EXPECT_NE(call.output.find("\"exitCode\": 2"), std::string::npos) << call.output;
}

TEST_F(Mistake, ARehearsalRefusesWhatTheCallWouldRefuse) {
    expect_refused({"rehearse", "CreatePDFfromPS", "a.ps", "a.ps"}, "is both output and input");
}

TEST(LostOutputs, ComeBackBeforeAnythingElseIsDone) {
    const Workshop shop;
    shop.write(".a.pdf.kept-by-foliant-17", "%PDF-1.4 old");
    const Finished call = shop.foliant({"CreatePDFfromPS", "a.pdf", "none.ps"});
    EXPECT_EQ(call.exit_code, 3);
    EXPECT_TRUE(call.errors.starts_with("foliant: a.pdf is back: ")) << call.errors;
    EXPECT_EQ(shop.read("a.pdf"), "%PDF-1.4 old");
    EXPECT_EQ(shop.files(), (std::set<std::string>{"a.pdf"}));
}

}  // namespace
}  // namespace foliant::end_to_end
