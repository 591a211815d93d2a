#include "cli/tools.h"

#include <algorithm>
#include <iomanip>
#include <iostream>

#include "automation/error.h"
#include "cli/exit_codes.h"
#include "cli/report.h"

namespace foliant::cli {

using platform::local::HostStatus;
using platform::local::LocalMachine;
using platform::local::StoredValue;

namespace {

std::string state_of(const HostStatus& host) {
    if (host.problem.empty()) return host.version;
    return host.problem;
}

/// One line of text for a value of any type; bytes of other types as hexadecimal.
std::string shown(const StoredValue& value) {
    if (const auto text = value.text()) return *text;
    std::string bytes;
    for (const char byte : value.data) {
        constexpr char digits[] = "0123456789ABCDEF";
        const auto bits = static_cast<unsigned char>(byte);
        bytes += {digits[bits >> 4U], digits[bits & 0xFU], ' '};
    }
    return bytes + "(type " + std::to_string(value.type) + ")";
}

void list_registry(LocalMachine& machine) {
    std::string key;
    for (const auto& entry : machine.registry().list()) {
        if (entry.key != key) std::cout << (key.empty() ? "" : "\n") << entry.key << '\n';
        key = entry.key;
        std::cout << "  " << (entry.name.empty() ? "(default)" : entry.name) << " = " << shown(entry.value)
                  << (entry.is_default ? "   [built in]" : "") << '\n';
    }
}

}  // namespace

int show_hosts(LocalMachine& machine) {
    const auto hosts = machine.host_states();
    std::size_t name_width = 0;
    std::size_t engine_width = 0;
    for (const HostStatus& host : hosts) {
        name_width = std::max(name_width, host.name.size());
        engine_width = std::max(engine_width, host.engine.size());
    }
    for (const HostStatus& host : hosts) {
        std::cout << std::left << std::setw(static_cast<int>(name_width) + 2) << host.name
                  << std::setw(static_cast<int>(engine_width) + 2)
                  << (host.engine.empty() ? "-" : host.engine) << state_of(host) << '\n';
    }
    const bool any =
        std::any_of(hosts.begin(), hosts.end(), [](const HostStatus& host) { return host.problem.empty(); });
    return any ? exit_success : exit_missing_engine;
}

int run_registry(const Request& request, LocalMachine& machine) {
    try {
        auto& registry = machine.registry();
        const auto& words = request.words;
        switch (request.action) {
            case Request::Action::registry_get: {
                const auto value = registry.get(words[0], words[1]);
                if (value) std::cout << shown(*value) << '\n';
                return value ? exit_success : exit_failure;
            }
            case Request::Action::registry_set:
                registry.set(words[0], words[1], StoredValue::of_text(words[2]));
                return exit_success;
            case Request::Action::registry_remove:
                return registry.remove(words[0], words[1]) ? exit_success : exit_failure;
            default:
                list_registry(machine);
                return exit_success;
        }
    } catch (const automation::Error& error) {
        std::cerr << error_text(error);
        return exit_failure;
    }
}

}  // namespace foliant::cli
