#include "automation/coerce.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"

namespace foliant::platform::stage {

using automation::Arguments;
using automation::Value;

namespace {

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

void cast_distiller(Stage& stage) {
    stage.set_registry_text("HKEY_LOCAL_MACHINE\\SOFTWARE\\Adobe\\Acrobat Distiller\\6.0\\PrinterName", "",
                            "Adobe PDF");
    stage.call_class("{1CD675B2-ECD1-11D1-B976-00600802DB86}", "Distiller");
    stage.call_class("{FC403250-51F5-4E1B-AC8C-ED9C5E551B9B}", "SecureDistiller");
    stage.when("Distiller.FileToPDF", convert);
    stage.when("SecureDistiller.FileToPDF2", convert);
}

}  // namespace foliant::platform::stage
