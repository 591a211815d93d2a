#include "platform/stage/cast/cast.h"

namespace foliant::platform::stage {

void cast_notepad(Stage& stage, const std::shared_ptr<PdfPrinter>& printer) {
    stage.programs.insert("notepad.exe");
    stage.when_program_starts([printer](const std::string& command_line) {
        if (command_line.starts_with("notepad.exe /p ")) printer->print();
    });
}

}  // namespace foliant::platform::stage
