#include "automation/coerce.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"
#include "registered/classes.h"
#include "registered/keys.h"

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
    stage.set_registry_text(registered::key_of_computer(registered::pdf_printer_key), "",
                            std::string(registered::pdf_printer_of_6_0));
    stage.call_class(std::string(registered::event_bound_distiller), "Distiller");
    stage.call_class(std::string(registered::security_capable_distiller), "SecureDistiller");
    stage.when("Distiller.FileToPDF", convert);
    stage.when("SecureDistiller.FileToPDF2", convert);
}

}  // namespace foliant::platform::stage
