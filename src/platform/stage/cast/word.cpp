#include "automation/coerce.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"

namespace foliant::platform::stage {

using automation::Arguments;
using automation::Value;

void cast_word(Stage& stage, const std::shared_ptr<PdfPrinter>& printer) {
    stage.answer("Word.Application.ActivePrinter", "Office printer");
    stage.answer_object("Word.Documents.Open", "Word.Document");
    stage.when("Word.Document.PrintOut", [printer](StageObject& self, const Arguments& arguments) {
        if (const Value* file = find_argument(arguments, "Outputfilename", arguments.size()))
            self.stage().put_file(automation::to_text(*file));
        else
            printer->print();
        return Value();
    });
}

}  // namespace foliant::platform::stage
