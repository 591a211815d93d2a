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
    };
}

}  // namespace foliant::converters
