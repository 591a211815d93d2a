#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <thread>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

/// A job that never ends, and has been running for a moment when `start` returns.
class EndlessJob : public testing::Test {
  protected:
    void SetUp() override { REQUIRE_HOST("Acrobat Distiller"); }

    pid_t start_job(const std::vector<std::string>& options = {}) {
        shop.write("loop.ps", "%!PS\nshowpage {} loop\n");
        std::vector<std::string> words = {"CreatePDFfromPS", "out.pdf", "loop.ps"};
        words.insert(words.end(), options.begin(), options.end());
        const pid_t job = shop.start(words);
        for (int i = 0; i < 200 && shop.survivors() < 2; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        return job;
    }

    void expect_nothing_left() {
        EXPECT_TRUE(shop.is_clean_soon()) << shop.survivors() << " processes\n" << shop.leftovers();
        EXPECT_EQ(shop.files(), (std::set<std::string>{"loop.ps"}));
    }

    Workshop shop;
};

TEST_F(EndlessJob, EndsAtTheTimeLimit) {
    shop.write("loop.ps", "%!PS\nshowpage {} loop\n");
    const Finished call = shop.foliant({"CreatePDFfromPS", "out.pdf", "loop.ps", "--timeout", "0.7"});
    EXPECT_EQ(call.exit_code, 124);
    EXPECT_NE(call.errors.find("time limit"), std::string::npos);
    expect_nothing_left();
}

/// How many engines run with that limit, which they are told with their orders.
int engines_with_limit(const std::string& bytes) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        std::ifstream file(entry.path() / "cmdline", std::ios::binary);
        const std::string command{std::istreambuf_iterator<char>(file), {}};
        const bool is_engine = command.find("ghostscript-engine") != std::string::npos;
        if (is_engine && command.ends_with('\0' + bytes + '\0')) ++count;
    }
    return count;
}

TEST_F(EndlessJob, HasAnEngineWithTheMemoryLimitOfTheCall) {
    const pid_t job = start_job({"--memory", "3001M"});
    EXPECT_EQ(engines_with_limit("3146776576"), 1);
    kill(job, SIGTERM);
    shop.finish(job);
    expect_nothing_left();
}

TEST_F(EndlessJob, EndsWhenInterrupted) {
    const pid_t job = start_job();
    kill(job, SIGINT);
    const Finished call = shop.finish(job);
    EXPECT_EQ(call.exit_code, 130);
    EXPECT_EQ(call.errors, "foliant: CreatePDFfromPS was interrupted.\n");
    expect_nothing_left();
}

TEST_F(EndlessJob, EndsWhenTerminated) {
    const pid_t job = start_job();
    kill(job, SIGTERM);
    EXPECT_EQ(shop.finish(job).exit_code, 143);
    expect_nothing_left();
}

TEST_F(EndlessJob, DoesNotOutliveACommandThatIsKilled) {
    const pid_t job = start_job();
    kill(job, SIGKILL);
    EXPECT_EQ(shop.finish(job).exit_code, 128 + SIGKILL);
    expect_nothing_left();
}

TEST_F(EndlessJob, LeftoversOfAKilledCommandAndItsWorkerGoWithTheNextCallThatTakesAWhile) {
    const auto left = shop.temporary_folder() / "foliant-abcdef";
    std::filesystem::create_directory(left);
    for (const char* file : {".foliant-private", "1234.ps"})
        std::ofstream(left / file) << "x";
    shop.write("loop.ps", "%!PS\n{} loop\n");
    EXPECT_EQ(shop.foliant({"CreatePDFfromPS", "out.pdf", "loop.ps", "--timeout", "0.5"}).exit_code, 124);
    EXPECT_EQ(shop.leftovers(), "");
}

TEST(Leftovers, ACallThatFindsNoRoomForItsFolderSaysWhatToDo) {
    REQUIRE_HOST("Acrobat");
    const Workshop shop;
    shop.run({"gs", "-q", "-sDEVICE=pdfwrite", "-o", "a.pdf", "-c", "showpage"});
    const Finished call =
        shop.run({"env", "TMPDIR=/proc", FOLIANT_COMMAND, "CreateTextfileFromPDF", "a.pdf", "a.txt"});
    EXPECT_EQ(call.exit_code, 1);
    EXPECT_EQ(
        call.errors,
        "foliant: Path not found: cannot make a temporary folder in /proc (No such file or directory).\n"
        "Free some space there, or name another folder: TMPDIR=FOLDER foliant ...\n");
}

TEST_F(EndlessJob, TellsTheTimeLimitInJsonToo) {
    shop.write("loop.ps", "%!PS\n{} loop\n");
    const Finished call =
        shop.foliant({"CreatePDFfromPS", "out.pdf", "loop.ps", "--timeout", "0.5", "--json"});
    EXPECT_NE(call.output.find("\"exitCode\": 124"), std::string::npos) << call.output;
}

TEST_F(EndlessJob, TheMemoryLimitIsToldByNameAndSize) {
    shop.write("loop.ps", "%!PS\n{ 1000000 string dup 0 1 put } loop\n");
    const Finished call = shop.foliant({"CreatePDFfromPS", "out.pdf", "loop.ps", "--memory", "200M"});
    EXPECT_EQ(call.exit_code, 125);
    // The engine comes to its limit, or all processes together to the call's.
    const std::string remedy = "Give it more with --memory SIZE, or --memory none for no limit.\n";
    const std::string by_engine =
        "foliant: Cannot turn " + shop.path("loop.ps").string() +
        " into a PDF: PostScript error VMerror in string, before the first page was "
        "finished. It needs more memory than 200 MiB, which is what a job may take. ";
    const std::string by_call =
        "foliant: CreatePDFfromPS needed more than 200.0 MiB of memory, the limit, and was stopped. ";
    EXPECT_TRUE(call.errors == by_engine + remedy || call.errors == by_call + remedy) << call.errors;
    expect_nothing_left();
}

}  // namespace
}  // namespace foliant::end_to_end
