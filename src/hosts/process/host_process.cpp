#include "hosts/process/host_process.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "automation/error.h"
#include "hosts/process/host_main.h"
#include "hosts/process/machine_calls.h"
#include "hosts/process/machine_service.h"
#include "hosts/process/peer.h"
#include "hosts/process/shared_notes.h"
#include "posix/processor.h"

namespace foliant::hosts::process {

using automation::Error;

namespace {

constexpr auto call_failed = static_cast<std::int32_t>(0x800706BEU);  // RPC_S_CALL_FAILED
constexpr std::int32_t not_running = 462;

constexpr const char* no_folder = "/nonexistent";

std::filesystem::path make_folder(const std::filesystem::path& parent) {
    std::string name = (parent / "host-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr)
        throw std::system_error(errno, std::generic_category(), "cannot make a folder in " + parent.string());
    return name;
}

/// "2 GiB", "300 MiB".
std::string readable(std::uint64_t bytes) {
    constexpr std::uint64_t mebibyte = 1U << 20U;
    constexpr std::uint64_t gibibyte = 1U << 30U;
    return bytes % gibibyte == 0 ? std::to_string(bytes / gibibyte) + " GiB"
                                 : std::to_string(bytes / mebibyte) + " MiB";
}

}  // namespace

/// The process as its parent knows it. The connection holds on to it, and the proxies to the connection.
class HostProcess::Child {
  public:
    Child(HostProgram program, Machine& machine)
        : program_(std::move(program)),
          memory_limit_(machine.memory_limit_bytes()),
          may_read_text_(machine.may_read_text()),
          takes_turns_(machine.takes_turns()),
          folder_(machine.gives_hosts_folders() ? make_folder(machine.private_folder()) : no_folder),
          service_(machine, folder_, program_.save_command) {}
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() { end(); }

    /// Starts the process; the connection to it.
    Channel start() {
        auto [mine, its] = Channel::pair();
        const pid_t parent = ::getpid();
        process_ = ::fork();
        if (process_ < 0) throw std::system_error(errno, std::generic_category(), "cannot start a process");
        if (process_ == 0)
            run_host({std::move(its), program_.load, folder_, memory_limit_, may_read_text_, takes_turns_,
                      *notes_, parent});
        if (takes_turns_) posix::have_run_elsewhere(process_);
        return std::move(mine);
    }

    /// Has this thread join the host where it is, if they take turns: to wake one of them on another processor takes
    /// longer than most answers of the other. Each gets ready on a processor of its own.
    void join() noexcept {
        if (!takes_turns_ || notes_->processor < 0) return;
        posix::stay_on(notes_->processor);
        takes_turns_ = false;
    }

    bool is_running() const noexcept { return process_ > 0; }
    /// What a process leaves behind takes the kernel a while to clear away, for which another processor will do.
    void dismiss() noexcept {
        if (process_ <= 0) return;
        posix::have_run_elsewhere(process_);
        ::kill(process_, SIGKILL);
    }
    MachineService& service() noexcept { return service_; }

    /// The other side cannot go on: raises why.
    [[noreturn]] void raise_loss(Peer::Loss loss, const std::string& member) {
        if (!is_running()) throw error(not_running, ending_, "");
        end();
        raise_lack_of_memory(member);
        ending_ = loss == Peer::Loss::garbled ? "was ended, because it sent what is no message" : manner();
        throw error(call_failed, ending_, member);
    }

    /// Whatever fails for lack of memory, and however the engine calls it, is said to fail for that. What was
    /// refused some memory cannot be relied on any more.
    void raise_lack_of_memory(const std::string& member) {
        const auto peak = static_cast<std::uint64_t>(usage_.ru_maxrss) * 1024;
        if (memory_limit_ == 0 || (!notes_->memory_refused && peak <= memory_limit_ / 4 * 3)) return;
        end();
        ending_ = "needs more memory than the limit of " + readable(memory_limit_);
        throw error(static_cast<std::int32_t>(automation::RuntimeError::out_of_memory), ending_, member);
    }

  private:
    /// Ends it, if it has not ended, and notes how it did.
    void end() noexcept {
        if (process_ <= 0) return;
        ::kill(process_, SIGKILL);  // too late for one that is dying of something else
        while (::wait4(process_, &status_, 0, &usage_) < 0 && errno == EINTR) {
        }
        process_ = 0;
    }

    std::string manner() const {
        if (!WIFSIGNALED(status_)) return "ended by itself";
        if (WTERMSIG(status_) == SIGKILL) return "was killed";
        return std::string("crashed (") + strsignal(WTERMSIG(status_)) + ")";
    }

    Error error(std::int32_t number, const std::string& what, const std::string& member) const {
        return {number, program_.name,
                program_.name + "'s stand-in, " + program_.engine + ", " + what +
                    (member.empty() ? "" : " during " + member) + "."};
    }

    HostProgram program_;
    std::uint64_t memory_limit_;
    bool may_read_text_;
    bool takes_turns_;  ///< and has not joined the host yet
    std::filesystem::path folder_;
    MachineService service_;
    SharedNotes notes_;
    pid_t process_ = 0;
    int status_ = 0;
    rusage usage_{};
    std::string ending_ = "has ended";
};

HostProcess::HostProcess(HostProgram program, Machine& machine)
    : child_(std::make_shared<Child>(std::move(program), machine)) {
    Peer::Manners manners;
    manners.service = [child = child_](Peer& peer, Reader& arguments, Writer& result) {
        child->service().answer(peer, arguments, result);
    };
    manners.lost = [child = child_](Peer::Loss loss, const std::string& member) {
        child->raise_loss(loss, member);
    };
    manners.failed = [child = child_](const std::string& member) { child->raise_lack_of_memory(member); };
    manners.sent = [child = child_](const std::string& text) { child->service().was_named(text); };
    peer_ = std::make_shared<Peer>(child_->start(), std::move(manners));
}

HostProcess::~HostProcess() = default;

automation::ObjectPtr HostProcess::create(std::string_view class_name) {
    child_->join();
    const automation::Value object = peer_->call_for_value(Writer().put(HostCall::create).put(class_name));
    return object.if_holds<automation::ObjectPtr>() ? *object.if_holds<automation::ObjectPtr>() : nullptr;
}

void HostProcess::dismiss() noexcept {
    child_->dismiss();
}

bool HostProcess::is_running() const noexcept {
    return child_->is_running();
}

}  // namespace foliant::hosts::process
