#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>

#include "end_to_end/command_test.h"

namespace foliant::end_to_end {
namespace {

using Names = std::set<std::string>;

std::string page(const std::string& word) {
    return "%!PS\n/Times-Roman findfont 24 scalefont setfont 72 700 moveto (" + word + ") show showpage\n";
}

/// What `CreatePDFfromMultiPS` has its Distiller run, as a file that somebody made.
std::string imitated_driver(const std::vector<std::string>& paths) {
    std::string text =
        "/prun { /mysave save def\r\ndup = flush\r\nRunFile\r\nclear cleardictstack\r\nmysave restore\r\n"
        "} def\r\n\r\n";
    for (const std::string& path : paths)
        text += "(" + path + ") prun\r\n";
    return text;
}

class MultiFileDriver : public CommandTest {
  protected:
    void SetUp() override { REQUIRE_HOST("Acrobat Distiller"); }

    /// Makes book.pdf of a.ps, whose driver goes by the name of book.ps.
    void make_book() {
        shop.write("a.ps", page("Alpha"));
        const Finished call = shop.foliant({"CreatePDFfromMultiPS", "book.pdf", "a.ps"});
        EXPECT_EQ(call.exit_code, 0) << call.errors;
        EXPECT_EQ(shop.pages("book.pdf"), 1);
        EXPECT_NE(shop.text("book.pdf").find("Alpha"), std::string::npos);
    }
};

TEST_F(MultiFileDriver, LeavesTheUsersOwnFileOfItsNameAlone) {
    shop.write("book.ps", "my own book, third draft");
    make_book();
    EXPECT_EQ(shop.read("book.ps"), "my own book, third draft");
}

TEST_F(MultiFileDriver, DoesNotFollowALinkOfItsName) {
    shop.write("letters.txt", "dear diary");
    std::filesystem::create_symlink("letters.txt", shop.path("book.ps"));
    make_book();
    EXPECT_EQ(shop.read("letters.txt"), "dear diary");
    EXPECT_TRUE(std::filesystem::is_symlink(shop.path("book.ps")));
}

TEST_F(MultiFileDriver, DoesNotWaitForAPipeOfItsName) {
    ASSERT_EQ(mkfifo(shop.path("book.ps").c_str(), 0600), 0);
    make_book();
    EXPECT_TRUE(std::filesystem::is_fifo(shop.path("book.ps")));
}

TEST_F(MultiFileDriver, TakesTheUsersFileOfItsNameAsAnInputLikeAnyOther) {
    shop.write("a.ps", page("Alpha"));
    shop.write("book.ps", page("Omega"));
    const Finished call = shop.foliant({"CreatePDFfromMultiPS", "book.pdf", "a.ps", "book.ps"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(shop.pages("book.pdf"), 2);
    EXPECT_EQ(shop.read("book.ps"), page("Omega"));
}

TEST_F(MultiFileDriver, IsNotSharedByJobsThatRunAtOnce) {
    const std::string slow = "%!PS\n2000000 { 2 sqrt pop } repeat\n";
    shop.write("a.ps", slow + page("Alpha"));
    shop.write("b.ps", slow + page("Beta"));
    const pid_t first = shop.start({"CreatePDFfromMultiPS", "book.pdf", "a.ps"});
    const pid_t second = shop.start({"CreatePDFfromMultiPS", "book.PDF", "b.ps"});
    EXPECT_EQ(shop.finish(first).exit_code, 0);
    EXPECT_EQ(shop.finish(second).exit_code, 0);
    EXPECT_NE(shop.text("book.pdf").find("Alpha"), std::string::npos);
    EXPECT_NE(shop.text("book.PDF").find("Beta"), std::string::npos);
    EXPECT_EQ(shop.files(), (Names{"a.ps", "b.ps", "book.pdf", "book.PDF"}));
}

TEST_F(MultiFileDriver, IsGoneHoweverTheCallEnds) {
    shop.write("loop.ps", "%!PS\n{} loop\n");
    for (const int signal : {SIGINT, SIGTERM, SIGKILL}) {
        const pid_t job = shop.start({"CreatePDFfromMultiPS", "book.pdf", "loop.ps"});
        for (int i = 0; i < 300 && shop.survivors() < 2; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        kill(job, signal);
        EXPECT_EQ(shop.finish(job).exit_code, 128 + signal);
        EXPECT_TRUE(shop.is_clean_soon()) << shop.leftovers();
        EXPECT_EQ(shop.files(), Names{"loop.ps"}) << "after signal " << signal;
    }
    shop.write("bad.ps", "%!PS\nno_such_operator\n");
    EXPECT_EQ(shop.foliant({"CreatePDFfromMultiPS", "book.pdf", "bad.ps"}).exit_code, 5);
    EXPECT_EQ(shop.files(), (Names{"bad.ps", "loop.ps"}));
}

TEST_F(MultiFileDriver, RunsFilesOfAnyName) {
    const std::vector<std::string> names = {"a)b.ps",       "((.ps",    "line\nbreak.ps", "cr\r\n) prun.ps",
                                            "back\\145.ps", "100%d.ps", "%stdin",         "\x1b[31mred.ps"};
    std::vector<std::string> words = {"CreatePDFfromMultiPS", "book.pdf"};
    for (const std::string& name : names) {
        shop.write(name, page("Leaf"));
        words.push_back(name);
    }
    const Finished call = shop.foliant(words);
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(shop.pages("book.pdf"), static_cast<int>(names.size()));
}

TEST_F(MultiFileDriver, ABackslashInANameIsNoWayToAnotherFile) {
    std::filesystem::create_directory(shop.path("in"));
    shop.write("in/secret.ps", page("Secret"));
    shop.write("in\\secret.ps", page("Harmless"));
    const Finished call = shop.foliant({"CreatePDFfromMultiPS", "book.pdf", "in\\secret.ps"});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_NE(shop.text("book.pdf").find("Harmless"), std::string::npos);
}

TEST_F(MultiFileDriver, ANameOpensNoOtherFile) {
    shop.write("secret.ps", page("Secret"));
    const std::string sly = "a.ps) prun\r\n(secret.ps";
    shop.write(sly, page("Harmless"));
    const Finished call = shop.foliant({"CreatePDFfromMultiPS", "book.pdf", sly});
    EXPECT_EQ(call.exit_code, 0) << call.errors;
    EXPECT_EQ(shop.pages("book.pdf"), 1);
    EXPECT_NE(shop.text("book.pdf").find("Harmless"), std::string::npos);
}

TEST_F(MultiFileDriver, MadeByHandIsADocumentThatReadsNothing) {
    shop.write("secret.ps", "secret_word showpage\n");
    shop.write("book.ps", imitated_driver({shop.path("secret.ps").string(), "/etc/passwd"}));
    const Finished call = shop.foliant({"CreatePDFfromPS", "out.pdf", "book.ps", "--json"});
    EXPECT_EQ(call.exit_code, 5);
    for (const char* told : {"secret_word", "root:"})
        EXPECT_EQ((call.output + call.errors).find(told), std::string::npos) << call.output;
    EXPECT_NE(call.output.find("CreatePDFfromMultiPS"), std::string::npos) << call.output;
    EXPECT_EQ(shop.files(), (Names{"book.ps", "secret.ps"}));
}

// A first file that takes over the error handling and the procedures of the files after it.
TEST_F(MultiFileDriver, MadeByHandWithAPreparedFirstFileReadsNothing) {
    shop.write("first.ps",
               "%!PS\ntrue setglobal globaldict begin\n"
               "/handle { currentfile 100 string readline pop = } def\n"
               "end false setglobal\nerrordict /undefined { pop handle } put showpage\n");
    shop.write("book.ps", imitated_driver({shop.path("first.ps").string(), "/etc/passwd"}));
    const Finished call = shop.foliant({"CreatePDFfromPS", "out.pdf", "book.ps", "--json"});
    EXPECT_EQ(call.exit_code, 5);
    EXPECT_EQ((call.output + call.errors).find("nologin"), std::string::npos) << call.output;
    EXPECT_EQ((call.output + call.errors).find("root:"), std::string::npos) << call.output;
    EXPECT_EQ(shop.files(), (Names{"book.ps", "first.ps"}));
}

}  // namespace
}  // namespace foliant::end_to_end
