#include "cli/machine_check.h"

#include <algorithm>
#include <array>

#include "automation/coerce.h"
#include "cli/call.h"

namespace foliant::cli {

using automation::Error;
using platform::local::LocalMachine;

namespace {

constexpr std::string_view set_printer = "SetDefPrinter";

/// The members that read or change a setting and do nothing else.
bool is_about_settings(const Request& request) {
    constexpr std::array<std::string_view, 3> names{"PrinterName", "AcrobatVersion", set_printer};
    return std::find(names.begin(), names.end(), request.member->name) != names.end();
}

std::string wanted_printer(const Request& request) {
    return request.arguments.empty() ? std::string() : automation::to_text(request.arguments.front().value);
}

void require_settings(const Request& request, LocalMachine& machine) {
    if (!is_about_settings(request) && !wants_protection(request)) return;
    try {
        machine.registry().has_key("HKEY_CURRENT_USER\\Software");
    } catch (const Error& error) {
        if (!wants_protection(request)) throw;
        throw host_error("The PDF would not be protected. " + error.description());
    }
}

void require_printer(const std::string& printer, LocalMachine& machine) {
    if (machine.has_printer(printer)) return;
    std::string names;
    for (const std::string& name : machine.printer_names())
        names += (names.empty() ? "\"" : ", \"") + name + "\"";
    throw host_error("There is no printer \"" + printer + "\". The printers are: " + names + ".");
}

}  // namespace

void require_machine(const Request& request, LocalMachine& machine) {
    require_settings(request, machine);
    if (request.member->name == set_printer) require_printer(wanted_printer(request), machine);
}

std::optional<Error> unkept_promise(const Request& request, LocalMachine& machine) {
    if (request.member->name != set_printer || machine.default_printer() == wanted_printer(request)) {
        return std::nullopt;
    }
    return Error(automation::RuntimeError::path_file_access,
                 "The default printer is still \"" + machine.default_printer() +
                     "\": the choice could not be kept in " + machine.registry().file().string() + ".");
}

}  // namespace foliant::cli
