#include <array>

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/containment/usual_files.h"
#include "hosts/module.h"
#include "hosts/office/draw/visio_application.h"
#include "hosts/office/engine/installation.h"
#include "hosts/office/excel/excel_application.h"
#include "hosts/office/pdfmaker/pdfmaker.h"
#include "hosts/office/powerpoint/powerpoint_application.h"
#include "hosts/office/word/word_application.h"
#include "hosts/office/word/word_error.h"
#include "registered/classes.h"

namespace foliant::hosts::office {
namespace {

struct Maker {
    std::string_view class_name;
    automation::ObjectPtr (*make)(Machine&);
};

constexpr std::array makers{
    Maker{registered::word, make_word_application}, Maker{registered::excel, make_excel_application},
    Maker{registered::powerpoint, make_powerpoint_application},
    Maker{registered::visio, make_visio_application}, Maker{registered::pdfmaker, make_pdfmaker}};

automation::ObjectPtr create(std::string_view class_name, Machine& machine) {
    for (const Maker& maker : makers)
        if (automation::equal_ignoring_case(class_name, maker.class_name)) return maker.make(machine);
    throw microsoft_word.error(automation::RuntimeError::cannot_create_object,
                               "LibreOffice stands in for no class " + std::string(class_name) + ".");
}

/// LibreOffice's own files, what its libraries read everywhere, and the profile.
containment::Policy policy(const std::filesystem::path& folder) {
    using namespace containment;
    const Paths office{office_folder(),         "/etc/libreoffice",         "/usr/share/libreoffice",
                       "/usr/share/liblangtag", "/usr/share/libnumbertext", "/usr/share/hunspell",
                       "/usr/share/hyphen",     "/usr/share/mythes",        "/etc/papersize"};
    return {.may_read = office + system_libraries() + fonts() + locales() + empty_devices(),
            .may_write = {folder, "/dev/null"},
            .may_start = {},
            .limits = {}};
}

constexpr Module module = {[] { return office_version(); }, create, policy};

}  // namespace
}  // namespace foliant::hosts::office

extern "C" __attribute__((visibility("default"))) const foliant::hosts::Module* foliant_host_module() {
    return &foliant::hosts::office::module;
}
