#include "platform/local/printers.h"

#include "automation/error.h"
#include "registered/keys.h"

namespace foliant::platform::local {

using automation::Error;
using automation::RuntimeError;

std::string Printers::registered_name() {
    return store_.text(registered::key_of_computer(registered::pdf_printer_key), "").value_or(std::string());
}

std::string Printers::pdf_printer_name() {
    const std::string name = registered_name();
    return name.empty() ? std::string(registered::pdf_printer_of_6_0) : name;
}

bool Printers::is_pdf_printer(std::string_view name) {
    return name == registered::pdf_printer_of_6_0 || name == registered::usual_pdf_printer ||
           (!name.empty() && name == registered_name());
}

bool Printers::has(std::string_view name) {
    return is_pdf_printer(name) || cups_.has_printer(std::string(name));
}

std::string Printers::chosen_name() {
    const std::string device = store_.text(chosen_key, "Device").value_or(std::string());
    // The name may hold commas; driver and port follow it.
    const std::size_t port = device.rfind(',');
    if (port == std::string::npos || port == 0) return "";
    const std::size_t driver = device.rfind(',', port - 1);
    return driver == std::string::npos ? "" : device.substr(0, driver);
}

std::string Printers::default_name() {
    if (std::string chosen = chosen_name(); !chosen.empty() && has(chosen)) return chosen;
    std::string queue = cups_.default_printer();
    if (!queue.empty()) return queue;
    return pdf_printer_name();
}

std::vector<std::string> Printers::names() {
    const std::string registered = registered_name();
    std::vector<std::string> names{registered.empty() ? std::string(registered::pdf_printer_of_6_0)
                                                      : registered};
    const std::vector<std::string> queues = cups_.printers();
    names.insert(names.end(), queues.begin(), queues.end());
    return names;
}

void Printers::print(std::string_view name, const std::filesystem::path& pdf, std::string_view title) {
    const std::string printer(name);
    if (is_pdf_printer(name)) {
        throw Error(RuntimeError::invalid_procedure_call,
                    "\"" + printer +
                        "\" is the PDF printer: it asks for its output file in a dialog and gets no job.");
    }
    if (!has(name)) {
        throw Error(RuntimeError::invalid_procedure_call,
                    "There is no printer \"" + printer +
                        "\". The printers are \"Adobe PDF\" and those that "
                        "\"lpstat -e\" shows.");
    }
    if (std::error_code ignored; !std::filesystem::is_regular_file(pdf, ignored)) {
        // The spooler would queue an empty job before it finds out.
        throw Error(RuntimeError::file_not_found,
                    "File not found: " + pdf.string() + " cannot be printed on \"" + printer + "\".");
    }
    cups_.print(printer, pdf, std::string(title));
}

}  // namespace foliant::platform::local
