#include <cairo.h>
#include <string>

#include "automation/text.h"
#include "hosts/autocad/autocad_application.h"
#include "hosts/autocad/autocad_error.h"
#include "hosts/autocad/dwg_reader.h"
#include "hosts/containment/usual_files.h"
#include "hosts/module.h"
#include "registered/classes.h"

namespace foliant::hosts::autocad {
namespace {

automation::ObjectPtr create(std::string_view class_name, Machine& machine) {
    if (automation::equal_ignoring_case(class_name, registered::autocad))
        return make_autocad_application(machine);
    throw autocad_error(static_cast<std::int32_t>(automation::RuntimeError::cannot_create_object),
                        "AutoCAD's stand-in is no class " + std::string(class_name) + ".");
}

/// Fonts, and the program that reads .dwg, which runs under the same policy.
containment::Policy policy(const std::filesystem::path& folder) {
    using namespace containment;
    Paths programs;
    Paths reader;
    if (const auto found = find_dwg_reader()) {
        programs = {found->program};
        reader = found->files;
    }
    return {.may_read = system_libraries() + fonts() + locales() + empty_devices() + reader,
            .may_write = {folder, "/dev/null"},
            .may_start = programs,
            .limits = {}};
}

constexpr Module module = {[] { return std::string(cairo_version_string()); }, create, policy};

}  // namespace
}  // namespace foliant::hosts::autocad

extern "C" __attribute__((visibility("default"))) const foliant::hosts::Module* foliant_host_module() {
    return &foliant::hosts::autocad::module;
}
