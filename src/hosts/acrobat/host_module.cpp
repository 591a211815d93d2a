#include <qpdf/QPDF.hh>
#include <string>

#include "automation/text.h"
#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/application.h"
#include "hosts/acrobat/av_document.h"
#include "hosts/acrobat/parts.h"
#include "hosts/acrobat/pd_bookmark.h"
#include "hosts/acrobat/pd_document.h"
#include "hosts/acrobat/rectangle.h"
#include "hosts/containment/usual_files.h"
#include "hosts/module.h"
#include "registered/classes.h"

namespace foliant::hosts::acrobat {
namespace {

automation::ObjectPtr create(std::string_view class_name, Machine& machine) {
    const auto is = [&](std::string_view name) { return automation::equal_ignoring_case(class_name, name); };
    ProgramPtr program = Program::running_on(machine);
    if (is(registered::acrobat)) return make_application(std::move(program));
    if (is(registered::acrobat_viewer)) return std::make_shared<AvDocument>(std::move(program));
    if (is(registered::acrobat_rectangle)) return std::make_shared<AcrobatRectangle>();
    if (is(registered::acrobat_bookmark)) return std::make_shared<PdBookmark>();
    if (is(registered::acrobat_document)) return std::make_shared<PdDocument>(std::move(program));
    throw acrobat_error(automation::RuntimeError::cannot_create_object,
                        "qpdf stands in for no class " + std::string(class_name) + ".");
}

/// Documents come as open files. Fonts and character maps are for reading text.
containment::Policy policy(const std::filesystem::path& folder) {
    using namespace containment;
    return {.may_read = system_libraries() + fonts() + locales() + Paths{"/usr/share/poppler"} +
                        empty_devices() + files_of_parts(),
            .may_write = {folder, "/dev/null"},
            .may_start = {},
            .limits = {}};
}

constexpr Module module = {[] { return QPDF::QPDFVersion(); }, create, policy};

}  // namespace
}  // namespace foliant::hosts::acrobat

extern "C" __attribute__((visibility("default"))) const foliant::hosts::Module* foliant_host_module() {
    return &foliant::hosts::acrobat::module;
}
