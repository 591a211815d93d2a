#include "hosts/office/engine/process_guard.h"

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>
#include <utility>

namespace foliant::hosts::office {
namespace {

/// Whether the locale that the environment names is there, and writes its texts in UTF-8.
bool environment_is_utf8() {
    const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr);
    if (locale == nullptr) return false;
    const bool utf8 = std::strcmp(nl_langinfo_l(CODESET, locale), "UTF-8") == 0;
    freelocale(locale);
    return utf8;
}

}  // namespace

SignalHandlersGuard::SignalHandlersGuard() : actions_(NSIG) {
    for (int number = 1; number < NSIG; ++number)
        sigaction(number, nullptr, &actions_[static_cast<std::size_t>(number)]);
}

SignalHandlersGuard::~SignalHandlersGuard() {
    for (int number = 1; number < NSIG; ++number)
        sigaction(number, &actions_[static_cast<std::size_t>(number)], nullptr);
}

EnvironmentGuard::EnvironmentGuard(std::string name, const std::string& value) : name_(std::move(name)) {
    if (const char* former = std::getenv(name_.c_str())) former_ = former;
    setenv(name_.c_str(), value.c_str(), 1);
}

EnvironmentGuard::~EnvironmentGuard() {
    if (former_)
        setenv(name_.c_str(), former_->c_str(), 1);
    else
        unsetenv(name_.c_str());
}

StartGuard::StartGuard(const std::filesystem::path& folder)
    : locale_(std::setlocale(LC_ALL, nullptr)), settings_folder_("XDG_CONFIG_HOME", folder.string()) {
    if (!environment_is_utf8()) utf8_.emplace("LC_ALL", "C.UTF-8");
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
