#include <chrono>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

/// A job that never ends, and has been running for a moment when `start` returns.
class EndlessJob : public testing::Test {
  protected:
    void SetUp() override { REQUIRE_HOST("Acrobat Distiller"); }

    pid_t start_job() {
        shop.write("loop.ps", "%!PS\nshowpage {} loop\n");
        const pid_t job = shop.start({"CreatePDFfromPS", "out.pdf", "loop.ps"});
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
    EXPECT_EQ(
        call.errors,
        "foliant: CreatePDFfromPS needed more than 200.0 MiB of memory, the limit, and was stopped. Give it "
        "more with --memory SIZE, or --memory none for no limit.\n");
    expect_nothing_left();
}

}  // namespace
}  // namespace foliant::end_to_end
