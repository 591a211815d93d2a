#include "platform/stage/cast.h"

#include <memory>

#include "automation/coerce.h"
#include "platform/stage/stage_object.h"

namespace foliant::platform::stage {

using automation::Arguments;
using automation::Value;

namespace {

constexpr std::string_view save_dialog_command = "save pdf file as~Edit~";

/// What a sender was told to type into the printer's save dialog; "" for any other command.
std::string saved_as(const std::string& command_line) {
    const std::size_t begin = command_line.find(save_dialog_command);
    if (begin == std::string::npos) return {};
    const std::string rest = command_line.substr(begin + save_dialog_command.size());
    return rest.substr(0, rest.find('~'));
}

Value convert(StageObject& distiller, const Arguments& arguments) {
    const Value& input = arguments.at(0).value;
    const Value& output = arguments.at(1).value;
    distiller.notify("OnJobStart", {input, output});
    distiller.notify("OnPercentDone", {std::int32_t{100}});
    distiller.notify("OnPageNumber", {std::int32_t{1}});
    distiller.stage().put_file(automation::to_text(output));
    distiller.notify("OnJobDone", {input, output});
    return std::int16_t{1};
}

}  // namespace

void cast_word(Stage& stage) {
    const auto target_of_printer = std::make_shared<std::string>();
    stage.on_program = [target_of_printer](const std::string& command_line) {
        if (std::string target = saved_as(command_line); !target.empty()) *target_of_printer = target;
    };
    stage.answer("Word.Application.ActivePrinter", "Office printer");
    stage.when("Documents.Open", [](StageObject& self, const Arguments&) {
        return Value(self.stage().make_object("Document"));
    });
    stage.when("Document.PrintOut", [target_of_printer](StageObject& self, const Arguments& arguments) {
        const Value* named_file = find_argument(arguments, "Outputfilename", arguments.size());
        self.stage().put_file(named_file != nullptr ? automation::to_text(*named_file) : *target_of_printer);
        return Value();
    });
}

void cast_distiller(Stage& stage) {
    stage.call_class("{1CD675B2-ECD1-11D1-B976-00600802DB86}", "Distiller");
    stage.call_class("{FC403250-51F5-4E1B-AC8C-ED9C5E551B9B}", "SecureDistiller");
    stage.when("Distiller.FileToPDF", convert);
    stage.when("SecureDistiller.FileToPDF2", convert);
}

void cast_usual_machine(Stage& stage) {
    stage.set_registry_text("HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\AcroExch.App\\AcrobatVersion", "", "6.0");
    stage.set_registry_text("HKEY_LOCAL_MACHINE\\SOFTWARE\\Adobe\\Acrobat Distiller\\6.0\\PrinterName", "",
                            "Adobe PDF");
    const std::string sender = stage.system_folder + stage.separator + "quorixsend.exe";
    stage.put_file(sender);
    stage.programs.insert(sender);
    stage.profile["PrinterPorts"]["Adobe PDF"] = "winspool,Ne00:,15,45";
    cast_word(stage);
    cast_distiller(stage);
}

}  // namespace foliant::platform::stage
