#include "platform/stage/cast/cast.h"

namespace foliant::platform::stage {

void cast_usual_machine(Stage& stage) {
    const std::string sender = stage.system_folder + stage.separator + "quorixsend.exe";
    stage.put_file(sender);
    stage.programs.insert(sender);
    const std::shared_ptr<PdfPrinter> printer = cast_pdf_printer(stage);
    cast_distiller(stage);
    cast_acrobat(stage);
    cast_word(stage, printer);
    cast_excel(stage, printer);
    cast_powerpoint(stage, printer);
    cast_visio(stage, printer);
    cast_autocad(stage, printer);
    cast_notepad(stage, printer);
    cast_access(stage, printer);
    cast_crystal(stage, printer);
    cast_pdfmaker(stage);
    cast_transfer_control(stage);
}

}  // namespace foliant::platform::stage
