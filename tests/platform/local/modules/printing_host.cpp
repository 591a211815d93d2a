// A host for the tests: its object asks the machine for things the way a real host does.

#include <memory>
#include <string>

#include "automation/coerce.h"
#include "automation/error.h"
#include "hosts/module.h"
#include "hosts/viewer.h"
#include "registered/classes.h"

namespace {

using foliant::automation::Access;
using foliant::automation::Arguments;
using foliant::automation::Error;
using foliant::automation::RuntimeError;
using foliant::automation::Value;
namespace hosts = foliant::hosts;

class PrintingHost : public foliant::automation::Object {
  public:
    PrintingHost(std::string class_name, hosts::Machine& machine)
        : class_name_(std::move(class_name)), machine_(machine) {}

    Value invoke(Access, std::string_view member, const Arguments&) override {
        if (member == "ClassName") return class_name_;
        if (member == "Save") return saved_as();
        throw Error(RuntimeError::no_such_member);
    }

  private:
    /// What was typed into the printer's save dialog.
    Value saved_as() {
        hosts::Dialog dialog{"Save PDF File As",
                             {{.window_class = "Edit", .caption = "", .text = "untitled.pdf"},
                              {.window_class = "Button", .caption = "&Save", .text = "", .is_default = true}},
                             {},
                             false};
        machine_.show(dialog);
        if (!dialog.accepted) return Value();
        machine_.open_window(hosts::viewer_caption(dialog.controls[0].text), {});
        return dialog.controls[0].text;
    }

    std::string class_name_;
    hosts::Machine& machine_;
};

std::string engine_version() {
    return "10.00.0";
}

foliant::automation::ObjectPtr create(std::string_view class_name, hosts::Machine& machine) {
    if (class_name == foliant::registered::security_capable_distiller) {
        throw Error(RuntimeError::disk_full, "The engine's profile does not fit on the disk.");
    }
    return std::make_shared<PrintingHost>(std::string(class_name), machine);
}

constexpr hosts::Module module_table{engine_version, create};

}  // namespace

extern "C" const hosts::Module* foliant_host_module() {
    return &module_table;
}
