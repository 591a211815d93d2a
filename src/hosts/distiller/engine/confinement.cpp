#include "hosts/distiller/engine/confinement.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/prctl.h>
#include <system_error>
#include <unistd.h>

#include "hosts/containment/containment.h"
#include "hosts/distiller/engine/record_writer.h"

namespace foliant::hosts::distiller::engine {
namespace {

constexpr std::uint64_t largest_file = std::uint64_t{16} << 30U;  // bytes; no reader opens a PDF like that
constexpr std::uint64_t most_open_files = 256;

}  // namespace

Orders take_orders(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("This program is a part of Foliant and not meant to be run by hand.\n", stderr);
        std::_Exit(EXIT_FAILURE);
    }
    return {argv[1], static_cast<pid_t>(std::strtol(argv[2], nullptr, 10)),
            std::strtoull(argv[3], nullptr, 10)};
}

void confine(const Orders& orders, containment::Policy policy) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != orders.parent) std::_Exit(EXIT_FAILURE);  // it died before it could be watched
    policy.may_make_threads = false;
    policy.limits.memory_bytes = orders.memory_bytes;
    policy.limits.file_bytes = largest_file;
    policy.limits.open_files = most_open_files;
    try {
        containment::apply(policy);
    } catch (const std::system_error& refusal) {
        send(Record::failed, std::string("the engine cannot be contained (") + refusal.what() + ")");
        std::_Exit(EXIT_SUCCESS);
    }
}

}  // namespace foliant::hosts::distiller::engine
