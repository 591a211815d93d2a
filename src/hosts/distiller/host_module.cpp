#include <algorithm>
#include <array>
#include <dlfcn.h>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/distiller/distill_error.h"
#include "hosts/distiller/distiller_object.h"
#include "hosts/module.h"
#include "registered/classes.h"

namespace foliant::hosts::distiller {
namespace {

constexpr std::array distiller_classes{registered::event_bound_distiller,
                                       registered::security_capable_distiller};

automation::Error cannot_create(const std::string& reason) {
    return {automation::RuntimeError::cannot_create_object, "Cannot create Acrobat Distiller: " + reason};
}

/// The engine programs lie beside this library. Its own address tells where: that of a function which the
/// program might have as well could be the program's.
Distiller local_distiller() {
    static constexpr char in_this_library = 0;
    Dl_info info = {};
    ::dladdr(&in_this_library, &info);
    return Distiller(std::filesystem::absolute(info.dli_fname).parent_path() / "distiller");
}

/// Both classes are one here: each has all the members and notifications of the other.
automation::ObjectPtr create(std::string_view class_name, Machine& machine) {
    const bool known = std::any_of(
        distiller_classes.begin(), distiller_classes.end(),
        [class_name](std::string_view name) { return automation::equal_ignoring_case(class_name, name); });
    if (!known) throw cannot_create("there is no class " + std::string(class_name) + ".");
    return std::make_shared<DistillerObject>(local_distiller(), machine);
}

std::string engine_version() {
    try {
        return local_distiller().engine_version();
    } catch (const DistillError& error) {
        throw cannot_create(error.what());
    }
}

constexpr Module distiller_module = {engine_version, create};

}  // namespace
}  // namespace foliant::hosts::distiller

extern "C" __attribute__((visibility("default"))) const foliant::hosts::Module* foliant_host_module() {
    return &foliant::hosts::distiller::distiller_module;
}
