#include <pango/pango.h>
#include <string>

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/containment/usual_files.h"
#include "hosts/module.h"
#include "hosts/notepad/notepad.h"
#include "registered/classes.h"

namespace foliant::hosts::notepad {
namespace {

automation::ObjectPtr create(std::string_view class_name, Machine& machine) {
    if (automation::equal_ignoring_case(class_name, registered::notepad)) return make_notepad(machine);
    throw automation::Error(automation::RuntimeError::cannot_create_object,
                            "Pango stands in for no class " + std::string(class_name) + ".");
}

/// The text comes as an open file.
containment::Policy policy(const std::filesystem::path& folder) {
    using namespace containment;
    return {.may_read = system_libraries() + fonts() + locales() + empty_devices(),
            .may_write = {folder, "/dev/null"},
            .may_start = {},
            .limits = {}};
}

constexpr Module module = {[] { return std::string(pango_version_string()); }, create, policy};

}  // namespace
}  // namespace foliant::hosts::notepad

extern "C" __attribute__((visibility("default"))) const foliant::hosts::Module* foliant_host_module() {
    return &foliant::hosts::notepad::module;
}
