#include "cli/tools.h"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <nlohmann/json.hpp>

#include "cli/exit_codes.h"
#include "cli/visible_text.h"

namespace foliant::cli {

using platform::local::HostStatus;
using platform::local::LocalMachine;

namespace {

std::string state_of(const HostStatus& host) {
    if (host.problem.empty() || host.version.empty()) return host.version + host.problem;
    return host.version + "; " + host.problem;
}

void print_table(const std::vector<HostStatus>& hosts) {
    std::size_t name_width = 0;
    std::size_t engine_width = 0;
    for (const HostStatus& host : hosts) {
        name_width = std::max(name_width, host.name.size());
        engine_width = std::max(engine_width, host.engine.size());
    }
    for (const HostStatus& host : hosts) {
        std::cout << std::left << std::setw(static_cast<int>(name_width) + 2) << host.name
                  << std::setw(static_cast<int>(engine_width) + 2)
                  << (host.engine.empty() ? "-" : host.engine) << visible_line(state_of(host)) << '\n';
    }
    std::cout << "\nWhat reads documents is contained by: " << LocalMachine::containment() << '\n';
}

void print_json(const std::vector<HostStatus>& hosts) {
    auto list = nlohmann::ordered_json::array();
    for (const HostStatus& host : hosts) {
        list.push_back({{"name", host.name},
                        {"engine", host.engine},
                        {"version", host.version},
                        {"package", host.package},
                        {"problem", host.problem}});
    }
    using Strictness = nlohmann::ordered_json::error_handler_t;
    std::cout << nlohmann::ordered_json{{"hosts", list}, {"containment", LocalMachine::containment()}}.dump(
                     2, ' ', false, Strictness::replace)
              << '\n';
}

}  // namespace

int show_hosts(const Request& request, LocalMachine& machine) {
    const auto hosts = machine.host_states();
    request.options.json ? print_json(hosts) : print_table(hosts);
    const bool any =
        std::any_of(hosts.begin(), hosts.end(), [](const HostStatus& host) { return !host.version.empty(); });
    return any ? exit_success : exit_missing_engine;
}

}  // namespace foliant::cli
