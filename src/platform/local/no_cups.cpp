// In place of cups.cpp where the spooler's header is not there to build against.

#include "automation/error.h"
#include "platform/local/cups.h"

namespace foliant::platform::local {

class Cups::Library {};

Cups::Cups() = default;
Cups::~Cups() = default;

bool Cups::has_printer(const std::string&) {
    return false;
}

std::string Cups::default_printer() {
    return {};
}

std::vector<std::string> Cups::printers() {
    return {};
}

void Cups::print(const std::string& printer, const std::filesystem::path&, const std::string&) {
    throw automation::Error(
        automation::RuntimeError::device_io_error,
        "Cannot print on \"" + printer +
            "\": this program was built without the print spooler. Install libcups2-dev and "
            "build it again.");
}

}  // namespace foliant::platform::local
