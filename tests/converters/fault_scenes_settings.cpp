#include "converters/fault_scenes.h"

namespace foliant::converters {

using automation::Access;
using platform::stage::Stage;
using tests::FaultScene;
using tests::scene_of_member;

std::vector<FaultScene> settings_scenes() {
    const auto as_it_is = [](Stage&) {};
    return {
        scene_of_member("PrinterName", "PrinterName", {}, as_it_is, ""),
        scene_of_member("AcrobatVersion", "AcrobatVersion", {}, as_it_is, ""),
        scene_of_member("TempFilePathGet", "TempFilePath", Access::get, {}, as_it_is, ""),
        // The put never reports a failure: the former folder stays.
        scene_of_member(
            "TempFilePathPut", "TempFilePath", Access::set, {"C:\\Temp"},
            [](Stage& stage) { stage.folders = {"C:"}; }, R"(
        fails: make folder C:\Temp
            go on
    )"),
        // Nor does this one: the former default stays.
        scene_of_member(
            "SetDefPrinter", "SetDefPrinter", {"Adobe PDF"},
            [](Stage& stage) { stage.profile["PrinterPorts"]["Adobe PDF"] = "winspool,Ne00:,15,45"; }, R"(
        fails: profile [PrinterPorts] Adobe PDF
            go on, but
            - write profile [windows] Device = Adobe PDF,winspool,Ne00:
            - tell all windows that profile [windows] has changed
        fails: write profile [windows] Device = Adobe PDF,winspool,Ne00:
        fails: tell all windows that profile [windows] has changed
            go on
    )"),
        scene_of_member(
            "SetDefPrinterOfWindows95", "SetDefPrinter", {"Adobe PDF"},
            [](Stage& stage) {
                stage.platform_identifier = 1;
                stage.printers["Adobe PDF"] = {"Adobe PDF", "LPT1:", 0, 15000, 45000};
            },
            R"(
        fails: open printer Adobe PDF
            go on, but
            - get printer Adobe PDF
            - set printer Adobe PDF: name Adobe PDF, port LPT1:, attributes 4, timeouts 15000 45000
            - close printer Adobe PDF
        fails: get printer Adobe PDF
            go on, but
            - set printer Adobe PDF: name Adobe PDF, port LPT1:, attributes 4, timeouts 15000 45000
            - close printer Adobe PDF
        fails: set printer Adobe PDF: name Adobe PDF, port LPT1:, attributes 4, timeouts 15000 45000
            go on, but
            - close printer Adobe PDF
        fails: close printer Adobe PDF
            go on
    )"),
    };
}

}  // namespace foliant::converters
