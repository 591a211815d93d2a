#include <clocale>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "hosts/office/engine/process_guard.h"
#include "hosts/office/engine/start.h"
#include "hosts/office/pdf_reader.h"
#include "hosts/office/support.h"
#include "hosts/office/word/word_error.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

/// One whole job, from start to closed document.
void convert() {
    const tests::ScratchFolder folder;
    const auto document = test::open(test::document("text_mix.docx"));
    document->set_orientation(true);
    document->export_pdf("", folder / "out.pdf");
    document->export_ps("", folder / "out.ps");
    document->close();
}

TEST(OfficeProcess, IsStartedOnlyOnce) {
    const Office& first = start_office(test::engine_folder(), microsoft_word);
    EXPECT_EQ(&start_office("/nowhere", microsoft_word), &first);
}

/// What the process does on each signal, by number.
std::vector<sighandler_t> signal_handlers() {
    std::vector<sighandler_t> handlers;
    for (int number = 1; number < NSIG; ++number) {
        struct sigaction action {};
        if (sigaction(number, nullptr, &action) == 0) handlers.push_back(action.sa_handler);
    }
    return handlers;
}

const auto handlers_before_any_test = signal_handlers();

TEST(OfficeProcess, KeepsTheSignalHandlersOfTheProcess) {
    convert();
    EXPECT_EQ(signal_handlers(), handlers_before_any_test);
    sigset_t blocked;
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    EXPECT_EQ(sigismember(&blocked, SIGINT), 0);
    EXPECT_EQ(sigismember(&blocked, SIGTERM), 0);
}

TEST(OfficeProcess, KeepsTheLocaleOfTheProcess) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    convert();
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
}

TEST(OfficeProcess, KeepsTheTemporaryFolderOfTheProcess) {
    setenv("TMPDIR", "/tmp", 1);
    convert();
    EXPECT_STREQ(getenv("TMPDIR"), "/tmp");
    unsetenv("TMPDIR");
    convert();
    EXPECT_EQ(getenv("TMPDIR"), nullptr);
}

TEST(OfficeProcess, WritesNothingOnStandardOutput) {
    const tests::ScratchFolder folder;
    std::fflush(stdout);
    const int saved = dup(STDOUT_FILENO);
    const int captured = open((folder / "stdout").c_str(), O_CREAT | O_WRONLY, 0600);
    dup2(captured, STDOUT_FILENO);
    convert();
    std::fflush(stdout);
    dup2(saved, STDOUT_FILENO);
    close(captured);
    close(saved);
    EXPECT_EQ(tests::read_file(folder / "stdout"), "");
}

/// The children of this process, as the kernel lists them.
std::string children() {
    std::string list;
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task"))
        list += tests::read_file(thread.path() / "children");
    return list;
}

TEST(OfficeProcess, StartsNoOtherProcess) {
    // For the paper of a user without a locale it starts a program, which is refused to a contained process.
    const EnvironmentGuard paper("PAPERSIZE", "letter");
    struct sigaction counting {};
    static volatile sig_atomic_t ended = 0;
    counting.sa_handler = [](int) { ended = ended + 1; };
    sigaction(SIGCHLD, &counting, nullptr);
    convert();
    EXPECT_EQ(children(), "");
    EXPECT_EQ(ended, 0);
}

TEST(OfficeProcess, WritesOnlyIntoItsOwnFolder) {
    const tests::ScratchFolder home;
    const tests::ScratchFolder temporary;
    setenv("HOME", home.path().c_str(), 1);
    setenv("TMPDIR", temporary.path().c_str(), 1);
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        unsetenv(name);
    const tests::ScratchFolder out;
    const auto document = test::open(test::document("text_mix.docx"));
    document->export_ps("", out / "out.ps");
    EXPECT_EQ(tests::names_in(home.path()), tests::Names());
    EXPECT_EQ(tests::names_in(out.path()), tests::Names{"out.ps"});
    // The test's own folders are made there too, the engine's among them.
    for (const std::string& name : tests::names_in(temporary.path()))
        EXPECT_EQ(name.find("lu"), std::string::npos) << name;
    unsetenv("TMPDIR");
}

}  // namespace
}  // namespace foliant::hosts::office
