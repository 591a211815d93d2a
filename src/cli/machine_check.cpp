#include "cli/machine_check.h"

#include <algorithm>
#include <array>

#include "automation/coerce.h"
#include "automation/text.h"
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

/// The printer that the call names and will print to; "" when it names none.
std::string wanted_printer(const Request& request) {
    // Those that convert PostScript take the name, and print nowhere.
    const bool prints = request.member->family != core::Family::postscript;
    const auto named = std::ranges::find_if(request.arguments, [&](const automation::Argument& argument) {
        return automation::equal_ignoring_case(argument.name, "strPrinter") ||
               (prints && automation::equal_ignoring_case(argument.name, "strDistiller"));
    });
    return named == request.arguments.end() ? std::string() : automation::to_text(named->value);
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

/// "A", "B"; "" for none.
std::string in_quotes(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "\"" : ", \"") + name + "\"";
    return list;
}

void require_printer(const std::string& printer, LocalMachine& machine) {
    if (machine.has_printer(printer)) return;
    throw host_error("There is no printer \"" + printer +
                     "\". The printers are: " + in_quotes(machine.printer_names()) + ".");
}

/// The members that print a PDF answer no dialog.
bool prints_on_paper(const Request& request) {
    return request.member->name == "PrintPDF" || request.member->name == "PrintPDFinDir";
}

}  // namespace

void require_machine(const Request& request, LocalMachine& machine) {
    require_settings(request, machine);
    const std::string printer = wanted_printer(request);
    // A member that cannot switch to its printer goes on with the default one: that may be anybody's.
    if (request.member->name == set_printer || !automation::trim_blanks(printer).empty())
        require_printer(printer, machine);
}

void require_paper(const Request& request, LocalMachine& machine) {
    if (!prints_on_paper(request)) return;
    const std::string named = wanted_printer(request);
    const std::string printer = automation::trim_blanks(named).empty() ? machine.default_printer() : named;
    if (!machine.is_pdf_printer(printer)) return;
    std::vector<std::string> names = machine.printer_names();
    std::erase_if(names, [&](const std::string& name) { return machine.is_pdf_printer(name); });
    throw host_error("\"" + printer + "\" prints into a file, and nobody is there to say into which. " +
                     (names.empty()
                          ? "There is no other printer here: set one up with CUPS, and lpstat -e lists it."
                          : "Name another printer with --printer: " + in_quotes(names) + "."));
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
