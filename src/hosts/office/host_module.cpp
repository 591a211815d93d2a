#include "automation/error.h"
#include "automation/text.h"
#include "hosts/module.h"
#include "hosts/office/engine/installation.h"
#include "hosts/office/word/word_application.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {
namespace {

automation::ObjectPtr create(std::string_view class_name, Machine& machine) {
    if (automation::equal_ignoring_case(class_name, "Word.Application"))
        return make_word_application(machine);
    throw microsoft_word.error(automation::RuntimeError::cannot_create_object,
                               "LibreOffice stands in for no class " + std::string(class_name) + ".");
}

constexpr Module module = {[] { return office_version(); }, create};

}  // namespace
}  // namespace foliant::hosts::office

extern "C" __attribute__((visibility("default"))) const foliant::hosts::Module* foliant_host_module() {
    return &foliant::hosts::office::module;
}
