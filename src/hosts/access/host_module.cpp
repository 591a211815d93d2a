#include <clocale>

#include "automation/text.h"
#include "hosts/access/access_application.h"
#include "hosts/access/access_error.h"
#include "hosts/access/database/mdb.h"
#include "hosts/containment/usual_files.h"
#include "hosts/module.h"
#include "registered/classes.h"

namespace foliant::hosts::access {
namespace {

automation::ObjectPtr create(std::string_view class_name, Machine& machine) {
    if (!automation::equal_ignoring_case(class_name, registered::access))
        throw access_error(automation::RuntimeError::cannot_create_object,
                           "mdbtools stands in for no class " + std::string(class_name) + ".");
    std::setlocale(LC_ALL, "");  // for dates, money and the order of letters
    return make_access_application(machine);
}

/// Besides the database, what setting texts takes.
containment::Policy policy(const std::filesystem::path& folder) {
    using namespace containment;
    return {.may_read = system_libraries() + fonts() + locales() + empty_devices(),
            .may_write = {folder, "/dev/null"},
            .may_start = {},
            .limits = {}};
}

constexpr Module module = {[] { return std::string(mdb_get_version()); }, create, policy};

}  // namespace
}  // namespace foliant::hosts::access

extern "C" __attribute__((visibility("default"))) const foliant::hosts::Module* foliant_host_module() {
    return &foliant::hosts::access::module;
}
