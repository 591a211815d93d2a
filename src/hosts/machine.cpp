#include "hosts/machine.h"

#include "automation/error.h"

namespace foliant::hosts {

CapturedPage Machine::capture_page(const std::string& address) {
    throw automation::Error(automation::RuntimeError::action_not_supported,
                            address + " cannot be captured: there is no browser here.");
}

void Machine::show_in_acrobat(const std::filesystem::path&, const std::string& name) {
    throw automation::Error(automation::RuntimeError::action_not_supported,
                            name + " cannot be shown: there is no Acrobat here.");
}

}  // namespace foliant::hosts
