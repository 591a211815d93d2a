#include <chrono>
#include <csignal>
#include <fstream>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr const char* endless = "%!\nshowpage (waiting) = flush { } loop\n";

/// The processes whose current folder lies in `folder`.
int processes_in(const std::filesystem::path& folder) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        std::error_code ignored;
        const auto place = std::filesystem::read_symlink(entry.path() / "cwd", ignored);
        if (place.string().starts_with(folder.string())) ++count;
    }
    return count;
}

bool comes_true(const std::function<bool()>& condition) {
    for (const auto end = Clock::now() + 10s; Clock::now() < end; std::this_thread::sleep_for(5ms)) {
        if (condition()) return true;
    }
    return condition();
}

class CancelledJob : public DistillerTest {};

TEST_F(CancelledJob, StopsAProgramThatNeverEnds) {
    journal.cancel_when = [this] { return !journal.messages.empty(); };
    const auto result = distill_text(endless);
    EXPECT_FALSE(result.succeeded);
    EXPECT_TRUE(result.cancelled);
    EXPECT_EQ(result.pages, 1);
    EXPECT_EQ(result.error, "The conversion of " + (folder / "in.ps").string() + " was cancelled.");
    EXPECT_EQ(journal.lines.back(), "failed");
    EXPECT_FALSE(std::filesystem::exists(output));
    EXPECT_EQ(processes_in(scratch), 0);
}

TEST_F(CancelledJob, StopsWhenAListenerThrows) {
    struct Thrower : Progress {
        void page_finished(int) override { throw std::runtime_error("enough"); }
    } thrower;
    DistillJob job;
    job.input_ps = write("in.ps", endless);
    job.output_pdf = output;
    job.private_folder = scratch;
    EXPECT_THROW(distiller.distill(job, thrower), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(output));
    EXPECT_EQ(processes_in(scratch), 0);
}

TEST_F(CancelledJob, SaysHowAnEngineThatWasKilledEnded) {
    journal.cancel_when = [this] {
        if (!journal.messages.empty()) {
            for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
                std::error_code ignored;
                const auto place = std::filesystem::read_symlink(entry.path() / "cwd", ignored);
                if (place.string().starts_with(scratch.string())) {
                    ::kill(std::stoi(entry.path().filename().string()), SIGABRT);
                }
            }
        }
        return false;
    };
    const auto result = distill_text(endless);
    EXPECT_FALSE(result.succeeded);
    EXPECT_FALSE(result.cancelled);
    EXPECT_NE(result.error.find("Ghostscript's process died of Aborted"), std::string::npos) << result.error;
}

TEST_F(CancelledJob, LeavesNoEngineAndNoOutputWhenItsProcessIsKilled) {
    const auto input = write("in.ps", endless);
    const pid_t caller = ::fork();
    if (caller == 0) {
        DistillJob job;
        job.input_ps = input;
        job.output_pdf = output;
        job.private_folder = scratch;
        distiller.distill(job, journal);
        ::_exit(0);
    }
    EXPECT_TRUE(comes_true([this] { return processes_in(scratch) == 1; }));
    ::kill(caller, SIGKILL);
    ::waitpid(caller, nullptr, 0);
    EXPECT_TRUE(comes_true([this] { return processes_in(scratch) == 0; }));
    EXPECT_EQ(tests::names_in(folder), (std::vector<std::string>{"in.ps", "scratch"}));
    // The working folder is the caller's to remove: it lies in the folder that the caller gave.
    for (const std::string& name : tests::names_in(scratch))
        std::filesystem::remove_all(scratch / name);
}

}  // namespace
}  // namespace foliant::hosts::distiller
