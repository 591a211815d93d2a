#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"

namespace foliant::platform::stage {

void cast_visio(Stage& stage, const std::shared_ptr<PdfPrinter>& printer) {
    stage.answer_object("Visio.Documents.Open", "Visio.Document");
    stage.when("Visio.Document.Print", [printer](StageObject&, const automation::Arguments&) {
        printer->print();
        return automation::Value();
    });
}

}  // namespace foliant::platform::stage
