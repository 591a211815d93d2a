// The program in which Ghostscript runs, one job per process. Its arguments are a command of protocol.h and
// the process id of its parent; EngineProcess starts it.

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ghostscript/iapi.h>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include "hosts/distiller/engine/interpreter.h"
#include "hosts/distiller/engine/job_program.h"
#include "hosts/distiller/engine/record_writer.h"

namespace foliant::hosts::distiller::engine {
namespace {

constexpr rlim_t most_memory = rlim_t{4} << 30;  // bytes; real documents stay far below, memory hogs do not

/// "10.00.0"; the library gives 10000.
std::string version() {
    gsapi_revision_t revision = {};
    if (gsapi_revision(&revision, sizeof revision) != 0) return "unknown";
    const long number = revision.revision;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%ld.%02ld.%ld", number / 1000, number / 10 % 100, number % 10);
    return text.data();
}

void lower_limit(decltype(RLIMIT_AS) resource, rlim_t most) {
    rlimit limit = {};
    ::getrlimit(resource, &limit);
    limit.rlim_cur = std::min(limit.rlim_cur, most);
    limit.rlim_max = std::min(limit.rlim_max, most);
    ::setrlimit(resource, &limit);
}

/// Ends with the parent, gains no rights, and takes a bounded share of the machine.
void restrict_this_process(long parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) std::_Exit(EXIT_FAILURE);  // it died before it could be watched
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    ::signal(SIGXFSZ, SIG_IGN);  // a file that grows too large is an error to report, not a death
    lower_limit(RLIMIT_CORE, 0);
#ifndef __SANITIZE_ADDRESS__  // which reserves terabytes
    lower_limit(RLIMIT_AS, most_memory);
#endif
}

bool exists(const char* path) {
    return ::access(path, F_OK) == 0;
}

void distill() {
    Interpreter interpreter;
    bool well = interpreter.run(setup_program());
    if (well && exists(options_file)) {
        well = interpreter.run(running_program(options_file));
        if (well && !interpreter.has_quit()) send(Record::options_set, "");
    }
    if (well && !interpreter.has_quit()) well = interpreter.run(running_program(input_name(0)));

    const int pages = interpreter.finish();
    if (!well) return send(Record::failed, "");
    if (pages < 0) return send(Record::failed, "Ghostscript could not write the PDF");
    send(Record::done, std::to_string(pages));
}

}  // namespace
}  // namespace foliant::hosts::distiller::engine

int main(int argc, char** argv) {
    using namespace foliant::hosts::distiller;
    if (argc != 3) {
        std::fputs("This program is a part of Foliant and not meant to be run by hand.\n", stderr);
        return EXIT_FAILURE;
    }
    engine::restrict_this_process(std::strtol(argv[2], nullptr, 10));
    if (std::string_view(argv[1]) == engine::version_command) {
        engine::send(engine::Record::done, engine::version());
    } else {
        engine::distill();
    }
    std::_Exit(EXIT_SUCCESS);  // the interpreter's memory goes with the process
}
