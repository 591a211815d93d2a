#include "hosts/web/browser.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

#include "hosts/containment/landlock.h"
#include "hosts/containment/usual_files.h"

namespace foliant::hosts::web {

using posix::FileDescriptor;

namespace {

// The numbers that a browser expects its two pipes under.
constexpr int commands_number = 3;
constexpr int answers_number = 4;

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

/// Neither end is a number that the browser is to find something else under.
std::pair<FileDescriptor, FileDescriptor> make_pipe() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) fail("cannot make a pipe");
    FileDescriptor reading(ends[0]);
    FileDescriptor writing(ends[1]);
    FileDescriptor high_reading(::fcntl(reading.get(), F_DUPFD_CLOEXEC, answers_number + 1));
    FileDescriptor high_writing(::fcntl(writing.get(), F_DUPFD_CLOEXEC, answers_number + 1));
    if (!high_reading || !high_writing) fail("cannot make a pipe");
    return {std::move(high_reading), std::move(high_writing)};
}

std::vector<std::string> arguments(const std::filesystem::path& program,
                                   const std::filesystem::path& profile) {
    std::vector<std::string> words{program.string(),
                                   "--headless",
                                   "--remote-debugging-pipe",
                                   "--user-data-dir=" + profile.string(),
                                   "--no-first-run",
                                   "--no-default-browser-check",
                                   "--disable-background-networking",
                                   "--disable-component-update",
                                   "--disable-default-apps",
                                   "--disable-extensions",
                                   "--disable-sync",
                                   "--disable-gpu",
                                   "--hide-scrollbars",
                                   "--mute-audio",
                                   "--password-store=basic"};
    // A browser that the system's administrator runs refuses to start in its own sandbox.
    if (::geteuid() == 0) words.emplace_back("--no-sandbox");
    words.emplace_back("about:blank");
    return words;
}

/// What this process has, but for the folder for temporary files: some of Chromium's stay there.
std::vector<std::string> environment(const std::filesystem::path& profile) {
    std::vector<std::string> variables;
    for (char** variable = environ; *variable != nullptr; ++variable)
        if (!std::string_view(*variable).starts_with("TMPDIR=")) variables.emplace_back(*variable);
    variables.push_back("TMPDIR=" + profile.string());
    return variables;
}

/// The certificates that the user has said to trust.
containment::Paths certificates_of_the_user() {
    const char* const home = std::getenv("HOME");
    if (home == nullptr) return {};
    return {std::filesystem::path(home) / ".pki/nssdb",
            std::filesystem::path(home) / ".local/share/pki/nssdb"};
}

/// Its own sandbox needs what our filter of system calls refuses, and is the stricter one for what comes from
/// the network.
FileDescriptor prepare_files(const std::filesystem::path& profile, const containment::Paths& shown) {
    using namespace containment;
    const Paths system{"/usr/bin",
                       "/usr/lib/chromium",
                       "/usr/share",
                       "/etc/chromium",
                       "/etc/chromium.d",
                       "/opt/google/chrome",
                       "/etc/opt/chrome",
                       "/etc/hosts",
                       "/etc/resolv.conf",
                       "/etc/nsswitch.conf",
                       "/etc/host.conf",
                       "/etc/gai.conf",
                       "/etc/services",
                       "/run/systemd/resolve",
                       "/etc/ssl/certs",
                       "/etc/ssl/openssl.cnf",
                       "/etc/ca-certificates",
                       "/etc/pki",
                       "/etc/passwd",
                       "/etc/group",
                       "/etc/machine-id",
                       "/etc/alternatives",
                       "/etc/debian_version",
                       "/sys/devices",
                       "/proc"};
    // Its sandbox says in its own processes' folders there who they are; an administrator, for whom it has none,
    // could change the system there.
    const Paths own = ::geteuid() == 0 ? Paths{} : Paths{"/proc"};
    return containment::prepare_files(
        {.may_read = system_libraries() + locales() + fonts() + empty_devices() + system +
                     certificates_of_the_user() + shown,
         .may_write = own + Paths{profile, "/dev/null", "/dev/shm"},
         .may_start = {"/usr/bin", "/bin", "/usr/lib/chromium", "/opt/google/chrome"},
         .may_make_sockets = true,
         .may_connect = true,
         .limits = {}},
        landlock_version());
}

/// As system calls take them, with a null at the end.
std::vector<char*> as_words(std::vector<std::string>& texts) {
    std::vector<char*> words;
    words.reserve(texts.size() + 1);
    for (std::string& text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);
    return words;
}

[[noreturn]] void run(char* const* words, char* const* variables, int commands, int answers,
                      const FileDescriptor& files, pid_t parent) noexcept {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent || !containment::restrict_to(files)) ::_exit(1);
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    for (int number = 1; number < NSIG; ++number)
        std::signal(number, SIG_DFL);
    const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ::dup2(nowhere, number);
    ::dup2(commands, commands_number);
    ::dup2(answers, answers_number);
    ::close_range(answers_number + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    ::execve(words[0], words, variables);
    ::_exit(127);
}

}  // namespace

std::optional<std::filesystem::path> find_browser() {
    constexpr std::array places{"/usr/bin/chromium", "/usr/bin/chromium-browser", "/usr/bin/google-chrome"};
    const auto found =
        std::ranges::find_if(places, [](const char* place) { return ::access(place, X_OK) == 0; });
    return found == places.end() ? std::nullopt : std::optional<std::filesystem::path>(*found);
}

Browser::Browser(const std::filesystem::path& program, const std::filesystem::path& profile,
                 const std::vector<std::filesystem::path>& shown) {
    auto [commands, input] = make_pipe();
    auto [output, answers] = make_pipe();
    std::vector<std::string> texts = arguments(program, profile);
    std::vector<std::string> variables = environment(profile);
    const std::vector<char*> words = as_words(texts);
    const std::vector<char*> variable_words = as_words(variables);
    const FileDescriptor files = prepare_files(profile, shown);
    const pid_t parent = ::getpid();
    process_ = ::fork();
    if (process_ < 0) fail("cannot start a process");
    if (process_ == 0) run(words.data(), variable_words.data(), commands.get(), answers.get(), files, parent);
    input_ = std::move(input);
    output_ = std::move(output);
}

Browser::~Browser() {
    // Its other processes end when it does: each of them holds on to it by a connection.
    ::kill(process_, SIGKILL);
    while (::waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
}

}  // namespace foliant::hosts::web
