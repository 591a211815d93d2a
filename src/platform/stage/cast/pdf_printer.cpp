#include "platform/stage/cast/cast.h"
#include "platform/stage/cast/sender_command.h"

namespace foliant::platform::stage {

void PdfPrinter::print() {
    if (target_.empty()) return;
    stage_.put_file(target_);
    const std::string file_name = target_.substr(target_.rfind(stage_.separator) + 1);
    stage_.windows["Adobe Acrobat Professional - [" + file_name + "]"] = stage_.now;
}

std::shared_ptr<PdfPrinter> cast_pdf_printer(Stage& stage) {
    stage.profile["PrinterPorts"]["Adobe PDF"] = "winspool,Ne00:,15,45";
    auto printer = std::make_shared<PdfPrinter>(stage);
    stage.when_program_starts([printer](const std::string& command_line) {
        if (const auto target = typed_into("save pdf file as", command_line)) printer->save_to(*target);
    });
    return printer;
}

}  // namespace foliant::platform::stage
