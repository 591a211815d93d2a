#include "hosts/office/process_guard.h"

#include <clocale>
#include <cstdlib>

namespace foliant::hosts::office {

SignalHandlersGuard::SignalHandlersGuard() : actions_(NSIG) {
    for (int number = 1; number < NSIG; ++number)
        sigaction(number, nullptr, &actions_[static_cast<std::size_t>(number)]);
}

SignalHandlersGuard::~SignalHandlersGuard() {
    for (int number = 1; number < NSIG; ++number)
        sigaction(number, &actions_[static_cast<std::size_t>(number)], nullptr);
}

TemporaryFolderGuard::TemporaryFolderGuard(const std::filesystem::path& folder) {
    const char* former = std::getenv("TMPDIR");
    was_set_ = former != nullptr;
    if (was_set_) former_ = former;
    setenv("TMPDIR", folder.c_str(), 1);
}

TemporaryFolderGuard::~TemporaryFolderGuard() {
    if (was_set_)
        setenv("TMPDIR", former_.c_str(), 1);
    else
        unsetenv("TMPDIR");
}

StartGuard::StartGuard() : locale_(std::setlocale(LC_ALL, nullptr)) {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGCHLD, SIGUSR1, SIGUSR2, SIGALRM})
        sigaddset(&ending, number);
    pthread_sigmask(SIG_BLOCK, &ending, &mask_);
}

StartGuard::~StartGuard() {
    std::setlocale(LC_ALL, locale_.c_str());
    pthread_sigmask(SIG_SETMASK, &mask_, nullptr);
}

}  // namespace foliant::hosts::office
