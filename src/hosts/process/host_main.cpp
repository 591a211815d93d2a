#include "hosts/process/host_main.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <iterator>
#include <memory>
#include <new>
#include <sys/prctl.h>
#include <unistd.h>
#include <utility>

#include "automation/error.h"
#include "hosts/containment/containment.h"
#include "hosts/process/machine_calls.h"
#include "hosts/process/peer.h"
#include "hosts/process/remote_machine.h"
#include "posix/processor.h"

namespace foliant::hosts::process {

namespace {

constexpr std::uint64_t largest_file = std::uint64_t{4} << 30U;  // bytes; no PDF of LibreOffice's comes near
constexpr std::uint64_t most_open_files = 1024;

HostNotes* notes = nullptr;

/// Notes that the limit was hit, for the parent to say so, whatever the engine makes of it.
void refuse_memory() {
    notes->memory_refused = true;
    throw std::bad_alloc();
}

void end_with(pid_t parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(EXIT_FAILURE);  // it died before it could be watched
}

/// Nothing of the parent's is kept: neither its open files, nor its terminal, nor what it does on signals.
void forget_the_parent(Channel& channel) {
    for (int number = 1; number < NSIG; ++number)
        std::signal(number, SIG_DFL);
    for (const int number : {SIGINT, SIGPIPE})
        std::signal(number, SIG_IGN);
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);

    const int nowhere = ::open("/dev/null", O_RDWR);
    ::dup2(nowhere, STDIN_FILENO);
    ::dup2(nowhere, STDOUT_FILENO);
#ifndef __SANITIZE_ADDRESS__  // whose reports are for the person who tests
    ::dup2(nowhere, STDERR_FILENO);
#endif
    const auto kept = static_cast<unsigned>(channel.descriptor());
    if (kept > STDERR_FILENO + 1U) ::close_range(STDERR_FILENO + 1U, kept - 1, 0);
    ::close_range(kept + 1, ~0U, 0);
}

/// Stays on the processor that it is on, and says which.
void settle_down() {
    const auto here = posix::current_processor();
    if (!here) return;
    posix::stay_on(*here);
    notes->processor = *here;
}

/// The host's module, or why it cannot be had.
class LoadedModule {
  public:
    explicit LoadedModule(const std::function<const Module&()>& load) {
        try {
            module_ = &load();
        } catch (...) {
            problem_ = std::current_exception();
        }
    }

    bool is_contained_at_once() const noexcept { return module_ != nullptr && module_->is_contained_at_once; }

    const Module& get() const {
        if (problem_) std::rethrow_exception(problem_);
        return *module_;
    }

  private:
    const Module* module_ = nullptr;
    std::exception_ptr problem_;
};

void contain(const HostStart& start, const Module& module, const std::filesystem::path& document) {
    containment::Policy policy = module.policy(start.folder);
    if (!document.empty()) policy.may_read.push_back(document);
    if (start.may_read_text && module.for_text != nullptr)
        std::ranges::move(module.for_text(), std::back_inserter(policy.may_read));
    policy.limits = {
        .memory_bytes = start.memory_limit_bytes, .file_bytes = largest_file, .open_files = most_open_files};
    containment::apply(policy);
}

void answer(const LoadedModule& module, RemoteMachine& machine, Peer& peer, Reader& arguments,
            Writer& result) {
    switch (static_cast<HostCall>(arguments.number<std::uint8_t>())) {
        case HostCall::create:
            return peer.put_object(result, module.get().create(arguments.text(), machine));
        case HostCall::click:
            return machine.click(arguments, result);
        case HostCall::closed:
            return machine.closed(arguments);
    }
    throw Garbled();
}

}  // namespace

void run_host(HostStart start) {
    end_with(start.parent);
    notes = &start.notes;
    std::set_new_handler(refuse_memory);
    forget_the_parent(start.channel);
    try {
        const LoadedModule module(start.load);
        RemoteMachine machine(
            start.folder, start.memory_limit_bytes,
            [&](const std::filesystem::path& document) { contain(start, module.get(), document); });
        Peer::Manners manners;
        manners.service = [&](Peer& peer, Reader& arguments, Writer& result) {
            answer(module, machine, peer, arguments, result);
        };
        manners.lost = [](Peer::Loss, const std::string&) { ::_exit(EXIT_SUCCESS); };
        const auto peer = std::make_shared<Peer>(std::move(start.channel), std::move(manners));
        machine.connect(peer);
        if (start.takes_turns) settle_down();
        if (module.is_contained_at_once()) machine.be_contained();
        peer->serve();
    } catch (...) {
        ::_exit(EXIT_FAILURE);  // nobody is there to be told
    }
    ::_exit(EXIT_SUCCESS);  // engines have static destructors that are better not run
}

}  // namespace foliant::hosts::process
