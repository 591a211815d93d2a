#include "hosts/machine.h"

#include "automation/error.h"

namespace foliant::hosts {

CapturedPage Machine::capture_page(const std::string& address) {
    throw automation::Error(automation::RuntimeError::action_not_supported,
                            address + " cannot be captured: there is no browser here.");
}

}  // namespace foliant::hosts
