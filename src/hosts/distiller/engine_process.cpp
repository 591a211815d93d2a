#include "hosts/distiller/engine_process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <vector>

#include "hosts/distiller/distill_error.h"

namespace foliant::hosts::distiller {

using posix::FileDescriptor;

namespace {

constexpr int ask_every_ms = 50;
// Waking up for every page of a long job costs more than the pages' own records. After some records, which a
// short job never reaches, they are collected.
constexpr int lively_batches = 30;
constexpr std::chrono::milliseconds pause_time{5};
constexpr int lowest_free_descriptor = 10;  // above those that the engine is given

DistillError cannot_start(const std::filesystem::path& program, int error_number) {
    return DistillError("Cannot start " + program.string() + ": " + system_reason(error_number) +
                        ". Install Foliant again.");
}

/// The engine's whole environment: neither options for the interpreter nor preloaded libraries come from
/// outside.
std::vector<std::string> engine_environment() {
    // Memory is taken in few large steps, which saves a tenth of a short job's time.
    std::vector<std::string> variables = {
        "LC_ALL=C.UTF-8",
        std::string("TMPDIR=") + engine::scratch_folder,
        "GLIBC_TUNABLES=glibc.malloc.top_pad=16777216:glibc.malloc.trim_threshold=1073741824",
    };
    // Where fontconfig looks for fonts.
    for (const char* name : {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        if (const char* value = std::getenv(name)) variables.push_back(std::string(name) + "=" + value);
    }
    return variables;
}

/// The null-terminated array of pointers that the system wants; `strings` has to outlive it.
std::vector<char*> pointers_to(std::vector<std::string>& strings) {
    std::vector<char*> pointers;
    pointers.reserve(strings.size() + 1);
    for (std::string& text : strings)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

class SpawnPlan {
  public:
    SpawnPlan() {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawnattr_init(&attributes_);
    }
    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;
    ~SpawnPlan() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }

    /// `descriptors` become those from `engine::record_descriptor` on. What libraries have to say goes
    /// nowhere.
    void use_files(const std::filesystem::path& folder, const std::vector<FileDescriptor>& descriptors) {
        ::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
        ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        int number = engine::record_descriptor;
        for (const FileDescriptor& descriptor : descriptors)
            ::posix_spawn_file_actions_adddup2(&actions_, descriptor.get(), number++);
        ::posix_spawn_file_actions_addclosefrom_np(&actions_, number);
    }

    /// A group of its own, so that Ctrl-C reaches the caller only, who then ends the job in order.
    void use_default_signals() {
        sigset_t signals;
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&attributes_, &signals);
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes_, &signals);
        ::posix_spawnattr_setpgroup(&attributes_, 0);
        ::posix_spawnattr_setflags(&attributes_,
                                   POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
    }

    /// 0, or the errno value of what went wrong.
    int spawn(pid_t& process, const std::filesystem::path& program,
              std::vector<std::string> arguments) const {
        std::vector<std::string> environment = engine_environment();
        return ::posix_spawn(&process, program.c_str(), &actions_, &attributes_,
                             pointers_to(arguments).data(), pointers_to(environment).data());
    }

  private:
    posix_spawn_file_actions_t actions_;
    posix_spawnattr_t attributes_;
};

/// A copy of a descriptor whose number cannot be one of those that the engine is given.
FileDescriptor high_copy(int descriptor) {
    return FileDescriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, lowest_free_descriptor));
}

bool has_no_library(int status) {
    constexpr int loader_failed = 127;
    return WIFEXITED(status) && WEXITSTATUS(status) == loader_failed;
}

std::string describe_end(const EngineProgram& program, int status) {
    const std::string name = std::string(program.engine) + "'s process";
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        return name + " was killed from outside; the machine may have run out of memory";
    if (WIFSIGNALED(status)) return name + " died of " + ::strsignal(WTERMSIG(status));
    if (WEXITSTATUS(status) == 0) return {};
    return name + " ended with status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

EngineProcess::EngineProcess(const std::filesystem::path& engine_folder, const EngineProgram& program,
                             const EngineTask& task)
    : program_(program) {
    const std::filesystem::path file = engine_folder / program.file;
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw cannot_start(file, errno);
    records_ = FileDescriptor(ends[0]);
    const FileDescriptor write_end(ends[1]);
    std::vector<FileDescriptor> given;
    given.push_back(high_copy(write_end.get()));
    for (const int descriptor : task.descriptors)
        given.push_back(high_copy(descriptor));

    SpawnPlan plan;
    plan.use_files(task.folder, given);
    plan.use_default_signals();
    const int error = plan.spawn(
        process_, file,
        {file.string(), task.command, std::to_string(::getpid()), std::to_string(task.memory_bytes)});
    if (error != 0) throw cannot_start(file, error);
}

EngineProcess::~EngineProcess() {
    if (process_ < 0) return;
    ::kill(process_, SIGKILL);
    reap();
}

std::optional<EngineRecord> EngineProcess::next(const std::function<bool()>& give_up) {
    while (waiting_.empty()) {
        if (at_end_ || give_up()) return std::nullopt;
        if (batches_ > lively_batches) std::this_thread::sleep_for(pause_time);
        pollfd readable{records_.get(), POLLIN, 0};
        if (::poll(&readable, 1, ask_every_ms) > 0) read_more();
    }
    EngineRecord record = std::move(waiting_.front());
    waiting_.pop_front();
    return record;
}

void EngineProcess::read_more() {
    std::array<char, 65536> buffer{};
    const auto got = ::read(records_.get(), buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) return;
    ++batches_;
    at_end_ = got <= 0;
    if (at_end_) return;
    unfinished_.append(buffer.data(), static_cast<std::size_t>(got));

    std::size_t start = 0;
    engine::RecordHead head{};
    while (unfinished_.size() - start >= sizeof head) {
        std::memcpy(&head, unfinished_.data() + start, sizeof head);
        at_end_ = head.bytes > engine::longest_record;  // no engine of ours any more
        if (at_end_ || unfinished_.size() - start - sizeof head < head.bytes) break;
        waiting_.push_back(
            {static_cast<engine::Record>(head.kind), unfinished_.substr(start + sizeof head, head.bytes)});
        start += sizeof head + head.bytes;
    }
    unfinished_.erase(0, start);
}

int EngineProcess::reap() noexcept {
    int status = 0;
    while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
    return status;
}

std::string EngineProcess::wait_for_end() {
    const int status = reap();
    if (has_no_library(status))
        throw EngineMissing(
            std::string(program_.engine) +
            " cannot be used: its library could not be loaded. Install or reinstall the package " +
            program_.package + ".");
    return describe_end(program_, status);
}

}  // namespace foliant::hosts::distiller
