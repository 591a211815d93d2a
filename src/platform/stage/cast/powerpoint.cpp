#include "automation/coerce.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"

namespace foliant::platform::stage {

using automation::Arguments;
using automation::Value;

void cast_powerpoint(Stage& stage, const std::shared_ptr<PdfPrinter>& printer) {
    stage.answer_object("Powerpoint.Presentations.Open", "Powerpoint.Presentation");
    stage.answer("Powerpoint.PrintOptions.ActivePrinter", "Office printer");
    stage.when("Powerpoint.Presentation.PrintOut", [printer](StageObject& self, const Arguments& arguments) {
        if (const Value* file = find_argument(arguments, "PrintToFile", arguments.size()))
            self.stage().put_file(automation::to_text(*file));
        else
            printer->print();
        return Value();
    });
}

}  // namespace foliant::platform::stage
