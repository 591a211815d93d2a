#include "automation/coerce.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"

namespace foliant::platform::stage {

using automation::Arguments;
using automation::Value;

void cast_excel(Stage& stage, const std::shared_ptr<PdfPrinter>& printer) {
    stage.answer_object("Excel.Workbooks.Open", "Excel.Workbook");
    stage.answer_object("Excel.Workbook.Worksheets", "Excel.Worksheet");
    stage.when("Excel.Application.InchesToPoints", [](StageObject&, const Arguments& arguments) {
        return Value(automation::to_double(arguments.at(0).value) * 72);
    });
    stage.when("Excel.Range.PrintOut", [printer](StageObject& self, const Arguments& arguments) {
        if (const Value* file = find_argument(arguments, "PrToFilename", arguments.size()))
            self.stage().put_file(automation::to_text(*file));
        else
            printer->print();
        return Value();
    });
}

}  // namespace foliant::platform::stage
