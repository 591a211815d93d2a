#include <map>

#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"
#include "registered/keys.h"

namespace foliant::platform::stage {

using automation::Arguments;
using automation::Value;

namespace {

/// What PDFWriter does, which takes its file from the registry.
void print_with_pdf_writer(Stage& stage) {
    const auto key = stage.registry.find(registered::key_of_user(registered::pdf_writer_key));
    if (key == stage.registry.end()) return;
    const auto target = key->second.find(std::string(registered::pdf_writer_target_value));
    if (target != key->second.end())
        stage.put_file(target->second.data.substr(0, target->second.data.find('\0')));
}

/// Each printer knows its name, and the stage's objects know none: so it is kept here.
void cast_printers(Stage& stage) {
    const auto names = std::make_shared<std::map<const StageObject*, std::string>>();
    stage.when("Access.Printers._NewEnum", [names](StageObject& self, const Arguments&) {
        automation::Array printers;
        for (const char* name : {"Office printer", "Acrobat PDFWriter", "Adobe PDF"}) {
            const automation::ObjectPtr printer = self.stage().make_object("Access.Printer");
            (*names)[static_cast<const StageObject*>(printer.get())] = name;
            printers.items.emplace_back(printer);
        }
        return Value(std::move(printers));
    });
    stage.when("Access.Printer.DeviceName",
               [names](StageObject& self, const Arguments&) { return Value(names->at(&self)); });
}

}  // namespace

void cast_access(Stage& stage, const std::shared_ptr<PdfPrinter>& printer) {
    cast_printers(stage);
    stage.when("Access.DoCmd.OpenReport", [printer](StageObject& self, const Arguments&) {
        print_with_pdf_writer(self.stage());
        printer->print();
        return Value();
    });
}

}  // namespace foliant::platform::stage
