#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"

namespace foliant::platform::stage {

void cast_autocad(Stage& stage, const std::shared_ptr<PdfPrinter>& printer) {
    stage.answer_object("AutoCAD.Documents.Open", "AutoCAD.Document");
    stage.when("AutoCAD.Plot.PlotToDevice", [printer](StageObject&, const automation::Arguments&) {
        printer->print();
        return automation::Value(true);
    });
}

}  // namespace foliant::platform::stage
