#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"

namespace foliant::platform::stage {

using automation::Arguments;
using automation::Value;

void cast_crystal(Stage& stage, const std::shared_ptr<PdfPrinter>& printer) {
    stage.answer_object("crystal.crpe.application.OpenReport", "crystal.Report");
    stage.answer("crystal.crpe.application.CanClose", true);
    stage.when("crystal.Report.PrintOut", [printer](StageObject&, const Arguments&) {
        printer->print();
        return Value();
    });
}

}  // namespace foliant::platform::stage
